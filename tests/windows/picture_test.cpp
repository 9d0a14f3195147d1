// Pictures: the version that is picked, alpha, the disabled look, damaged data.
#include "controls/Picture.h"

#include "base/RuntimeFailure.h"
#include "controls/Theme.h"
#include "windows/Pixels.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBrand = RGB(0x17, 0x65, 0x6D); // the fill of a ticked box in its SVG source

gui::Pixels Drawn(const Picture& picture, int side, int dpi, bool disabled = false) {
    return gui::Drawn(
        side, side,
        [&](HDC dc) {
            picture.Draw(dc, {0, 0, side, side}, dpi, disabled);
        },
        kWhite);
}
bool Near(COLORREF a, COLORREF b) {
    return std::abs(GetRValue(a) - GetRValue(b)) <= 2 && std::abs(GetGValue(a) - GetGValue(b)) <= 2 &&
           std::abs(GetBValue(a) - GetBValue(b)) <= 2;
}

// One version of 1 by 1, one of 2 by 2 pixels.
std::string TwoVersions() {
    return {"ZPIC\2\0"
            "\1\0\1\0\1\0\1\0"
            "\1\0\0\xFF\xFF"
            "\1\0\1\0\2\0\2\0"
            "\4\xFF\0\0\xFF",
            32};
}

TEST(Picture, EveryScaleHasAVersionOfItsOwn) {
    const Picture ticked = Picture::FromResource(u"check-on-idle");
    EXPECT_EQ(ticked.Size().cx, 13);
    for (const auto& [dpi, side] : {std::pair{96, 13}, {120, 16}, {144, 20}, {192, 26}}) {
        const gui::Pixels drawn = Drawn(ticked, side, dpi);
        // Round corners leave the ground, the fill is exact: nothing was stretched.
        EXPECT_NE(drawn.At(0, 0), kBrand) << dpi;
        EXPECT_EQ(drawn.At(side / 6, side / 6), kBrand) << dpi;
        EXPECT_GT(drawn.Count(kBrand), side * side / 3) << dpi;
        EXPECT_GT(drawn.Count(kWhite), 3) << dpi; // the tick
    }
}

TEST(Picture, TheDrawingMeantForTheSizeIsTaken) {
    // opt-font has drawings for 16 and for 32 pixels. At 200 % the small one has 32 pixels
    // too, and it must not be mixed up with the large one at 100 %.
    const Picture font = Picture::FromResource(u"opt-font");
    EXPECT_EQ(font.Size().cx, 16);
    EXPECT_NE(Drawn(font, 32, 96), Drawn(font, 32, 192));
}

TEST(Picture, DisabledIsGreyAtHalfStrength) {
    const gui::Pixels drawn = Drawn(Picture::FromResource(u"check-on-idle"), 13, 96, true);
    // 0.299, 0.587, 0.114 of the fill make 78; half of it over white is 167.
    EXPECT_TRUE(Near(drawn.At(2, 2), RGB(167, 167, 167))) << std::hex << drawn.At(2, 2);
}

TEST(Picture, AnyOtherSizeIsScaled) {
    const Picture two = Picture::FromBytes(TwoVersions());
    EXPECT_EQ(Drawn(two, 1, 96).Count(RGB(255, 0, 0)), 1);
    EXPECT_EQ(Drawn(two, 2, 192).Count(RGB(0, 0, 255)), 4);
    EXPECT_EQ(Drawn(two, 7, 192).Count(RGB(0, 0, 255)), 49);
}

TEST(Picture, NothingIsDrawnForNoneOrIntoNoPlace) {
    const Picture none;
    EXPECT_TRUE(none.Empty());
    EXPECT_EQ(none.Size().cx, 0);
    EXPECT_EQ(Drawn(none, 4, 96).Count(kWhite), 16);
    const Picture two = Picture::FromBytes(TwoVersions());
    const gui::Pixels drawn = gui::Drawn(
        4, 4,
        [&](HDC dc) {
            two.Draw(dc, {2, 2, 2, 4}, 96);
        },
        kWhite);
    EXPECT_EQ(drawn.Count(kWhite), 16);
}

TEST(Picture, UnderHighContrastItStandsOnAWhitePlate) {
    Theme::ReplaceHighContrast([] { return true; });
    const Picture two = Picture::FromBytes(TwoVersions());
    const gui::Pixels drawn = gui::Drawn(
        9, 9,
        [&](HDC dc) {
            two.DrawOnPlate(dc, {4, 4, 5, 5}, 96);
        },
        0);
    Theme::ReplaceHighContrast(nullptr);
    EXPECT_EQ(drawn.Count(kWhite), 24);
    EXPECT_EQ(drawn.At(4, 4), RGB(255, 0, 0));
    EXPECT_EQ(drawn.At(2, 2), kWhite);
    EXPECT_EQ(drawn.At(1, 2), 0u);
}

TEST(Picture, DamagedDataAreRefused) {
    const std::string whole = TwoVersions();
    for (std::size_t length = 0; length < whole.size(); ++length)
        EXPECT_THROW(Picture::FromBytes(whole.substr(0, length)), RuntimeFailure) << length;
    for (const std::size_t at : {4, 6, 8, 10, 12, 14}) { // no version, sizes of zero, an empty run
        std::string damaged = whole;
        damaged[at] = 0;
        EXPECT_THROW(Picture::FromBytes(damaged), RuntimeFailure) << at;
    }
    std::string tooLong = whole;
    tooLong[14] = 2; // a run of two pixels in a picture of one
    EXPECT_THROW(Picture::FromBytes(tooLong), RuntimeFailure);
    std::string huge = whole;
    huge[11] = 0x7F; // 32512 pixels wide
    EXPECT_THROW(Picture::FromBytes(huge), RuntimeFailure);
    EXPECT_THROW(Picture::FromResource(u"no-such-picture"), RuntimeFailure);
}

} // namespace
