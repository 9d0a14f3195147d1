#include "windows/Pixels.h"

namespace gui {

COLORREF Pixels::At(int x, int y) const {
    if (x < 0 || y < 0 || x >= Width || y >= Height) return 0;
    return Colours[static_cast<std::size_t>(y * Width + x)];
}

int Pixels::Count(COLORREF colour, const RECT& place) const {
    int count = 0;
    for (int y = place.top; y < place.bottom; ++y) {
        for (int x = place.left; x < place.right; ++x) count += At(x, y) == colour;
    }
    return count;
}

Pixels Drawn(int width, int height, const std::function<void(HDC)>& draw, COLORREF ground) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HDC memory = CreateCompatibleDC(nullptr);
    const HBITMAP bitmap = CreateDIBSection(memory, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    const RECT all{0, 0, width, height};
    const HBRUSH brush = CreateSolidBrush(ground);
    FillRect(memory, &all, brush);
    DeleteObject(brush);
    draw(memory);
    GdiFlush();
    Pixels pixels{width, height, {}};
    pixels.Colours.reserve(static_cast<std::size_t>(width * height));
    const auto* pixel = static_cast<const std::uint32_t*>(bits);
    for (int i = 0; i < width * height; ++i, ++pixel)
        pixels.Colours.push_back(RGB(*pixel >> 16 & 0xFF, *pixel >> 8 & 0xFF, *pixel & 0xFF));
    SelectObject(memory, before);
    DeleteObject(bitmap);
    DeleteDC(memory);
    return pixels;
}

Pixels ClientOf(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    return Drawn(client.right, client.bottom, [window](HDC dc) {
        SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT | PRF_ERASEBKGND);
    });
}

Pixels ShownOf(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    const HDC screen = GetDC(window);
    const Pixels shown = Drawn(client.right, client.bottom, [&](HDC dc) {
        BitBlt(dc, 0, 0, client.right, client.bottom, screen, 0, 0, SRCCOPY);
    });
    ReleaseDC(window, screen);
    return shown;
}

namespace {

// The system's own way leaves children out.
void PrintTree(HWND window, HDC dc) {
    RECT place, client;
    GetWindowRect(window, &place);
    GetClientRect(window, &client);
    POINT inner{0, 0};
    ClientToScreen(window, &inner);
    SendMessageW(window, WM_PRINT, reinterpret_cast<WPARAM>(dc), PRF_NONCLIENT);
    const int state = SaveDC(dc);
    OffsetViewportOrgEx(dc, inner.x - place.left, inner.y - place.top, nullptr);
    IntersectClipRect(dc, 0, 0, client.right, client.bottom);
    const int own = SaveDC(dc);
    SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT | PRF_ERASEBKGND);
    RestoreDC(dc, own);
    for (HWND child = GetWindow(window, GW_CHILD) ? GetWindow(GetWindow(window, GW_CHILD), GW_HWNDLAST)
                                                  : nullptr;
         child; child = GetWindow(child, GW_HWNDPREV)) {
        if (!IsWindowVisible(child)) continue;
        RECT at;
        GetWindowRect(child, &at);
        const int before = SaveDC(dc);
        OffsetViewportOrgEx(dc, at.left - inner.x, at.top - inner.y, nullptr);
        IntersectClipRect(dc, 0, 0, at.right - at.left, at.bottom - at.top);
        PrintTree(child, dc);
        RestoreDC(dc, before);
    }
    RestoreDC(dc, state);
}

} // namespace

Pixels WindowOf(HWND window) {
    RECT place;
    GetWindowRect(window, &place);
    return Drawn(place.right - place.left, place.bottom - place.top,
                 [window](HDC dc) { PrintTree(window, dc); });
}

} // namespace gui
