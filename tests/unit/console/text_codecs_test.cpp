#include "console/cmdTextCodecs.h"

#include "base/Text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

struct Narrowed {
    std::size_t read;
    std::string bytes;
};

Narrowed Narrow(std::string_view utf8) {
    std::string out(utf8.size(), '\0');
    const codecs::Progress progress = codecs::Cp1252FromUtf8(utf8, out.data());
    out.resize(progress.written);
    return {progress.read, out};
}

TEST(Cp1252FromUtf8, NarrowsAll256Bytes) {
    std::string all;
    for (int i = 0; i < 256; ++i) all += static_cast<char>(i);
    const std::string utf8 = text::ToUtf8(text::FromCp1252(all));
    const Narrowed narrowed = Narrow(utf8);
    EXPECT_EQ(utf8.size(), narrowed.read);
    EXPECT_EQ(all, narrowed.bytes);
}

TEST(Cp1252FromUtf8, EveryUnitAgreesWithTheCodePage) {
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        if (unit >= 0xD800 && unit < 0xE000) continue;
        const auto one = static_cast<char16_t>(unit);
        const std::string utf8 = text::ToUtf8({&one, 1});
        const int byte = text::ToCp1252(one);
        const Narrowed narrowed = Narrow(utf8);
        ASSERT_EQ(byte < 0 ? std::string() : std::string(1, static_cast<char>(byte)), narrowed.bytes) << unit;
        ASSERT_EQ(byte < 0 ? 0 : utf8.size(), narrowed.read) << unit;
    }
}

TEST(Cp1252FromUtf8, StopsInFrontOfWhatHasNoByte) {
    EXPECT_EQ(2u, Narrow("ab\xE0\xA6\x95").read);
    EXPECT_EQ(2u, Narrow("ab\xF0\x9F\x98\x80").read);
    EXPECT_EQ(2u, Narrow("ab\xC2\x80").read); // U+0080 is not the euro sign's byte
}

TEST(Cp1252FromUtf8, StopsInFrontOfWhatIsNotValid) {
    // A lone trail, cut sequences, overlong forms, surrogates, bytes that never occur.
    for (const char* bad : {"\x80", "\xC2", "\xC2 ", "\xE2\x80", "\xE2\x80 ", "\xE2", "\xC0\x80", "\xC1\xBF",
                            "\xE0\x80\x80", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF5\x80\x80\x80", "\xFF"}) {
        const Narrowed narrowed = Narrow("ab" + std::string(bad));
        EXPECT_EQ(2u, narrowed.read) << bad;
        EXPECT_EQ("ab", narrowed.bytes) << bad;
    }
}

TEST(Cp1252FromUtf8, AnEmptyTextIsDone) {
    EXPECT_EQ(0u, Narrow("").read);
}

TEST(Cp1252FromUnits, EveryUnitAgreesWithTheCodePage) {
    for (unsigned unit = 0; unit < 0x10000; ++unit) {
        const std::u16string text = {u'a', static_cast<char16_t>(unit), u'b'};
        const int byte = text::ToCp1252(static_cast<char16_t>(unit));
        char out[3];
        const codecs::Progress progress = codecs::Cp1252FromUnits(text, out);
        ASSERT_EQ(byte < 0 ? 1u : 3u, progress.read) << unit;
        ASSERT_EQ(progress.read, progress.written) << unit;
        ASSERT_TRUE(byte < 0 || out[1] == static_cast<char>(byte)) << unit;
    }
}

TEST(CountLf, CountsBeyondItsSmallCounters) {
    EXPECT_EQ(0u, codecs::CountLf(std::string_view()));
    EXPECT_EQ(200001u, codecs::CountLf(std::string(200001, '\n') + "x"));
    EXPECT_EQ(200001u, codecs::CountLf(std::u16string(200001, u'\n') + u"x\u0A0A"));
}

TEST(CountLoneSurrogates, LeavesPairsOut) {
    const char16_t text[] = {0xD83D, 0xDE00, 0xDE00, 0xD83D, 0xD83D, 0xDE00, u'x', 0xD83D};
    EXPECT_EQ(3u, codecs::CountLoneSurrogates({text, std::size(text)}));
    EXPECT_EQ(0u, codecs::CountLoneSurrogates(u"abc"));
}

} // namespace
