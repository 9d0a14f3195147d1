// Markers that would keep a pass going for ever. The engine says so instead.

#include "EngineTesting.h"

#include <gtest/gtest.h>

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

TEST(Endless, MarkerOfManyUnitsStopsSomewhere) {
    // Two equal units behind signs leave halves that meet again: the work doubles per sign.
    std::u16string line = u"\u0995";
    line.append(40, u'\u09C1');
    line += u"\uE002\uE002\uE002\uE002\uE002";
    const reference::Outcome outcome = Convert({u"\uE001", u"\uE002\uE002"}, line);
    EXPECT_TRUE(outcome.failure == 5 || outcome.failure == 14);
}

} // namespace
