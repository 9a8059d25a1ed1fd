// vantrel-cli print: a data file printed as the window prints it, into a PDF file, with the page
// setup and printing options of the settings and -set:Print/Key=value for this run.
#ifdef VANTREL_HAVE_GUI
#include "cli_startup.h"
#include "cli_verbs.h"
#include "curve/undo.h"
#include "files/data_file.h"
#include "gui/qt_print.h"
#include "gui/qt_text.h"
#include "support/bounded_text.h"
#include "support/cmdline.h"
#include "ui/main_state.h"
#include "ui/print_page.h"

#include <QGuiApplication>
#include <QPageSize>
#include <QPdfWriter>

#include <cstdio>

int RunPrintVerb(int argc, char** argv) {
    const char* in = Positional(2);
    char out[4096] = "";
    if (!in || !FindSwitch("o:", out, sizeof out) || !out[0]) {
        std::fprintf(stderr, "usage: vantrel-cli print FILE -o:OUT.pdf [-i:vtl.ini] "
                             "[-set:Print/Key=value ...]\n");
        return 2;
    }
    // Fonts, not a display.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    // The settings as the window has them: the options blocks print what they hold.
    if (int status = CliStartInstrument(true)) return status;
    if (OpenDataFile(nullptr, in, 0) < 0) {
        std::fprintf(stderr, "vantrel-cli print: can't read %s\n", in);
        return 1;
    }
    BoundedCopy(gCurrentFileName, in);

    QPdfWriter pdf(PathToQt(out));
    pdf.setPageSize(QPageSize(QPageSize::A4));
    pdf.setResolution(300);
    pdf.setCreator("Vantrel");
    QtPrintState state;
    state.device = &pdf;
    PrintJob job = MakeQtPrintJob(state);
    if (!PrintOnJob(job, gCurves)) {
        std::fprintf(stderr, "vantrel-cli print: can't write %s\n", out);
        return 1;
    }
    std::printf("%s -> %s: %u curves, %d page(s)\n", in, out, gCurves.count, state.pagesStarted);
    return 0;
}
#endif
