#include "gui/measure_dialog.h"

#include "gui/qt_canvas.h"
#include "gui/qt_host.h"
#include "gui/setup_panel_dialog.h"
#include "instrument/autozero.h"
#include "platform/measure_dialog.h"
#include "ui/measure_command.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTimer>
#include <QVBoxLayout>

#include <array>
#include <memory>
#include <string>
#include <cstdio>

namespace {

MeasureDlg* Dlg(void* view) {
    return static_cast<MeasureDlg*>(view);
}

QString Rgb(std::uint32_t color) {
    return QString("rgb(%1,%2,%3)").arg(color & 0xFF).arg((color >> 8) & 0xFF).arg(color >> 16);
}

template <typename W> void Quiet(W* w, auto f) {
    bool old = w->blockSignals(true);
    f(w);
    w->blockSignals(old);
}

void ViewSetText(void* view, int id, const char* text) {
    QWidget* w = Dlg(view)->Control(id);
    QString s = TextFromStored(text);
    if (auto* l = qobject_cast<QLabel*>(w))
        l->setText(s);
    else if (auto* e = qobject_cast<QLineEdit*>(w))
        Quiet(e, [&](QLineEdit* x) { x->setText(s); });
    else if (auto* b = qobject_cast<QAbstractButton*>(w))
        b->setText(s);
    else if (auto* n = qobject_cast<QSpinBox*>(w))
        Quiet(n, [&](QSpinBox* x) { x->setValue(s.toInt()); });
}

void ViewSetCheck(void* view, int id, int on) {
    if (auto* b = qobject_cast<QAbstractButton*>(Dlg(view)->Control(id)))
        Quiet(b, [&](QAbstractButton* x) { x->setChecked(on != 0); });
}

void ViewEnable(void* view, int id, int on) {
    // The readings stay lit during a run; only the buttons that open the panels go off.
    if (id == MC_VoltageRows) {
        for (int row = 0; row < MeasureDlg::kVoltageRowsShown; ++row)
            Dlg(view)->VoltageRowOf(row).button->setEnabled(on != 0);
        return;
    }
    if (QWidget* w = Dlg(view)->Control(id)) w->setEnabled(on != 0);
}

void ViewSetRowScroll(void*, int, int) {} // the window sets its bars when it builds them

bool ViewStartTimer(void* view, int ms) {
    QTimer* t = Dlg(view)->findChild<QTimer*>("animation");
    if (!t) return false;
    t->start(ms);
    return true;
}

void ViewStopTimer(void* view) {
    if (QTimer* t = Dlg(view)->findChild<QTimer*>("animation")) t->stop();
}

void ViewOpenChannelSetup(void* view, int voltages, int index) {
    RunSetupPanel(Dlg(view), voltages, index);
}

void ViewEnd(void* view, int result) {
    Dlg(view)->done(result);
}

void ViewShowProgress(void* view, int percent, const char* text) {
    MeasureDlg* d = Dlg(view);
    d->ProgressBar()->setValue(percent);
    if (auto* l = qobject_cast<QLabel*>(d->Control(MC_Phase + 100)))
        l->setText(TextFromStored(text));
}

} // namespace

// Row views are friends of nobody: they go through the two functions below.
static void ShowCurrentRowIn(void* view, int row, const CurrentRowView& data);
static void ShowVoltageRowIn(void* view, int row, const VoltageRowView& data);

const MeasurePanelView MeasureDlg::kView = {
    .SetText = ViewSetText,
    .SetCheck = ViewSetCheck,
    .Enable = ViewEnable,
    .SetRowScroll = ViewSetRowScroll,
    .ShowCurrentRow = ShowCurrentRowIn,
    .ShowVoltageRow = ShowVoltageRowIn,
    .ShowProgress = ViewShowProgress,
    .StartTimer = ViewStartTimer,
    .StopTimer = ViewStopTimer,
    .OpenChannelSetup = ViewOpenChannelSetup,
    .End = ViewEnd,
};

QWidget* MeasureDlg::Add(int id, QWidget* widget) {
    controls_[id] = widget;
    return widget;
}

