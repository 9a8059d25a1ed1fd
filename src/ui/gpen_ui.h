// The pen dialog's logic, apart from its window: what OK does and how a pen reads in a line.
#pragma once
#include "ui/gpen.h"

#include <cstddef>

// OK of the pen dialog: 1 when the pen took the controls. A bad width is reported under caption
// and gives 0: the dialog stays open and the pen keeps its values.
int AcceptPenUI(void* window, const char* caption, GPen& pen, const GPenUI& ui);

// "%s, %d px, RGB=(%03u,%03u,%03u)": style name, width and colour.
void DescribePen(const GPen& pen, char* text, std::size_t size);
