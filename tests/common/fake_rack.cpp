#include "common/fake_rack.h"

#include "instrument/daq_cards.h"

#include <algorithm>
#include <cmath>

FakeRack gRack;

namespace {

FakeCard* Find(i16 chassis, i16 slot) {
    for (FakeCard& c : gRack.cards)
        if (c.chassis == chassis && c.slot == slot) return &c;
    return nullptr;
}

i16 Scale(const FakeCard* c, i16 channel, i16 code, int reading, f64* volts) {
    auto on = [&](auto run) { return channel >= run.first && channel <= run.second; };
    auto accepts = [&](float gain) { return GainCode(gain) == code; };
    if (!c || c->adcBits == 0 || std::none_of(c->adcChannels.begin(), c->adcChannels.end(), on) ||
        std::none_of(c->gains.begin(), c->gains.end(), accepts))
        return -1;
    int half = 1 << (c->adcBits - 1);
    int value = c->adcSigned ? reading : static_cast<u16>(reading) - half;
    if (value < -half || value >= half) return -1;
    *volts = value * 10.0 / half;
    return 0;
}

i16 DaqVScale(i16 slot, i16 channel, i16 code, f64, f64, u32 count, const i16* samples,
              f64* volts) {
    // The reading rides in the upper half of the first 32-bit sample.
    return count == 4 ? Scale(Find(0, slot), channel, code, samples[1], volts) : -1;
}
i16 DaqOp(i16, i16, i16, i16* buffer, u32 count, f64) {
    for (u32 i = 0; i < count; ++i)
        buffer[2 * i] = 0x55, buffer[2 * i + 1] = gRack.nextReading;
    return gRack.daqOpStatus;
}
i16 AoVScale(i16 slot, i16 channel, f64 volts, i16* reading) {
    FakeCard* c = Find(0, slot);
    f64 lsb = c ? 20.0 / (1 << c->dacBits) : 0;
    if (!c || channel < 0 || channel >= c->dacChannels || volts < -10.0 || volts > 10.0 - lsb)
        return -1;
    int code = static_cast<int>(std::floor((volts + 10.0) / lsb));
    *reading = static_cast<i16>(c->dacSigned ? code - (1 << (c->dacBits - 1)) : code);
    return 0;
}
i16 ScxiAoWrite(i16 chassis, i16 slot, i16 channel, i16 op, i16 range, f64, i16 reading, i16*) {
    if (op == 2) {
        FakeCard* c = Find(chassis, slot);
        return c && range == 6 && channel < c->dacChannels ? 0 : -1;
    }
    gRack.writes.push_back({chassis, slot, channel, op, range, reading});
    return gRack.writeStatus;
}

} // namespace

const DaqDriver kFakeDriver = {
    .name = "fake",
    .Get_NI_DAQ_Version = [](u32* v) -> i16 { return *v = 0x0612, 0; },
    .Get_DAQ_Device_Info = [](i16 slot, u32 type, u32* value) -> i16 {
        FakeCard* c = Find(0, slot);
        return c && type == kDaqInfoDeviceType ? (*value = c->id, 0) : -1;
    },
    .SCXI_Get_Chassis_Info = [](i16 chassis, i16* type, i16* address, i16* commMode, i16* commPath,
                                i16* slots) -> i16 {
        *type = 1, *address = 5, *commMode = 1, *commPath = 1, *slots = 4;
        return chassis == gRack.scxiChassis ? 0 : -1;
    },
    .SCXI_Get_Module_Id = [](i16 chassis, i16 slot, i16* id) -> i16 {
        FakeCard* c = Find(chassis, slot);
        return *id = c ? static_cast<i16>(c->id) : 0, 0;
    },
    .AI_VScale = [](i16 slot, i16 channel, i16 code, f64, f64, i16 reading, f64* volts) -> i16 {
        FakeCard* c = Find(0, slot);
        return c && c->aiVScaleMissing ? kDaqNotSupported : Scale(c, channel, code, reading, volts);
    },
    .DAQ_VScale = DaqVScale,
    .AI_Read = [](i16, i16, i16, i16* reading) -> i16 {
        return *reading = gRack.nextReading, gRack.aiReadStatus;
    },
    .DAQ_Op = DaqOp,
    .SCAN_Op = [](i16, i16, const i16*, const i16*, i16*, u32, f64, f64) -> i16 { return -1; },
    .AO_VScale = AoVScale,
    .AO_Write = [](i16 slot, i16 channel, i16 reading) -> i16 {
        gRack.writes.push_back({0, slot, channel, 0, 0, reading});
        return gRack.writeStatus;
    },
    .SCXI_AO_Write = ScxiAoWrite,
    .Timeout_Config = [](i16, i32) -> i16 { return 0; },
    .WFM_Op = [](i16, i16, const i16*, const i16*, u32, u32, f64) -> i16 { return -1; },
    .WFM_Scale = [](i16, i16, u32, f64, const f64*, i16*) -> i16 { return -1; },
    .WFM_Group_Control = [](i16, i16, i16) -> i16 { return -1; },
    .WFM_Check = [](i16, i16, i16*, u32*, u32*) -> i16 { return -1; },
    .ErrorHandler = [](i16, const char*, i16) -> i16 { return 0; },
};
