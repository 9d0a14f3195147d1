// Remembers what words of cp1252 text become.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

class WordMemo {
public:
    static constexpr std::size_t kLongestKey = 14; // bytes
    static constexpr std::size_t kMostUnits = 16;  // units that Put writes
    static constexpr std::size_t kReadAhead = 16;  // bytes that Key reads from the start of a word

    struct Key {
        std::uint64_t low, high;
    };
    // Text of a word with the blank behind it. LastAlike says that at the end of the line the
    // word becomes the same without the blank's unit.
    struct Entry {
        std::uint64_t low = 0;
        std::uint64_t high = 0; // bytes 8 to 13, then the length of the key; 0 for none
        unsigned char packed[kMostUnits] = {};

        std::size_t Length() const { return high >> 56 & 0x1F; }
        bool LastAlike() const { return high >> 63; }
        // Writes kMostUnits units, of which the first Length() count.
        void Put(char16_t* out) const;
    };

    // mostBits: it grows to 2 to this power of entries and no further.
    explicit WordMemo(unsigned mostBits);
    ~WordMemo();
    WordMemo(const WordMemo&) = delete;
    WordMemo& operator=(const WordMemo&) = delete;

    // length is 1 to kLongestKey; kReadAhead bytes must be readable.
    static Key KeyOf(const char* word, std::size_t length);
    void Prefetch(const Key& key) const { __builtin_prefetch(&Set(key)); }
    const Entry* Find(const Key& key) const {
        const Pair& set = Set(key);
        const bool first = Holds(set.ways[0], key), second = Holds(set.ways[1], key);
        return first || second ? &set.ways[second] : nullptr;
    }
    // Does nothing for text that cannot be packed.
    void Add(const Key& key, std::u16string_view text, bool lastAlike);

private:
    struct alignas(64) Pair {
        Entry ways[2];
    };
    static constexpr std::uint64_t kKeyMask = 0x00FFFFFFFFFFFFFF;

    static bool Holds(const Entry& entry, const Key& key) {
        return ((entry.low ^ key.low) | ((entry.high & kKeyMask) ^ key.high)) == 0;
    }
    std::size_t Place(std::uint64_t low, std::uint64_t high) const {
        return (low * 0x9E3779B97F4A7C15u + high * 0xC2B2AE3D27D4EB4Fu) >> m_Shift;
    }
    const Pair& Set(const Key& key) const { return m_Pairs[Place(key.low, key.high)]; }
    void Put(const Entry& entry);
    void Enlarge();

    std::unique_ptr<Pair[]> m_Pairs;
    unsigned m_Bits; // of the number of pairs
    unsigned m_MostBits;
    unsigned m_Shift;
    std::size_t m_Added = 0;
};
