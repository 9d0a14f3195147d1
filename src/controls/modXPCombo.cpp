// Hands each combo box its skin and colours.
//
// Tested by tests/windows/cxpcombo_test.cpp.
#include "controls/modXPCombo.h"

#include "controls/Control.h"

namespace modXPCombo {

void SetExtendedUI(const Control& combo, bool on) {
    SendMessageW(combo.hWnd(), CB_SETEXTENDEDUI, on, 0);
}

void ApplySkin(cXPCombo& skin, Control& combo, const ColourSet& colours) {
    skin.FrameColorNormal(colours.FrameColorNormal);
    skin.FrameColorHot(colours.FrameColorHot);
    skin.FrameColorDiss(colours.FrameColorDiss);
    skin.CboBackColor(colours.CboBackColor);
    skin.ArrowEnabledColor(colours.ArrowEnabledColor);
    skin.ArrowDisabledColor(colours.ArrowDisabledColor);
    skin.ShowArrow(colours.ShowArrow);
    skin.MakeXP(combo);
}

} // namespace modXPCombo
