// TavrelButton: mouse, keys and the order of its events.
#include "windows/ButtonForm.h"

namespace {

using gui::Events;

class Button : public gui::ButtonTest {};

TEST_F(Button, ComingAndGoingOfTheMouse) {
    m_Ui.Run([&] { m_Shown->Record(*m_Shown->Back); });
    Enter(*m_Shown->Back);
    // On a real screen the mouse may be told to be back where it was.
    for (int tries = 0; tries < 10 && LogOf(2).size() != 2; ++tries) {
        Leave(*m_Shown->Back);
        ClearLog();
        Enter(*m_Shown->Back);
    }
    EXPECT_EQ(LogOf(2), (Events{"MouseIn", "MouseMove"}));
    gui::MoveTo(gui::ToScreen(m_Shown->Back->Base.hWnd(), 5, 5));
    m_Ui.Settle();
    EXPECT_EQ(Log(), (Events{"MouseIn", "MouseMove"})); // it comes in once
    Leave(*m_Shown->Back);
    EXPECT_EQ(LogOf(3), (Events{"MouseIn", "MouseMove", "MouseOut"}));
}

TEST_F(Button, PressAndRelease) {
    m_Ui.Run([&] { m_Shown->Record(*m_Shown->Back); });
    Enter(*m_Shown->Back);
    ClearLog();
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    EXPECT_EQ(LogOf(1), Events{"MouseDown 1"});
    EXPECT_TRUE(On([&] { return m_Shown->Back->State().Pressed; }));
    EXPECT_TRUE(FocusComesTo(m_Shown->Back->Base));
    gui::Press(MOUSEEVENTF_LEFTUP);
    EXPECT_EQ(LogOf(3), (Events{"MouseDown 1", "Click", "MouseUp 1"}));
    EXPECT_FALSE(On([&] { return m_Shown->Back->State().Pressed; }));
    EXPECT_EQ(On([] { return GetCapture(); }), nullptr);
}

TEST_F(Button, LeavingWhilePressedDoesNotClick) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] { m_Shown->Record(back); });
    Enter(back);
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(Logged("MouseDown 1"));
    ClearLog();
    Leave(back);
    ASSERT_TRUE(Logged("MouseOut"));
    EXPECT_FALSE(On([&] { return back.State().Pressed; })); // looks released
    ClearLog();
    gui::Press(MOUSEEVENTF_LEFTUP);
    EXPECT_EQ(LogOf(1), Events{"MouseUp 1"});
}

TEST_F(Button, ComingBackWhilePressedClicksAfterAll) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] { m_Shown->Record(back); });
    Enter(back);
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(Logged("MouseDown 1"));
    Leave(back);
    Enter(back);
    EXPECT_TRUE(On([&] { return back.State().Pressed; }));
    ClearLog();
    gui::Press(MOUSEEVENTF_LEFTUP);
    EXPECT_EQ(LogOf(2), (Events{"Click", "MouseUp 1"}));
}

TEST_F(Button, TheRightButtonNeitherPressesNorClicks) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] { m_Shown->Record(back); });
    Enter(back);
    ClearLog();
    gui::Press(MOUSEEVENTF_RIGHTDOWN);
    EXPECT_EQ(LogOf(1), Events{"MouseDown 2"});
    EXPECT_FALSE(On([&] { return back.State().Pressed; }));
    gui::Press(MOUSEEVENTF_RIGHTUP);
    EXPECT_EQ(LogOf(2), (Events{"MouseDown 2", "MouseUp 2"}));
}

