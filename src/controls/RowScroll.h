// Scrolling of a list by whole rows: what the scroll bar and the wheel ask for.
#pragma once

#include "base/win.h"

namespace RowScroll {

// The row, from 0, that WM_VSCROLL wants at the top; request is the low word of its wParam, page
// the rows in sight. It may lie outside the list. top itself where nothing is to be scrolled.
int TopWanted(HWND list, int request, int top, int page, int count);
// So many rows up, below zero down, that a turn of the wheel asks for. Fine wheels send parts of
// a notch; rest keeps what does not yet come to a row.
int RowsTurned(int delta, int page, int& rest);

} // namespace RowScroll
