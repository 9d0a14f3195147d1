// What a tip says and how: text, title, icon, style, colours, times.
#include "controls/modWin.h"
#include "windows/TipTest.h"

#include <commctrl.h>

#include <string>

namespace {

class ToolTip : public gui::TipTest {
protected:
    // With the mouse on the control: that brings the tip's window.
    void Create(std::u16string_view text = u"One|Two", std::u16string_view title = u"",
                int hoverTime = gui::kSoon) {
        TipTest::Create(text, title, hoverTime);
        Hover(m_Left);
        ASSERT_TRUE(gui::WaitUntil([this] { return m_Tip->hWnd() != nullptr; }));
        m_Ui.Settle();
    }
    // The mouse then reaches the form instead, and the tool lies there.
    void DisableTheControl() {
        On([this] { EnableWindow(m_Left, FALSE); });
        gui::MoveTo(gui::ToScreen(m_Left, 5, 5));
        m_Ui.Settle();
    }
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
};

TEST_F(ToolTip, BarsBreakTheLine) {
    Create(u"One|Two||Three");
    EXPECT_EQ(L"One\r\nTwo\r\n\r\nThree", TextOfTool(m_Left));
    ASSERT_TRUE(WaitShown());
    const SIZE four = SizeShown();
    On([this] { m_Tip->Text(u"One Two Three"); });
    EXPECT_LT(SizeShown().cy, four.cy);
    On([this] { m_Tip->Text(u"Four|Five"); });
    DisableTheControl();
    EXPECT_EQ(L"Four\r\nFive", TextOfTool(m_Form));
}

TEST_F(ToolTip, AmpersandsAreShown) {
    Create(u"Salt & pepper && more");
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
    EXPECT_EQ(u"Head", m_Tip->InitialTitle());
}

TEST_F(ToolTip, ATitleWithItsIconStandsAboveTheText) {
    Create(u"Text", u"");
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

bool NowHighContrast = false;

// Windows that lie on top hear of a change before the forms do.
TEST_F(ToolTip, HighContrastIsFollowedBeforeAnyFormHasHeardOfIt) {
    Create();
    On([this] {
        m_Tip->BackCol(RGB(200, 210, 220));
        Theme::ReplaceHighContrast([] { return NowHighContrast; });
        Theme::SettingsChanged();
        NowHighContrast = true;
        SendMessageW(m_Tip->hWnd(), WM_SETTINGCHANGE, 0, 0);
    });
    EXPECT_EQ(GetSysColor(COLOR_INFOBK), static_cast<DWORD>(Ask(TTM_GETTIPBKCOLOR)));
    On([] {
        Theme::ReplaceHighContrast(nullptr);
        Theme::SettingsChanged();
        NowHighContrast = false;
    });
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
    EXPECT_EQ(L"One\r\nTwo", TextOfTool(m_Left));
    EXPECT_TRUE(WaitShown());
    DisableTheControl();
    EXPECT_NE(0u, FlagsOfTool(m_Form) & TTF_CENTERTIP);
    On([this] { m_Tip->Centered(false); });
    EXPECT_EQ(0u, FlagsOfTool(m_Form) & TTF_CENTERTIP);
}

TEST_F(ToolTip, WhatIsSetBeforeTheMouseComesShowsThen) {
    TipTest::Create(u"First", u"");
    EXPECT_EQ(nullptr, m_Tip->hWnd());
    On([this] {
        m_Tip->Text(u"Second|line");
        m_Tip->Style(TTS_ALWAYSTIP);
        m_Tip->Centered(true);
        m_Tip->ForeCol(RGB(10, 20, 30));
        m_Tip->BackCol(RGB(200, 210, 220));
        m_Tip->PopupTime(4567);
    });
    Hover(m_Left);
    ASSERT_TRUE(WaitShown());
    EXPECT_EQ(L"Second\r\nline", TextOfTool(m_Left));
    EXPECT_EQ(TTS_ALWAYSTIP | TTS_NOPREFIX, GetWindowLongW(m_Tip->hWnd(), GWL_STYLE) & 0xFFFF);
    EXPECT_NE(0u, FlagsOfTool(m_Left) & TTF_CENTERTIP);
    EXPECT_EQ(RGB(10, 20, 30), static_cast<COLORREF>(Ask(TTM_GETTIPTEXTCOLOR)));
    EXPECT_EQ(RGB(200, 210, 220), static_cast<COLORREF>(Ask(TTM_GETTIPBKCOLOR)));
    EXPECT_EQ(4567, Ask(TTM_GETDELAYTIME, TTDT_AUTOPOP));
}

} // namespace
