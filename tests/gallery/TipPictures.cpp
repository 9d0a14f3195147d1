#include "gallery/TipPictures.h"

#include "base/DoEvents.h"
#include "base/RuntimeFailure.h"
#include "windows/Gui.h"

#include <commctrl.h>

namespace gallery {
namespace {

BOOL CALLBACK TakeTip(HWND window, LPARAM found) {
    DWORD process = 0;
    wchar_t name[64];
    GetWindowThreadProcessId(window, &process);
    GetClassNameW(window, name, 64);
    if (process != GetCurrentProcessId() || lstrcmpiW(name, TOOLTIPS_CLASSW) != 0 || !IsWindowVisible(window))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

HWND TipShown() {
    HWND tip = nullptr;
    EnumWindows(TakeTip, reinterpret_cast<LPARAM>(&tip));
    return tip;
}

HWND WaitForTip(std::u16string_view control) {
    const ULONGLONG end = GetTickCount64() + 10'000;
    while (GetTickCount64() < end) {
        DoEvents();
        if (const HWND tip = TipShown()) return tip;
        Sleep(1);
    }
    throw RuntimeFailure(5, u"gallery", u"No tip over " + std::u16string(control));
}

void Put(HWND tip, HWND window, gui::Pixels& picture) {
    RECT place;
    GetWindowRect(tip, &place);
    UpdateWindow(tip);
    const gui::Pixels drawn = gui::Drawn(place.right - place.left, place.bottom - place.top, [&](HDC dc) {
        const HDC from = GetWindowDC(tip);
        BitBlt(dc, 0, 0, place.right - place.left, place.bottom - place.top, from, 0, 0, SRCCOPY);
        ReleaseDC(tip, from);
    });
    MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&place), 2);
    const HRGN shape = CreateRectRgn(0, 0, drawn.Width, drawn.Height);
    GetWindowRgn(tip, shape);
    for (int y = 0; y < drawn.Height; ++y) {
        for (int x = 0; x < drawn.Width; ++x) {
            const int left = place.left + x, top = place.top + y;
            if (!PtInRegion(shape, x, y) || left < 0 || left >= picture.Width || top < 0 ||
                top >= picture.Height)
                continue;
            picture.Colours[static_cast<std::size_t>(top * picture.Width + left)] = drawn.At(x, y);
        }
    }
    DeleteObject(shape);
}

} // namespace

void AddTips(const Sheet& sheet, Form& window, gui::Pixels& picture) {
    for (const std::u16string_view name : sheet.Tips) {
        gui::MoveTo(gui::CentreOf(window.Find(name)->hWnd()));
        Put(WaitForTip(name), window.Base.hWnd(), picture);
        gui::MoveTo({0, 0});
        while (TipShown()) DoEvents();
    }
}

} // namespace gallery
