// Tables of hundreds to 32,767 rules that look for what others put in, against the reference.
// ZORVAK_RANDOM_SEED is their seed.

#include "engine/Blocks.h"
#include "engine/Engine.h"

#include "EngineTesting.h"
#include "base/Text.h"
#include "reference/RandomTable.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using reference::Outcome;
using reference::Random;
using reference::Table;

// Letters enough that a line is not eaten up by the first hundred rules.
std::u16string LettersFor(std::size_t rules) {
    std::u16string letters = u"\u0995\u0996\u09B0\u09AF\u09CD\u09BE\u09BF\u09C1\u09C7\u0981\u0985";
    for (char16_t byte = u'!'; byte < u'~'; ++byte) letters += byte;
    for (char16_t byte = 0xA1; byte <= 0xFF; ++byte) letters += byte;
    for (char16_t unit = 0xE100; unit < 0xE100 + rules / 20; ++unit) letters += unit;
    return letters;
}

std::u16string Letters(Random& random, const std::u16string& letters, std::size_t count) {
    std::u16string made;
    for (; count > 0; --count) made += random.Of(letters);
    return made;
}

Table MakeTable(Random& random, std::size_t count) {
    Table table{u"\uE001", u"\uE002", {}};
    const std::u16string letters = LettersFor(count) + table.reph + table.yaPhala;
    while (table.rules.size() < count) {
        std::u16string find = Letters(random, letters, 1 + random.Below(3));
        if (!table.rules.empty() && !random.OneIn(3)) {
            const auto& [earlierFind, earlierReplace] = table.rules[random.Below(table.rules.size())];
            // Begins as another does, or with the end of what another puts in.
            if (random.OneIn(2))
                find = earlierFind.substr(0, 1 + random.Below(earlierFind.size())) + random.Of(letters);
            else if (!earlierReplace.empty())
                find = earlierReplace.substr(random.Below(earlierReplace.size()));
            if (random.OneIn(3)) find += random.Of(letters);
        }
        // About as long as what it stands for, so that lines neither vanish nor explode.
        std::size_t length = find.size();
        if (random.OneIn(3)) length += random.Below(3) - 1;
        std::u16string replace = Letters(random, letters, length);
        if (random.OneIn(4)) replace = find.substr(0, random.Below(find.size() + 1)) + random.Of(letters);
        table.rules.emplace_back(find, replace);
    }
    return table;
}

// Made of what early and late rules look for, where bytes have it.
std::u16string MakeLine(Random& random, const Table& table) {
    std::u16string line;
    for (std::size_t n = 3 + random.Below(12); n > 0;) {
        const std::u16string& find = table.rules[random.Below(table.rules.size())].first;
        std::string bytes;
        if (!text::ToCp1252(find, bytes)) continue;
        line += find;
        if (random.OneIn(4)) line += u' ';
        --n;
    }
    return line;
}

void CompareWithReference(std::size_t rules, std::size_t lineCount) {
    Random random(FromEnvironment("ZORVAK_RANDOM_SEED", 1) * 1000003 + rules);
    const Table table = MakeTable(random, rules);
    Table firstHalf = table;
    firstHalf.rules.resize(rules / 2);
    Engine engine;
    engine.Load(table.Payload());
    std::string block;
    std::u16string expected;
    std::size_t byLateRules = 0, lines = 0;
    while (lines < lineCount) {
        const std::u16string line = MakeLine(random, table);
        bool gaveUp = false;
        const Outcome outcome = reference::Convert(table, line, &gaveUp, 2000, 3000);
        ASSERT_FALSE(gaveUp);
        if (reference::ApplyRules(firstHalf, line) != reference::ApplyRules(table, line)) ++byLateRules;
        ++lines;
        UnitBuffer output;
        Outcome actual;
        try {
            engine.Convert(std::u16string_view(line), output);
            actual.text = output.View();
        } catch (const RuntimeFailure& failure) {
            actual.failure = failure.Number();
        }
        ASSERT_EQ(outcome, actual) << rules << " rules: " << Hex(line);
        if (outcome.failure != 0) continue;
        std::string bytes;
        ASSERT_TRUE(text::ToCp1252(line, bytes));
        block += bytes + "\n";
        expected += outcome.text + u"\n";
    }
    // Otherwise it would be a test of a smaller table.
    EXPECT_GT(byLateRules * 2, lineCount);
    while (block.size() < 1000) {
        block += block;
        expected += expected;
    }
    for (const OutputEncoding encoding : {OutputEncoding::Utf16, OutputEncoding::Utf8}) {
        for (int time = 0; time < 2; ++time) {
            OutputBuffer output;
            ConvertBlock(engine, std::string_view(block), LineEnd::Lf, encoding, output,
                         [](const LineFailure&) {
                             ADD_FAILURE();
                             return true;
                         });
            EXPECT_TRUE((encoding == OutputEncoding::Utf16 ? text::ToUtf16Le(expected)
                                                           : text::ToUtf8(expected)) == output.View())
                << rules << " rules, as a block, time " << time;
        }
    }
}

TEST(LargeTables, HundredsOfRules) {
    CompareWithReference(300, 60);
}

TEST(LargeTables, FiveThousandRules) {
    CompareWithReference(5000, 20);
}

TEST(LargeTables, AsManyRulesAsThereCanBe) {
    CompareWithReference(32767, 6);
}

} // namespace
