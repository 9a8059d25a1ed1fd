#include "platform/headless_host.h"

#include <cstdio>
#include <deque>
#include <map>
#include <mutex>
#include <utility>

namespace {

struct ScriptedDialog {
    int result;
    std::string path;
};

// The measurement thread reports through the host too, so the records are guarded.
std::mutex gLock;
std::deque<int> gAnswers;
std::deque<ScriptedDialog> gDialogs;
std::vector<HeadlessBox> gBoxes;
std::vector<unsigned> gBeeps;
std::vector<std::string> gSounds;
std::vector<HeadlessFixedText> gFixedTexts;
std::map<int, std::string> gStatus;
bool gEcho = false;
int gDesktopRect[4] = {0, 0, 1920, 1080};
int gWindowRect[4] = {0, 0, 800, 600};

int HeadlessMessageBox(void*, const char* text, const char* caption, unsigned flags) {
    std::lock_guard<std::mutex> hold(gLock);
    HeadlessBox box;
    box.caption = caption ? caption : "";
    box.text = text ? text : "";
    box.flags = flags;
    if (!gAnswers.empty()) {
        box.answer = gAnswers.front();
        gAnswers.pop_front();
    } else {
        box.answer = DefaultButton(flags);
    }
    if (gEcho) {
        std::printf("[%s] %s\n", box.caption.c_str(), box.text.c_str());
        std::fflush(stdout);
    }
    gBoxes.push_back(box);
    return box.answer;
}

void HeadlessBeep(unsigned kind) {
    std::lock_guard<std::mutex> hold(gLock);
    gBeeps.push_back(kind);
}

void HeadlessPlaySound(const char* path) {
    std::lock_guard<std::mutex> hold(gLock);
    gSounds.push_back(path ? path : "");
}

void HeadlessSetStatusText(int pane, const char* text) {
    std::lock_guard<std::mutex> hold(gLock);
    gStatus[pane] = text ? text : "";
}

void HeadlessWaitCursor(int) {}

int HeadlessRunSetupDialog(SetupTable*, const char*) {
    std::lock_guard<std::mutex> hold(gLock);
    if (gDialogs.empty()) return 1;
    int result = gDialogs.front().result;
    gDialogs.pop_front();
    return result;
}

int HeadlessFileDialog(int, const char*, const char*, char* path, size_t size) {
    std::lock_guard<std::mutex> hold(gLock);
    if (gDialogs.empty()) return 0;
    ScriptedDialog d = gDialogs.front();
    gDialogs.pop_front();
    if (d.result && path && size) {
        std::snprintf(path, size, "%s", d.path.c_str());
    }
    return d.result;
}

// The choosers answer like a setup dialog, with Cancel as their default, and leave the value
// as it was: tests that need a choice install their own chooser.
int ScriptedChooser() {
    std::lock_guard<std::mutex> hold(gLock);
    if (gDialogs.empty()) return 0;
    int result = gDialogs.front().result;
    gDialogs.pop_front();
    return result;
}

int HeadlessChooseFont(void*, GFont*) {
    return ScriptedChooser();
}

int HeadlessChoosePen(void*, const char*, GPen*) {
    return ScriptedChooser();
}

// Recorded like a box; printed as its caption in brackets on a line, then the text.
void HeadlessShowFixedText(void* owner, const char* caption, const char* text) {
    std::lock_guard<std::mutex> hold(gLock);
    HeadlessFixedText shown{owner, caption ? caption : "", text ? text : ""};
    if (gEcho) {
        const std::string& t = shown.text;
        std::printf("[%s]\n%s%s", shown.caption.c_str(), t.c_str(),
                    t.empty() || t.back() != '\n' ? "\n" : "");
        std::fflush(stdout);
    }
    gFixedTexts.push_back(std::move(shown));
}

void HeadlessProgress(int percent, const char* text) {
    if (!gEcho) return;
    if (percent >= 0)
        std::printf("%3d%% %s\n", percent, text ? text : "");
    else if (text && *text)
        std::printf("%s\n", text);
    std::fflush(stdout);
}

void HeadlessGetWindowRectOf(void*, int rect[4]) {
    std::lock_guard<std::mutex> hold(gLock);
    for (int k = 0; k < 4; ++k)
        rect[k] = gWindowRect[k];
}

void HeadlessMoveWindow(void*, const int rect[4]) {
    std::lock_guard<std::mutex> hold(gLock);
    for (int k = 0; k < 4; ++k)
        gWindowRect[k] = rect[k];
}

void HeadlessGetDesktopRect(int rect[4]) {
    std::lock_guard<std::mutex> hold(gLock);
    for (int k = 0; k < 4; ++k)
        rect[k] = gDesktopRect[k];
}

const HostTable gHeadless = {
    .MessageBox = HeadlessMessageBox,
    .Beep = HeadlessBeep,
    .PlaySound = HeadlessPlaySound,
    .SetStatusText = HeadlessSetStatusText,
    .WaitCursor = HeadlessWaitCursor,
    .RunSetupDialog = HeadlessRunSetupDialog,
    .FileDialog = HeadlessFileDialog,
    .Progress = HeadlessProgress,
    .GetWindowRect = HeadlessGetWindowRectOf,
    .MoveWindow = HeadlessMoveWindow,
    .GetDesktopRect = HeadlessGetDesktopRect,
    .ChooseFont = HeadlessChooseFont,
    .ChoosePen = HeadlessChoosePen,
    .ShowFixedText = HeadlessShowFixedText,
};

} // namespace