QWidget* MeasureDlg::Control(int id) const {
    auto it = controls_.find(id);
    return it == controls_.end() ? nullptr : it->second;
}

void MeasureDlg::BuildSweep(QGridLayout* grid, int range, bool pointsOnly) {
    auto id = [range](int c) { return SweepControlId(range, c); };
    int row = 0;
    auto* points = new QLineEdit;
    points->setMinimumWidth(110);
    Add(id(SC_Points), points);
    pointsField_[range] = true;
    const SweepRange& r = WorkingRange(range);
    points->setReadOnly(r.findCurrent != nullptr);
    connect(points, &QLineEdit::editingFinished, this,
            [this, points, range] { SweepPoints(panel_, range, points->text().toUInt()); });
    grid->addWidget(new QLabel("Points"), row, 0);
    grid->addWidget(points, row, 1);
    if (pointsOnly) return;
    grid->addWidget(Add(id(SC_Limits), new QLabel), row, 2, 1, 2);
    ++row;
    auto check = [&](int c, const char* text, int col, auto fn) {
        auto* b = new QCheckBox(text);
        Add(id(c), b);
        connect(b, &QCheckBox::toggled, this,
                [this, range, fn](bool on) { fn(panel_, range, on); });
        grid->addWidget(b, row, col);
    };
    auto button = [&](int c, const char* text, int col, auto fn) {
        auto* b = new QPushButton(text);
        Add(id(c), b);
        connect(b, &QPushButton::clicked, this, [this, range, fn] { fn(panel_, range); });
        grid->addWidget(b, row, col);
    };
    check(SC_SetStart, "set start", 0, SweepSetStart);
    button(SC_GoStart, "go start", 1, SweepGoStart);
    check(SC_SetStop, "set stop", 2, SweepSetStop);
    button(SC_GoStop, "go stop", 3, SweepGoStop);
    ++row;
    check(SC_Symmetric, "&symmetric", 0, SweepSymmetric);
    check(SC_Both, "&2 directions", 1, SweepBothDirections);
    button(SC_Reset, "&reset", 2, SweepReset);
    button(SC_Xchange, "&Xchange", 3, SweepXchange);
    ++row;
    auto* step = new QSpinBox;
    step->setRange(kStepFieldMin, kStepFieldMax);
    Add(id(SC_Step), step);
    connect(step, &QSpinBox::valueChanged, this,
            [this, range](int v) { SweepStepBits(panel_, range, static_cast<std::uint32_t>(v)); });
    auto* stepLabel = new QLabel("S&tep");
    stepLabel->setBuddy(step);
    grid->addWidget(stepLabel, row, 0);
    grid->addWidget(step, row, 1);
}

