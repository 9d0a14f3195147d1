// Calls that older systems lack are looked up; before them one DPI holds for every window.
//
// Tested by tests/windows/dpi_test.cpp.
#include "controls/Dpi.h"

int DpiOf(HWND window) {
    using GetDpiForWindowCall = UINT(WINAPI*)(HWND);
    static const auto getDpi = Lookup<GetDpiForWindowCall>(L"user32.dll", "GetDpiForWindow");
    if (getDpi && window) {
        if (const UINT dpi = getDpi(window)) return static_cast<int>(dpi);
    }
    using GetDpiForMonitorCall = HRESULT(WINAPI*)(HMONITOR, int, UINT*, UINT*);
    static const HMODULE scaling = LoadLibraryW(L"shcore.dll");
    static const auto ofMonitor =
        scaling ? Lookup<GetDpiForMonitorCall>(L"shcore.dll", "GetDpiForMonitor") : nullptr;
    UINT x = 0, y = 0;
    if (ofMonitor && window &&
        SUCCEEDED(ofMonitor(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), 0, &x, &y)))
        return static_cast<int>(x);
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi;
}
