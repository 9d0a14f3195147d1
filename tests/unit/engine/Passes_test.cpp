// The passes one by one, with the reph marker U+E001 and the ya-phala marker U+E002.

#include "engine/LinearPasses.h"
#include "engine/LiteralPasses.h"

#include "EngineTesting.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using Strings = std::vector<std::string>;

const literal::Markers kMarkers{u"\uE001", u"\uE002"};

TEST(MoveAndReplace, EqualPositionsChangeNothingEvenIfTheTextsDiffer) {
    EXPECT_EQ(u"abc", literal::MoveAndReplace(u"abc", 2, 2, u"b", u"XYZ"));
    EXPECT_EQ(u"abc", literal::MoveAndReplace(u"abc", 0, 0, u"b", u"XYZ"));
}

TEST(MoveAndReplace, OnlyTheLengthOfTheCutTextCounts) {
    EXPECT_EQ(u"Xad", literal::MoveAndReplace(u"abcd", 2, 1, u"??", u"X"));
}

TEST(MoveAndReplace, TargetCountsInTheTextAfterTheCut) {
    EXPECT_EQ(u"acXd", literal::MoveAndReplace(u"abcd", 2, 3, u"b", u"X"));
}

TEST(MoveAndReplace, TargetBeyondTheEndAppends) {
    EXPECT_EQ(u"acX", literal::MoveAndReplace(u"abc", 2, 9, u"b", u"X"));
}

TEST(MoveAndReplace, TargetZeroIsAnInvalidCall) {
    try {
        literal::MoveAndReplace(u"abc", 2, 0, u"b", u"X");
        FAIL();
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(5, failure.Number());
        EXPECT_EQ(u"Invalid procedure call or argument", failure.Description());
    }
}

TEST(FindRephTarget, MarkerAtTheStartStays) {
    EXPECT_EQ(1u, literal::FindRephTarget(u"\uE001", 1, u"\uE002"));
}

TEST(FindRephTarget, ConsonantStopsUnlessAViramaIsBeforeIt) {
    EXPECT_EQ(2u, literal::FindRephTarget(u"\u0995\u0996\uE001", 3, u"\uE002"));
    EXPECT_EQ(1u, literal::FindRephTarget(u"\u0995\u09CD\u0996\uE001", 4, u"\uE002"));
}

TEST(FindRephTarget, StepsOverTheYaPhalaMarkerOfOneUnitOnly) {
    EXPECT_EQ(1u, literal::FindRephTarget(u"\u0995\uE002\uE001", 3, u"\uE002"));
    EXPECT_EQ(3u, literal::FindRephTarget(u"\u0995\uE002\uE003\uE001", 4, u"\uE002\uE003"));
}

TEST(FindRephTarget, StepsOverOneVowelSignAndOneChandrabindu) {
    EXPECT_EQ(1u, literal::FindRephTarget(u"\u0995\u0981\u09BE\uE001", 4, u"\uE002"));
    EXPECT_EQ(2u, literal::FindRephTarget(u"\u0995\u0981\u0981\uE001", 4, u"\uE002"));
    EXPECT_EQ(2u, literal::FindRephTarget(u"\u0995\u09BE\u09C0\uE001", 4, u"\uE002"));
}

TEST(FindRephTarget, RunningOffTheStartGivesZero) {
    EXPECT_EQ(0u, literal::FindRephTarget(u"\u09BE\uE001", 2, u"\uE002"));
    EXPECT_EQ(0u, literal::FindRephTarget(u"\u09CD\u0981\uE002\uE001", 4, u"\uE002"));
}

TEST(FindChandrabinduTarget, StepsOverTheSixPostBaseSignsAndTheYaPhalaMarker) {
    EXPECT_EQ(1u, literal::FindChandrabinduTarget(u"\u0981", 1, u"\uE002"));
    EXPECT_EQ(8u, literal::FindChandrabinduTarget(u"\u0981\u09BE\u09C0\u09C1\u09C2\u09C3\u09D7\uE002x", 1,
                                                  u"\uE002"));
    for (const char16_t stopper : std::u16string(u"\u09BF\u09C7\u09C8\u09CB\u09CC\u0981\u0995x"))
        EXPECT_EQ(1u, literal::FindChandrabinduTarget(std::u16string(u"\u0981") + stopper, 1, u"\uE002"));
}

