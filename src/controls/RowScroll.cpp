// As the system's own lists do: a notch of the wheel is the number of lines that the user has set, a page at
// most.
//
// Tested by tests/windows/mclistbox_scroll_test.cpp and checklist_input_test.cpp.
#include "controls/RowScroll.h"

#include <algorithm>

namespace RowScroll {

int TopWanted(HWND list, int request, int top, int page, int count) {
    SCROLLINFO thumb{sizeof thumb, SIF_TRACKPOS, 0, 0, 0, 0, 0};
    switch (request) {
    case SB_LINEUP:
        return top - 1;
    case SB_LINEDOWN:
        return top + 1;
    case SB_PAGEUP:
        return top - page;
    case SB_PAGEDOWN:
        return top + page;
    case SB_TOP:
        return 0;
    case SB_BOTTOM:
        return count;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
        // The message itself carries 16 bits only.
        return GetScrollInfo(list, SB_VERT, &thumb) ? thumb.nTrackPos : top;
    default:
        return top;
    }
}

int RowsTurned(int delta, int page, int& rest) {
    UINT lines = 3;
    SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    rest += delta * static_cast<int>(std::min(lines, static_cast<UINT>(page)));
    const int rows = rest / WHEEL_DELTA;
    rest -= rows * WHEEL_DELTA;
    return rows;
}

} // namespace RowScroll
