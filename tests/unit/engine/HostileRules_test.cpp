// Rules that would cost a plain search or a plain chain more than their number times the line:
// what nearly matches everywhere, what brings neighbours together, what hands on from rule to
// rule. The work stays under a constant times rules and length; the results are those of rule
// after rule.

#include "engine/Blocks.h"
#include "engine/Engine.h"
#include "engine/PlainRules.h"

#include "EngineTesting.h"
#include "HostileTesting.h"
#include "base/Text.h"
#include "engine/WorkCounter.h"

#include <gtest/gtest.h>

namespace {

using reference::Table;
using Rules = std::vector<std::pair<std::u16string, std::u16string>>;

Rules Times(std::size_t count, Rules rules) {
    Rules made;
    for (; count > 0; --count) made.insert(made.end(), rules.begin(), rules.end());
    return made;
}

// first to second, second to the next, and so on.
Rules Chain(char16_t first, char16_t last) {
    Rules made;
    for (char16_t unit = first; unit < last; ++unit)
        made.emplace_back(std::u16string(1, unit), std::u16string(1, static_cast<char16_t>(unit + 1)));
    return made;
}

// Rules that are all in progress at once.
Rules WithOneBeginning(std::size_t count) {
    Rules made;
    for (std::size_t i = 0; i < count; ++i) {
        const char16_t last = static_cast<char16_t>(0x0980 + i % 100);
        made.push_back({std::u16string(1 + i / 100, u'a') + last, std::u16string(1 + i / 100, u'a')});
    }
    return made;
}

const std::u16string kLongA(300, u'a');

struct HostileRules {
    const char* name;
    Rules rules;
    std::u16string (*make)(std::size_t length);

