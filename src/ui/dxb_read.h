// Reading plots from AutoCAD DXB files that carry the program's trailer: the line strips become
// curves, the footer's transformation goes to the view and undoes the drawing units.
#pragma once

// The path of the last DXB file read.
extern char gDxbFileName[260];

// Results: 0 read, or stopped with a shown message, or not a DXB file at all (no message);
// 1 a version above 0x0201; -3 the file cannot be opened.
int ReadDxbFile(const char* path, int addMode);
