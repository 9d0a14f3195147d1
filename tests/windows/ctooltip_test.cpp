#include "controls/cToolTip.h"

#include "controls/modWin.h"
#include "windows/Gui.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

constexpr int kBalloon = 65;
constexpr OleColour kButtonTextColour = 0x80000012, kInfoBackColour = 0x80000018;
constexpr int kSoon = 10; // hover time of most cases, milliseconds

// A form with two children side by side, on a thread of its own. The mouse rests on the
// form's empty corner when a case begins.
class ToolTip : public testing::Test {
protected:
    void SetUp() override {
        m_Ui.Run([this] {
            m_Form = gui::MakeWindow(nullptr, {100, 100, 400, 300});
            m_Left = gui::MakeWindow(m_Form, {20, 20, 120, 60});
            m_Right = gui::MakeWindow(m_Form, {150, 20, 250, 60});
        });
        ASSERT_TRUE(gui::Activate(m_Form));
        gui::MoveTo(gui::ToScreen(m_Form, 290, 190));
    }
    void TearDown() override {
        gui::MoveTo({0, 0});
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
        return gui::WaitUntil([this] { return Shown(*m_Tip); });
    }
    bool WaitHidden() {
        return gui::WaitUntil([this] { return !Shown(*m_Tip); });
    }
    // Long enough for a tip that would come.
    bool StaysHidden() {
        return !gui::WaitUntil([this] { return Shown(*m_Tip); }, 20 * kSoon);
    }
    void Hover(HWND window) { gui::MoveTo(gui::CentreOf(window)); }
    std::wstring TextOfTool(HWND window) {
        wchar_t text[400] = L"";
        On([&] {
            TTTOOLINFOW tool{};
            tool.cbSize = TTTOOLINFOW_V1_SIZE;
            tool.hwnd = window;
            tool.uId = 1;
            tool.lpszText = text;
            SendMessageW(m_Tip->hWnd(), TTM_GETTEXTW, 400, reinterpret_cast<LPARAM>(&tool));
        });
        return text;
    }
    UINT FlagsOfTool(HWND window) {
        TTTOOLINFOW tool{};
        wchar_t text[400] = L"";
        On([&] {
            tool.cbSize = TTTOOLINFOW_V1_SIZE;
            tool.hwnd = window;
            tool.uId = 1;
            tool.lpszText = text;
            SendMessageW(m_Tip->hWnd(), TTM_GETTOOLINFOW, 0, reinterpret_cast<LPARAM>(&tool));
        });
        return tool.uFlags;
    }
    LRESULT Ask(UINT message, WPARAM wParam = 0) { return SendMessageW(m_Tip->hWnd(), message, wParam, 0); }
    SIZE SizeShown() {
        RECT place{};
        GetWindowRect(m_Tip->hWnd(), &place);
        return {place.right - place.left, place.bottom - place.top};
    }

    gui::UiThread m_Ui;
    HWND m_Form = nullptr, m_Left = nullptr, m_Right = nullptr;
    std::unique_ptr<cToolTip> m_Tip = std::make_unique<cToolTip>(), m_Second = std::make_unique<cToolTip>();
};

TEST_F(ToolTip, ItShowsOverTheControlAndGoesWithTheMouse) {
    Create();
    EXPECT_FALSE(Shown(*m_Tip));
    Hover(m_Left);
    EXPECT_TRUE(WaitShown());
    gui::MoveTo(gui::ToScreen(m_Form, 290, 190));
    EXPECT_TRUE(WaitHidden());
    Hover(m_Right);
    EXPECT_TRUE(StaysHidden());
}

TEST_F(ToolTip, ItShowsOverADisabledControlToo) {
    Create();
    On([this] { EnableWindow(m_Left, FALSE); });
    Hover(m_Left);
    EXPECT_TRUE(WaitShown());
    gui::MoveTo(gui::ToScreen(m_Form, 60, 100)); // still on the form, below the control
    EXPECT_TRUE(WaitHidden());
    Hover(m_Left);
    EXPECT_TRUE(WaitShown());
    On([this] { EnableWindow(m_Left, TRUE); });
    gui::MoveTo(gui::ToScreen(m_Form, 290, 190));
    EXPECT_TRUE(WaitHidden());
    Hover(m_Left);
    EXPECT_TRUE(WaitShown());
}

TEST_F(ToolTip, ItGoesWhenTheMouseLeavesTheFormFromADisabledControl) {
    Create();
    On([this] { EnableWindow(m_Left, FALSE); });
    Hover(m_Left);
    ASSERT_TRUE(WaitShown());
    gui::MoveTo({600, 500});
    EXPECT_TRUE(WaitHidden());
}

