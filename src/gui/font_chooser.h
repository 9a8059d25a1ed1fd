// GFont's font dialog over Qt: QFontDialog for face, size and style, then QColorDialog for the
// colour, which Qt's font dialog does not offer.
#pragma once
#include "ui/gfont.h"

class QWidget;

// 1 when the font dialog ended with OK; Cancel of the colour step keeps the old colour.
int RunQtFontChooser(GFont* font, QWidget* parent);
