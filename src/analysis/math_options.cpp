#include "analysis/math_options.h"

#include "platform/host.h"
#include "settings/setup_table.h"

std::uint32_t SmoothParameter = 5;
float FilterParameter = 10.0f;
float SEP_CriticalAngle = 3.0f;
std::uint32_t DerivePoints = 4;
std::int32_t DeriveDiscardEdge = 1;
std::int32_t DeriveDiscardDir = 1;

namespace {

const char kMath[] = "Math";
enum : int { ID_SMOOTH = 101, ID_FILTER, ID_ANGLE, ID_POINTS, ID_EDGE, ID_DIR };

SetupRow SmoothRow() {
    return SetupUIntRow(ID_SMOOTH, &SmoothParameter, kMath, "SmoothParameter", 0, 128);
}
SetupRow FilterRow() {
    return SetupFloatRow(ID_FILTER, &FilterParameter, kMath, "FilterParameter", 0.0f, 1e10f);
}
SetupRow AngleRow() {
    return SetupFloatRow(ID_ANGLE, &SEP_CriticalAngle, kMath, "SEP_CriticalAngle", 0.0f, 90.0f);
}

SetupRow gAllRows[] = {
    SmoothRow(),
    FilterRow(),
    AngleRow(),
    SetupUIntRow(ID_POINTS, &DerivePoints, kMath, "DerivePoints", 1, 128),
    SetupCheckRow(ID_EDGE, &DeriveDiscardEdge, kMath, "DeriveDiscardEdge"),
    SetupCheckRow(ID_DIR, &DeriveDiscardDir, kMath, "DeriveDiscardDir"),
};
const SetupText kTexts[] = {
    {ID_SMOOTH, SETUP_TEXT_LABEL,
     "Points on each side to average (the x spacing is assumed constant):"},
    {ID_FILTER, SETUP_TEXT_LABEL, "Critical amplitude of a spike (units of y):"},
    {ID_ANGLE, SETUP_TEXT_LABEL, "Critical angle (degrees):"},
    {ID_POINTS, SETUP_TEXT_LABEL, "Points on each side:"},
    {ID_EDGE, SETUP_TEXT_LABEL, "&Discard edge points"},
    {ID_DIR, SETUP_TEXT_LABEL, "&Discard direction"},
};
SetupTable gAll = {
    .rowCount = CountOf(gAllRows), .rows = gAllRows, .textCount = CountOf(kTexts), .texts = kTexts};

SetupRow gSmoothRows[] = {SmoothRow()};
SetupRow gFilterRows[] = {FilterRow()};
SetupRow gAngleRows[] = {AngleRow()};
SetupTable gSmooth = {
    .rowCount = 1, .rows = gSmoothRows, .textCount = CountOf(kTexts), .texts = kTexts};
SetupTable gFilter = {
    .rowCount = 1, .rows = gFilterRows, .textCount = CountOf(kTexts), .texts = kTexts};
SetupTable gAngle = {
    .rowCount = 1, .rows = gAngleRows, .textCount = CountOf(kTexts), .texts = kTexts};
SetupTable gSetup = {
    .rowCount = 3, .rows = gAllRows + 3, .textCount = CountOf(kTexts), .texts = kTexts};

} // namespace

int LoadMathOptions(const char* fileName) {
    return LoadOptionTable(&gAll, fileName);
}

int SaveMathOptions(const char* fileName) {
    return SaveOptionTable(&gAll, fileName);
}

void ResetMathOptions() {
    SmoothParameter = 5;
    FilterParameter = 10.0f;
    SEP_CriticalAngle = 3.0f;
    DerivePoints = 4;
    DeriveDiscardEdge = DeriveDiscardDir = 1;
}

int SmoothDialog(void*) {
    return Host().RunSetupDialog(&gSmooth, "Smooth");
}
int FilterDialog(void*) {
    return Host().RunSetupDialog(&gFilter, "Filter");
}
int SkipPointsDialog(void*) {
    return Host().RunSetupDialog(&gAngle, "Skip Extra Points");
}
int MathSetupDialog(void*) {
    return Host().RunSetupDialog(&gSetup, "Math Setup");
}
