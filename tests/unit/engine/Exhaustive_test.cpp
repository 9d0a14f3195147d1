// Every string of up to six units over one unit of each kind that the passes tell apart, each
// as it stands behind the rules.

#include "engine/Engine.h"

#include "EngineTesting.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using reference::Outcome;
using reference::Table;

template <class Convert>
Outcome OutcomeOf(Convert convert) {
    try {
        return {0, convert()};
    } catch (const RuntimeFailure& failure) {
        return {failure.Number(), {}};
    }
}

void TestAll(std::u16string_view alphabet, std::size_t longest) {
    const Table table{u"\uE001", u"\uE002", {{u"\uF000", u""}}};
    Engine engine;
    engine.Load(table.Payload());
    UnitBuffer output;
    std::vector<std::size_t> digits;
    std::size_t count = 0;
    for (std::size_t length = 0; length <= longest; ++length) {
        digits.assign(length, 0);
        for (bool more = true; more; ++count) {
            std::u16string line;
            for (const std::size_t digit : digits) line += alphabet[digit];
            const Outcome expected = reference::Convert(table, line);
            const Outcome whole = OutcomeOf([&] {
                output.Clear();
                engine.Convert(std::u16string_view(line), output);
                return std::u16string(output.View());
            });
            ASSERT_EQ(expected, whole) << Hex(line);
            const Outcome byLine = OutcomeOf([&] {
                output.Clear();
                engine.ConvertByLine(line, output);
                return std::u16string(output.View());
            });
            ASSERT_EQ(expected, byLine) << Hex(line);
            more = false;
            for (std::size_t i = 0; i < length && !more; ++i) {
                more = ++digits[i] < alphabet.size();
                if (!more) digits[i] = 0;
            }
        }
    }
    EXPECT_GT(count, std::size_t{1000});
}

TEST(Exhaustive, OneOfEachKind) {
    // Consonant, e sign, aa sign, reph marker, ya-phala marker, virama, a foreign letter.
    TestAll(u"\u0995\u09C7\u09BE\uE001\uE002\u09CDx", 6);
}

TEST(Exhaustive, SignsThatMoveOrAreMovedOver) {
    // RA, i sign, ai sign, u sign, chandrabindu, ya-phala marker, reph marker, A, aa sign.
    TestAll(u"\u09B0\u09BF\u09C8\u09C1\u0981\uE002\uE001\u0985\u09BE", 5);
}

} // namespace
