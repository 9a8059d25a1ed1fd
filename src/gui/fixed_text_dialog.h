// The fixed text dialog: a long text in one read-only edit, control 1105, in "Courier New"
// 8 points, or the system's fixed-pitch face at 8 points where that face is missing. Modeless,
// centred on its owner, deleted when closed; the edit follows resizing with equal margins.
#pragma once
#include <QDialog>

class QFont;
class QPlainTextEdit;

constexpr int kFixedTextControl = 1105;

class FixedTextDialog : public QDialog {
    Q_OBJECT
  public:
    FixedTextDialog(QWidget* owner, const QString& caption, const QString& text);
    ~FixedTextDialog() override;
    // The edit for kFixedTextControl, else null.
    QPlainTextEdit* Control(int id) const;
    // Centres the window, frame included, on the owner's window (on the screen without one).
    void CentreOnOwner();

  private:
    QPlainTextEdit* edit_;
};

// Opens a dialog over owner (text and caption Windows-1252) and shows it.
FixedTextDialog* ShowFixedTextDialog(QWidget* owner, const char* caption, const char* text);

// The one font of all open dialogs, and how many hold it: made by the first dialog, deleted
// when the last one goes (null then). Each dialog also carries it as its property "PROP_FONT".
const QFont* FixedTextFont();
int FixedTextFontUsers();
