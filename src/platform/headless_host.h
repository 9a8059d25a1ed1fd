// The headless host: answers boxes and dialogs from a script, records every box.
#pragma once
#include "platform/host.h"

#include <string>
#include <vector>

struct HeadlessBox {
    std::string caption;
    std::string text;
    unsigned flags = 0;
    int answer = 0;
};

struct HeadlessFixedText {
    void* owner = nullptr;
    std::string caption;
    std::string text;
};

const HostTable& HeadlessHostTable();

// Queues answers for the next boxes, first in first out. A box with no queued answer gets its
// default button (MB_DEFBUTTONn, else the first button of its kind).
void HeadlessScriptAnswer(int id);
// Queues the result of the next setup, file, font or pen dialog (1 OK, 0 Cancel); with none
// queued a setup dialog returns 1 and the others 0. A file dialog takes its path from the
// queue; the font and pen dialogs leave their value as it was.
void HeadlessScriptDialog(int result, const std::string& path = std::string());
// Everything recorded since the last reset.
std::vector<HeadlessBox> HeadlessBoxes();
std::vector<unsigned> HeadlessBeeps();
std::vector<std::string> HeadlessSounds();
std::vector<HeadlessFixedText> HeadlessFixedTexts();
std::string HeadlessStatusText(int pane);
// The one window and the desktop of the headless host, for window position tests.
void HeadlessSetDesktopRect(const int rect[4]);
void HeadlessSetWindowRect(const int rect[4]);
void HeadlessGetWindowRect(int rect[4]);
// Forgets the script and the records.
void HeadlessReset();
// When on, boxes, fixed texts, progress and status lines are printed to standard output
// (vantrel-cli).
void HeadlessSetEcho(bool on);
// The default answer of a box with these flags.
int DefaultButton(unsigned flags);