TEST(FindChandrabinduTarget, StopsAtAYaPhalaMarkerOfTwoUnits) {
    EXPECT_EQ(1u, literal::FindChandrabinduTarget(u"\u0981\uE002\uE003", 1, u"\uE002\uE003"));
}

TEST(FindPreBaseKarTarget, CountsConsonantsAndViramasOnly) {
    EXPECT_EQ(1u, literal::FindPreBaseKarTarget(u"\u09C7", 1));
    EXPECT_EQ(2u, literal::FindPreBaseKarTarget(u"\u09C7\u0995\u0996", 1));
    EXPECT_EQ(4u, literal::FindPreBaseKarTarget(u"\u09C7\u0995\u09CD\u0996\u0997", 1));
    EXPECT_EQ(2u, literal::FindPreBaseKarTarget(u"\u09C7 .\u0995", 1));
}

struct Case {
    const char* name;
    std::u16string_view line, expected;
};

// Lines as they stand behind the rules, and what all passes make of them.
const Case kCases[] = {
    {"reph behind a consonant", u"\u0995\uE001", u"\u09B0\u09CD\u0995"},
    {"reph crosses the whole cluster", u"\u09B8\u09CD\u09A4\uE001", u"\u09B0\u09CD\u09B8\u09CD\u09A4"},
    {"one vowel sign is stepped over", u"\u0995\u09BE\uE001", u"\u09B0\u09CD\u0995\u09BE"},
    {"the second vowel sign stops the scan", u"\u0995\u09BE\u09BE\uE001", u"\u0995\u09B0\u09CD\u09BE\u09BE"},
    {"reph alone survives", u"\uE001", u"\uE001"},
    {"reph lands in front of the blank that stopped it", u" \uE001", u"\u09B0\u09CD "},
    {"two rephs", u"\uE001\uE001", u"\u09B0\u09CD\u09B0\u09CD"},
    {"a reph at the start wakes behind a moved one", u"\uE001\u09CD\uE001",
     u"\u09B0\u09CD\u09B0\u09CD\u09CD"},
    {"chandrabindu goes behind the aa sign", u"\u0995\u0981\u09BE", u"\u0995\u09BE\u0981"},
    {"chandrabindu goes behind ya-phala and sign", u"\u0995\u0981\uE002\u09BE",
     u"\u0995\u09CD\u09AF\u09BE\u0981"},
    {"the i sign stops chandrabindu", u"\u0995\u0981\u09BF", u"\u0995\u0981\u09BF"},
    {"chandrabindu at the end stays", u"\u0995\u0981", u"\u0995\u0981"},
    {"of two chandrabindus only the second moves", u"\u0995\u0981\u0981\u09BE", u"\u0995\u0981\u09BE\u0981"},
    {"ya-phala", u"\u0995\uE002", u"\u0995\u09CD\u09AF"},
    {"ya-phala alone", u"\uE002", u"\u09CD\u09AF"},
    {"ya-phala behind a bare ra at the start", u"\u09B0\uE002", u"\u09B0\u200C\u09CD\u09AF"},
    {"ya-phala behind a bare ra", u"\u0995\u09B0\uE002", u"\u0995\u09B0\u200C\u09CD\u09AF"},
    {"ya-phala behind a ra with virama", u"\u0995\u09CD\u09B0\uE002", u"\u0995\u09CD\u09B0\u09CD\u09AF"},
    {"ya-phala in front of the u sign", u"\u0995\u09C1\uE002", u"\u0995\u09CD\u09AF\u09C1"},
    {"ya-phala over all three signs", u"\u0995\u09C1\u09C2\u09C3\uE002",
     u"\u0995\u09CD\u09AF\u09C1\u09C2\u09C3"},
    {"ya-phala over the sign to a bare ra", u"\u09B0\u09C1\uE002", u"\u09B0\u200C\u09CD\u09AF\u09C1"},
    {"two ya-phalas over one sign", u"\u0995\u09C1\uE002\uE002", u"\u0995\u09CD\u09AF\u09CD\u09AF\u09C1"},
    {"u sign at the start, then ya-phala", u"\u09C1\uE002", u"\u09CD\u09AF\u09C1"},
    {"e sign", u"\u09C7\u0995", u"\u0995\u09C7"},
    {"e sign and aa sign become o", u"\u09C7\u0995\u09BE", u"\u0995\u09CB"},
    {"e sign and au length mark become au", u"\u09C7\u0995\u09D7", u"\u0995\u09CC"},
    {"e sign crosses the whole cluster", u"\u09C7\u0995\u09CD\u09B7", u"\u0995\u09CD\u09B7\u09C7"},
    {"e sign alone stays", u"\u09C7", u"\u09C7"},
    {"e sign with nothing to cross stays", u"\u09C7 \u0982x", u"\u09C7 \u0982x"},
    {"e sign moves by the count", u"\u09C7 \u0995", u" \u09C7\u0995"},
    {"the walk ends with the line", u"\u09C7\u0995\u09CD", u"\u0995\u09CD\u09C7"},
    {"the signs go one after the other", u"\u09BF\u09C7 \u0995", u" \u09BF\u09C7\u0995"},
    {"in the other order nothing changes", u"\u09C7\u09BF \u0995", u"\u09C7\u09BF \u0995"},
    {"a and aa sign become aa", u"\u0985\u09BE", u"\u0986"},
    {"empty line", u"", u""},
    {"nothing to do", u"plain text, 123", u"plain text, 123"},
    {"a line break is text", u"\u09C7\r\n\u0995", u"\r\u09C7\n\u0995"},
    {"o and au signs are never moved", u"\u09CB\u0995\u09CC\u0996", u"\u09CB\u0995\u09CC\u0996"},
};

