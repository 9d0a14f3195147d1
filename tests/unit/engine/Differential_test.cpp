// The engine against the reference on random tables and lines. ZORVAK_RANDOM_CASES is the
// number of tables (some thousands without it), ZORVAK_RANDOM_SEED the first of their seeds.

#include "engine/Blocks.h"
#include "engine/Engine.h"

#include "EngineTesting.h"
#include "base/Text.h"
#include "reference/RandomTable.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

namespace {

using reference::Outcome;
using reference::RandomCase;

std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* const value = std::getenv(name);
    return value == nullptr ? otherwise : std::strtoull(value, nullptr, 10);
}

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
    limits.MemoBits = static_cast<unsigned>(1 + seed % 6);
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
    return OutcomeOf([&](UnitBuffer& output) { engine.Convert(line, 0, line.size(), output); });
}

// What is wrong with the engine in this case; empty where nothing is.
std::string Difference(const RandomCase& given, std::uint64_t seed) {
    Engine engine(SmallLimits(seed));
    engine.Load(given.table.Payload());
    std::string goodBytes;
    std::u16string goodUnits, goodResult;
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
        for (const char* way : {"bytes", "bytes again", "bytes once more"}) {
            if (wrong.empty() && hasBytes)
                wrong = compare(way, expected, Convert(engine, std::string_view(bytes)));
        }
        if (wrong.empty()) {
            const Outcome byLine = OutcomeOf([&](UnitBuffer& output) { engine.ConvertByLine(line, output); });
            wrong = compare("by line", expected, byLine);
        }
        if (!wrong.empty()) return wrong;
        if (expected.failure != 0 || line.find_first_of(u"\r\n") != std::u16string::npos) continue;
        if (hasBytes) goodBytes += bytes + "\n";
        goodUnits += line + u"\n";
        goodResult += expected.text + u"\n";
    }

    // All good lines together, twice.
    OutputBuffer output;
    const OnLineFailure none = [](const LineFailure&) { return false; };
    ConvertBlock(engine, std::u16string_view(goodUnits + goodUnits), LineEnd::Lf, OutputEncoding::Utf16,
                 output, none);
    std::string wrong =
        compare("block of units", {0, goodResult + goodResult}, {0, text::FromUtf16Le(output.View())});
    if (!wrong.empty() || !given.bytes) return wrong;
    for (const OutputEncoding encoding : {OutputEncoding::Utf16, OutputEncoding::Utf8}) {
        output.Clear();
        ConvertBlock(engine, std::string_view(goodBytes + goodBytes), LineEnd::Lf, encoding, output, none);
        const std::string expected = encoding == OutputEncoding::Utf16
                                         ? text::ToUtf16Le(goodResult + goodResult)
                                         : text::ToUtf8(goodResult + goodResult);
        if (output.View() != expected) return "block of bytes";
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
