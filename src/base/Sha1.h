// SHA-1 (FIPS 180-4).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

class Sha1 {
public:
    using Digest = std::array<std::uint8_t, 20>;

    void Add(std::string_view bytes);
    // The digest of all bytes added; the object is used up.
    Digest Finish();

    static Digest Of(std::string_view bytes);

private:
    void AddBlock(const std::uint8_t* block);

    std::array<std::uint32_t, 5> m_State{0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476, 0xC3D2E1F0};
    std::array<std::uint8_t, 64> m_Block{};
    std::uint64_t m_Length = 0; // bytes added
};
