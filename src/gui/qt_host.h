// The host table over Qt widgets. Calls may come from the measurement thread: boxes and
// dialogs then block it until the interface thread has answered; everything else is queued.
#pragma once
#include "gui/qt_text.h"
#include "platform/host.h"

#include <QByteArray>
#include <QString>

class QWidget;

// The table; its boxes are parented to the window given to InstallQtHost.
const HostTable& QtHostTable();
// Installs the table as Host() and makes window the owner of boxes and dialogs (may be null).
void InstallQtHost(QWidget* window);
// The status bar panes the host writes into (the main window registers them).
void SetQtStatusPanes(class QLabel* const* panes, int count);

// The window a box of the program belongs to.
QWidget* QtHostWindow();
