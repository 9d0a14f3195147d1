// The RC4 stream cipher.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

class Rc4 {
public:
    // A key of 1 to 256 bytes.
    explicit Rc4(std::string_view key);

    // Enciphers or deciphers in place, going on where the last call stopped.
    void Apply(std::span<std::uint8_t> bytes);

private:
    std::array<std::uint8_t, 256> m_State;
    std::uint8_t m_I = 0;
    std::uint8_t m_J = 0;
};