std::u16string AllLiteral(std::u16string line, const literal::Markers& markers) {
    literal::ResolveReph(line, markers);
    literal::ReorderChandrabindu(line, markers);
    literal::ResolveYaPhala(line, markers);
    literal::ComposeAa(line);
    literal::ReorderPreBaseKars(line);
    literal::ComposeSplitKars(line);
    return line;
}

TEST(Passes, EdgeCasesOneByOne) {
    clsConvert converter;
    converter.LoadText(u"\uE001\r\n\uE002\r\n\uF000\t\uF001");
    const reference::Table table{u"\uE001", u"\uE002", {}};
    for (const Case& c : kCases) {
        EXPECT_EQ(Hex(c.expected), Hex(AllLiteral(std::u16string(c.line), kMarkers))) << c.name;
        EXPECT_EQ(Hex(c.expected), Hex(reference::Convert(table, c.line).text)) << c.name;
        EXPECT_EQ(Hex(c.expected), Hex(converter.Convert(c.line))) << c.name;
    }
}

TEST(Passes, ScanOffTheStartOfTheLineFails) {
    clsConvert converter;
    converter.LoadText(u"\uE001\r\n\uE002\r\n\uF000\t\uF001");
    for (const std::u16string_view line : {u"\u09BE\uE001", u"\u09CD\uE001", u"\u0981\uE001", u"\uE002\uE001",
                                           u"\u09C7\u0981\u09CD\uE002\uE001 good"}) {
        try {
            converter.Convert(line);
            ADD_FAILURE() << Hex(line);
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(5, failure.Number());
            EXPECT_EQ(u"Invalid procedure call or argument", failure.Description());
            EXPECT_EQ(u"clsConvert", failure.Source());
        }
    }
    // Behind a blank the same characters are no failure.
    EXPECT_EQ(u"\u09B0\u09CD \u09BE", converter.Convert(u" \u09BE\uE001"));
}

TEST(Passes, YaPhalaMarkerOfTwoUnitsStopsTheScansButIsReplaced) {
    const literal::Markers markers{u"\uE001", u"\uE002\uE003"};
    EXPECT_EQ(Hex(u"\u0995\u09CD\u09AF"), Hex(AllLiteral(u"\u0995\uE002\uE003", markers)));
    EXPECT_EQ(Hex(u"\u0995\uE002\u09B0\u09CD\uE003"), Hex(AllLiteral(u"\u0995\uE002\uE003\uE001", markers)));
    EXPECT_EQ(Hex(u"\u0995\u0981\u09CD\u09AF\u09BE"),
              Hex(AllLiteral(u"\u0995\u0981\uE002\uE003\u09BE", markers)));
    clsConvert converter;
    converter.LoadText(u"\uE001\r\n\uE002\uE003\r\n\uF000\t\uF001");
    EXPECT_EQ(Hex(u"\u0995\uE002\u09B0\u09CD\uE003"), Hex(converter.Convert(u"\u0995\uE002\uE003\uE001")));
    EXPECT_EQ(Hex(u"\u0995\u0981\u09CD\u09AF\u09BE"),
              Hex(converter.Convert(u"\u0995\u0981\uE002\uE003\u09BE")));
}

