#include "engine/SyllableMachine.h"

#include "EngineTesting.h"
#include "base/Text.h"
#include "engine/BanglaUnits.h"
#include "engine/clsConvert.h"
#include "reference/PlainConvert.h"
#include "reference/RandomTable.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using reference::Outcome;
using reference::Random;
using reference::Table;

// A machine with what it stands on.
class Subject {
public:
    Subject(const Table& table, OutputEncoding encoding) : m_Encoding(encoding) {
        m_Rules.Read(table.Payload());
        m_Chain.Build(m_Rules);
        m_Passes.SetMarkers(table.reph[0], table.yaPhala[0]);
        m_Machine.emplace(m_Chain, m_Passes, encoding);
    }
    // Lines that are not taken are told to otherLines and come out as "?".
    bool Convert(std::string_view block, LineEnd cut, std::string& made) {
        OutputBuffer output;
        const auto otherWay = [&](std::string_view line, OutputBuffer& lineOutput) {
            otherLines.emplace_back(line);
            AppendUnits(u"?", m_Encoding, lineOutput);
        };
        if (!m_Machine->ConvertBlock(block, cut, output, otherWay)) return false;
        made = output.View();
        return true;
    }
    SyllableMachine& Machine() { return *m_Machine; }

    std::vector<std::string> otherLines;

private:
    OutputEncoding m_Encoding;
    RuleTable m_Rules;
    RuleChain m_Chain;
    SyllablePasses m_Passes;
    std::optional<SyllableMachine> m_Machine;
};

std::string Encoded(std::u16string_view units, OutputEncoding encoding) {
    return encoding == OutputEncoding::Utf16 ? text::ToUtf16Le(units) : text::ToUtf8(units);
}

// Letters for every kind of unit that the passes know, and rules of several letters among them.
constexpr std::u16string_view kLetters = u"krvei!aUoyn@.RY ";
constexpr std::u16string_view kUnits =
    u"\u0995\u09B0\u09CD\u09C7\u09BF\u09C8\u09BE\u09C1\u09D7\u0985\u0981\u09CB\u0964\uE001\uE002 ";

Table MakeTable(Random& random) {
    Table table{u"\uE001", u"\uE002", {}};
    const auto letters = [&](std::size_t count) {
        std::u16string made;
        for (; count > 0; --count) made += kLetters[random.Below(kLetters.size())];
        return made;
    };
    for (std::size_t n = random.Below(8); n > 0; --n) {
        std::u16string replace = letters(random.Below(4));
        if (random.OneIn(3)) replace += kUnits[random.Below(kUnits.size())];
        table.rules.emplace_back(letters(1 + random.Below(3)), replace);
    }
    for (std::size_t i = 0; i + 1 < kLetters.size(); ++i)
        table.rules.emplace_back(kLetters.substr(i, 1), kUnits.substr(i, 1));
    for (std::size_t n = random.Below(3); n > 0; --n)
        table.rules.emplace_back(kUnits.substr(random.Below(kUnits.size()), 1 + random.Below(2)),
                                 letters(random.Below(2)));
    return table;
}

// A line that is mostly made of whole syllables.
std::string MakeLine(Random& random) {
    std::string line;
    for (std::size_t n = random.Below(12); n > 0; --n) {
        if (random.OneIn(30)) line += static_cast<char>(kLetters[random.Below(kLetters.size())]);
        if (random.OneIn(4)) line += " .n@"[random.Below(3)];
        if (random.OneIn(3)) line += "ei!"[random.Below(3)];
        for (line += random.OneIn(4) ? 'r' : 'k'; random.OneIn(4); line += "kr"[random.Below(2)]) line += 'v';
        if (random.OneIn(8)) line += 'R';
        if (random.OneIn(8)) line += 'Y';
        if (random.OneIn(8)) line += '@';
        if (random.OneIn(2)) line += "aaUo"[random.Below(4)];
        if (random.OneIn(12)) line += "@R"[random.Below(2)];
    }
    return line;
}

TEST(SyllableMachine, RandomTablesAndBlocks) {
    const std::uint64_t cases = FromEnvironment("ZORVAK_RANDOM_CASES", 6000) / 4;
    const std::uint64_t first = FromEnvironment("ZORVAK_RANDOM_SEED", 1);
    std::size_t lines = 0, others = 0, leftOut = 0;
    for (std::uint64_t seed = first; seed < first + cases; ++seed) {
        Random random(seed);
        const Table table = MakeTable(random);
        const OutputEncoding encoding = random.OneIn(2) ? OutputEncoding::Utf16 : OutputEncoding::Utf8;
        Subject subject(table, encoding);
        std::string block;
        while (block.size() < 1000) block += MakeLine(random) + (random.OneIn(2) ? "\r\n" : "\n");
        if (random.OneIn(4)) block += "ka" + MakeLine(random);
        std::string made;
        ASSERT_TRUE(subject.Convert(block, LineEnd::Lf, made)) << seed;
        others += subject.otherLines.size();

        // Line by line against the reference, and the lines that were not taken in their place.
        const std::string lf = Encoded(u"\n", encoding);
        std::size_t other = 0, at = 0;
        bool grows = false;
        for (std::size_t start = 0; start < block.size(); ++lines) {
            const std::size_t end = std::min(block.find('\n', start), block.size());
            std::string line = block.substr(start, end - start);
            start = end + 1;
            std::u16string lineEnd = end < block.size() ? u"\n" : u"";
            if (!lineEnd.empty() && line.ends_with('\r')) {
                line.pop_back();
                lineEnd = u"\r\n";
            }
            bool gaveUp = false;
            const Outcome outcome = reference::Convert(table, text::FromCp1252(line), &gaveUp, 5000, 5000);
            // Lanes are walked side by side, so these lines come in another order.
            const bool isOther = std::count(subject.otherLines.begin(), subject.otherLines.end(), line) > 0;
            const std::u16string expected = isOther ? u"?" : outcome.text;
            ASSERT_TRUE(isOther || gaveUp || outcome.failure == 0) << seed << ": " << line;
            const std::string bytes = Encoded(expected + lineEnd, encoding);
            if (gaveUp && !isOther) {
                // A table that makes more of the line than the reference goes for.
                grows = true;
                break;
            }
            ASSERT_EQ(bytes, made.substr(at, bytes.size())) << seed << ": " << line;
            at += bytes.size();
            other += isOther;
        }
        leftOut += grows;
        if (grows) continue;
        ASSERT_EQ(made.size(), at) << seed;
        ASSERT_LE(subject.otherLines.size(), other);
    }
    // Most lines must have gone through the machine for this to be a test of it.
    EXPECT_LT(others * 2, lines);
    EXPECT_LE(leftOut * 20, cases);
}

