// Lines that would cost a plain engine their length squared. The work of ours, units visited
// and moved, stays under a constant times the length; the results are those of the passes.

#include "engine/Engine.h"

#include "EngineTesting.h"
#include "engine/WorkCounter.h"

#include <gtest/gtest.h>

namespace {

std::u16string Repeated(std::u16string_view part, std::size_t length) {
    std::u16string line;
    while (line.size() < length) line += part;
    return line;
}

std::u16string Then(std::u16string_view front, std::u16string_view back, std::size_t length) {
    return Repeated(front, length / 2) + Repeated(back, length / 2);
}

struct Hostile {
    const char* name;
    std::u16string (*make)(std::size_t length);
};

// With the reph marker R, the ya-phala marker Y and a rule that halves "hh".
const Hostile kHostile[] = {
    {"letters without a line break", [](std::size_t n) { return Repeated(u"\u0995\u09BE x", n); }},
    {"e signs, no consonant", [](std::size_t n) { return Repeated(u"\u09C7", n); }},
    {"e signs and blanks", [](std::size_t n) { return Repeated(u"\u09C7 ", n); }},
    {"e, i and ai signs, then a letter",
     [](std::size_t n) { return Repeated(u"\u09C7\u09BF\u09C8", n) + u"\u0995"; }},
    {"signs, then viramas and letters",
     [](std::size_t n) { return Then(u"\u09C7\u09BF", u"\u0995\u09CD", n); }},
    {"a letter, then rephs", [](std::size_t n) { return u"\u0995" + Repeated(u"R", n); }},
    {"letter and reph", [](std::size_t n) { return Repeated(u"\u0995R", n); }},
    {"rephs with blanks", [](std::size_t n) { return Repeated(u"R ", n); }},
    {"a long cluster, then rephs", [](std::size_t n) { return u"\u0995" + Then(u"\u09CD\u0995", u"R", n); }},
    {"u signs, then ya-phalas", [](std::size_t n) { return u"\u0995" + Then(u"\u09C1", u"Y", n); }},
    {"letter, ya-phala, u sign", [](std::size_t n) { return Repeated(u"\u0995Y\u09C1", n); }},
    {"chandrabindus, then aa signs", [](std::size_t n) { return Then(u"\u0981", u"\u09BE", n); }},
    {"chandrabindu and aa sign", [](std::size_t n) { return Repeated(u"\u0995\u0981\u09BE", n); }},
    {"one letter that a rule halves", [](std::size_t n) { return Repeated(u"h", n); }},
    {"a stray e sign at the end", [](std::size_t n) { return Repeated(u"\u0995\u09BE ", n) + u"\u09C7"; }},
};

const reference::Table kTable{u"R", u"Y", {{u"hh", u"h"}, {u"zzz", u""}}};

TEST(HostileLines, ResultsAreThoseOfThePasses) {
    Engine engine;
    engine.Load(kTable.Payload());
    for (const Hostile& hostile : kHostile) {
        const std::u16string line = hostile.make(600);
        UnitBuffer output;
        engine.Convert(std::u16string_view(line), output);
        EXPECT_EQ(reference::Convert(kTable, line).text, output.View()) << hostile.name;
    }
}

#ifdef ZC_COUNT_WORK
TEST(HostileLines, WorkStaysUnderAConstantTimesTheLength) {
    constexpr std::uint64_t kUnitsPerUnit = 24;
    for (const Hostile& hostile : kHostile) {
        for (const std::size_t length : {std::size_t{20000}, std::size_t{320000}}) {
            Engine engine;
            engine.Load(kTable.Payload());
            const std::u16string line = hostile.make(length);
            UnitBuffer output;
            const std::uint64_t before = g_UnitsWorked;
            engine.Convert(std::u16string_view(line), output);
            const std::uint64_t work = g_UnitsWorked - before;
            EXPECT_LT(work, kUnitsPerUnit * line.size()) << hostile.name << ", " << length;
            EXPECT_GE(work, line.size()) << hostile.name << ": not counted";
        }
    }
}
#endif

} // namespace
