// The measurement dialog's logic apart from its window: sweep limits, live current sliders and
// voltage readings, option buttons, and the Do It / Cancel / Stop protocol. The window shows
// what it is told through MeasurePanelView and forwards its controls to the functions below,
// so the Qt dialog and the tests drive the same code.
#pragma once
#include "measure/measure_run.h"
#include "measure/sweep_range.h"

#include <atomic>
#include <cstddef>
#include <cstdint>

// Controls of the panel, named after their captions.
enum MeasureControl {
    MC_DoIt,          // "&Do It"
    MC_Cancel,        // "Cancel", "Stop" during a run
    MC_Options,       // "&Options"
    MC_XAxis,         // "x axis"
    MC_YAxis,         // "y axis"
    MC_Generator,     // "&Generator"
    MC_GeneratorMore, // its ">>"
    MC_Pause,         // "paus."
    MC_Resume,        // "resum"
    MC_Clear,         // "CLR"
    MC_AutoZero,      // "Auto&Zero"
    MC_AutoZeroMore,  // its ">>"
    MC_ShowV,         // "Show &V"
    MC_ShowIMon,      // "Show &I-Mon"
    MC_All,           // "&all"
    MC_Sweep1Zero,    // "&sweep 1"
    MC_Memory,        // "Memory: %s"
    MC_Temperature,
    MC_Phase,          // the line a run writes its phase into
    MC_CurrentRows,    // the sliders, resets and buttons of the current rows
    MC_VoltageRows,    // the buttons of the voltage rows
    MC_SweepBase = 32, // + kSweepControls * range (0 primary, 1 secondary) + SweepControl
};

enum SweepControl {
    SC_SetStart,  // "set start"
    SC_SetStop,   // "set stop"
    SC_GoStart,   // "go start"
    SC_GoStop,    // "go stop"
    SC_Symmetric, // "&symmetric"
    SC_Both,      // "&2 directions"
    SC_Reset,     // "&reset"
    SC_Xchange,   // "&Xchange"
    SC_Step,      // "S&tep", in card bits
    SC_Points,    // "Points": N, or "n/N" during a run
    SC_Limits,    // from and to in card bits, shown only
    kSweepControls
};

constexpr int SweepControlId(int range, int control) {
    return MC_SweepBase + range * kSweepControls + control;
}

// Both sliders and readings show rows of a table larger than the window.
constexpr int kPanelCurrentRows = 32;
constexpr int kPanelVoltageRows = 128;
// Positions of a current's scroll bar over the whole DAC.
constexpr std::uint32_t kSliderPositions = 4096;
// Range of the step fields' scroll bars, in card bits.
constexpr int kStepFieldMin = 1, kStepFieldMax = 1024;

struct CurrentRowView {
    int current;            // table index, shown on the row button
    int connected;          // 0: the row shows nothing but its number
    int group;              // 1 sweep1, 2 sweep2, 0 other: the scroll bar's colour
    std::uint32_t position; // slider position, 0 .. kSliderPositions - 1
    char text[32];          // GetCurrent in "A"
};

struct VoltageRowView {
    int voltage;
    int connected;
    std::int32_t bits;              // indicator bar value
    std::uint32_t minimum, maximum; // the card's bits
    std::uint32_t color;            // RGB of the voltage's curve
    char text[32];                  // GetVoltage in "V"; empty when disconnected
};

// What the panel asks of its window. view is the window's own pointer.
struct MeasurePanelView {
    void (*SetText)(void* view, int control, const char* text);
    void (*SetCheck)(void* view, int control, int on);
    void (*Enable)(void* view, int control, int on);
    // The row scroll bars: maximum 0 hides the bar.
    void (*SetRowScroll)(void* view, int voltages, int maximum);
    void (*ShowCurrentRow)(void* view, int row, const CurrentRowView& data);
    void (*ShowVoltageRow)(void* view, int row, const VoltageRowView& data);
    void (*ShowProgress)(void* view, int percent, const char* text);
    // 250 ms animation timer; on false the panel says so and goes on.
    bool (*StartTimer)(void* view, int ms);
    void (*StopTimer)(void* view);
    // The virtual current or voltage panel of one record; modal.
    void (*OpenChannelSetup)(void* view, int voltages, int index);
    // Ends the window with its result.
    void (*End)(void* view, int result);
};

struct SweepPanel {
    int setStart = 0, setStop = 0, stopEnabled = 1;
    int missing = 0; // the range's current is missing: "???" and N = 1
};

struct MeasurePanel {
    const MeasureParams* params = nullptr;
    const MeasurePanelView* view = nullptr;
    void* viewData = nullptr;
    // What the thread function and the message boxes get as their dialog.
    void* dialog = nullptr;
    SweepPanel sweep[2];
    int currentRows = kPanelCurrentRows, voltageRows = kPanelVoltageRows;
    // First table index shown; written by the interface thread, read also by the measurement
    // thread when it refreshes rows.
    std::atomic<int> currentBase{0}, voltageBase{0};
    // A run goes: the measurement thread alone touches the cards, the DAC state and the working
    // ranges, so every function below that would returns at once, and scrolling only moves the
    // rows, which the thread's next refresh fills. Interface thread only.
    int running = 0;
    int ended = 0;
};

