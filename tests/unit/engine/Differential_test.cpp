// The engine against the reference on random tables and lines. ZORVAK_RANDOM_CASES is the
// number of tables (some thousands without it), ZORVAK_RANDOM_SEED the first of their seeds.

#include "engine/Blocks.h"
#include "engine/Engine.h"

#include "EngineTesting.h"
#include "base/Text.h"
#include "reference/RandomTable.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace {

using reference::Outcome;
using reference::RandomCase;

// Budgets so small that what is rare in real text becomes common.
EngineLimits SmallLimits(std::uint64_t seed) {
    EngineLimits limits;
    if (seed % 3 == 0) return limits;
    limits.Machine.States = 3 + seed / 3 % 7;
    limits.Machine.UnitsPerState = 0;
    if (seed % 2 == 0) {
        limits.Machine.NewPerLine = seed / 7 % 8;
        limits.LinesAfterGivingUp = 2;
    }
    if (seed % 5 == 0) limits.Machine.Pending = 1 + seed / 5 % 4;
    return limits;
}

Outcome OutcomeOf(const std::function<void(UnitBuffer&)>& convert) {
    UnitBuffer output;
    output.Append(u"-"); // what stands before must not matter
    try {
        convert(output);
        return {0, std::u16string(output.View().substr(1))};
    } catch (const RuntimeFailure& failure) {
        return {failure.Number(), {}};
    }
}

template <class Unit>
Outcome Convert(Engine& engine, std::basic_string_view<Unit> line) {
    return OutcomeOf([&](UnitBuffer& output) { engine.Convert(line, output); });
}

// Lines in a row, with what must become of them.
struct Block {
    std::u16string units, result;
    std::vector<std::size_t> failing; // 1-based

    void Add(const std::u16string& line, const Outcome& expected) {
        ++lines;
        units += line + u"\n";
        if (expected.failure != 0) failing.push_back(lines);
        result += (expected.failure != 0 ? line : expected.text) + u"\n";
    }

    std::size_t lines = 0;
};

// What is wrong with the block, repeated so often that it is worth several lines at a time.
template <class View>
std::string BlockDifference(Engine& engine, const Block& block, View text, OutputEncoding encoding) {
    constexpr std::size_t kLength = 600;
    std::basic_string<typename View::value_type> repeated;
    std::u16string result;
    std::vector<std::size_t> failing;
    for (std::size_t times = 0; repeated.size() < kLength && !text.empty(); ++times) {
        repeated += text;
        result += block.result;
        for (const std::size_t line : block.failing) failing.push_back(times * block.lines + line);
    }
    OutputBuffer output;
    std::vector<std::size_t> told;
    const std::size_t done =
        ConvertBlock(engine, View(repeated), LineEnd::Lf, encoding, output, [&](const LineFailure& failure) {
            told.push_back(failure.Line);
            return true;
        });
    const std::string expected =
        encoding == OutputEncoding::Utf16 ? text::ToUtf16Le(result) : text::ToUtf8(result);
    if (output.View() == expected && told == failing && done == repeated.size()) return {};
    return sizeof(typename View::value_type) == 1 ? "block of bytes" : "block of units";
}

// What is wrong with the engine in this case; empty where nothing is.
std::string Difference(const RandomCase& given, std::uint64_t seed) {
    Engine engine(SmallLimits(seed));
    engine.Load(given.table.Payload());
    Block good, all;
    bool allBytes = true;
    const auto compare = [](const char* way, const Outcome& expected, const Outcome& actual) -> std::string {
        if (expected == actual) return {};
        return std::string(way) + ": expected " + testing::PrintToString(expected) + ", got " +
               testing::PrintToString(actual);
    };
    for (const std::u16string& line : given.lines) {
        bool gaveUp = false;
        const Outcome expected = reference::Convert(given.table, line, &gaveUp, 2000, 3000);
        if (gaveUp) continue;
        std::string bytes;
        const bool hasBytes = text::ToCp1252(line, bytes);
        std::string wrong = compare("units", expected, Convert(engine, std::u16string_view(line)));
        if (wrong.empty()) wrong = compare("again", expected, Convert(engine, std::u16string_view(line)));
        if (wrong.empty() && hasBytes)
            wrong = compare("bytes", expected, Convert(engine, std::string_view(bytes)));
        if (wrong.empty()) {
            const Outcome byLine = OutcomeOf([&](UnitBuffer& output) { engine.ConvertByLine(line, output); });
            wrong = compare("by line", expected, byLine);
        }
        if (!wrong.empty()) return wrong;
        if (line.find(u'\n') != std::u16string::npos || line.ends_with(u'\r')) continue;
        allBytes &= hasBytes;
        all.Add(line, expected);
        if (expected.failure == 0) good.Add(line, expected);
    }
    for (const Block* block : {&good, &all}) {
        std::string wrong =
            BlockDifference(engine, *block, std::u16string_view(block->units), OutputEncoding::Utf16);
        std::string bytes;
        if (!wrong.empty() || !allBytes || !text::ToCp1252(block->units, bytes)) return wrong;
        for (const OutputEncoding encoding : {OutputEncoding::Utf16, OutputEncoding::Utf8}) {
            wrong = BlockDifference(engine, *block, std::string_view(bytes), encoding);
            if (!wrong.empty()) return wrong;
        }
    }
    return {};
}

TEST(Differential, RandomTablesAndLines) {
    const std::uint64_t cases = FromEnvironment("ZORVAK_RANDOM_CASES", 6000);
    const std::uint64_t first = FromEnvironment("ZORVAK_RANDOM_SEED", 1);
    std::uint64_t lines = 0, failing = 0;
    for (std::uint64_t seed = first; seed < first + cases; ++seed) {
        reference::Random random(seed);
        const RandomCase given = MakeRandomCase(random);
        lines += given.lines.size();
        for (const std::u16string& line : given.lines)
            failing += reference::Convert(given.table, line, nullptr, 2000, 3000).failure != 0;
        if (Difference(given, seed).empty()) continue;
        const RandomCase smallest =
            Shrink(given, [&](const RandomCase& smaller) { return !Difference(smaller, seed).empty(); });
        FAIL() << "seed " << seed << "\n" << Describe(smallest) << "\n" << Difference(smallest, seed);
    }
    // The cases must be worth their name.
    if (cases >= 1000) {
        EXPECT_GT(lines, cases * 3);
        EXPECT_GT(failing, cases / 50);
    }
}

} // namespace
