// What the boxes with a list that drops down share.
#pragma once

#include "controls/Control.h"

namespace ComboField {

bool Dropped(const Control& combo);
// Left to itself, an open list whose box changes its font, size or place goes on holding the
// mouse unseen.
void Close(const Control& combo);
// For CBN_CLOSEUP: a press that opened the list and is held still ends with it, else its release
// gives the mouse to the unseen list.
void EndPress(const Control& combo);
// Opens or closes the list.
void Toggle(const Control& combo);
// For the control's Place entry: makes the closed box as high as pixels, and the dropped
// list long enough for the given number of entries.
void Place(Control& combo, const RECT& pixels, int entries);

// The look of an entry of the dropped list.
void DrawEntry(HDC dc, const RECT& place, std::u16string_view text, HFONT font, bool selected, int dpi);

// What screen readers are told.
LONG State(const Control& combo);
template <class Combo>
constexpr AccessibleTable Accessible() {
    return {
        .Role = ROLE_SYSTEM_COMBOBOX,
        .State = [](void* self, int) { return State(static_cast<Combo*>(self)->Base); },
        .Value = [](void* self, int) { return static_cast<Combo*>(self)->Text(); },
        .DefaultAction =
            [](void* self, int) {
                return std::u16string(Dropped(static_cast<Combo*>(self)->Base) ? u"Close" : u"Open");
            },
        .DoDefault = [](void* self, int) { Toggle(static_cast<Combo*>(self)->Base); },
    };
}

} // namespace ComboField
