// Blocks of lines: where they are cut, what is kept, how failing lines are told.

#include "EngineTesting.h"

#include "base/Text.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

constexpr std::u16string_view kPayload = u"\uE001\r\n\uE002\r\nk\t\u0995\r\na\t\u09BE\r\n^\t\uE001\r\n\r\t!";

struct Result {
    std::size_t consumed = 0;
    std::u16string text;
    std::vector<LineFailure> failures;
};

template <class View>
Result ConvertBlock(View block, LineEnd cut, bool keepGoing = true,
                    OutputEncoding encoding = OutputEncoding::Utf16) {
    clsConvert converter;
    converter.LoadText(kPayload);
    OutputBuffer output;
    Result result;
    result.consumed = converter.ConvertLines(block, cut, encoding, output, [&](const LineFailure& failure) {
        result.failures.push_back(failure);
        return keepGoing;
    });
    result.text =
        encoding == OutputEncoding::Utf16 ? text::FromUtf16Le(output.View()) : text::FromUtf8(output.View());
    return result;
}

TEST(ConvertLines, LfCutsAndIsKeptAsItStood) {
    const std::string_view block = "k\nk\r\n\n\r\nka";
    EXPECT_EQ(Hex(u"\u0995\n\u0995\r\n\n\r\n\u0995\u09BE"), Hex(ConvertBlock(block, LineEnd::Lf).text));
    EXPECT_EQ(block.size(), ConvertBlock(block, LineEnd::Lf).consumed);
    EXPECT_EQ(Hex(u"\u0995\n\u0995\r\n\n\r\n\u0995\u09BE"),
              Hex(ConvertBlock(std::u16string_view(u"k\nk\r\n\n\r\nka"), LineEnd::Lf).text));
}

TEST(ConvertLines, LoneCrReachesTheConversion) {
    EXPECT_EQ(Hex(u"\u0995!\u0995!\r\n!"),
              Hex(ConvertBlock(std::string_view("k\rk\r\r\n\r"), LineEnd::Lf).text));
}

TEST(ConvertLines, WithCrLfALoneLfIsText) {
    EXPECT_EQ(Hex(u"\u0995\n\u0995\r\n\u0995!"),
              Hex(ConvertBlock(std::string_view("k\nk\r\nk\r"), LineEnd::CrLf).text));
}

TEST(ConvertLines, EmptyBlockGivesNothing) {
    EXPECT_EQ(u"", ConvertBlock(std::string_view(), LineEnd::Lf).text);
    EXPECT_EQ(0u, ConvertBlock(std::string_view(), LineEnd::Lf).consumed);
}

TEST(ConvertLines, Cp1252BytesAreUnits) {
    EXPECT_EQ(Hex(u"\u20AC\u0081\u00FF\n"),
              Hex(ConvertBlock(std::string_view("\x80\x81\xFF\n"), LineEnd::Lf).text));
}

TEST(ConvertLines, Utf8Output) {
    EXPECT_EQ(
        Hex(u"\u0995\u09BE\u20AC\r\n"),
        Hex(ConvertBlock(std::string_view("ka\x80\r\n"), LineEnd::Lf, true, OutputEncoding::Utf8).text));
}

TEST(ConvertLines, FailingLineIsNamedAndLeftAsItWas) {
    const Result result = ConvertBlock(std::string_view("k\na^ \x80\nk^\na^\n"), LineEnd::Lf);
    EXPECT_EQ(Hex(u"\u0995\na^ \u20AC\n\u09B0\u09CD\u0995\na^\n"), Hex(result.text));
    ASSERT_EQ(2u, result.failures.size());
    EXPECT_EQ(2u, result.failures[0].Line);
    EXPECT_EQ(Hex(u"a^ \u20AC"), Hex(result.failures[0].Legacy));
    EXPECT_EQ(5, result.failures[0].Failure.Number());
    EXPECT_EQ(4u, result.failures[1].Line);
}

TEST(ConvertLines, StopsAtTheStartOfTheFailingLine) {
    const Result result = ConvertBlock(std::string_view("k\na^\nk"), LineEnd::Lf, false);
    EXPECT_EQ(2u, result.consumed);
    EXPECT_EQ(Hex(u"\u0995\n"), Hex(result.text));
}

TEST(ConvertLines, FailingLinesOfALargeBlockAreCountedFromItsStart) {
    std::string block;
    std::vector<std::size_t> failing;
    for (std::size_t line = 1; line <= 60000; ++line) {
        const bool fails = line % 14999 == 0;
        if (fails) failing.push_back(line);
        block += fails ? "a^ka\r\n" : "kaka k\r\n";
    }
    for (const LineEnd cut : {LineEnd::Lf, LineEnd::CrLf}) {
        const Result result = ConvertBlock(std::string_view(block), cut);
        EXPECT_EQ(block.size(), result.consumed);
        ASSERT_EQ(failing.size(), result.failures.size());
        for (std::size_t i = 0; i < failing.size(); ++i) EXPECT_EQ(failing[i], result.failures[i].Line);
    }
    const Result stopped = ConvertBlock(std::string_view(block), LineEnd::Lf, false);
    ASSERT_EQ(1u, stopped.failures.size());
    EXPECT_EQ(14998u * 8, stopped.consumed);
    EXPECT_EQ(14998u * 8, stopped.text.size());
}

TEST(ConvertLines, FailuresOfTheTableAreRaised) {
    clsConvert converter;
    OutputBuffer output;
    EXPECT_THROW(converter.ConvertLines(std::string_view("k"), LineEnd::Lf, OutputEncoding::Utf16, output,
                                        [](const LineFailure&) { return true; }),
                 RuntimeFailure);
}

} // namespace
