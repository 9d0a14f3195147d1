// The passes one by one, with the reph marker U+E001 and the ya-phala marker U+E002.

#include "engine/LinearPasses.h"

#include "EngineTesting.h"

#include <gtest/gtest.h>

namespace {

using Pass = void (LinearPasses::*)(UnitBuffer&);

// What one pass makes of a line, in hexadecimal.
std::string Through(Pass pass, std::u16string_view text, std::u16string_view yaPhala = u"\uE002") {
    LinearPasses passes;
    passes.SetMarkers(u"\uE001", yaPhala);
    UnitBuffer line;
    line.Append(text);
    (passes.*pass)(line);
    return Hex(line.View());
}

std::string Reph(std::u16string_view text, std::u16string_view yaPhala = u"\uE002") {
    return Through(&LinearPasses::ResolveReph, text, yaPhala);
}

std::string Chandrabindu(std::u16string_view text, std::u16string_view yaPhala = u"\uE002") {
    return Through(&LinearPasses::ReorderChandrabindu, text, yaPhala);
}

std::string PreBaseKars(std::u16string_view text) {
    LinearPasses passes;
    UnitBuffer line;
    line.Append(text);
    passes.ReorderPreBaseKars(line);
    return Hex(line.View());
}

TEST(ResolveReph, MarkerAtTheStartStays) {
    EXPECT_EQ(Hex(u"\uE001"), Reph(u"\uE001"));
    EXPECT_EQ(Hex(u"\uE001\u0995"), Reph(u"\uE001\u0995"));
}

TEST(ResolveReph, ConsonantStopsTheScanUnlessAViramaIsBeforeIt) {
    EXPECT_EQ(Hex(u"\u0995\u09B0\u09CD\u0996"), Reph(u"\u0995\u0996\uE001"));
    EXPECT_EQ(Hex(u"\u09B0\u09CD\u0995\u09CD\u0996"), Reph(u"\u0995\u09CD\u0996\uE001"));
}

TEST(ResolveReph, StepsOverTheYaPhalaMarkerOfOneUnitOnly) {
    EXPECT_EQ(Hex(u"\u09B0\u09CD\u0995\uE002"), Reph(u"\u0995\uE002\uE001"));
    EXPECT_EQ(Hex(u"\u0995\uE002\u09B0\u09CD\uE003"), Reph(u"\u0995\uE002\uE003\uE001", u"\uE002\uE003"));
}

TEST(ResolveReph, StepsOverOneVowelSignAndOneChandrabindu) {
    EXPECT_EQ(Hex(u"\u09B0\u09CD\u0995\u0981\u09BE"), Reph(u"\u0995\u0981\u09BE\uE001"));
    EXPECT_EQ(Hex(u"\u0995\u09B0\u09CD\u0981\u0981"), Reph(u"\u0995\u0981\u0981\uE001"));
    EXPECT_EQ(Hex(u"\u0995\u09B0\u09CD\u09BE\u09C0"), Reph(u"\u0995\u09BE\u09C0\uE001"));
}

TEST(ResolveReph, RunningOffTheStartFails) {
    EXPECT_THROW(Reph(u"\u09BE\uE001"), RuntimeFailure);
    EXPECT_THROW(Reph(u"\u09CD\u0981\uE002\uE001"), RuntimeFailure);
}

TEST(ReorderChandrabindu, StepsOverTheSixPostBaseSignsAndTheYaPhalaMarker) {
    EXPECT_EQ(Hex(u"\u0981"), Chandrabindu(u"\u0981"));
    EXPECT_EQ(Hex(u"\u09BE\u09C0\u09C1\u09C2\u09C3\u09D7\uE002\u0981x"),
              Chandrabindu(u"\u0981\u09BE\u09C0\u09C1\u09C2\u09C3\u09D7\uE002x"));
    for (const char16_t stopper : std::u16string(u"\u09BF\u09C7\u09C8\u09CB\u09CC\u0981\u0995x")) {
        const std::u16string line = std::u16string(u"\u0981") + stopper;
        EXPECT_EQ(Hex(line), Chandrabindu(line));
    }
}

TEST(ReorderChandrabindu, StopsAtAYaPhalaMarkerOfTwoUnits) {
    EXPECT_EQ(Hex(u"\u0981\uE002\uE003"), Chandrabindu(u"\u0981\uE002\uE003", u"\uE002\uE003"));
}

TEST(ReorderPreBaseKars, MovesByConsonantsAndViramasOnly) {
    EXPECT_EQ(Hex(u"\u09C7"), PreBaseKars(u"\u09C7"));
    EXPECT_EQ(Hex(u"\u0995\u09C7\u0996"), PreBaseKars(u"\u09C7\u0995\u0996"));
    EXPECT_EQ(Hex(u"\u0995\u09CD\u0996\u09C7\u0997"), PreBaseKars(u"\u09C7\u0995\u09CD\u0996\u0997"));
    EXPECT_EQ(Hex(u" \u09C7.\u0995"), PreBaseKars(u"\u09C7 .\u0995"));
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

TEST(Passes, EdgeCasesOneByOne) {
    clsConvert converter;
    converter.LoadText(u"\uE001\r\n\uE002\r\n\uF000\t\uF001");
    const reference::Table table{u"\uE001", u"\uE002", {}};
    for (const Case& c : kCases) {
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
    clsConvert converter;
    converter.LoadText(u"\uE001\r\n\uE002\uE003\r\n\uF000\t\uF001");
    EXPECT_EQ(Hex(u"\u0995\u09CD\u09AF"), Hex(converter.Convert(u"\u0995\uE002\uE003")));
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
    LinearPasses passes;
    passes.SetMarkers(u"\uE001", u"\uE002");
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
    passes.SetMarkers(u"\uE001", u"\uE002");
    for (const Case& c : kCases) {
        UnitBuffer line;
        line.Append(c.line);
        passes.Run(line);
        EXPECT_EQ(Hex(c.expected), Hex(line.View())) << c.name;
    }
}

} // namespace
