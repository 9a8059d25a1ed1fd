#include "ui/scroll_helper.h"

#include "platform/host.h"
#include "support/debug_check.h"

#include <cstdint>

int ScrollPosition(int request, int thumb, int minimum, int maximum, int page, bool ctrl,
                   int* position) {
    VASSERT(minimum <= maximum);
    if (minimum > maximum) return 0;
    // Wide arithmetic: a Ctrl page on a long range must not wrap round.
    int64_t factor = ctrl ? int64_t(page) * page : 1;
    int64_t target = *position;
    switch (request) {
    case SB_LINEUP:
        target -= factor;
        break;
    case SB_LINEDOWN:
        target += factor;
        break;
    case SB_PAGEUP:
        target -= factor * page;
        break;
    case SB_PAGEDOWN:
        target += factor * page;
        break;
    case SB_THUMBPOSITION:
    case SB_THUMBTRACK:
        target = thumb;
        break;
    case SB_TOP:
        target = minimum;
        break;
    case SB_BOTTOM:
        target = maximum;
        break;
    default:
        break; // SB_ENDSCROLL and the rest only bring the position into range
    }
    if (target < minimum || target > maximum) {
        Host().Beep(BEEP_SIMPLE);
        target = target < minimum ? minimum : maximum;
    }
    int changed = target != *position;
    *position = static_cast<int>(target);
    return changed;
}
