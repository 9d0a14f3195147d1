// Markers of several units and markers that the passes themselves read, against the reference.
// ZORVAK_RANDOM_CASES is the number of pairs of markers (some thousands without it),
// ZORVAK_RANDOM_SEED the first of their seeds.

#include "engine/Engine.h"

#include "EngineTesting.h"
#include "reference/RandomTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace {

using reference::Outcome;
using reference::Random;
using reference::Table;

// What the engine and the reference are given before they say that there is no end. Lines are so
// short that what comes to an end without growing is done long before.
constexpr std::size_t kLongestLine = 3000, kSteps = 6000;

std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* const value = std::getenv(name);
    return value == nullptr ? otherwise : std::strtoull(value, nullptr, 10);
}

const std::u16string kUnits = u"\u09B0\u09CD\u09AF\u200C\u09C1\u09C2\u09BE\u09C7\u0981\u0995xyz";

std::u16string Pick(Random& random, const std::u16string& units, std::size_t length) {
    std::u16string text;
    for (; length > 0; --length) text += random.Of(units);
    return text;
}

Outcome Convert(Engine& engine, std::u16string_view line) {
    UnitBuffer output;
    try {
        engine.Convert(line, output);
    } catch (const RuntimeFailure& failure) {
        return {failure.Number(), {}};
    }
    return {0, std::u16string(output.View())};
}

// Few different units, so that markers come about and meet; the markers themselves among them.
std::u16string RandomLine(Random& random, const Table& table) {
    std::u16string units = Pick(random, kUnits, 1 + random.Below(3)) + table.reph + table.yaPhala;
    if (random.OneIn(4)) units = table.yaPhala + u"\u09C1";
    std::u16string line;
    for (std::size_t n = random.Below(random.OneIn(8) ? 30 : 12); n > 0; --n) {
        switch (random.Below(6)) {
        case 0:
            line += table.reph;
            break;
        case 1:
            line += table.yaPhala;
            break;
        case 2:
            line += random.Of(kUnits);
            break;
        default:
            line += random.Of(units);
        }
    }
    return line;
}

struct Seen {
    std::size_t lines = 0, failing = 0, endless = 0, growing = 0;
};

void Compare(Engine& engine, const Table& table, const std::u16string& line, Seen& seen) {
    bool gaveUp = false;
    const Outcome expected = reference::Convert(table, line, &gaveUp, kSteps, kLongestLine);
    const Outcome actual = Convert(engine, line);
    ++seen.lines;
    if (!gaveUp) {
        seen.failing += expected.failure != 0;
        EXPECT_EQ(expected, actual) << Hex(table.reph) << " / " << Hex(table.yaPhala) << " / " << Hex(line);
        return;
    }
    // Either it goes round, or the line grows and grows.
    seen.endless += actual.failure == 5;
    seen.growing += actual.failure == 14;
    EXPECT_TRUE(actual.failure == 5 || actual.failure == 14)
        << Hex(table.reph) << " / " << Hex(table.yaPhala) << " / " << Hex(line);
}

TEST(OddMarkers, RandomMarkersAndLines) {
    const std::uint64_t cases = FromEnvironment("ZORVAK_RANDOM_CASES", 2000);
    const std::uint64_t first = FromEnvironment("ZORVAK_RANDOM_SEED", 1);
    EngineLimits limits;
    limits.LongestLine = kLongestLine;
    Seen seen;
    for (std::uint64_t seed = first; seed < first + cases && !testing::Test::HasFailure(); ++seed) {
        Random random(seed);
        std::u16string units = random.OneIn(2) ? kUnits : Pick(random, kUnits, 2);
        if (random.OneIn(8)) units = u"\u09C1x"; // what can make a line double with each sign
        Table table{Pick(random, units, 1 + random.Below(4)), Pick(random, units, 1 + random.Below(4)), {}};
        if (random.OneIn(4)) table.yaPhala = u"\uE002";
        if (random.OneIn(4)) table.reph = u"\uE001";
        if (random.OneIn(12)) table.yaPhala = table.reph;
        table.rules = {{u"\uF000", u""}};
        Engine engine(limits);
        engine.Load(table.Payload());
        for (int i = 0; i < 8; ++i) Compare(engine, table, RandomLine(random, table), seen);
    }
    // The cases must be worth their name.
    if (cases >= 1000) {
        EXPECT_GT(seen.failing, cases / 50);
        EXPECT_GT(seen.endless, cases / 100);
        EXPECT_GT(seen.growing, 0u);
    }
}

// What is handled apart, or seldom comes about by chance.
TEST(OddMarkers, MarkersOfTheirOwnKind) {
    struct Kind {
        std::u16string reph, yaPhala, others;
    };
    const Kind kinds[] = {
        {u"\uE001", u"\u09AF\u09CD", u"\u09C1\u09C2\u09B0x"}, // viramas go through YAs
        {u"q\u09CD", u"\uE002", u"\u09C7\u0995"},             // a kept one between pairs
        {u"\u09C7q", u"\uE002", u"\u09CD\u09BE\u0995"},       // a scan passes a sign and its pair
        {u"\u09B0", u"\uE002", u"\u09CD\u09BE\u0995x"},       // what may come around
        {u"\u09CD", u"\uE002", u"\u09BE\u0995x"},
        {u"\u09B0\u09CD", u"\uE002", u"\u09BE\u0995x"},
        {u"\u09CD\u09B0", u"\uE002", u"\u09BE\u0995x"},
        {u"\u09CDx", u"\uE002", u"\u0995\u09BE"}, // what takes in a pair
        {u"\uE001", u"\u09B0", u"\u0995\u09CD\u09BE"},
    };
    EngineLimits limits;
    limits.LongestLine = kLongestLine;
    Random random(1);
    Seen seen;
    for (const Kind& kind : kinds) {
        const Table table{kind.reph, kind.yaPhala, {{u"\uF000", u""}}};
        Engine engine(limits);
        engine.Load(table.Payload());
        const std::u16string units = kind.reph + kind.reph + kind.yaPhala + kind.others;
        for (int i = 0; i < 1500 && !testing::Test::HasFailure(); ++i)
            Compare(engine, table, Pick(random, units, 1 + random.Below(14)), seen);
    }
    Engine engine(limits);
    const Table table{u"q\u09CD", u"\uE002", {{u"\uF000", u""}}};
    engine.Load(table.Payload());
    Compare(engine, table, u"q\u09CDqq\u09CD\u09CD", seen);
}

} // namespace
