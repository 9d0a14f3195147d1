// Two entries of 32 bytes share a cache line and a place. The one that came first keeps way 0
// and newcomers replace each other in way 1; every sixteenth newcomer pushes way 0 down. Frequent
// words come early, so this keeps them, and a change of subject still gets through.
//
// Text is kept as one byte for a unit: 20 to 7F as it is, 80 to FF for U+0980 to U+09FF, 00 to 1F
// for U+0960 to U+097F. A word with other units is not kept. The memo begins small, so that a
// short text does not pay for a large one.
//
// Tested by tests/unit/engine/WordMemo_test.cpp and Differential_test.cpp.

#include "engine/WordMemo.h"

#include <algorithm>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

constexpr unsigned kFirstBits = 9;
constexpr std::uint64_t kLastAlike = std::uint64_t{1} << 63;

int Pack(char16_t unit) {
    if (unit >= 0x20 && unit < 0x80) return unit;
    if (unit >= 0x980 && unit < 0xA00) return unit - 0x900;
    if (unit >= 0x960 && unit < 0x980) return unit - 0x960;
    return -1;
}

} // namespace

WordMemo::WordMemo(unsigned mostBits)
    : m_Bits(std::min(kFirstBits, mostBits)), m_MostBits(mostBits), m_Shift(64 - m_Bits) {
    m_Pairs = std::make_unique<Pair[]>(std::size_t{1} << m_Bits);
}

WordMemo::~WordMemo() = default;

void WordMemo::Entry::Put(char16_t* out) const {
#if defined(__SSE2__)
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(packed));
    const __m128i bangla = _mm_cmplt_epi8(bytes, _mm_setzero_si128());
    const __m128i danda =
        _mm_cmpeq_epi8(_mm_and_si128(bytes, _mm_set1_epi8(static_cast<char>(0xE0))), _mm_setzero_si128());
    const __m128i lowBytes = _mm_or_si128(bytes, _mm_and_si128(danda, _mm_set1_epi8(0x60)));
    const __m128i highBytes = _mm_and_si128(_mm_or_si128(bangla, danda), _mm_set1_epi8(0x09));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out), _mm_unpacklo_epi8(lowBytes, highBytes));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 8), _mm_unpackhi_epi8(lowBytes, highBytes));
#else
    for (std::size_t i = 0; i < kMostUnits; ++i) {
        const unsigned byte = packed[i];
        out[i] = static_cast<char16_t>(byte < 0x20 ? byte + 0x960 : byte < 0x80 ? byte : byte + 0x900);
    }
#endif
}

WordMemo::Key WordMemo::KeyOf(const char* word, std::size_t length) {
    Key key;
    std::memcpy(&key.low, word, 8);
    std::memcpy(&key.high, word + 8, 8);
    if (length < 8) {
        key.low &= ~(~std::uint64_t{0} << (length * 8));
        key.high = 0;
    } else {
        key.high &= ~(~std::uint64_t{0} << ((length - 8) * 8));
    }
    // The length tells words with NULs at their end apart, and a key from none.
    key.high |= static_cast<std::uint64_t>(length) << 48;
    return key;
}

void WordMemo::Add(const Key& key, std::u16string_view text, bool lastAlike) {
    if (text.size() > kMostUnits) return;
    Entry entry;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int byte = Pack(text[i]);
        if (byte < 0) return;
        entry.packed[i] = static_cast<unsigned char>(byte);
    }
    entry.low = key.low;
    entry.high = key.high | static_cast<std::uint64_t>(text.size()) << 56 | (lastAlike ? kLastAlike : 0);
    if (m_Added > (std::size_t{1} << m_Bits) && m_Bits < m_MostBits) Enlarge();
    Put(entry);
}

void WordMemo::Put(const Entry& entry) {
    Pair& set = m_Pairs[Place(entry.low, entry.high & kKeyMask)];
    if (set.ways[0].high == 0) {
        set.ways[0] = entry;
    } else if (++m_Added % 16 == 0) {
        set.ways[1] = set.ways[0];
        set.ways[0] = entry;
    } else {
        set.ways[1] = entry;
    }
}

void WordMemo::Enlarge() {
    const std::size_t count = std::size_t{1} << m_Bits;
    const std::unique_ptr<Pair[]> old = std::move(m_Pairs);
    m_Bits = std::min(m_Bits + 2, m_MostBits);
    m_Shift = 64 - m_Bits;
    m_Pairs = std::make_unique<Pair[]>(std::size_t{1} << m_Bits);
    m_Added = 0;
    for (std::size_t way = 0; way < 2; ++way) {
        for (std::size_t i = 0; i < count; ++i) {
            if (old[i].ways[way].high != 0) Put(old[i].ways[way]);
        }
    }
    m_Added = 0;
}
