#include "gui/main_window.h"

#include "gui/about_box.h"
#include "gui/choose_curve_dialog.h"
#include "gui/curve_style_dialog.h"
#include "gui/plot_widget.h"
#include "gui/qt_canvas.h"
#include "gui/qt_host.h"
#include "gui/qt_print.h"
#include "gui/temperature_window.h"
#include "ui/command_table.h"
#include "ui/main_state.h"
#include "ui/main_window_calls.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEvent>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QStatusBar>
#include <QTimer>
#include <QUrl>

#include <string>
#include <vector>

namespace {

VantrelMainWindow* Window(void* window) {
    return static_cast<VantrelMainWindow*>(window);
}

// The tool windows are the top-level windows that the main window owns.
void TellToolWindows(QWidget* owner) {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w != owner && w->parentWidget() == owner)
            QApplication::postEvent(w, new QEvent(QEvent::Type(kToolWindowUpdateEvent)));
}

void QtRefresh(void* window) {
    VantrelMainWindow* w = Window(window);
    if (!w) return;
    w->Plot()->RequestRepaint();
    TellToolWindows(w);
}
// The title is the program name, or "Vantrel -- " and the file's path: a file name's bytes.
void QtSetTitle(void* window, const char* title) {
    if (Window(window)) Window(window)->setWindowTitle(PathToQt(title));
}
void QtDestroy(void* window) {
    VantrelMainWindow* w = Window(window);
    if (!w) return;
    w->closing = true;
    w->close();
}
void QtAbout(void* window) {
    ShowAboutBox(Window(window));
}
int QtChooseCurve(void* window, int initial) {
    return RunChooseCurveDialog(Window(window), initial);
}
int QtCurveStyle(void* window, int slot) {
    return RunCurveStyleDialog(Window(window), slot);
}
void QtUpdateMenus(void* window) {
    if (Window(window)) Window(window)->UpdateMenus();
}
void QtOpenToolWindow(void* window, int command, int layout) {
    if (command == IDM_TEMPERATURE) OpenTemperatureWindow(Window(window), layout);
}
void QtCloseToolWindow(void*, int command) {
    if (command == IDM_TEMPERATURE) CloseTemperatureWindow();
}
// The modifiers of the key or click that triggered the action.
int QtShiftDown(void*) {
    return (QApplication::keyboardModifiers() & Qt::ShiftModifier) != 0;
}

const MainWindowCalls kQtWindowCalls = {
    .Refresh = QtRefresh,
    .SetTitle = QtSetTitle,
    .Destroy = QtDestroy,
    .About = QtAbout,
    .ChooseCurve = QtChooseCurve,
    .CurveStyle = QtCurveStyle,
    .UpdateMenus = QtUpdateMenus,
    .OpenToolWindow = QtOpenToolWindow,
    .CloseToolWindow = QtCloseToolWindow,
    .ShiftDown = QtShiftDown,
};

QList<QKeySequence> KeysOf(const CommandRow& row) {
    QList<QKeySequence> keys;
    if (!row.keys) return keys;
    for (const QString& k : QString(row.keys).split('|'))
        keys << QKeySequence::fromString(k, QKeySequence::PortableText);
    return keys;
}

} // namespace

VantrelMainWindow::VantrelMainWindow(QWidget* parent) : QMainWindow(parent) {
    setWindowTitle(gProgramName);
    setMinimumSize(200, 150);
    setAcceptDrops(true);
    plot_ = new PlotWidget(this);
    setCentralWidget(plot_);
    // Four panes: the last three 100 pixels wide, the first takes the rest.
    for (int i = 0; i < 4; ++i) {
        panes_[i] = new QLabel(this);
        if (i == 0)
            statusBar()->addWidget(panes_[i], 1);
        else {
            panes_[i]->setFixedWidth(100);
            statusBar()->addPermanentWidget(panes_[i]);
        }
    }
    panes_[0]->setText(QString("%1 - superconducting device measurements").arg(gProgramName));
    BuildMenus();
    resize(900, 640);
}

VantrelMainWindow::~VantrelMainWindow() {
    if (&MainWindow() == &kQtWindowCalls) SetMainWindowCalls(nullptr);
}

void VantrelMainWindow::Install() {
    SetMainWindowCalls(&kQtWindowCalls);
    InstallQtHost(this);
    InstallQtPrinting(this);
    SetQtStatusPanes(panes_, 4);
}

void VantrelMainWindow::BuildMenus() {
    std::map<std::string, QMenu*> menus;
    for (unsigned m = 0; m < gMenuCount; ++m)
        menus[gMenuTitles[m]] = menuBar()->addMenu(gMenuTitles[m]);
    std::map<std::string, QMenu*> submenus;
    for (unsigned i = 0; i < gCommandCount; ++i) {
        const CommandRow& row = gCommandTable[i];
        QMenu* menu = nullptr;
        if (!(row.flags & CMD_HIDDEN)) {
            menu = menus[row.menu];
            if (row.flags & CMD_SEPARATOR) menu->addSeparator();
            if (row.submenu) {
                std::string key = std::string(row.menu) + "/" + row.submenu;
                if (!submenus[key]) submenus[key] = menu->addMenu(row.submenu);
                menu = submenus[key];
            }
        }
        // The text keeps its tab: Qt shows what follows it as the key, as the menu always did.
        auto* action = new QAction(TextFromStored(row.text), this);
        action->setShortcuts(KeysOf(row));
        action->setCheckable((row.flags & CMD_CHECKABLE) != 0);
        int number = row.number;
        connect(action, &QAction::triggered, this,
                [this, number] { CommandDispatch(this, number); });
        if (menu)
            menu->addAction(action);
        else
            addAction(action); // keys of hidden commands still reach the window
        actions_[number] = action;
    }
    UpdateMenus();
}

void VantrelMainWindow::UpdateMenus() {
    for (auto& [number, action] : actions_) {
        action->setEnabled(IsCommandEnabled(number));
        if (action->isCheckable()) action->setChecked(IsCommandChecked(number) != 0);
    }
}

QAction* VantrelMainWindow::Action(int command) const {
    auto it = actions_.find(command);
    return it == actions_.end() ? nullptr : it->second;
}

void VantrelMainWindow::PostCommand(int command) {
    QTimer::singleShot(0, this, [this, command] { CommandDispatch(this, command); });
}

void VantrelMainWindow::closeEvent(QCloseEvent* event) {
    if (closing) {
        event->accept();
        return;
    }
    // The close box is Exit: it asks about unsaved data, and Exit closes again when agreed.
    event->ignore();
    CommandDispatch(this, IDM_EXIT);
}

void VantrelMainWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void VantrelMainWindow::dropEvent(QDropEvent* event) {
    std::vector<QByteArray> names;
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile()) names.push_back(PathFromQt(url.toLocalFile()));
    std::vector<const char*> paths;
    for (const QByteArray& n : names)
        paths.push_back(n.constData());
    if (!paths.empty() && DropFiles(this, paths.data(), int(paths.size())))
        event->acceptProposedAction();
}

void PostCommandToMainWindow(void* window, int command) {
    Window(window)->PostCommand(command);
}
