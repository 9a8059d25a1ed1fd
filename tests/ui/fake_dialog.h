// An in-memory dialog for the option-table logic: controls by number, with the state a real
// dialog would keep.
#pragma once
#include "settings/setup_table.h"

#include <map>
#include <string>

struct FakeControl {
    std::string text;
    int check = 0;
    bool isStatic = false;
    bool enabled = true;
    bool shown = true;
    size_t limit = 0;
    int nextRadio = 0; // 0: not a radio button
};

struct FakeDialog {
    std::map<int, FakeControl> controls;
    int beeps = 0;
    int focused = 0;
    int selectedAll = 0;
    int ended = -1; // the result it ended with, -1 while open
    SetupDialog dialog;

    FakeDialog();
    // A radio group of buttons first, first + 1, ... in group order.
    void AddRadioGroup(int first, int count);
};
