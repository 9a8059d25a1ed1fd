// The driver table: the card operations the system calls, as plain functions with the driver's
// published signatures and status codes (i16, 0 for success, negative for failure). Everything
// above it speaks only to this table, so that cards can be real or simulated.
#pragma once
#include <cstdint>

using i16 = std::int16_t;
using i32 = std::int32_t;
using u16 = std::uint16_t;
using u32 = std::uint32_t;
using f64 = double;

// The one status compared by number: the card does not support the call.
constexpr i16 kDaqNotSupported = -10403;
// Get_DAQ_Device_Info: the info type that gives the card id.
constexpr u32 kDaqInfoDeviceType = 15300;

struct DaqDriver {
    const char* name; // as chosen with -daq:NAME

    i16 (*Get_NI_DAQ_Version)(u32* version);
    i16 (*Get_DAQ_Device_Info)(i16 slot, u32 infoType, u32* infoValue);
    i16 (*SCXI_Get_Chassis_Info)(i16 chassis, i16* chassisType, i16* address, i16* commMode,
                                 i16* commPath, i16* numSlots);
    // The module query: a 16-bit id, below 1 for an empty slot.
    i16 (*SCXI_Get_Module_Id)(i16 chassis, i16 moduleSlot, i16* moduleId);
    i16 (*AI_VScale)(i16 slot, i16 channel, i16 gainCode, f64 gainAdjust, f64 offset, i16 reading,
                     f64* volts);
    i16 (*DAQ_VScale)(i16 slot, i16 channel, i16 gainCode, f64 gainAdjust, f64 offset, u32 count,
                      const i16* samples, f64* volts);
    i16 (*AI_Read)(i16 slot, i16 channel, i16 gainCode, i16* reading);
    // A synchronous block of count samples at rate samples per second.
    i16 (*DAQ_Op)(i16 slot, i16 channel, i16 gainCode, i16* buffer, u32 count, f64 rate);
    // count samples over the channels in turn (count a multiple of channelCount).
    i16 (*SCAN_Op)(i16 slot, i16 channelCount, const i16* channels, const i16* gainCodes,
                   i16* buffer, u32 count, f64 sampleRate, f64 scanRate);
    i16 (*AO_VScale)(i16 slot, i16 channel, f64 volts, i16* reading);
    i16 (*AO_Write)(i16 slot, i16 channel, i16 reading);
    i16 (*SCXI_AO_Write)(i16 chassis, i16 moduleSlot, i16 channel, i16 opCode, i16 rangeCode,
                         f64 volts, i16 reading, i16* written);
    i16 (*Timeout_Config)(i16 slot, i32 ticks);
    i16 (*WFM_Op)(i16 slot, i16 channelCount, const i16* channels, const i16* buffer, u32 count,
                  u32 iterations, f64 rate);
    i16 (*WFM_Scale)(i16 slot, i16 channel, u32 count, f64 gain, const f64* volts, i16* readings);
    i16 (*WFM_Group_Control)(i16 slot, i16 group, i16 operation);
    i16 (*WFM_Check)(i16 slot, i16 channel, i16* status, u32* pointsDone, u32* iterationsDone);
    // Reports a failed call: status, the text of the call, and a flag.
    i16 (*ErrorHandler)(i16 status, const char* call, i16 flag);
};

// The installed driver (the simulated instrument unless another was selected). Before any is
// installed it is the driver "none", whose every call fails with status -1.
const DaqDriver& Daq();
// Installs a driver; null puts back "none".
void SetDaqDriver(const DaqDriver* driver);
// Selects a driver by name; false when there is no such driver. "sim" is the default.
bool SelectDaqDriver(const char* name);
// The names of the drivers built into this program, for messages.
const char* DaqDriverNames();
