// The fixed text dialog through the Qt host, and the window's menu under the menu helpers.
#include "gui/fixed_text_dialog.h"
#include "gui/main_window.h"
#include "gui/qt_host.h"
#include "gui/window_menu.h"
#include "gui_app.h"
#include "ui/command_table.h"

#include <QAction>
#include <QCoreApplication>
#include <QFont>
#include <QPlainTextEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace {

// Read only, in one 8 point font that asks for fixed pitch, shared while a dialog is open.
TEST(FixedTextDialog, ShowsTextReadOnlyInOneSharedFixedPitchFont) {
    App();
    QWidget owner;
    QtHostTable().ShowFixedText(&owner, "Table \xB5", "I\t\xB5V\r\n1\t2\r\n");
    ShowFixedTextDialog(&owner, "Second", "x");
    QList<FixedTextDialog*> dialogs = owner.findChildren<FixedTextDialog*>();
    ASSERT_EQ(2, dialogs.size());
    QPlainTextEdit* edit = dialogs[0]->Control(kFixedTextControl);
    ASSERT_NE(nullptr, edit);
    EXPECT_EQ(nullptr, dialogs[0]->Control(kFixedTextControl - 1));
    EXPECT_EQ(std::tuple(dialogs[0]->windowTitle(), edit->toPlainText(), edit->isReadOnly(),
                         edit->font().styleHint(), edit->font().pointSize()),
              std::tuple(QString::fromUtf8("Table µ"), QString::fromUtf8("I\tµV\n1\t2\n"), true,
                         QFont::Monospace, 8));
    ASSERT_EQ(2, FixedTextFontUsers());
    for (FixedTextDialog* d : dialogs)
        EXPECT_EQ(*FixedTextFont(), d->property("PROP_FONT").value<QFont>());
    for (int open : {1, 0}) {
        dialogs[1 - open]->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_EQ(std::tuple(FixedTextFontUsers(), FixedTextFont() != nullptr,
                             owner.findChildren<FixedTextDialog*>().size()),
                  std::tuple(open, open == 1, open));
    }
}

TEST(FixedTextDialog, WindowMenuGreysAndEnablesItemsByNumber) {
    App();
    VantrelMainWindow w;
    const int ids[] = {gCommandTable[0].number, gCommandTable[1].number, -7};
    Menu menu = QtWindowMenu(&w);
    EnableMenuItems(&menu, ids, 3, MF_GRAYED);
    EXPECT_FALSE(w.Action(ids[0])->isEnabled() || w.Action(ids[1])->isEnabled());
    EnableMenuItems(&menu, ids, 1, MF_ENABLED);
    EXPECT_TRUE(w.Action(ids[0])->isEnabled() && !w.Action(ids[1])->isEnabled());
}

} // namespace
