// The progress bar: its arithmetic as pixels, its label, what it costs, what is told.
#include "controls/AdvProgressBar.h"

#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "support/Failure.h"
#include "windows/FormTest.h"
#include "windows/Pixels.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmBar\tform\t\t\t3000\t1500\tBar\t\tBackColor=FrameTop\n"
    u"f\tfrmBar\tProgress\tAdvProgressBar\t300\t300\t1800\t300\t\t\tStyle=2; ShowText=yes; Appearance=0; "
    u"BorderStyle=0; BarColor1=Bar1; BarColor2=Bar2; TextColor=Ink; BackColor=Track; Font=Bar; "
    u"AccessibleName=Progress\n"
    u"f\tfrmBar\tPlain\tAdvProgressBar\t300\t750\t1800\t300\t\t\tAccessibleName=Plain\n";

struct BarForm {
    Form Window;
    AdvProgressBar Progress, Plain;
    BarForm() {
        Window.Bind(u"Progress", Progress).Bind(u"Plain", Plain).Create(kLayout);
        Window.Show();
    }
};

using Bars = gui::FormTest<BarForm>;

// The side panel's bar, 102 by 20 pixels at 96 DPI: inside its border 100 pixels wide.
AdvProgressBarState PanelBar(int value, int max) {
    AdvProgressBarState state;
    state.Style = 2;
    state.Max = max;
    state.Value = value;
    state.Appearance = state.BorderStyle = 0;
    state.TextColor = palette::Ink;
    state.BarColor1 = palette::Bar1;
    state.BarColor2 = palette::Bar2;
    state.BackColor = palette::Track;
    return state;
}
gui::Pixels Draw(const AdvProgressBarState& state) {
    return gui::Drawn(102, 20, [&](HDC dc) { DrawAdvProgressBar(dc, {0, 0, 102, 20}, state); });
}
// Pixels of the bar in the row just inside the border, and that they are its left ones.
int BarWidth(const gui::Pixels& pixels, COLORREF colour) {
    const int width = pixels.Count(colour, {0, 1, 102, 2});
    return pixels.Count(colour, {1, 1, 1 + width, 2}) == width ? width : -1;
}

TEST(AdvProgressBar, TheBarIsAsWideAsValueOfMax) {
    EXPECT_EQ(BarWidth(Draw(PanelBar(1, 100)), RGB(238, 179, 90)), 1);
    EXPECT_EQ(BarWidth(Draw(PanelBar(50, 100)), RGB(174, 187, 125)), 50);
    EXPECT_EQ(BarWidth(Draw(PanelBar(7, 1000)), RGB(239, 179, 90)), 0); // 0.7 of a pixel
    EXPECT_EQ(BarWidth(Draw(PanelBar(10, 1000)), RGB(238, 179, 90)), 1);
    EXPECT_EQ(BarWidth(Draw(PanelBar(16384, 32767)), RGB(173, 187, 125)), 50);
}

TEST(AdvProgressBar, EachChannelIsCutToItsWholePart) {
    // 43 of 100 between F0B35A and 6CC3A0: 183.24, 185.88, 120.1.
    EXPECT_EQ(BarWidth(Draw(PanelBar(43, 100)), RGB(183, 185, 120)), 43);
    // 1 of 3: 196.0, 184.33, 113.33.
    EXPECT_EQ(BarWidth(Draw(PanelBar(1, 3)), RGB(196, 184, 113)), 33);
}

TEST(AdvProgressBar, AtMaxItIsExactlyTheEndColour) {
    for (const int max : {1, 7, 100, 32767}) {
        const gui::Pixels pixels = Draw(PanelBar(max, max));
        EXPECT_EQ(pixels.Count(palette::Bar2), 100 * 18) << max;
    }
}

TEST(AdvProgressBar, WithoutProgressThereIsNoBar) {
    EXPECT_EQ(Draw(PanelBar(0, 100)).Count(palette::Track), 100 * 18);
    EXPECT_EQ(Draw(PanelBar(-5, 100)).Count(palette::Track), 100 * 18);
}

TEST(AdvProgressBar, AZeroMaxLeavesTheSurfaceBlank) {
    AdvProgressBarState state = PanelBar(0, 0);
    state.ShowText = true;
    const gui::Pixels pixels = Draw(state);
    EXPECT_EQ(pixels.Count(palette::Track), 100 * 18);
    EXPECT_EQ(pixels.Count(palette::FieldBorder), 102 * 20 - 100 * 18);
}

// Max may be lowered under a value that is there already.
TEST(AdvProgressBar, AValueBeyondMaxStaysInsideTheSurface) {
    const gui::Pixels pixels = Draw(PanelBar(200, 100));
    EXPECT_EQ(pixels.Count(palette::FieldBorder), 102 * 20 - 100 * 18);
    EXPECT_EQ(pixels.Count(palette::Track), 0);
}