    Table WithMarkers() const { return {u"R", u"Y", rules}; }
};

const HostileRules kHostileRules[] = {
    {"nearly a match everywhere", {{u"aaab", u"x"}}, [](std::size_t n) { return Repeated(u"a", n); }},
    {"a match at every other", {{u"aab", u"ab"}}, [](std::size_t n) { return Repeated(u"aab", n); }},
    {"nearly a long match everywhere",
     {{kLongA + u"b", u"x"}},
     [](std::size_t n) { return Repeated(u"a", n); }},
    {"a long match that breaks off",
     {{kLongA + u"b", u"x"}},
     [](std::size_t n) { return Repeated(kLongA + u"c", n); }},
    {"long matches that break off, one after the other",
     Times(5, {{kLongA + u"b", u"x"}, {kLongA + u"d", u"y"}}),
     [](std::size_t n) { return Repeated(kLongA + u"c", n); }},
    {"a long match in itself",
     {{u"abaababaabaababaababaab" + kLongA, u"x"}},
     [](std::size_t n) { return Repeated(u"abaababaabaab", n); }},
    {"neighbours that come together, once",
     {{u"ab", u""}},
     [](std::size_t n) { return Then(u"a", u"b", n); }},
    {"neighbours that come together, rule after rule", Times(30, {{u"ab", u""}}),
     [](std::size_t n) { return Then(u"a", u"b", n); }},
    {"neighbours that come together in pairs", Times(10, {{u"ab", u""}, {u"ba", u""}}),
     [](std::size_t n) { return Repeated(u"aabb", n); }},
    {"halved again and again", Times(12, {{u"aa", u"a"}}), [](std::size_t n) { return Repeated(u"a", n); }},
    {"handed on", Chain(u'a', u'z'), [](std::size_t n) { return Repeated(u"a", n); }},
    {"handed on and back", Times(10, {{u"a", u"b"}, {u"b", u"a"}}),
     [](std::size_t n) { return Repeated(u"ab", n); }},
    {"held by one after the other",
     {{u"aaaab", u"x"}, {u"aaab", u"x"}, {u"aab", u"x"}, {u"aac", u"x"}, {u"aaac", u"x"}, {u"aaaac", u"x"}},
     [](std::size_t n) { return Repeated(u"aaaaaaaad", n); }},
    {"moved from the end to the front",
     {{u"ab", u"ba"}, {u"ab", u"ba"}, {u"ab", u"ba"}},
     [](std::size_t n) { return Repeated(u"a", n) + u"b"; }},
    {"all with one beginning", WithOneBeginning(600), [](std::size_t n) { return Repeated(u"aaaaaab", n); }},
    {"all taken out", {{u"a", u""}, {u"b", u""}}, [](std::size_t n) { return Repeated(u"ab", n); }},
};

std::string Bytes(const std::u16string& line) {
    std::string bytes;
    EXPECT_TRUE(text::ToCp1252(line, bytes));
    return bytes;
}

std::string ConvertedBlock(Engine& engine, const std::string& block) {
    OutputBuffer output;
    ConvertBlock(engine, std::string_view(block), LineEnd::Lf, OutputEncoding::Utf16, output,
                 [](const LineFailure&) {
                     ADD_FAILURE();
                     return true;
                 });
    return std::string(output.View());
}

std::string Repeat(const std::string& line, std::size_t count) {
    std::string made;
    for (; count > 0; --count) made += line;
    return made;
}

// The longest line holds between the rules too, even where a later one takes everything out.
TEST(HostileRules, ATableThatExplodesEndsAtTheLongestLine) {
    const auto convert = [](std::size_t longest, const Rules& rules, UnitBuffer& output) {
        EngineLimits limits;
        limits.LongestLine = longest;
        Engine engine(limits);
        engine.Load(Table{u"R", u"Y", rules}.Payload());
        try {
            engine.Convert(std::u16string_view(u"a"), output);
        } catch (const RuntimeFailure& failure) {
            return failure.Number();
        }
        return 0;
    };
    Rules rules = Times(4, {{u"a", std::u16string(12, u'a')}}); // 12, 144, 1,728, 20,736
    UnitBuffer output;
    EXPECT_EQ(0, convert(20736, rules, output));
    EXPECT_EQ(std::u16string(20736, u'a'), output.View());
    EXPECT_EQ(14, convert(20735, rules, output));
    rules.emplace_back(u"a", u"");
    EXPECT_EQ(14, convert(20735, rules, output));
    rules = Times(40, {{u"a", std::u16string(12, u'a')}});
    EXPECT_EQ(14, convert(1000000, rules, output));
}

TEST(HostileRules, ResultsAreThoseOfRuleAfterRule) {
    for (const HostileRules& hostile : kHostileRules) {
        const Table table = hostile.WithMarkers();
        Engine engine;
        engine.Load(table.Payload());
        for (const std::size_t length : {10, 700}) {
            const std::u16string line = hostile.make(length);
            const std::u16string expected = reference::Convert(table, line).text;
            UnitBuffer output;
            engine.Convert(std::u16string_view(line), output);
            EXPECT_EQ(Hex(expected), Hex(output.View())) << hostile.name;
            RuleTable rules;
            rules.Read(table.Payload());
            std::u16string worked = line, spare;
            ApplyRules(rules, worked, spare);
            EXPECT_EQ(Hex(reference::ApplyRules(table, line)), Hex(worked)) << hostile.name;
            EXPECT_TRUE(Repeat(text::ToUtf16Le(expected + u"\n"), 40) ==
                        ConvertedBlock(engine, Repeat(Bytes(line) + "\n", 40)))
                << hostile.name;
        }
    }
}

#ifdef ZC_COUNT_WORK
// Rule after rule, and all of the engine.
TEST(HostileRules, WorkStaysUnderAConstantTimesRulesAndLength) {
    constexpr std::uint64_t kPerRule = 12, kPerUnit = 40, kToFill = 200000;
    for (const HostileRules& hostile : kHostileRules) {
        const Table table = hostile.WithMarkers();
        RuleTable rules;
        rules.Read(table.Payload());
        const auto expectUnder = [&](std::uint64_t most, const char* way, std::size_t length, auto work) {
            const std::uint64_t before = g_UnitsWorked;
            work();
            const std::uint64_t worked = g_UnitsWorked - before;
            EXPECT_LT(worked, most) << hostile.name << ", " << way << ", " << length;
            EXPECT_GE(worked, length) << hostile.name << ", " << way << ": not counted";
        };
        for (const std::size_t length : {std::size_t{4000}, std::size_t{64000}}) {
            const std::u16string line = hostile.make(length);
            const std::uint64_t perRule = kPerRule * hostile.rules.size() * line.size();
            expectUnder(perRule, "rule after rule", line.size(), [&] {
                std::u16string worked = line, spare;
                ApplyRules(rules, worked, spare);
            });
            const std::uint64_t most = kToFill + perRule + kPerUnit * line.size();
            expectUnder(most, "a line", line.size(), [&] {
                Engine engine;
                engine.Load(table.Payload());
                UnitBuffer output;
                engine.Convert(std::u16string_view(line), output);
            });
            const std::string bytes = Bytes(line);
            for (const std::size_t lines : {1, 3})
                expectUnder(most * lines, "a block", bytes.size() * lines, [&] {
                    Engine engine;
                    engine.Load(table.Payload());
                    ConvertedBlock(engine, Repeat(bytes + "\n", lines));
                });
            const std::string shortLine = Bytes(hostile.make(500)) + "\n";
            expectUnder(most, "short lines", length, [&] {
                Engine engine;
                engine.Load(table.Payload());
                ConvertedBlock(engine, Repeat(shortLine, length / shortLine.size()));
            });
        }
    }
}
#endif

} // namespace
