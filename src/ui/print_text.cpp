// The text pages of a printout: a table of three columns over the page less its margins, the
// blocks chosen by the printing options flowing down the columns and on to new pages.
#include "curve/curve_family.h"
#include "curve/curve_style.h"
#include "files/data_file.h"
#include "instrument/averaging.h"
#include "instrument/thermometer.h"
#include "instrument/virtual_channels.h"
#include "measure/ic_options.h"
#include "measure/ivc_options.h"
#include "measure/measure_options.h"
#include "settings/option_rows.h"
#include "support/c_locale.h"
#include "ui/gfont.h"
#include "ui/plot_options.h"
#include "ui/plot_render.h"
#include "ui/print_page.h"

#include <algorithm>
#include <ctime>
#include <string>

namespace {

constexpr int kColumns = 3;
constexpr int kCommentRows = 4;

class TextFlow {
  public:
    TextFlow(const PlotCanvas& dc, PrintJob* job, const CanvasRect& page, const CanvasRect& first,
             int startColumn, int pixelsPerInch)
        : dc_(dc), job_(job), page_(page), rect_(first), column_(startColumn) {
        const int p = pixelsPerInch * 8 / 72; // 8 points
        rowHeight_ = std::max(1, p * 3 / 2);
        gap_ = p / 2;
        font_ = gPlotOptions.captionFont;
        font_.height = 8;
        font_.italic = font_.underline = font_.strikeOut = 0;
        font_.color = CANVAS_BLACK;
        heading_ = font_;
        heading_.weight = 700;
        Layout();
    }

    // Room for rows more in the current column, or the next column (or page) when the block
    // would not fit and the column has something in it already.
    bool Fit(int rows) {
        if (row_ + rows > rowsPerColumn_ && row_ > 0) NextColumn();
        return !stopped_;
    }
    void Heading(const std::string& text) {
        if (!TakeRow()) return;
        heading_.CreateFor(dc_);
        Draw(text, Box(0, 100, 1), TEXT_LEFT);
        font_.CreateFor(dc_);
        ++row_;
    }
    // The value right-aligned in full where it fits, the label cut at its end before it.
    void Row(const std::string& label, const std::string& value) {
        if (!TakeRow()) return;
        const CanvasRect whole = Box(0, 100, 1);
        const int room = whole.right - whole.left;
        const std::string shown = FitBack(value, room);
        CanvasRect labelBox = whole;
        labelBox.right -= Width(shown) + (shown.empty() ? 0 : gap_);
        Draw(FitBack(label, labelBox.right - labelBox.left), labelBox, TEXT_LEFT);
        Draw(shown, whole, TEXT_RIGHT);
        ++row_;
    }
    // A label over a field of several rows, the text wrapped inside it.
    void WideRow(const std::string& label, const std::string& value, int rows) {
        if (!TakeRow()) return;
        Draw(label, Box(0, 100, 1), TEXT_LEFT);
        ++row_;
        if (!TakeRow()) return;
        rows = std::min(rows, rowsPerColumn_ - row_);
        Draw(value, Box(0, 100, rows), TEXT_LEFT | TEXT_WORDBREAK);
        row_ += rows;
    }
    // The legend row of a curve: its name, then a sample of its line with its symbol.
    void LegendRow(const std::string& name, const CurveStyle& style, bool blackOnly) {
        if (!TakeRow()) return;
        Draw(name, Box(0, 60, 1), TEXT_LEFT);
        const CanvasRect sample = Box(62, 98, 1);
        CanvasCaps caps;
        dc_.GetCaps(dc_.context, &caps);
        const int perTenth = caps.horzSizeMm > 0 ? 10 * caps.horzSizeMm : 0;
        const int width =
            perTenth
                ? std::max(1, static_cast<int>(1LL * style.lineWidth * caps.horzRes / perTenth))
                : 1;
        const int half =
            perTenth ? static_cast<int>(1LL * style.symbolSize * caps.horzRes / perTenth) : 0;
        const CanvasColor color = blackOnly ? CANVAS_BLACK : style.color;
        const int y = (sample.top + sample.bottom) / 2;
        dc_.SetPen(dc_.context, style.lineStyle, width, color);
        dc_.MoveTo(dc_.context, sample.left, y);
        dc_.LineTo(dc_.context, sample.right, y);
        if (style.symbol != SYMBOL_NONE && half > 0) {
            dc_.SetPen(dc_.context, PEN_SOLID, 0, color);
            DrawSymbol(dc_, (sample.left + sample.right) / 2, y, style.symbol, half, color);
        }
        ++row_;
    }
    // A file name cut at its front, "..." first, to fit beside its label.
    std::string FitFront(const std::string& text) const {
        const CanvasRect box = Box(40, 100, 1);
        const int room = box.right - box.left;
        if (Width(text) <= room) return text;
        for (size_t cut = 1; cut < text.size(); ++cut) {
            std::string shown = "..." + text.substr(cut);
            if (Width(shown) <= room) return shown;
        }
        return "...";
    }
    std::string FitBack(const std::string& text, int room) const {
        std::string shown = text;
        while (!shown.empty() && Width(shown) > room)
            shown.pop_back();
        return shown;
    }
    int Width(const std::string& text) const {
        int w = 0;
        for (char c : text)
            w += dc_.CharWidth(dc_.context, c);
        return w;
    }
    void Start() {
        font_.CreateFor(dc_);
        dc_.SetTextColor(dc_.context, CANVAS_BLACK);
    }
    bool Stopped() const { return stopped_; }

