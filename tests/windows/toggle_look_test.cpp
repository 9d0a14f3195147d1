// The look of the toggles: glyphs, wrapped captions, focus; and that real input brings it about.
#include "controls/Dpi.h"
#include "windows/Looks.h"
#include "windows/ToggleForm.h"

namespace {

using gui::BoxOf, gui::ExpectBox, gui::HardFont;

constexpr COLORREF kMagenta = RGB(255, 0, 255); // the ground of gui::Drawn

gui::Pixels Draw(int width, int height, const ToggleState& state, COLORREF ground = kMagenta) {
    return gui::Drawn(
        width, height,
        [&](HDC dc) {
            DrawToggle(dc, {0, 0, width, height}, state);
        },
        ground);
}

class ToggleLook : public testing::Test {
protected:
    void TearDown() override { Theme::ReplaceHighContrast(nullptr); }
    ToggleState State(std::u16string_view caption = {}) {
        ToggleState state;
        state.Caption = caption;
        state.Font = m_Font.Get();
        state.ForeColor = RGB(0, 0, 255);
        return state;
    }
    HardFont m_Font;
};

// Each letter is as wide as 1.
std::u16string Wrapped(std::u16string_view caption, int width) {
    return WrapCaption(caption, width,
                       [](std::u16string_view line) { return static_cast<int>(line.size()); });
}

TEST_F(ToggleLook, CaptionsBreakInFrontOfTheWordThatDoesNotFit) {
    EXPECT_EQ(Wrapped(u"one two three", 7), u"one two\r\nthree");
    EXPECT_EQ(Wrapped(u"one two three", 6), u"one\r\ntwo\r\nthree");
    EXPECT_EQ(Wrapped(u"one two three", 13), u"one two three");
    EXPECT_EQ(Wrapped(u"one two three", 12), u"one two\r\nthree");
    EXPECT_EQ(Wrapped(u"a wide-one b", 4), u"a\r\nwide-one\r\nb"); // alone on its line
    EXPECT_EQ(Wrapped(u"wide-one b", 4), u"wide-one\r\nb");
    EXPECT_EQ(Wrapped(u"", 4), u"");
    EXPECT_EQ(Wrapped(u"a  b", 9), u"a  b"); // blanks stay
    EXPECT_EQ(Wrapped(u"end ", 9), u"end ");
    EXPECT_EQ(Wrapped(u"a b", 0), u"a\r\nb");
    EXPECT_EQ(Wrapped(u"a b", -5), u"a\r\nb");
}

TEST_F(ToggleLook, EveryGlyphIsItsPicture) {
    struct Case {
        ToggleKind Kind;
        int Value;
        const char16_t* Name;
    };
    for (const Case& tried : {Case{ToggleKind::Check, 0, u"check-off-"},
                              {ToggleKind::Check, 1, u"check-on-"},
                              {ToggleKind::Check, 2, u"check-grey-"},
                              {ToggleKind::Option, 0, u"option-off-"},
                              {ToggleKind::Option, 1, u"option-on-"}}) {
        for (const int dpi : {96, 120, 144, 192}) {
            for (int look = 0; look < 4; ++look) {
                constexpr std::u16string_view kLooks[] = {u"idle", u"hover", u"pressed", u"disabled"};
                ToggleState state = State();
                state.Kind = tried.Kind;
                state.Value = tried.Value;
                state.Hovering = look >= 1;
                state.Pressed = look >= 2;
                state.Enabled = look != 3;
                state.Dpi = dpi;
                const int side = Scaled(13, dpi);
                const Picture picture =
                    Picture::FromResource(std::u16string(tried.Name) + std::u16string(kLooks[look]));
                const gui::Pixels expected = gui::Drawn(side, side, [&](HDC dc) {
                    picture.Draw(dc, {0, 0, side, side}, dpi);
                });
                const gui::Pixels drawn = Draw(side + 20, side + LineHeight(state.Font), state);
                const int top = [&] {
                    for (int y = 0; y < drawn.Height; ++y) {
                        if (drawn.Count(kMagenta, {0, y, side, y + 1}) != side) return y;
                    }
                    return -1;
                }();
                ASSERT_GE(top, 0);
                for (int y = 0; y < side; ++y) {
                    for (int x = 0; x < side; ++x) ASSERT_EQ(drawn.At(x, top + y), expected.At(x, y)) << dpi;
                }
            }
        }
    }
}

TEST_F(ToggleLook, TheCaptionBeginsAt15AndStandsInTheMiddle) {
    const gui::Pixels drawn = Draw(100, 41, State(u"H"));
    const RECT letter = BoxOf(drawn, RGB(0, 0, 255));
    const gui::Pixels alone = gui::Drawn(100, 41, [&](HDC dc) {
        RECT place{15, (41 - LineHeight(m_Font.Get()) + 1) / 2, 100, 41};
        DrawTextIn(dc, m_Font.Get(), u"H", place, RGB(0, 0, 255), DT_SINGLELINE);
    });
    const RECT expected = BoxOf(alone, RGB(0, 0, 255));
    ExpectBox(letter, expected.left, expected.top, expected.right, expected.bottom);
}

// The design's toggle of 22 pixels with one line of 15: the glyph from 5, the focus from 2 to 21.
TEST_F(ToggleLook, AnOddRestLiesAbove) {
    for (const int height : {21, 22}) {
        const gui::Pixels drawn = Draw(100, height, State());
        int above = 0, below = 0;
        while (drawn.Count(kMagenta, {0, above, 13, above + 1}) == 13) ++above;
        while (drawn.Count(kMagenta, {0, height - below - 1, 13, height - below}) == 13) ++below;
        EXPECT_EQ(above + below, height - 13);
        EXPECT_EQ(above - below, (height - 13) % 2) << height;
    }
}

TEST_F(ToggleLook, LinesStandOneBelowTheOtherAndTheGlyphAtTheFirst) {
    const int step = LineHeight(m_Font.Get());
    const SIZE word = TextSize(m_Font.Get(), u"HHH");
    const int width = 15 + word.cx + 3;
    const gui::Pixels one = Draw(width, 100, State(u"HHH")), two = Draw(width, 100, State(u"HHH HHH"));
    const RECT single = BoxOf(one, RGB(0, 0, 255)), both = BoxOf(two, RGB(0, 0, 255));
    EXPECT_EQ(HeightOf(both), HeightOf(single) + step);
    EXPECT_EQ(both.left, single.left);
    const auto glyphTop = [&](const gui::Pixels& drawn) {
        int y = 0;
        while (drawn.Count(kMagenta, {0, y, 13, y + 1}) == 13) ++y;
        return y;
    };
    EXPECT_EQ(glyphTop(one) - single.top, glyphTop(two) - both.top);
}

TEST_F(ToggleLook, TheFocusRectangleGoesRoundTheCaption) {
    ToggleState state = State(u"HHH");
    state.Focused = true;
    const gui::Pixels drawn = Draw(100, 30, state);
    const SIZE text = TextSize(m_Font.Get(), u"HHH");
    const LONG top = (30 - text.cy + 1) / 2;
    ExpectBox(BoxOf(drawn, palette::Ink), 13, top - 2, 15 + text.cx + 2, top + text.cy + 2);
    // In a control that is too small it stays inside.
    const gui::Pixels small = Draw(30, 12, state);
    const RECT box = BoxOf(small, palette::Ink);
    EXPECT_EQ(box.left, 13);
    EXPECT_GT(box.right, 13);
    EXPECT_LE(box.right, 30);
    EXPECT_LE(box.bottom, 12);
    // Without a caption it is still seen.
    state.Caption = {};
    EXPECT_GT(Draw(100, 30, state).Count(palette::Ink), 4);
}

TEST_F(ToggleLook, DisabledCaptionsAreGrey) {
    ToggleState state = State(u"HHH");
    const RECT inked = BoxOf(Draw(100, 30, state), RGB(0, 0, 255));
    state.Enabled = false;
    const gui::Pixels drawn = Draw(100, 30, state);
    EXPECT_EQ(drawn.Count(RGB(0, 0, 255)), 0);
    const RECT grey = BoxOf(drawn, palette::DisabledText);
    EXPECT_TRUE(EqualRect(&grey, &inked));
}

TEST_F(ToggleLook, TheGroundShowsUnlessABackColorIsSet) {
    ToggleState state = State();
    const gui::Pixels bare = Draw(60, 30, state);
    EXPECT_EQ(bare.At(0, 0), kMagenta);
    EXPECT_EQ(bare.At(59, 29), kMagenta);
    state.BackColor = RGB(9, 8, 7);
    const gui::Pixels filled = Draw(60, 30, state);
    EXPECT_EQ(filled.Count(kMagenta), 0);
    EXPECT_EQ(filled.At(59, 29), RGB(9, 8, 7));
}

TEST_F(ToggleLook, CaptionsOfAnyKind) {
    std::u16string words;
    while (words.size() < 100'000) words += u"word & ";
    for (const std::u16string& caption :
         {std::u16string(), std::u16string(u"&"), std::u16string(u"&&"), std::u16string(u"a&"),
          std::u16string(u"&a &b"), std::u16string(100'000, u'w'), std::u16string(100'000, u'&'),
          std::u16string(100'000, u' '), words}) {
        ToggleState state = State(caption);
        state.Focused = true;
        const gui::Pixels drawn = gui::Drawn(140, 60, [&](HDC dc) {
            DrawToggle(dc, {20, 20, 120, 40}, state);
        });
        // Nothing outside its place.
        EXPECT_EQ(drawn.Count(kMagenta, {0, 0, 140, 20}), 140 * 20);
        EXPECT_EQ(drawn.Count(kMagenta, {0, 40, 140, 60}), 140 * 20);
        EXPECT_EQ(drawn.Count(kMagenta, {120, 0, 140, 60}), 20 * 60);
    }
}

TEST_F(ToggleLook, MeasuresFollowTheDpi) {
    for (const int dpi : {96, 120, 144, 192}) {
        const FontHandle font({u"Tahoma", 9, false, false}, dpi);
        ToggleState state = State(u"HHH");
        state.Font = font.Get();
        state.Dpi = dpi;
        state.Focused = true;
        const gui::Pixels drawn = Draw(400, 100, state);
        const RECT box = BoxOf(drawn, palette::Ink);
        EXPECT_EQ(box.left, Scaled(15, dpi) - Scaled(2, dpi));
        EXPECT_EQ(HeightOf(box), LineHeight(font.Get()) + 2 * Scaled(2, dpi));
    }
}

TEST_F(ToggleLook, HighContrastUsesTheSystemsColoursOnly) {
    Theme::ReplaceHighContrast([] { return true; });
    const COLORREF ink = GetSysColor(COLOR_WINDOWTEXT), lit = GetSysColor(COLOR_HIGHLIGHT),
                   grey = GetSysColor(COLOR_GRAYTEXT);
    std::vector<gui::Pixels> looks;
    for (const ToggleKind kind : {ToggleKind::Check, ToggleKind::Option}) {
        for (int value = 0; value <= (kind == ToggleKind::Check ? 2 : 1); ++value) {
            ToggleState state = State();
            state.Kind = kind;
            state.Value = value;
            const gui::Pixels idle = Draw(60, 30, state);
            EXPECT_EQ(idle.Count(ink) + idle.Count(kMagenta), 60 * 30);
            const RECT glyph = BoxOf(idle, ink);
            EXPECT_EQ(WidthOf(glyph), 13);
            EXPECT_EQ(HeightOf(glyph), 13);
            EXPECT_EQ(idle.At(6, glyph.top + 4) == ink, value != 0); // the core is 7 wide
            EXPECT_NE(idle.At(6, glyph.top + 2), ink);
            looks.push_back(idle);
            state.Hovering = true;
            EXPECT_EQ(Draw(60, 30, state).Count(lit), idle.Count(ink));
            state.Enabled = false;
            EXPECT_EQ(Draw(60, 30, state).Count(grey), idle.Count(ink));
        }
    }
    for (std::size_t i = 0; i < looks.size(); ++i) {
        for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(looks[i] == looks[j]) << i << " " << j;
    }
    ToggleState state = State(u"HHH");
    EXPECT_GT(Draw(100, 30, state).Count(ink, {15, 0, 100, 30}), 10);
    state.Enabled = false;
    EXPECT_GT(Draw(100, 30, state).Count(grey, {15, 0, 100, 30}), 10);
    state.BackColor = RGB(1, 2, 3);
    EXPECT_EQ(Draw(100, 30, state).At(99, 29), GetSysColor(COLOR_WINDOW));
}

class ToggleStates : public gui::FormTest<gui::ToggleForm> {
protected:
    template <class Toggle>
    void ExpectLook(Toggle& toggle, const std::function<void(ToggleState&)>& want, const char* what,
                    COLORREF ground) {
        m_Ui.Run([&] {
            ToggleState state = toggle.State();
            state.Hovering = state.Pressed = state.Focused = false;
            state.Enabled = true;
            want(state);
            const gui::Pixels shown = gui::ClientOf(toggle.Base.hWnd());
            EXPECT_TRUE(shown == Draw(shown.Width, shown.Height, state, ground)) << what;
        });
    }
    template <class Toggle>
    void EveryState(Toggle& toggle, COLORREF ground) {
        m_Ui.Run([&] { m_Shown->Text.Base.SetFocus(); });
        const auto expect = [&](const char* what, const std::function<void(ToggleState&)>& want) {
            ExpectLook(toggle, want, what, ground);
        };
        expect("idle", [](ToggleState&) {});
        gui::MoveTo(gui::CentreOf(toggle.Base.hWnd()));
        ASSERT_TRUE(Becomes([&] { return toggle.State().Hovering; }));
        expect("hover", [](ToggleState& s) { s.Hovering = true; });
        gui::Press(MOUSEEVENTF_LEFTDOWN);
        ASSERT_TRUE(Becomes([&] { return toggle.State().Pressed; }));
        expect("pressed", [](ToggleState& s) { s.Hovering = s.Pressed = s.Focused = true; });
        gui::MoveTo({1, 1});
        ASSERT_TRUE(Becomes([&] { return !toggle.State().Pressed; }));
        expect("left while pressed", [](ToggleState& s) { s.Focused = true; });
        gui::Press(MOUSEEVENTF_LEFTUP);
        m_Ui.Settle();
        gui::Key(VK_SPACE, false);
        ASSERT_TRUE(Becomes([&] { return toggle.State().Pressed; }));
        expect("space", [](ToggleState& s) { s.Pressed = s.Focused = true; });
        gui::Key(VK_SPACE, true);
        ASSERT_TRUE(Becomes([&] { return !toggle.State().Pressed; }));
        expect("focus", [](ToggleState& s) { s.Focused = true; });
        m_Ui.Run([&] { toggle.Base.Enabled(false); });
        expect("disabled", [](ToggleState& s) { s.Enabled = false; });
        m_Ui.Run([&] { toggle.Base.Enabled(true); });
    }
};

TEST_F(ToggleStates, RealInputBringsAboutEachLook) {
    for (int value = 0; value < 3; ++value) {
        m_Ui.Run([&] { m_Shown->Ready->Value(value); });
        EveryState(*m_Shown->Ready, palette::FrameTop);
        EveryState(m_Shown->Task[1], palette::FrameTop);
    }
    for (const int dpi : {120, 144, 192}) {
        SetDpi(dpi);
        EveryState(*m_Shown->Ready, palette::FrameTop);
        EveryState(m_Shown->Task[1], palette::FrameTop);
    }
    SetDpi(96);
    SetHighContrast(true);
    EveryState(*m_Shown->Ready, GetSysColor(COLOR_WINDOW));
    EveryState(m_Shown->Task[1], GetSysColor(COLOR_WINDOW));
}

TEST_F(ToggleStates, SettingAPropertyIsSeen) {
    m_Ui.Run([&] {
        CheckBox& ready = *m_Shown->Ready;
        const auto changes = [&](const char* name, const std::function<void()>& set) {
            const gui::Pixels before = gui::ClientOf(ready.Base.hWnd());
            UpdateWindow(ready.Base.hWnd());
            set();
            EXPECT_TRUE(GetUpdateRect(ready.Base.hWnd(), nullptr, FALSE)) << name;
            EXPECT_FALSE(gui::ClientOf(ready.Base.hWnd()) == before) << name;
        };
        changes("Value", [&] { ready.Value(1); });
        changes("Caption", [&] { ready.Caption(u"Other"); });
        changes("ForeColor", [&] { ready.ForeColor(RGB(200, 0, 0)); });
        changes("BackColor", [&] { ready.BackColor(RGB(200, 200, 0)); });
        changes("Font", [&] { ready.Base.Font({u"Tahoma", 12, true, false}); });
        changes("absent font", [&] { ready.Base.Font({u"No Such Face", 7, false, false}); });
        changes("Enabled", [&] { ready.Base.Enabled(false); });
    });
}

TEST_F(ToggleStates, PaintsOnceForEachChangeAndNeverOnErase) {
    const HWND window = m_Shown->Ready->Base.hWnd();
    m_Ui.Run([&] {
        RedrawWindow(m_Shown->Window.Base.hWnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        const gui::Pixels erased = gui::Drawn(20, 20, [&](HDC dc) {
            EXPECT_NE(SendMessageW(window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 0);
        });
        EXPECT_EQ(erased.Count(kMagenta), 400);
    });
    const PaintTally before = On([] { return PaintsSoFar(); });
    for (int x = 10; x < 60; ++x) gui::MoveTo(gui::ToScreen(window, x, 10));
    ASSERT_TRUE(Becomes([&] { return m_Shown->Ready->State().Hovering; }));
    m_Ui.Run([&] { UpdateWindow(window); });
    m_Ui.Settle();
    const PaintTally after = On([] { return PaintsSoFar(); });
    EXPECT_EQ(after.Paints - before.Paints, 1);
    EXPECT_EQ(after.Blits - before.Blits, 1);
}

// No move of the mouse and no message of the system tells of it.
TEST_F(ToggleStates, AWindowThatComesOverItEndsTheHover) {
    const auto hovers = [&](const Control& control, const auto& state, bool wanted) {
        return Becomes([&] { return state().Hovering == wanted; }) &&
               (Said(control).State & STATE_SYSTEM_HOTTRACKED) == (wanted ? STATE_SYSTEM_HOTTRACKED : 0);
    };
    const auto ends = [&](const Control& control, const auto& state) {
        gui::MoveTo(gui::CentreOf(control.hWnd()));
        ASSERT_TRUE(hovers(control, state, true));
        HWND cover = nullptr;
        m_Ui.Run([&] {
            RECT place{};
            GetWindowRect(control.hWnd(), &place);
            cover = gui::MakeWindow(nullptr, place);
            SetWindowPos(cover, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
        });
        EXPECT_TRUE(hovers(control, state, false));
        m_Ui.Run([&] { DestroyWindow(cover); });
        gui::MoveTo(gui::ToScreen(control.hWnd(), 3, 3));
        EXPECT_TRUE(hovers(control, state, true));
    };
    ends(m_Shown->Ready->Base, [&] { return m_Shown->Ready->State(); });
    ends(m_Shown->Alone->Base, [&] { return m_Shown->Alone->State(); });
}

} // namespace
