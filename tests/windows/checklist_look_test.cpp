// The look of the check list: real input brings about what its rows draw; colours, one blit a paint.
#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "windows/CheckListForm.h"
#include "windows/Pixels.h"

namespace {

using Checks = gui::Checks;

TEST_F(Checks, WhatInputBringsAboutIsWhatTheRowsDraw) {
    gui::Click(At(1));
    EXPECT_TRUE(Becomes([&] { return m_Shown->Log.size() == 1; }));
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        const gui::Pixels shown = On([&] { return gui::ClientOf(List()); });
        const int height = 20 * dpi / 96;
        const gui::Pixels drawn = On([&] {
            const Font plain = m_Shown->Fields.Base.Font();
            Font bold = plain;
            bold.Bold = true;
            const FontHandle thin(plain, dpi), fat(bold, dpi);
            return gui::Drawn(shown.Width, 2 * height, [&](HDC dc) {
                DrawCheckRow(dc, {0, 0, shown.Width, height},
                             {.Text = u"Table: Customers", .Font = fat.Get(), .Picture = 0, .Dpi = dpi});
                DrawCheckRow(dc, {0, height, shown.Width, 2 * height},
                             {.Text = u"CustomerName",
                              .Font = thin.Get(),
                              .Picture = 1,
                              .Indent = 16,
                              .Checked = true,
                              .Selected = true,
                              .Focused = true,
                              .Dpi = dpi});
            });
        });
        int differing = 0;
        for (int y = 0; y < 2 * height; ++y) {
            for (int x = 0; x < shown.Width; ++x) differing += shown.At(x, y) != drawn.At(x, y);
        }
        EXPECT_EQ(differing, 0) << dpi;
        // The block stands right of the picture: 16 of indent, 41 of glyph and picture.
        const int left = Scaled(16, dpi) + Scaled(41, dpi);
        EXPECT_EQ(shown.At(left - 1, height + 1), palette::Card) << dpi;
        EXPECT_EQ(shown.At(left, height), palette::SelGrad) << dpi;
        const int hair = HairLine(dpi);
        EXPECT_EQ(shown.At(left + hair, height + hair), palette::Card) << dpi; // the focus, a line inside
        EXPECT_NE(shown.At(left + 2 * hair, height + 2 * hair), palette::Card) << dpi;
    }
}

TEST_F(Checks, StatesHaveTheirColours) {
    const auto drawn = [](const CheckRowState& state) {
        return gui::Drawn(200, 20, [&](HDC dc) { DrawCheckRow(dc, {0, 0, 200, 20}, state); });
    };
    m_Ui.Run([&] {
        const HFONT font = m_Shown->Fields.Base.FontInUse();
        CheckRowState state{.Text = u"", .Font = font, .Selected = true};
        EXPECT_EQ(drawn(state).At(198, 0), palette::SelGrad);
        EXPECT_EQ(drawn(state).At(2, 2), palette::Card);
        state.Enabled = false;
        EXPECT_EQ(drawn(state).At(198, 10), palette::SelDisabled);
        EXPECT_EQ(drawn(state).At(2, 2), palette::DisabledGround);
        state.Enabled = true;
        const gui::Pixels off = drawn(state);
        state.Checked = true;
        EXPECT_FALSE(off == drawn(state));
        state.Selected = false;
        EXPECT_EQ(drawn(state).At(198, 10), palette::Card);
    });
    SetHighContrast(true);
    m_Ui.Run([&] {
        const HFONT font = m_Shown->Fields.Base.FontInUse();
        CheckRowState state{.Text = u"", .Font = font, .Checked = true};
        gui::Pixels row = drawn(state);
        EXPECT_EQ(row.At(198, 10), GetSysColor(COLOR_WINDOW));
        EXPECT_EQ(row.At(5 + 6, 10), GetSysColor(COLOR_WINDOWTEXT)); // the core of the tick
        state.Selected = true;
        EXPECT_EQ(drawn(state).At(198, 10), GetSysColor(COLOR_HIGHLIGHT));
        m_Shown->Fields.Base.Enabled(false);
        EXPECT_EQ(gui::ClientOf(List()).At(200, 110), GetSysColor(COLOR_WINDOW));
    });
}

// Rows are painted one by one: what one leaves on its neighbours would stay there.
TEST_F(Checks, ARowDrawsItsOwnPlaceAndNoMore) {
    for (const bool contrast : {false, true}) {
        SetHighContrast(contrast);
        for (const int dpi : {96, 120, 144, 192}) {
            const int height = Scaled(20, dpi), width = Scaled(200, dpi);
            const gui::Pixels drawn = On([&] {
                const FontHandle font(m_Shown->Fields.Base.Font(), dpi);
                return gui::Drawn(width, 3 * height, [&](HDC dc) {
                    DrawCheckRow(dc, {0, height, width, 2 * height},
                                 {.Text = u"Table: Customers",
                                  .Font = font.Get(),
                                  .Picture = CheckList::kTable,
                                  .Selected = true,
                                  .Focused = true,
                                  .Dpi = dpi});
                });
            });
            EXPECT_EQ(drawn.Count(RGB(255, 0, 255)), 2 * height * width) << dpi << contrast;
        }
    }
}

TEST_F(Checks, ABurstOfRowsCostsOneRefreshAndAPaintIsOneBlit) {
    m_Ui.Run([&] { UpdateWindow(m_Shown->Window.Base.hWnd()); });
    std::unique_ptr<gui::HeardEvents> heard;
    m_Ui.Run([&] {
        heard = std::make_unique<gui::HeardEvents>();
        for (int i = 0; i < 5'000; ++i) m_Shown->Fields.AddItem(u"x", UiFont());
    });
    EXPECT_TRUE(Becomes([&] { return (GetWindowLongW(List(), GWL_STYLE) & WS_VSCROLL) != 0; }));
    EXPECT_EQ(heard->Count(EVENT_OBJECT_REORDER, List()), 1);
    m_Ui.Run([&] {
        heard.reset();
        UpdateWindow(List());
        const PaintTally before = PaintsSoFar();
        m_Shown->Fields.Checked(1, true);
        UpdateWindow(List());
        EXPECT_EQ(PaintsSoFar().Paints - before.Paints, 1);
        EXPECT_EQ(PaintsSoFar().Blits - before.Blits, 1);
        const gui::Pixels erased = gui::Drawn(20, 20, [&](HDC dc) {
            EXPECT_NE(SendMessageW(List(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 0);
        });
        EXPECT_EQ(erased.Count(RGB(255, 0, 255)), 400);
    });
}

} // namespace
