#include <gtest/gtest.h>

#include "controls/Dpi.h"

#include <climits>

TEST(Dpi, TwipsBecomePixelsToTheNearest) {
    EXPECT_EQ(ToPixels(5550, 96), 370);
    EXPECT_EQ(ToPixels(15, 120), 1);   // 1.25
    EXPECT_EQ(ToPixels(90, 120), 8);   // 7.5
    EXPECT_EQ(ToPixels(-90, 120), -7); // -7.5: halves up
    EXPECT_EQ(ToPixels(-15, 96), -1);
    EXPECT_EQ(ToTwips(370, 96), 5550);
    EXPECT_EQ(ToTwips(-3, 192), -22); // -22.5
}

// No length makes arithmetic on edges overflow.
TEST(Dpi, LengthsEndWhereTheirDifferencesStillCount) {
    for (const int dpi : {96, 192}) {
        EXPECT_EQ(Scaled(INT_MAX, dpi), kFarthestLength);
        EXPECT_EQ(Scaled(INT_MIN, dpi), -kFarthestLength);
        EXPECT_EQ(ToTwips(INT_MAX, dpi), kFarthestLength);
    }
    EXPECT_EQ(ToPixels(INT_MAX, 96), 143165576); // 2147483647 / 15
    const RECT beyond = ToPixels(INT_MAX, INT_MIN, INT_MAX, INT_MAX, 9600);
    EXPECT_EQ(beyond.right - beyond.left, 0);
    EXPECT_EQ(beyond.bottom - beyond.top, kFarthestLength - 7); // the lower edge is -1 twip
}

TEST(Dpi, HairLinesAreAtLeastOnePixel) {
    EXPECT_EQ(HairLine(96), 1);
    EXPECT_EQ(HairLine(120), 1);
    EXPECT_EQ(HairLine(144), 1);
    EXPECT_EQ(HairLine(192), 2);
}

// Two controls that touch in twips must touch in pixels at every DPI.
TEST(Dpi, RectanglesRoundTheirEdges) {
    for (int dpi : {96, 120, 144, 192}) {
        for (int left = 0; left < 300; left += 7) {
            const RECT a = ToPixels(left, 0, 133, 15, dpi);
            const RECT b = ToPixels(left + 133, 0, 60, 15, dpi);
            EXPECT_EQ(a.right, b.left) << left << " at " << dpi;
        }
    }
}
