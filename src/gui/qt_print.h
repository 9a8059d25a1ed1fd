// Print jobs on Qt's paged devices: a printer chosen in the print dialog, or a PDF file.
#pragma once
#include "gui/qt_canvas.h"
#include "ui/print_job.h"

#include <QPainter>

class QPagedPaintDevice;
class QWidget;

struct QtPrintState {
    QPagedPaintDevice* device = nullptr;
    bool ownsDevice = false; // Close deletes the device
    bool ownsSelf = false;   // Close deletes this state too (the print dialog's jobs)
    int pagesStarted = 0;    // pages of the last document
    QPainter painter;
    QtCanvasState canvas;
};

// The job draws on state's device; state outlives the job.
PrintJob MakeQtPrintJob(QtPrintState& state);

// Points gOpenPrintJob at the print dialog, parented to window.
void InstallQtPrinting(QWidget* window);
