// Markers that would keep a pass going for ever. The engine says so instead.

#include "engine/Engine.h"

#include "EngineTesting.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

struct Markers {
    std::u16string_view reph, yaPhala;
};

reference::Outcome Convert(const Markers& markers, std::u16string_view line,
                           std::u16string* description = nullptr) {
    clsConvert converter;
    converter.LoadText(std::u16string(markers.reph) + u"\r\n" + std::u16string(markers.yaPhala) +
                       u"\r\n\uF000\t");
    try {
        return {0, converter.Convert(line)};
    } catch (const RuntimeFailure& failure) {
        if (description != nullptr) *description = failure.Description();
        return {failure.Number(), {}};
    }
}

int FailureOf(Engine& engine, std::u16string_view line) {
    UnitBuffer output;
    try {
        engine.Convert(line, output);
    } catch (const RuntimeFailure& failure) {
        return failure.Number();
    }
    return 0;
}

TEST(Endless, EmptyRephMarkerOnTwoCharactersOrMore) {
    std::u16string description;
    const Markers markers{u"", u"\uE002"};
    EXPECT_EQ(5, Convert(markers, u"ab", &description).failure);
    EXPECT_NE(std::u16string::npos, description.find(u"reph marker")) << Hex(description);
    EXPECT_EQ(u"", Convert(markers, u"").text);
    EXPECT_EQ(u"a", Convert(markers, u"a").text);
}

TEST(Endless, EmptyYaPhalaMarkerOnAnyNonEmptyLine) {
    std::u16string description;
    const Markers markers{u"\uE001", u""};
    EXPECT_EQ(5, Convert(markers, u"a", &description).failure);
    EXPECT_NE(std::u16string::npos, description.find(u"ya-phala marker")) << Hex(description);
    EXPECT_EQ(0, Convert(markers, u"").failure);
}

TEST(Endless, RephMarkerThatItsReplacementHolds) {
    std::u16string description;
    const Markers markers{u"\u09CD", u"\uE002"};
    EXPECT_EQ(5, Convert(markers, u"\u0995\u09CD", &description).failure);
    EXPECT_NE(std::u16string::npos, description.find(u"\u09CD"));
    EXPECT_EQ(u"\u0995", Convert(markers, u"\u0995").text);
    // Found at the very start it stays, and nothing is endless.
    EXPECT_EQ(u"\u09CD\u0995", Convert(markers, u"\u09CD\u0995").text);
}

TEST(Endless, RephMarkerRaIsEndlessOnlyWhereItMeetsItself) {
    const Markers markers{u"\u09B0", u"\uE002"};
    EXPECT_EQ(u"\u09B0\u09CD\u0995", Convert(markers, u"\u0995\u09B0").text);
    EXPECT_EQ(5, Convert(markers, u"\u0995\u09B0\u09CD\u09B0").failure);
}

TEST(Endless, RephMarkersThatComeAroundInACircle) {
    EXPECT_EQ(5, Convert({u"\u09B0\u09CD", u"\uE002"}, u"\u09B0\u09CD\u09B0\u09CD").failure);
    EXPECT_EQ(5, Convert({u"\u09CD\u09B0", u"\uE002"}, u"\u09B0\u09CD\u09B0").failure);
}

TEST(Endless, YaPhalaMarkerThatItsReplacementHolds) {
    for (const std::u16string_view marker : {u"\u09CD", u"\u09AF", u"\u09CD\u09AF"}) {
        std::u16string description;
        std::u16string line = u"\u0995";
        line += marker;
        EXPECT_EQ(5, Convert({u"\uE001", marker}, line, &description).failure) << Hex(marker);
        EXPECT_NE(std::u16string::npos, description.find(marker));
        EXPECT_EQ(u"\u0995", Convert({u"\uE001", marker}, u"\u0995").text);
    }
}

TEST(Endless, YaPhalaMarkerOfANonJoinerIsEndlessBehindABareRaOnly) {
    const Markers markers{u"\uE001", u"\u200C"};
    EXPECT_EQ(u"\u0995\u09CD\u09AF", Convert(markers, u"\u0995\u200C").text);
    EXPECT_EQ(5, Convert(markers, u"\u09B0\u200C").failure);
}

TEST(Endless, RephMarkerOfAVirama) {
    EXPECT_EQ(5, Convert({u"\u09CD\u09B0", u"\uE002"}, u"x\u09B0\u09CD\u09B0").failure);
    // Behind a consonant it comes to an end.
    EXPECT_EQ(Hex(u"\u09B0\u09CD\u0995"),
              Hex(Convert({u"\u09CD\u09B0", u"\uE002"}, u"\u0995\u09CD\u09B0").text));
}

TEST(Endless, RephMarkerThatIsTheReplacementIsEndlessOnlyInFrontOfAnother) {
    const Markers markers{u"\u09B0\u09CD", u"\uE002"};
    EXPECT_EQ(Hex(u"\u09B0\u09CD\u0995 \u09B0\u09CD\u0996"),
              Hex(Convert(markers, u"\u0995\u09B0\u09CD \u0996\u09B0\u09CD").text));
    EXPECT_EQ(Hex(u"\u09B0\u09CD\u09B0\u09CD "), Hex(Convert(markers, u" \u09B0\u09CD\u09B0\u09CD").text));
    EXPECT_EQ(5, Convert(markers, u"\u0995\u09B0\u09CD\u09B0\u09CD").failure);
}

// A marker of two equal units behind u signs leaves halves that meet again: the line doubles for
// each sign.
std::u16string Doubling(std::size_t signs) {
    return u"\u0995" + std::u16string(signs, u'\u09C1') + u"\uE002\uE002\uE002\uE002\uE002";
}

TEST(Endless, MarkerThatDoublesTheLineComesToAnEnd) {
    const std::u16string_view yaPhala = u"\uE002\uE002";
    const reference::Table table{u"\uE001", std::u16string(yaPhala), {}};
    EXPECT_EQ(reference::Convert(table, Doubling(8)).text, Convert({u"\uE001", yaPhala}, Doubling(8)).text);
    const reference::Outcome outcome = Convert({u"\uE001", yaPhala}, Doubling(18));
    EXPECT_EQ(0, outcome.failure);
    EXPECT_LT(std::size_t{1} << 18, outcome.text.size());
    EXPECT_EQ(std::u16string::npos, outcome.text.find(yaPhala));
    EXPECT_EQ(18, std::count(outcome.text.begin(), outcome.text.end(), u'\u09C1'));
}

TEST(Endless, ALineThatOnlyGrowsIsTooLongInTheEnd) {
    EngineLimits limits;
    limits.LongestLine = 100000;
    Engine engine(limits);
    engine.Load(u"\uE001\r\n\uE002\uE002\r\n\uF000\t");
    EXPECT_EQ(14, FailureOf(engine, Doubling(40)));
    // Signs that are a marker leave signs, of which more markers come about than are replaced.
    engine.Load(u"\uE001\r\n\u09C1\u09C2\u09C1\r\n\uF000\t");
    EXPECT_EQ(14, FailureOf(engine, u"x\u09C3\u09C3\u09C1\u09C2\u09C1\u09C2\u09C1"));
}

} // namespace
