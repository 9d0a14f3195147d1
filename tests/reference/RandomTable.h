// Random tables and lines that make rules and passes meet, and the way from a failing case to a
// minimal one.
#pragma once

#include "reference/PlainConvert.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace reference {

// SplitMix64.
class Random {
public:
    explicit Random(std::uint64_t seed) : m_State(seed) {}
    std::uint64_t Next();
    std::size_t Below(std::size_t limit) { return static_cast<std::size_t>((Next() >> 32) * limit >> 32); }
    bool OneIn(std::size_t n) { return Below(n) == 0; }
    char16_t Of(const std::u16string& units) { return units[Below(units.size())]; }

private:
    std::uint64_t m_State;
};

struct RandomCase {
    Table table;
    std::vector<std::u16string> lines;
    bool bytes = true; // every unit of every line has a byte of the ANSI code page
};

// Tables of 0 to 16 rules over a few units; one in five has markers that are no single unit of
// their own. The plain form may give some lines up.
RandomCase MakeRandomCase(Random& random);

// Makes the case smaller as long as it still fails, and returns it.
RandomCase Shrink(RandomCase failing, const std::function<bool(const RandomCase&)>& fails);
// The case as C++ source.
std::string Describe(const RandomCase& failing);

} // namespace reference
