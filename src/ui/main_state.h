// The state the main window and its commands share, each a single instance.
#pragma once
#include "ui/view_scale.h"

#include <cstddef>

// "Vantrel": the window's title, and the caption of its questions.
extern const char gProgramName[];
// The title as shown: the program name, or after a file was opened or saved the program name,
// " -- " and the path.
extern char gWindowTitle[360];
// 0 from the start, so that even an empty program asks before it ends.
extern int fDataSaved;
// The view of the main plot.
extern ViewScale gViewScale;
// What DetectCards wrote; painted when there is nothing to plot.
extern char gHardwareReport[1024];

// Selection: 0 none, 1 rubber band in progress, 2 a selection stands. gSelectionMenu is the
// state the menu was last set for: the rubber band leaves the menu as it was.
extern int gSelectionState;
extern int gSelectionMenu;
void SetSelectionState(int state);

// "Vantrel -- path", cut to the title's size.
void SetTitleFromPath(const char* path);
