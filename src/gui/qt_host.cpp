#include "gui/qt_host.h"

#include "gui/fixed_text_dialog.h"
#include "gui/font_chooser.h"
#include "gui/pen_dialog.h"
#include "gui/qt_canvas.h"
#include "gui/setup_dialog.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>
#include <QProgressDialog>
#include <QScreen>
#include <QStatusBar>
#include <QThread>
#include <QWidget>
#ifdef VANTREL_HAVE_MULTIMEDIA
#include <QSoundEffect>
#include <QUrl>
#endif

#include <condition_variable>
#include <cstring>
#include <mutex>
#include <utility>

namespace {

QPointer<QWidget> gWindow;
QLabel* gPanes[4] = {};
int gPaneCount = 0;
QProgressDialog* gProgress = nullptr;

bool OnGuiThread() {
    return QThread::currentThread() == qApp->thread();
}

// Runs f on the interface thread; the caller waits when it is another thread, on its own lock
// rather than on Qt's blocking connection, so that f's writes come before the caller's reads in
// an order ThreadSanitizer sees.
template <typename F> void OnGui(F f, bool wait) {
    if (OnGuiThread()) {
        f();
        return;
    }
    if (!wait) {
        QMetaObject::invokeMethod(qApp, std::move(f), Qt::QueuedConnection);
        return;
    }
    std::mutex lock;
    std::condition_variable ended;
    bool done = false;
    auto call = [&] {
        f();
        std::lock_guard<std::mutex> hold(lock);
        done = true;
        ended.notify_one();
    };
    QMetaObject::invokeMethod(qApp, call, Qt::QueuedConnection);
    std::unique_lock<std::mutex> hold(lock);
    ended.wait(hold, [&] { return done; });
}

QMessageBox::Icon IconOf(unsigned flags) {
    switch (flags & MB_ICONMASK) {
    case MB_ICONSTOP:
        return QMessageBox::Critical;
    case MB_ICONQUESTION:
        return QMessageBox::Question;
    case MB_ICONWARNING:
        return QMessageBox::Warning;
    case MB_ICONINFORMATION:
        return QMessageBox::Information;
    }
    return QMessageBox::NoIcon;
}

struct ButtonSpec {
    QMessageBox::StandardButton button;
    int id;
};

// The buttons of each box type in their order, with the answer each gives.
std::vector<ButtonSpec> ButtonsOf(unsigned flags) {
    switch (flags & MB_TYPEMASK) {
    case MB_OKCANCEL:
        return {{QMessageBox::Ok, IDOK}, {QMessageBox::Cancel, IDCANCEL}};
    case MB_ABORTRETRYIGNORE:
        return {{QMessageBox::Abort, IDABORT},
                {QMessageBox::Retry, IDRETRY},
                {QMessageBox::Ignore, IDIGNORE}};
    case MB_YESNOCANCEL:
        return {
            {QMessageBox::Yes, IDYES}, {QMessageBox::No, IDNO}, {QMessageBox::Cancel, IDCANCEL}};
    case MB_YESNO:
        return {{QMessageBox::Yes, IDYES}, {QMessageBox::No, IDNO}};
    case MB_RETRYCANCEL:
        return {{QMessageBox::Retry, IDRETRY}, {QMessageBox::Cancel, IDCANCEL}};
    }
    return {{QMessageBox::Ok, IDOK}};
}

int ShowBox(const char* text, const char* caption, unsigned flags) {
    QMessageBox box(IconOf(flags), TextFromStored(caption ? caption : ""),
                    TextFromStored(text ? text : ""), QMessageBox::NoButton, gWindow);
    std::vector<ButtonSpec> buttons = ButtonsOf(flags);
    for (const ButtonSpec& b : buttons)
        box.addButton(b.button);
    size_t def = (flags & MB_DEFMASK) >> 8;
    if (def < buttons.size()) box.setDefaultButton(buttons[def].button);
    box.exec();
    QAbstractButton* clicked = box.clickedButton();
    for (const ButtonSpec& b : buttons)
        if (clicked == box.button(b.button)) return b.id;
    // Closed with Escape or the close box: Cancel where there is one, as the platform did.
    for (const ButtonSpec& b : buttons)
        if (b.id == IDCANCEL) return IDCANCEL;
    return buttons.size() == 1 ? IDOK : buttons.back().id;
}

int QtMessageBox(void*, const char* text, const char* caption, unsigned flags) {
    int answer = IDCANCEL;
    OnGui([&] { answer = ShowBox(text, caption, flags); }, true);
    return answer;
}

void QtBeep(unsigned) {
    OnGui([] { QApplication::beep(); }, false);
}

void QtPlaySound(const char* path) {
#ifdef VANTREL_HAVE_MULTIMEDIA
    QString file = PathToQt(path);
    OnGui(
        [file] {
            if (!QFileInfo::exists(file)) return; // a missing sound is ignored
            auto* effect = new QSoundEffect(qApp);
            QObject::connect(effect, &QSoundEffect::playingChanged, effect, [effect] {
                if (!effect->isPlaying()) effect->deleteLater();
            });
            effect->setSource(QUrl::fromLocalFile(file));
            effect->play();
        },
        false);
#else
    (void)path;
#endif
}

void QtSetStatusText(int pane, const char* text) {
    QString t = TextFromStored(text ? text : "");
    OnGui(
        [pane, t] {
            if (pane >= 0 && pane < gPaneCount && gPanes[pane]) gPanes[pane]->setText(t);
        },
        false);
}

void QtWaitCursor(int on) {
    OnGui(
        [on] {
            if (on)
                QApplication::setOverrideCursor(Qt::WaitCursor);
            else if (QApplication::overrideCursor())
                QApplication::restoreOverrideCursor();
        },
        false);
}

int QtRunSetupDialog(SetupTable* table, const char* caption) {
    int result = 0;
    OnGui([&] { result = RunQtSetupDialog(table, caption, gWindow); }, true);
    return result;
}

// "Text|pattern|Text|pattern" to Qt's "Text (pattern);;..."; a text without its pattern is
// kept as it stands, which is how the open filter has always ended.
QString QtFilter(const char* filter) {
    QStringList parts = TextFromStored(filter ? filter : "").split('|');
    QStringList out;
    for (int i = 0; i < parts.size(); i += 2) {
        QString text = parts[i];
        if (i + 1 < parts.size() && !text.contains('(' + parts[i + 1] + ')'))
            text += " (" + parts[i + 1] + ')';
        out << text;
    }
    return out.join(";;");
}

int QtFileDialog(int save, const char* title, const char* filter, char* path, size_t size) {
    int result = 0;
    OnGui(
        [&] {
            QString start = PathToQt(path);
            QString t = TextFromStored(title ? title : "");
            QString chosen =
                save ? QFileDialog::getSaveFileName(gWindow, t.isEmpty() ? "Save As" : t, start,
                                                    QtFilter(filter))
                     : QFileDialog::getOpenFileName(gWindow, t.isEmpty() ? "Open" : t, start,
                                                    QtFilter(filter));
            QByteArray bytes = PathFromQt(chosen);
            if (chosen.isEmpty() || size_t(bytes.size()) >= size) return;
            std::memcpy(path, bytes.constData(), size_t(bytes.size()) + 1);
            result = 1;
        },
        true);
    return result;
}

void QtProgress(int percent, const char* text) {
    QString t = TextFromStored(text ? text : "");
    OnGui(
        [percent, t] {
            if (percent < 0) {
                delete gProgress;
                gProgress = nullptr;
                return;
            }
            if (!gProgress) {
                gProgress = new QProgressDialog(gWindow);
                gProgress->setCancelButton(nullptr);
                gProgress->setRange(0, 100);
                gProgress->setMinimumDuration(500);
            }
            gProgress->setLabelText(t);
            gProgress->setValue(percent > 100 ? 100 : percent);
        },
        false);
}

QWidget* TopLevel(void* window) {
    auto* w = static_cast<QWidget*>(window);
    return w ? w->window() : gWindow.data();
}

void QtGetWindowRect(void* window, int rect[4]) {
    OnGui(
        [&] {
            QWidget* w = TopLevel(window);
            QRect r = w ? w->frameGeometry() : QRect(0, 0, 640, 480);
            rect[0] = r.left();
            rect[1] = r.top();
            rect[2] = r.right();
            rect[3] = r.bottom();
        },
        true);
}

void QtMoveWindow(void* window, const int rect[4]) {
    int r[4] = {rect[0], rect[1], rect[2], rect[3]};
    OnGui(
        [&] {
            QWidget* w = TopLevel(window);
            if (!w) return;
            // The rectangle is the frame; Qt sizes the client, so take the frame's margins off.
            QRect frame = w->frameGeometry(), client = w->geometry();
            int dw = frame.width() - client.width(), dh = frame.height() - client.height();
            w->move(r[0], r[1]);
            w->resize(std::max(1, r[2] - r[0] - dw), std::max(1, r[3] - r[1] - dh));
            w->show();
        },
        true);
}

void QtGetDesktopRect(int rect[4]) {
    OnGui(
        [&] {
            QScreen* s = QGuiApplication::primaryScreen();
            QRect r = s ? s->availableGeometry() : QRect(0, 0, 1024, 768);
            rect[0] = r.left();
            rect[1] = r.top();
            rect[2] = r.right();
            rect[3] = r.bottom();
        },
        true);
}

// The choosers open over the dialog that asked for them, else over the given window.
QWidget* ChooserParent(void* window) {
    QWidget* modal = QApplication::activeModalWidget();
    return modal ? modal : TopLevel(window);
}

int QtChooseFont(void* window, GFont* font) {
    int result = 0;
    OnGui([&] { result = RunQtFontChooser(font, ChooserParent(window)); }, true);
    return result;
}

int QtChoosePen(void* window, const char* caption, GPen* pen) {
    int result = 0;
    OnGui([&] { result = RunQtPenDialog(pen, caption, ChooserParent(window)); }, true);
    return result;
}

// Modeless: the caller, perhaps the measurement thread, does not wait for it.
void QtShowFixedText(void* owner, const char* caption, const char* text) {
    QByteArray c(caption ? caption : ""), t(text ? text : "");
    OnGui([owner, c, t] { ShowFixedTextDialog(TopLevel(owner), c.constData(), t.constData()); },
          false);
}

const HostTable kQtHost = {
    .MessageBox = QtMessageBox,
    .Beep = QtBeep,
    .PlaySound = QtPlaySound,
    .SetStatusText = QtSetStatusText,
    .WaitCursor = QtWaitCursor,
    .RunSetupDialog = QtRunSetupDialog,
    .FileDialog = QtFileDialog,
    .Progress = QtProgress,
    .GetWindowRect = QtGetWindowRect,
    .MoveWindow = QtMoveWindow,
    .GetDesktopRect = QtGetDesktopRect,
    .ChooseFont = QtChooseFont,
    .ChoosePen = QtChoosePen,
    .ShowFixedText = QtShowFixedText,
};

} // namespace

const HostTable& QtHostTable() {
    return kQtHost;
}

void InstallQtHost(QWidget* window) {
    gWindow = window;
    SetHost(&kQtHost);
}

void SetQtStatusPanes(QLabel* const* panes, int count) {
    gPaneCount = count > 4 ? 4 : count;
    for (int i = 0; i < gPaneCount; ++i)
        gPanes[i] = panes[i];
}

QWidget* QtHostWindow() {
    return gWindow;
}
