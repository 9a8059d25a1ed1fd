// The Qt panels of virtual currents and voltages over ui/setup_panel.h.
#pragma once
#include "ui/setup_panel.h"

#include <QDialog>

#include <map>

class SetupPanelDialog : public QDialog {
    Q_OBJECT
  public:
    SetupPanelDialog(int voltages, int index, QWidget* parent = nullptr);
    SetupPanel& Panel() { return panel_; }
    QWidget* Control(int id) const;
    // The buttons by their captions ("&Apply", "<", ...).
    class QPushButton* Button(int button) const;
    void reject() override;

  private:
    static const SetupPanelView kView;
    SetupPanel panel_;
    std::map<int, QWidget*> controls_;
    std::map<int, class QPushButton*> buttons_;
};

// Modal; the table has changed when the user applied.
void RunSetupPanel(QWidget* parent, int voltages, int index);
