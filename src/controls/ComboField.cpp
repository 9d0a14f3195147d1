// The system's own measures of a combo box are asked for and answered to, not worked out.
//
// Tested by tests/windows/combobox_test.cpp and fontcombo_look_test.cpp.
#include "controls/ComboField.h"

#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "controls/Theme.h"

#include <commctrl.h>

namespace ComboField {

bool Dropped(const Control& combo) {
    return SendMessageW(combo.hWnd(), CB_GETDROPPEDSTATE, 0, 0) != 0;
}

void Close(const Control& combo) {
    if (Dropped(combo)) SendMessageW(combo.hWnd(), CB_SHOWDROPDOWN, FALSE, 0);
}

// The box takes the mouse for the press and hands it on to its list at the release, open or not.
void EndPress(const Control& combo) {
    if (GetCapture() != combo.hWnd()) return;
    SendMessageW(combo.hWnd(), WM_LBUTTONUP, 0, MAKELPARAM(-1, -1));
    ReleaseCapture();
}

void Toggle(const Control& combo) {
    SendMessageW(combo.hWnd(), CB_SHOWDROPDOWN, !Dropped(combo), 0);
}

// The system counts the dropped list into the height; how high the closed box becomes
// follows from the height of its field.
void Place(Control& combo, const RECT& pixels, int entries) {
    const HWND window = combo.hWnd();
    RECT before;
    GetWindowRect(window, &before);
    Close(combo);
    SendMessageW(window, CB_SETMINVISIBLE, static_cast<WPARAM>(entries), 0);
    const int row = static_cast<int>(SendMessageW(window, CB_GETITEMHEIGHT, 0, 0));
    SetWindowPos(window, nullptr, pixels.left, pixels.top, WidthOf(pixels),
                 HeightOf(pixels) + row * entries + combo.Scaled(2), SWP_NOZORDER | SWP_NOACTIVATE);
    // What is asked for and what comes of it differ by borders that only the system knows.
    const auto closed = static_cast<WPARAM>(-1);
    int asked = static_cast<int>(SendMessageW(window, CB_GETITEMHEIGHT, closed, 0));
    for (int attempt = 0; attempt < 3; ++attempt) {
        RECT place;
        GetWindowRect(window, &place);
        const int missing = HeightOf(pixels) - HeightOf(place);
        if (missing == 0 || asked + missing < 1) break;
        asked += missing;
        SendMessageW(window, CB_SETITEMHEIGHT, closed, asked);
    }
    // In between it may have been higher or lower than before and behind all this.
    const HWND container = GetParent(window);
    MapWindowPoints(nullptr, container, reinterpret_cast<POINT*>(&before), 2);
    RedrawWindow(container, &before, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void DrawEntry(HDC dc, const RECT& place, std::u16string_view text, HFONT font, bool selected, int dpi) {
    constexpr int kTextLeft = 6; // pixels at 96 DPI
    FillRectangle(dc, place,
                  selected ? Theme::Pick(palette::Sel, COLOR_HIGHLIGHT)
                           : Theme::Pick(palette::Card, COLOR_WINDOW));
    RECT inside = place;
    inside.left += Scaled(kTextLeft, dpi);
    DrawTextIn(dc, font, text, inside,
               selected ? Theme::Pick(palette::Card, COLOR_HIGHLIGHTTEXT)
                        : Theme::Pick(palette::Ink, COLOR_WINDOWTEXT),
               DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

LONG State(const Control& combo) {
    return STATE_SYSTEM_HASPOPUP | (Dropped(combo) ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED);
}

} // namespace ComboField
