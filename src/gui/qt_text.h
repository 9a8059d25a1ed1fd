// The two ways bytes of the program cross into Qt and back. Stored text (data in files,
// captions, messages) is single-byte Windows-1252, so that data files stay exchangeable with
// files made on Windows. File names are the file system's bytes, whatever they encode: they go
// through QFile's name encoding and never through the Windows-1252 converter, or a name with
// letters beyond ASCII would point at another file.
#pragma once
#include <QByteArray>
#include <QString>

// Windows-1252 bytes to text: Latin-1 except the printable characters of 0x80 to 0x9F.
QString TextFromStored(const char* text);
// Text to Windows-1252 bytes; a character that code page lacks becomes "?".
QByteArray StoredFromText(const QString& text);

// A file name, or a text made of ASCII and one file name (the window title), to Qt.
QString PathToQt(const char* path);
// A file name from Qt (dialogs, dropped files) to the bytes the file system takes.
QByteArray PathFromQt(const QString& path);
