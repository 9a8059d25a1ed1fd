// The panels of virtual currents and voltages, apart from their windows. Each shows one record
// of its table through a working copy; the table changes only on Apply. The card, channel and
// gain lists come from the detected cards, and each channel entry names the other records that
// use that channel, so a clash is seen, though never refused.
#pragma once
#include "instrument/virtual_channels.h"

#include <cstddef>
#include <string>
#include <vector>

enum SetupPanelControl {
    SP_Kind,         // "&Type of current:" / "&Type of voltage:"
    SP_Comment,      // "Descr&iption of current:" / "De&scription of voltage:"
    SP_DacCard,      // "&DAC card:", current panel only
    SP_DacChan,      // its "&Chan#:"
    SP_R,            // "Resistance(Ohm):"
    SP_Monitored,    // "C&heck Current"
    SP_AdcCard,      // "&ADC card:"
    SP_AdcChan,      // its "&Chan#:"
    SP_AdcGain,      // "ADC &Gain:"
    SP_ExtGain,      // "&Ext. gain:"
    SP_Shift,        // the zero shift label
    SP_NoAutoZero,   // "Ignore this voltage while (un)doing AutoZero"
    SP_GainToAll,    // "Apply2all" beside the gain
    SP_ExtGainToAll, // "Apply2all" beside the external gain
    kSetupPanelControls
};

enum SetupPanelButton {
    SB_Apply,    // "&Apply"
    SB_OK,       // "&OK"
    SB_Cancel,   // "&Cancel"
    SB_Discard,  // "&Discard"
    SB_Prev,     // "<"
    SB_Next,     // ">"
    SB_Back5,    // "<<"
    SB_Forward5, // ">>"
    SB_Save,     // "&Save"
    SB_Load,     // "&Load"
};

struct SetupPanelView {
    void (*SetCaption)(void* view, const char* text);
    void (*FillList)(void* view, int control, const std::vector<std::string>& entries,
                     int selected);
    void (*SetText)(void* view, int control, const char* text);
    void (*SetCheck)(void* view, int control, int on);
    void (*Enable)(void* view, int control, int on);
    void (*Close)(void* view);
};

struct SetupPanel {
    int voltages = 0; // 0 the current panel, 1 the voltage panel
    int index = 0;
    CurrentChannel current;
    VoltageChannel voltage;
    // What the controls hold: list selections (-1 none) and field texts.
    int selection[kSetupPanelControls] = {};
    std::string text[kSetupPanelControls];
    int check[kSetupPanelControls] = {};
    std::vector<std::string> lists[kSetupPanelControls];
    const char* iniFile = nullptr;
    const SetupPanelView* view = nullptr;
    void* viewData = nullptr;
    int closed = 0;
};

// The last record of each table.
constexpr int kLastCurrent = kCurrentChannelCount - 1;
constexpr int kLastVoltage = kVoltageChannelCount - 1;

extern const char kApply2allFailedText[];
extern const char kApply2allFailedCaption[];

void SetupPanelOpen(SetupPanel& panel, int voltages, int index, const char* iniFile,
                    const SetupPanelView* view, void* viewData);
// The window's controls changed: a list entry, a field's text, a check box.
void SetupPanelSelect(SetupPanel& panel, int control, int entry);
void SetupPanelText(SetupPanel& panel, int control, const char* text);
void SetupPanelCheck(SetupPanel& panel, int control, int on);
void SetupPanelPress(SetupPanel& panel, int button);
// "Apply2all" of the gain (control SP_GainToAll) or of the external gain.
void SetupPanelApply2all(SetupPanel& panel, int control);

// The controls into the working copy.
void ReadSetupControls(SetupPanel& panel);
// The working copy into the controls, lists refilled.
void ShowSetupRecord(SetupPanel& panel);

// Channel entries: the number, then the users of that channel other than the shown record.
// For an ADC channel " i%d" per monitoring current, then " v%d" per reading voltage, at most 16
// users; for a DAC channel " i%d" per other current, at most 17.
std::string AdcChannelEntry(int adc, unsigned physical, int skipCurrent, int skipVoltage);
std::string DacChannelEntry(int dac, unsigned channel, int skipCurrent);
std::vector<std::string> AdcChannelList(int adc, int skipCurrent, int skipVoltage);
std::vector<std::string> DacChannelList(int dac, int skipCurrent);
std::vector<std::string> CardList(bool dacs);
std::vector<std::string> GainList(int adc);
