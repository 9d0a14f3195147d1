// Tested by tests/unit/base/sha1_test.cpp.

#include "base/Sha1.h"

#include <bit>

void Sha1::AddBlock(const std::uint8_t* block) {
    std::uint32_t w[80];
    for (std::size_t i = 0; i < 16; ++i)
        w[i] = std::uint32_t{block[4 * i]} << 24 | std::uint32_t{block[4 * i + 1]} << 16 |
               std::uint32_t{block[4 * i + 2]} << 8 | block[4 * i + 3];
    for (int i = 16; i < 80; ++i) w[i] = std::rotl(w[i - 3] ^ w[i - 8] ^ w[i - 14] ^ w[i - 16], 1);

    auto [a, b, c, d, e] = m_State;
    for (int i = 0; i < 80; ++i) {
        std::uint32_t f, k;
        if (i < 20) {
            f = (b & c) | (~b & d);
            k = 0x5A827999;
        } else if (i < 40) {
            f = b ^ c ^ d;
            k = 0x6ED9EBA1;
        } else if (i < 60) {
            f = (b & c) | (b & d) | (c & d);
            k = 0x8F1BBCDC;
        } else {
            f = b ^ c ^ d;
            k = 0xCA62C1D6;
        }
        const std::uint32_t next = std::rotl(a, 5) + f + e + k + w[i];
        e = d;
        d = c;
        c = std::rotl(b, 30);
        b = a;
        a = next;
    }
    m_State[0] += a;
    m_State[1] += b;
    m_State[2] += c;
    m_State[3] += d;
    m_State[4] += e;
}

void Sha1::Add(std::string_view bytes) {
    for (const char byte : bytes) {
        m_Block[m_Length++ % 64] = static_cast<std::uint8_t>(byte);
        if (m_Length % 64 == 0) AddBlock(m_Block.data());
    }
}

Sha1::Digest Sha1::Finish() {
    const std::uint64_t bits = m_Length * 8;
    Add("\x80");
    while (m_Length % 64 != 56) Add(std::string_view("\0", 1));
    for (int shift = 56; shift >= 0; shift -= 8) {
        const char byte = static_cast<char>(bits >> shift);
        Add(std::string_view(&byte, 1));
    }
    Digest digest;
    for (std::size_t i = 0; i < digest.size(); ++i)
        digest[i] = static_cast<std::uint8_t>(m_State[i / 4] >> (24 - 8 * (i % 4)));
    return digest;
}

Sha1::Digest Sha1::Of(std::string_view bytes) {
    Sha1 sha;
    sha.Add(bytes);
    return sha.Finish();
}
