// The keyboard in a group of OptionButtonC: arrows choose, Tab enters at the chosen one and
// leaves the group.
#include "windows/ToggleForm.h"

namespace {

using Events = std::vector<std::string>;

// The tab order: Ready, Grey, Task(0) to Task(2), Alone, Task(3) in the pane, Text.
class OptionKeys : public gui::FormTest<gui::ToggleForm> {
protected:
    void SetUp() override {
        FormTest::SetUp();
        if (HasFatalFailure()) return;
        m_Ui.Run([&] {
            for (int i = 0; i < 4; ++i) {
                m_Shown->Task[i].Click = [this, i] {
                    m_Shown->Log.push_back("Task" + std::to_string(i) +
                                           (m_Shown->Task[i].Value() ? "+" : "-"));
                };
            }
            m_Shown->Alone->Click = [this] { m_Shown->Log.push_back("Alone"); };
        });
    }
    OptionButtonC& Task(int i) { return m_Shown->Task[i]; }
    void Focus(Control& control) {
        m_Ui.Run([&] { control.SetFocus(); });
    }
    void ShiftTab() {
        gui::Key(VK_SHIFT, false);
        gui::Type(VK_TAB);
        gui::Key(VK_SHIFT, true);
    }
    // The events since the last call.
    Events Log() {
        m_Ui.Settle();
        return On([&] { return std::exchange(m_Shown->Log, {}); });
    }
    std::string Values() {
        return On([&] {
            std::string values;
            for (const OptionButtonC& task : m_Shown->Task) values += task.Value() ? '1' : '0';
            return values + (m_Shown->Alone->Value() ? '1' : '0');
        });
    }
};

TEST_F(OptionKeys, ArrowsChooseTheNextAndThePreviousOne) {
    Focus(Task(0).Base);
    const struct {
        WORD Key;
        int Chosen;
        const char* Values;
    } steps[] = {{VK_DOWN, 1, "01011"}, {VK_RIGHT, 2, "00111"}, {VK_DOWN, 0, "10011"}, // round
                 {VK_UP, 2, "00111"},   {VK_LEFT, 1, "01011"},  {VK_UP, 0, "10011"}};
    for (const auto& step : steps) {
        gui::Type(step.Key);
        ASSERT_TRUE(FocusComesTo(Task(step.Chosen).Base)) << step.Key;
        EXPECT_EQ(Values(), step.Values);
        // Its sisters have been told first.
        const Events log = Log();
        ASSERT_EQ(log.size(), 3u);
        EXPECT_EQ(log.back(), "Task" + std::to_string(step.Chosen) + "+");
    }
}

TEST_F(OptionKeys, ArrowsPassByWhatCannotBeUsed) {
    m_Ui.Run([&] { Task(1).Base.Enabled(false); });
    Focus(Task(0).Base);
    gui::Type(VK_DOWN);
    ASSERT_TRUE(FocusComesTo(Task(2).Base));
    EXPECT_EQ(Log(), (Events{"Task0-", "Task2+"})); // a disabled one tells nothing
    m_Ui.Run([&] { Task(0).Base.Visible(false); });
    gui::Type(VK_DOWN);
    EXPECT_EQ(Log(), Events{});
    EXPECT_TRUE(On([&] { return Task(2).Base.HasFocus(); }));
    EXPECT_EQ(Values(), "00111");
}

TEST_F(OptionKeys, ArrowsStayInTheGroup) {
    for (Control* lonely : {&m_Shown->Alone->Base, &Task(3).Base}) {
        Focus(*lonely);
        for (const WORD key : {VK_DOWN, VK_UP, VK_LEFT, VK_RIGHT}) gui::Type(key);
        EXPECT_EQ(Log(), Events{});
        EXPECT_TRUE(On([&] { return lonely->HasFocus(); }));
    }
    EXPECT_EQ(Values(), "10011");
}

TEST_F(OptionKeys, ArrowsGoOnFromWhereTheFocusIs) {
    m_Ui.Run([&] { Task(0).Value(false); });
    Focus(Task(1).Base); // nothing is chosen
    Log();
    gui::Type(VK_DOWN);
    ASSERT_TRUE(FocusComesTo(Task(2).Base));
    EXPECT_EQ(Values(), "00111");
}

TEST_F(OptionKeys, AHeldArrowGoesOn) {
    Focus(Task(0).Base);
    gui::Key(VK_DOWN, false);
    gui::Key(VK_DOWN, false);
    gui::Key(VK_DOWN, true);
    ASSERT_TRUE(FocusComesTo(Task(2).Base));
    EXPECT_EQ(Values(), "00111");
}

TEST_F(OptionKeys, TabEntersAtTheChosenOneAndLeavesTheGroup) {
    m_Ui.Run([&] { Task(1).Value(true); });
    Focus(m_Shown->Grey.Base);
    gui::Type(VK_TAB);
    ASSERT_TRUE(FocusComesTo(Task(1).Base));
    gui::Type(VK_TAB);
    ASSERT_TRUE(FocusComesTo(m_Shown->Alone->Base));
    gui::Type(VK_TAB);
    ASSERT_TRUE(FocusComesTo(Task(3).Base)); // another container: another group
    gui::Type(VK_TAB);
    ASSERT_TRUE(FocusComesTo(m_Shown->Text.Base));
    for (const Control* expected :
         {&Task(3).Base, &m_Shown->Alone->Base, &Task(1).Base, &m_Shown->Grey.Base}) {
        ShiftTab();
        ASSERT_TRUE(FocusComesTo(*expected));
    }
    EXPECT_EQ(Values(), "01011");
}

TEST_F(OptionKeys, TabEntersAtTheFirstWhereNoneIsChosen) {
    m_Ui.Run([&] { Task(0).Value(false); });
    Focus(m_Shown->Grey.Base);
    gui::Type(VK_TAB);
    ASSERT_TRUE(FocusComesTo(Task(0).Base));
    gui::Type(VK_TAB);
    ASSERT_TRUE(FocusComesTo(m_Shown->Alone->Base));
    EXPECT_EQ(Values(), "00011"); // nothing has been chosen by that
    m_Ui.Run([&] { Task(0).Base.Enabled(false); });
    ShiftTab();
    EXPECT_TRUE(FocusComesTo(Task(1).Base));
}

TEST_F(OptionKeys, TabPassesByAChosenOneThatCannotBeUsed) {
    m_Ui.Run([&] {
        Task(2).Value(true);
        Task(2).Base.Enabled(false);
    });
    Focus(m_Shown->Alone->Base);
    ShiftTab();
    EXPECT_TRUE(FocusComesTo(Task(0).Base));
}

// A press that left again gives the focus, but chooses nothing.
TEST_F(OptionKeys, TabLeavesTheGroupAlsoFromOneThatIsNotChosen) {
    Focus(Task(1).Base);
    gui::Type(VK_TAB);
    ASSERT_TRUE(FocusComesTo(m_Shown->Alone->Base));
    Focus(Task(1).Base);
    ShiftTab();
    EXPECT_TRUE(FocusComesTo(m_Shown->Grey.Base));
}

TEST_F(OptionKeys, TheFocusOfADisabledOneGoesToItsSister) {
    Focus(Task(0).Base);
    m_Ui.Run([&] { Task(0).Base.Enabled(false); });
    EXPECT_TRUE(FocusComesTo(Task(1).Base));
    EXPECT_EQ(Values(), "10011");
}

TEST_F(OptionKeys, AFormOpensAtTheChosenOne) {
    m_Ui.Run([] {
        Form form;
        OptionButtonC ways[2];
        form.Bind(u"Way", ways)
            .Create(u"form\n"
                    u"f\t\tfrmWays\tform\t\t\t3000\t1500\tWays\t\t\n"
                    u"f\tfrmWays\tWay(0)\tOptionButtonC\t150\t150\t1500\t330\tA\t1\t\n"
                    u"f\tfrmWays\tWay(1)\tOptionButtonC\t150\t600\t1500\t330\tB\t2\t"
                    u"Value=yes\n");
        form.Show();
        EXPECT_TRUE(ways[1].Base.HasFocus());
    });
}

TEST_F(OptionKeys, ASistersHandlerMayDestroyTheForm) {
    Focus(Task(0).Base);
    m_Ui.Run([&] { Task(0).Click = [&] { m_Shown.reset(); }; });
    gui::Type(VK_DOWN);
    EXPECT_TRUE(Becomes([&] { return m_Shown == nullptr; }));
    EXPECT_FALSE(On([] { return EventFrame::Ending(); }));
    m_Ui.Run([&] { m_Shown = std::make_unique<gui::ToggleForm>(); });
}

} // namespace