TEST_F(Button, ADoubleClickIsTwoPresses) {
    TavrelButton& back = *m_Shown->Back;
    std::vector<std::pair<int, int>> places;
    Enter(back);
    m_Ui.Run([&] {
        m_Shown->Record(back);
        back.MouseDown = [&](int, int, int x, int y) {
            m_Shown->Note("MouseDown");
            places.emplace_back(x, y);
        };
    });
    for (int i = 0; i < 2; ++i) {
        gui::Press(MOUSEEVENTF_LEFTDOWN);
        gui::Press(MOUSEEVENTF_LEFTUP);
    }
    EXPECT_EQ(LogOf(6), (Events{"MouseDown", "Click", "MouseUp 1", "MouseDown", "Click", "MouseUp 1"}));
    ASSERT_EQ(places.size(), 2u);
    EXPECT_EQ(places[0], places[1]);
    POINT middle = gui::CentreOf(back.Base.hWnd());
    ScreenToClient(back.Base.hWnd(), &middle);
    const LONG dpi = m_Shown->Window.Dpi();
    EXPECT_EQ(places[0], (std::pair<int, int>{middle.x * 1440 / dpi, middle.y * 1440 / dpi})); // twips
}

TEST_F(Button, ASpaceHeldPressesOnceAndItsReleaseClicks) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] {
        m_Shown->Record(back);
        back.Base.SetFocus();
    });
    gui::Key(VK_SPACE, false);
    ASSERT_EQ(LogOf(2), (Events{"KeyDown 32", "KeyPress 32"}));
    EXPECT_TRUE(On([&] { return back.State().Pressed && back.State().Hovering; }));
    const PaintTally before = On([&] {
        RedrawWindow(m_Shown->Window.Base.hWnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        return PaintsSoFar();
    });
    // Where the keyboard of a real screen has said that nothing is held, there is no repeat.
    const bool held = On([] { return GetKeyState(VK_SPACE) < 0; });
    gui::Key(VK_SPACE, false);
    ASSERT_EQ(LogOf(4).size(), 4u);
    if (held) {
        EXPECT_EQ(On([] { return PaintsSoFar(); }).Paints, before.Paints); // it does nothing
    }
    ClearLog();
    gui::Key(VK_SPACE, true);
    EXPECT_EQ(LogOf(3), (Events{"Click", "MouseUp 1", "KeyUp 32"}));
    EXPECT_FALSE(On([&] { return back.State().Pressed || back.State().Hovering; }));
}

TEST_F(Button, ASpaceBesideAHeldShiftClicksToo) {
    m_Ui.Run([&] {
        m_Shown->Record(*m_Shown->Back);
        m_Shown->Back->Base.SetFocus();
    });
    gui::Key(VK_SHIFT, false);
    gui::Type(VK_SPACE);
    gui::Key(VK_SHIFT, true);
    EXPECT_EQ(LogOf(7), (Events{"KeyDown 16", "KeyDown 32", "KeyPress 32", "Click", "MouseUp 1", "KeyUp 32",
                                "KeyUp 16"}));
}

TEST_F(Button, OtherKeysAreOnlyTold) {
    m_Ui.Run([&] {
        m_Shown->Record(*m_Shown->Back);
        m_Shown->Back->Base.SetFocus();
    });
    gui::Type('A');
    EXPECT_EQ(LogOf(3), (Events{"KeyDown 65", "KeyPress 97", "KeyUp 65"}));
}

TEST_F(Button, ASpaceThatWentDownElsewhereDoesNotClick) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] {
        m_Shown->Record(back);
        m_Shown->Text.Base.SetFocus();
    });
    gui::Key(VK_SPACE, false);
    ASSERT_TRUE(Becomes([&] { return m_Shown->Text.Text() == u" "; }));
    m_Ui.Run([&] { back.Base.SetFocus(); });
    gui::Key(VK_SPACE, true);
    EXPECT_EQ(LogOf(1), Events{"KeyUp 32"});
}

