// Printing the plot: its place on the page, then the text pages with the picture's data and the
// options of the measurement, in one job.
#pragma once
#include "ui/plot_canvas.h"
#include "ui/print_job.h"
#include "ui/print_options.h"

#include <string>

class CurveFamily;
struct OptionRows;

// The option groups write their printed block through these, indexed by their PRINT_* flag; a
// group with no writer prints nothing.
using PrintBlockWriter = void (*)(OptionRows& out);
extern PrintBlockWriter gPrintBlockWriters[kPrintFlagCount];

// The plot's rectangle on a page of these capabilities.
CanvasRect PrintedPlotArea(const CanvasCaps& caps, const PageSetup& setup);

// The text blocks chosen by the printing options, laid out in a table of three columns over the
// page less its margins; a block that does not fit takes the next column, then a new page.
// Page breaks go through job (may be null: no further pages, the rest is dropped).
void PrintTextBlocks(const PlotCanvas& dc, PrintJob* job, const CurveFamily& family);

// "%s -- %s (ID=%d)": the program, the file shown or "Screen", the job's number.
std::string PrintDocumentName(int jobNumber);

// Prints the family on a job that is open: counts the job, starts the document, draws the plot
// and its text pages. 1 done; 0 when the job could not start ("Unable to start print job").
int PrintOnJob(PrintJob& job, const CurveFamily& family);

// The Print command: the print dialog, the options when asked for every time, the job.
int PrintPlot(void* window);
