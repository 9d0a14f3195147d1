// Hostile lines in blocks, as the filter has them: one or many, of any length, to either
// encoding. The work stays under a constant times the length; the results are those of the passes.

#include "engine/Blocks.h"
#include "engine/Engine.h"

#include "EncodingsTesting.h"
#include "EngineTesting.h"
#include "HostileTesting.h"
#include "base/Text.h"
#include "engine/WorkCounter.h"
#include "reference/HostileText.h"

#include <gtest/gtest.h>

namespace {

struct Shape {
    std::size_t units, lines;
    LineEnd cut;
    OutputEncoding encoding;

    std::string Block(const std::string& line) const {
        std::string block;
        for (std::size_t i = 0; i < lines; ++i) block += line + (cut == LineEnd::Lf ? "\n" : "\r\n");
        return block;
    }
};

constexpr OutputEncoding kEncodings[] = {OutputEncoding::Utf16, OutputEncoding::Utf8};

// From what is just worth the lanes to many pieces and to one line of nearly a megabyte.
constexpr Shape kShapes[] = {
    {300, 30, LineEnd::Lf, OutputEncoding::Utf16},   {300, 1, LineEnd::CrLf, OutputEncoding::Utf8},
    {3000, 20, LineEnd::CrLf, OutputEncoding::Utf8}, {60000, 1, LineEnd::Lf, OutputEncoding::Utf8},
    {65000, 3, LineEnd::Lf, OutputEncoding::Utf16},  {400000, 1, LineEnd::CrLf, OutputEncoding::Utf16},
};

std::string Convert(Engine& engine, std::string_view block, LineEnd cut, OutputEncoding encoding) {
    OutputBuffer output;
    ConvertBlock(engine, block, cut, encoding, output, [](const LineFailure& failure) {
        ADD_FAILURE() << "line " << failure.Line << ": " << text::ToUtf8(failure.Failure.Description());
        return true;
    });
    return std::string(output.View());
}

std::string Encoded(std::u16string_view units, OutputEncoding encoding) {
    return encoding == OutputEncoding::Utf16 ? text::ToUtf16Le(units) : text::ToUtf8(units);
}

// The hostile units have no bytes, so bytes stand for them, and rules behind those of the table
// make the units of them.
constexpr std::u16string_view kSpelled =
    u"\u0995\u0996\u09AF\u09B0\u09BE\u09BF\u09C1\u09C2\u09C7\u09C8\u09CD\u0981\u200C";
constexpr char16_t kFirstByte = 0xC0;

reference::Table SpelledTable(const Hostile& hostile) {
    reference::Table table = hostile.Table();
    for (std::size_t i = 0; i < kSpelled.size(); ++i)
        table.rules.emplace_back(std::u16string(1, static_cast<char16_t>(kFirstByte + i)),
                                 kSpelled.substr(i, 1));
    return table;
}

std::string SpelledLine(const Hostile& hostile, std::size_t length) {
    std::u16string line = hostile.make(length);
    for (char16_t& unit : line) {
        const std::size_t place = kSpelled.find(unit);
        if (place != kSpelled.npos) unit = static_cast<char16_t>(kFirstByte + place);
    }
    std::string bytes;
    EXPECT_TRUE(text::ToCp1252(line, bytes)) << hostile.name;
    return bytes;
}

reference::Table BijoyTable() {
    const rulesource::Table source = encodings::TableOf("Bijoy");
    std::vector<rulesource::Message> messages;
    RuleTable rules;
    rules.Read(rulesource::Payload(source, messages));
    reference::Table table{rules.m_RephMarker, rules.m_YaPhalaMarker, {}};
    for (std::size_t i = 0; i < rules.m_Find.size(); ++i)
        table.rules.emplace_back(rules.m_Find[i], rules.m_Replace[i]);
    return table;
}

std::string BijoyLine(const reference::HostileText& hostile, std::size_t length) {
    std::string bytes;
    EXPECT_TRUE(text::ToCp1252(hostile.Line(length), bytes)) << hostile.name;
    return bytes;
}

// Hostile lines of several lengths among others, with either line end and to either encoding.
template <class MakeLine>
void ExpectThoseOfThePasses(const char* name, const reference::Table& table, MakeLine make) {
    std::string lines[2]; // cut at LF, at CR LF
    std::u16string expected[2];
    for (const std::size_t length : {8, 20, 40, 60, 0, 250, 30, 250, 1}) {
        const std::string line = length == 0 ? std::string() : make(length);
        const reference::Outcome outcome = reference::Convert(table, text::FromCp1252(line));
        ASSERT_EQ(0, outcome.failure) << name << ", " << length;
        lines[0] += line + "\n";
        expected[0] += outcome.text + u"\n";
        lines[1] += line + "\r\n";
        expected[1] += outcome.text + u"\r\n";
    }
    for (const LineEnd cut : {LineEnd::Lf, LineEnd::CrLf}) {
        const std::size_t which = cut == LineEnd::CrLf;
        for (const OutputEncoding encoding : kEncodings) {
            Engine engine;
            engine.Load(table.Payload());
            for (int time = 0; time < 2; ++time)
                EXPECT_TRUE(Encoded(expected[which], encoding) ==
                            Convert(engine, lines[which], cut, encoding))
                    << name << ", time " << time << (which ? ", CR LF" : ", LF")
                    << (encoding == OutputEncoding::Utf8 ? ", UTF-8" : ", UTF-16");
        }
    }
}

TEST(HostileBlocks, ResultsAreThoseOfThePasses) {
    for (const Hostile& hostile : kHostile)
        ExpectThoseOfThePasses(hostile.name, SpelledTable(hostile),
                               [&](std::size_t length) { return SpelledLine(hostile, length); });
}

TEST(HostileBlocks, ResultsWithTheShippedTableAreThoseOfThePasses) {
    const reference::Table table = BijoyTable();
    for (const reference::HostileText& hostile : reference::kHostileTexts)
        ExpectThoseOfThePasses(hostile.name, table,
                               [&](std::size_t length) { return BijoyLine(hostile, length); });
}

// Clusters of every length about the one that a reph no longer goes back over, with what may
// stand behind and in front of them.
TEST(HostileBlocks, LongClustersBeforeARephAreExact) {
    const reference::Table table = BijoyTable();
    for (const char* const front : {"", "K", "Kv", "\x87", " ", "K\xA9"}) {
        for (const char* const back : {"", "v", "&", "\xA8", "u", "v\xA9"}) {
            std::string block;
            std::u16string expected;
            for (std::size_t halves = 0; halves < 20; ++halves) {
                std::string line = front;
                for (std::size_t i = 0; i < halves; ++i) line += '\xAF';
                line += std::string("K") + back + "\xA9 K";
                const reference::Outcome outcome = reference::Convert(table, text::FromCp1252(line));
                if (outcome.failure != 0) continue;
                block += line + "\n";
                expected += outcome.text + u"\n";
            }
            for (const OutputEncoding encoding : kEncodings) {
                Engine engine;
                engine.Load(table.Payload());
                EXPECT_EQ(Hex(text::FromCp1252(Encoded(expected, encoding))),
                          Hex(text::FromCp1252(Convert(engine, block, LineEnd::Lf, encoding))))
                    << '"' << front << "\" \"" << back << '"';
            }
        }
    }
}

#ifdef ZC_COUNT_WORK
void ExpectWorkIsLinear(const char* name, const reference::Table& table, const Shape& shape,
                        const std::string& line) {
    Engine engine;
    engine.Load(table.Payload());
    const std::string block = shape.Block(line);
    // To fill the table, and then.
    constexpr std::uint64_t kToFill = 200000, kPerByte = 32;
    const std::uint64_t before = g_UnitsWorked;
    Convert(engine, block, shape.cut, shape.encoding);
    const std::uint64_t work = g_UnitsWorked - before;
    EXPECT_LT(work, kToFill + kPerByte * block.size())
        << name << ", " << shape.lines << " lines of " << shape.units;
    EXPECT_GE(work, block.size()) << name << ": not counted";
}

TEST(HostileBlocks, WorkStaysUnderAConstantTimesTheLength) {
    for (const Hostile& hostile : kHostile) {
        for (const Shape& shape : kShapes)
            ExpectWorkIsLinear(hostile.name, SpelledTable(hostile), shape, SpelledLine(hostile, shape.units));
    }
}

TEST(HostileBlocks, WorkWithTheShippedTableStaysUnderAConstantTimesTheLength) {
    const reference::Table table = BijoyTable();
    for (const reference::HostileText& hostile : reference::kHostileTexts) {
        for (const Shape& shape : kShapes)
            ExpectWorkIsLinear(hostile.name, table, shape, BijoyLine(hostile, shape.units));
    }
}
#endif

} // namespace
