// The whole conversion as one table that is filled as it is used.
#pragma once

#include "engine/Alphabet.h"
#include "engine/OutputBuffer.h"
#include "engine/RuleChain.h"
#include "engine/Segments.h"
#include "engine/WorkCounter.h"

#include <cstdint>
#include <cstring>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct MachineLimits {
    std::size_t States = 1u << 16;
    std::size_t Transitions = 1u << 17;
    std::size_t KeyUnits = 4u << 20;
    std::size_t PoolUnits = 2u << 20;
    std::size_t Pending = 40;      // units that may wait for what comes behind them
    std::size_t NewPerLine = 4096; // transitions that a line may ask for, and ...
    std::size_t UnitsPerNew = 8;   // ... one more for each of so many units
    std::size_t NewInAll = 50000;  // that many do not matter; more than one for UnitsPerNew do
    std::size_t UnitsPerState = 8; // below that a full table was not worth its while
    std::size_t WorkPerNew = 256;  // of the rules; a transition that takes more counts as several
};

class Machine {
public:
    // All must outlive the machine. Without segments only the rules are applied.
    Machine(const Alphabet& alphabet, RuleChain& chain, Segments* segments, const MachineLimits& limits);

    // The state at the start of a line.
    std::uint32_t Start() const { return m_Start; }
    // Tells the length of the line that comes next; clears what is counted per line.
    void BeginLine(std::size_t length);
    // Goes on from state with some text of the line. Output gets what it becomes, its last units
    // may still change; out is where its next unit goes. Returns the state behind the text,
    // kGaveUp where the line has to be converted in another way.
    template <class Unit>
    std::uint32_t Run(std::uint32_t state, const Unit* text, std::size_t length, UnitBuffer& output);
    // The end of the line; false where the machine gave up.
    bool Finish(std::uint32_t state, UnitBuffer& output);
    // Why it gave up on this line: it asked for too many new transitions.
    bool LineAskedForTooMuch() const { return m_NewLeft == 0 || !m_Pays; }

    // False where the table asked for too many transitions for the text that came through it,
    // or was filled and thrown away before it was worth its while.
    bool Pays() const { return m_Pays; }

    static constexpr std::uint32_t kGaveUp = 0;

private:
    // What a machine knows at some place of a line: what the rules hold, and the canonical form
    // of the text at the end of the output that the passes may still change.
    struct State {
        std::vector<RuleChain::Progress> progress;
        std::u16string pending;
    };
    struct Slot {
        std::uint32_t state = 0; // kGaveUp: empty
        std::uint16_t number = 0;
        std::uint16_t length = 0; // of the output in units, and kRearranges
        std::uint32_t offset = 0; // of the output in the pool; behind it the rearrangement
        std::uint32_t next = 0;
        bool Is(std::uint32_t ofState, std::uint32_t ofNumber) const {
            return state == ofState && number == ofNumber;
        }
    };
    static constexpr std::uint16_t kRearranges = 0x8000;
    static constexpr std::size_t kStep = 8;   // units that one store copies
    static constexpr std::size_t kPiece = 64; // units between looks at the room
    // Room that the longest output or rearrangement of one step needs.
    static constexpr std::size_t kMostOutput = 4 * Segments::kMostUnits + kStep;
    static constexpr std::size_t kProbes = 8, kProbeStep = 1031;

    const Slot* Find(std::uint32_t state, std::uint32_t number);
    const Slot* Compute(std::uint32_t from, std::uint32_t number);
    bool Advance(State& state, std::uint32_t number);
    std::uint32_t Keep(std::u16string_view output, std::u16string_view rearranged, std::size_t oldLength);
    static char16_t* Rearrange(char16_t* out, const char16_t* program);
    void Insert(const Slot& slot);
    void Enlarge();
    void Reset();
    std::uint32_t StateNumber(const State& state);
    static void Unpack(std::u16string_view key, State& state);
    const Alphabet& m_Alphabet;
    RuleChain& m_Chain;
    Segments* m_Segments;
    MachineLimits m_Limits;

    std::vector<Slot> m_Slots;
    std::uint32_t m_Mask = 0;
    std::size_t m_TransitionCount = 0;
    std::u16string m_Pool;
    std::unordered_map<std::u16string, std::uint32_t> m_Kept; // outputs in the pool
    std::deque<std::u16string> m_Keys;                        // by state index
    std::unordered_map<std::u16string_view, std::uint32_t> m_States;
    std::size_t m_KeyUnits = 0;
    std::uint32_t m_Start = 0;

    std::size_t m_NewLeft = 0; // transitions that this line may still ask for
    std::uint64_t m_UnitsSinceReset = 0, m_UnitsInAll = 0, m_ComputedInAll = 0;
    bool m_Pays = true;
    // Kept between calls for their room.
    State m_Work;
    std::u16string m_Emitted, m_Rearranged, m_Key;
    std::size_t m_TailLength = 0;
};

// What is rearranged is a few units. The program: how many units it takes from the end of the
// output, how many it puts there, and these.
inline char16_t* Machine::Rearrange(char16_t* out, const char16_t* program) {
    char16_t old[Segments::kMostUnits];
    const std::size_t taken = program[0], put = program[1];
    CountWork(taken + put);
    out -= taken;
    // Nearly always a few units: one copy of known length, whose end does not matter.
    std::memcpy(old, out, kStep * sizeof(char16_t));
    if (taken > kStep) std::memcpy(old, out, taken * sizeof(char16_t));
    for (const char16_t* item = program + 2; item < program + 2 + put; ++item) {
        const unsigned place = *item - unsigned{Segments::kPlace};
        *out++ = place < Segments::kMostUnits ? old[place] : *item;
    }
    return out;
}

template <class Unit>
std::uint32_t Machine::Run(std::uint32_t state, const Unit* text, std::size_t length, UnitBuffer& output) {
    const Slot* slots = m_Slots.data();
    const char16_t* pool = m_Pool.data();
    std::uint32_t mask = m_Mask;
    const std::size_t before = output.Size();
    CountWork(length);
    for (const Unit* const end = text + length; text < end;) {
        const Unit* const pieceEnd =
            text + std::min<std::size_t>(kPiece, static_cast<std::size_t>(end - text));
        char16_t* out = output.Room(kPiece * kMostOutput);
        for (; text < pieceEnd; ++text) {
            const std::uint32_t number = m_Alphabet.NumberOf(*text);
            const Slot* slot = slots + ((state + number) & mask);
            if (!slot->Is(state, number)) [[unlikely]] {
                slot = Find(state, number);
                if (slot == nullptr) return kGaveUp;
                slots = m_Slots.data();
                pool = m_Pool.data();
                mask = m_Mask;
            }
            const char16_t* const from = pool + slot->offset;
            std::memcpy(out, from, kStep * sizeof(char16_t));
            std::size_t units = slot->length;
            state = slot->next;
            if (units > kStep || (sizeof(Unit) == 2 && number == Alphabet::kForeign)) [[unlikely]] {
                const bool rearranges = units & kRearranges;
                units &= ~std::size_t{kRearranges};
                if (units > kStep) std::memcpy(out, from, units * sizeof(char16_t));
                out += units;
                if (sizeof(Unit) == 2 && number == Alphabet::kForeign) *out++ = static_cast<char16_t>(*text);
                if (rearranges) out = Rearrange(out, from + units);
            } else {
                out += units;
            }
        }
        output.SetSize(static_cast<std::size_t>(out - output.Data()));
    }
    CountWork(output.Size() - before);
    return state;
}