Table SimpleTable() {
    Table table{u"\uE001", u"\uE002", {}};
    for (std::size_t i = 0; i + 1 < kLetters.size(); ++i)
        table.rules.emplace_back(kLetters.substr(i, 1), kUnits.substr(i, 1));
    return table;
}

std::string Repeat(std::string_view what, std::size_t count) {
    std::string made;
    for (; count > 0; --count) made += what;
    return made;
}

TEST(SyllableMachine, LineEndsStayAsTheyStood) {
    Subject subject(SimpleTable(), OutputEncoding::Utf8);
    std::string made;
    ASSERT_TRUE(subject.Convert(Repeat("ka\r\n\r\nk\n\n", 100) + "k\r", LineEnd::Lf, made));
    EXPECT_EQ(Repeat("\u0995\u09BE\r\n\r\n\u0995\n\n", 100) + "\u0995\r", made);
    EXPECT_TRUE(subject.otherLines.empty());
}

TEST(SyllableMachine, WhereOnlyCrLfCutsALoneLfIsText) {
    Subject subject(SimpleTable(), OutputEncoding::Utf8);
    std::string made;
    ASSERT_TRUE(subject.Convert(Repeat("\nek\n\r\nka\n\n", 100), LineEnd::CrLf, made));
    EXPECT_EQ(Repeat("\n\u0995\u09C7\n\r\n\u0995\u09BE\n\n", 100), made);
    // The sign at a line's end waits for the consonant behind the line feed, which the machine
    // leaves to another way.
    ASSERT_TRUE(subject.Convert(Repeat("e\nk\r\n", 100), LineEnd::CrLf, made));
    EXPECT_EQ(Repeat("?\r\n", 100), made);
}

TEST(SyllableMachine, ALineThatIsNotTakenStandsInItsPlace) {
    Subject subject(SimpleTable(), OutputEncoding::Utf16);
    std::string made;
    ASSERT_TRUE(subject.Convert(Repeat("ka\n", 100) + "kae e k\n" + Repeat("k\n", 100), LineEnd::Lf, made));
    std::u16string expected;
    for (int i = 0; i < 100; ++i) expected += u"\u0995\u09BE\n";
    expected += u"?\n";
    for (int i = 0; i < 100; ++i) expected += u"\u0995\n";
    EXPECT_EQ(text::ToUtf16Le(expected), made);
    EXPECT_EQ(std::vector<std::string>{"kae e k"}, subject.otherLines);
}

TEST(SyllableMachine, AShortBlockIsRefused) {
    Subject subject(SimpleTable(), OutputEncoding::Utf8);
    std::string made;
    EXPECT_FALSE(subject.Convert("ka\n", LineEnd::Lf, made));
    EXPECT_FALSE(subject.Convert("", LineEnd::Lf, made));
}

TEST(SyllableMachine, AFailureOfTheOtherWayLeavesTheOutput) {
    const Table table = SimpleTable();
    RuleTable rules;
    rules.Read(table.Payload());
    RuleChain chain;
    chain.Build(rules);
    SyllablePasses passes;
    passes.SetMarkers(table.reph[0], table.yaPhala[0]);
    SyllableMachine machine(chain, passes, OutputEncoding::Utf8);
    OutputBuffer output;
    output.Append("before");
    const auto fails = [](std::string_view, OutputBuffer&) { throw RuntimeFailure(kInvalidCall, u"test"); };
    EXPECT_FALSE(machine.ConvertBlock(Repeat("ka\n", 100) + "aR\n", LineEnd::Lf, output, fails));
    EXPECT_EQ("before", output.View());
}

TEST(SyllableMachine, AnOutputThatGrowsMoreThanTheRoomIsRefused) {
    Subject subject(SimpleTable(), OutputEncoding::Utf8);
    OutputBuffer output;
    const auto grows = [](std::string_view, OutputBuffer& lineOutput) {
        lineOutput.Append(Repeat("x", 1 << 20));
    };
    EXPECT_FALSE(subject.Machine().ConvertBlock(Repeat("aR\n", 200), LineEnd::Lf, output, grows));
    EXPECT_EQ(0u, output.Size());
}

// Few rows suffice for text of any length: what they tell apart are kinds, not letters.
TEST(SyllableMachine, FewRowsForMuchText) {
    Subject subject(SimpleTable(), OutputEncoding::Utf16);
    Random random(7);
    for (int i = 0; i < 50; ++i) {
        std::string block, made;
        while (block.size() < 10000) block += MakeLine(random) + "\n";
        ASSERT_TRUE(subject.Convert(block, LineEnd::Lf, made));
    }
    EXPECT_GT(200u, subject.Machine().StateCount());
}

} // namespace