// The worked example, stage by stage: words 1 to 4 of ek^a k*~a Aa r~.
const std::u16string_view kStages[] = {
    u"\u09C7\u0995\uE001\u09BE \u0995\u0981\uE002\u09BE \u0985\u09BE \u09B0\uE002",
    u"\u09C7\u09B0\u09CD\u0995\u09BE \u0995\u0981\uE002\u09BE \u0985\u09BE \u09B0\uE002",
    u"\u09C7\u09B0\u09CD\u0995\u09BE \u0995\uE002\u09BE\u0981 \u0985\u09BE \u09B0\uE002",
    u"\u09C7\u09B0\u09CD\u0995\u09BE \u0995\u09CD\u09AF\u09BE\u0981 \u0985\u09BE \u09B0\u200C\u09CD\u09AF",
    u"\u09C7\u09B0\u09CD\u0995\u09BE \u0995\u09CD\u09AF\u09BE\u0981 \u0986 \u09B0\u200C\u09CD\u09AF",
    u"\u09B0\u09CD\u0995\u09C7\u09BE \u0995\u09CD\u09AF\u09BE\u0981 \u0986 \u09B0\u200C\u09CD\u09AF",
    u"\u09B0\u09CD\u0995\u09CB \u0995\u09CD\u09AF\u09BE\u0981 \u0986 \u09B0\u200C\u09CD\u09AF",
};

TEST(Passes, WorkedExampleStageByStage) {
    std::u16string line(kStages[0]);
    literal::ResolveReph(line, kMarkers);
    EXPECT_EQ(Hex(kStages[1]), Hex(line));
    literal::ReorderChandrabindu(line, kMarkers);
    EXPECT_EQ(Hex(kStages[2]), Hex(line));
    literal::ResolveYaPhala(line, kMarkers);
    EXPECT_EQ(Hex(kStages[3]), Hex(line));
    literal::ComposeAa(line);
    EXPECT_EQ(Hex(kStages[4]), Hex(line));
    literal::ReorderPreBaseKars(line);
    EXPECT_EQ(Hex(kStages[5]), Hex(line));
    literal::ComposeSplitKars(line);
    EXPECT_EQ(Hex(kStages[6]), Hex(line));
}

TEST(Passes, WorkedExampleStageByStageInOneWalkEach) {
    LinearPasses passes;
    passes.SetMarkers(u'\uE001', u'\uE002');
    UnitBuffer line;
    line.Append(kStages[0]);
    passes.ResolveReph(line);
    EXPECT_EQ(Hex(kStages[1]), Hex(line.View()));
    passes.ReorderChandrabindu(line);
    EXPECT_EQ(Hex(kStages[2]), Hex(line.View()));
    passes.ResolveYaPhala(line);
    EXPECT_EQ(Hex(kStages[3]), Hex(line.View()));
    passes.ComposeAa(line);
    EXPECT_EQ(Hex(kStages[4]), Hex(line.View()));
    passes.ReorderPreBaseKars(line);
    EXPECT_EQ(Hex(kStages[5]), Hex(line.View()));
    passes.ComposeSplitKars(line);
    EXPECT_EQ(Hex(kStages[6]), Hex(line.View()));
}

TEST(Passes, EdgeCasesInOneWalkEach) {
    LinearPasses passes;
    passes.SetMarkers(u'\uE001', u'\uE002');
    for (const Case& c : kCases) {
        UnitBuffer line;
        line.Append(c.line);
        passes.Run(line);
        EXPECT_EQ(Hex(c.expected), Hex(line.View())) << c.name;
    }
}

} // namespace
