// When and where a tip shows and goes; who ends first.
#include "windows/TipTest.h"

namespace {

using gui::kBalloon, gui::kSoon;

class ToolTip : public gui::TipTest {};

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

TEST_F(ToolTip, AControlThatGrewHasItAllOver) {
    Create();
    On([this] { MoveWindow(m_Left, 20, 100, 220, 80, TRUE); });
    gui::MoveTo(gui::ToScreen(m_Left, 210, 70));
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

TEST_F(ToolTip, ATipOutlivesAnotherOneOfItsControl) {
    On([this] {
        ASSERT_TRUE(
            m_Second->Create(m_Left, u"Earlier", kBalloon, false, 0, u"", kNoColour, kNoColour, -1, kSoon));
    });
    Create();
    On([this] { m_Second = std::make_unique<cToolTip>(); });
    Hover(m_Left);
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
