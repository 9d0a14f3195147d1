// What tests of looks share: hard-edged letters, a plain picture, boxes round a colour.
#pragma once

#include "controls/Picture.h"
#include "windows/Pixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace gui {

// A font without grey edges: each pixel of a letter has the full colour.
class HardFont {
public:
    HardFont() {
        LOGFONTW wanted{};
        wanted.lfHeight = -12;
        wanted.lfQuality = NONANTIALIASED_QUALITY;
        wcscpy(wanted.lfFaceName, L"Tahoma");
        m_Font = CreateFontIndirectW(&wanted);
    }
    ~HardFont() { DeleteObject(m_Font); }
    HardFont(const HardFont&) = delete;
    HardFont& operator=(const HardFont&) = delete;
    HFONT Get() const { return m_Font; }

private:
    HFONT m_Font;
};

inline Picture RedSquare(int side) {
    std::string bytes = "ZPIC";
    const auto number = [&](int value) {
        bytes += static_cast<char>(value & 0xFF);
        bytes += static_cast<char>(value >> 8);
    };
    number(1);
    for (int i = 0; i < 4; ++i) number(side);
    for (int left = side * side; left > 0;) {
        const int run = std::min(left, 255);
        bytes += static_cast<char>(run);
        bytes += std::string("\x00\x00\xFF\xFF", 4);
        left -= run;
    }
    return Picture::FromBytes(bytes);
}

// The smallest rectangle round all pixels of that colour.
inline RECT BoxOf(const Pixels& pixels, COLORREF colour) {
    RECT box{pixels.Width, pixels.Height, 0, 0};
    for (int y = 0; y < pixels.Height; ++y) {
        for (int x = 0; x < pixels.Width; ++x) {
            if (pixels.At(x, y) != colour) continue;
            box = {std::min<LONG>(box.left, x), std::min<LONG>(box.top, y), std::max<LONG>(box.right, x + 1),
                   std::max<LONG>(box.bottom, y + 1)};
        }
    }
    return box;
}
inline void ExpectBox(const RECT& box, LONG left, LONG top, LONG right, LONG bottom) {
    EXPECT_EQ(box.left, left);
    EXPECT_EQ(box.top, top);
    EXPECT_EQ(box.right, right);
    EXPECT_EQ(box.bottom, bottom);
}

} // namespace gui
