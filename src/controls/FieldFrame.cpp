// The border is outside the client area: the system keeps text and scroll bar inside by itself, and never
// draws over it.
//
// Tested by tests/windows/fields_look_test.cpp and richboxes_look_test.cpp.
#include "controls/FieldFrame.h"

#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "controls/Theme.h"

#include <algorithm>

namespace FieldFrame {
namespace {

constexpr int kPadding = 3; // pixels at 96 DPI, border included
constexpr int kTextPadding = 6;

// What is left for the system's control of the whole window.
RECT Inner(Control& field, bool oneLine, RECT window) {
    const int across = field.Scaled(oneLine ? kTextPadding : kPadding);
    int down = field.Scaled(kPadding);
    if (oneLine) {
        const int line = LineHeight(field.FontInUse());
        down = std::max<int>(field.Scaled(2), (HeightOf(window) - line) / 2);
    }
    window.left += across;
    window.right = std::max(window.right - across, window.left);
    window.top += down;
    window.bottom = std::max(window.bottom - down, window.top);
    return window;
}

FieldState StateOf(const Control& field) {
    return {field.HasFocus(), field.EnabledInAll()};
}

// Into the window's whole context, round its text and the scroll bar beside it. The bar has
// the width of the monitor's DPI, which the system's metrics do not tell.
void DrawRound(Control& field, bool oneLine, HDC dc) {
    RECT window;
    GetWindowRect(field.hWnd(), &window);
    OffsetRect(&window, -window.left, -window.top);
    const RECT inner = Inner(field, oneLine, window);
    const int state = SaveDC(dc);
    ExcludeClipRect(dc, inner.left, inner.top, inner.right, inner.bottom);
    Draw(dc, window, field.Dpi(), StateOf(field));
    RestoreDC(dc, state);
}

} // namespace

COLORREF Ground(bool enabled) {
    return Theme::Pick(enabled ? palette::Card : palette::DisabledGround, COLOR_WINDOW);
}

COLORREF Ink(bool enabled) {
    return enabled ? Theme::Pick(palette::Ink, COLOR_WINDOWTEXT)
                   : Theme::Pick(palette::DisabledText, COLOR_GRAYTEXT);
}

void Draw(HDC dc, const RECT& place, int dpi, FieldState state) {
    const int hair = HairLine(dpi);
    COLORREF border = Theme::Pick(palette::FieldBorder, COLOR_WINDOWTEXT);
    int width = hair;
    if (!state.Enabled) {
        border = Theme::Pick(palette::Line, COLOR_GRAYTEXT);
    } else if (state.Focused) {
        border = Theme::Pick(palette::FocusNeutral, COLOR_HIGHLIGHT);
        width = Scaled(2, dpi);
    }
    FillRectangle(dc, Inset(place, width), Ground(state.Enabled));
    FrameRectangle(dc, place, border, width);
}

bool Message(Control& field, bool oneLine, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_NCCALCSIZE: {
        RECT& window =
            wParam ? reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam)->rgrc[0] : *reinterpret_cast<RECT*>(lParam);
        window = Inner(field, oneLine, window);
        result = field.DefaultProcedure(message, wParam, lParam); // takes off the scroll bars
        return true;
    }
    case WM_NCPAINT: {
        result = field.DefaultProcedure(message, wParam, lParam);
        const HDC dc = GetWindowDC(field.hWnd());
        DrawRound(field, oneLine, dc);
        ReleaseDC(field.hWnd(), dc);
        return true;
    }
    case WM_PRINT:
        result = field.DefaultProcedure(message, wParam, lParam);
        if (lParam & PRF_NONCLIENT) DrawRound(field, oneLine, reinterpret_cast<HDC>(wParam));
        return true;
    case WM_NCHITTEST:
        // The padding belongs to the text.
        result = field.DefaultProcedure(message, wParam, lParam);
        if (result == HTNOWHERE || result == HTBORDER || result == HTERROR) result = HTCLIENT;
        return true;
    default:
        return false;
    }
}

void Changed(Control& field, Change what) {
    if (!field.hWnd()) return;
    if (what == Change::Font || what == Change::Dpi)
        SetWindowPos(field.hWnd(), nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    RedrawWindow(field.hWnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
}

LRESULT Colours(HDC dc, bool enabled) {
    SetTextColor(dc, Ink(enabled));
    SetBkColor(dc, Ground(enabled));
    SetDCBrushColor(dc, Ground(enabled));
    return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
}

} // namespace FieldFrame
