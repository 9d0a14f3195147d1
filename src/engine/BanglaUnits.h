// The characters of modBanglaChar as code units with a class for each, for loops that look
// at every unit of a line.
#pragma once

#include "engine/modBanglaChar.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace bangla {

enum UnitClass : std::uint8_t {
    kVowelSign = 1,
    kPostBase = 2,
    kConsonant = 4,
    kVirama = 8,
    kCandrabindu = 16,
    kUSign = 32,      // the three signs that a ya-phala goes in front of
    kPreBaseKar = 64, // the three signs that stand in front of their cluster
    kLetterA = 128,
};

inline constexpr char16_t kUnitCandrabindu = 0x0981, kUnitA = 0x0985, kUnitAa = 0x0986, kUnitYa = 0x09AF,
                          kUnitRa = 0x09B0, kUnitSignAa = 0x09BE, kUnitSignI = 0x09BF, kUnitSignE = 0x09C7,
                          kUnitSignAi = 0x09C8, kUnitSignO = 0x09CB, kUnitSignAu = 0x09CC,
                          kUnitVirama = 0x09CD, kUnitAuLengthMark = 0x09D7, kUnitNonJoiner = 0x200C;

// Classes of U+0980 to U+09FF, taken from modBanglaChar.
extern const std::array<std::uint8_t, 128> kClasses;

inline std::uint8_t ClassOf(char16_t unit) {
    const unsigned index = unit - 0x0980u;
    return index < 128 ? kClasses[index] : 0;
}

// The unit of a marker of one unit; no unit for any other.
inline constexpr char32_t kNoUnit = 0x110000;
inline char32_t UnitOf(std::u16string_view marker) {
    return marker.size() == 1 ? marker[0] : kNoUnit;
}

// One unit each, different, and no unit that the passes read or write otherwise.
inline bool AreOrdinaryMarkers(std::u16string_view reph, std::u16string_view yaPhala) {
    const auto isOrdinary = [](std::u16string_view marker) {
        return marker.size() == 1 && ClassOf(marker[0]) == 0 && marker[0] != kUnitAa &&
               marker[0] != kUnitNonJoiner;
    };
    return isOrdinary(reph) && isOrdinary(yaPhala) && reph != yaPhala;
}

} // namespace bangla
