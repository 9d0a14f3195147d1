// CheckBox and OptionButtonC: mouse, keys, values, groups, screen readers.
#include "windows/ToggleForm.h"

#include <algorithm>

namespace {

using Events = std::vector<std::string>;

class Toggle : public gui::FormTest<gui::ToggleForm> {
protected:
    void SetUp() override {
        FormTest::SetUp();
        m_Ui.Run([&] {
            m_Shown->Ready->Click = [this] { Note("Ready"); };
            m_Shown->Grey.Click = [this] { Note("Grey"); };
            m_Shown->Alone->Click = [this] { Note("Alone"); };
            for (int i = 0; i < 4; ++i) {
                m_Shown->Task[i].Click = [this, i] {
                    Note("Task" + std::to_string(i) + (m_Shown->Task[i].Value() ? "+" : "-"));
                };
            }
        });
    }
    void Note(const std::string& what) { m_Shown->Log.push_back(what); }
    Events Log() {
        m_Ui.Settle();
        return On([&] { return m_Shown->Log; });
    }
    void ClearLog() {
        m_Ui.Run([&] { m_Shown->Log.clear(); });
    }
    bool Logged(std::size_t events) {
        return Becomes([&] { return m_Shown->Log.size() >= events; });
    }
    void ClickOn(const Control& control) { gui::Click(gui::CentreOf(control.hWnd())); }
    std::string Values() {
        return On([&] {
            std::string values;
            for (const OptionButtonC& task : m_Shown->Task) values += task.Value() ? '1' : '0';
            return values + (m_Shown->Alone->Value() ? '1' : '0');
        });
    }
};

TEST_F(Toggle, ACheckBoxTogglesOnTheReleaseOfTheMouse) {
    const CheckBox& ready = *m_Shown->Ready;
    gui::MoveTo(gui::CentreOf(ready.Base.hWnd()));
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(Becomes([&] { return m_Shown->Ready->State().Pressed; }));
    EXPECT_EQ(On([&] { return ready.Value(); }), 0);
    EXPECT_TRUE(FocusComesTo(ready.Base));
    gui::Press(MOUSEEVENTF_LEFTUP);
    ASSERT_TRUE(Becomes([&] { return ready.Value() == 1; }));
    ClickOn(ready.Base);
    ASSERT_TRUE(Becomes([&] { return ready.Value() == 0; }));
    EXPECT_EQ(Log(), (Events{"Ready", "Ready"}));
}

TEST_F(Toggle, AndOnTheReleaseOfTheSpaceBar) {
    const CheckBox& ready = *m_Shown->Ready;
    m_Ui.Run([&] { m_Shown->Ready->Base.SetFocus(); });
    gui::Key(VK_SPACE, false);
    ASSERT_TRUE(Becomes([&] { return m_Shown->Ready->State().Pressed; }));
    gui::Key(VK_SPACE, false); // held down
    EXPECT_EQ(On([&] { return ready.Value(); }), 0);
    gui::Key(VK_SPACE, true);
    ASSERT_TRUE(Becomes([&] { return ready.Value() == 1; }));
    EXPECT_EQ(Log(), Events{"Ready"});
    EXPECT_FALSE(On([&] { return m_Shown->Ready->State().Pressed; }));
}

TEST_F(Toggle, GreyBecomesOff) {
    EXPECT_EQ(m_Shown->Grey.Value(), 2);
    ClickOn(m_Shown->Grey.Base);
    ASSERT_TRUE(Becomes([&] { return m_Shown->Grey.Value() == 0; }));
    ClickOn(m_Shown->Grey.Base);
    ASSERT_TRUE(Becomes([&] { return m_Shown->Grey.Value() == 1; }));
    EXPECT_EQ(Log(), (Events{"Grey", "Grey"}));
}

TEST_F(Toggle, TheMoveComesBeforeTheClick) {
    m_Ui.Run([&] {
        const auto move = [this](int, int, int, int) {
            if (m_Shown->Log.empty()) Note("MouseMove");
        };
        m_Shown->Ready->MouseMove = move;
        m_Shown->Alone->MouseMove = move;
    });
    ClickOn(m_Shown->Ready->Base);
    ASSERT_TRUE(Logged(2));
    EXPECT_EQ(Log(), (Events{"MouseMove", "Ready"}));
    ClearLog();
    ClickOn(m_Shown->Alone->Base);
    ASSERT_TRUE(Logged(2));
    EXPECT_EQ(Log(), (Events{"MouseMove", "Alone"}));
}

TEST_F(Toggle, MovesAreToldInTwips) {
    int x = 0, y = 0, button = -1;
    m_Ui.Run([&] {
        m_Shown->Ready->MouseMove = [&](int which, int, int atX, int atY) {
            button = which;
            x = atX;
            y = atY;
        };
    });
    const Control& ready = m_Shown->Ready->Base;
    gui::MoveTo(gui::ToScreen(ready.hWnd(), ready.Scaled(8), ready.Scaled(12)));
    EXPECT_TRUE(Becomes([&] { return x == 120 && y == 180 && button == 0; }));
}

TEST_F(Toggle, ADoubleClickTogglesTwice) {
    gui::MoveTo(gui::CentreOf(m_Shown->Ready->Base.hWnd()));
    for (int i = 0; i < 2; ++i) {
        gui::Press(MOUSEEVENTF_LEFTDOWN);
        gui::Press(MOUSEEVENTF_LEFTUP);
    }
    ASSERT_TRUE(Logged(2));
    EXPECT_EQ(On([&] { return m_Shown->Ready->Value(); }), 0);
}

TEST_F(Toggle, AReleaseOutsideOrAPressElsewhereTogglesNothing) {
    const HWND window = m_Shown->Ready->Base.hWnd();
    gui::MoveTo(gui::CentreOf(window));
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(Becomes([&] { return m_Shown->Ready->State().Pressed; }));
    gui::MoveTo(gui::ToScreen(m_Shown->Window.Base.hWnd(), 390, 290));
    ASSERT_TRUE(Becomes([&] { return !m_Shown->Ready->State().Pressed; })); // looks released
    gui::Press(MOUSEEVENTF_LEFTUP);
    ASSERT_TRUE(Becomes([] { return GetCapture() == nullptr; }));
    gui::Press(MOUSEEVENTF_LEFTDOWN); // on the form
    gui::MoveTo(gui::CentreOf(window));
    gui::Press(MOUSEEVENTF_LEFTUP);
    ClickOn(m_Shown->Grey.Base);
    ASSERT_TRUE(Logged(1));
    EXPECT_EQ(Log(), Events{"Grey"});
    EXPECT_EQ(On([&] { return m_Shown->Ready->Value(); }), 0);
}

TEST_F(Toggle, TheRightButtonDoesNothing) {
    gui::MoveTo(gui::CentreOf(m_Shown->Ready->Base.hWnd()));
    gui::Press(MOUSEEVENTF_RIGHTDOWN);
    gui::Press(MOUSEEVENTF_RIGHTUP);
    ClickOn(m_Shown->Grey.Base);
    ASSERT_TRUE(Logged(1));
    EXPECT_EQ(Log(), Events{"Grey"});
}

TEST_F(Toggle, ADisabledOneIgnoresMouseAndKeys) {
    m_Ui.Run([&] {
        m_Shown->Ready->Base.Enabled(false);
        m_Shown->Task[2].Base.Enabled(false);
    });
    ClickOn(m_Shown->Ready->Base);
    ClickOn(m_Shown->Task[2].Base);
    m_Ui.Run([&] {
        for (const UINT message : {WM_KEYDOWN, WM_KEYUP}) {
            SendMessageW(m_Shown->Ready->Base.hWnd(), message, VK_SPACE, 0);
            SendMessageW(m_Shown->Task[2].Base.hWnd(), message, VK_SPACE, 0);
        }
    });
    gui::Key(VK_MENU, false);
    gui::Type('R');
    gui::Key(VK_MENU, true);
    ClickOn(m_Shown->Grey.Base);
    ASSERT_TRUE(Logged(1));
    EXPECT_EQ(Log(), Events{"Grey"});
    EXPECT_EQ(On([&] { return m_Shown->Ready->Value(); }), 0);
    EXPECT_EQ(Values(), "10011");
}

TEST_F(Toggle, DisablingItUnderThePressTogglesNothing) {
    gui::MoveTo(gui::CentreOf(m_Shown->Ready->Base.hWnd()));
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(Becomes([&] { return m_Shown->Ready->State().Pressed; }));
    m_Ui.Run([&] { m_Shown->Ready->Base.Enabled(false); });
    gui::Press(MOUSEEVENTF_LEFTUP);
    ClickOn(m_Shown->Grey.Base);
    ASSERT_TRUE(Logged(1));
    EXPECT_EQ(Log(), Events{"Grey"});
    EXPECT_FALSE(On([&] { return m_Shown->Ready->State().Hovering || m_Shown->Ready->State().Pressed; }));
}

TEST_F(Toggle, LosingTheFocusEndsAHeldSpace) {
    m_Ui.Run([&] { m_Shown->Ready->Base.SetFocus(); });
    gui::Key(VK_SPACE, false);
    ASSERT_TRUE(Becomes([&] { return m_Shown->Ready->State().Pressed; }));
    m_Ui.Run([&] {
        m_Shown->Grey.Base.SetFocus();
        EXPECT_FALSE(m_Shown->Ready->State().Pressed);
    });
    gui::Key(VK_SPACE, true); // goes to Grey, where it did not go down
    EXPECT_EQ(Log(), Events{});
}

TEST_F(Toggle, ASpaceThatWasHeldBeforeTheFocusCameTogglesNothing) {
    m_Ui.Run([&] { m_Shown->Ready->Base.SetFocus(); });
    gui::Key(VK_SPACE, false);
    ASSERT_TRUE(Becomes([&] { return m_Shown->Ready->State().Pressed; }));
    m_Ui.Run([&] { m_Shown->Grey.Base.SetFocus(); });
    gui::Key(VK_SPACE, false); // as a key that is held comes again
    m_Ui.Settle();
    EXPECT_FALSE(On([&] { return m_Shown->Grey.State().Pressed; }));
    gui::Key(VK_SPACE, true);
    EXPECT_EQ(Log(), Events{});
}

TEST_F(Toggle, ASpaceReleasedUnderAltDoesNotStayPressed) {
    m_Ui.Run([&] { m_Shown->Ready->Base.SetFocus(); });
    gui::Key(VK_SPACE, false);
    ASSERT_TRUE(Becomes([&] { return m_Shown->Ready->State().Pressed; }));
    gui::Key(VK_MENU, false);
    gui::Key(VK_SPACE, true);
    EXPECT_TRUE(Becomes([&] { return !m_Shown->Ready->State().Pressed; }));
    gui::Key(VK_MENU, true);
    EXPECT_EQ(Log(), Events{"Ready"});
}

TEST_F(Toggle, AccessKeysToggle) {
    gui::Key(VK_MENU, false);
    gui::Type('R');
    gui::Type('U');
    gui::Key(VK_MENU, true);
    ASSERT_TRUE(Logged(4));
    EXPECT_EQ(On([&] { return m_Shown->Ready->Value(); }), 1);
    EXPECT_EQ(Values(), "01011");
}

TEST_F(Toggle, SettingTheValueOfACheckBoxRaisesClick) {
    m_Ui.Run([&] {
        for (const int value : {1, 1, 2, 0}) {
            m_Shown->Ready->Value(value);
            EXPECT_EQ(m_Shown->Ready->Value(), value);
        }
        m_Shown->Ready->Base.Enabled(false); // stops the user, not the program
        m_Shown->Ready->Value(1);
        for (const int value : {-1, 3}) EXPECT_THROW(m_Shown->Ready->Value(value), RuntimeFailure);
        EXPECT_EQ(m_Shown->Ready->Value(), 1);
    });
    EXPECT_EQ(Log().size(), 5u);
}

TEST_F(Toggle, ChoosingAnOptionClearsItsSistersFirst) {
    ClickOn(m_Shown->Task[1].Base);
    ASSERT_TRUE(Logged(3));
    EXPECT_EQ(Log(), (Events{"Task0-", "Task2-", "Task1+"}));
    EXPECT_EQ(Values(), "01011"); // neither another name nor another container
    // Once more: it stays, and tells it again.
    ClearLog();
    ClickOn(m_Shown->Task[1].Base);
    ASSERT_TRUE(Logged(3));
    EXPECT_EQ(Log().back(), "Task1+");
    EXPECT_EQ(Values(), "01011");
}

TEST_F(Toggle, SettingAnOptionFromCodeClearsItsSistersToo) {
    m_Ui.Run([&] { m_Shown->Task[2].Value(true); });
    EXPECT_EQ(Log(), (Events{"Task0-", "Task1-", "Task2+"}));
    EXPECT_EQ(Values(), "00111");
    ClearLog();
    m_Ui.Run([&] { m_Shown->Task[2].Value(false); });
    EXPECT_EQ(Log(), Events{"Task2-"});
    EXPECT_EQ(Values(), "00011");
    // A disabled one changes, but raises nothing.
    ClearLog();
    m_Ui.Run([&] {
        m_Shown->Task[0].Base.Enabled(false);
        m_Shown->Task[0].Value(true);
    });
    EXPECT_EQ(Log(), (Events{"Task1-", "Task2-"}));
    EXPECT_EQ(Values(), "10011");
    ClearLog();
    m_Ui.Run([&] { m_Shown->Alone->Value(true); }); // no sisters
    EXPECT_EQ(Log(), Events{"Alone"});
}

TEST_F(Toggle, OnlyOneIsSetWhileTheHandlersRun) {
    bool alone = true;
    m_Ui.Run([&] {
        for (OptionButtonC& task : m_Shown->Task)
            task.Click = [&] { alone = alone && m_Shown->Task[0].Value() + m_Shown->Task[1].Value() <= 1; };
        m_Shown->Task[1].Value(true);
        m_Shown->Task[0].Value(true);
    });
    EXPECT_TRUE(alone);
}

TEST_F(Toggle, MayBeDestroyedByItsOwnEvents) {
    gui::ToggleForm& form = *m_Shown;
    m_Ui.Run([&] {
        form.Ready->Click = [&] { form.Ready.reset(); };
        form.Alone->MouseMove = [&](int, int, int, int) { form.Alone.reset(); };
    });
    ClickOn(form.Ready->Base);
    EXPECT_TRUE(Becomes([&] { return form.Ready == nullptr; }));
    gui::MoveTo(gui::CentreOf(form.Alone->Base.hWnd()));
    EXPECT_TRUE(Becomes([&] { return form.Alone == nullptr; }));
    EXPECT_FALSE(On([] { return EventFrame::Ending(); }));
}

TEST_F(Toggle, ASistersHandlerMayDestroyTheForm) {
    bool gone = false;
    m_Ui.Run([&] {
        m_Shown->Task[0].Click = [&] {
            m_Shown.reset();
            gone = true;
        };
        m_Shown->Task[1].Value(true);
        EXPECT_TRUE(gone);
        EXPECT_FALSE(EventFrame::Ending());
        m_Shown = std::make_unique<gui::ToggleForm>();
    });
}

TEST_F(Toggle, AFailureInAnEventIsKept) {
    m_Ui.Run([&] {
        const auto fails = [&](auto&& act) {
            act();
            EXPECT_TRUE(EventFrame::Ending());
            EventFrame::Forget();
            MSG message;
            while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
            }
        };
        const auto space = [](const Control& control) {
            SendMessageW(control.hWnd(), WM_KEYDOWN, VK_SPACE, 0);
            SendMessageW(control.hWnd(), WM_KEYUP, VK_SPACE, 0);
        };
        m_Shown->Ready->Click = [] { throw RuntimeFailure(kOverflow, u"Click"); };
        fails([&] { space(m_Shown->Ready->Base); });
        m_Shown->Alone->Click = [] { throw RuntimeFailure(kOverflow, u"Click"); };
        fails([&] { space(m_Shown->Alone->Base); });
        m_Shown->Alone->MouseMove = [](int, int, int, int) { throw RuntimeFailure(kOverflow, u"MouseMove"); };
        fails([&] { SendMessageW(m_Shown->Alone->Base.hWnd(), WM_MOUSEMOVE, 0, MAKELPARAM(3, 3)); });
    });
}

