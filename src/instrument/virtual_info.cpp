// The wiring as printed tables: only connected records, monitoring columns left empty for a
// current that isn't monitored.
#include "instrument/virtual_channels.h"

#include "support/bounded_text.h"
#include "support/c_locale.h"

namespace {

const char* const kCurrentHeads[] = {"N", "Description", "Type", "Card", "#",
                                     "R", "Card",        "#",    "gain", "ext."};
const char* const kVoltageHeads[] = {"N", "Description", "Type", "Card", "#", "gain", "ext"};

void Unsigned(char* cell, unsigned value) {
    SnprintfC(cell, kInfoCellSize, "%3u", value);
}
void Float(char* cell, double value) {
    SnprintfC(cell, kInfoCellSize, "%9G", value);
}

} // namespace

u32 InfoRowColor(int row) {
    const u32 grey = row % 2 ? 221 : 238;
    return grey | grey << 8 | grey << 16;
}

InfoTable VirtualCurrentsInfo(char (*cells)[kInfoMaxColumns][kInfoCellSize], int capacity) {
    InfoTable t{{"Virtual Current", "Monitoring Currents"}, {6, 4}, 10, kCurrentHeads, 0, cells};
    for (int i = 0; i < kCurrentChannelCount && t.rowCount < capacity; ++i) {
        if (!IsCurrentConnected(i)) continue;
        const CurrentChannel& c = CurrentChannels[i];
        char(&row)[kInfoMaxColumns][kInfoCellSize] = cells[t.rowCount++];
        for (auto& cell : row)
            cell[0] = 0;
        Unsigned(row[0], i);
        BoundedCopy(row[1], c.comment, kInfoCellSize);
        BoundedCopy(row[2], gCurrentKindNames[c.kind], kInfoCellSize);
        Unsigned(row[3], c.DACSlot);
        Unsigned(row[4], c.DACChan);
        Float(row[5], c.R);
        if (IsCurrentMonitored(i)) {
            Unsigned(row[6], c.ADCSlot);
            Unsigned(row[7], c.ADCChan);
            Float(row[8], c.ADCGain);
            Float(row[9], c.extGain);
        }
    }
    return t;
}

InfoTable VirtualVoltagesInfo(char (*cells)[kInfoMaxColumns][kInfoCellSize], int capacity) {
    InfoTable t{{"Virtual Voltages", nullptr}, {7, 0}, 7, kVoltageHeads, 0, cells};
    for (int v = 0; v < kVoltageChannelCount && t.rowCount < capacity; ++v) {
        if (!IsVoltageConnected(v)) continue;
        const VoltageChannel& c = VoltageChannels[v];
        char(&row)[kInfoMaxColumns][kInfoCellSize] = cells[t.rowCount++];
        for (auto& cell : row)
            cell[0] = 0;
        Unsigned(row[0], v);
        BoundedCopy(row[1], c.comment, kInfoCellSize);
        BoundedCopy(row[2], gVoltageKindNames[c.kind], kInfoCellSize);
        Unsigned(row[3], c.ADCSlot);
        Unsigned(row[4], c.ADCChan);
        Float(row[5], c.ADCGain);
        Float(row[6], c.extGain);
    }
    return t;
}
