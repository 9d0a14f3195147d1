// Pixels of windows and drawings, for tests.
#pragma once

#include "base/win.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace gui {

// A picture in memory. (x, y) from the top left; outside it is black.
struct Pixels {
    int Width = 0, Height = 0;
    std::vector<COLORREF> Colours;

    COLORREF At(int x, int y) const;
    // Pixels of exactly that colour inside place.
    int Count(COLORREF colour, const RECT& place) const;
    int Count(COLORREF colour) const { return Count(colour, {0, 0, Width, Height}); }
    bool operator==(const Pixels&) const = default;
};

// What draw paints on a ground of one colour.
Pixels Drawn(int width, int height, const std::function<void(HDC)>& draw, COLORREF ground = RGB(255, 0, 255));
// The client area of a window, as it paints itself; on the window's thread.
Pixels ClientOf(HWND window);
// The same as it stands on the screen now; nothing may cover it.
Pixels ShownOf(HWND window);
// The whole window with its border and its children; on the window's thread.
Pixels WindowOf(HWND window);

} // namespace gui
