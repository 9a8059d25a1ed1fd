#include "ui/setup_dialog.h"
#include "ui/axes_dialog.h"

#include "settings/profile.h"
#include "platform/host.h"
#include "ui/settings_registry.h"
#include "ui/gpen_ui.h"
#include "ui/plot_options.h"

namespace {

// The font and pens as the open dialog has them.
struct AxesEdit {
    GFont font;
    GPen axesPen;
    GPen gridPen;
};
AxesEdit gAxesEdit;

void StartEdit() {
    gAxesEdit = {gPlotOptions.captionFont, gPlotOptions.axesPen, gPlotOptions.gridPen};
}

void ShowEdit(SetupDialog* dialog) {
    char text[128];
    gAxesEdit.font.Describe(text, sizeof text);
    dialog->ops->SetText(dialog->context, AXES_ID_FONT_TEXT, text);
    DescribePen(gAxesEdit.axesPen, text, sizeof text);
    dialog->ops->SetText(dialog->context, AXES_ID_AXES_PEN_TEXT, text);
    DescribePen(gAxesEdit.gridPen, text, sizeof text);
    dialog->ops->SetText(dialog->context, AXES_ID_GRID_PEN_TEXT, text);
}

// The chooser works on a copy, so Cancel leaves the edit as it was.
template <typename T, typename Choose> void ChooseInto(T& value, Choose choose) {
    T copy = value;
    if (choose(copy) == 1) value = copy;
}

// Save of the dialog: the rows as the engine saves them, then the font and pens. Checked here
// first so that a bad field writes nothing at all.
void SaveEdit(SetupDialog* dialog) {
    SetupTable* table = GetCurrentSetupTable();
    if (ControlsToRows(table, dialog) != 0) {
        FreeSetupTextBlocks(table);
        return;
    }
    ProfileBatch batch(gIniFileName);
    RowsToFile(table, gIniFileName);
    gAxesEdit.font.Save(gIniFileName, "Setup", "AxesCaptionFont");
    gAxesEdit.axesPen.Save(gIniFileName, "Setup", "AxesLines");
    gAxesEdit.gridPen.Save(gIniFileName, "Setup", "GridLines");
}

void LoadEdit() {
    ProfileBatch batch(gIniFileName);
    gAxesEdit.font.Load(gIniFileName, "Setup", "AxesCaptionFont");
    gAxesEdit.axesPen.Load(gIniFileName, "Setup", "AxesLines");
    gAxesEdit.gridPen.Load(gIniFileName, "Setup", "GridLines");
}

} // namespace

int AxesDialogCallback(SetupDialog* dialog, int controlId, void*, int notification) {
    if (notification != 0) return 0;
    switch (controlId) {
    case 0:
        StartEdit();
        ShowEdit(dialog);
        return 0;
    case AXES_ID_FONT:
        ChooseInto(gAxesEdit.font, [](GFont& f) { return f.Choose(nullptr); });
        break;
    case AXES_ID_AXES_PEN:
        ChooseInto(gAxesEdit.axesPen,
                   [](GPen& p) { return Host().ChoosePen(nullptr, "Axes Pen", &p); });
        break;
    case AXES_ID_GRID_PEN:
        ChooseInto(gAxesEdit.gridPen,
                   [](GPen& p) { return Host().ChoosePen(nullptr, "Grid Pen", &p); });
        break;
    case SETUP_ID_SAVE:
        SaveEdit(dialog);
        return 1;
    case SETUP_ID_LOAD:
        LoadEdit();
        ShowEdit(dialog);
        return 0; // the engine loads the rows
    default:
        return 0;
    }
    ShowEdit(dialog);
    return 1;
}

int AxesOptionsDialog(void*) {
    // Also here: a host that answers without showing the dialog must not commit stale copies.
    StartEdit();
    int result = Host().RunSetupDialog(&gPlotOptionsTable, "Axes");
    if (result != 1) return 0;
    gPlotOptions.captionFont = gAxesEdit.font;
    gPlotOptions.axesPen = gAxesEdit.axesPen;
    gPlotOptions.gridPen = gAxesEdit.gridPen;
    return 1;
}