MeasureDlg::MeasureDlg(const MeasureParams& params, QWidget* parent) : QDialog(parent) {
    char caption[256] = "Measure ";
    MeasureCaption(caption, sizeof caption, params.title);
    setWindowTitle(TextFromStored(caption));
    auto* top = new QVBoxLayout(this);

    // The working ranges are loaded before the layout so that a count range's field is editable.
    WorkingRange(0) = params.primary ? *params.primary : SweepRange{0, 65535, 1, 0, 0, nullptr};
    int sweeps = params.layout == LayoutTwoSweeps ? 2 : params.layout == LayoutPlain ? 0 : 1;
    for (int range = 0; range < sweeps; ++range) {
        auto* box = new QGroupBox(range == 0 ? "Sweep 1" : "Sweep 2");
        auto* grid = new QGridLayout(box);
        if (range == 1)
            WorkingRange(1) =
                params.secondary ? *params.secondary : SweepRange{0, 0, 1, 0, 0, nullptr};
        BuildSweep(grid, range, params.layout == LayoutPointsOnly);
        top->addWidget(box);
    }

    auto* currents = new QGroupBox("Currents");
    Add(MC_CurrentRows, currents);
    auto* cgrid = new QGridLayout(currents);
    for (int row = 0; row < kCurrentRowsShown; ++row) {
        CurrentRow& r = currentRows_[row];
        r.button = new QPushButton;
        r.slider = new QScrollBar(Qt::Horizontal);
        r.slider->setRange(0, kSliderPositions - 1);
        r.slider->setSingleStep(1);
        r.slider->setPageStep(8);
        r.slider->setMinimumWidth(260);
        r.text = new QLabel;
        r.text->setMinimumWidth(90);
        r.reset = new QPushButton("reset");
        cgrid->addWidget(r.button, row, 0);
        cgrid->addWidget(r.slider, row, 1);
        cgrid->addWidget(r.text, row, 2);
        cgrid->addWidget(r.reset, row, 3);
        connect(r.button, &QPushButton::clicked, this,
                [this, row] { CurrentRowButton(panel_, row); });
        connect(r.reset, &QPushButton::clicked, this,
                [this, row] { CurrentRowReset(panel_, row); });
        connect(r.slider, &QScrollBar::valueChanged, this,
                [this, row](int v) { CurrentSlider(panel_, row, static_cast<std::uint32_t>(v)); });
    }
    currentScroll_ = new QScrollBar(Qt::Vertical);
    currentScroll_->setRange(0, kPanelCurrentRows - kCurrentRowsShown);
    connect(currentScroll_, &QScrollBar::valueChanged, this,
            [this](int v) { ScrollCurrentRows(panel_, v); });
    cgrid->addWidget(currentScroll_, 0, 4, kCurrentRowsShown, 1);
    top->addWidget(currents);

    auto* voltages = new QGroupBox("Voltages");
    auto* vgrid = new QGridLayout(voltages);
    for (int row = 0; row < kVoltageRowsShown; ++row) {
        VoltageRow& r = voltageRows_[row];
        r.button = new QPushButton;
        r.bar = new QProgressBar;
        r.bar->setTextVisible(false);
        r.bar->setMaximumHeight(14);
        r.text = new QLabel;
        r.text->setMinimumWidth(90);
        vgrid->addWidget(r.button, row, 0);
        vgrid->addWidget(r.bar, row, 1);
        vgrid->addWidget(r.text, row, 2);
        connect(r.button, &QPushButton::clicked, this,
                [this, row] { VoltageRowButton(panel_, row); });
    }
    voltageScroll_ = new QScrollBar(Qt::Vertical);
    voltageScroll_->setRange(0, kPanelVoltageRows - kVoltageRowsShown);
    connect(voltageScroll_, &QScrollBar::valueChanged, this,
            [this](int v) { ScrollVoltageRows(panel_, v); });
    vgrid->addWidget(voltageScroll_, 0, 3, kVoltageRowsShown, 1);
    top->addWidget(voltages);

    auto* tools = new QHBoxLayout;
    auto button = [&](int id, const char* text, auto fn) {
        auto* b = new QPushButton(text);
        Add(id, b);
        connect(b, &QPushButton::clicked, this, fn);
        tools->addWidget(b);
        return b;
    };
    auto* autoZero = new QCheckBox("Auto&Zero");
    Add(MC_AutoZero, autoZero);
    connect(autoZero, &QCheckBox::toggled, this, [this](bool on) { PanelAutoZero(panel_, on); });
    tools->addWidget(autoZero);
    button(MC_AutoZeroMore, ">>", [] { AutoZeroOptionsDialog(); });
    button(MC_ShowV, "Show &V", [this] { PanelShowShifts(panel_, 0); });
    button(MC_ShowIMon, "Show &I-Mon", [this] { PanelShowShifts(panel_, 1); });
    button(MC_All, "&all", [this] { PanelAllToZero(panel_); });
    button(MC_Sweep1Zero, "&sweep 1", [this] { PanelSweep1ToZero(panel_); });
    auto* generator = new QCheckBox("&Generator");
    Add(MC_Generator, generator);
    tools->addWidget(generator);
    button(MC_GeneratorMore, ">>", [] {});
    button(MC_Pause, "paus.", [] {});
    button(MC_Resume, "resum", [] {});
    button(MC_Clear, "CLR", [] {});
    top->addLayout(tools);

    auto* status = new QHBoxLayout;
    status->addWidget(Add(MC_Memory, new QLabel));
    status->addWidget(Add(MC_Phase, new QLabel));
    status->addWidget(Add(MC_Temperature, new QLabel));
    top->addLayout(status);
    progress_ = new QProgressBar;
    progress_->setRange(0, 100);
    progress_->setValue(0);
    progress_->setTextVisible(false);
    progress_->setStyleSheet("QProgressBar { background: white; border: 1px solid gray; }"
                             "QProgressBar::chunk { background: blue; }");
    top->addWidget(progress_);
    progressText_ = new QLabel;
    Add(MC_Phase + 100, progressText_);
    top->addWidget(progressText_);

    auto* buttons = new QHBoxLayout;
    auto* doIt = new QPushButton("&Do It");
    doIt->setDefault(true);
    Add(MC_DoIt, doIt);
    connect(doIt, &QPushButton::clicked, this, [this] { MeasurePanelDoIt(panel_, 1); });
    auto* cancel = new QPushButton("Cancel");
    Add(MC_Cancel, cancel);
    connect(cancel, &QPushButton::clicked, this, [this] { MeasurePanelDoIt(panel_, 0); });
    auto* options = new QPushButton("&Options");
    Add(MC_Options, options);
    connect(options, &QPushButton::clicked, this, [this] { PanelHandler(panel_, 0); });
    buttons->addWidget(doIt);
    buttons->addWidget(cancel);
    buttons->addWidget(options);
    if (params.layout == LayoutSingleSweepWithXAxis) {
        auto* x = new QPushButton("x axis");
        Add(MC_XAxis, x);
        connect(x, &QPushButton::clicked, this, [this] { PanelHandler(panel_, 1); });
        buttons->addWidget(x);
    }
    auto* y = new QPushButton("y axis");
    Add(MC_YAxis, y);
    connect(y, &QPushButton::clicked, this, [this] { PanelHandler(panel_, 2); });
    buttons->addWidget(y);
    top->addLayout(buttons);

    timer_ = new QTimer(this);
    timer_->setObjectName("animation");
    connect(timer_, &QTimer::timeout, this, [this] { TimerTick(panel_); });

    SetMeasureDialog(&QtMeasureDialogCalls());
    MeasurePanelOpen(panel_, params, &kView, this, this, kCurrentRowsShown, kVoltageRowsShown);
}

