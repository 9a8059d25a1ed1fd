#include "ui/setup_panel.h"

#include "platform/host.h"
#include "support/bounded_text.h"
#include "support/debug_check.h"
#include "support/message_box.h"
#include "support/physical_units.h"

#include <cstdio>
#include <cstdlib>

const char kApply2allFailedText[] =
    "The effort to set this ADC Gain value\nhas failed because it is invalid for\nsome "
    "channels.\nThose channels still have the old value of ADC Gain.";
const char kApply2allFailedCaption[] = "Operation did not succeed completely";

namespace {

void Beep() {
    Host().Beep(BEEP_SIMPLE);
}

// A list with nothing selected counts as its first entry.
int Selected(SetupPanel& p, int control) {
    int entry = p.selection[control];
    if (entry < 0) {
        Beep();
        return 0;
    }
    return entry;
}

// A field that doesn't parse leaves the old value.
void ParseFloat(const std::string& text, f32& value) {
    const char* s = text.c_str();
    char* end = nullptr;
    double v = std::strtod(s, &end);
    if (end == s) return;
    while (*end == ' ')
        ++end;
    if (*end) return;
    value = static_cast<f32>(v);
}

void Fill(SetupPanel& p, int control, std::vector<std::string> entries, int selected) {
    p.lists[control] = std::move(entries);
    p.selection[control] = selected;
    if (p.view) p.view->FillList(p.viewData, control, p.lists[control], selected);
}

void SetText(SetupPanel& p, int control, const std::string& text) {
    p.text[control] = text;
    if (p.view) p.view->SetText(p.viewData, control, text.c_str());
}

void SetCheck(SetupPanel& p, int control, int on) {
    p.check[control] = on;
    if (p.view) p.view->SetCheck(p.viewData, control, on);
}

std::string Number(f32 value) {
    char text[32];
    std::snprintf(text, sizeof text, "%G", double(value));
    return text;
}

int GainEntry(int adc, f32 gain) {
    const std::vector<f32>& gains = AdcCards[adc].gains;
    for (size_t k = 0; k < gains.size(); ++k)
        if (gains[k] == gain) return static_cast<int>(k);
    return 0;
}

void ApplyEnabling(SetupPanel& p) {
    if (!p.view) return;
    int kind = p.voltages ? p.voltage.kind : p.current.kind;
    bool adc = kind != 0 && (p.voltages || (p.current.flag & CURRENT_FLAG_MONITORED));
    for (int control = 0; control < kSetupPanelControls; ++control) {
        if (control == SP_Kind) continue;
        bool on = kind != 0;
        if (!p.voltages && (control == SP_AdcCard || control == SP_AdcChan ||
                            control == SP_AdcGain || control == SP_ExtGain || control == SP_Shift))
            on = adc;
        p.view->Enable(p.viewData, control, on);
    }
}

void ShowAdc(SetupPanel& p, u16& slot, u16& chan, f32& gain) {
    if (slot >= AdcCardsCount) slot = 0;
    AdcCard& card = AdcCards[slot];
    if (!HasChannel(card, chan)) chan = FirstChannel(card);
    u16 logical = 0;
    LogicalFromPhysical(card, chan, &logical);
    Fill(p, SP_AdcCard, CardList(false), slot);
    int skipCurrent = p.voltages ? -1 : p.index, skipVoltage = p.voltages ? p.index : -1;
    Fill(p, SP_AdcChan, AdcChannelList(slot, skipCurrent, skipVoltage), logical);
    int g = GainEntry(slot, gain);
    if (!card.gains.empty()) gain = card.gains[g];
    Fill(p, SP_AdcGain, GainList(slot), g);
}

void ReadAdc(SetupPanel& p, u16& slot, u16& chan, f32& gain) {
    slot = static_cast<u16>(Selected(p, SP_AdcCard));
    const AdcCard& card = AdcCards[slot];
    u16 physical = 0;
    bool found = PhysicalFromLogical(card, static_cast<u16>(Selected(p, SP_AdcChan)), &physical);
    VASSERT(found);
    if (found) chan = physical;
    int g = Selected(p, SP_AdcGain);
    if (g < static_cast<int>(card.gains.size())) gain = card.gains[g];
}

void LoadFromTable(SetupPanel& p) {
    if (p.voltages)
        p.voltage = VoltageChannels[p.index];
    else
        p.current = CurrentChannels[p.index];
}

void Apply(SetupPanel& p) {
    ReadSetupControls(p);
    if (p.voltages)
        VoltageChannels[p.index] = p.voltage;
    else
        CurrentChannels[p.index] = p.current;
}

void MoveTo(SetupPanel& p, int delta) {
    Apply(p);
    int last = p.voltages ? kLastVoltage : kLastCurrent;
    int target = p.index + delta;
    if (target < 0 || target > last) Beep();
    if (target < 0) target = 0;
    if (target > last) target = last;
    p.index = target;
    LoadFromTable(p);
    ShowSetupRecord(p);
}

} // namespace

