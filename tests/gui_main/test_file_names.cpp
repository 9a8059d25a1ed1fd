// File names cross into Qt and back as the file system's bytes, never as Windows-1252 text.
#include "common/test_support.h"
#include "curve/undo.h"
#include "files/data_file.h"
#include "files/data_file_options.h"
#include "gui/main_window.h"
#include "gui/qt_text.h"
#include "gui_app.h"
#include "ui/main_state.h"
#include "ui/main_window_calls.h"

#include <QApplication>
#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

TEST(GuiFileNames, APairInAFolderWithLettersBeyondAsciiOpensSavesAndTitlesTheWindow) {
    App();
    TempDir dir;
    const QString folder = QString::fromUtf8(dir.Path().c_str()) + "/Messung_Größe_µ";
    const QByteArray bytes = folder.toUtf8(); // what the file system holds under C.UTF-8
    ASSERT_TRUE(QDir().mkpath(folder));
    gCurves.Reset();
    gCurves.SetCurveCount(1);
    gCurves.GetCurve(0).Resize(3);
    ASSERT_EQ(WriteDataPairQuiet((bytes + "/Größe.dat").constData()), DATA_PAIR_DONE);
    fShowOptionsOnLoad = fShowOptionsOnSave = 0;
    fDataSaved = 1;
    gCurves.Reset();

    VantrelMainWindow w;
    w.Install();
    // The file dialogs hand their choice through PathFromQt, the window shows it through
    // PathToQt; a drop (below) takes the same way in as a dialog.
    EXPECT_EQ(PathFromQt(folder + "/Größe.dat"), bytes + "/Größe.dat");
    EXPECT_EQ(PathToQt((bytes + "/Größe.dat").constData()), folder + "/Größe.dat");
    ASSERT_GE(OpenDataFile(&w, (bytes + "/Größe.dat").constData(), 0), 0);
    EXPECT_EQ(gCurves.count, 1u);
    EXPECT_EQ(QByteArray(gCurrentFileName), bytes + "/Größe.dat");
    EXPECT_EQ(w.windowTitle(), "Vantrel -- " + folder + "/Größe.dat");
    ASSERT_GE(SaveDataFile(&w, (bytes + "/µ-Kopie.dat").constData()), 0);
    EXPECT_EQ(ReadWholeFile((bytes + "/µ-Kopie.dat").constData()),
              ReadWholeFile((bytes + "/Größe.dat").constData()));
    EXPECT_FALSE(ReadWholeFile((bytes + "/µ-Kopie.ini").constData()).empty());
    EXPECT_EQ(w.windowTitle(), "Vantrel -- " + folder + "/µ-Kopie.dat");

    // A dropped file arrives as a URL and reaches the reader with its bytes.
    gCurves.Reset();
    QMimeData mime;
    mime.setUrls({QUrl::fromLocalFile(folder + "/Größe.dat")});
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    static_cast<QObject&>(w).event(&drop); // straight to the window, with no drag behind it
    EXPECT_EQ(gCurves.count, 1u);
    EXPECT_EQ(w.windowTitle(), "Vantrel -- " + folder + "/Größe.dat");
    ResetDataFileOptions();
    // Stored text keeps its own code page: 0xB5 is the micro sign, 0x80 the euro.
    EXPECT_EQ(TextFromStored("\xB5\x80"), QString::fromUtf8("µ€"));
    EXPECT_EQ(StoredFromText(QString::fromUtf8("µ€ž\u0081\u4e00")),
              QByteArray("\xB5\x80\x9E\x81?"));
}
