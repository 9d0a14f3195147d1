// What the two rich edit boxes share: a box of plain text in one font, of any length.
#pragma once

#include "controls/Control.h"

namespace RichField {

// The library that has the system's window class, which must be there before the first box.
void LoadClass();

// Line ends are CR LF. What is set may have any of CR, LF and CR LF, and ends at a NUL.
std::u16string Text(const Control& box);
void Text(Control& box, const std::u16string& text);

// Entries of the box's table.
void Created(Control& box);
bool Message(Control& box, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
void Changed(Control& box, Change what);
LONG State(const Control& box);

template <class Box>
constexpr AccessibleTable kAccessible{
    .Role = ROLE_SYSTEM_TEXT,
    .State = [](void* self, int) { return State(static_cast<Box*>(self)->Base); },
    .Value = [](void* self, int) { return Text(static_cast<Box*>(self)->Base); },
};

// The table of a box that has nothing of its own in it.
template <class Box>
constexpr ControlKind Kind(std::u16string_view typeName, std::u16string_view layoutKinds) {
    return {
        .TypeName = typeName,
        .LayoutKinds = layoutKinds,
        .WindowClass = L"RICHEDIT50W",
        .Style = ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL | ES_NOHIDESEL | WS_VSCROLL,
        .Focusable = true,
        .TakesLabel = true,
        .Created = [](void* self) { Created(static_cast<Box*>(self)->Base); },
        .Message =
            [](void* self, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
                return Message(static_cast<Box*>(self)->Base, message, wParam, lParam, result);
            },
        .Changed = [](void* self, Change what) { Changed(static_cast<Box*>(self)->Base, what); },
        .WantsKey = [](void*, WPARAM key) { return key == VK_RETURN; },
        .Accessible = &kAccessible<Box>,
    };
}

} // namespace RichField
