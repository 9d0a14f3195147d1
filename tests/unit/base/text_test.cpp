#include "base/Text.h"

#include <gtest/gtest.h>

namespace {

TEST(Cp1252, AllBytesGoThereAndBack) {
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    std::string back;
    ASSERT_TRUE(text::ToCp1252(text::FromCp1252(all), back));
    EXPECT_EQ(all, back);
}

TEST(Cp1252, HolesAreC1Controls) {
    EXPECT_EQ(u"\u0081\u008D\u008F\u0090\u009D", text::FromCp1252("\x81\x8D\x8F\x90\x9D"));
    EXPECT_EQ(u"\u20AC\u201A\u0178", text::FromCp1252("\x80\x82\x9F"));
}

TEST(Cp1252, RefusesWhatItDoesNotHoldAndLeavesTheOutput) {
    std::string bytes = "old";
    EXPECT_FALSE(text::ToCp1252(u"a\u0995", bytes));
    EXPECT_EQ("old", bytes);
    EXPECT_FALSE(text::ToCp1252(u"\u0080", bytes)); // 80 is the euro sign
}

TEST(Cp1252, ToAnsiKeepsTheLengthAndMarksWhatHasNoByte) {
    EXPECT_EQ("a?\x80?\x81", text::ToAnsi(u"a\u0995\u20AC\u0080\u0081"));
    EXPECT_EQ(std::string("\0??", 3), text::ToAnsi(std::u16string_view(u"\0\xD83D\xDE00", 3)));
}

TEST(Cp1252, NoOtherUnitHasAByte) {
    int found = 0;
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const int byte = text::ToCp1252(static_cast<char16_t>(unit));
        if (byte < 0) continue;
        ++found;
        EXPECT_EQ(unit, text::FromCp1252(static_cast<unsigned char>(byte)));
    }
    EXPECT_EQ(256, found);
}

TEST(Utf8, DecodesPairsAndCountsInvalidParts) {
    std::size_t invalid = 0;
    EXPECT_EQ(u"\u0995\U0001F600", text::FromUtf8("\xE0\xA6\x95\xF0\x9F\x98\x80", &invalid));
    EXPECT_EQ(0u, invalid);
    // The example of the Unicode Standard for maximal parts: 61 F1 80 80 E1 80 C2 62 80 63.
    EXPECT_EQ(u"a\uFFFD\uFFFD\uFFFD\u0062\uFFFD\u0063", text::FromUtf8("a\xF1\x80\x80\xE1\x80\xC2"
                                                                       "b\x80"
                                                                       "c",
                                                                       &invalid));
    EXPECT_EQ(4u, invalid);
}

TEST(Utf8, SurrogatesAndOverlongFormsAreInvalid) {
    EXPECT_EQ(u"\uFFFD\uFFFD\uFFFD", text::FromUtf8("\xED\xA0\x80"));
    EXPECT_EQ(u"\uFFFD\uFFFD", text::FromUtf8("\xC0\xAF"));
    EXPECT_EQ(u"\uFFFD\uFFFD\uFFFD\uFFFD", text::FromUtf8("\xF4\x90\x80\x80"));
}

TEST(Utf8, EncodesAndReplacesLoneSurrogates) {
    std::size_t replaced = 0;
    const std::u16string lone = {0xD800, u'a', 0xDC00};
    EXPECT_EQ("\xEF\xBF\xBD"
              "a\xEF\xBF\xBD",
              text::ToUtf8(lone, &replaced));
    EXPECT_EQ(2u, replaced);
    EXPECT_EQ("\xF0\x9F\x98\x80", text::ToUtf8(u"\U0001F600"));
}

TEST(Utf8, TheValidPartEndsInFrontOfWhatIsNot) {
    EXPECT_EQ(5u, text::ValidUtf8("plain"));
    EXPECT_EQ(3u, text::ValidUtf8("\xE0\xA6\x95"));
    EXPECT_EQ(0u, text::ValidUtf8("\xE0\xA6"));
    EXPECT_EQ(4u, text::ValidUtf8("\xE0\xA6\x95k\xFFk"));
}

TEST(Utf16, OddLastByteBecomesTheReplacementCharacter) {
    EXPECT_EQ(u"a\uFFFD", text::FromUtf16Le(std::string_view("a\0b", 3)));
}

TEST(Split, KeepsEmptyParts) {
    const auto parts = text::Split(u"a\r\n\r\n", u"\r\n");
    ASSERT_EQ(3u, parts.size());
    EXPECT_EQ(u"a", parts[0]);
    EXPECT_EQ(u"", parts[1]);
    EXPECT_EQ(u"", parts[2]);
    EXPECT_EQ(1u, text::Split(u"", u"\r\n").size());
}

} // namespace
