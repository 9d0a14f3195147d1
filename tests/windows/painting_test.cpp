// How windows are painted: one canvas for all, in whatever order, size and thread.
#include "controls/Painting.h"
#include "windows/Gui.h"
#include "windows/Pixels.h"

#include <gtest/gtest.h>

#include <map>
#include <stdexcept>

namespace {

constexpr COLORREF kRed = RGB(255, 0, 0), kBlue = RGB(0, 0, 255), kGreen = RGB(0, 128, 0);

using Painter = std::function<void(HDC, const RECT& client)>;
std::map<HWND, Painter> g_Painters;

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ERASEBKGND) return 1;
    if (message != WM_PAINT) return DefWindowProcW(window, message, wParam, lParam);
    try {
        PaintBuffered(window, g_Painters[window]);
    } catch (const std::runtime_error&) { // as far as the system's frames
    }
    return 0;
}

void Paint(HWND window, const RECT* part = nullptr) {
    RedrawWindow(window, part, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

class Painting : public testing::Test {
protected:
    HWND Make(const RECT& place, const Painter& painter) {
        const HWND window = gui::MakeWindow(nullptr, place, Procedure);
        m_Windows.push_back(window);
        g_Painters[window] = painter;
        return window;
    }
    void TearDown() override {
        for (const HWND window : m_Windows) DestroyWindow(window);
        g_Painters.clear();
    }
    std::vector<HWND> m_Windows;
};

Painter Fill(COLORREF colour) {
    return [colour](HDC dc, const RECT& client) { FillRectangle(dc, client, colour); };
}

TEST_F(Painting, OneInsideAnotherLeavesItsDrawingAlone) {
    const HWND inner = Make({200, 0, 260, 60}, Fill(kBlue));
    const HWND outer = Make({0, 0, 100, 80}, [&](HDC dc, const RECT& client) {
        FillRectangle(dc, client, kRed);
        Paint(inner);
        FillRectangle(dc, {0, 0, 10, 10}, kGreen);
    });
    Paint(outer);
    const gui::Pixels shown = gui::ShownOf(outer);
    EXPECT_EQ(shown.Count(kGreen), 100);
    EXPECT_EQ(shown.Count(kRed), 100 * 80 - 100);
    EXPECT_EQ(gui::ShownOf(inner).Count(kBlue), 60 * 60);
}

TEST_F(Painting, APartIsDrawnInItsPlaceAndNothingBesideIt) {
    const HWND window = Make({0, 0, 100, 80}, Fill(kRed));
    Paint(window);
    const RECT part{30, 20, 50, 60};
    RECT seen{};
    g_Painters[window] = [&](HDC dc, const RECT& client) {
        GetClipBox(dc, &seen);
        EXPECT_EQ(client.right, 100);
        FillRectangle(dc, client, kBlue);
        FillRectangle(dc, {30, 20, 31, 21}, kGreen);
    };
    Paint(window, &part);
    EXPECT_TRUE(EqualRect(&seen, &part)); // lists read no row beside it
    const gui::Pixels shown = gui::ShownOf(window);
    EXPECT_EQ(shown.At(30, 20), kGreen);
    EXPECT_EQ(shown.Count(kBlue, part), 20 * 40 - 1);
    EXPECT_EQ(shown.Count(kRed), 100 * 80 - 20 * 40);
}

TEST_F(Painting, ALargerOneAndASmallerOneFollow) {
    for (const int side : {50, 300, 20, 301}) {
        const HWND window = Make({0, 0, side, side}, Fill(kBlue));
        Paint(window);
        EXPECT_EQ(gui::ShownOf(window).Count(kBlue), side * side) << side;
        DestroyWindow(window);
    }
    m_Windows.clear();
}

// What a painter has set and not taken back is gone at the next painting.
TEST_F(Painting, APainterMayLeaveItsSettingsAndThrow) {
    bool throws = false;
    const HWND window = Make({0, 0, 100, 80}, [&](HDC dc, const RECT&) {
        SetViewportOrgEx(dc, 40, 40, nullptr);
        IntersectClipRect(dc, 0, 0, 1, 1);
        if (throws) throw std::runtime_error("painter");
    });
    for (const bool fails : {false, true}) {
        throws = fails;
        Paint(window);
        const COLORREF colour = fails ? kRed : kGreen;
        const HWND next = Make({200, 0, 300, 80}, Fill(colour));
        Paint(next);
        EXPECT_EQ(gui::ShownOf(next).Count(colour), 100 * 80) << fails;
    }
}

} // namespace
