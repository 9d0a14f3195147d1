// Where TavrelButton draws its caption and its picture, pixel by pixel.
#include "base/Text.h"
#include "controls/Painting.h"
#include "windows/ButtonLooks.h"

namespace {

using namespace gui;

TEST(ButtonCaption, ADisabledCaptionIsEmbossed) {
    const HardFont font;
    TavrelButtonState state = FlatOn(RGB(1, 2, 3));
    state.Caption = u"Go Back";
    state.Font = font.Get();
    state.ForeColor = kRed;
    const gui::Pixels plain = Draw(80, 24, state);
    state.Enabled = false;
    const gui::Pixels embossed = Draw(80, 24, state);
    const COLORREF light = GetSysColor(0x14), shadow = GetSysColor(0x10);
    ASSERT_GT(plain.Count(kRed), 20);
    for (int y = 0; y < 24; ++y) {
        for (int x = 0; x < 80; ++x) {
            COLORREF expected = RGB(1, 2, 3);
            if (x > 0 && y > 0 && plain.At(x - 1, y - 1) == kRed) expected = light;
            if (plain.At(x, y) == kRed) expected = shadow;
            ASSERT_EQ(embossed.At(x, y), expected) << x << "," << y;
        }
    }
}

TEST(ButtonCaption, PressingMovesCaptionAndPictureByOnePixel) {
    const HardFont font;
    const Picture square = RedSquare(8);
    for (const int style : {kStyleFlat, kStyleXP, kStyleNone}) {
        TavrelButtonState state = FlatOn(RGB(255, 255, 255));
        state.ButtonStyle = style;
        state.Caption = u"Go";
        state.Font = font.Get();
        state.ForeColor = RGB(0, 0, 255);
        state.Image = &square;
        state.ImageSize = {8, 8};
        const gui::Pixels idle = Draw(80, 24, state);
        state.Pressed = true;
        const gui::Pixels pressed = Draw(80, 24, state);
        for (const COLORREF colour : {kRed, RGB(0, 0, 255)}) {
            const RECT box = BoxOf(idle, colour);
            ExpectBox(BoxOf(pressed, colour), box.left + 1, box.top + 1, box.right + 1, box.bottom + 1);
        }
    }
}

TEST(ButtonCaption, PictureAndCaptionStandAsAPairWithAGapOfFour) {
    const HardFont font;
    const Picture square = RedSquare(10);
    TavrelButtonState state = FlatOn(RGB(255, 255, 255));
    state.Image = &square;
    state.ImageSize = {10, 10};
    ExpectBox(BoxOf(Draw(51, 31, state), kRed), 20, 10, 30, 20); // alone: the middle, cut to integers
    state.Caption = u"HHH";
    state.Font = font.Get();
    const SIZE text = TextSize(font.Get(), u"HHH");
    const int width = 100, height = 60;
    const int across = 10 + 4 + text.cx, down = 10 + 4 + text.cy;
    const auto imageBox = [&](int side) {
        state.PicturePosition = side;
        return BoxOf(Draw(width, height, state), kRed);
    };
    const LONG left = (width - across) / 2, top = (height - down) / 2;
    ExpectBox(imageBox(kPictureLeft), left, 25, left + 10, 35);
    ExpectBox(imageBox(kPictureRight), left + text.cx + 4, 25, left + text.cx + 14, 35);
    ExpectBox(imageBox(kPictureAbove), 45, top, 55, top + 10);
    ExpectBox(imageBox(kPictureBelow), 45, top + text.cy + 4, 55, top + text.cy + 14);
}

TEST(ButtonCaption, PicturesOfZeroSizeAreNotDrawn) {
    const HardFont font;
    const Picture square = RedSquare(10), none;
    TavrelButtonState state = FlatOn(RGB(255, 255, 255));
    state.Caption = u"HHH";
    state.Font = font.Get();
    const gui::Pixels without = Draw(100, 40, state);
    for (const SIZE size : {SIZE{0, 0}, SIZE{0, 10}, SIZE{10, 0}, SIZE{-5, 10}}) {
        state.Image = &square;
        state.ImageSize = size;
        EXPECT_EQ(Draw(100, 40, state), without);
    }
    state.Image = &none;
    state.ImageSize = {32, 32};
    EXPECT_EQ(Draw(100, 40, state), without);
}

TEST(ButtonCaption, CaptionsBreakAtWords) {
    const HardFont font;
    TavrelButtonState state = FlatOn(RGB(255, 255, 255));
    state.Font = font.Get();
    state.ForeColor = kRed;
    state.Caption = u"HH";
    const RECT one = BoxOf(Draw(40, 60, state), kRed);
    state.Caption = u"HH HH";
    const SIZE line = TextSize(font.Get(), u"HH HH");
    const gui::Pixels wide = Draw(line.cx + 20, 60, state), narrow = Draw(line.cx, 60, state);
    EXPECT_EQ(HeightOf(BoxOf(wide, kRed)), HeightOf(one));
    EXPECT_EQ(HeightOf(BoxOf(narrow, kRed)), HeightOf(one) + line.cy);
}

// Where a line just fits, measuring and drawing could break it at different words.
TEST(ButtonCaption, ABrokenCaptionIsDrawnWhole) {
    const auto rowsOfInk = [](const gui::Pixels& drawn) {
        std::vector<int> rows;
        for (int y = 0; y < drawn.Height; ++y) {
            if (drawn.Count(RGB(255, 255, 255), {0, y, drawn.Width, y + 1}) < drawn.Width) rows.push_back(y);
        }
        return rows;
    };
    TavrelButtonState state = FlatOn(RGB(255, 255, 255));
    for (const char16_t* face : {u"Tahoma", u"Liberation Sans", u"Liberation Serif", u"Open Sans"}) {
        for (int points = 8; points <= 24; ++points) {
            const FontHandle font({face, static_cast<double>(points), false, false}, 96);
            const SIZE whole = TextSize(font.Get(), u"Open the Database");
            const int width = whole.cx + 5, height = 3 * whole.cy;
            state.Font = font.Get();
            state.Caption = u"Open the Database";
            const std::vector<int> broken = rowsOfInk(Draw(width, height, state));
            state.Caption = u"Open the\r\nDatabase";
            EXPECT_EQ(broken, rowsOfInk(Draw(width, height, state))) << points << " " << text::ToUtf8(face);
        }
    }
}

TEST(ButtonCaption, NothingIsDrawnOutsideItsPlace) {
    const HardFont font;
    TavrelButtonState state = FlatOn(RGB(255, 255, 255));
    state.Font = font.Get();
    const std::u16string words = u"a long caption of many words that never fits so small a place";
    state.Caption = words;
    const gui::Pixels drawn = gui::Drawn(60, 60, [&](HDC dc) {
        DrawTavrelButton(dc, {10, 10, 40, 30}, state);
    });
    EXPECT_EQ(drawn.Count(kMagenta), 60 * 60 - 30 * 20);
}

} // namespace
