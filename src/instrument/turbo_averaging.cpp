#include "instrument/averaging.h"

#include "support/debug_check.h"

#include <memory>
#include <new>
#include <stdexcept>

namespace {
// In the driver's units.
constexpr i32 kTurboTimeoutTicks = 545;
} // namespace

i32 TurboBlock(int adc, u16 channel, f32 gain, u32 n, bool monitor) {
    const AdcCard& card = AdcCards[adc];
    i32 status = Daq().Timeout_Config(card.slot, kTurboTimeoutTicks);
    if (monitor)
        VASSERT_MSG(status == 0, "0==TA_IStatus");
    else
        VASSERT_MSG(status == 0, "0==TA_VStatus");
    // A card with decibel gains delivers 32-bit samples with the value in the upper half.
    const u32 words = card.logGains ? 2 * n : n;
    std::unique_ptr<i16[]> buffer(new (std::nothrow) i16[words]);
    if (!buffer) throw std::runtime_error("Not enough memory!");
    status = Daq().DAQ_Op(card.slot, static_cast<i16>(channel), GainCode(gain), buffer.get(), n,
                          TA_SampleRate);
    if (status >= 0)
        for (u32 i = 0; i < n; ++i)
            AveragingArray[i] = AdcBitsFromReading(buffer[card.logGains ? 2 * i + 1 : i], adc);
    return status;
}