// "Auto&Zero" as it was when the last panel closed.
extern int gMeasureAutoZeroBox;

// Opening: caption, rows, working ranges, steps, memory, buttons and the timer. rows are the
// rows of the window's layout (above 32 or 128 means all).
void MeasurePanelOpen(MeasurePanel& panel, const MeasureParams& params,
                      const MeasurePanelView* view, void* viewData, void* dialog, int currentRows,
                      int voltageRows);
// "%s%s" of the window's caption and the title; false (and an internal error) when the two
// reach 256 characters, leaving caption as it was.
bool MeasureCaption(char* caption, std::size_t size, const char* title);

// --- Sweep rows --------------------------------------------------------------------------
SweepRange& WorkingRange(int range);
std::uint32_t& WorkingPoints(int range);
void SweepSetStart(MeasurePanel& panel, int range, int on);
void SweepSetStop(MeasurePanel& panel, int range, int on);
void SweepGoStart(MeasurePanel& panel, int range);
void SweepGoStop(MeasurePanel& panel, int range);
void SweepSymmetric(MeasurePanel& panel, int range, int on);
void SweepBothDirections(MeasurePanel& panel, int range, int on);
void SweepReset(MeasurePanel& panel, int range);
void SweepXchange(MeasurePanel& panel, int range);
// The step field in card bits of the swept current.
void SweepStepBits(MeasurePanel& panel, int range, std::uint32_t bits);
// The "Points" field of a count range.
void SweepPoints(MeasurePanel& panel, int range, std::uint32_t n);
// Point count after a change; the step grows by one card bit of the current while the count
// is above the limit (2^32 - 2, or 2^31 - 2 with both directions).
void RecomputePoints(MeasurePanel& panel);
// n = |to - from| / step with the step grown by growth while n > limit (a zero step counts as
// too many); returns N = n + 1.
std::uint32_t LimitedPointCount(SweepRange& range, std::uint32_t growth, std::uint32_t limit);
// Shows from, to, step and N of one range.
void ShowSweep(MeasurePanel& panel, int range);

// --- Memory ------------------------------------------------------------------------------
double MeasureMemoryBytes(std::uint32_t n1, int both1, std::uint32_t n2, int both2,
                          int signalCount);
// "Memory: %s", or "Memory: ???" for 0 bytes.
void MeasureMemoryText(char* text, std::size_t size, double bytes);
void ShowMemory(MeasurePanel& panel);

// --- Current and voltage rows ------------------------------------------------------------
// changed -1: every row; otherwise the rows of that current and of its group.
void RefreshCurrentRows(MeasurePanel& panel, int changed);
bool SameCurrentGroup(int a, int b);
// Reading and showing apart, so that the measurement thread reads and the window shows. Rows
// read for another base than the present one (the user scrolled meanwhile) are not shown.
int ReadCurrentRows(const MeasurePanel& panel, CurrentRowView* rows);
void ShowCurrentRows(MeasurePanel& panel, const CurrentRowView* rows, int count);
int ReadVoltageRows(const MeasurePanel& panel, VoltageRowView* rows);
// The visible voltage rows from the tables alone: no card is read, the texts stay empty.
int DescribeVoltageRows(const MeasurePanel& panel, VoltageRowView* rows);
void ShowVoltageRows(MeasurePanel& panel, const VoltageRowView* rows, int count);
// Reads and shows the voltage rows; during a run only describes them.
void RefreshVoltageRows(MeasurePanel& panel);
void ScrollCurrentRows(MeasurePanel& panel, int base);
void ScrollVoltageRows(MeasurePanel& panel, int base);
// A slider moved to position on row.
void CurrentSlider(MeasurePanel& panel, int row, std::uint32_t position);
void CurrentRowReset(MeasurePanel& panel, int row);
void CurrentRowButton(MeasurePanel& panel, int row);
void VoltageRowButton(MeasurePanel& panel, int row);
void TimerTick(MeasurePanel& panel);

// --- Buttons -----------------------------------------------------------------------------
void PanelAllToZero(MeasurePanel& panel);
void PanelSweep1ToZero(MeasurePanel& panel);
void PanelAutoZero(MeasurePanel& panel, int on);
void PanelShowShifts(MeasurePanel& panel, int monitors);
// "&Options", "x axis", "y axis": 0, 1, 2.
void PanelHandler(MeasurePanel& panel, int which);
// "&Do It" (doIt 1) and Cancel / Stop (doIt 0).
void MeasurePanelDoIt(MeasurePanel& panel, int doIt);
// The thread has ended the dialog: the controls come back and the window ends with result.
void MeasurePanelEnded(MeasurePanel& panel, int result);
void MeasurePanelShowPoints(MeasurePanel& panel, int which, const char* text);
void MeasurePanelShowProgress(MeasurePanel& panel, int percent, const char* text);
void MeasurePanelShowVoltage(MeasurePanel& panel, int voltage, const char* text, unsigned bits);
// Controls that could reach the cards or the options, disabled during a run.
extern const int kRunDisabledControls[];
extern const int kRunDisabledCount;
