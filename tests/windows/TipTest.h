// A form with a tip, and what its tests ask.
#pragma once

#include "controls/cToolTip.h"
#include "windows/Gui.h"

#include <gtest/gtest.h>

#include <memory>

namespace gui {

constexpr int kBalloon = 65;
constexpr OleColour kButtonTextColour = 0x80000012, kInfoBackColour = 0x80000018;
constexpr int kSoon = 10; // hover time of most cases, milliseconds

// A form with two children side by side, on a thread of its own. The mouse rests on the
// form's empty corner when a case begins.
class TipTest : public testing::Test {
protected:
    void SetUp() override {
        m_Ui.Run([this] {
            m_Form = MakeWindow(nullptr, {100, 100, 400, 300});
            m_Left = MakeWindow(m_Form, {20, 20, 120, 60});
            m_Right = MakeWindow(m_Form, {150, 20, 250, 60});
        });
        ASSERT_TRUE(Activate(m_Form));
        MoveTo(ToScreen(m_Form, 290, 190));
    }
    void TearDown() override {
        MoveTo({0, 0});
        m_Ui.Run([this] {
            m_Tip.reset();
            m_Second.reset();
            if (IsWindow(m_Form)) DestroyWindow(m_Form);
        });
    }

    void Create(std::u16string_view text = u"One|Two", std::u16string_view title = u"",
                int hoverTime = kSoon) {
        m_Ui.Run([&] {
            ASSERT_TRUE(m_Tip->Create(m_Left, text, kBalloon, false, 1, title, kButtonTextColour,
                                      kInfoBackColour, -1, hoverTime));
        });
    }
    void On(const std::function<void()>& job) { m_Ui.Run(job); }
    bool Shown(const cToolTip& tip) const { return IsWindowVisible(tip.hWnd()) != FALSE; }
    bool WaitShown() {
        return WaitUntil([this] { return Shown(*m_Tip); });
    }
    bool WaitHidden() {
        return WaitUntil([this] { return !Shown(*m_Tip); });
    }
    // Long enough for a tip that would come.
    bool StaysHidden() {
        return !WaitUntil([this] { return Shown(*m_Tip); }, 20 * kSoon);
    }
    void Hover(HWND window) { MoveTo(CentreOf(window)); }

    UiThread m_Ui;
    HWND m_Form = nullptr, m_Left = nullptr, m_Right = nullptr;
    std::unique_ptr<cToolTip> m_Tip = std::make_unique<cToolTip>(), m_Second = std::make_unique<cToolTip>();
};

} // namespace gui