TEST_F(ToolTip, APressTakesItAway) {
    Create();
    for (BOOL enabled : {TRUE, FALSE}) {
        On([&] { EnableWindow(m_Left, enabled); });
        Hover(m_Left);
        ASSERT_TRUE(WaitShown()) << enabled;
        gui::Press(MOUSEEVENTF_LEFTDOWN);
        EXPECT_TRUE(WaitHidden()) << enabled;
        gui::Press(MOUSEEVENTF_LEFTUP);
        gui::MoveTo(gui::ToScreen(m_Form, 290, 190));
        m_Ui.Settle();
    }
}

TEST_F(ToolTip, ADisabledControlIsFoundWhereItHasMovedTo) {
    Create();
    On([this] {
        EnableWindow(m_Left, FALSE);
        MoveWindow(m_Left, 20, 120, 100, 40, TRUE);
    });
    gui::MoveTo(gui::ToScreen(m_Form, 60, 40)); // its old place
    gui::MoveTo(gui::ToScreen(m_Form, 63, 40));
    EXPECT_TRUE(StaysHidden());
    Hover(m_Left);
    EXPECT_TRUE(WaitShown());
}

TEST_F(ToolTip, AHiddenOrCoveredDisabledControlHasNone) {
    Create();
    On([this] {
        EnableWindow(m_Left, FALSE);
        ShowWindow(m_Left, SW_HIDE);
    });
    gui::MoveTo(gui::ToScreen(m_Form, 60, 40));
    gui::MoveTo(gui::ToScreen(m_Form, 63, 40));
    EXPECT_TRUE(StaysHidden());
    On([this] {
        ShowWindow(m_Left, SW_SHOWNA);
        EnableWindow(m_Right, FALSE);
        SetWindowPos(m_Right, HWND_TOP, 0, 0, 250, 100, 0);
    });
    gui::MoveTo(gui::ToScreen(m_Form, 60, 41));
    gui::MoveTo(gui::ToScreen(m_Form, 63, 41));
    EXPECT_TRUE(StaysHidden());
}

TEST_F(ToolTip, TwoDisabledNeighboursEachShowTheirOwn) {
    Create();
    On([this] {
        ASSERT_TRUE(
            m_Second->Create(m_Right, u"Other", kBalloon, false, 0, u"", kNoColour, kNoColour, -1, kSoon));
        EnableWindow(m_Left, FALSE);
        EnableWindow(m_Right, FALSE);
    });
    Hover(m_Left);
    EXPECT_TRUE(WaitShown());
    EXPECT_FALSE(Shown(*m_Second));
    Hover(m_Right);
    EXPECT_TRUE(gui::WaitUntil([this] { return Shown(*m_Second); }));
    EXPECT_TRUE(WaitHidden());
    // The first goes, the second keeps working.
    On([this] { m_Tip = std::make_unique<cToolTip>(); });
    gui::MoveTo(gui::ToScreen(m_Form, 290, 190));
    EXPECT_TRUE(gui::WaitUntil([this] { return !Shown(*m_Second); }));
    Hover(m_Right);
    EXPECT_TRUE(gui::WaitUntil([this] { return Shown(*m_Second); }));
}

TEST_F(ToolTip, BarsBreakTheLine) {
    Create(u"One|Two||Three");
    EXPECT_EQ(L"One\r\nTwo\r\n\r\nThree", TextOfTool(m_Left));
    EXPECT_EQ(L"One\r\nTwo\r\n\r\nThree", TextOfTool(m_Form));
    Hover(m_Left);
    ASSERT_TRUE(WaitShown());
    const SIZE four = SizeShown();
    On([this] { m_Tip->Text(u"One Two Three"); });
    EXPECT_LT(SizeShown().cy, four.cy);
}

TEST_F(ToolTip, AmpersandsAreShown) {
    Create(u"Salt & pepper && more");
    Hover(m_Left);
    ASSERT_TRUE(WaitShown());
    const SIZE with = SizeShown();
    On([this] { m_Tip->Text(u"Salt  pepper  more"); });
    EXPECT_LT(SizeShown().cx, with.cx);
}

TEST_F(ToolTip, TextAndTitleChangeTheLiveTipAndTheInitialOnesStay) {
    Create(u"First|line", u"Head");
    On([this] {
        EXPECT_EQ(u"First|line", m_Tip->InitialText());
        EXPECT_EQ(u"Head", m_Tip->InitialTitle());
        m_Tip->Text(u"Second");
        EXPECT_EQ(u"Second", m_Tip->Text());
        EXPECT_EQ(u"First|line", m_Tip->InitialText());
    });
    EXPECT_EQ(L"Second", TextOfTool(m_Left));
    EXPECT_EQ(L"Second", TextOfTool(m_Form));
    EXPECT_EQ(u"Head", m_Tip->InitialTitle());
}

