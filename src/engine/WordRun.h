// A line of cp1252 text word by word: the memo where it knows the word, the machine elsewhere.
#pragma once

#include "engine/Machine.h"
#include "engine/WordMemo.h"

#include <array>
#include <string_view>

class WordRun {
public:
    WordRun(Machine& machine, unsigned memoBits) : m_Machine(machine), m_Memo(memoBits) { m_Alike.fill(-1); }

    // Appends what the line at block[start] becomes. False where the machine gave up; output
    // then holds nothing of worth behind its old size.
    bool Convert(std::string_view block, std::size_t start, std::size_t length, UnitBuffer& output);

private:
    struct Word {
        std::size_t start, length;
        WordMemo::Key key;
    };
    static constexpr std::size_t kMostWords = 64; // looked up at a time

    std::size_t FindWords(std::string_view block, std::size_t at, std::size_t end);
    std::uint32_t RunWord(const Word& word, std::string_view block, bool isLast, bool keep,
                          std::uint32_t state, UnitBuffer& output);
    bool StartIsLikeQuiet(unsigned char byte);
    bool MemoPays(std::size_t length);

    Machine& m_Machine;
    WordMemo m_Memo;
    std::array<Word, kMostWords> m_Words;
    std::size_t m_WordCount = 0;
    // By first byte of a line: does it do what it does behind a blank? -1: not known yet.
    std::array<signed char, 256> m_Alike;
    std::size_t m_Asked = 0, m_Known = 0, m_BytesWithout = 0;
    UnitBuffer m_Last;
};
