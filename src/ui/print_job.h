// A printer job as the plot and the text pages need it: a canvas with the page's size in
// millimetres and pixels, and page breaks. The window system's print dialog, or a PDF file,
// makes one.
#pragma once
#include "ui/plot_canvas.h"

struct PrintJob {
    PlotCanvas canvas; // the current page; valid between StartDoc and EndDoc
    void* context = nullptr;
    // 0 when the job can't be started (the device refuses, the file can't be written).
    int (*StartDoc)(void* context, const char* documentName) = nullptr;
    void (*StartPage)(void* context) = nullptr;
    void (*EndPage)(void* context) = nullptr;
    void (*EndDoc)(void* context) = nullptr;
    // Frees the device; the job is not used after it.
    void (*Close)(void* context) = nullptr;
};

// The print dialog of the window system (no page numbers, no selection, one copy): fills job
// and returns 1, or 0 when the user cancelled. Null where there are no printers (headless).
extern int (*gOpenPrintJob)(void* window, PrintJob* job);
