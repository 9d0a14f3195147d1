#include "engine/clsConvert.h"

#include "EngineTesting.h"

#include <gtest/gtest.h>

namespace {

// Made up: each rule row of the worked example, in its order.
const reference::Table kExample{
    u"\uE001",
    u"\uE002",
    {{u"kh", u"\u0996"},
     {u"k", u"\u0995"},
     {u"a", u"\u09BE"},
     {u"e", u"\u09C7"},
     {u"^", u"\uE001"},
     {u"~", u"\uE002"},
     {u"*", u"\u0981"},
     {u"A", u"\u0985"},
     {u"r", u"\u09B0"}},
};

// Converts with the engine; the reference must agree.
std::u16string Converted(const reference::Table& table, std::u16string_view line) {
    clsConvert converter;
    converter.LoadText(table.Payload());
    const reference::Outcome outcome = ConvertOutcome(converter, line);
    EXPECT_EQ(reference::Convert(table, line), outcome);
    return outcome.text;
}

std::u16string WithRules(std::vector<std::pair<std::u16string, std::u16string>> rules,
                         std::u16string_view line) {
    return Converted({u"\uE001", u"\uE002", std::move(rules)}, line);
}

TEST(ClsConvert, WorkedExample) {
    EXPECT_EQ(Hex(u"\u09C7\u0995\uE001\u09BE \u0995\u0981\uE002\u09BE \u0985\u09BE \u09B0\uE002"),
              Hex(reference::ApplyRules(kExample, u"ek^a k*~a Aa r~")));
    EXPECT_EQ(Hex(u"\u09B0\u09CD\u0995\u09CB \u0995\u09CD\u09AF\u09BE\u0981 \u0986 \u09B0\u200C\u09CD\u09AF"),
              Hex(Converted(kExample, u"ek^a k*~a Aa r~")));
}

TEST(ClsConvert, EmptyLineGivesEmptyLine) {
    EXPECT_EQ(u"", Converted(kExample, u""));
}

TEST(ClsConvert, LineThatNothingConcernsComesBackUnchanged) {
    EXPECT_EQ(u"Plus 123!", Converted(kExample, u"Plus 123!"));
}

TEST(ClsConvert, OrderOfRowsMattersWhereAFindIsInsideAnother) {
    EXPECT_EQ(u"\u0996", WithRules({{u"kh", u"\u0996"}, {u"k", u"\u0995"}}, u"kh"));
    EXPECT_EQ(u"\u0995h", WithRules({{u"k", u"\u0995"}, {u"kh", u"\u0996"}}, u"kh"));
}

TEST(ClsConvert, OrderOfRowsMattersWhereAFindIsInsideAReplace) {
    EXPECT_EQ(u"c", WithRules({{u"a", u"b"}, {u"b", u"c"}}, u"a"));
    EXPECT_EQ(u"b", WithRules({{u"b", u"c"}, {u"a", u"b"}}, u"a"));
}

TEST(ClsConvert, DeletionBringsNeighboursTogether) {
    EXPECT_EQ(u"Q", WithRules({{u"x", u""}, {u"ab", u"Q"}}, u"axb"));
    EXPECT_EQ(u"QQ", WithRules({{u"x", u""}, {u"ab", u"Q"}}, u"axxxxbxaxb"));
}

TEST(ClsConvert, OrderIsNotLongestOrLeftmostMatch) {
    EXPECT_EQ(u"aY", WithRules({{u"bc", u"Y"}, {u"ab", u"X"}}, u"abc"));
}

TEST(ClsConvert, MatchesDoNotOverlapAndInsertedTextIsNotSeenByItsRule) {
    EXPECT_EQ(u"aa", WithRules({{u"aa", u"a"}}, u"aaa"));
    EXPECT_EQ(u"aaaa", WithRules({{u"a", u"aa"}}, u"aa"));
    EXPECT_EQ(u"Xba", WithRules({{u"aba", u"X"}}, u"ababa"));
    EXPECT_EQ(u"aab", WithRules({{u"ab", u"aab"}}, u"ab"));
}

TEST(ClsConvert, EmptyFindDoesNothing) {
    EXPECT_EQ(u"aa", WithRules({{u"", u"x"}, {u"", u""}}, u"aa"));
}

TEST(ClsConvert, CaseCounts) {
    EXPECT_EQ(u"A1", WithRules({{u"a", u"1"}}, u"Aa"));
}

TEST(ClsConvert, RulesMayHoldBlanksAndLineBreaks) {
    EXPECT_EQ(u"a\u2026b", WithRules({{u" ...", u"\u2026"}}, u"a ...b"));
    EXPECT_EQ(u"a|-b-", WithRules({{u"\n", u"-"}, {u"\r-", u"|-"}, {u"\r", u"-"}}, u"a\r\nb\r"));
}

TEST(ClsConvert, RulesOnBanglaAndPrivateUseCharacters) {
    EXPECT_EQ(u"\u0996\u09BE",
              WithRules({{u"k", u"\uE010"}, {u"\uE010", u"\u0995"}, {u"\u0995", u"\u0996"}}, u"k\u09BE"));
}

TEST(ClsConvert, LoneSurrogatesAndNulsAreUnits) {
    const std::u16string find = {0xD800, 0}, line = {u'x', 0xD800, 0, 0xDC00};
    EXPECT_EQ((std::u16string{u'x', 0xDC01, 0xDC00}), WithRules({{find, std::u16string(1, 0xDC01)}}, line));
}

TEST(ClsConvert, LineBreakIsCarriedThroughAsText) {
    EXPECT_EQ(u"\u0995\r\n\u0995", Converted(kExample, u"k\r\nk"));
}

TEST(ClsConvert, SameLineTwiceGivesTheSame) {
    clsConvert converter;
    converter.LoadText(kExample.Payload());
    const std::u16string first = converter.Convert(u"ek^a k*~a");
    EXPECT_EQ(first, converter.Convert(u"ek^a k*~a"));
}

TEST(ClsConvert, ResultIsNoFixedPoint) {
    const std::u16string once = Converted(kExample, u"ekk");
    EXPECT_EQ(u"\u0995\u09C7\u0995", once);
    EXPECT_EQ(u"\u0995\u0995\u09C7", Converted(kExample, once));
}

TEST(ClsConvert, FailingLineLeavesNothingBehind) {
    clsConvert converter;
    converter.LoadText(kExample.Payload());
    EXPECT_EQ(5, ConvertOutcome(converter, u"a^").failure);
    EXPECT_EQ(u"\u09B0\u09CD\u0995", converter.Convert(u"k^"));
}

TEST(ClsConvert, WithoutATableTheBoundIsOutOfRange) {
    clsConvert converter;
    EXPECT_EQ(9, ConvertOutcome(converter, u"").failure);
    EXPECT_EQ(9, ConvertOutcome(converter, u"k").failure);
    converter.LoadText(kExample.Payload());
    converter.UnLoadTable();
    EXPECT_EQ(9, ConvertOutcome(converter, u"k").failure);
}

TEST(ClsConvert, LoadingAgainReplacesTheTable) {
    clsConvert converter;
    converter.LoadText(kExample.Payload());
    EXPECT_EQ(u"\u0995", converter.Convert(u"k"));
    converter.LoadText(u"R\r\nY\r\nz\tR");
    EXPECT_EQ(u"k\u09B0\u09CD\u0995", converter.Convert(u"k\u0995z"));
    EXPECT_EQ(u"\u09B0\u09CDk", converter.Convert(u"kz"));
}

TEST(ClsConvert, WhatWasReadBeforeAFaultIsInForce) {
    clsConvert converter;
    EXPECT_THROW(converter.LoadText(u"\uE001\r\n\uE002\r\na\tb\r\ncd\r\ne\tf"), RuntimeFailure);
    // The faulty row has its Find text and deletes; the row behind it was never read.
    EXPECT_EQ(u"be", converter.Convert(u"acde"));
}

reference::Table ManyRules(std::size_t count) {
    reference::Table table{u"\uE001", u"\uE002", {}};
    for (std::size_t i = 0; i < count; ++i) {
        std::u16string find = u"#";
        find += static_cast<char16_t>(0x4000 + i);
        table.rules.emplace_back(find, std::u16string(1, static_cast<char16_t>(0x4000 + i)));
    }
    return table;
}

TEST(ClsConvert, TakesAsManyRulesAsItsCounter) {
    clsConvert converter;
    converter.LoadText(ManyRules(32767).Payload());
    const char16_t last = 0x4000 + 32766;
    EXPECT_EQ(std::u16string(1, last), converter.Convert(std::u16string(u"#") + last));
}

TEST(ClsConvert, MoreRulesOverflowTheCounter) {
    for (const std::size_t count : {32768u, 32769u, 40000u}) {
        clsConvert converter;
        converter.LoadText(ManyRules(count).Payload());
        EXPECT_EQ(6, ConvertOutcome(converter, u"").failure) << count;
    }
}

TEST(ClsConvert, LineThatGrowsBeyondTheLimitIsOutOfStringSpace) {
    const std::u16string thousand(1000, u'a');
    clsConvert converter;
    converter.LoadText(u"\uE001\r\n\uE002\r\na\t" + thousand + u"\r\na\t" + thousand + u"\r\na\t" + thousand +
                       u"\r\na\t");
    EXPECT_EQ(14, ConvertOutcome(converter, u"a").failure);
    EXPECT_EQ(u"b", converter.Convert(u"b"));
}

} // namespace