TEST_F(Toggle, DefaultsAreTheClasss) {
    const CheckBox box;
    EXPECT_EQ(box.Value(), 0);
    EXPECT_EQ(box.ForeColor(), 0u);
    EXPECT_EQ(box.BackColor(), 0x8000000Fu);
    const OptionButtonC option;
    EXPECT_FALSE(option.Value());
    EXPECT_EQ(option.ForeColor(), 0u);
    EXPECT_EQ(option.BackColor(), 0x8000000Fu);
    EXPECT_EQ(m_Shown->Ready->ForeColor(), palette::Brand); // from the layout
}

TEST_F(Toggle, CheckBoxesAreToldToScreenReaders) {
    CheckBox& ready = *m_Shown->Ready;
    std::unique_ptr<gui::HeardEvents> heard;
    m_Ui.Run([&] { heard = std::make_unique<gui::HeardEvents>(); });
    gui::Spoken said = Said(ready.Base);
    EXPECT_EQ(said.Name, u"I am ready");
    EXPECT_EQ(said.Role, ROLE_SYSTEM_CHECKBUTTON);
    EXPECT_EQ(said.DefaultAction, u"Check");
    EXPECT_FALSE(said.State & (STATE_SYSTEM_CHECKED | STATE_SYSTEM_MIXED));
    EXPECT_TRUE(Said(m_Shown->Grey.Base).State & STATE_SYSTEM_MIXED);
    m_Ui.Run([&] { EXPECT_EQ(gui::DoDefault(ready.Base.hWnd()), S_OK); });
    said = Said(ready.Base);
    EXPECT_TRUE(said.State & STATE_SYSTEM_CHECKED);
    EXPECT_EQ(said.DefaultAction, u"Uncheck");
    EXPECT_EQ(heard->Count(EVENT_OBJECT_STATECHANGE, ready.Base.hWnd()), 1);
    EXPECT_EQ(Log(), Events{"Ready"});
    m_Ui.Run([&] { heard.reset(); });
}

