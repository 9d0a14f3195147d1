// A list under the mouse and the keys: which events come in which order.
#include "controls/Painting.h"
#include "windows/ListForm.h"

namespace {

using Lists = gui::Lists;

TEST_F(Lists, APressSelectsAndItsReleaseClicks) {
    Fill(Files(), 3);
    Listen(Files());
    gui::MoveTo(RowPoint(Files(), 1));
    ASSERT_TRUE(Hears("Enter "));
    Heard();
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(Hears("SelChange Down1 "));
    EXPECT_EQ(On([&] { return Files().ListIndex(); }), 1);
    EXPECT_TRUE(On([&] { return Files().Base.HasFocus(); }));
    gui::Press(MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(Hears("SelChange Down1 Click Up1 "));
}

TEST_F(Lists, TheSecondPressOfADoubleClick) {
    Fill(Files(), 3);
    Listen(Files());
    gui::Click(RowPoint(Files(), 2));
    ASSERT_TRUE(Hears("Enter SelChange Down1 Click Up1 "));
    Heard();
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(Hears("DbClick "));
    gui::Press(MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(Hears("DbClick Up1 "));
}

TEST_F(Lists, AReleaseOutsideOfTheRowsIsNoClick) {
    Fill(Files(), 3);
    Listen(Files());
    gui::MoveTo(RowPoint(Files(), 1));
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(Hears("Enter SelChange Down1 "));
    Heard();
    gui::MoveTo(RowPoint(Files(), 5)); // inside, below the last row
    gui::Press(MOUSEEVENTF_LEFTUP);
    ASSERT_TRUE(Hears("Up1 "));
    Heard();
    gui::MoveTo(RowPoint(Files(), 1));
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    ASSERT_TRUE(Becomes([&] { return m_Heard.find("D") != m_Heard.npos; }));
    Heard();
    gui::MoveTo(On([&] { return gui::ToScreen(Files().Base.hWnd(), 300, 30); })); // beside the list
    gui::Press(MOUSEEVENTF_LEFTUP);
    ASSERT_TRUE(Becomes([&] { return m_Heard.find("Up1 ") != m_Heard.npos; }));
    EXPECT_EQ(Heard().find("Click"), std::string::npos);
}

TEST_F(Lists, APressBelowTheRowsSelectsNothing) {
    Fill(Files(), 2);
    Listen(Files());
    gui::Click(RowPoint(Files(), 4));
    EXPECT_TRUE(Hears("Enter Down1 Up1 "));
    EXPECT_EQ(On([&] { return Files().ListIndex(); }), -1);
}

TEST_F(Lists, TheRightButtonSelectsNothing) {
    Fill(Files(), 2);
    Listen(Files());
    gui::MoveTo(RowPoint(Files(), 1));
    gui::Press(MOUSEEVENTF_RIGHTDOWN);
    gui::Press(MOUSEEVENTF_RIGHTUP);
    EXPECT_TRUE(Hears("Enter Down2 Up2 "));
    EXPECT_EQ(On([&] { return Files().ListIndex(); }), -1);
}

TEST_F(Lists, MouseEnterAndLeaveComeOnce) {
    Fill(Files(), 5);
    Listen(Files());
    for (int row = 0; row < 5; ++row) {
        gui::MoveTo(RowPoint(Files(), row));
        ASSERT_TRUE(Becomes([&] { return Files().HoveredRow() == row; }));
    }
    gui::MoveTo({5, 5});
    EXPECT_TRUE(Hears("Enter Leave "));
    EXPECT_EQ(On([&] { return Files().HoveredRow(); }), -1);
}

// No move of the mouse and no message of the system tells of it.
TEST_F(Lists, AWindowThatComesOverTheListEndsTheHover) {
    Fill(Files(), 5);
    Listen(Files());
    gui::MoveTo(RowPoint(Files(), 2));
    ASSERT_TRUE(Becomes([&] { return Files().HoveredRow() == 2; }));
    HWND cover = nullptr;
    m_Ui.Run([&] {
        RECT place{};
        GetWindowRect(Files().Base.hWnd(), &place);
        cover = gui::MakeWindow(nullptr, place);
        SetWindowPos(cover, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    });
    EXPECT_TRUE(Hears("Enter Leave "));
    EXPECT_EQ(On([&] { return Files().HoveredRow(); }), -1);
    m_Ui.Run([&] { DestroyWindow(cover); });
    gui::MoveTo(RowPoint(Files(), 1));
    EXPECT_TRUE(Hears("Enter Leave Enter "));
}

TEST_F(Lists, EventsCarryTwips) {
    Fill(Files(), 2);
    POINT at{};
    m_Ui.Run([&] { Files().MouseDown = [&](int, int, int x, int y) { at = {x, y}; }; });
    SetDpi(192);
    gui::MoveTo(On([&] { return gui::ToScreen(Files().Base.hWnd(), 40, 20); }));
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    gui::Press(MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(Becomes([&] { return at.x == 300 && at.y == 150; }));
}

TEST_F(Lists, ArrowsHomeEndAndPagesSelectAndClick) {
    Fill(Files(), 30);
    Listen(Files());
    m_Ui.Run([&] { Files().Base.SetFocus(); });
    const struct {
        WORD Key;
        int Row;
    } steps[] = {{VK_DOWN, 0},   {VK_DOWN, 1}, {VK_NEXT, 8},  {VK_UP, 7},  {VK_END, 29},
                 {VK_PRIOR, 22}, {VK_HOME, 0}, {VK_RIGHT, 1}, {VK_LEFT, 0}};
    for (const auto& step : steps) {
        gui::Type(step.Key);
        const std::string key = std::to_string(step.Key);
        ASSERT_TRUE(Hears("KeyDown" + key + " SelChange Click KeyUp" + key + " ")) << m_Heard;
        Heard();
        EXPECT_EQ(On([&] { return Files().ListIndex(); }), step.Row) << step.Key;
        EXPECT_TRUE(On([&] {
            const RECT place = Files().RowPlace(step.Row);
            return HeightOf(place) == Px(20);
        })) << step.Key;
    }
    // At the end of the way nothing is selected anew.
    gui::Type(VK_UP);
    EXPECT_TRUE(Hears("KeyDown38 KeyUp38 "));
}

TEST_F(Lists, KeysBeginAtTheRowThatShowsTheFocus) {
    Fill(Files(), 30);
    m_Ui.Run([&] { Files().Base.SetFocus(); });
    for (const WORD key : {VK_DOWN, VK_UP}) {
        m_Ui.Run([&] {
            if (Files().ListIndex() >= 0) Files().Remove(-1); // leaves no current row
            for (int i = 0; i < 3; ++i) SendMessageW(Files().Base.hWnd(), WM_VSCROLL, SB_LINEDOWN, 0);
        });
        const int top = On([&] { return Files().TopRow(); });
        ASSERT_GT(top, 0);
        gui::Type(key);
        EXPECT_TRUE(Becomes([&] { return Files().ListIndex() == top; })) << key;
        EXPECT_EQ(On([&] { return Files().TopRow(); }), top) << key;
    }
}

TEST_F(Lists, KeysOnAnEmptyListDoNothing) {
    Listen(Files());
    m_Ui.Run([&] { Files().Base.SetFocus(); });
    for (const WORD key : {VK_DOWN, VK_UP, VK_HOME, VK_END, VK_NEXT, VK_PRIOR, int{'A'}}) gui::Type(key);
    ASSERT_TRUE(Becomes([&] { return m_Heard.find("KeyUp65 ") != m_Heard.npos; }));
    EXPECT_EQ(Heard().find("SelChange"), std::string::npos);
    EXPECT_EQ(On([&] { return Files().ListIndex(); }), -1);
}

TEST_F(Lists, TypingSelectsTheRowThatBeginsSo) {
    m_Ui.Run([&] {
        for (const char16_t* name : {u"Apple", u"Banana", u"Berry", u"Blue", u"Cherry"})
            Files().AddItem(name);
        Files().Refresh();
        Files().Base.SetFocus();
    });
    Listen(Files());
    gui::Type('B');
    ASSERT_TRUE(Hears("KeyDown66 KeyPress98 SelChange Click KeyUp66 "));
    EXPECT_EQ(On([&] { return Files().ListIndex(); }), 1);
    Heard();
    gui::Type('E');
    ASSERT_TRUE(Hears("KeyDown69 KeyPress101 SelChange Click KeyUp69 "));
    EXPECT_EQ(On([&] { return Files().ListIndex(); }), 2);
    Heard();
    gui::Type('Z'); // nothing begins with "bez"
    ASSERT_TRUE(Hears("KeyDown90 KeyPress122 KeyUp90 "));
    EXPECT_EQ(On([&] { return Files().ListIndex(); }), 2);
}

TEST_F(Lists, TheSameLetterGoesRound) {
    m_Ui.Run([&] {
        for (const char16_t* name : {u"bb", u"a", u"Bc", u"bd"}) Files().AddItem(name);
        Files().Refresh();
        Files().Base.SetFocus();
    });
    for (const int row : {0, 2, 3, 0}) {
        gui::Type('B');
        EXPECT_TRUE(Becomes([&] { return Files().ListIndex() == row; })) << row;
    }
}

TEST_F(Lists, DeleteComesAsKeyUp46) {
    Fill(Files(), 2);
    Listen(Files());
    m_Ui.Run([&] { Files().Base.SetFocus(); });
    gui::Type(VK_DELETE);
    EXPECT_TRUE(Hears("KeyDown46 KeyUp46 "));
}

// Alt and what is typed with it: told like other keys, and left to the system.
TEST_F(Lists, KeysOfTheSystemAreToldAndSelectNothing) {
    Fill(Files(), 3);
    Listen(Files());
    m_Ui.Run([&] { Files().Base.SetFocus(); });
    ASSERT_TRUE(FocusComesTo(Files().Base));
    gui::Key(VK_MENU, false);
    gui::Type(VK_END);
    gui::Key(VK_MENU, true);
    EXPECT_TRUE(Hears("KeyDown18 KeyDown35 KeyUp35 KeyUp18 "));
    EXPECT_EQ(On([&] { return Files().ListIndex(); }), -1);
}

TEST_F(Lists, ADisabledListObeysCodeOnly) {
    Fill(Files(), 3);
    Listen(Files());
    m_Ui.Run([&] { Files().Base.Enabled(false); });
    gui::Click(RowPoint(Files(), 1));
    m_Ui.Settle();
    EXPECT_EQ(Heard(), "");
    m_Ui.Run([&] {
        Files().ListIndex(2);
        Files().AddItem(u"x");
        Files().Remove(0);
        EXPECT_EQ(Files().ListIndex(), 1);
        EXPECT_EQ(Files().ListCount(), 3);
    });
}

TEST_F(Lists, ItMayGoInsideItsOwnEvents) {
    const auto rows = [&] {
        Fill(Files(), 3);
        m_Ui.Run([&] { Files().Base.SetFocus(); });
    };
    rows();
    m_Ui.Run([&] { Files().SelChange = [&] { m_Shown->Owned.reset(); }; });
    gui::Click(RowPoint(Files(), 1));
    EXPECT_TRUE(Becomes([&] { return !m_Shown->Owned; }));
    m_Ui.Run([] { EventFrame::Rethrow(); });
}

class GoneIn : public Lists, public testing::WithParamInterface<int> {};

TEST_P(GoneIn, Survives) {
    Fill(Files(), 3);
    const POINT row = RowPoint(Files(), 1);
    m_Ui.Run([&] {
        const auto go = [&] { m_Shown->Owned.reset(); };
        McListBox& list = Files();
        list.Base.SetFocus();
        switch (GetParam()) {
        case 0:
            list.MouseEnter = go;
            break;
        case 1:
            list.MouseDown = [go](int, int, int, int) { go(); };
            break;
        case 2:
            list.Click = go;
            break;
        case 3:
            list.MouseUp = [go](int, int, int, int) { go(); };
            break;
        case 4:
            list.DbClick = go;
            break;
        case 5:
            list.KeyDown = [go](int, int) { go(); };
            break;
        case 6:
            list.KeyPress = [go](int) { go(); };
            break;
        case 7:
            list.KeyUp = [go](int, int) { go(); };
            break;
        default:
            list.MouseMove = [go](int, int, int, int) { go(); };
            break;
        }
    });
    gui::Click(row);
    gui::Click(row);
    gui::Type('1');
    EXPECT_TRUE(Becomes([&] { return !m_Shown->Owned; }));
    m_Ui.Run([] { EventFrame::Rethrow(); });
}

INSTANTIATE_TEST_SUITE_P(EachEvent, GoneIn, testing::Range(0, 9));

TEST_F(Lists, AFailureInAnyEventIsKept) {
    Fill(Files(), 3);
    McListBox& list = Files();
    const auto keeps = [&](auto& event, const std::function<void()>& cause) {
        event = [](auto...) { throw RuntimeFailure(kTypeMismatch, u"test"); };
        cause();
        EXPECT_TRUE(EventFrame::Ending());
        MSG message;
        PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
        EventFrame::Forget();
        event = nullptr;
    };
    m_Ui.Run([&] {
        const auto send = [&](UINT message, WPARAM wParam) {
            return [&list, message, wParam] {
                SendMessageW(list.Base.hWnd(), message, wParam, MAKELPARAM(60, 30));
            };
        };
        keeps(list.MouseEnter, send(WM_MOUSEMOVE, 0));
        keeps(list.MouseMove, send(WM_MOUSEMOVE, 0));
        keeps(list.MouseLeave, send(WM_MOUSELEAVE, 0));
        keeps(list.SelChange, send(WM_LBUTTONDOWN, MK_LBUTTON));
        keeps(list.MouseDown, send(WM_LBUTTONDOWN, MK_LBUTTON));
        keeps(list.Click, send(WM_LBUTTONUP, 0));
        keeps(list.MouseUp, send(WM_LBUTTONUP, 0));
        keeps(list.DbClick, send(WM_LBUTTONDBLCLK, MK_LBUTTON));
        keeps(list.KeyDown, send(WM_KEYDOWN, VK_DOWN));
        keeps(list.KeyPress, send(WM_CHAR, 'x'));
        keeps(list.KeyUp, send(WM_KEYUP, VK_DOWN));
    });
}

TEST_F(Lists, AHandlerMayEmptyTheList) {
    Fill(Files(), 3);
    m_Ui.Run([&] { Files().SelChange = [&] { Files().Clear(); }; });
    gui::Click(RowPoint(Files(), 1));
    EXPECT_TRUE(Becomes([&] { return Files().ListCount() == 0; }));
    EXPECT_EQ(On([&] { return Files().ListIndex(); }), -1);
}

} // namespace
