// Combo boxes as the forms have them.
#pragma once

#include "controls/cXPCombo.h"

namespace modXPCombo {

// With it the down key opens a closed list, and a press beside the arrow does.
void SetExtendedUI(const Control& combo, bool on);

struct ColourSet {
    OleColour FrameColorNormal, FrameColorHot, FrameColorDiss;
    OleColour CboBackColor, ArrowEnabledColor, ArrowDisabledColor;
    bool ShowArrow;
};
constexpr ColourSet kDesign{palette::FieldBorder, palette::Brand,         palette::Line, palette::Card,
                            palette::Ink,         palette::DisabledArrow, true};

// Gives the skin a whole set of colours and puts it on the combo.
void ApplySkin(cXPCombo& skin, Control& combo, const ColourSet& colours = kDesign);

} // namespace modXPCombo