TEST_F(Button, LosingTheFocusEndsThePress) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] {
        m_Shown->Record(back);
        back.Base.SetFocus();
    });
    gui::Key(VK_SPACE, false);
    ASSERT_EQ(LogOf(2).size(), 2u);
    m_Ui.Run([&] { m_Shown->Text.Base.SetFocus(); });
    EXPECT_FALSE(On([&] { return back.State().Pressed || back.State().Hovering; }));
    gui::Key(VK_SPACE, true);
    m_Ui.Settle();
    EXPECT_EQ(Log().size(), 2u);
    // The next space is not taken for a repeat.
    m_Ui.Run([&] { back.Base.SetFocus(); });
    ClearLog();
    gui::Type(VK_SPACE);
    EXPECT_EQ(LogOf(5), (Events{"KeyDown 32", "KeyPress 32", "Click", "MouseUp 1", "KeyUp 32"}));
}

TEST_F(Button, TheAccessKeyClicksAndNothingElse) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] {
        m_Shown->Record(back);
        m_Shown->Text.Base.SetFocus();
    });
    const auto altB = [] {
        gui::Key(VK_MENU, false);
        gui::Type('B');
        gui::Key(VK_MENU, true);
    };
    altB();
    // It has the focus then, and hears of the releases.
    EXPECT_EQ(LogOf(3), (Events{"Click", "KeyUp 66", "KeyUp 18"}));
    m_Ui.Run([&] { back.Base.Enabled(false); });
    ClearLog();
    altB();
    gui::Type('X'); // comes to the text box or the next button: the keys before are done
    m_Ui.Settle();
    EXPECT_EQ(Log(), Events{});
}

TEST_F(Button, EnterClicksTheFocusedButton) {
    m_Ui.Run([&] {
        m_Shown->Record(m_Shown->Plain);
        m_Shown->Plain.Base.SetFocus();
    });
    gui::Type(VK_RETURN);
    ASSERT_TRUE(Logged("Click"));
    EXPECT_EQ(Log().front(), "Click");
}

TEST_F(Button, ADisabledButtonTakesNoPartInAnything) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] {
        m_Shown->Record(back);
        back.Base.Enabled(false);
    });
    gui::Click(gui::CentreOf(back.Base.hWnd()));
    Enter(m_Shown->Main); // what came before has been dealt with
    EXPECT_EQ(Log(), Events{});
    EXPECT_FALSE(On([&] { return back.State().Hovering; }));
    // From code it works nevertheless.
    m_Ui.Run([&] { back.Caption(u"Still"); });
    EXPECT_EQ(On([&] { return WindowText(back.Base.hWnd()); }), u"Still");
}

TEST_F(Button, DisablingItUnderThePressEndsPressAndHover) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] { m_Shown->Record(back); });
    Enter(back);
    ASSERT_TRUE(Logged("MouseMove")); // pending events have run
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(Logged("MouseDown 1"));
    m_Ui.Run([&] { back.Base.Enabled(false); });
    EXPECT_TRUE(Logged("MouseOut"));
    gui::Press(MOUSEEVENTF_LEFTUP);
    gui::MoveTo({1, 1});
    m_Ui.Settle();
    EXPECT_EQ(On([] { return GetCapture(); }), nullptr);
    EXPECT_EQ(Log(), (Events{"MouseIn", "MouseMove", "MouseDown 1", "MouseOut"}));
}

TEST_F(Button, APressElsewhereDoesNotClickHere) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] { m_Shown->Record(back); });
    gui::MoveTo(gui::ToScreen(m_Shown->Window.Base.hWnd(), Px(390), Px(290)));
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    Enter(back);
    ASSERT_TRUE(Logged("MouseMove")); // pending events have run
    gui::Press(MOUSEEVENTF_LEFTUP);
    ASSERT_TRUE(Logged("MouseUp 1"));
    EXPECT_EQ(Log(), (Events{"MouseIn", "MouseMove", "MouseUp 1"}));
}

