// The main window's menu as the menu helpers see it: items are the window's actions, known by
// their command numbers.
#pragma once
#include "ui/dialog_helpers.h"

class VantrelMainWindow;

Menu QtWindowMenu(VantrelMainWindow* window);
