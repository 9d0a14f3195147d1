// The border of the fields that hold text: boxes, and what else wraps a control of the
// system. It lies outside the text, so that the text does not move when the focus comes.
#pragma once

#include "controls/Control.h"

struct FieldState {
    bool Focused = false;
    bool Enabled = true;
};

namespace FieldFrame {
// Border and ground of a field. Nothing is drawn over what the context clips away.
void Draw(HDC dc, const RECT& place, int dpi, FieldState state);
COLORREF Ground(bool enabled);
COLORREF Ink(bool enabled);

// Deals with the messages that make the border, for the control's Message entry. With
// oneLine the text stands in the middle of the height.
bool Message(Control& field, bool oneLine, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
// For the control's Changed entry: measures and draws the border anew.
void Changed(Control& field, Change what);
// The answer to the reflected WM_CTLCOLOREDIT and WM_CTLCOLORSTATIC.
LRESULT Colours(HDC dc, bool enabled);
} // namespace FieldFrame
