// The look of TavrelButton, pixel by pixel where it is fixed: ground, frames, shades.
#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "windows/ButtonLooks.h"

namespace {

using namespace gui;

class ButtonLook : public testing::Test {
protected:
    void TearDown() override { Theme::ReplaceHighContrast(nullptr); }
};

TEST_F(ButtonLook, TheOffsetIsAsymmetric) {
    // The shades of the palette, worked out by hand from the rule.
    EXPECT_EQ(OffsetColour(RGB(0x00, 0x4E, 0x64), 48), RGB(0x30, 0x7E, 0x7D));
    EXPECT_EQ(OffsetColour(RGB(0x30, 0x7E, 0x7D), -25), RGB(0x17, 0x65, 0x6D));
    EXPECT_EQ(OffsetColour(RGB(0xC2, 0xC9, 0xC9), 48), RGB(0xF2, 0xF9, 0xFB));
    EXPECT_EQ(OffsetColour(RGB(0xF2, 0xF9, 0xFB), -25), RGB(0xD9, 0xE0, 0xDB));
    EXPECT_EQ(OffsetColour(RGB(0xF2, 0xF9, 0xFB), -84), RGB(0x9E, 0xA5, 0x8E));
    EXPECT_EQ(OffsetColour(RGB(10, 20, 0), 30), RGB(40, 50, 0)); // no blue, no gain
    EXPECT_EQ(OffsetColour(RGB(10, 250, 200), -48), RGB(0, 202, 150));
    EXPECT_EQ(OffsetColour(RGB(250, 255, 192), 100), RGB(255, 255, 255));
    EXPECT_EQ(OffsetColour(RGB(1, 2, 192), 1), RGB(2, 3, 193));
    EXPECT_EQ(OffsetColour(RGB(1, 2, 191), 1), RGB(2, 3, 191)); // 191 / 192 is cut
    EXPECT_EQ(OffsetColour(RGB(1, 2, 3), 0), RGB(1, 2, 3));
}

TEST_F(ButtonLook, IdleStyle3IsAGradientInADarkFrame) {
    constexpr int kWidth = 60, kHeight = 50; // 25 / h is a half: each second line is a step
    const gui::Pixels idle = Draw(kWidth, kHeight, Neutral());
    const COLORREF dark = GetSysColor(0x15);
    for (int y = 1; y < kHeight - 1; ++y) {
        const int steps = (y + 1) / 2; // halves go away from the base
        const int blue = 0xFB - 0xFB * steps / 192;
        EXPECT_EQ(idle.At(30, y), RGB(0xF2 - steps, 0xF9 - steps, blue)) << y;
        if (y > 1 && y < kHeight - 2) {
            EXPECT_EQ(idle.At(0, y), dark) << y;
            EXPECT_EQ(idle.At(kWidth - 1, y), dark) << y;
            EXPECT_EQ(idle.At(1, y), idle.At(30, y)) << y;
        }
    }
    for (int x = 2; x < kWidth - 2; ++x) {
        EXPECT_EQ(idle.At(x, 0), dark) << x;
        EXPECT_EQ(idle.At(x, kHeight - 1), dark) << x;
    }
    for (const int x : {1, kWidth - 2}) {
        for (const int y : {1, kHeight - 2}) EXPECT_EQ(idle.At(x, y), dark);
    }
}

TEST_F(ButtonLook, Style3LeavesThreePixelsOfEachCornerAlone) {
    const gui::Pixels idle = Draw(60, 30, Neutral());
    EXPECT_EQ(idle.Count(kMagenta), 12);
    for (const auto& [x, y] : {std::pair{0, 0}, {1, 0}, {0, 1}}) {
        EXPECT_EQ(idle.At(x, y), kMagenta);
        EXPECT_EQ(idle.At(59 - x, y), kMagenta);
        EXPECT_EQ(idle.At(x, 29 - y), kMagenta);
        EXPECT_EQ(idle.At(59 - x, 29 - y), kMagenta);
    }
}

TEST_F(ButtonLook, PressedStyle3RunsFromTheBottomUp) {
    constexpr int kHeight = 30; // 15 / h is a half
    TavrelButtonState state = Neutral();
    state.Pressed = state.Focused = state.Hovering = true;
    const gui::Pixels pressed = Draw(60, kHeight, state);
    for (int y = 1; y < kHeight - 1; ++y) {
        const int steps = (kHeight - 1 - y + 1) / 2;
        const int blue = 0xD2 - 0xD2 * steps / 192;
        EXPECT_EQ(pressed.At(30, y), RGB(0xD2 - steps, 0xD9 - steps, blue)) << y;
    }
    EXPECT_EQ(pressed.At(0, 10), GetSysColor(0x15));
}

TEST_F(ButtonLook, DisabledStyle3HasFourShades) {
    TavrelButtonState state = Neutral();
    state.Enabled = false;
    state.Hovering = state.Pressed = true; // neither shows
    const gui::Pixels disabled = Draw(60, 30, state);
    const COLORREF fill = RGB(0xF2, 0xF9, 0xFB), inner = RGB(0xDA, 0xE1, 0xDC), outer = RGB(0x9E, 0xA5, 0x8E),
                   corner = RGB(0xAA, 0xB1, 0x9D);
    EXPECT_EQ(disabled.Count(fill), 56 * 26);
    EXPECT_EQ(disabled.Count(outer), 2 * 56 + 2 * 26);
    EXPECT_EQ(disabled.Count(corner), 4);
    EXPECT_EQ(disabled.Count(inner), 2 * 56 + 2 * 26);
    for (const auto& [x, y] : {std::pair{1, 1}, {1, 28}, {58, 1}, {58, 28}})
        EXPECT_EQ(disabled.At(x, y), corner);
    EXPECT_EQ(disabled.At(2, 0), outer);
    EXPECT_EQ(disabled.At(2, 1), inner);
    EXPECT_EQ(disabled.At(2, 2), fill);
}

TEST_F(ButtonLook, HoverAndFocusFramesAreTwoPixelsInside) {
    struct Case {
        bool BuiltIn, Hovering, Focused;
        COLORREF Frame;
    };
    for (const Case& tried : {Case{true, true, false, RGB(225, 153, 71)},
                              {true, false, true, RGB(140, 170, 230)},
                              {true, true, true, RGB(140, 170, 230)},
                              {false, true, false, palette::HoverNeutral},
                              {false, false, true, palette::FocusNeutral},
                              {false, true, true, palette::FocusNeutral}}) {
        TavrelButtonState state = Neutral();
        state.XPDefaultColors = tried.BuiltIn;
        state.Hovering = tried.Hovering;
        state.Focused = tried.Focused;
        const gui::Pixels drawn = Draw(60, 30, state);
        // A ring two wide inside the outer frame, less the four corner pixels.
        EXPECT_EQ(drawn.Count(tried.Frame), 58 * 28 - 54 * 24 - 4);
        EXPECT_EQ(drawn.At(30, 1), tried.Frame);
        EXPECT_EQ(drawn.At(30, 2), tried.Frame);
        EXPECT_NE(drawn.At(30, 3), tried.Frame);
        EXPECT_EQ(drawn.At(30, 0), GetSysColor(0x15));
    }
}

TEST_F(ButtonLook, Style1IsRaisedUnderTheMouseAndSunkenWhenPressed) {
    TavrelButtonState state = FlatOn(RGB(200, 210, 220));
    const COLORREF shade = RGB(0x8F, 0xA5, 0xA9), light = RGB(255, 255, 255);
    EXPECT_EQ(Draw(40, 20, state).Count(RGB(200, 210, 220)), 800); // no frame
    state.Hovering = true;
    const gui::Pixels raised = Draw(40, 20, state);
    EXPECT_EQ(raised.At(0, 0), light);
    EXPECT_EQ(raised.At(20, 0), light);
    EXPECT_EQ(raised.At(0, 10), light);
    EXPECT_EQ(raised.At(20, 19), shade);
    EXPECT_EQ(raised.At(39, 10), shade);
    EXPECT_EQ(raised.Count(RGB(200, 210, 220)), 38 * 18);
    state.Pressed = true;
    const gui::Pixels sunken = Draw(40, 20, state);
    EXPECT_EQ(sunken.At(20, 0), shade);
    EXPECT_EQ(sunken.At(0, 10), shade);
    EXPECT_EQ(sunken.At(20, 19), light);
    EXPECT_EQ(sunken.At(39, 10), light);
    state.Enabled = false;
    EXPECT_EQ(Draw(40, 20, state).Count(RGB(200, 210, 220)), 800);
}

TEST_F(ButtonLook, Style4HasNoFrameInAnyState) {
    TavrelButtonState state = FlatOn(RGB(200, 210, 220));
    state.ButtonStyle = kStyleNone;
    for (const bool pressed : {false, true}) {
        state.Hovering = true;
        state.Pressed = pressed;
        EXPECT_EQ(Draw(40, 20, state).Count(RGB(200, 210, 220)), 800);
    }
}

TEST_F(ButtonLook, TransparentOnesDrawOnWhatIsThere) {
    TavrelButtonState state = FlatOn(RGB(200, 210, 220));
    state.TransparentBG = true;
    EXPECT_EQ(Draw(40, 20, state).Count(kMagenta), 800);
    state = FlatOn(kButtonFace); // the face of a form is what its ground shows
    EXPECT_EQ(Draw(40, 20, state).Count(kMagenta), 800);
}

TEST_F(ButtonLook, TheFocusRectangleIsInsetByFourButNotInStyle3) {
    TavrelButtonState state = FlatOn(RGB(255, 255, 255));
    state.Focused = true;
    for (const int style : {kStyleFlat, kStyleNone}) {
        state.ButtonStyle = style;
        const gui::Pixels dotted = Draw(41, 31, state);
        ExpectBox(BoxOf(dotted, palette::Ink), 4, 4, 37, 27);
        EXPECT_EQ(dotted.At(4, 4), palette::Ink);
        EXPECT_EQ(dotted.At(5, 4), RGB(255, 255, 255)); // every second pixel
        EXPECT_EQ(dotted.At(6, 4), palette::Ink);
        EXPECT_EQ(dotted.At(20, 15), RGB(255, 255, 255));
    }
    state.ShowFocusRect = false;
    EXPECT_EQ(Draw(41, 31, state).Count(palette::Ink), 0);
    state.ShowFocusRect = true;
    state.ButtonStyle = kStyleXP;
    EXPECT_EQ(Draw(41, 31, state).Count(palette::Ink), 0);
}

TEST_F(ButtonLook, MeasuresFollowTheDpi) {
    const Picture square = RedSquare(10);
    for (const int dpi : {96, 120, 144, 192}) {
        const int width = Scaled(100, dpi), height = Scaled(30, dpi);
        TavrelButtonState state = Neutral();
        state.Dpi = dpi;
        state.Focused = true;
        const gui::Pixels framed = Draw(width, height, state);
        const int line = dpi == 192 ? 2 : 1, two = dpi == 96 ? 2 : dpi == 192 ? 4 : 3;
        EXPECT_EQ(framed.At(width / 2, line - 1), GetSysColor(0x15)) << dpi;
        for (int y = line; y < line + two; ++y)
            EXPECT_EQ(framed.At(width / 2, y), palette::FocusNeutral) << dpi;
        EXPECT_NE(framed.At(width / 2, line + two), palette::FocusNeutral) << dpi;
        // The cut: 2 by 1 and 1 by 1 pixels of 96 DPI.
        const int one = dpi < 144 ? 1 : 2;
        EXPECT_EQ(framed.Count(kMagenta, {0, 0, width / 2, height / 2}), two * one + one * (two - one))
            << dpi;

        TavrelButtonState flat = FlatOn(RGB(255, 255, 255));
        flat.Dpi = dpi;
        flat.Image = &square;
        flat.ImageSize = {10, 10};
        const RECT idle = BoxOf(Draw(width, height, flat), kRed);
        EXPECT_EQ(WidthOf(idle), Scaled(10, dpi));
        flat.Pressed = true;
        EXPECT_EQ(BoxOf(Draw(width, height, flat), kRed).left, idle.left + one);
        flat.Focused = true;
        flat.Pressed = false;
        EXPECT_EQ(BoxOf(Draw(width, height, flat), palette::Ink).top, Scaled(4, dpi));
    }
}

TEST_F(ButtonLook, HighContrastUsesTheSystemsColoursOnly) {
    const HardFont font;
    Theme::ReplaceHighContrast([] { return true; });
    TavrelButtonState state = Neutral();
    state.Caption = u"Go";
    state.Font = font.Get();
    const auto only = [&](std::initializer_list<int> colours) {
        const gui::Pixels drawn = Draw(60, 30, state);
        int known = drawn.Count(kMagenta);
        std::vector<COLORREF> counted;
        for (const int index : colours) {
            const COLORREF colour = GetSysColor(index);
            if (std::find(counted.begin(), counted.end(), colour) != counted.end()) continue;
            counted.push_back(colour);
            EXPECT_GT(drawn.Count(colour), 0) << index;
            known += drawn.Count(colour);
        }
        EXPECT_EQ(known, 60 * 30);
    };
    only({COLOR_BTNFACE, COLOR_BTNTEXT});
    state.Hovering = true;
    only({COLOR_BTNFACE, COLOR_BTNTEXT, COLOR_HIGHLIGHT});
    EXPECT_EQ(Draw(60, 30, state).At(30, 2), GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(Draw(60, 30, state).At(30, 3), GetSysColor(COLOR_BTNFACE));
    state.Pressed = true;
    only({COLOR_HIGHLIGHT, COLOR_HIGHLIGHTTEXT, COLOR_BTNTEXT});
    state.Enabled = false;
    only({COLOR_BTNFACE, COLOR_GRAYTEXT});
    state = FlatOn(RGB(255, 255, 254));
    state.Caption = u"X";
    state.Font = font.Get();
    only({COLOR_BTNFACE, COLOR_BTNTEXT});
    state.Hovering = true;
    EXPECT_EQ(Draw(60, 30, state).At(0, 0), GetSysColor(COLOR_BTNTEXT));
    state.Focused = true;
    EXPECT_EQ(Draw(60, 30, state).At(4, 4), GetSysColor(COLOR_WINDOWTEXT));
    state.ButtonStyle = kStyleNone;
    state.Focused = false;
    state.TransparentBG = true;
    only({COLOR_HOTLIGHT});
    // A picture stands on a white plate two pixels larger.
    const Picture square = RedSquare(10);
    state.Caption = {};
    state.Image = &square;
    state.ImageSize = {10, 10};
    EXPECT_EQ(Draw(60, 30, state).Count(RGB(255, 255, 255)), 14 * 14 - 100);
}

// The window buttons and the tools: their plate covers what is 4 pixels inside.
TEST_F(ButtonLook, HighContrastShowsTheFocusRoundThePlate) {
    Theme::ReplaceHighContrast([] { return true; });
    TavrelButtonState state = FlatOn(kButtonFace);
    state.Focused = true;
    for (const auto& [width, height, side] : {std::array{28, 24, 16}, {36, 36, 24}}) {
        const Picture square = RedSquare(side);
        state.Image = &square;
        state.ImageSize = {side, side};
        const gui::Pixels drawn = Draw(width, height, state);
        for (const POINT dot : {POINT{1, 1}, {3, 1}, {1, 3}, {1, height - 2}, {width - 3, 1}})
            EXPECT_EQ(drawn.At(dot.x, dot.y), GetSysColor(COLOR_WINDOWTEXT)) << dot.x << " " << dot.y;
    }
}

// Its ground is not painted then, and pictures alone are told by their shape.
TEST_F(ButtonLook, HighContrastFramesAPinnedButton) {
    Theme::ReplaceHighContrast([] { return true; });
    const Picture square = RedSquare(16);
    const COLORREF frame = GetSysColor(COLOR_HIGHLIGHT), face = GetSysColor(COLOR_BTNFACE);
    for (const int dpi : {96, 144, 192}) {
        const int width = 28 * dpi / 96, height = 24 * dpi / 96, two = 2 * dpi / 96;
        TavrelButtonState state = FlatOn(palette::PinnedBack);
        state.Image = &square;
        state.ImageSize = {16, 16};
        state.Dpi = dpi;
        const auto frameOf = [&](COLORREF colour) {
            const gui::Pixels drawn = Draw(width, height, state);
            return drawn.Count(colour, {0, 0, width, two}) == width * two &&
                   drawn.Count(colour, {0, height - two, width, height}) == width * two &&
                   drawn.Count(colour, {0, 0, two, height}) == height * two &&
                   drawn.Count(colour, {width - two, 0, width, height}) == height * two;
        };
        EXPECT_TRUE(frameOf(frame)) << dpi;
        EXPECT_EQ(Draw(width, height, state).At(two, height / 2), face) << dpi; // no wider
        EXPECT_EQ(Draw(width, height, state).Count(palette::PinnedBack), 0);
        state.Enabled = false;
        EXPECT_TRUE(frameOf(GetSysColor(COLOR_GRAYTEXT))) << dpi;
        state.Enabled = true;
        state.Focused = true; // its dots stand out from the frame
        const int dot = Scaled(1, dpi);
        EXPECT_EQ(Draw(width, height, state).At(dot, dot), GetSysColor(COLOR_HIGHLIGHTTEXT)) << dpi;
        state.Focused = false;
        state.BackColor = palette::Card;
        EXPECT_EQ(Draw(width, height, state).Count(frame), 0) << dpi;
    }
    Theme::ReplaceHighContrast([] { return false; });
    EXPECT_EQ(Draw(28, 24, FlatOn(palette::PinnedBack)).Count(palette::PinnedBack), 28 * 24);
}

} // namespace