TEST(AdvProgressBar, SystemColoursAreResolved) {
    AdvProgressBarState state = PanelBar(100, 100);
    state.BarColor2 = 0x80000000 | COLOR_HIGHLIGHT;
    EXPECT_EQ(Draw(state).Count(GetSysColor(COLOR_HIGHLIGHT)), 100 * 18);
}

TEST(AdvProgressBar, OtherStylesDrawNoBar) {
    AdvProgressBarState state = PanelBar(50, 100);
    state.Style = 1;
    EXPECT_EQ(Draw(state).Count(palette::Track), 100 * 18);
}

TEST(AdvProgressBar, TheEdgeIsSunkenOrAHairLine) {
    AdvProgressBarState state = PanelBar(0, 100);
    EXPECT_EQ(Draw(state).At(0, 10), palette::FieldBorder);
    state.Dpi = 192;
    EXPECT_EQ(Draw(state).At(1, 10), palette::FieldBorder);
    state.Appearance = state.BorderStyle = 1;
    const gui::Pixels sunken = Draw(state);
    EXPECT_EQ(sunken.At(0, 10), GetSysColor(COLOR_BTNSHADOW));
    EXPECT_EQ(sunken.At(101, 10), GetSysColor(COLOR_BTNHIGHLIGHT));
}

TEST(AdvProgressBar, TheLabelIsInTheMiddle) {
    const FontHandle font(BarFont(), 96);
    AdvProgressBarState state = PanelBar(0, 100);
    state.ShowText = true;
    state.Font = font.Get();
    const gui::Pixels pixels = Draw(state);
    const SIZE size = TextSize(font.Get(), u"0%");
    const RECT middle{1 + (100 - size.cx) / 2, 1 + (18 - size.cy) / 2, 1 + (100 + size.cx) / 2 + 1,
                      1 + (18 + size.cy) / 2 + 1};
    const int inside = WidthOf(middle) * HeightOf(middle) - pixels.Count(palette::Track, middle);
    EXPECT_GT(inside, 10);
    EXPECT_EQ(100 * 18 - pixels.Count(palette::Track), inside);
}

TEST_F(Bars, DefaultsAreThoseOfTheProperties) {
    const AdvProgressBar& bar = m_Shown->Plain;
    EXPECT_EQ(bar.Max(), 100);
    EXPECT_EQ(bar.Value(), 100);
    EXPECT_FALSE(bar.ShowText());
    EXPECT_EQ(bar.Appearance(), 1);
    EXPECT_EQ(bar.BorderStyle(), 1);
    EXPECT_EQ(bar.Style(), 1);
    EXPECT_EQ(bar.TextColor(), 0u);
    EXPECT_EQ(bar.BarColor1(), 0x8000000Eu);
    EXPECT_EQ(bar.BarColor2(), 65280u);
    EXPECT_EQ(bar.BackColor(), 0x8000000Fu);
}

TEST_F(Bars, ValuesAreSixteenBitAndCutToMax) {
    AdvProgressBar& bar = m_Shown->Progress;
    m_Ui.Run([&] {
        bar.Value(150);
        EXPECT_EQ(bar.Value(), 100);
        bar.Max(32767);
        EXPECT_EQ(bar.Value(), 100);
        EXPECT_EQ(FailureNumber([&] { bar.Max(32768); }), 6);
        EXPECT_EQ(FailureNumber([&] { bar.Value(32768); }), 6);
        EXPECT_EQ(FailureNumber([&] { bar.Value(-32769); }), 6);
        EXPECT_EQ(bar.Max(), 32767);
        EXPECT_EQ(bar.Value(), 100);
        bar.Max(0);
        bar.Value(5);
        EXPECT_EQ(bar.Value(), 0);
    });
    EXPECT_EQ(Said(bar.Base).Value, u"");
}

// 29/100*100 is a little less than 29 in floating point.
TEST_F(Bars, ThePercentageIsExact) {
    AdvProgressBar& bar = m_Shown->Progress;
    for (int value = 0; value <= 100; ++value) {
        m_Ui.Run([&] { bar.Value(value); });
        const std::string expected = std::to_string(value) + "%";
        EXPECT_EQ(text::ToUtf8(Said(bar.Base).Value), expected);
    }
    m_Ui.Run([&] {
        bar.Max(3);
        bar.Value(2);
    });
    EXPECT_EQ(Said(bar.Base).Value, u"66%");
}

TEST_F(Bars, TheControlShowsWhatDrawDraws) {
    AdvProgressBar& bar = m_Shown->Progress;
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        m_Ui.Run([&] {
            bar.Max(1000);
            bar.Value(430);
            const gui::Pixels shown = gui::ClientOf(bar.Base.hWnd());
            EXPECT_EQ(shown.Width, ToPixels(2100, dpi) - ToPixels(300, dpi));
            AdvProgressBarState state = PanelBar(430, 1000);
            state.ShowText = true;
            state.Font = bar.Base.FontInUse();
            state.Dpi = dpi;
            EXPECT_EQ(shown, gui::Drawn(shown.Width, shown.Height,
                                        [&](HDC dc) {
                                            DrawAdvProgressBar(dc, {0, 0, shown.Width, shown.Height}, state);
                                        }))
                << dpi;
        });
    }
}

