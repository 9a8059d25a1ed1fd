// A thermometer calibration table: LoadTemperatureCurve, then every interpolation it serves.
#include "fuzz_input_file.h"
#include "instrument/thermometer.h"
#include "platform/headless_host.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    HeadlessReset();
    const std::string path = FuzzInputFile("table.R(T)", data, size);
    LoadTemperatureCurve(path.c_str());
    f64 kelvin = 0;
    for (float x : {-1e30f, -1.0f, 0.0f, 1e-3f, 1.0f, 100.0f, 1e4f, 1e30f})
        InterpolateTemperature(x, &kelvin);
    ResetTemperatureTable();
    return 0;
}
