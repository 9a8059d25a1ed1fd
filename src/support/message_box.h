// The message box that beeps first: every user message of the system goes through it.
#pragma once
#include "platform/host.h"

// Beeps with the sound of the icon bits of flags (flags & 0x70), then shows the box through the
// installed host and returns the answer (IDOK, IDYES, ...).
int MessageBoxBeep(void* window, const char* text, const char* title, unsigned flags);
