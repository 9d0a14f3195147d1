// A list's rows and its current row, their tips, and what screen readers are told.
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
    EXPECT_EQ(row.Place.bottom - row.Place.top, Px(20));
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
