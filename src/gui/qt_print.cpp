#include "gui/qt_print.h"

#include "gui/qt_text.h"

#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>

#include <memory>

namespace {

QtPrintState& State(void* context) {
    return *static_cast<QtPrintState*>(context);
}

int StartDoc(void* context, const char* name) {
    QtPrintState& s = State(context);
    const QString title = TextFromStored(name);
    if (auto* printer = dynamic_cast<QPrinter*>(s.device)) printer->setDocName(title);
    if (auto* pdf = dynamic_cast<QPdfWriter*>(s.device)) pdf->setTitle(title);
    s.pagesStarted = 0;
    return s.painter.begin(s.device) ? 1 : 0;
}

// The first page is open once the painter is; every later one is a new page of the device.
void StartPage(void* context) {
    QtPrintState& s = State(context);
    if (s.pagesStarted++ > 0) s.device->newPage();
}

void EndPage(void*) {}

void EndDoc(void* context) {
    QtPrintState& s = State(context);
    s.painter.end();
}

void Close(void* context) {
    QtPrintState& s = State(context);
    if (s.ownsDevice) delete s.device;
    s.device = nullptr;
    if (s.ownsSelf) delete &s;
}

QWidget* gPrintParent = nullptr;

int OpenPrintJob(void*, PrintJob* job) {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    QPrintDialog dialog(printer.get(), gPrintParent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    dialog.setOption(QAbstractPrintDialog::PrintSelection, false);
    dialog.setOption(QAbstractPrintDialog::PrintCollateCopies, false);
    printer->setCopyCount(1);
    if (dialog.exec() != QDialog::Accepted) return 0;
    auto* state = new QtPrintState;
    state->device = printer.release();
    state->ownsDevice = true;
    state->ownsSelf = true;
    *job = MakeQtPrintJob(*state);
    return 1;
}

} // namespace

PrintJob MakeQtPrintJob(QtPrintState& state) {
    PrintJob job;
    job.canvas = MakeQtCanvas(state.canvas, state.painter);
    job.context = &state;
    job.StartDoc = StartDoc;
    job.StartPage = StartPage;
    job.EndPage = EndPage;
    job.EndDoc = EndDoc;
    job.Close = Close;
    return job;
}

void InstallQtPrinting(QWidget* window) {
    gPrintParent = window;
    gOpenPrintJob = OpenPrintJob;
}