TEST_F(ToolTip, ATitleWithItsIconStandsAboveTheText) {
    Create(u"Text", u"");
    Hover(m_Left);
    ASSERT_TRUE(WaitShown());
    const SIZE plain = SizeShown();
    On([this] { m_Tip->Title(u"A title that is wider"); });
    const SIZE titled = SizeShown();
    EXPECT_GT(titled.cy, plain.cy);
    EXPECT_GT(titled.cx, plain.cx);
    On([this] { m_Tip->Icon(0); });
    EXPECT_LT(SizeShown().cx, titled.cx);
    On([this] {
        EXPECT_EQ(u"A title that is wider", m_Tip->Title());
        EXPECT_EQ(u"", m_Tip->InitialTitle());
    });
}

TEST_F(ToolTip, ATitleThatIsTooLongIsCut) {
    Create(u"Text", std::u16string(99, u'i'));
    Hover(m_Left);
    ASSERT_TRUE(WaitShown());
    const SIZE longest = SizeShown();
    On([this] { m_Tip->Title(std::u16string(150, u'i')); });
    EXPECT_EQ(longest.cx, SizeShown().cx);
    EXPECT_EQ(longest.cy, SizeShown().cy);
    On([this] { EXPECT_EQ(150u, m_Tip->Title().size()); });
}

TEST_F(ToolTip, TheWindowIsATopMostBalloonWithoutAnOwner) {
    Create();
    EXPECT_EQ(nullptr, GetWindow(m_Tip->hWnd(), GW_OWNER));
    EXPECT_TRUE(GetWindowLongW(m_Tip->hWnd(), GWL_EXSTYLE) & WS_EX_TOPMOST);
    EXPECT_EQ(TTS_ALWAYSTIP | TTS_BALLOON | TTS_NOPREFIX, GetWindowLongW(m_Tip->hWnd(), GWL_STYLE) & 0xFFFF);
    On([this] { m_Tip->Style(TTS_ALWAYSTIP); });
    EXPECT_EQ(TTS_ALWAYSTIP | TTS_NOPREFIX, GetWindowLongW(m_Tip->hWnd(), GWL_STYLE) & 0xFFFF);
    // A form with tips can still become top-most itself.
    On([this] { modWin::SetTopMost(m_Form); });
    EXPECT_TRUE(GetWindowLongW(m_Form, GWL_EXSTYLE) & WS_EX_TOPMOST);
}

TEST_F(ToolTip, ColoursAreTheGivenOnesOrFollowTheSystem) {
    Create();
    EXPECT_EQ(GetSysColor(COLOR_BTNTEXT), static_cast<DWORD>(Ask(TTM_GETTIPTEXTCOLOR)));
    EXPECT_EQ(GetSysColor(COLOR_INFOBK), static_cast<DWORD>(Ask(TTM_GETTIPBKCOLOR)));
    INT index = COLOR_INFOBK;
    const COLORREF before = GetSysColor(index), changed = RGB(1, 2, 3);
    On([&] { SetSysColors(1, &index, &changed); });
    EXPECT_TRUE(gui::WaitUntil([&] { return static_cast<COLORREF>(Ask(TTM_GETTIPBKCOLOR)) == changed; }));
    On([&] { SetSysColors(1, &index, &before); });
    On([this] {
        m_Tip->ForeCol(RGB(10, 20, 30));
        m_Tip->BackCol(RGB(200, 210, 220));
        EXPECT_EQ(RGB(10, 20, 30), m_Tip->ForeCol());
    });
    EXPECT_EQ(RGB(10, 20, 30), static_cast<COLORREF>(Ask(TTM_GETTIPTEXTCOLOR)));
    EXPECT_EQ(RGB(200, 210, 220), static_cast<COLORREF>(Ask(TTM_GETTIPBKCOLOR)));
    On([this] { m_Tip->ForeCol(kNoColour); });
    EXPECT_EQ(GetSysColor(COLOR_INFOTEXT), static_cast<DWORD>(Ask(TTM_GETTIPTEXTCOLOR)));
}

bool YesHighContrast() {
    return true;
}

TEST_F(ToolTip, HighContrastTakesTheSystemsPairOfColours) {
    Create();
    On([this] {
        m_Tip->ForeCol(RGB(10, 20, 30));
        m_Tip->BackCol(RGB(200, 210, 220));
        Theme::ReplaceHighContrast(YesHighContrast);
        Theme::SettingsChanged();
        SendMessageW(m_Tip->hWnd(), WM_SETTINGCHANGE, 0, 0);
    });
    EXPECT_EQ(GetSysColor(COLOR_INFOTEXT), static_cast<DWORD>(Ask(TTM_GETTIPTEXTCOLOR)));
    EXPECT_EQ(GetSysColor(COLOR_INFOBK), static_cast<DWORD>(Ask(TTM_GETTIPBKCOLOR)));
    On([this] {
        Theme::ReplaceHighContrast(nullptr);
        Theme::SettingsChanged();
        SendMessageW(m_Tip->hWnd(), WM_SETTINGCHANGE, 0, 0);
    });
    EXPECT_EQ(RGB(10, 20, 30), static_cast<COLORREF>(Ask(TTM_GETTIPTEXTCOLOR)));
    EXPECT_EQ(RGB(200, 210, 220), static_cast<COLORREF>(Ask(TTM_GETTIPBKCOLOR)));
}

