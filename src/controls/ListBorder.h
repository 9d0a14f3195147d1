// The border of the lists: a hair line round rows and scroll bars.
#pragma once

#include "controls/Control.h"

namespace ListBorder {
void Draw(HDC dc, const RECT& place, int dpi, bool enabled);
// Deals with the messages that make the border, for the control's Message entry.
bool Message(Control& list, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
// For the control's Changed entry.
void Changed(Control& list, Change what);
} // namespace ListBorder
