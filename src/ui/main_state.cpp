#include "ui/main_state.h"

#include "support/bounded_text.h"

#include <cstdio>

const char gProgramName[] = "Vantrel";
char gWindowTitle[360] = "Vantrel";
int fDataSaved = 0;
ViewScale gViewScale;
char gHardwareReport[1024] = "";
int gSelectionState = 0;
int gSelectionMenu = 0;

void SetSelectionState(int state) {
    gSelectionState = state;
    if (state != 1) gSelectionMenu = state;
}

void SetTitleFromPath(const char* path) {
    std::snprintf(gWindowTitle, sizeof gWindowTitle, "%s -- %s", gProgramName, path);
}
