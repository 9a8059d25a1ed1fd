// The scroll helper: turns a scroll bar's request into a new position within limits.
#pragma once

// The requests of a scroll bar, with the numbers of the original platform.
enum : int {
    SB_LINEUP = 0,
    SB_LINEDOWN = 1,
    SB_PAGEUP = 2,
    SB_PAGEDOWN = 3,
    SB_THUMBPOSITION = 4,
    SB_THUMBTRACK = 5,
    SB_TOP = 6,
    SB_BOTTOM = 7,
    SB_ENDSCROLL = 8,
};

// Moves *position for request: a line is 1, a page is page, and with ctrl down either move is
// page squared times larger; the thumb requests go to thumb, top and bottom to the limits.
// A position that would leave [minimum, maximum] stops at the limit with a beep through the
// host. Returns 1 when *position changed. minimum above maximum is a programming error and
// leaves the position alone.
int ScrollPosition(int request, int thumb, int minimum, int maximum, int page, bool ctrl,
                   int* position);
