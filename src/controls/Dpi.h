// Twips, pixels and the DPI of the monitor. 1440 twips are an inch; pixels that a look
// fixes are pixels of 96 DPI.
#pragma once

#include "base/win.h"

// The one way from twips to pixels: to the nearest, halves up, also below zero.
constexpr int ToPixels(int twips, int dpi) {
    const long long doubled = 2LL * twips * dpi + 1440;
    const long long whole = doubled / 2880;
    return static_cast<int>(doubled % 2880 < 0 ? whole - 1 : whole);
}
constexpr int ToTwips(int pixels, int dpi) {
    const long long doubled = 2LL * pixels * 1440 + dpi;
    const long long whole = doubled / (2LL * dpi);
    return static_cast<int>(doubled % (2LL * dpi) < 0 ? whole - 1 : whole);
}
// A pixel count of 96 DPI.
constexpr int Scaled(int pixels96, int dpi) {
    return ToPixels(pixels96 * 15, dpi);
}
constexpr int HairLine(int dpi) {
    return dpi < 192 ? 1 : dpi / 96;
}
// Rounds the edges, not the widths, so that neighbours that touch still touch.
constexpr RECT ToPixels(int left, int top, int width, int height, int dpi) {
    return {ToPixels(left, dpi), ToPixels(top, dpi), ToPixels(left + width, dpi),
            ToPixels(top + height, dpi)};
}

// The DPI of the monitor that shows the window; where the system does not tell (before
// Windows 8.1), that of the screen.
int DpiOf(HWND window);
