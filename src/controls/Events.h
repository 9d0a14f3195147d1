// What the events of the controls are made of. An event is a std::function member of the
// control, named as its handlers know it: button.Click = [this] { ... };
#pragma once

#include "base/win.h"

#include <functional>

// Raises an event. The handler is copied first: it may destroy the control that holds it.
template <class... Told, class... Given>
void Raise(const std::function<void(Told...)>& event, Given&&... arguments) {
    if (!event) return;
    const std::function<void(Told...)> handler = event;
    handler(arguments...);
}

// Masks of the Shift argument.
constexpr int kShiftMask = 1;
constexpr int kCtrlMask = 2;
constexpr int kAltMask = 4;
// The keys that are held now.
int ShiftState();

// A mouse message: which button it is about (0 for a move: all that are held), and where.
struct MouseAt {
    int Button = 0; // kLeftButton and so on, of controls/modWin.h
    int Shift = 0;
    int X = 0, Y = 0; // twips of the control's client area
    POINT Pixel{};
};
MouseAt ReadMouse(UINT message, WPARAM wParam, LPARAM lParam, int dpi);
