// The dialog side of a SetupTable: rows to controls and back, the dependencies and the command
// handling, all through SetupDialogOps so that any dialog can drive it. The field readers are
// the settings floor's (setup_fields.cpp), since option groups' own callbacks use them too.
#include "settings/profile.h"
#include "settings/settings_file.h"
#include "ui/dialog_helpers.h"
#include "ui/setup_dialog.h"
#include "support/bounded_text.h"
#include "support/c_locale.h"
#include "support/debug_check.h"
#include "support/message_box.h"

#include <climits>
#include <cstring>

SetupTable* gCurrentSetupTable = nullptr;

SetupTable* GetCurrentSetupTable() {
    return gCurrentSetupTable;
}

void SetCurrentSetupTable(SetupTable* table) {
    gCurrentSetupTable = table;
}

namespace {

// A radio group is walked until it comes back to its first button; a broken walk stops here.
constexpr unsigned kMaxRadioButtons = 1000;

bool Usable(SetupDialog* d, int id) {
    return d->ops->Exists(d->context, id) && !d->ops->IsStatic(d->context, id) &&
           d->ops->IsEnabled(d->context, id);
}

int RadioIndex(SetupDialog* d, const SetupRow& row, int32_t* index) {
    int id = row.controlId;
    for (unsigned pos = 0; id && pos < kMaxRadioButtons; ++pos) {
        if (d->ops->GetCheck(d->context, id) == 1) {
            *index = static_cast<int32_t>(pos);
            return 1;
        }
        id = d->ops->NextRadio(d->context, id);
        if (id == row.controlId) break;
    }
    return 0;
}

int SetRadioGroup(SetupDialog* d, const SetupRow& row) {
    if (!d->ops->Exists(d->context, row.controlId)) return 0;
    int id = row.controlId;
    for (unsigned pos = 0; id && pos < kMaxRadioButtons; ++pos) {
        d->ops->SetCheck(d->context, id, static_cast<int32_t>(pos) == row.value.i ? 1 : 0);
        id = d->ops->NextRadio(d->context, id);
        if (id == row.controlId) break;
    }
    return 1;
}

// What a slave gets in each master state: unchecked, third state, checked.
enum Effect { DISABLE, ENABLE, HIDE, SHOW, NEVER };
const Effect kActions[][3] = {
    {DISABLE, DISABLE, ENABLE}, {ENABLE, ENABLE, DISABLE}, {DISABLE, NEVER, ENABLE},
    {ENABLE, NEVER, DISABLE},   {HIDE, NEVER, SHOW},       {SHOW, NEVER, HIDE},
    {DISABLE, ENABLE, DISABLE}, {ENABLE, DISABLE, ENABLE},
};

} // namespace

int RowsToControls(SetupTable* table, SetupDialog* dialog) {
    const SetupDialogOps* ops = dialog->ops;
    void* c = dialog->context;
    char text[64];
    for (unsigned r = 0; r < table->rowCount; ++r) {
        SetupRow& row = table->rows[r];
        switch (row.kind) {
        case SETUP_INT:
            SnprintfC(text, sizeof text, "%d", row.value.i);
            ops->SetText(c, row.controlId, text);
            break;
        case SETUP_UINT:
            SnprintfC(text, sizeof text, "%u", row.value.u);
            ops->SetText(c, row.controlId, text);
            break;
        case SETUP_FLOAT:
            SnprintfC(text, sizeof text, "%-G", static_cast<double>(row.value.f));
            ops->SetText(c, row.controlId, text);
            break;
        case SETUP_TEXT:
            ops->SetText(c, row.controlId, row.value.text ? row.value.text : "");
            ops->LimitText(c, row.controlId, row.minimum.size ? row.minimum.size - 1 : 0);
            FreeSetupTextBlock(row);
            break;
        case SETUP_CHECK:
            ops->SetCheck(c, row.controlId, row.value.i);
            break;
        case SETUP_RADIO:
            if (!SetRadioGroup(dialog, row)) return static_cast<int>(r) + 1;
            break;
        default:
            break;
        }
    }
    return 0;
}

