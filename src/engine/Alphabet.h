// Numbers for the code units that a table tells apart.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class Alphabet {
public:
    // Numbers 0 to 255 are the bytes of the ANSI code page. kEnd stands for the end of the
    // line, kForeign for every unit that neither a rule nor a pass knows.
    static constexpr std::uint32_t kEnd = 256, kForeign = 257;

    // False where there are more units than numbers.
    bool Build(std::u16string_view knownUnits);
    std::uint32_t NumberOf(char byte) const { return static_cast<unsigned char>(byte); }
    std::uint32_t NumberOf(char16_t unit) const { return m_Numbers[unit]; }
    // Not for kEnd. For kForeign one of its units.
    char16_t UnitOf(std::uint32_t number) const { return m_Units[number]; }

private:
    std::vector<std::uint16_t> m_Numbers; // by unit
    std::u16string m_Units;               // by number
};