const HostTable& HeadlessHostTable() {
    return gHeadless;
}

int DefaultButton(unsigned flags) {
    static const int first[] = {IDOK, IDOK, IDABORT, IDYES, IDYES, IDRETRY};
    static const int second[] = {IDOK, IDCANCEL, IDRETRY, IDNO, IDNO, IDCANCEL};
    static const int third[] = {IDOK, IDCANCEL, IDIGNORE, IDCANCEL, IDNO, IDCANCEL};
    unsigned type = flags & MB_TYPEMASK;
    if (type > 5) type = 0;
    switch (flags & MB_DEFMASK) {
    case MB_DEFBUTTON2:
        return second[type];
    case MB_DEFBUTTON3:
        return third[type];
    default:
        return first[type];
    }
}

void HeadlessScriptAnswer(int id) {
    std::lock_guard<std::mutex> hold(gLock);
    gAnswers.push_back(id);
}

void HeadlessScriptDialog(int result, const std::string& path) {
    std::lock_guard<std::mutex> hold(gLock);
    gDialogs.push_back({result, path});
}

std::vector<HeadlessBox> HeadlessBoxes() {
    std::lock_guard<std::mutex> hold(gLock);
    return gBoxes;
}

std::vector<unsigned> HeadlessBeeps() {
    std::lock_guard<std::mutex> hold(gLock);
    return gBeeps;
}

std::vector<std::string> HeadlessSounds() {
    std::lock_guard<std::mutex> hold(gLock);
    return gSounds;
}

std::vector<HeadlessFixedText> HeadlessFixedTexts() {
    std::lock_guard<std::mutex> hold(gLock);
    return gFixedTexts;
}

std::string HeadlessStatusText(int pane) {
    std::lock_guard<std::mutex> hold(gLock);
    auto it = gStatus.find(pane);
    return it == gStatus.end() ? std::string() : it->second;
}

void HeadlessReset() {
    std::lock_guard<std::mutex> hold(gLock);
    gAnswers.clear();
    gDialogs.clear();
    gBoxes.clear();
    gBeeps.clear();
    gSounds.clear();
    gFixedTexts.clear();
    gStatus.clear();
}

void HeadlessSetDesktopRect(const int rect[4]) {
    std::lock_guard<std::mutex> hold(gLock);
    for (int k = 0; k < 4; ++k)
        gDesktopRect[k] = rect[k];
}

void HeadlessSetWindowRect(const int rect[4]) {
    HeadlessMoveWindow(nullptr, rect);
}

void HeadlessGetWindowRect(int rect[4]) {
    HeadlessGetWindowRectOf(nullptr, rect);
}

void HeadlessSetEcho(bool on) {
    gEcho = on;
}