int ControlsToRows(SetupTable* table, SetupDialog* dialog) {
    for (unsigned r = 0; r < table->rowCount; ++r) {
        SetupRow& row = table->rows[r];
        int bad = static_cast<int>(r) + 1;
        if (row.kind == SETUP_TEXT) {
            char* block = TakeSetupTextBlock(row);
            if (!block) return -bad;
            if (Usable(dialog, row.controlId))
                dialog->ops->GetText(dialog->context, row.controlId, block, row.minimum.size);
            else
                BoundedCopy(block, static_cast<const char*>(row.variable), row.minimum.size);
            continue;
        }
        // A control that can't be used keeps the live value and is not range-checked.
        VariableToRow(row);
        if (!Usable(dialog, row.controlId)) continue;
        switch (row.kind) {
        case SETUP_INT:
            if (!ReadIntField(dialog, row.controlId, row.minimum.i, row.maximum.i, &row.value.i))
                return bad;
            break;
        case SETUP_UINT:
            if (!ReadUIntField(dialog, row.controlId, row.minimum.u, row.maximum.u, &row.value.u))
                return bad;
            break;
        case SETUP_FLOAT:
            if (!ReadFloatField(dialog, row.controlId, row.minimum.f, row.maximum.f, &row.value.f))
                return bad;
            break;
        case SETUP_CHECK:
            row.value.i = dialog->ops->GetCheck(dialog->context, row.controlId) == 1 ? 1 : 0;
            break;
        case SETUP_RADIO:
            RadioIndex(dialog, row, &row.value.i);
            break;
        default:
            break;
        }
    }
    return 0;
}

void ProcessDependencies(const SetupTable* table, SetupDialog* dialog) {
    const SetupDialogOps* ops = dialog->ops;
    for (unsigned k = 0; k < table->dependencyCount; ++k) {
        const Dependency& dep = table->dependencies[k];
        if (!dep.ids || dep.ids[0] == 0) continue;
        int state = ops->GetCheck(dialog->context, dep.ids[0]);
        if (state < 0 || state > 2) {
            VASSERT_MSG(false, "ProcessMasterSlaveDependences() -- unknown master-control state");
            continue;
        }
        // The table's columns run unchecked, third state, checked.
        static const int kColumn[3] = {0, 2, 1};
        Effect effect = dep.action < sizeof kActions / sizeof kActions[0]
                            ? kActions[dep.action][kColumn[state]]
                            : NEVER;
        if (effect == NEVER) {
            VASSERT_MSG(false, "Wrong action in master-slave dependency");
            continue;
        }
        if (effect == DISABLE || effect == ENABLE) {
            EnableControls(dialog, dep.ids + 1, dep.slaveCount, effect == ENABLE);
            continue;
        }
        for (unsigned s = 1; s <= dep.slaveCount; ++s)
            ops->Show(dialog->context, dep.ids[s], effect == SHOW);
    }
}

namespace {

int EndSetupDialog(SetupDialog* dialog, SetupTable* table, int result) {
    FreeSetupTextBlocks(table);
    dialog->ops->End(dialog->context, result);
    gCurrentSetupTable = nullptr;
    return result;
}

} // namespace

int SetupDlg_Open(SetupTable* table, SetupDialog* dialog) {
    gCurrentSetupTable = table;
    VariablesToRows(table);
    if (RowsToControls(table, dialog) != 0) {
        MessageBoxBeep(nullptr,
                       "Can not find radio button with specified ID\nContact developper and "
                       "describe what were you doing.",
                       "SetupDlg failure", MB_OK | MB_ICONSTOP);
        return EndSetupDialog(dialog, table, 0);
    }
    if (table->callback) table->callback(dialog, 0, dialog, 0);
    ProcessDependencies(table, dialog);
    return 1;
}

int SetupDlg_Command(SetupDialog* dialog, int controlId, void* controlHandle, int notification) {
    SetupTable* table = gCurrentSetupTable;
    VASSERT(table);
    if (!table) return -1;
    if (table->callback && table->callback(dialog, controlId, controlHandle, notification))
        return -1;
    switch (controlId) {
    case SETUP_ID_LOAD: {
        ProfileBatch batch(gIniFileName);
        FileToRows(table, gIniFileName);
        RowsToControls(table, dialog);
        break;
    }
    case SETUP_ID_OK:
    case SETUP_ID_SAVE:
        // A bad row has already put the focus on its field; the dialog stays as it is.
        if (ControlsToRows(table, dialog) != 0) {
            FreeSetupTextBlocks(table);
            break;
        }
        if (controlId == SETUP_ID_OK) {
            RowsToVariables(table);
            return EndSetupDialog(dialog, table, 1);
        } else {
            ProfileBatch batch(gIniFileName);
            RowsToFile(table, gIniFileName);
        }
        break;
    case SETUP_ID_CANCEL:
        return EndSetupDialog(dialog, table, 0);
    default:
        break;
    }
    if (notification == 0) ProcessDependencies(table, dialog);
    return -1;
}
