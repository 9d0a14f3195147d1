// What many rows cost a list, by counts: paints, and rows that are read for them.
#include "controls/Painting.h"
#include "windows/ListForm.h"

namespace {

constexpr int kMany = 100'000;

// Seven rows are seen whole.
class ManyRows : public gui::Lists {
protected:
    // Rows that are seen, with one of which a part shows where the pixels of the DPI leave a rest.
    long Seen() {
        return On([&] {
            RECT client;
            GetClientRect(Files().Base.hWnd(), &client);
            EXPECT_EQ(client.bottom / Px(20), 7);
            return static_cast<long>((client.bottom + Px(20) - 1) / Px(20));
        });
    }
    // What act has cost when all that it asked for is painted.
    PaintTally Cost(const std::function<void()>& act) {
        PaintAll();
        const PaintTally before = On([] { return PaintsSoFar(); });
        m_Ui.Run(act);
        PaintAll();
        const PaintTally after = On([] { return PaintsSoFar(); });
        return {after.Paints - before.Paints, after.Blits - before.Blits, after.Rows - before.Rows};
    }
    void ExpectCost(const char* what, long paints, long rows, const std::function<void()>& act) {
        const PaintTally cost = Cost(act);
        EXPECT_EQ(cost.Paints, paints) << what;
        EXPECT_EQ(cost.Blits, paints) << what;
        EXPECT_EQ(cost.Rows, rows) << what;
    }
};

TEST_F(ManyRows, ABurstOfAddsCostsOneRefresh) {
    const auto refreshed = [&] {
        // The scroll bar comes with the refresh, and the timer goes.
        ASSERT_TRUE(
            Becomes([&] { return (GetWindowLongW(Files().Base.hWnd(), GWL_STYLE) & WS_VSCROLL) != 0; }));
        EXPECT_FALSE(On([&] { return KillTimer(Files().Base.hWnd(), 1) != FALSE; }));
    };
    PaintAll();
    const PaintTally before = On([] { return PaintsSoFar(); });
    m_Ui.Run([&] {
        for (int i = 0; i < kMany; ++i) Files().AddItem(u"row", -1, 0);
        EXPECT_EQ(PaintsSoFar().Paints, before.Paints);
    });
    refreshed();
    const PaintTally after = On([] { return PaintsSoFar(); });
    EXPECT_EQ(after.Paints - before.Paints, 1);
    EXPECT_EQ(after.Rows - before.Rows, Seen());
}

TEST_F(ManyRows, APaintReadsTheVisibleRowsOnly) {
    Fill(Files(), kMany);
    McListBox& list = Files();
    const auto scroll = [&list](int request) {
        return
            [&list, request] { SendMessageW(list.Base.hWnd(), WM_VSCROLL, static_cast<WPARAM>(request), 0); };
    };
    const long seen = Seen();
    ExpectCost("refresh", 1, seen, [&] { list.Refresh(); });
    ExpectCost("a line down", 1, seen, scroll(SB_LINEDOWN));
    ExpectCost("a page down", 1, seen, scroll(SB_PAGEDOWN));
    ExpectCost("to the end", 1, 7, scroll(SB_BOTTOM));
    ExpectCost("to a row far away", 1, seen, [&] { list.ListIndex(50'000); });
    ExpectCost("to its neighbour", 1, 2, [&] { list.ListIndex(50'001); });
    ExpectCost("a new text", 1, 1, [&] { list.List(50'003, u"new"); });
    ExpectCost("a new text out of sight", 0, 0, [&] { list.List(7, u"new"); });
    ExpectCost("a row goes", 1, seen, [&] { list.Remove(0); });
}

} // namespace
