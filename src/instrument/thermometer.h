// The thermometer: the voltage of the "T-sensor" virtual voltage turned into kelvin through a
// calibration table of temperature against sensor value (volts, or ohms through the sensor
// current). The table is global and replaced, entry by entry, by each load.
#pragma once
#include "instrument/daq_cards.h"

#include <cstddef>

struct SetupTable;
struct OptionRows;
class CurveFamily;

constexpr int kTermoTableSize = 1024;
constexpr size_t kTermoFileNameSize = 260;

// The table; entries past gTermoCount keep whatever an earlier load left there.
extern f32 gTermoTemperature[kTermoTableSize]; // K
extern f32 gTermoValue[kTermoTableSize];       // V, or Ohm in T(R)
extern int gTermoCount;

// Section "TermoMeter".
extern i32 TermoIsTofR;                        // key "T(R)?": radio, 0 "T(V)", 1 "T(R)"
extern f32 SensorCurrent;                      // A through the sensor, for T(R) only
extern i32 UseAbsV;                            // interpolate |x|
extern char TermoFileName[kTermoFileNameSize]; // key "FileName"; "nul" is the null device

// GetTemperature's failures, also understood by FormatTemperature.
constexpr f64 kTermoNoSensor = -1.0;
constexpr f64 kTermoInterpError = -2.0;

// Reads the calibration file into the table and stores the count, which it returns. "nul"
// loads nothing, silently. A file that can't be opened says so and leaves the count 0.
int LoadTemperatureCurve(const char* fileName);
// Back to the table of a fresh program: every entry 0, count 0.
void ResetTemperatureTable();

// The temperature of x (a sensor value) by the first table segment that holds it, in either
// direction; false outside the table or with fewer than two entries.
bool InterpolateTemperature(f32 x, f64* kelvin);

// One look at the thermometer, for displays that show the sensor beside the temperature.
struct TemperatureReading {
    int voltage = -1;       // the T-sensor voltage, -1 for none
    f64 volts = 0.0;        // GetVoltage of it
    f32 sensorValue = 0.0f; // what was interpolated: volts, or ohms in T(R), |.| with UseAbsV
    f64 kelvin = kTermoNoSensor;
};
TemperatureReading ReadTemperature();
// Kelvin, kTermoNoSensor with no T-sensor voltage, kTermoInterpError outside the table.
f64 GetTemperature();
// "%9.3f K" for a temperature, "V not def", "InterpErr" or "err ???" for the failures; true for
// a temperature. size must be at least kTermoTextSize.
constexpr size_t kTermoTextSize = 13;
bool FormatTemperature(f32 kelvin, char* text, size_t size);

// --- Options -------------------------------------------------------------------------------

// The path FileName names: "nul" as it is, an absolute path as it is, a relative one within
// the folder of the settings file gIniFileName, so that a table shipped beside vtl.ini is
// found wherever the program runs from.
void TermoCalibrationPath(char* path, size_t size);
// The group of the settings lists (and of a data pair's .ini); the load reloads the table.
int LoadTermometerOptions(const char* fileName);
int SaveTermometerOptions(const char* fileName);
SetupTable* TermometerSetupTable();
// "Thermometer Setup"; after OK the table is reloaded and the count reported. 1 for OK.
int TermometerSetupDialog(void* window = nullptr);
// The options as printed rows, under "Termometer Options".
void Termometer_WriteRows(OptionRows& out);

// Controls of the "Thermometer Setup" layout.
enum : int {
    IDC_TERMO_TOFV = 1301, // radio group: T(V), T(R)
    IDC_TERMO_TOFR = 1302,
    IDC_TERMO_CURRENT = 1303,
    IDC_TERMO_CURRENT_LABEL = 1304,
    IDC_TERMO_ABSV = 1305,
    IDC_TERMO_FILENAME = 1306,
    IDC_TERMO_BROWSE = 1307, // ">>"
};
// The filters of the ">>" file dialog, in the host's "text|pattern|..." form.
extern const char kTermoFileFilter[];
// The notes of the dialog beside the file name.
extern const char kTermoFormatNote[];
extern const char kTermoSizeNote[];

// Replaces the family's curves with the table as one curve, sensor value against temperature.
// An empty table gives a message and leaves the family alone; false then.
bool ShowTemperatureCurve(void* window, CurveFamily& family);