  private:
    void Layout() {
        columnWidth_ = std::max(1, (rect_.right - rect_.left - gap_ * (kColumns - 1)) / kColumns);
        rowsPerColumn_ = std::max(1, (rect_.bottom - rect_.top) / rowHeight_);
    }
    void NextColumn() {
        row_ = 0;
        if (++column_ < kColumns) return;
        if (!job_) {
            stopped_ = true;
            return;
        }
        job_->EndPage(job_->context);
        job_->StartPage(job_->context);
        rect_ = page_;
        column_ = 0;
        Layout();
        Start();
    }
    bool TakeRow() {
        if (row_ >= rowsPerColumn_) NextColumn();
        return !stopped_;
    }
    // Percent of the column's width from, to; rows high from the current row.
    CanvasRect Box(int from, int to, int rows) const {
        const int left = rect_.left + column_ * (columnWidth_ + gap_);
        const int top = rect_.top + row_ * rowHeight_;
        return CanvasRect{left + columnWidth_ * from / 100, top, left + columnWidth_ * to / 100,
                          top + rows * rowHeight_};
    }
    void Draw(const std::string& text, const CanvasRect& box, unsigned flags) {
        dc_.DrawText(dc_.context, text.c_str(), box, flags);
    }

    const PlotCanvas& dc_;
    PrintJob* job_;
    CanvasRect page_, rect_;
    int column_, row_ = 0, rowHeight_ = 1, gap_ = 0, columnWidth_ = 1, rowsPerColumn_ = 1;
    bool stopped_ = false;
    GFont font_, heading_;
};

std::string DateText(std::int32_t date) {
    if (date == 0) return "";
    static const char* const kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                          "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const std::time_t t = date;
    std::tm local{};
    localtime_r(&t, &local);
    char text[32];
    SnprintfC(text, sizeof text, "%d-%3s-%d", local.tm_mday, kMonths[local.tm_mon],
              local.tm_year + 1900);
    return text;
}

void PictureInfo(TextFlow& t, const CurveFamily& family) {
    t.Fit(8 + kCommentRows);
    t.Heading("Picture Info");
    t.Row("Figure Name:", family.name);
    t.Row("File Name:", t.FitFront(gCurrentFileName));
    t.Row("Date:", DateText(family.date));
    t.Row("Chip Name:", family.chipName);
    t.Row("Circuit Name:", family.circuitName);
    t.Row("Measured by:", family.designer);
    t.WideRow("Comment:", family.comment, kCommentRows);
}

void Legend(TextFlow& t, const CurveFamily& family, bool blackOnly) {
    t.Fit(1 + static_cast<int>(std::min<std::uint32_t>(family.count, 40)));
    t.Heading("Legend");
    for (std::uint32_t c = 0; c < family.count && !t.Stopped(); ++c)
        t.LegendRow(family.GetCurve(c).GetName(), gCurveStyles[c % kCurveStyleCount], blackOnly);
}

void Block(TextFlow& t, const OptionRows& rows) {
    t.Fit(1 + static_cast<int>(rows.rows.size()));
    t.Heading(rows.title);
    for (const OptionRow& r : rows.rows)
        t.Row(r.label, r.value);
}

void AveragingRows(OptionRows& out) {
    out.title = "Averaging";
    AddOptionRow(out, "Current: number of samples", "%u", GetCurrentAveragingTimes);
    AddOptionRow(out, "Current: start averaging from", "%u", GetCurrentAveragingStart);
    AddOptionRow(out, "Voltage: number of samples", "%u", GetVoltageAveragingTimes);
    AddOptionRow(out, "Voltage: start averaging from", "%u", GetVoltageAveragingStart);
    AddOptionRow(out, "Turbo", "%s", TurboAveraging ? "on" : "off");
    AddOptionRow(out, "Rate (samples/sec)", "%g", static_cast<double>(TA_SampleRate));
}

void VirtualRows(OptionRows& out) {
    out.title = "Virtual Currents and Voltages";
    for (int i = 0; i < kCurrentChannelCount; ++i) {
        const CurrentChannel& c = CurrentChannels[i];
        if (c.kind == CURRENT_DISCONNECTED) continue;
        AddOptionRow(out, c.comment[0] ? c.comment : "(current)", "%s, %g A/V",
                     gCurrentKindNames[c.kind], c.R != 0 ? 1.0 / c.R : 0.0);
    }
    for (int i = 0; i < kVoltageChannelCount; ++i) {
        const VoltageChannel& v = VoltageChannels[i];
        if (v.kind == VOLTAGE_NOT_CONNECTED) continue;
        AddOptionRow(out, v.comment[0] ? v.comment : "(voltage)", "%s, gain %g",
                     gVoltageKindNames[v.kind], static_cast<double>(v.ADCGain * v.extGain));
    }
}

void OtherRows(OptionRows& out) {
    GeneralMeasure_WriteRows(out);
}

} // namespace

