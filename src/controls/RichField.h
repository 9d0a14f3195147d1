// What the two rich edit boxes share: a box of plain text in one font, of any length.
#pragma once

#include "controls/Control.h"

namespace RichField {

// The system's window class, and the library that has it, which must be there first.
constexpr const wchar_t* kWindowClass = L"RICHEDIT50W";
void LoadClass();
constexpr DWORD kStyle = ES_MULTILINE | ES_WANTRETURN | ES_AUTOVSCROLL | ES_NOHIDESEL | WS_VSCROLL;

// Entries of the control's table.
void Created(Control& box);
bool Message(Control& box, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
void Changed(Control& box, Change what);

// Line ends are CR LF. What is set may have any of CR, LF and CR LF, and ends at a NUL.
std::u16string Text(const Control& box);
void Text(Control& box, const std::u16string& text);

// What screen readers are told.
LONG State(const Control& box);
template <class Box>
constexpr AccessibleTable Accessible() {
    return {
        .Role = ROLE_SYSTEM_TEXT,
        .State = [](void* self, int) { return State(static_cast<Box*>(self)->Base); },
        .Value = [](void* self, int) { return Text(static_cast<Box*>(self)->Base); },
    };
}

} // namespace RichField
