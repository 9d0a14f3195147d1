// Rules and passes as one table that is filled as it is used: a look-up for each byte of
// cp1252 text, several lines at a time.
#pragma once

#include "engine/Blocks.h"
#include "engine/OutputBuffer.h"
#include "engine/RuleChain.h"
#include "engine/SyllablePasses.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class SyllableMachine {
public:
    // Converts one line by other means and appends it; for lines that the machine does not take.
    using OtherWay = std::function<void(std::string_view line, OutputBuffer& output)>;

    // chain must outlive the machine; the passes are for its table's markers.
    SyllableMachine(RuleChain& chain, const SyllablePasses& passes, OutputEncoding encoding);

    // Converts a block of whole lines and appends them to output, their ends as they stood.
    // False with output as it was where it is better converted line by line: it is very short
    // or long, or a line fails (otherWay raises).
    bool ConvertBlock(std::string_view block, LineEnd cut, OutputBuffer& output, const OtherWay& otherWay);

    // The table grew too much for the text that came through it.
    bool Pays() const { return m_Pays; }
    std::size_t StateCount() const { return m_Keys.size(); }

private:
    static constexpr std::size_t kColumns = 257; // the bytes and the end of a line
    static constexpr std::size_t kRowSize = 264;
    // Bytes that a step writes at most: eight units.
    static constexpr std::size_t kUtf16Step = 16, kUtf8Step = 24;
    static constexpr std::size_t kLanes = 6;

    // A step: go to the row at `next` and write `length` bytes. The high bits of `length` say
    // more: see the constants in the source.
    struct Entry {
        std::uint32_t next;
        std::uint16_t text;
        std::uint16_t length;
    };
    struct Lanes;

    void Learn(std::string_view block);
    void Reset();
    std::uint32_t RowOf(const std::vector<RuleChain::Progress>& progress, SyllablePasses::State state);
    Entry Compute(std::uint32_t row, unsigned column);
    bool PutAll(std::u16string_view units, SyllablePasses::State& state, SyllableOutput& output) const;
    bool Encode(const SyllableOutput& made, Entry& entry);
    // The step for what stands in column. Computes it, and puts rephs in front of the last cluster
    // of the line, which was written from lineOut to out, where it must; out is then moved on.
    // Gives the line up where that cluster is too long.
    struct Step {
        Entry entry;
        char* out;
    };
    Step Unusual(std::uint32_t row, unsigned column, const char* lineOut, char* out);
    char* ClusterStart(const char* lineOut, char* out) const;
    template <std::size_t kCount>
    void Walk(Lanes& lanes, std::size_t first, std::size_t steps);
    template <std::size_t kCount, std::size_t kStep>
    void WalkSteps(Lanes& lanes, std::size_t first, std::size_t steps);
    bool EndLine(Lanes& lanes, std::size_t lane, const OtherWay& otherWay);

    RuleChain& m_Chain;
    const SyllablePasses& m_Passes;
    OutputEncoding m_Encoding;
    std::size_t m_Step;
    bool m_Learnt = false;
    bool m_Pays = true;

    std::array<std::uint8_t, 256> m_Columns{}; // by byte; frequent bytes stand together
    std::array<std::uint8_t, 256> m_Bytes{};   // by column
    std::vector<Entry> m_Rows;                 // row 0 is where the machine has given up
    std::vector<char> m_Texts;                 // of m_Step bytes each
    std::vector<std::u16string> m_Keys;        // by row
    std::size_t m_KeyUnits = 0;
    std::unordered_map<std::u16string, std::uint32_t> m_RowByKey;
    std::unordered_map<std::string, std::uint16_t> m_TextByBytes;
    std::uint32_t m_Start = 0;
    std::size_t m_Computed = 0;
    std::uint64_t m_BytesSeen = 0;

    std::unique_ptr<char[]> m_Scratch; // where the lanes write
    std::size_t m_ScratchSize = 0;
    OutputBuffer m_Other;
    std::vector<RuleChain::Progress> m_Progress;
    std::u16string m_Emitted;
};
