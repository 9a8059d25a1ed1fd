#include "instrument/daq_cards.h"
#include "platform/host.h"
#include "support/debug_check.h"

namespace {

bool ValidAdc(int adc) {
    bool ok = adc >= 0 && adc < AdcCardsCount;
    VASSERT(ok);
    return ok;
}

bool ValidDac(int dac) {
    bool ok = dac >= 0 && dac < DacCardsCount;
    VASSERT(ok);
    return ok;
}

// A failed read is not an error: it beeps and looks like a reading of zero.
u16 FailedRead(const AdcCard& card) {
    Host().Beep(BEEP_SIMPLE);
    return card.ZeroReading;
}

} // namespace

u16 ReadAdcBits(int adc, u16 channel, f32 gain) {
    if (!ValidAdc(adc)) return 0;
    const AdcCard& card = AdcCards[adc];
    i16 code = GainCode(gain);
    i16 reading = 0;
    i16 status = Daq().AI_Read(card.slot, static_cast<i16>(channel), code, &reading);
    if (status == kDaqNotSupported) {
        // Room for four 32-bit samples; the reading is the upper half of the first one, which
        // in the driver's little-endian layout is the second 16-bit word.
        i16 samples[8] = {};
        status = Daq().DAQ_Op(card.slot, static_cast<i16>(channel), code, samples, 4, 100000.0);
        reading = samples[1];
    }
    if (status != 0) return FailedRead(card);
    return AdcBitsFromReading(reading, adc);
}

u16 ReadMonitorBits(int adc, u16 channel, f32 gain) {
    if (!ValidAdc(adc)) return 0;
    const AdcCard& card = AdcCards[adc];
    i16 reading = 0;
    if (Daq().AI_Read(card.slot, static_cast<i16>(channel), GainCode(gain), &reading) != 0)
        return FailedRead(card);
    return AdcBitsFromReading(reading, adc);
}

void WriteDacBits(int dac, u16 channel, u16 bits) {
    if (!ValidDac(dac)) return;
    const DacCard& card = DacCards[dac];
    i16 reading = DacReadingFromBits(bits, dac);
    i16 status;
    if (card.chassis == 0) {
        status = Daq().AO_Write(card.slot, static_cast<i16>(channel), reading);
    } else {
        i16 written = 0;
        status = Daq().SCXI_AO_Write(card.chassis, card.slot, static_cast<i16>(channel), 1, 5, 0.0,
                                     reading, &written);
    }
    if (status != 0) Host().Beep(BEEP_SIMPLE);
}

u16 AdcBitsFromReading(i16 reading, int adc) {
    if (!ValidAdc(adc)) return 0;
    return static_cast<u16>(reading + AdcCards[adc].ZeroShift);
}

i16 DacReadingFromBits(u16 bits, int dac) {
    if (!ValidDac(dac)) return 0;
    return static_cast<i16>(bits - DacCards[dac].ZeroShift);
}

u16 DacBitsFromReading(i16 reading, int dac) {
    if (!ValidDac(dac)) return 0;
    return static_cast<u16>(reading + DacCards[dac].ZeroShift);
}
