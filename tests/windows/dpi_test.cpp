#include <gtest/gtest.h>

#include "controls/Dpi.h"

TEST(Dpi, TwipsBecomePixelsToTheNearest) {
    EXPECT_EQ(ToPixels(5550, 96), 370);
    EXPECT_EQ(ToPixels(15, 120), 1);   // 1.25
    EXPECT_EQ(ToPixels(90, 120), 8);   // 7.5
    EXPECT_EQ(ToPixels(-90, 120), -7); // -7.5: halves up
    EXPECT_EQ(ToPixels(-15, 96), -1);
    EXPECT_EQ(ToTwips(370, 96), 5550);
    EXPECT_EQ(ToTwips(-3, 192), -22); // -22.5
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
