#include "engine/BanglaUnits.h"

namespace bangla {
namespace {

std::array<std::uint8_t, 128> Classes() {
    using namespace modBanglaChar;
    std::array<std::uint8_t, 128> classes{};
    for (std::size_t i = 0; i < classes.size(); ++i) {
        const char16_t unit = static_cast<char16_t>(0x0980 + i);
        const std::u16string_view c(&unit, 1);
        unsigned of = 0;
        if (IsVowelSign(c)) of |= kVowelSign;
        if (IsPostBaseSign(c)) of |= kPostBase;
        if (IsConsonant(c)) of |= kConsonant;
        if (c == Virama()) of |= kVirama;
        if (c == Candrabindu()) of |= kCandrabindu;
        if (c == SignU() || c == SignUu() || c == SignVocalicR()) of |= kUSign;
        if (c == SignE() || c == SignI() || c == SignAi()) of |= kPreBaseKar;
        if (unit == kUnitA) of |= kLetterA;
        classes[i] = static_cast<std::uint8_t>(of);
    }
    return classes;
}

} // namespace

const std::array<std::uint8_t, 128> kClasses = Classes();

} // namespace bangla
