// Tested by tests/unit/base/rc4_test.cpp.

#include "base/Rc4.h"

#include <utility>

Rc4::Rc4(std::string_view key) {
    for (int i = 0; i < 256; ++i) m_State[i] = static_cast<std::uint8_t>(i);
    std::uint8_t j = 0;
    for (int i = 0; i < 256; ++i) {
        j = static_cast<std::uint8_t>(j + m_State[i] + static_cast<std::uint8_t>(key[i % key.size()]));
        std::swap(m_State[i], m_State[j]);
    }
}

void Rc4::Apply(std::span<std::uint8_t> bytes) {
    for (std::uint8_t& byte : bytes) {
        m_J = static_cast<std::uint8_t>(m_J + m_State[++m_I]);
        std::swap(m_State[m_I], m_State[m_J]);
        byte ^= m_State[static_cast<std::uint8_t>(m_State[m_I] + m_State[m_J])];
    }
}
