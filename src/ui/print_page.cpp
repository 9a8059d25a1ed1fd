#include "ui/print_page.h"

#include "curve/undo.h"
#include "files/data_file.h"
#include "platform/host.h"
#include "support/c_locale.h"
#include "support/message_box.h"
#include "ui/main_state.h"
#include "ui/plot_options.h"
#include "ui/plot_render.h"

#include <algorithm>

int (*gOpenPrintJob)(void* window, PrintJob* job) = nullptr;

namespace {

// The job being printed, for the page breaks of the text pages.
PrintJob* gActiveJob = nullptr;

void PlacePlot(const PlotCanvas& dc, CanvasRect& area) {
    CanvasCaps caps;
    if (dc.GetCaps(dc.context, &caps)) area = PrintedPlotArea(caps, gPageSetup);
}

void TextPages(const PlotCanvas& dc, const CurveFamily& family) {
    PrintTextBlocks(dc, gActiveJob, family);
}

} // namespace

CanvasRect PrintedPlotArea(const CanvasCaps& caps, const PageSetup& setup) {
    CanvasRect a{0, 0, caps.horzRes, caps.vertRes};
    if (caps.horzSizeMm <= 0 || caps.vertSizeMm <= 0) return a;
    a.left += setup.marginLeft * caps.horzRes / caps.horzSizeMm;
    a.right -= setup.marginRight * caps.horzRes / caps.horzSizeMm;
    a.top += setup.marginTop * caps.vertRes / caps.vertSizeMm;
    a.bottom -= setup.marginBottom * caps.vertRes / caps.vertSizeMm;
    const int midX = (a.left + a.right) / 2, midY = (a.top + a.bottom) / 2;
    switch (setup.pageLayout) {
    case PAGE_LAYOUT_UPPER:
    case PAGE_LAYOUT_UPPER_TEXT_BELOW:
        a.bottom = midY;
        break;
    case PAGE_LAYOUT_LOWER:
        a.top = midY;
        break;
    case PAGE_LAYOUT_LEFT:
        a.right = midX;
        break;
    case PAGE_LAYOUT_RIGHT:
        a.left = midX;
        break;
    case PAGE_LAYOUT_UPPER_LEFT:
        a.bottom = midY;
        a.right = midX;
        break;
    case PAGE_LAYOUT_UPPER_RIGHT:
        a.bottom = midY;
        a.left = midX;
        break;
    case PAGE_LAYOUT_LOWER_LEFT:
        a.top = midY;
        a.right = midX;
        break;
    case PAGE_LAYOUT_LOWER_RIGHT:
        a.top = midY;
        a.left = midX;
        break;
    default:
        break;
    }
    if (setup.ratioXY == 0 && a.right > a.left && a.bottom > a.top) {
        // Millimetres per pixel across and down, so that 16 to 10 holds on paper.
        const double mmX = static_cast<double>(caps.horzSizeMm) / caps.horzRes;
        const double mmY = static_cast<double>(caps.vertSizeMm) / caps.vertRes;
        const double widthMm = (a.right - a.left) * mmX, heightMm = (a.bottom - a.top) * mmY;
        const double w16 = heightMm * 16.0 / 10.0;
        if (w16 < widthMm) {
            const int width = static_cast<int>(w16 / mmX);
            a.left += (a.right - a.left - width) / 2;
            a.right = a.left + width;
        } else {
            a.bottom = a.top + static_cast<int>(widthMm * 10.0 / 16.0 / mmY);
        }
    }
    return a;
}

std::string PrintDocumentName(int jobNumber) {
    char name[400];
    SnprintfC(name, sizeof name, "%s -- %s (ID=%d)", gProgramName,
              gCurrentFileName[0] ? gCurrentFileName : "Screen", jobNumber);
    return name;
}

int PrintOnJob(PrintJob& job, const CurveFamily& family) {
    const std::string name = PrintDocumentName(++gPrintJobCounter);
    if (!job.StartDoc(job.context, name.c_str())) {
        MessageBoxBeep(nullptr, "Unable to start print job", "Print Error", MB_OK | MB_ICONSTOP);
        return 0;
    }
    job.StartPage(job.context);
    const PlotPrintHooks saved = gPlotPrintHooks;
    gPlotPrintHooks.PlacePlot = PlacePlot;
    gPlotPrintHooks.PrintTextPages = TextPages;
    gActiveJob = &job;
    // The window's view stays as the window drew it; the page has a transformation of its own.
    ViewScale view = gViewScale;
    DrawPlot(gPlotOptions, nullptr, job.canvas, family, view);
    gActiveJob = nullptr;
    gPlotPrintHooks = saved;
    job.EndPage(job.context);
    job.EndDoc(job.context);
    return 1;
}

int PrintPlot(void* window) {
    PrintJob job;
    if (!gOpenPrintJob || !gOpenPrintJob(window, &job)) return 0;
    if (gPrintFlags[PRINT_SHOW_OPTIONS_EVERY_TIME]) PrintingOptionsDialog(window);
    Host().WaitCursor(1);
    const int done = PrintOnJob(job, gCurves);
    Host().WaitCursor(0);
    if (job.Close) job.Close(job.context);
    return done;
}
