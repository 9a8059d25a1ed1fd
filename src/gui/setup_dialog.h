// The Qt dialog of a SetupTable: each row becomes a labelled control under its control number,
// and the option-table engine drives it through SetupDialogOps.
#pragma once
#include "settings/setup_table.h"

#include <QDialog>

#include <map>
#include <vector>

class QtSetupDialog : public QDialog {
    Q_OBJECT
  public:
    QtSetupDialog(SetupTable* table, const QString& caption, QWidget* parent = nullptr);
    // Fills the controls from the variables; false when the dialog had to end at once.
    bool Open();
    // The control of a number, or null.
    QWidget* Control(int id) const;
    // The engine's view of this dialog.
    SetupDialog* Engine() { return &engine_; }
    void reject() override;

  private:
    void AddRow(class QFormLayout* form, const SetupRow& row);
    void Command(int id, QWidget* control, int notification);
    int NextRadio(int id) const;
    static const SetupDialogOps kOps;

    SetupTable* table_;
    SetupDialog engine_;
    std::map<int, QWidget*> controls_;
    std::map<int, std::vector<int>> groups_; // every button's id to its group in order
};

// Shows the dialog modally; 1 for OK, 0 for Cancel.
int RunQtSetupDialog(SetupTable* table, const char* caption, QWidget* parent);