void ShowSetupRecord(SetupPanel& p) {
    char caption[32];
    std::snprintf(caption, sizeof caption, p.voltages ? "Voltage#%d" : "Current#%d", p.index);
    if (p.view) p.view->SetCaption(p.viewData, caption);
    char shift[96];
    if (p.voltages) {
        VoltageChannel& v = p.voltage;
        Fill(p, SP_Kind, {gVoltageKindNames, gVoltageKindNames + kVoltageKindCount}, v.kind);
        SetText(p, SP_Comment, v.comment);
        ShowAdc(p, v.ADCSlot, v.ADCChan, v.ADCGain);
        SetText(p, SP_ExtGain, Number(v.extGain));
        SetCheck(p, SP_NoAutoZero, v.NoAutoZero != 0);
        char volts[48];
        FormatPhysical(volts, static_cast<float>(v.zeroShift.volts), "V", sizeof volts);
        std::snprintf(shift, sizeof shift, "Zero voltage shift: %s (%d bits)", volts,
                      int(v.zeroShift.bits));
    } else {
        CurrentChannel& c = p.current;
        Fill(p, SP_Kind, {gCurrentKindNames, gCurrentKindNames + kCurrentKindCount}, c.kind);
        SetText(p, SP_Comment, c.comment);
        if (c.DACSlot >= DacCardsCount) c.DACSlot = 0;
        if (c.DACChan >= DacCards[c.DACSlot].channelCount) c.DACChan = 0;
        Fill(p, SP_DacCard, CardList(true), c.DACSlot);
        Fill(p, SP_DacChan, DacChannelList(c.DACSlot, p.index), c.DACChan);
        SetText(p, SP_R, Number(c.R));
        SetCheck(p, SP_Monitored, c.flag & CURRENT_FLAG_MONITORED);
        ShowAdc(p, c.ADCSlot, c.ADCChan, c.ADCGain);
        SetText(p, SP_ExtGain, Number(c.extGain));
        char amps[48];
        FormatPhysical(amps, c.zeroShift, "A", sizeof amps);
        std::snprintf(shift, sizeof shift, "Zero shift of current monitor: %s", amps);
    }
    SetText(p, SP_Shift, shift);
    ApplyEnabling(p);
}

void ReadSetupControls(SetupPanel& p) {
    if (p.voltages) {
        VoltageChannel& v = p.voltage;
        v.kind = static_cast<i16>(Selected(p, SP_Kind));
        BoundedCopy(v.comment, p.text[SP_Comment].c_str());
        ReadAdc(p, v.ADCSlot, v.ADCChan, v.ADCGain);
        ParseFloat(p.text[SP_ExtGain], v.extGain);
        v.NoAutoZero = p.check[SP_NoAutoZero] ? 1 : 0;
    } else {
        CurrentChannel& c = p.current;
        c.kind = static_cast<i16>(Selected(p, SP_Kind));
        BoundedCopy(c.comment, p.text[SP_Comment].c_str());
        c.DACSlot = static_cast<u16>(Selected(p, SP_DacCard));
        c.DACChan = static_cast<u16>(Selected(p, SP_DacChan));
        ParseFloat(p.text[SP_R], c.R);
        c.flag = static_cast<u16>((c.flag & ~1u) | (p.check[SP_Monitored] ? 1u : 0u));
        ReadAdc(p, c.ADCSlot, c.ADCChan, c.ADCGain);
        ParseFloat(p.text[SP_ExtGain], c.extGain);
    }
}