TEST_F(ToolTip, TimesAreTheGivenOnesOrTheSystems) {
    Create(u"Text", u"", -1);
    const LRESULT usualInitial = Ask(TTM_GETDELAYTIME, TTDT_INITIAL);
    const LRESULT usualPopup = Ask(TTM_GETDELAYTIME, TTDT_AUTOPOP);
    EXPECT_EQ(static_cast<LRESULT>(GetDoubleClickTime()), usualInitial);
    EXPECT_EQ(static_cast<LRESULT>(10 * GetDoubleClickTime()), usualPopup);
    On([this] {
        m_Tip->HoverTime(123);
        m_Tip->PopupTime(4567);
    });
    EXPECT_EQ(123, Ask(TTM_GETDELAYTIME, TTDT_INITIAL));
    EXPECT_EQ(4567, Ask(TTM_GETDELAYTIME, TTDT_AUTOPOP));
    On([this] {
        m_Tip->HoverTime(-1);
        m_Tip->PopupTime(1'000'000);
    });
    EXPECT_EQ(usualInitial, Ask(TTM_GETDELAYTIME, TTDT_INITIAL));
    EXPECT_EQ(32767, Ask(TTM_GETDELAYTIME, TTDT_AUTOPOP));
}

TEST_F(ToolTip, CenteredSetsTheSystemsFlag) {
    Create();
    EXPECT_EQ(0u, FlagsOfTool(m_Left) & TTF_CENTERTIP);
    On([this] { m_Tip->Centered(true); });
    EXPECT_NE(0u, FlagsOfTool(m_Left) & TTF_CENTERTIP);
    EXPECT_NE(0u, FlagsOfTool(m_Form) & TTF_CENTERTIP);
    EXPECT_EQ(L"One\r\nTwo", TextOfTool(m_Left));
    On([this] { m_Tip->Centered(false); });
    EXPECT_EQ(0u, FlagsOfTool(m_Form) & TTF_CENTERTIP);
    Hover(m_Left);
    EXPECT_TRUE(WaitShown());
}

TEST_F(ToolTip, WhatIsNoWindowGetsNone) {
    On([this] {
        EXPECT_FALSE(m_Tip->Create(nullptr, u"Text", kBalloon, false, 0, u"", 0, 0, -1, -1));
        EXPECT_EQ(nullptr, m_Tip->hWnd());
        m_Tip->Text(u"later");
        m_Tip->Title(u"later");
        m_Tip->Style(1);
        m_Tip->Centered(true);
    });
}

TEST_F(ToolTip, ASecondCreateTakesThePlaceOfTheFirst) {
    Create();
    const HWND first = m_Tip->hWnd();
    On([this] {
        ASSERT_TRUE(
            m_Tip->Create(m_Right, u"Right", kBalloon, false, 0, u"", kNoColour, kNoColour, -1, kSoon));
    });
    EXPECT_FALSE(IsWindow(first));
    Hover(m_Left);
    EXPECT_TRUE(StaysHidden());
    Hover(m_Right);
    EXPECT_TRUE(WaitShown());
}

TEST_F(ToolTip, TheControlMayEndBeforeItsTip) {
    Create();
    Hover(m_Left);
    ASSERT_TRUE(WaitShown());
    On([this] { DestroyWindow(m_Left); });
    gui::MoveTo(gui::ToScreen(m_Form, 61, 41));
    gui::MoveTo(gui::ToScreen(m_Form, 290, 190));
    EXPECT_TRUE(WaitHidden());
}

TEST_F(ToolTip, TheFormMayEndBeforeTheTip) {
    Create();
    const HWND tip = m_Tip->hWnd();
    On([this] {
        DestroyWindow(m_Form);
        m_Tip->Text(u"still here");
        m_Tip.reset();
    });
    EXPECT_FALSE(IsWindow(tip));
}

TEST_F(ToolTip, ATipEndsWhileItShows) {
    Create();
    On([this] { EnableWindow(m_Left, FALSE); });
    Hover(m_Left);
    ASSERT_TRUE(WaitShown());
    On([this] { m_Tip = std::make_unique<cToolTip>(); });
    Hover(m_Left);
    m_Ui.Settle();
    EXPECT_FALSE(Shown(*m_Tip));
}

} // namespace