TEST_F(Button, LosingTheMouseToAnotherEndsThePress) {
    TavrelButton& back = *m_Shown->Back;
    bool lost = false;
    m_Ui.Run([&] {
        back.MouseDown = [&](int, int, int, int) {
            ReleaseCapture();
            lost = true;
        };
    });
    Enter(back);
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(Becomes([&] { return lost; }));
    EXPECT_FALSE(On([&] { return back.State().Pressed; }));
    m_Ui.Run([&] { m_Shown->Record(back); });
    gui::Press(MOUSEEVENTF_LEFTUP);
    ASSERT_TRUE(Logged("MouseUp 1"));
    EXPECT_EQ(std::count(m_Shown->Log.begin(), m_Shown->Log.end(), "Click"), 0);
}

TEST_F(Button, PendingEventsRunBetweenMouseInAndMouseMove) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] {
        m_Shown->Record(back);
        back.MouseIn = [&](int) {
            m_Shown->Note("MouseIn");
            m_Ui.Post([&] { m_Shown->Note("pending"); });
        };
    });
    Enter(back);
    EXPECT_EQ(LogOf(3), (Events{"MouseIn", "pending", "MouseMove"}));
}

// Each event destroys its own button.
TEST_F(Button, MayBeDestroyedByAnyOfItsEvents) {
    const auto destroy = [this](auto&&...) { m_Shown->Back.reset(); };
    struct Case {
        const char* Name;
        std::function<void(TavrelButton&)> Wire;
    };
    const Case cases[] = {
        {"MouseIn", [&](TavrelButton& b) { b.MouseIn = destroy; }},
        {"MouseMove", [&](TavrelButton& b) { b.MouseMove = destroy; }},
        {"MouseOut", [&](TavrelButton& b) { b.MouseOut = destroy; }},
        {"MouseDown", [&](TavrelButton& b) { b.MouseDown = destroy; }},
        {"Click", [&](TavrelButton& b) { b.Click = destroy; }},
        {"MouseUp", [&](TavrelButton& b) { b.MouseUp = destroy; }},
        {"KeyDown", [&](TavrelButton& b) { b.KeyDown = destroy; }},
        {"KeyPress", [&](TavrelButton& b) { b.KeyPress = destroy; }},
        {"KeyUp", [&](TavrelButton& b) { b.KeyUp = destroy; }},
    };
    for (const Case& tried : cases) {
        gui::MoveTo({1, 1});
        m_Ui.Run([&] {
            m_Shown.reset();
            m_Shown = std::make_unique<gui::ButtonForm>();
            tried.Wire(*m_Shown->Back);
        });
        ASSERT_TRUE(gui::Activate(m_Shown->Window.Base.hWnd()));
        m_Ui.Run([&] { m_Shown->Back->Base.SetFocus(); });
        const HWND window = m_Shown->Back->Base.hWnd();
        if (std::string(tried.Name).starts_with("Key")) {
            gui::Type(VK_SPACE);
        } else {
            gui::Click(gui::CentreOf(window));
            m_Ui.Settle();
            gui::MoveTo({1, 1});
        }
        EXPECT_TRUE(Becomes([&] { return m_Shown->Back == nullptr; })) << tried.Name;
        EXPECT_FALSE(On([] { return EventFrame::Ending(); })) << tried.Name;
    }
}

TEST_F(Button, AFailureInAnyEventIsKept) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] {
        back.MouseIn = [](int) { throw RuntimeFailure(kOverflow, u"MouseIn"); };
        SendMessageW(back.Base.hWnd(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
        EXPECT_TRUE(EventFrame::Ending());
        EventFrame::Forget();
        back.Click = [] { throw RuntimeFailure(kOverflow, u"Click"); };
        SendMessageW(back.Base.hWnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
        SendMessageW(back.Base.hWnd(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
        EXPECT_TRUE(EventFrame::Ending());
        EventFrame::Forget();
        back.MouseOut = [](int) { throw RuntimeFailure(kOverflow, u"MouseOut"); };
        SendMessageW(back.Base.hWnd(), WM_TIMER, 1, 0);
        EXPECT_TRUE(EventFrame::Ending());
        EventFrame::Forget();
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
        }
    });
}

} // namespace
