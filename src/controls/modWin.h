// Calls on a form's window: drag by any part of it, and its place among the others.
#pragma once

#include "base/win.h"

// Mouse buttons as the events of the controls number them.
enum MouseButton { kLeftButton = 1, kRightButton = 2, kMiddleButton = 4 };

namespace modWin {

// Lets the mouse drag the window as if it held the caption; any other button than the
// left one does nothing. Comes back when the button is released.
void DragWindow(HWND form, int button);

// Above all windows that are not top-most, or among the usual ones again. Neither moves,
// sizes nor activates the window.
void SetTopMost(HWND form);
void SetNotTopMost(HWND form);

} // namespace modWin
