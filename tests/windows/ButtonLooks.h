// Buttons drawn alone, in the looks that the tests begin with.
#pragma once

#include "controls/TavrelButton.h"
#include "windows/Looks.h"

namespace gui {

constexpr COLORREF kMagenta = RGB(255, 0, 255); // the ground of Drawn
constexpr COLORREF kRed = RGB(255, 0, 0);

inline Pixels Draw(int width, int height, const TavrelButtonState& state, COLORREF ground = kMagenta) {
    return Drawn(
        width, height,
        [&](HDC dc) {
            DrawTavrelButton(dc, {0, 0, width, height}, state);
        },
        ground);
}

// The design's neutral button, without a caption.
inline TavrelButtonState Neutral() {
    TavrelButtonState state;
    state.BackColor = palette::NeutralBack;
    state.ForeColor = palette::Ink;
    state.XPDefaultColors = false;
    state.XPColor_Hover = palette::HoverNeutral;
    state.XPColor_Pressed = palette::FocusNeutral;
    return state;
}

inline TavrelButtonState FlatOn(OleColour back) {
    TavrelButtonState state;
    state.ButtonStyle = kStyleFlat;
    state.BackColor = back;
    return state;
}

} // namespace gui