TEST_F(Bars, HighContrastUsesTheSystemsColours) {
    AdvProgressBar& bar = m_Shown->Progress;
    SetHighContrast(true);
    m_Ui.Run([&] {
        bar.Value(50);
        const gui::Pixels shown = gui::ClientOf(bar.Base.hWnd());
        EXPECT_EQ(shown.At(0, 0), GetSysColor(COLOR_WINDOWTEXT));
        EXPECT_EQ(shown.At(2, 2), GetSysColor(COLOR_HIGHLIGHT));
        EXPECT_EQ(shown.At(shown.Width - 3, 2), GetSysColor(COLOR_WINDOW));
        // The label lies half on the bar.
        const int middle = 1 + (shown.Width - 2) / 2;
        EXPECT_GT(shown.Count(GetSysColor(COLOR_HIGHLIGHTTEXT), {2, 2, middle, shown.Height - 2}), 0);
        EXPECT_GT(shown.Count(GetSysColor(COLOR_WINDOWTEXT), {middle, 2, shown.Width - 2, shown.Height - 2}),
                  0);
    });
    SetHighContrast(false);
    EXPECT_EQ(On([&] { return gui::ClientOf(bar.Base.hWnd()).At(0, 0); }), palette::FieldBorder);
}

TEST_F(Bars, AValueIsPaintedAtOnceInOneBlit) {
    AdvProgressBar& bar = m_Shown->Progress;
    m_Ui.Settle();
    m_Ui.Run([&] {
        bar.Value(0);
        const PaintTally before = PaintsSoFar();
        for (int value = 1; value <= 50; ++value) bar.Value(value);
        EXPECT_EQ(PaintsSoFar().Paints - before.Paints, 50);
        EXPECT_EQ(PaintsSoFar().Blits - before.Blits, 50);
        EXPECT_EQ(SendMessageW(bar.Base.hWnd(), WM_ERASEBKGND, 0, 0), 1);
        EXPECT_EQ(PaintsSoFar().Blits - before.Blits, 50);
    });
}

// 118 pixels and 100 labels and at most 124 shades: most of 30,000 steps change nothing.
TEST_F(Bars, StepsThatNobodySeesAreNotPainted) {
    AdvProgressBar& bar = m_Shown->Progress;
    SetDpi(96);
    m_Ui.Run([&] {
        bar.Max(30'000);
        bar.Value(0);
        const long before = PaintsSoFar().Paints;
        for (int value = 1; value <= 30'000; ++value) bar.Value(value);
        EXPECT_GT(PaintsSoFar().Paints - before, 118);
        EXPECT_LT(PaintsSoFar().Paints - before, 118 + 100 + 124 + 70 + 16);
        EXPECT_EQ(gui::ClientOf(bar.Base.hWnd()).At(3, 3), palette::Bar2);
    });
}

// Neither more nor less than what can be seen, also where the border is wider.
TEST_F(Bars, EachStepThatIsSeenIsPaintedAtEveryDpi) {
    AdvProgressBar& bar = m_Shown->Progress;
    for (const int dpi : {96, 144, 192}) {
        SetDpi(dpi);
        m_Ui.Run([&] {
            bar.Max(700);
            bar.Value(0);
            gui::Pixels seen = gui::ClientOf(bar.Base.hWnd());
            for (int value = 1; value <= 700; ++value) {
                const long before = PaintsSoFar().Paints;
                bar.Value(value);
                const bool painted = PaintsSoFar().Paints != before;
                const gui::Pixels now = gui::ClientOf(bar.Base.hWnd());
                ASSERT_EQ(painted, !(now == seen)) << value << " at " << dpi;
                seen = now;
            }
        });
    }
}

TEST_F(Bars, ScreenReadersHearOfEachPercent) {
    AdvProgressBar& bar = m_Shown->Progress;
    m_Ui.Run([&] { bar.Value(0); });
    const gui::Spoken said = Said(bar.Base);
    EXPECT_EQ(said.Name, u"Progress");
    EXPECT_EQ(said.Role, ROLE_SYSTEM_PROGRESSBAR);
    EXPECT_EQ(said.Value, u"0%");
    EXPECT_TRUE(said.State & STATE_SYSTEM_READONLY);
    EXPECT_FALSE(said.State & STATE_SYSTEM_FOCUSABLE);
    gui::HeardEvents heard;
    m_Ui.Run([&] {
        bar.Max(1000);
        for (int value = 1; value <= 30; ++value) bar.Value(value);
    });
    EXPECT_TRUE(Becomes([&] { return heard.Count(EVENT_OBJECT_VALUECHANGE, bar.Base.hWnd()) == 3; }));
}

} // namespace
