// The host table over Qt widgets. Calls may come from the measurement thread: boxes and
// dialogs then block it until the interface thread has answered; everything else is queued.
#pragma once
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

// Stored text is Windows-1252. Qt's Latin-1 agrees on every byte the program writes itself,
// the micro sign 0xB5 above all; only 0x80 to 0x9F differ and never come from the keyboard
// side, so toLatin1 is close enough on the way back.
QByteArray StoredFromText(const QString& text);

// The window a box of the program belongs to.
QWidget* QtHostWindow();
