// Hostile lines, one by one. The work, units visited and moved, stays under a constant times the
// length; the results are those of the passes.

#include "engine/Engine.h"

#include "EngineTesting.h"
#include "HostileTesting.h"
#include "engine/RephPass.h"
#include "engine/WorkCounter.h"

#include <gtest/gtest.h>

namespace {

TEST(HostileLines, ResultsAreThoseOfThePasses) {
    for (const Hostile& hostile : kHostile) {
        Engine engine;
        engine.Load(hostile.Table().Payload());
        const std::u16string line = hostile.make(600);
        const reference::Outcome expected = reference::Convert(hostile.Table(), line);
        UnitBuffer output;
        engine.Convert(std::u16string_view(line), output);
        EXPECT_EQ(0, expected.failure) << hostile.name;
        EXPECT_EQ(Hex(expected.text), Hex(output.View())) << hostile.name;
    }
}

// A table can make a line of hundreds of millions of units; a group for each would be gigabytes.
TEST(HostileLines, TheRephPassNeedsRoomForRephsNotForText) {
    RephPass pass;
    pass.SetMarkers(u"R", u"Y");
    for (const std::u16string_view text : {u"x", u"\u0995", u"\u09BE", u"\u0981", u"\u09BE\u0981", u"Y",
                                           u"\u0995\u09CD", u"\u0995\u09CD\u09BE", u"\u0995\u0981 "}) {
        const std::u16string line = u"\u0995" + Repeated(text, 100000) + u"R" + Repeated(text, 100000);
        UnitBuffer worked;
        worked.Append(line);
        pass.Run(worked);
        EXPECT_LE(pass.GroupsKept(), 8u) << Hex(text);
    }
}

#ifdef ZC_COUNT_WORK
TEST(HostileLines, WorkStaysUnderAConstantTimesTheLength) {
    constexpr std::uint64_t kUnitsPerUnit = 24;
    for (const Hostile& hostile : kHostile) {
        for (const std::size_t length : {std::size_t{20000}, std::size_t{320000}}) {
            Engine engine;
            engine.Load(hostile.Table().Payload());
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

// There a line may grow beyond all bounds, so it is the text made that counts.
TEST(HostileLines, WorkOnALineThatDoublesStaysUnderAConstantTimesTheResult) {
    Engine engine;
    engine.Load(u"R\r\nYY\r\nzzz\t");
    for (const std::size_t signs : {4, 8, 12, 16}) {
        const std::u16string line = u"x" + std::u16string(signs, u'\u09C1') + u"YYYYY";
        UnitBuffer output;
        const std::uint64_t before = g_UnitsWorked;
        engine.Convert(std::u16string_view(line), output);
        EXPECT_LT(g_UnitsWorked - before, 24 * output.Size()) << signs;
    }
}
#endif

} // namespace