MeasureDlg::~MeasureDlg() {
    SetMeasureDialog(nullptr);
}

void MeasureDlg::Post(std::function<void()> call) {
    bool first;
    {
        std::lock_guard<std::mutex> hold(mailLock_);
        first = mail_.empty();
        mail_.push_back(std::move(call));
    }
    // One Drain is on its way while the mailbox holds anything.
    if (first) QMetaObject::invokeMethod(this, "Drain", Qt::QueuedConnection);
}

void MeasureDlg::Drain() {
    std::vector<std::function<void()>> calls;
    {
        std::lock_guard<std::mutex> hold(mailLock_);
        calls.swap(mail_);
    }
    for (auto& call : calls)
        call();
}

void MeasureDlg::reject() {
    // The close box and Escape are Cancel, or Stop during a run.
    MeasurePanelDoIt(panel_, 0);
}

static void ShowCurrentRowIn(void* view, int row, const CurrentRowView& data) {
    MeasureDlg* d = Dlg(view);
    if (row < 0 || row >= MeasureDlg::kCurrentRowsShown) return;
    const MeasureDlg::CurrentRow& r = d->CurrentRowOf(row);
    QScrollBar* slider = r.slider;
    r.button->setText(QString("i%1").arg(data.current));
    Quiet(slider, [&](QScrollBar* s) { s->setValue(static_cast<int>(data.position)); });
    slider->setEnabled(data.connected != 0);
    const char* color = data.group == 1   ? "rgb(255,0,128)"
                        : data.group == 2 ? "rgb(128,255,196)"
                                          : "";
    slider->setStyleSheet(*color ? QString("QScrollBar { background: %1; }").arg(color)
                                 : QString());
    r.text->setText(TextFromStored(data.text));
}

