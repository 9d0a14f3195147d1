// A list's rows, current row, events, keys, scrolling and repaints.
#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "support/Failure.h"
#include "windows/ListForm.h"

namespace {

using Lists = gui::Lists;

TEST_F(Lists, DefaultsAreThoseOfTheProperties) {
    const McListBox& list = m_Shown->Plain;
    EXPECT_FALSE(list.ShowHover());
    EXPECT_TRUE(list.ShowToolTip());
    EXPECT_EQ(list.BackColor(), 0xFFFFFFu);
    EXPECT_EQ(list.ForeColor(), kButtonText);
    EXPECT_EQ(list.SelColor(), 16747546u);
    EXPECT_EQ(list.SelForeColor(), 0xFFFFFFu);
    EXPECT_EQ(list.Appearance(), 1);
    EXPECT_FALSE(list.FullRowSelect());
    EXPECT_TRUE(list.IconFocus());
    EXPECT_EQ(list.RowHeight(), 22);
    EXPECT_EQ(list.BackGradient(), 0);
    EXPECT_EQ(list.BackGradientCol(), 0xC0C0C0u);
    EXPECT_EQ(list.SelGradient(), 0);
    EXPECT_EQ(list.SelGradientCol(), 0xFFFFFFu);
    EXPECT_FALSE(list.FocusRectangle());
    EXPECT_FALSE(list.ShowIcon());
    EXPECT_FALSE(list.AutoHideScrollBars());
    EXPECT_TRUE(list.AutoRefresh());
    EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(Lists, AddsAtTheEndAndInFrontOfARow) {
    m_Ui.Run([&] {
        Files().AddItem(u"b", -1, 0);
        EXPECT_EQ(Files().ListCount(), 1);
        EXPECT_EQ(Files().List(0), u"b");
        Files().AddItem(u"a", 0, 1, true);
        EXPECT_EQ(Files().List(0), u"a");
        EXPECT_EQ(Files().ListIcon(0), 1);
        EXPECT_TRUE(Files().ListBold(0));
        Files().ListIcon(0, -1);
        Files().ListBold(0, false);
        Files().List(0, u"c");
        EXPECT_EQ(Files().Items().Stored(0), u"c<%S%>-1<%S%>False");
    });
}

TEST_F(Lists, IndexesOutOfRangeAreRefused) {
    Fill(Files(), 2);
    m_Ui.Run([&] {
        for (const int index : {-1, 2, 100'000, -100'000}) {
            EXPECT_EQ(FailureNumber([&] { Files().List(index); }), 9) << index;
            EXPECT_EQ(FailureNumber([&] { Files().List(index, u"x"); }), 9) << index;
            EXPECT_EQ(FailureNumber([&] { Files().ListIcon(index); }), 9) << index;
            EXPECT_EQ(FailureNumber([&] { Files().ListBold(index, true); }), 9) << index;
        }
        EXPECT_EQ(FailureNumber([&] { Files().Remove(2); }), 9);
        EXPECT_EQ(FailureNumber([&] { Files().Remove(-2); }), 9);
        EXPECT_EQ(FailureNumber([&] { Files().AddItem(u"x", 3); }), 9);
        EXPECT_EQ(FailureNumber([&] { Files().AddItem(u"x", -2); }), 9);
        EXPECT_EQ(Files().ListCount(), 2);
        EXPECT_EQ(FailureNumber([&] { Files().RowHeight(40'000); }), 6);
        EXPECT_EQ(Files().RowHeight(), 20);
    });
}

TEST_F(Lists, ATextWithTheSeparatorIsRefused) {
    Fill(Files(), 1);
    m_Ui.Run([&] {
        EXPECT_EQ(FailureNumber([&] { Files().AddItem(u"a<%S%>b"); }), 5);
        EXPECT_EQ(FailureNumber([&] { Files().List(0, u"<%S%>"); }), 5);
        EXPECT_EQ(Files().ListCount(), 1);
        EXPECT_EQ(Files().List(0), u"0");
        Files().List(0, u"<%S%");
        EXPECT_EQ(Files().List(0), u"<%S%");
    });
}

TEST_F(Lists, OnlyRowsCanBeMadeCurrent) {
    Fill(Files(), 3);
    Listen(Files());
    m_Ui.Run([&] {
        for (const int index : {3, -1, -2, 100'000}) {
            Files().ListIndex(index);
            EXPECT_EQ(Files().ListIndex(), -1) << index;
        }
        EXPECT_EQ(m_Heard, "");
        Files().ListIndex(2);
        EXPECT_EQ(Files().ListIndex(), 2);
        EXPECT_EQ(Files().Text(), u"2");
        EXPECT_EQ(m_Heard, "SelChange ");
        Files().ListIndex(3);
        EXPECT_EQ(Files().ListIndex(), 2);
        EXPECT_EQ(m_Heard, "SelChange ");
    });
}

TEST_F(Lists, RemoveWithoutACurrentRowDoesNothing) {
    Fill(Files(), 2);
    m_Ui.Run([&] {
        Files().Remove(-1);
        EXPECT_EQ(Files().ListCount(), 2);
        Files().Clear();
        Files().Remove(-1);
        EXPECT_EQ(Files().ListCount(), 0);
        EXPECT_EQ(Files().Text(), u"");
    });
}

TEST_F(Lists, TheCurrentRowStaysTheSameRow) {
    Fill(Files(), 4);
    m_Ui.Run([&] {
        Files().ListIndex(2);
        Files().Remove(0);
        EXPECT_EQ(Files().Text(), u"2");
        Files().AddItem(u"new", 0);
        EXPECT_EQ(Files().Text(), u"2");
        Files().AddItem(u"new", 3);
        EXPECT_EQ(Files().Text(), u"2");
        Files().Remove(-1);
        EXPECT_EQ(Files().ListIndex(), -1);
        EXPECT_EQ(Files().ListCount(), 4);
    });
}

TEST_F(Lists, AnEmptiedListHasNoCurrentRow) {
    Fill(Files(), 1);
    m_Ui.Run([&] {
        Files().ListIndex(0);
        Files().Remove(-1);
        Files().ListIndex(Files().ListCount() - 1);
        EXPECT_EQ(Files().ListIndex(), -1);
    });
    Fill(Files(), 3);
    m_Ui.Run([&] {
        Files().ListIndex(1);
        Files().Clear();
        EXPECT_EQ(Files().ListIndex(), -1);
        EXPECT_EQ(Files().ListCount(), 0);
    });
}

// What a run does to the rows, the list shows.
TEST_F(Lists, FollowsItsRowsBehindItsBack) {
    Fill(Files(), 3);
    m_Ui.Run([&] {
        Files().ListIndex(2);
        const long before = PaintsSoFar().Paints;
        Files().Items().Remove(0);
        EXPECT_EQ(PaintsSoFar().Paints - before, 1);
        EXPECT_EQ(Files().Text(), u"2");
    });
}

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
            return HeightOf(place) == 20;
        })) << step.Key;
    }
    // At the end of the way nothing is selected anew.
    gui::Type(VK_UP);
    EXPECT_TRUE(Hears("KeyDown38 KeyUp38 "));
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

TEST_F(Lists, SettingARowBringsItIntoView) {
    Fill(Files(), 100);
    m_Ui.Run([&] {
        EXPECT_EQ(Files().VisibleRows(), 7);
        Files().ListIndex(50);
        EXPECT_EQ(Files().TopRow(), 44);
        Files().ListIndex(46);
        EXPECT_EQ(Files().TopRow(), 44);
        Files().ListIndex(3);
        EXPECT_EQ(Files().TopRow(), 3);
        Files().ListIndex(99);
        EXPECT_EQ(Files().TopRow(), 93);
        // Rows that go take the view along.
        for (int i = 0; i < 95; ++i) Files().Remove(0);
        EXPECT_EQ(Files().TopRow(), 0);
    });
}

TEST_F(Lists, ScrollRequestsOfTheScrollBar) {
    Fill(Files(), 100);
    const auto after = [&](int request) {
        return On([&] {
            SendMessageW(Files().Base.hWnd(), WM_VSCROLL, static_cast<WPARAM>(request), 0);
            return Files().TopRow();
        });
    };
    EXPECT_EQ(after(SB_LINEDOWN), 1);
    EXPECT_EQ(after(SB_PAGEDOWN), 8);
    EXPECT_EQ(after(SB_LINEUP), 7);
    EXPECT_EQ(after(SB_PAGEUP), 0);
    EXPECT_EQ(after(SB_LINEUP), 0);
    EXPECT_EQ(after(SB_BOTTOM), 93);
    EXPECT_EQ(after(SB_PAGEDOWN), 93);
    EXPECT_EQ(after(SB_TOP), 0);
}

TEST_F(Lists, AClickOnTheScrollBarsArrowScrolls) {
    Fill(Files(), 100);
    RECT window = On([&] {
        RECT place;
        GetWindowRect(Files().Base.hWnd(), &place);
        return place;
    });
    gui::Click({window.right - 8, window.bottom - 8});
    EXPECT_TRUE(Becomes([&] { return Files().TopRow() == 1; }));
    EXPECT_EQ(On([&] { return GetScrollPos(Files().Base.hWnd(), SB_VERT); }), 1);
}

TEST_F(Lists, TheWheelScrollsByTheSystemsLines) {
    Fill(Files(), 100);
    const auto wheel = [&](int delta) {
        return On([&] {
            SendMessageW(Files().Base.hWnd(), WM_MOUSEWHEEL, MAKEWPARAM(0, delta), 0);
            return Files().TopRow();
        });
    };
    EXPECT_EQ(wheel(-120), 3);
    EXPECT_EQ(wheel(-40), 4); // a third of a notch
    EXPECT_EQ(wheel(-20), 4); // half a line waits
    EXPECT_EQ(wheel(-20), 5);
    EXPECT_EQ(wheel(120), 2);
    EXPECT_EQ(wheel(1200), 0);
}

bool HasBar(McListBox& list) {
    return (GetWindowLongW(list.Base.hWnd(), GWL_STYLE) & WS_VSCROLL) != 0;
}

TEST_F(Lists, TheScrollBarGoesWhereItMay) {
    Fill(Files(), 7);
    EXPECT_FALSE(On([&] { return HasBar(Files()); }));
    Fill(Files(), 1);
    EXPECT_TRUE(On([&] { return HasBar(Files()); }));
    m_Ui.Run([&] {
        Files().Remove(0);
        EXPECT_FALSE(HasBar(Files()));
        // Without AutoHideScrollBars it stays, and cannot be moved.
        EXPECT_TRUE(HasBar(m_Shown->Plain));
        m_Shown->Plain.AutoHideScrollBars(true);
        EXPECT_FALSE(HasBar(m_Shown->Plain));
    });
}

TEST_F(Lists, ABurstOfAddsCostsOneRefresh) {
    McListBox& list = Files();
    PaintAll();
    const long before = On([] { return PaintsSoFar().Paints; });
    m_Ui.Run([&] {
        for (int i = 0; i < 1000; ++i) list.AddItem(text::Decimal(i));
        EXPECT_EQ(PaintsSoFar().Paints, before);
    });
    EXPECT_TRUE(Becomes([&] { return HasBar(list); })); // refreshed
    EXPECT_EQ(On([] { return PaintsSoFar().Paints; }) - before, 1);
}

// Five ticks, and each further row begins the count anew.
TEST_F(Lists, TheRefreshComesAtTheFifthTick) {
    PaintAll();
    m_Ui.Run([&] {
        const HWND window = Files().Base.hWnd();
        Files().AddItem(u"a");
        const long before = PaintsSoFar().Paints;
        const auto tick = [&] {
            SendMessageW(window, WM_TIMER, 1, 0);
            return PaintsSoFar().Paints - before;
        };
        for (int i = 0; i < 4; ++i) EXPECT_EQ(tick(), 0);
        Files().AddItem(u"b");
        for (int i = 0; i < 4; ++i) EXPECT_EQ(tick(), 0);
        EXPECT_EQ(tick(), 1);
        EXPECT_FALSE(KillTimer(window, 1)); // it has stopped
    });
}

TEST_F(Lists, WithoutAutoRefreshNothingIsPainted) {
    PaintAll();
    m_Ui.Run([&] {
        Files().AutoRefresh(false);
        const long before = PaintsSoFar().Paints;
        Files().AddItem(u"a");
        EXPECT_FALSE(KillTimer(Files().Base.hWnd(), 1));
        EXPECT_EQ(PaintsSoFar().Paints, before);
        Files().Refresh();
        EXPECT_EQ(PaintsSoFar().Paints - before, 1);
    });
}

TEST_F(Lists, ARefreshByCodeTakesThePlaceOfTheComingOne) {
    m_Ui.Run([&] {
        Files().AddItem(u"a");
        Files().Refresh();
        EXPECT_FALSE(KillTimer(Files().Base.hWnd(), 1));
    });
}

TEST_F(Lists, AHundredThousandRows) {
    Fill(Files(), 100'000);
    m_Ui.Run([&] {
        Files().ListIndex(99'999);
        EXPECT_EQ(Files().TopRow(), 99'993);
        EXPECT_EQ(GetScrollPos(Files().Base.hWnd(), SB_VERT), 99'993);
        Files().Remove(0);
        EXPECT_EQ(Files().Text(), u"99999");
        SendMessageW(Files().Base.hWnd(), WM_VSCROLL, SB_TOP, 0);
        EXPECT_EQ(Files().TopRow(), 0);
    });
    EXPECT_EQ(Said(Files().Base).Children, 99'999);
    EXPECT_EQ(Said(Files().Base, 99'999).Name, u"99999");
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

BOOL CALLBACK CountTip(HWND window, LPARAM sum) {
    wchar_t name[64];
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    GetClassNameW(window, name, 64);
    if (process == GetCurrentProcessId() && std::wstring_view(name) == L"tooltips_class32" &&
        IsWindowVisible(window))
        ++*reinterpret_cast<int*>(sum);
    return TRUE;
}
int TipsSeen() {
    int count = 0;
    EnumWindows(CountTip, reinterpret_cast<LPARAM>(&count));
    return count;
}

TEST_F(Lists, ARowThatDoesNotFitHasATip) {
    m_Ui.Run([&] {
        Files().AddItem(u"short");
        Files().AddItem(std::u16string(300, u'm'));
        Files().Refresh();
    });
    gui::MoveTo(RowPoint(Files(), 0));
    ASSERT_TRUE(Becomes([&] { return Files().HoveredRow() == 0; }));
    gui::MoveTo(RowPoint(Files(), 1));
    EXPECT_TRUE(Becomes([&] { return TipsSeen() == 1; }));
    gui::MoveTo(RowPoint(Files(), 0));
    EXPECT_TRUE(Becomes([&] { return TipsSeen() == 0; }));
    m_Ui.Run([&] { Files().ShowToolTip(false); });
    gui::MoveTo(RowPoint(Files(), 1));
    ASSERT_TRUE(Becomes([&] { return Files().HoveredRow() == 1; }));
    EXPECT_FALSE(gui::WaitUntil([&] { return TipsSeen() > 0; }, GetDoubleClickTime() + 300));
}

TEST_F(Lists, LongTextsAreHeldWhole) {
    const std::u16string text(100'000, u'\x0995');
    m_Ui.Run([&] {
        Files().AddItem(text);
        Files().Refresh();
        EXPECT_EQ(Files().List(0), text);
        Files().ListIndex(0);
        EXPECT_EQ(Files().Text(), text);
    });
    EXPECT_EQ(Said(Files().Base, 1).Name, text);
    gui::MoveTo(RowPoint(Files(), 0)); // and its tip
    EXPECT_TRUE(Becomes([&] { return Files().HoveredRow() == 0; }));
}

TEST_F(Lists, WhatScreenReadersAreTold) {
    Fill(Files(), 30);
    m_Ui.Run([&] {
        Files().Base.SetFocus();
        Files().ListIndex(1);
    });
    const gui::Spoken list = Said(Files().Base);
    EXPECT_EQ(list.Name, u"Text files");
    EXPECT_EQ(list.Role, ROLE_SYSTEM_LIST);
    EXPECT_EQ(list.Value, u"1");
    EXPECT_EQ(list.Children, 30);
    EXPECT_TRUE(list.State & STATE_SYSTEM_FOCUSED);
    const gui::Spoken row = Said(Files().Base, 2);
    EXPECT_EQ(row.Name, u"1");
    EXPECT_EQ(row.Role, ROLE_SYSTEM_LISTITEM);
    EXPECT_EQ(row.State & (STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED | STATE_SYSTEM_SELECTABLE),
              STATE_SYSTEM_SELECTED | STATE_SYSTEM_FOCUSED | STATE_SYSTEM_SELECTABLE);
    EXPECT_EQ(row.DefaultAction, u"Select");
    EXPECT_EQ(row.Place.bottom - row.Place.top, 20);
    const gui::Spoken other = Said(Files().Base, 1);
    EXPECT_FALSE(other.State & STATE_SYSTEM_SELECTED);
    EXPECT_TRUE(Said(Files().Base, 30).State & STATE_SYSTEM_OFFSCREEN);
    Listen(Files());
    m_Ui.Run([&] {
        EXPECT_EQ(gui::DoDefault(Files().Base.hWnd(), 4), S_OK);
        EXPECT_EQ(Files().ListIndex(), 3);
        EXPECT_EQ(m_Heard, "SelChange Click ");
    });
}

TEST_F(Lists, ScreenReadersHearOfChanges) {
    Fill(Files(), 3);
    const HWND window = Files().Base.hWnd();
    m_Ui.Run([&] { Files().Base.SetFocus(); });
    gui::HeardEvents heard;
    gui::Type(VK_DOWN);
    EXPECT_TRUE(Becomes([&] {
        return heard.Count(EVENT_OBJECT_FOCUS, window, 1) == 1 &&
               heard.Count(EVENT_OBJECT_SELECTION, window, 1) == 1;
    }));
    m_Ui.Run([&] { Files().List(2, u"x"); });
    EXPECT_TRUE(Becomes([&] { return heard.Count(EVENT_OBJECT_NAMECHANGE, window, 3) == 1; }));
    m_Ui.Run([&] { Files().Remove(0); });
    EXPECT_TRUE(Becomes([&] { return heard.Count(EVENT_OBJECT_REORDER, window) == 1; }));
    m_Ui.Run([&] {
        for (int i = 0; i < 100; ++i) Files().AddItem(u"y");
    });
    EXPECT_TRUE(Becomes([&] { return heard.Count(EVENT_OBJECT_REORDER, window) == 2; }));
}

} // namespace
