#include "controls/modWin.h"
#include "windows/Gui.h"

#include <gtest/gtest.h>

#include <atomic>

namespace {

std::atomic<int> g_Button{kLeftButton};
std::atomic<int> g_Returned{0};
std::atomic<bool> g_Moving{false};

LRESULT CALLBACK DraggedByItself(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ENTERSIZEMOVE) g_Moving = true;
    if (message == WM_EXITSIZEMOVE) g_Moving = false;
    if (message == WM_LBUTTONDOWN) {
        modWin::DragWindow(window, g_Button);
        ++g_Returned;
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

class ModWin : public testing::Test {
protected:
    void SetUp() override {
        g_Returned = 0;
        g_Moving = false;
        g_Button = kLeftButton;
        m_Ui.Run([this] { m_Form = gui::MakeWindow(nullptr, {100, 100, 300, 250}, DraggedByItself); });
        ASSERT_TRUE(gui::Activate(m_Form));
    }
    void TearDown() override {
        m_Ui.Run([this] { DestroyWindow(m_Form); });
    }
    RECT Place() const {
        RECT place{};
        GetWindowRect(m_Form, &place);
        return place;
    }
    bool IsTopMost() const { return (GetWindowLongW(m_Form, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; }

    gui::UiThread m_Ui;
    HWND m_Form = nullptr;
};

TEST_F(ModWin, DragMovesTheWindowByExactlyTheWayOfTheMouse) {
    const POINT from = gui::ToScreen(m_Form, 40, 30);
    gui::MoveTo(from);
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(gui::WaitUntil([] { return g_Moving.load(); }));
    for (int step = 1; step <= 5; ++step) gui::MoveTo({from.x + 7 * step, from.y + 11 * step});
    gui::Press(MOUSEEVENTF_LEFTUP);
    ASSERT_TRUE(gui::WaitUntil([] { return g_Returned == 1; }));
    const RECT place = Place();
    EXPECT_EQ(135, place.left);
    EXPECT_EQ(155, place.top);
    EXPECT_EQ(200, place.right - place.left);
    EXPECT_EQ(150, place.bottom - place.top);
}

TEST_F(ModWin, DragWithAnotherButtonDoesNothing) {
    for (int button : {static_cast<int>(kRightButton), static_cast<int>(kMiddleButton), 0}) {
        g_Button = button;
        g_Returned = 0;
        const POINT from = gui::ToScreen(m_Form, 40, 30);
        gui::MoveTo(from);
        gui::Press(MOUSEEVENTF_LEFTDOWN);
        ASSERT_TRUE(gui::WaitUntil([] { return g_Returned == 1; }));
        gui::MoveTo({from.x + 20, from.y + 20});
        gui::Press(MOUSEEVENTF_LEFTUP);
        m_Ui.Settle();
        EXPECT_FALSE(g_Moving);
        EXPECT_EQ(100, Place().left);
        EXPECT_EQ(100, Place().top);
    }
}

TEST_F(ModWin, TopMostAndBackLeavePlaceAndActivationAlone) {
    HWND other = nullptr;
    m_Ui.Run([&] { other = gui::MakeWindow(nullptr, {400, 400, 500, 500}); });
    ASSERT_TRUE(gui::Activate(other));
    m_Ui.Run([this] { modWin::SetTopMost(m_Form); });
    EXPECT_TRUE(IsTopMost());
    EXPECT_EQ(other, GetForegroundWindow());
    m_Ui.Run([this] { modWin::SetNotTopMost(m_Form); });
    EXPECT_FALSE(IsTopMost());
    EXPECT_EQ(other, GetForegroundWindow());
    const RECT place = Place();
    EXPECT_EQ(100, place.left);
    EXPECT_EQ(100, place.top);
    EXPECT_EQ(300, place.right);
    EXPECT_EQ(250, place.bottom);
    m_Ui.Run([other] { DestroyWindow(other); });
}

} // namespace
