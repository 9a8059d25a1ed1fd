#include "gui/font_chooser.h"

#include "gui/color_button.h"
#include "gui/qt_canvas.h"
#include "gui/qt_host.h"
#include "support/bounded_text.h"

#include <QColorDialog>
#include <QFontDialog>

#include <algorithm>

int RunQtFontChooser(GFont* font, QWidget* parent) {
    QFont preset(TextFromStored(font->faceName));
    preset.setPointSize(font->height > 0 ? int(font->height) : 9);
    // Weight 0 is the default; the others share Qt's 100 to 900 scale.
    if (font->weight > 0) preset.setWeight(QFont::Weight(std::clamp(font->weight, 1, 1000)));
    preset.setItalic(font->italic != 0);
    preset.setUnderline(font->underline != 0);
    preset.setStrikeOut(font->strikeOut != 0);
    bool ok = false;
    QFont chosen = QFontDialog::getFont(&ok, preset, parent, "Font");
    if (!ok) return 0;
    BoundedCopy(font->faceName, StoredFromText(chosen.family()).constData());
    int points = chosen.pointSize() > 0 ? chosen.pointSize() : qRound(chosen.pointSizeF());
    font->height = unsigned(points > 0 ? points : 1);
    font->weight = chosen.weight();
    font->italic = chosen.italic();
    font->underline = chosen.underline();
    font->strikeOut = chosen.strikeOut();
    QColor color = QColorDialog::getColor(QColorOf(font->color), parent, "Font Color");
    if (color.isValid()) font->color = CanvasColorOf(color);
    return 1;
}
