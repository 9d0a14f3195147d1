#include "console/cmdTextFilter.h"

#include "base/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>

namespace {

using End = TextFilterOutcome::End;

// R becomes the reph marker: a line that begins "aR" has no place for the reph and fails.
// The rules for CR and LF show what reaches the conversion.
constexpr std::u16string_view kTable =
    u"\uE001\r\n\uE002\r\nk\t\u0995\r\na\t\u09BE\r\ne\t\u09C7\r\nR\t\uE001\r\n"
    u"\r\t<CR>\r\n\n\t<LF>\r\n\u2020\t\u0996\r\n\u0995\u0995\t[\u0995]";

struct Ran {
    TextFilterOutcome outcome;
    std::string bytes;
    std::size_t longestWrite = 0;
};

// Hands the input over in parts of at most `part` bytes.
Ran Filter(std::string_view input, TextFilterOptions options = {}, std::size_t part = SIZE_MAX) {
    clsConvert converter;
    converter.LoadText(kTable);
    Ran ran;
    auto read = [&](char* bytes, std::size_t size, std::size_t& got, std::u16string&) {
        got = std::min({part, size, input.size()});
        if (got > 0) std::memcpy(bytes, input.data(), got);
        input.remove_prefix(got);
        return true;
    };
    auto write = [&](std::string_view bytes) {
        ran.bytes += bytes;
        ran.longestWrite = std::max(ran.longestWrite, bytes.size());
        return true;
    };
    ran.outcome = TextFilter(converter, options, read, write).Run();
    return ran;
}

constexpr TextFilterOptions kUtf8ToUtf8{TextEncoding::Utf8, OutputEncoding::Utf8, false};
constexpr TextFilterOptions kUtf8ToUtf16{TextEncoding::Utf8, OutputEncoding::Utf16, false};
constexpr TextFilterOptions kUtf16ToUtf8{TextEncoding::Utf16, OutputEncoding::Utf8, false};
constexpr TextFilterOptions kUtf16ToUtf16{TextEncoding::Utf16, OutputEncoding::Utf16, false};
constexpr TextFilterOptions kCp1252ToUtf16{TextEncoding::Cp1252, OutputEncoding::Utf16, false};

TextFilterOptions KeepGoing(TextFilterOptions options) {
    options.keepGoing = true;
    return options;
}

std::string Utf8(std::u16string_view units) {
    return text::ToUtf8(units);
}
std::string Utf16(std::u16string_view units) {
    return text::ToUtf16Le(units);
}

TEST(TextFilter, NothingGivesNothing) {
    for (const auto& options : {TextFilterOptions{}, kUtf8ToUtf8, kUtf16ToUtf8, kUtf16ToUtf16}) {
        const Ran ran = Filter("", options);
        EXPECT_EQ(End::Done, ran.outcome.end);
        EXPECT_EQ("", ran.bytes);
    }
}

TEST(TextFilter, ConvertsFromTheCodePageToUtf8ByDefault) {
    EXPECT_EQ(Utf8(u"\u0995\u09CB \u0996\u00B5\n"), Filter("eka \x86\xB5\n").bytes);
    EXPECT_EQ(Utf16(u"\u0995\u09CB \u0996\u00B5\n"), Filter("eka \x86\xB5\n", kCp1252ToUtf16).bytes);
}

TEST(TextFilter, LineEndsStayAndDoNotReachTheConversion) {
    EXPECT_EQ(Utf8(u"\u0995\r\n\u0995\n\n\r\n\u09BE"), Filter("k\r\nk\n\n\r\na").bytes);
}

TEST(TextFilter, ALoneCrReachesTheConversion) {
    EXPECT_EQ(Utf8(u"\u0995<CR>\u0995\n<CR>\r\n\u0995<CR>"), Filter("k\rk\n\r\r\nk\r").bytes);
    EXPECT_EQ(Utf8(u"\u0995<CR>"), Filter(Utf16(u"k\r"), kUtf16ToUtf8).bytes);
}

TEST(TextFilter, LinesAreConvertedEachByItself) {
    // e waits for a consonant, but not for one of the next line.
    EXPECT_EQ(Utf8(u"\u09C7\n\u0995"), Filter("e\nk").bytes);
}

TEST(TextFilter, AMarkIsTakenAsOne) {
    EXPECT_EQ(Utf8(u"\u0995"), Filter("\xEF\xBB\xBFk", kUtf8ToUtf8).bytes);
    EXPECT_EQ(Utf8(u"\u0995"), Filter("\xFF\xFE" + Utf16(u"k"), kUtf16ToUtf8).bytes);
    EXPECT_EQ("", Filter("\xEF\xBB\xBF", kUtf8ToUtf8).bytes);
    EXPECT_EQ("", Filter("\xFF\xFE", kUtf16ToUtf16).bytes);
}

TEST(TextFilter, OnlyTheFirstMarkIsOne) {
    EXPECT_EQ("\xEF\xBB\xBF", Filter("\xEF\xBB\xBF\xEF\xBB\xBF", kUtf8ToUtf8).bytes);
    EXPECT_EQ("\xFF\xFE", Filter("\xFF\xFE\xFF\xFE", kUtf16ToUtf16).bytes);
    EXPECT_EQ(Utf16(u"\u0995\n\uFEFF"), Filter(Utf16(u"k\n\uFEFF"), kUtf16ToUtf16).bytes);
}

TEST(TextFilter, TheCodePageHasNoMark) {
    EXPECT_EQ(Utf8(u"\u00FF\u00FE"), Filter("\xFF\xFE").bytes);
    EXPECT_EQ(Utf8(u"\u00EF\u00BB\u00BF"), Filter("\xEF\xBB\xBF").bytes);
}

TEST(TextFilter, ABigEndianMarkIsAFailure) {
    const Ran ran = Filter(std::string("\xFE\xFF\0k", 4), kUtf16ToUtf8);
    EXPECT_EQ(End::BigEndian, ran.outcome.end);
    EXPECT_EQ("", ran.bytes);
    EXPECT_EQ(End::BigEndian, Filter("\xFE\xFF", kUtf16ToUtf8, 1).outcome.end);
}

TEST(TextFilter, HalfAMarkIsText) {
    EXPECT_EQ(Utf8(u"\uFFFD"), Filter("\xEF\xBB", kUtf8ToUtf8, 1).bytes);
    EXPECT_EQ(Utf8(u"\uFFFD"), Filter("\xFF", kUtf16ToUtf8).bytes);
}

TEST(TextFilter, InvalidUtf8IsReplacedAndCounted) {
    // Two parts: a lead without its trail, and a byte that never occurs.
    const Ran ran = Filter("k\xE2\x80\nk\xFFk\n", kUtf8ToUtf8);
    EXPECT_EQ(Utf8(u"\u0995\uFFFD\n\u0995\uFFFD\u0995\n"), ran.bytes);
    EXPECT_EQ(2u, ran.outcome.invalid);
    EXPECT_EQ(End::Done, ran.outcome.end);
}

TEST(TextFilter, AnOddLastByteOfUtf16IsReplacedAndCounted) {
    const Ran ran = Filter(Utf16(u"k\n") + "k", kUtf16ToUtf16);
    EXPECT_EQ(Utf16(u"\u0995\n\uFFFD"), ran.bytes);
    EXPECT_EQ(1u, ran.outcome.invalid);
    // The first byte of a line end is not one.
    EXPECT_EQ(Utf16(u"\u0995\uFFFD"), Filter(Utf16(u"k") + "\n", kUtf16ToUtf16).bytes);
}

TEST(TextFilter, LoneSurrogatesPassFromUtf16ToUtf16) {
    const std::u16string text = {0xDC00, u'\n', 0xD800, u'x', 0xD83D, 0xDE00, 0xD800};
    const Ran ran = Filter(Utf16(text), kUtf16ToUtf16);
    EXPECT_EQ(Utf16(text), ran.bytes);
    EXPECT_EQ(0u, ran.outcome.invalid);
}

TEST(TextFilter, LoneSurrogatesAreReplacedAndCountedInUtf8) {
    const std::u16string text = {0xDC00, u'\n', 0xD800, u'x', 0xD83D, 0xDE00};
    const Ran ran = Filter(Utf16(text), kUtf16ToUtf8);
    EXPECT_EQ("\xEF\xBF\xBD\n\xEF\xBF\xBDx\xF0\x9F\x98\x80", ran.bytes);
    EXPECT_EQ(2u, ran.outcome.invalid);
}

TEST(TextFilter, CharactersBeyondTheCodePageGoThrough) {
    EXPECT_EQ(Utf8(u"\u0995\n[\u0995]\U0001F600\n\u0996\n"),
              Filter(Utf8(u"k\nk\u0995\U0001F600\n\u2020\n"), kUtf8ToUtf8).bytes);
}

TEST(TextFilter, AUnitWhoseLowByteIsLfEndsNoLine) {
    EXPECT_EQ(Utf16(u"k\u0A0A").substr(2) + Utf16(u"\u0995"),
              Filter(Utf16(u"\u0A0Ak"), kUtf16ToUtf16, 1).bytes);
    // Were it one, "a" would begin the next line and the reph would fail.
    EXPECT_EQ(End::Done, Filter(Utf16(u"k\u0A0AaR\n"), kUtf16ToUtf16).outcome.end);
    EXPECT_EQ(End::Done, Filter(Utf16(u"k\u0A00\u000AkR\n"), kUtf16ToUtf16, 3).outcome.end);
}

TEST(TextFilter, AFailingLineEndsTheRunBehindTheLinesBeforeIt) {
    for (const auto& options : {TextFilterOptions{}, kUtf8ToUtf8}) {
        const Ran ran = Filter("k\r\nk\naRk\r\nk\n", options);
        EXPECT_EQ(End::LineFailed, ran.outcome.end);
        EXPECT_EQ(3u, ran.outcome.line);
        EXPECT_EQ(u"aRk", ran.outcome.legacy);
        EXPECT_EQ(u"Invalid procedure call or argument", ran.outcome.text);
        EXPECT_EQ(Utf8(u"\u0995\r\n\u0995\n"), ran.bytes);
    }
    const Ran wide = Filter(Utf16(u"k\naR\u0A00"), kUtf16ToUtf8);
    EXPECT_EQ(2u, wide.outcome.line);
    EXPECT_EQ(u"aR\u0A00", wide.outcome.legacy);
}

TEST(TextFilter, AFailingLineIsCountedThroughAllBlocks) {
    std::string text;
    for (int i = 0; i < 100000; ++i) text += "kakaka\n";
    for (const auto& options : {TextFilterOptions{}, kUtf8ToUtf8}) {
        const Ran ran = Filter(text + "aR", options);
        EXPECT_EQ(100001u, ran.outcome.line);
        EXPECT_EQ(100000u * Utf8(u"\u0995\u09BE\u0995\u09BE\u0995\u09BE\n").size(), ran.bytes.size());
    }
    // A line with characters beyond the code page counts like any other.
    EXPECT_EQ(4u, Filter(Utf8(u"k\n\u0995\nk\naR\n"), kUtf8ToUtf8).outcome.line);
}

TEST(TextFilter, KeepGoingLeavesAFailingLineAsItWas) {
    for (std::size_t part : {SIZE_MAX, std::size_t{1}}) {
        const Ran ran = Filter("k\r\naR\x86k\r\nk\naR", KeepGoing({}), part);
        EXPECT_EQ(End::Done, ran.outcome.end);
        EXPECT_EQ(2u, ran.outcome.failedLines);
        EXPECT_EQ(Utf8(u"\u0995\r\naR\u2020k\r\n\u0995\naR"), ran.bytes);
    }
    const Ran beyond = Filter(Utf8(u"aR\u0995\n"), KeepGoing(kUtf8ToUtf16));
    EXPECT_EQ(Utf16(u"aR\u0995\n"), beyond.bytes);
    EXPECT_EQ(1u, beyond.outcome.failedLines);
    const std::u16string lone = {u'a', u'R', 0xD800};
    EXPECT_EQ(Utf16(lone), Filter(Utf16(lone), KeepGoing(kUtf16ToUtf16)).bytes);
}

TEST(TextFilter, AFailedReadEndsTheRun) {
    clsConvert converter;
    converter.LoadText(kTable);
    int calls = 0;
    std::string written;
    auto read = [&](char* bytes, std::size_t, std::size_t& got, std::u16string& failure) {
        if (++calls == 2)
            failure = u"worn out";
        else
            std::memcpy(bytes, "k\nka", got = 4);
        return calls == 1;
    };
    auto write = [&](std::string_view bytes) { return written += bytes, true; };
    const TextFilterOutcome outcome = TextFilter(converter, {}, read, write).Run();
    EXPECT_EQ(End::ReadFailed, outcome.end);
    EXPECT_EQ(u"worn out", outcome.text);
    EXPECT_EQ(Utf8(u"\u0995\n"), written);
}

TEST(TextFilter, AFailedWriteEndsTheRun) {
    clsConvert converter;
    converter.LoadText(kTable);
    int reads = 0;
    auto read = [&](char* bytes, std::size_t, std::size_t& got, std::u16string&) {
        ++reads;
        std::memcpy(bytes, "k\n", got = 2);
        return true;
    };
    auto write = [](std::string_view) { return false; };
    EXPECT_EQ(End::WriteFailed, TextFilter(converter, {}, read, write).Run().end);
    EXPECT_EQ(1, reads);
}

TEST(TextFilter, WhatIsReadIsWrittenAtOnce) {
    clsConvert converter;
    converter.LoadText(kTable);
    std::string written;
    int reads = 0;
    auto read = [&](char* bytes, std::size_t, std::size_t& got, std::u16string&) {
        got = 0;
        if (reads++ == 0)
            std::memcpy(bytes, "k\nk", got = 3);
        else
            EXPECT_EQ(Utf8(u"\u0995\n"), written);
        return true;
    };
    auto write = [&](std::string_view bytes) { return written += bytes, true; };
    TextFilter(converter, {}, read, write).Run();
    EXPECT_EQ(Utf8(u"\u0995\n\u0995"), written);
}

TEST(TextFilter, ALineLongerThanManyBlocks) {
    std::string text;
    std::u16string expected;
    for (int i = 0; i < 500000; ++i) {
        text += "ka ";
        expected += u"\u0995\u09BE ";
    }
    EXPECT_EQ(Utf8(expected + u"\n\u0995"), Filter(text + "\nk").bytes);
    EXPECT_EQ(Utf8(expected + u"\n\u0995"), Filter(text + "\nk", kUtf8ToUtf8, 1000).bytes);
    const std::string wide = Utf16(text::FromCp1252(text) + u"\r\nk");
    EXPECT_EQ(Utf16(expected + u"\r\n\u0995"), Filter(wide, kUtf16ToUtf16, 4097).bytes);
}

TEST(TextFilter, ShortLinesAreWrittenInSmallParts) {
    std::string text;
    for (int i = 0; i < 1000000; ++i) text += "k\n";
    EXPECT_GE(std::size_t{2} << 20, Filter(text).longestWrite);
}

// Everything again the simple way: the whole text decoded, cut, converted, encoded.
std::string Judge(std::string_view input, const TextFilterOptions& options) {
    std::u16string units;
    switch (options.input) {
    case TextEncoding::Cp1252:
        units = text::FromCp1252(input);
        break;
    case TextEncoding::Utf8:
        units = text::FromUtf8(input);
        break;
    case TextEncoding::Utf16:
        units = text::FromUtf16Le(input);
        break;
    }
    if (options.input != TextEncoding::Cp1252 && !units.empty() && units[0] == 0xFEFF) units.erase(0, 1);
    clsConvert converter;
    converter.LoadText(kTable);
    std::u16string made;
    for (std::size_t at = 0; at < units.size();) {
        std::size_t lf = units.find(u'\n', at);
        std::size_t next = lf == units.npos ? units.size() : lf + 1;
        std::size_t end = lf == units.npos ? next : lf > at && units[lf - 1] == u'\r' ? lf - 1 : lf;
        const std::u16string line = units.substr(at, end - at);
        try {
            made += converter.Convert(line);
        } catch (const RuntimeFailure&) {
            made += line;
        }
        made += units.substr(end, next - end);
        at = next;
    }
    return options.output == OutputEncoding::Utf8 ? Utf8(made) : Utf16(made);
}

TEST(TextFilter, AnyCutOfAnyTextGivesTheSame) {
    std::mt19937 random(12);
    const std::u16string alphabet = u"kkaeR  \r\n\n\u2020\u0995\u0A0A\u00E9\uFEFF\U0001F600";
    for (int round = 0; round < 3000; ++round) {
        std::u16string units;
        for (std::size_t n = random() % 40; n > 0; --n) units += alphabet[random() % alphabet.size()];
        TextFilterOptions options;
        options.input = static_cast<TextEncoding>(random() % 3);
        options.output = static_cast<OutputEncoding>(random() % 2);
        options.keepGoing = true;
        std::string input;
        if (options.input == TextEncoding::Utf16) {
            input = Utf16(units);
        } else if (options.input == TextEncoding::Utf8) {
            input = Utf8(units);
        } else {
            for (char16_t unit : units) input += static_cast<char>(unit);
        }
        // Damage: a byte changed, the end cut off.
        if (!input.empty() && random() % 4 == 0) input[random() % input.size()] = static_cast<char>(random());
        if (random() % 4 == 0) input.resize(input.size() - random() % (input.size() + 1));
        if (options.input == TextEncoding::Utf16 && input.starts_with("\xFE\xFF")) continue;
        const std::string expected = Judge(input, options);
        ASSERT_EQ(expected, Filter(input, options, 1 + random() % 7).bytes) << round;
        ASSERT_EQ(expected, Filter(input, options).bytes) << round;
    }
}

} // namespace
