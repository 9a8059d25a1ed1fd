#include "instrument/daq/daq_driver.h"

#include <atomic>

namespace {

constexpr i16 kNoneStatus = -1;

i16 NoneVersion(u32*) {
    return kNoneStatus;
}
i16 NoneDeviceInfo(i16, u32, u32*) {
    return kNoneStatus;
}
i16 NoneChassisInfo(i16, i16*, i16*, i16*, i16*, i16*) {
    return kNoneStatus;
}
i16 NoneModuleId(i16, i16, i16*) {
    return kNoneStatus;
}
i16 NoneAiVScale(i16, i16, i16, f64, f64, i16, f64*) {
    return kNoneStatus;
}
i16 NoneDaqVScale(i16, i16, i16, f64, f64, u32, const i16*, f64*) {
    return kNoneStatus;
}
i16 NoneAiRead(i16, i16, i16, i16*) {
    return kNoneStatus;
}
i16 NoneDaqOp(i16, i16, i16, i16*, u32, f64) {
    return kNoneStatus;
}
i16 NoneScanOp(i16, i16, const i16*, const i16*, i16*, u32, f64, f64) {
    return kNoneStatus;
}
i16 NoneAoVScale(i16, i16, f64, i16*) {
    return kNoneStatus;
}
i16 NoneAoWrite(i16, i16, i16) {
    return kNoneStatus;
}
i16 NoneScxiAoWrite(i16, i16, i16, i16, i16, f64, i16, i16*) {
    return kNoneStatus;
}
i16 NoneTimeoutConfig(i16, i32) {
    return kNoneStatus;
}
i16 NoneWfmOp(i16, i16, const i16*, const i16*, u32, u32, f64) {
    return kNoneStatus;
}
i16 NoneWfmScale(i16, i16, u32, f64, const f64*, i16*) {
    return kNoneStatus;
}
i16 NoneWfmGroupControl(i16, i16, i16) {
    return kNoneStatus;
}
i16 NoneWfmCheck(i16, i16, i16*, u32*, u32*) {
    return kNoneStatus;
}
i16 NoneErrorHandler(i16, const char*, i16) {
    return kNoneStatus;
}

// No cards at all: detection over it ends in the start-up messages, never in invented cards.
const DaqDriver kNoneDriver = {
    .name = "none",
    .Get_NI_DAQ_Version = NoneVersion,
    .Get_DAQ_Device_Info = NoneDeviceInfo,
    .SCXI_Get_Chassis_Info = NoneChassisInfo,
    .SCXI_Get_Module_Id = NoneModuleId,
    .AI_VScale = NoneAiVScale,
    .DAQ_VScale = NoneDaqVScale,
    .AI_Read = NoneAiRead,
    .DAQ_Op = NoneDaqOp,
    .SCAN_Op = NoneScanOp,
    .AO_VScale = NoneAoVScale,
    .AO_Write = NoneAoWrite,
    .SCXI_AO_Write = NoneScxiAoWrite,
    .Timeout_Config = NoneTimeoutConfig,
    .WFM_Op = NoneWfmOp,
    .WFM_Scale = NoneWfmScale,
    .WFM_Group_Control = NoneWfmGroupControl,
    .WFM_Check = NoneWfmCheck,
    .ErrorHandler = NoneErrorHandler,
};

// Atomic so that a measurement thread reading it is clean under the thread sanitizer.
std::atomic<const DaqDriver*> gDaqDriver{nullptr};

} // namespace

const DaqDriver& Daq() {
    const DaqDriver* driver = gDaqDriver.load(std::memory_order_acquire);
    return driver ? *driver : kNoneDriver;
}

void SetDaqDriver(const DaqDriver* driver) {
    gDaqDriver.store(driver, std::memory_order_release);
}
