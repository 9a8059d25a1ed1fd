#include "instrument/thermometer.h"

#include "settings/profile.h"
#include "settings/option_rows.h"
#include "platform/host.h"
#include "support/c_locale.h"
#include "support/message_box.h"
#include "settings/setup_table.h"

i32 TermoIsTofR = 1;
f32 SensorCurrent = 0.00001f;
i32 UseAbsV = 0;
char TermoFileName[kTermoFileNameSize] = "nul";

const char kTermoFileFilter[] = "Temperature curve  files  (*.t)|*.t|"
                                "Sensor calibration files (*.scf)|*.scf|"
                                "Sensor calibration files (*.V(T))|*.V(T)|"
                                "Sensor calibration files (*.R(T))|*.R(T)|"
                                "All supported file types|*.R(T),*.V(T),*.scf|"
                                "All files (*.*)|*.*";
const char kTermoFormatNote[] =
    "Sensor calibration file format:\n1st column T[K], second column V[volt] or R[Ohm].\nFile "
    "can contain comment lines starting with ';' or '#'.";
const char kTermoSizeNote[] = "Calibration table can not contain more than 1024 points. The "
                              "values of V or R should monotonically increase or decrease.";

namespace {

const char kSection[] = "TermoMeter";

SetupRow gRows[] = {
    SetupRadioRow(IDC_TERMO_TOFV, &TermoIsTofR, kSection, "T(R)?"),
    SetupFloatRow(IDC_TERMO_CURRENT, &SensorCurrent, kSection, "SensorCurrent", 0.0000000001f,
                  10000000000.0f),
    SetupCheckRow(IDC_TERMO_ABSV, &UseAbsV, kSection, "UseAbsV"),
    SetupTextRow(IDC_TERMO_FILENAME, TermoFileName, sizeof TermoFileName, kSection, "FileName"),
};

// The sensor current means something for T(R) only; its field follows that button, and a
// disabled field keeps its value unchecked.
const int kTofRSlaves[] = {IDC_TERMO_TOFR, IDC_TERMO_CURRENT, IDC_TERMO_CURRENT_LABEL};
const Dependency kDependencies[] = {{0, 2, kTofRSlaves}};

int TermoCallback(SetupDialog* dialog, int id, void*, int) {
    if (id != IDC_TERMO_BROWSE) return 0;
    char path[kTermoFileNameSize] = "";
    dialog->ops->GetText(dialog->context, IDC_TERMO_FILENAME, path, sizeof path);
    if (Host().FileDialog(0, "Calibration table", kTermoFileFilter, path, sizeof path))
        dialog->ops->SetText(dialog->context, IDC_TERMO_FILENAME, path);
    return 1;
}

const SetupText kTexts[] = {
    {IDC_TERMO_TOFV, SETUP_TEXT_LABEL, "Thermometer|T(V)|T(R)"},
    {IDC_TERMO_CURRENT, SETUP_TEXT_LABEL, "Current through the T-sensor (A)"},
    {IDC_TERMO_ABSV, SETUP_TEXT_LABEL, "Use |V| instead of V"},
    {IDC_TERMO_FILENAME, SETUP_TEXT_LABEL, "Calibration table"},
    {IDC_TERMO_CURRENT_LABEL, SETUP_TEXT_STATIC, "Sensor current"},
    {IDC_TERMO_BROWSE, SETUP_TEXT_BUTTON, ">>"},
};

SetupTable gTable = {
    .rowCount = CountOf(gRows),
    .rows = gRows,
    .callback = TermoCallback,
    .dependencyCount = sizeof kDependencies / sizeof kDependencies[0],
    .dependencies = kDependencies,
    .textCount = CountOf(kTexts),
    .texts = kTexts,
};

int ReloadTable() {
    char path[4096];
    TermoCalibrationPath(path, sizeof path);
    return LoadTemperatureCurve(path);
}

} // namespace

SetupTable* TermometerSetupTable() {
    return &gTable;
}

int LoadTermometerOptions(const char* fileName) {
    LoadOptionTable(&gTable, fileName);
    ReloadTable();
    return 1;
}

int SaveTermometerOptions(const char* fileName) {
    return SaveOptionTable(&gTable, fileName);
}

int TermometerSetupDialog(void* window) {
    if (!Host().RunSetupDialog(&gTable, "Thermometer Setup")) return 0;
    char path[4096];
    TermoCalibrationPath(path, sizeof path);
    int count = LoadTemperatureCurve(path);
    char text[4200];
    SnprintfC(text, sizeof text, "%d entries were read from file \n%s", count, path);
    MessageBoxBeep(window, text, "Information", MB_OK | MB_ICONINFORMATION);
    return 1;
}

void Termometer_WriteRows(OptionRows& out) {
    out.title = "Termometer Options";
    out.rows.clear();
    AddOptionRow(out, "Type of calibration table", "%s", TermoIsTofR ? "T(R)" : "T(V)");
    if (TermoIsTofR)
        AddOptionRow(out, "Current through the T-sensor (A)", "%G",
                     static_cast<double>(SensorCurrent));
    AddOptionRow(out, "Use |V| instead of V?", "%s", UseAbsV ? "Yes" : "No");
    AddOptionRow(out, "Calibration table", "%s", TermoFileName);
}
