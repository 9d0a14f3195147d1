#include "windows/Stale.h"

#include "base/Text.h"
#include "controls/ComboBox.h"
#include "controls/ComboField.h"
#include "controls/FontCombo.h"
#include "controls/Painting.h"
#include "controls/PasteBox.h"
#include "controls/ResultBox.h"
#include "controls/TextBox.h"
#include "controls/TwoColumnList.h"

#include <algorithm>
#include <commctrl.h>

namespace gui {
namespace {

bool IsCompared(const Control& control) {
    if (!control.hWnd() || !IsWindowVisible(control.hWnd())) return false;
    if (control.As<TextBox>() || control.As<PasteBox>() || control.As<ResultBox>()) return false;
    return !(control.As<ComboBox>() || control.As<FontCombo>()) || !ComboField::Dropped(control);
}

// A drawing in memory whose pixels can be read. It is made once for all windows: making one
// takes longer than comparing.
class Canvas {
public:
    explicit Canvas(SIZE size) : m_Width(size.cx) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = size.cx;
        info.bmiHeader.biHeight = -size.cy;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        m_Bitmap = CreateDIBSection(Dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        m_Bits = static_cast<const std::uint32_t*>(bits);
        m_Before = SelectObject(Dc, m_Bitmap);
    }
    ~Canvas() {
        SelectObject(Dc, m_Before);
        DeleteObject(m_Bitmap);
        DeleteDC(Dc);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    std::uint32_t At(LONG x, LONG y) const { return m_Bits[y * m_Width + x] & 0xFFFFFF; }
    const HDC Dc = CreateCompatibleDC(nullptr);

private:
    LONG m_Width;
    HBITMAP m_Bitmap;
    HGDIOBJ m_Before;
    const std::uint32_t* m_Bits;
};

// The rectangles of a window that can be seen on the screen, in the coordinates of its inside.
std::vector<RECT> SeenOf(HWND window) {
    constexpr INT kSystemRegion = 4; // SYSRGN
    RECT inside;
    GetClientRect(window, &inside);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&inside), 2);
    const RECT screen{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
    RECT both{};
    IntersectRect(&both, &inside, &screen);
    const HRGN seen = CreateRectRgnIndirect(&both), visible = CreateRectRgn(0, 0, 0, 0);
    const HDC dc = GetDC(window);
    if (GetRandomRgn(dc, visible, kSystemRegion) == 1) CombineRgn(seen, seen, visible, RGN_AND);
    ReleaseDC(window, dc);
    OffsetRgn(seen, -inside.left, -inside.top);
    const DWORD bytes = GetRegionData(seen, 0, nullptr);
    std::vector<unsigned char> block(bytes);
    auto* const data = reinterpret_cast<RGNDATA*>(block.data());
    GetRegionData(seen, bytes, data);
    DeleteObject(visible);
    DeleteObject(seen);
    const auto* const first = reinterpret_cast<const RECT*>(data->Buffer);
    return {first, first + data->rdh.nCount};
}

class Comparison {
public:
    explicit Comparison(SIZE largest) : m_Fresh(largest), m_Shown(largest) {}

    // How many pixels differ, and in which rectangle; empty for none.
    std::string Differences(HWND window) {
        RECT client;
        GetClientRect(window, &client);
        if (IsRectEmpty(&client)) return {};
        Draw(window, client);
        int count = 0;
        RECT box{client.right, client.bottom, 0, 0};
        for (const RECT& seen : SeenOf(window)) {
            for (LONG y = seen.top; y < seen.bottom; ++y) {
                for (LONG x = seen.left; x < seen.right; ++x) {
                    if (m_Fresh.At(x, y) == m_Shown.At(x, y)) continue;
                    ++count;
                    box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                           std::max(box.bottom, y + 1)};
                }
            }
        }
        if (count == 0) return {};
        const auto number = [](long value) { return std::to_string(value); };
        return number(count) + " pixels in " + number(box.left) + "," + number(box.top) + " to " +
               number(box.right) + "," + number(box.bottom) + " of " + number(client.right) + "x" +
               number(client.bottom) + "; ";
    }

private:
    void Draw(HWND window, const RECT& client) {
        const int state = SaveDC(m_Fresh.Dc);
        IntersectClipRect(m_Fresh.Dc, 0, 0, client.right, client.bottom);
        SendMessageW(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(m_Fresh.Dc),
                     PRF_CLIENT | PRF_ERASEBKGND);
        RestoreDC(m_Fresh.Dc, state);
        const HDC screen = GetDC(window);
        BitBlt(m_Shown.Dc, 0, 0, client.right, client.bottom, screen, 0, 0, SRCCOPY);
        ReleaseDC(window, screen);
        GdiFlush();
    }

    Canvas m_Fresh, m_Shown;
};

SIZE LargestOf(const std::vector<Control*>& controls) {
    SIZE largest{1, 1};
    for (const Control* control : controls) {
        RECT client{};
        GetClientRect(control->hWnd(), &client);
        largest = {std::max(largest.cx, client.right), std::max(largest.cy, client.bottom)};
    }
    return largest;
}

} // namespace

std::string Stale(Form& form) {
    // What is painted may make more of it due.
    for (int i = 0; i < 2; ++i)
        RedrawWindow(form.Base.hWnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    std::vector<Control*> all = form.Controls();
    all.push_back(&form.Base);
    std::erase_if(all, [](const Control* control) { return !IsCompared(*control); });
    Comparison comparison(LargestOf(all));
    std::string told;
    for (const Control* control : all) {
        const std::string differences = comparison.Differences(control->hWnd());
        if (!differences.empty()) told += text::ToUtf8(control->FullName()) + " " + differences;
        if (!control->As<TwoColumnList>()) continue;
        const auto header = reinterpret_cast<HWND>(SendMessageW(control->hWnd(), LVM_GETHEADER, 0, 0));
        const std::string ofHeader = comparison.Differences(header);
        if (!ofHeader.empty()) told += "the header of " + text::ToUtf8(control->FullName()) + " " + ofHeader;
    }
    return told;
}

} // namespace gui
