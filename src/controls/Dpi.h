// Twips, pixels and the DPI of the monitor. 1440 twips are an inch; pixels that a look
// fixes are pixels of 96 DPI.
#pragma once

#include "base/win.h"

#include <algorithm>

// Lengths end here, in twips and in pixels: the difference of any two is still a number.
constexpr long long kFarthestLength = (1LL << 30) - 1;

// To the nearest, halves up, also below zero.
constexpr int Divided(long long length, long long by) {
    const long long doubled = 2 * length + by;
    const long long whole = doubled / (2 * by) - (doubled % (2 * by) < 0);
    return static_cast<int>(std::clamp(whole, -kFarthestLength, kFarthestLength));
}
// The one way from twips to pixels.
constexpr int ToPixels(long long twips, int dpi) {
    return Divided(twips * dpi, 1440);
}
constexpr int ToTwips(int pixels, int dpi) {
    return Divided(1440LL * pixels, dpi);
}
// A pixel count of 96 DPI.
constexpr int Scaled(int pixels96, int dpi) {
    return ToPixels(15LL * pixels96, dpi);
}
constexpr int HairLine(int dpi) {
    return dpi < 192 ? 1 : dpi / 96;
}
// Rounds the edges, not the widths, so that neighbours that touch still touch.
constexpr RECT ToPixels(long long left, long long top, int width, int height, int dpi) {
    return {ToPixels(left, dpi), ToPixels(top, dpi), ToPixels(left + width, dpi),
            ToPixels(top + height, dpi)};
}

// The DPI of the monitor that shows the window; where the system does not tell (before
// Windows 8.1), that of the screen.
int DpiOf(HWND window);