static void ShowVoltageRowIn(void* view, int row, const VoltageRowView& data) {
    MeasureDlg* d = Dlg(view);
    if (row < 0 || row >= MeasureDlg::kVoltageRowsShown) return;
    const MeasureDlg::VoltageRow& r = d->VoltageRowOf(row);
    QProgressBar* bar = r.bar;
    r.button->setText(QString("v%1").arg(data.voltage));
    bar->setRange(static_cast<int>(data.minimum), static_cast<int>(data.maximum));
    bar->setValue(data.bits);
    bar->setStyleSheet(QString("QProgressBar::chunk { background: %1; }").arg(Rgb(data.color)));
    r.text->setText(TextFromStored(data.text));
}

// --- The measurement thread's calls ---------------------------------------------------------
// Card reads happen in the calling thread, which alone touches the cards during a run; only
// the results travel to the interface thread.

namespace {

template <typename F> void Queue(void* dlg, F f) {
    Dlg(dlg)->Post(std::move(f));
}

void ThreadShowPoints(void* dlg, int which, const char* text) {
    std::string t = text;
    Queue(dlg, [dlg, which, t] { MeasurePanelShowPoints(Dlg(dlg)->Panel(), which, t.c_str()); });
}

void ThreadShowProgress(void* dlg, int percent, const char* text) {
    std::string t = text;
    Queue(dlg,
          [dlg, percent, t] { MeasurePanelShowProgress(Dlg(dlg)->Panel(), percent, t.c_str()); });
}

void ThreadRefreshCurrents(void* dlg) {
    auto rows = std::make_shared<std::array<CurrentRowView, kPanelCurrentRows>>();
    int n = ReadCurrentRows(Dlg(dlg)->Panel(), rows->data());
    Queue(dlg, [dlg, rows, n] { ShowCurrentRows(Dlg(dlg)->Panel(), rows->data(), n); });
}

void ThreadRefreshVoltages(void* dlg) {
    auto rows = std::make_shared<std::array<VoltageRowView, kPanelVoltageRows>>();
    int n = ReadVoltageRows(Dlg(dlg)->Panel(), rows->data());
    Queue(dlg, [dlg, rows, n] { ShowVoltageRows(Dlg(dlg)->Panel(), rows->data(), n); });
}

void ThreadShowVoltage(void* dlg, int voltage, const char* text, unsigned bits) {
    std::string t = text;
    Queue(dlg, [dlg, voltage, t, bits] {
        MeasurePanelShowVoltage(Dlg(dlg)->Panel(), voltage, t.c_str(), bits);
    });
}

void ThreadShowPhase(void* dlg, const char* text) {
    std::string t = text;
    Queue(dlg, [dlg, t] { ViewSetText(dlg, MC_Phase, t.c_str()); });
}

void ThreadEndDialog(void* dlg, int result) {
    Queue(dlg, [dlg, result] { MeasurePanelEnded(Dlg(dlg)->Panel(), result); });
}

const MeasureDialogCalls kThreadCalls = {
    .ShowPoints = ThreadShowPoints,
    .ShowProgress = ThreadShowProgress,
    .RefreshCurrents = ThreadRefreshCurrents,
    .RefreshVoltages = ThreadRefreshVoltages,
    .ShowVoltage = ThreadShowVoltage,
    .ShowPhase = ThreadShowPhase,
    .EndDialog = ThreadEndDialog,
};

QWidget* WindowOf(void* window) {
    return window ? static_cast<QWidget*>(window) : QtHostWindow();
}

void OpenChannelPanel(void* window, int voltages, int index) {
    RunSetupPanel(WindowOf(window), voltages, index);
}

} // namespace

const MeasureDialogCalls& QtMeasureDialogCalls() {
    return kThreadCalls;
}

int RunMeasureDlg(void* window, const MeasureParams& params) {
    MeasureDlg dlg(params, WindowOf(window));
    int result = dlg.exec();
    // A run always ends its dialog, so the thread has finished or is about to.
    WaitMeasurementEnd();
    return result;
}

void InstallMeasureDialogs() {
    SetMeasureDialogOpener(RunMeasureDlg);
    SetChannelPanelOpener(OpenChannelPanel);
}
