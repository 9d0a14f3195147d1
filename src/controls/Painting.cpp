// Tested by tests/windows/mclistbox_look_test.cpp and advprogressbar_test.cpp.
#include "controls/Painting.h"

#include "controls/Canvas.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <memory>

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

// As bitmaps hold it.
std::uint32_t Stored(COLORREF colour) {
    return static_cast<std::uint32_t>(GetRValue(colour) << 16 | GetGValue(colour) << 8 | GetBValue(colour));
}

} // namespace

const PaintTally& PaintsSoFar() {
    return g_Tally;
}

void TallyRow() {
    ++g_Tally.Rows;
}

// One canvas serves all windows; it is as large as the largest part painted so far. What is painted
// inside another painting, or by another thread meanwhile, gets its own.
void PaintBuffered(HWND window, const std::function<void(HDC, const RECT&)>& paint) {
    static std::atomic<Canvas*> kept = nullptr; // until the program ends
    PAINTSTRUCT told;
    const HDC screen = BeginPaint(window, &told);
    ++g_Tally.Paints;
    struct Release {
        HWND Window;
        const PAINTSTRUCT& Told;
        ~Release() { EndPaint(Window, &Told); }
    } release{window, told};
    const RECT& part = told.rcPaint;
    const int width = WidthOf(part), height = HeightOf(part);
    if (width <= 0 || height <= 0) return;
    // When a painter throws, what it has selected goes with the canvas.
    std::unique_ptr<Canvas> canvas(kept.exchange(nullptr));
    const SIZE had = canvas ? canvas->Size() : SIZE{};
    if (had.cx < width || had.cy < height)
        canvas = std::make_unique<Canvas>(
            screen, SIZE{std::max<LONG>(had.cx, width), std::max<LONG>(had.cy, height)});
    const HDC memory = canvas->Dc();
    RECT client;
    GetClientRect(window, &client);
    const int state = SaveDC(memory);
    SetWindowOrgEx(memory, part.left, part.top, nullptr);
    IntersectClipRect(memory, part.left, part.top, part.right, part.bottom);
    paint(memory, client);
    RestoreDC(memory, state);
    BitBlt(screen, part.left, part.top, width, height, memory, 0, 0, SRCCOPY);
    ++g_Tally.Blits;
    delete kept.exchange(canvas.release());
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

void StretchShades(HDC dc, const RECT& place, int width, int height, const std::vector<COLORREF>& shades) {
    if (shades.empty()) return;
    std::vector<std::uint32_t> bits(shades.size());
    std::ranges::transform(shades, bits.begin(), Stored);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    StretchDIBits(dc, place.left, place.top, WidthOf(place), HeightOf(place), 0, 0, width, height,
                  bits.data(), &info, DIB_RGB_COLORS, SRCCOPY);
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
