#include "engine/Alphabet.h"

#include "base/Text.h"

#include <algorithm>

bool Alphabet::Build(std::u16string_view knownUnits) {
    m_Numbers.assign(0x10000, kForeign);
    m_Units.clear();
    for (int byte = 0; byte < 256; ++byte) {
        const char16_t unit = text::FromCp1252(static_cast<unsigned char>(byte));
        m_Numbers[unit] = static_cast<std::uint16_t>(byte);
        m_Units += unit;
    }
    m_Units.append(2, u'\0'); // kEnd and kForeign are no unit
    for (const char16_t unit : knownUnits) {
        if (m_Numbers[unit] != kForeign) continue;
        if (m_Units.size() > 0xFFFF) return false;
        m_Numbers[unit] = static_cast<std::uint16_t>(m_Units.size());
        m_Units += unit;
    }
    const auto foreign = std::find(m_Numbers.begin(), m_Numbers.end(), kForeign);
    m_Units[kForeign] = static_cast<char16_t>(foreign - m_Numbers.begin());
    return true;
}
