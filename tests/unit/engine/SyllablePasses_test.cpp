// What the syllable passes take must be what the passes make of the whole line.
#include "engine/SyllablePasses.h"

#include "reference/PlainConvert.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

constexpr char16_t kReph = 0xE001, kYaPhala = 0xE002;

// False where the passes do not take the line.
bool Convert(std::u16string_view line, std::u16string& made) {
    SyllablePasses passes;
    passes.SetMarkers(kReph, kYaPhala);
    made.clear();
    SyllablePasses::State state = SyllablePasses::kStart;
    std::size_t cluster = 0;
    auto write = [&](SyllableOutput& output) {
        for (; output.Rephs > 0; --output.Rephs) made.insert(cluster, u"\u09B0\u09CD");
        if (output.Cluster != SyllableOutput::kNoCluster) cluster = made.size() + output.Cluster;
        made += output.Units;
    };
    for (const char16_t unit : line) {
        SyllableOutput output;
        if (!passes.Put(state, unit, output)) return false;
        write(output);
    }
    SyllableOutput output;
    if (!passes.End(state, output)) return false;
    write(output);
    return true;
}

std::u16string Judge(std::u16string_view line) {
    const reference::Table table{std::u16string(1, kReph), std::u16string(1, kYaPhala), {}};
    const reference::Outcome outcome = reference::Convert(table, line);
    return outcome.failure != 0 ? u"fails" : outcome.text;
}

// One or two of each kind of unit that some pass tells apart.
constexpr std::u16string_view kKinds = u"\u0995\u09B0\u09CD\u09C7\u09BF\u09C8\u09BE\u09C0\u09C1\u09D7\u09CB"
                                       u"\u0981\u0985\u0982\uE001\uE002";

TEST(SyllablePasses, EveryShortLineThatIsTaken) {
    std::u16string made;
    std::size_t taken = 0;
    for (std::size_t length = 0, count = 1; length <= 4; ++length, count *= kKinds.size()) {
        for (std::size_t number = 0; number < count; ++number) {
            std::u16string line;
            for (std::size_t i = 0, rest = number; i < length; ++i, rest /= kKinds.size())
                line += kKinds[rest % kKinds.size()];
            if (!Convert(line, made)) continue;
            ++taken;
            ASSERT_EQ(Judge(line), made) << testing::PrintToString(line);
        }
    }
    EXPECT_LT(10000u, taken);
}

TEST(SyllablePasses, RandomLines) {
    std::mt19937 random(4);
    std::u16string made;
    std::size_t taken = 0;
    for (int round = 0; round < 300000; ++round) {
        std::u16string line;
        for (std::size_t n = 5 + random() % 6; n > 0; --n) line += kKinds[random() % kKinds.size()];
        if (!Convert(line, made)) continue;
        ++taken;
        ASSERT_EQ(Judge(line), made) << testing::PrintToString(line);
    }
    EXPECT_LT(3000u, taken);
}

// What real text is made of must not be refused.
TEST(SyllablePasses, UsualSyllablesAreTaken) {
    for (const std::u16string_view line : {
             u"\u0995\u09BE \u0995\u09C0",                        // signs behind
             u"\u09C7\u0995\u09BE\u09BF\u0995\u09C8\u0995",       // signs in front, o in two halves
             u"\u09C7\u0995\u09CD\u09A4\u09D7",                   // a conjunct in between
             u"\u0995\uE001\u09BE\u09BF\u0995\u09CD\u09B7\uE001", // reph behind cluster
             u"\u0995\u09BE\uE001",                               // reph behind the sign
             u"\u0995\u0981\u09BE\u0995\u09BE\u0981",             // chandrabindu before and behind a sign
             u"\u09C7\u0995\u0981\u09BE",
             u"\u0995\uE002\u09BE\u09C7\u0995\uE002\u09BE\u09B0\uE002", // ya-phala, also behind a bare RA
             u"\u0985\u09BE\u0995\u0982\u0985\u0995",
             u"\u0995\u09CD \u0995\u09CD\u200C\u0995", // a visible virama
         }) {
        std::u16string made;
        EXPECT_TRUE(Convert(line, made)) << testing::PrintToString(line);
        EXPECT_EQ(Judge(line), made) << testing::PrintToString(line);
    }
}

} // namespace
