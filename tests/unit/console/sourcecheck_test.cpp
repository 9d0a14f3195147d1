#include "console/SourceCheck.h"

#include "base/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace {

using sourcecheck::Finding;

Finding Judged(std::string_view bytes, std::size_t block = 1000) {
    sourcecheck::Judge judge;
    for (std::size_t from = 0; from < bytes.size(); from += block) judge.Take(bytes.substr(from, block));
    return judge.Result();
}

TEST(SourceCheck, PlainAndLegacyTextIsNoFinding) {
    EXPECT_EQ(Finding::None, Judged(""));
    EXPECT_EQ(Finding::None, Judged("plain\r\ntext"));
    EXPECT_EQ(Finding::None, Judged("Avgvi \xA7\xE0\x93"));
    EXPECT_EQ(Finding::None, Judged("\xFF\xFE"
                                    "a"));
    EXPECT_EQ(Finding::None, Judged("\xFE"));
    EXPECT_EQ(Finding::None, Judged("\xFE"
                                    "a\xE0\xA6\x95"));
    EXPECT_EQ(Finding::None, Judged("a\xFE\xFF"));
}

TEST(SourceCheck, Utf8BeyondAscii) {
    EXPECT_EQ(Finding::Utf8, Judged("a \xE0\xA6\x95 z"));
    EXPECT_EQ(Finding::Utf8, Judged("\xEF\xBB\xBFplain"));
    EXPECT_EQ(Finding::Utf8, Judged("\xF0\x9F\x98\x80"));
    EXPECT_EQ(Finding::None, Judged("\xE0\xA6\x95\xE0\xA6")) << "cut at its end";
    EXPECT_EQ(Finding::None, Judged("\xE0\xA6\x95\x80"));
    EXPECT_EQ(Finding::None, Judged("\xED\xA0\x80")) << "a surrogate";
    EXPECT_EQ(Finding::None, Judged("\xE0\x80\xAF")) << "an overlong form";
    EXPECT_EQ(Finding::None, Judged("\xF4\x90\x80\x80"));
}

TEST(SourceCheck, BigEndianMark) {
    EXPECT_EQ(Finding::BigEndian, Judged(std::string_view("\xFE\xFF\x09\x95", 4)));
    EXPECT_EQ(Finding::BigEndian, Judged("\xFE\xFF"));
    EXPECT_EQ(Finding::BigEndian, Judged("\xFE\xFF\x01", 1)) << "byte by byte";
}

TEST(SourceCheck, ALookEndsWithTheFirstByteThatDecides) {
    sourcecheck::Judge judge;
    judge.Take("plain text");
    EXPECT_FALSE(judge.Decided());
    judge.Take("\xA7");
    EXPECT_TRUE(judge.Decided());
}

bool IsUtf8BeyondAscii(std::string_view bytes) {
    const auto isBeyond = [](char byte) { return static_cast<unsigned char>(byte) > 0x7F; };
    return text::ValidUtf8(bytes) == bytes.size() && std::any_of(bytes.begin(), bytes.end(), isBeyond);
}

// The decoder of base/Text is the judge; blocks of all sizes give the same answer.
TEST(SourceCheck, AgreesWithTheDecoderOnRandomBytes) {
    constexpr unsigned char kBytes[] = {'a',  0x80, 0x8F, 0x90, 0x9F, 0xA0, 0xBF, 0xC1, 0xC2, 0xDF,
                                        0xE0, 0xE1, 0xED, 0xEF, 0xF0, 0xF1, 0xF4, 0xF5, 0xFF};
    std::mt19937 random(7);
    int found = 0;
    for (int round = 0; round < 200000; ++round) {
        std::string bytes;
        for (auto length = random() % 6; length > 0; --length)
            bytes += static_cast<char>(kBytes[random() % sizeof kBytes]);
        const Finding expected = IsUtf8BeyondAscii(bytes) ? Finding::Utf8 : Finding::None;
        ASSERT_EQ(expected, Judged(bytes));
        ASSERT_EQ(expected, Judged(bytes, 1));
        found += expected == Finding::Utf8;
    }
    EXPECT_GT(found, 1000);
}

} // namespace
