// A word between two blanks stands for itself if it leads the machine from the state behind a
// blank to that state again, and has not touched what stood before it: then its text depends on
// nothing else. Both are seen when the word is met the first time. No assumption about the table
// is needed; with a table that eats blanks, say, no word comes back to that state.
//
// The first word of a line begins in another state. Where its first byte leads to the same state
// with the same output, the word is the same too. The last word is followed by the end of the
// line and not by a blank; whether that makes a difference is found out when the word is stored.
//
// The words of a line are found first, and their places in the memo are fetched, before the
// first of them is looked up: most of the time would go by waiting for memory.
//
// Tested by tests/unit/engine/ConvertLines_test.cpp and Differential_test.cpp.

#include "engine/WordRun.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <span>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace {

constexpr std::size_t kLook = 16; // bytes looked at together for blanks
// The memo is left alone for a while where it knows too little of what it is asked.
constexpr std::size_t kTrial = 1u << 16, kPause = 4u << 20; // words, bytes

// A bit for each blank of the kLook bytes.
unsigned Blanks(const char* bytes) {
#if defined(__SSE2__)
    const __m128i loaded = _mm_loadu_si128(reinterpret_cast<const __m128i*>(bytes));
    return static_cast<unsigned>(_mm_movemask_epi8(_mm_cmpeq_epi8(loaded, _mm_set1_epi8(' '))));
#else
    unsigned mask = 0;
    for (std::size_t i = 0; i < kLook; ++i) mask |= static_cast<unsigned>(bytes[i] == ' ') << i;
    return mask;
#endif
}

} // namespace

// Fills m_Words with the words from at on; returns where the last of them ends.
std::size_t WordRun::FindWords(std::string_view block, std::size_t at, std::size_t end) {
    m_WordCount = 0;
    const auto add = [&](std::size_t wordEnd) {
        Word& word = m_Words[m_WordCount++];
        word.start = at;
        word.length = wordEnd - at;
        at = wordEnd + 1;
        word.key = {};
        if (word.length == 0 || word.length > WordMemo::kLongestKey) return;
        if (word.start + WordMemo::kReadAhead <= block.size()) {
            word.key = WordMemo::KeyOf(block.data() + word.start, word.length);
        } else {
            char copy[WordMemo::kReadAhead] = {};
            std::memcpy(copy, block.data() + word.start, word.length);
            word.key = WordMemo::KeyOf(copy, word.length);
        }
        m_Memo.Prefetch(word.key);
    };
    for (std::size_t look = at; look < end; look += kLook) {
        char copy[kLook] = {};
        const char* bytes = block.data() + look;
        if (look + kLook > block.size())
            bytes = static_cast<const char*>(std::memcpy(copy, bytes, end - look));
        unsigned blanks = Blanks(bytes);
        if (end - look < kLook) blanks &= (1u << (end - look)) - 1;
        for (; blanks != 0; blanks &= blanks - 1) {
            add(look + static_cast<std::size_t>(std::countr_zero(blanks)));
            if (m_WordCount == kMostWords) return at;
        }
    }
    add(end);
    return at;
}

bool WordRun::StartIsLikeQuiet(unsigned char byte) {
    if (m_Alike[byte] < 0) m_Alike[byte] = m_Machine.StartIsLikeQuiet(byte) ? 1 : 0;
    return m_Alike[byte] > 0;
}

bool WordRun::MemoPays(std::size_t length) {
    if (m_BytesWithout > 0) {
        m_BytesWithout -= std::min(m_BytesWithout, length);
        return false;
    }
    if (m_Asked >= kTrial) {
        if (m_Known < m_Asked / 2) m_BytesWithout = kPause;
        m_Asked = m_Known = 0;
    }
    return true;
}

bool WordRun::Convert(std::string_view block, std::size_t start, std::size_t length, UnitBuffer& output) {
    m_Machine.BeginLine(length);
    const std::size_t end = start + length;
    if (!MemoPays(length)) {
        const std::uint32_t state = m_Machine.Run(m_Machine.Start(), block.data() + start, length, output);
        return state != Machine::kGaveUp && m_Machine.Finish(state, output);
    }
    bool isQuiet = length > 0 && StartIsLikeQuiet(static_cast<unsigned char>(block[start]));
    std::uint32_t state = m_Machine.Start();
    for (std::size_t at = start; at <= end;) {
        at = FindWords(block, at, end);
        for (const Word& word : std::span(m_Words.data(), m_WordCount)) {
            const bool isLast = word.start + word.length == end;
            const bool isKey = isQuiet && word.key.high != 0;
            if (isKey) {
                ++m_Asked;
                const WordMemo::Entry* const entry = m_Memo.Find(word.key);
                if (entry != nullptr && (!isLast || entry->LastAlike())) {
                    ++m_Known;
                    entry->Put(output.Room(WordMemo::kMostUnits));
                    output.Add(entry->Length() - (isLast ? 1 : 0));
                    state = m_Machine.Quiet();
                    continue;
                }
            }
            state = RunWord(word, block, isLast, isKey, state, output);
            if (state == Machine::kGaveUp) return false;
            isQuiet = state == m_Machine.Quiet();
        }
    }
    return true;
}

// The word by the machine, with what follows it: a blank, or the end of the line. Returns the
// state behind that.
std::uint32_t WordRun::RunWord(const Word& word, std::string_view block, bool isLast, bool keep,
                               std::uint32_t state, UnitBuffer& output) {
    // The unit in front of the word is what the state behind a blank still holds on to.
    const std::size_t before = output.Size(), wall = before > 0 ? 1 : 0;
    const char16_t unitBefore = wall > 0 ? output.Data()[before - 1] : u'\0';
    state = m_Machine.Run(state, block.data() + word.start, word.length, output);
    if (state == Machine::kGaveUp) return state;
    if (isLast) return m_Machine.Finish(state, output) ? m_Machine.Quiet() : Machine::kGaveUp;
    const std::uint32_t behindWord = state;
    const std::size_t resets = m_Machine.Resets();
    const std::size_t tail = output.Size() - std::min(output.Size(), before - wall);
    if (keep) {
        m_Last.Clear();
        m_Last.Append(output.View().substr(output.Size() - tail));
    }
    const char blank = ' ';
    state = m_Machine.Run(state, &blank, 1, output);
    if (!keep || state != m_Machine.Quiet() || state == Machine::kGaveUp || output.Size() <= before)
        return state;
    if (wall > 0 && output.Data()[before - 1] != unitBefore) return state;

    const std::u16string_view text = output.View().substr(before);
    const bool finished = resets == m_Machine.Resets() && m_Machine.Finish(behindWord, m_Last);
    const bool lastAlike = finished && m_Last.Size() + 1 == wall + text.size() &&
                           m_Last.View().substr(wall) == text.substr(0, text.size() - 1);
    m_Memo.Add(word.key, text, lastAlike);
    return m_Machine.Quiet(); // Finish may have given it another number
}
