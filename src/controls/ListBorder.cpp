// The border is outside the client area, so that scrolled rows never touch it.
//
// Tested by tests/windows/mclistbox_look_test.cpp, checklist_look_test.cpp and twocolumnlist_test.cpp.
#include "controls/ListBorder.h"

#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "controls/Theme.h"

#include <algorithm>

namespace ListBorder {
namespace {

void DrawRound(Control& list, HDC dc) {
    RECT window;
    GetWindowRect(list.hWnd(), &window);
    Draw(dc, {0, 0, WidthOf(window), HeightOf(window)}, list.Dpi(), list.EnabledInAll());
}

} // namespace

void Draw(HDC dc, const RECT& place, int dpi, bool enabled) {
    const COLORREF border = enabled ? Theme::Pick(palette::FieldBorder, COLOR_WINDOWTEXT)
                                    : Theme::Pick(palette::Line, COLOR_GRAYTEXT);
    FrameRectangle(dc, place, border, HairLine(dpi));
}

bool Message(Control& list, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_NCCALCSIZE: {
        RECT& window =
            wParam ? reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam)->rgrc[0] : *reinterpret_cast<RECT*>(lParam);
        window = Inset(window, list.HairLine());
        window.right = std::max(window.right, window.left);
        window.bottom = std::max(window.bottom, window.top);
        result = list.DefaultProcedure(message, wParam, lParam); // takes off the scroll bars
        return true;
    }
    case WM_NCPAINT: {
        result = list.DefaultProcedure(message, wParam, lParam);
        const HDC dc = GetWindowDC(list.hWnd());
        DrawRound(list, dc);
        ReleaseDC(list.hWnd(), dc);
        return true;
    }
    case WM_PRINT:
        result = list.DefaultProcedure(message, wParam, lParam);
        if (lParam & PRF_NONCLIENT) DrawRound(list, reinterpret_cast<HDC>(wParam));
        return true;
    default:
        return false;
    }
}

void Changed(Control& list, Change what) {
    if (!list.hWnd()) return;
    if (what == Change::Dpi)
        SetWindowPos(list.hWnd(), nullptr, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    RedrawWindow(list.hWnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
}

} // namespace ListBorder
