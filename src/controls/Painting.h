// Drawing that the controls share. All rectangles are in pixels of the given context.
#pragma once

#include "base/win.h"

#include <functional>
#include <string_view>
#include <vector>

// Answers WM_PAINT: paint draws the client area into a memory bitmap, which then goes to
// the screen in one blit. The context has the client area's coordinates.
void PaintBuffered(HWND window, const std::function<void(HDC, const RECT& client)>& paint);

// What the windows of the kit have painted since the start: tests of flicker compare two
// readings.
struct PaintTally {
    long Paints = 0; // WM_PAINT answered
    long Blits = 0;
    long Rows = 0; // rows that lists have read to paint them
};
const PaintTally& PaintsSoFar();
void TallyRow();

void FillRectangle(HDC dc, const RECT& place, COLORREF colour);
// A frame of the given width, inside place.
void FrameRectangle(HDC dc, const RECT& place, COLORREF colour, int width);
// A picture of width by height colours, row by row, stretched over place.
void StretchShades(HDC dc, const RECT& place, int width, int height, const std::vector<COLORREF>& shades);
void VerticalGradient(HDC dc, const RECT& place, COLORREF top, COLORREF bottom);
// Every second pixel of the border of place: the sign of the focus. Dots are as wide as a
// hair line.
void DottedRectangle(HDC dc, const RECT& place, COLORREF colour, int width);

// Text in one colour, without ground. format as DrawTextW takes it; with DT_CALCRECT place
// is changed instead.
void DrawTextIn(HDC dc, HFONT font, std::u16string_view text, RECT& place, COLORREF colour, UINT format);

RECT Inset(const RECT& place, int by);
inline int WidthOf(const RECT& place) {
    return place.right - place.left;
}
inline int HeightOf(const RECT& place) {
    return place.bottom - place.top;
}
