// The fixed text dialog through the Qt host, and the window's menu under the menu helpers.
#include "gui/fixed_text_dialog.h"
#include "gui/main_window.h"
#include "gui/qt_host.h"
#include "gui/window_menu.h"
#include "gui_app.h"
#include "ui/command_table.h"

#include <QAction>
#include <QCoreApplication>
#include <QFontInfo>
#include <QPlainTextEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace {

TEST(FixedTextDialog, ShowsTextReadOnlyInOneSharedFixedPitchFont) {
    App();
    QWidget owner;
    owner.setGeometry(100, 120, 900, 700);
    owner.show();
    QtHostTable().ShowFixedText(&owner, "Table \xB5", "I\t\xB5V\r\n1\t2\r\n");
    ShowFixedTextDialog(&owner, "Second", "x");
    QList<FixedTextDialog*> dialogs = owner.findChildren<FixedTextDialog*>();
    ASSERT_EQ(2, dialogs.size());
    FixedTextDialog* first = dialogs[0];
    EXPECT_EQ(QString::fromUtf8("Table µ"), first->windowTitle());
    EXPECT_EQ(nullptr, first->Control(kFixedTextControl - 1));
    QPlainTextEdit* edit = first->Control(kFixedTextControl);
    ASSERT_NE(nullptr, edit);
    EXPECT_EQ(QString::fromUtf8("I\tµV\n1\t2\n"), edit->toPlainText());
    EXPECT_TRUE(edit->isReadOnly());
    EXPECT_TRUE(QFontInfo(edit->font()).fixedPitch());
    EXPECT_EQ(8, edit->font().pointSize());
    EXPECT_LE((first->frameGeometry().center() - owner.frameGeometry().center()).manhattanLength(),
              2);

    // One font for both, kept on each window while it is open.
    ASSERT_EQ(2, FixedTextFontUsers());
    for (FixedTextDialog* d : dialogs)
        EXPECT_EQ(*FixedTextFont(), d->property("PROP_FONT").value<QFont>());

    first->resize(first->width() + 120, first->height() + 50);
    QRect e = edit->geometry();
    EXPECT_EQ(e.left(), e.top());
    EXPECT_EQ(e.left(), first->width() - 1 - e.right());
    EXPECT_EQ(e.top(), first->height() - 1 - e.bottom());

    first->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(1, FixedTextFontUsers());
    EXPECT_NE(nullptr, FixedTextFont());
    dialogs[1]->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(owner.findChildren<FixedTextDialog*>().isEmpty());
    EXPECT_EQ(0, FixedTextFontUsers());
    EXPECT_EQ(nullptr, FixedTextFont());
}

TEST(FixedTextDialog, WindowMenuGreysAndEnablesItemsByNumber) {
    App();
    VantrelMainWindow w;
    const int ids[] = {gCommandTable[0].number, gCommandTable[1].number, -7};
    Menu menu = QtWindowMenu(&w);
    EnableMenuItems(&menu, ids, 3, MF_GRAYED);
    EXPECT_FALSE(w.Action(ids[0])->isEnabled() || w.Action(ids[1])->isEnabled());
    EnableMenuItems(&menu, ids, 1, MF_ENABLED);
    EXPECT_TRUE(w.Action(ids[0])->isEnabled());
    EXPECT_FALSE(w.Action(ids[1])->isEnabled());
}

} // namespace