TEST_F(Toggle, OptionsAreToldToScreenReaders) {
    std::unique_ptr<gui::HeardEvents> heard;
    m_Ui.Run([&] { heard = std::make_unique<gui::HeardEvents>(); });
    const gui::Spoken said = Said(m_Shown->Task[1].Base);
    EXPECT_EQ(said.Name, u"Convert my plain text files to Unicode");
    EXPECT_EQ(said.Role, ROLE_SYSTEM_RADIOBUTTON);
    EXPECT_EQ(said.DefaultAction, u"Check");
    EXPECT_TRUE(Said(m_Shown->Task[0].Base).State & STATE_SYSTEM_CHECKED);
    m_Ui.Run([&] { EXPECT_EQ(gui::DoDefault(m_Shown->Task[1].Base.hWnd()), S_OK); });
    EXPECT_TRUE(Said(m_Shown->Task[1].Base).State & STATE_SYSTEM_CHECKED);
    EXPECT_FALSE(Said(m_Shown->Task[0].Base).State & STATE_SYSTEM_CHECKED);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_STATECHANGE, m_Shown->Task[1].Base.hWnd()), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_STATECHANGE, m_Shown->Task[0].Base.hWnd()), 1);
    m_Ui.Run([&] {
        heard.reset();
        m_Shown->Task[2].Base.Enabled(false);
        EXPECT_NE(gui::DoDefault(m_Shown->Task[2].Base.hWnd()), S_OK);
    });
    EXPECT_EQ(Values(), "01011");
}

} // namespace
