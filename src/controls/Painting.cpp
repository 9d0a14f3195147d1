// One bitmap is made for each painting: keeping one would cost memory for every control on screen.
//
// Tested by tests/windows/mclistbox_look_test.cpp and advprogressbar_test.cpp.
#include "controls/Painting.h"

namespace {

PaintTally g_Tally;

TRIVERTEX Corner(LONG x, LONG y, COLORREF colour) {
    return {x,
            y,
            static_cast<COLOR16>(GetRValue(colour) << 8),
            static_cast<COLOR16>(GetGValue(colour) << 8),
            static_cast<COLOR16>(GetBValue(colour) << 8),
            0};
}

} // namespace

const PaintTally& PaintsSoFar() {
    return g_Tally;
}

void TallyRow() {
    ++g_Tally.Rows;
}

void PaintBuffered(HWND window, const std::function<void(HDC, const RECT&)>& paint) {
    PAINTSTRUCT told;
    const HDC screen = BeginPaint(window, &told);
    ++g_Tally.Paints;
    const RECT& part = told.rcPaint;
    if (WidthOf(part) > 0 && HeightOf(part) > 0) {
        const HDC memory = CreateCompatibleDC(screen);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, WidthOf(part), HeightOf(part));
        const HGDIOBJ before = SelectObject(memory, bitmap);
        SetWindowOrgEx(memory, part.left, part.top, nullptr);
        RECT client;
        GetClientRect(window, &client);
        // The system's objects go back also when a painter throws.
        struct Release {
            HWND Window;
            const PAINTSTRUCT& Told;
            HDC Memory;
            HBITMAP Bitmap;
            HGDIOBJ Before;
            ~Release() {
                SelectObject(Memory, Before);
                DeleteObject(Bitmap);
                DeleteDC(Memory);
                EndPaint(Window, &Told);
            }
        } release{window, told, memory, bitmap, before};
        const int state = SaveDC(memory);
        paint(memory, client);
        RestoreDC(memory, state);
        BitBlt(screen, part.left, part.top, WidthOf(part), HeightOf(part), memory, part.left, part.top,
               SRCCOPY);
        ++g_Tally.Blits;
        return;
    }
    EndPaint(window, &told);
}

void FillRectangle(HDC dc, const RECT& place, COLORREF colour) {
    // A text without characters fills without a brush.
    const COLORREF before = SetBkColor(dc, colour);
    ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &place, nullptr, 0, nullptr);
    SetBkColor(dc, before);
}

void FrameRectangle(HDC dc, const RECT& place, COLORREF colour, int width) {
    FillRectangle(dc, {place.left, place.top, place.right, place.top + width}, colour);
    FillRectangle(dc, {place.left, place.bottom - width, place.right, place.bottom}, colour);
    FillRectangle(dc, {place.left, place.top + width, place.left + width, place.bottom - width}, colour);
    FillRectangle(dc, {place.right - width, place.top + width, place.right, place.bottom - width}, colour);
}

void VerticalGradient(HDC dc, const RECT& place, COLORREF top, COLORREF bottom) {
    TRIVERTEX corners[] = {Corner(place.left, place.top, top), Corner(place.right, place.bottom, bottom)};
    GRADIENT_RECT span{0, 1};
    GradientFill(dc, corners, 2, &span, 1, GRADIENT_FILL_RECT_V);
}

void DottedRectangle(HDC dc, const RECT& place, COLORREF colour, int width) {
    const auto dot = [&](int x, int y) { FillRectangle(dc, {x, y, x + width, y + width}, colour); };
    const int right = place.right - width, bottom = place.bottom - width;
    for (int x = place.left; x <= right; x += 2 * width) {
        dot(x, place.top);
        if (bottom > place.top) dot(x, bottom);
    }
    for (int y = place.top + 2 * width; y < bottom; y += 2 * width) {
        dot(place.left, y);
        if (right > place.left) dot(right, y);
    }
}

void DrawTextIn(HDC dc, HFONT font, std::u16string_view text, RECT& place, COLORREF colour, UINT format) {
    const HGDIOBJ before = SelectObject(dc, font);
    const COLORREF ink = SetTextColor(dc, colour);
    const int mode = SetBkMode(dc, TRANSPARENT);
    DrawTextW(dc, reinterpret_cast<const wchar_t*>(text.data()), static_cast<int>(text.size()), &place,
              format);
    SetBkMode(dc, mode);
    SetTextColor(dc, ink);
    SelectObject(dc, before);
}

RECT Inset(const RECT& place, int by) {
    return {place.left + by, place.top + by, place.right - by, place.bottom - by};
}
