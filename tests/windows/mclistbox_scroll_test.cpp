// Scrolling of a list, and when it repaints.
#include "controls/Painting.h"
#include "windows/ListForm.h"

namespace {

using Lists = gui::Lists;

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

} // namespace