void SetupPanelOpen(SetupPanel& p, int voltages, int index, const char* iniFile,
                    const SetupPanelView* view, void* viewData) {
    p.voltages = voltages;
    int last = voltages ? kLastVoltage : kLastCurrent;
    p.index = index < 0 ? 0 : index > last ? last : index;
    p.iniFile = iniFile;
    p.view = view;
    p.viewData = viewData;
    p.closed = 0;
    LoadFromTable(p);
    ShowSetupRecord(p);
}

void SetupPanelSelect(SetupPanel& p, int control, int entry) {
    // The other controls go to the working copy first, so that a refill or a disabling loses
    // nothing the user typed.
    ReadSetupControls(p);
    p.selection[control] = entry;
    switch (control) {
    case SP_Kind:
        if (p.voltages)
            p.voltage.kind = static_cast<i16>(entry < 0 ? 0 : entry);
        else
            p.current.kind = static_cast<i16>(entry < 0 ? 0 : entry);
        ApplyEnabling(p);
        return;
    case SP_DacCard:
        p.current.DACSlot = static_cast<u16>(entry < 0 ? 0 : entry);
        ShowSetupRecord(p);
        return;
    case SP_AdcCard:
        if (p.voltages)
            p.voltage.ADCSlot = static_cast<u16>(entry < 0 ? 0 : entry);
        else
            p.current.ADCSlot = static_cast<u16>(entry < 0 ? 0 : entry);
        ShowSetupRecord(p);
        return;
    default:
        ReadSetupControls(p);
    }
}

void SetupPanelText(SetupPanel& p, int control, const char* text) {
    p.text[control] = text;
}

void SetupPanelCheck(SetupPanel& p, int control, int on) {
    p.check[control] = on;
    if (control == SP_Monitored) {
        ReadSetupControls(p);
        ApplyEnabling(p);
    }
}

void SetupPanelPress(SetupPanel& p, int button) {
    switch (button) {
    case SB_Apply:
        Apply(p);
        break;
    case SB_OK:
        Apply(p);
        [[fallthrough]];
    case SB_Cancel:
        p.closed = 1;
        if (p.view) p.view->Close(p.viewData);
        break;
    case SB_Discard:
        LoadFromTable(p);
        ShowSetupRecord(p);
        break;
    case SB_Prev:
        MoveTo(p, -1);
        break;
    case SB_Next:
        MoveTo(p, 1);
        break;
    case SB_Back5:
        MoveTo(p, -5);
        break;
    case SB_Forward5:
        MoveTo(p, 5);
        break;
    case SB_Save:
        ReadSetupControls(p);
        if (p.voltages)
            SaveVoltageRecord(p.voltage, p.index, p.iniFile);
        else
            SaveCurrentRecord(p.current, p.index, p.iniFile);
        break;
    case SB_Load:
        if (p.voltages)
            LoadVoltageRecord(p.voltage, p.index, p.iniFile);
        else
            LoadCurrentRecord(p.current, p.index, p.iniFile);
        ShowSetupRecord(p);
        break;
    }
}

void SetupPanelApply2all(SetupPanel& p, int control) {
    Apply(p);
    if (!p.voltages) return;
    const VoltageChannel& shown = p.voltage;
    bool failed = false;
    for (int v = 0; v < kVoltageChannelCount; ++v) {
        VoltageChannel& other = VoltageChannels[v];
        if (v == p.index || other.kind != shown.kind) continue;
        if (control == SP_ExtGainToAll) {
            other.extGain = shown.extGain;
        } else if (HasGain(AdcCards[other.ADCSlot], shown.ADCGain)) {
            other.ADCGain = shown.ADCGain;
        } else {
            failed = true;
        }
    }
    if (failed)
        MessageBoxBeep(p.viewData, kApply2allFailedText, kApply2allFailedCaption,
                       MB_OK | MB_ICONWARNING);
}