// The writers of the option blocks in their printed order; a group that is not built has none.
PrintBlockWriter gPrintBlockWriters[kPrintFlagCount] = {};

namespace {
bool InstallWriters() {
    gPrintBlockWriters[PRINT_VIRTUAL_IV] = VirtualRows;
    gPrintBlockWriters[PRINT_AVERAGING] = AveragingRows;
    gPrintBlockWriters[PRINT_DELAYS] = Delays_WriteRows;
    gPrintBlockWriters[PRINT_ICH_OPTIONS] = IcH_WriteRows;
    gPrintBlockWriters[PRINT_TERMOMETER_SETUP] = Termometer_WriteRows;
    gPrintBlockWriters[PRINT_OTHER_OPTIONS] = OtherRows;
    return true;
}
const bool kWritersInstalled = InstallWriters();
} // namespace

void PrintTextBlocks(const PlotCanvas& dc, PrintJob* job, const CurveFamily& family) {
    CanvasCaps caps;
    if (!dc.GetCaps(dc.context, &caps) || caps.horzSizeMm <= 0 || caps.vertSizeMm <= 0) return;
    CanvasRect page{0, 0, caps.horzRes, caps.vertRes};
    page.left += gPageSetup.marginLeft * caps.horzRes / caps.horzSizeMm;
    page.right -= gPageSetup.marginRight * caps.horzRes / caps.horzSizeMm;
    page.top += gPageSetup.marginTop * caps.vertRes / caps.vertSizeMm;
    page.bottom -= gPageSetup.marginBottom * caps.vertRes / caps.vertSizeMm;
    if (page.right <= page.left || page.bottom <= page.top) return;
    CanvasRect first = page;
    int column = 0;
    if (gPageSetup.pageLayout == PAGE_LAYOUT_UPPER_TEXT_BELOW) {
        first.top = (page.top + page.bottom) / 2;
    } else if (job) {
        job->EndPage(job->context);
        job->StartPage(job->context);
    } else {
        return;
    }
    TextFlow t(dc, job, page, first, column, caps.logPixelsY);
    t.Start();
    const bool blackOnly = caps.numColors == 2 && !fEnforceColor;
    static const int kOrder[] = {PRINT_INFO,
                                 PRINT_LEGEND,
                                 PRINT_VIRTUAL_IV,
                                 PRINT_AVERAGING,
                                 PRINT_DELAYS,
                                 PRINT_IVF_OPTIONS,
                                 PRINT_ICH_OPTIONS,
                                 PRINT_VT_OPTIONS,
                                 PRINT_ICT_OPTIONS,
                                 PRINT_VTIME_OPTIONS,
                                 PRINT_TERMOMETER_SETUP,
                                 PRINT_OTHER_OPTIONS,
                                 PRINT_GENERAL_WFM_SETUP,
                                 PRINT_CALIBRATOR_OPTIONS};
    for (int flag : kOrder) {
        if (!gPrintFlags[flag] || t.Stopped()) continue;
        if (flag == PRINT_INFO) {
            PictureInfo(t, family);
        } else if (flag == PRINT_LEGEND) {
            Legend(t, family, blackOnly);
        } else if (gPrintBlockWriters[flag]) {
            OptionRows rows;
            gPrintBlockWriters[flag](rows);
            Block(t, rows);
        }
    }
}
