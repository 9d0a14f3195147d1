// What a screen reader is told about a window.
#pragma once

#include "base/win.h"

#include <ole2.h>
#include <oleacc.h>

#include <string>
#include <vector>

namespace gui {

struct Spoken {
    std::u16string Name, Value, DefaultAction;
    LONG Role = 0, State = 0, Children = 0;
    LONG Focus = -1, Selection = -1; // the child that has it; -1: none
    RECT Place{};                    // on the screen
};
// child 0 is the control, its rows count from 1. On the window's thread.
Spoken Ask(HWND window, int child = 0);
// The child at a point of the screen; -1: none.
int ChildAt(HWND window, POINT screen);
// Does the default action; on the window's thread it has been done when the call is back.
HRESULT DoDefault(HWND window, int child = 0);
// Asks for selection or focus (SELFLAG_...), which may still wait in the queue afterwards.
HRESULT Select(HWND window, LONG flags, int child);

// The events that windows of this process raise while the object lives.
class HeardEvents {
public:
    HeardEvents();
    ~HeardEvents();
    HeardEvents(const HeardEvents&) = delete;
    HeardEvents& operator=(const HeardEvents&) = delete;
    // How often that event has come for that window's client object and child.
    int Count(DWORD event, HWND window, LONG child = 0) const;

private:
    HWINEVENTHOOK m_Hook;
};

} // namespace gui
