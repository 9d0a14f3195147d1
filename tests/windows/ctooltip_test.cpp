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

TEST_F(ToolTip, WhileTheMouseIsCapturedNoneShows) {
    Create();
    On([this] {
        EnableWindow(m_Left, FALSE);
        SetCapture(m_Form);
    });
    Hover(m_Left);
    EXPECT_TRUE(StaysHidden());
    On([] { ReleaseCapture(); });
    gui::MoveTo(gui::ToScreen(m_Left, 40, 20));
    EXPECT_TRUE(WaitShown());
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

// A frame in a frame, with a control and room beside it.
class ToolTipInFrames : public ToolTip {
protected:
    void SetUp() override {
        ToolTip::SetUp();
        On([this] {
            m_Outer = gui::MakeWindow(m_Form, {20, 70, 280, 180});
            m_Inner = gui::MakeWindow(m_Outer, {10, 10, 200, 100});
            m_Held = gui::MakeWindow(m_Inner, {10, 10, 110, 50});
            ASSERT_TRUE(
                m_Tip->Create(m_Held, u"Held", kBalloon, false, 0, u"", kNoColour, kNoColour, -1, kSoon));
        });
    }
    void Leave() {
        gui::MoveTo(gui::ToScreen(m_Form, 290, 190));
        EXPECT_TRUE(WaitHidden());
    }

    HWND m_Outer = nullptr, m_Inner = nullptr, m_Held = nullptr;
};

TEST_F(ToolTipInFrames, ItShowsWhicheverOfThemAreDisabled) {
    for (int disabled = 0; disabled < 8; ++disabled) {
        On([&] {
            EnableWindow(m_Held, !(disabled & 1));
            EnableWindow(m_Inner, !(disabled & 2));
            EnableWindow(m_Outer, !(disabled & 4));
        });
        Hover(m_Held);
        EXPECT_TRUE(WaitShown()) << disabled;
        gui::MoveTo(gui::ToScreen(m_Inner, 150, 30)); // beside it, in the same frame
        EXPECT_TRUE(WaitHidden()) << disabled;
        Hover(m_Held);
        EXPECT_TRUE(WaitShown()) << disabled;
        Leave();
    }
}

TEST_F(ToolTipInFrames, WhatIsCoveredOrHiddenInThemHasNone) {
    HWND cover = nullptr;
    On([&] {
        EnableWindow(m_Outer, FALSE);
        cover = gui::MakeWindow(m_Form, {20, 70, 280, 180});
        SetWindowPos(cover, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        EnableWindow(cover, FALSE);
    });
    Hover(m_Held);
    EXPECT_TRUE(StaysHidden());
    On([&] {
        ShowWindow(cover, SW_HIDE);
        ShowWindow(m_Inner, SW_HIDE);
    });
    gui::MoveTo(gui::ToScreen(m_Held, 40, 20));
    EXPECT_TRUE(StaysHidden());
    On([&] { ShowWindow(m_Inner, SW_SHOWNA); });
    Hover(m_Held);
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
    Hover(m_Left);
    ASSERT_TRUE(WaitShown());
    const HWND first = m_Tip->hWnd();
    On([this] {
        ASSERT_TRUE(
            m_Tip->Create(m_Right, u"Right", kBalloon, false, 0, u"", kNoColour, kNoColour, -1, kSoon));
    });
    EXPECT_FALSE(IsWindow(first));
    gui::MoveTo(gui::ToScreen(m_Left, 5, 5));
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
    Hover(m_Left);
    ASSERT_TRUE(WaitShown());
    const HWND tip = m_Tip->hWnd();
    On([this] {
        DestroyWindow(m_Form);
        m_Tip->Text(u"still here");
        m_Tip.reset();
    });
    EXPECT_FALSE(IsWindow(tip));
}

TEST_F(ToolTip, ItComesAlsoWhereTheMouseRestsAlready) {
    Hover(m_Left);
    m_Ui.Settle();
    Create();
    EXPECT_TRUE(StaysHidden());
    On([this] { m_Tip->Hover(); });
    EXPECT_TRUE(WaitShown());
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
