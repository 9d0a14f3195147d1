// A state is what the chain of rules holds, and the text at the end of the output that the
// passes may still change, without its letters (see Segments.cpp). A transition is one unit: it
// adds text to the output, may rearrange the end of it, and leads to the next state. It is
// computed when it is first asked for and then costs one look-up and one copy. As everything
// that lies behind a transition depends on its state and unit alone, the text comes out as from
// the line as a whole.
//
// Transitions lie in one open table. A state's number is where its row begins in it, taken
// round the table: rows overlap, and a slot says whose it is. The few whose slot is taken
// lie some fixed steps further.
//
// A state whose number is kGaveUp stays so for all units. It stands for what the machine does
// not do: a pass that fails, text that waits too long. A line that gets there is converted in
// another way.
//
// Tables that never come to the same state twice would be slower than rule after rule; a line
// that asks for too much gives up.
//
// Tested by tests/unit/engine/Differential_test.cpp.

#include "engine/Machine.h"

#include <algorithm>
#include <bit>

static_assert(std::endian::native == std::endian::little);

namespace {

// Odd, so that every index gets its own number; index 0 is kGaveUp.
constexpr std::uint32_t kSpread = 0x9E3779B1;
constexpr std::uint32_t Inverse(std::uint32_t odd) {
    std::uint32_t x = odd;
    for (int i = 0; i < 5; ++i) x *= 2 - odd * x;
    return x;
}
constexpr std::uint32_t kUnspread = Inverse(kSpread);
static_assert(kSpread * kUnspread == 1);

constexpr std::size_t kFirstSlots = 4096;
} // namespace

Machine::Machine(const Alphabet& alphabet, RuleChain& chain, Segments* segments, const MachineLimits& limits)
    : m_Alphabet(alphabet), m_Chain(chain), m_Segments(segments), m_Limits(limits) {
    Reset();
}

void Machine::BeginLine(std::size_t length) {
    m_NewLeft = m_Limits.NewPerLine + length / m_Limits.UnitsPerNew;
    m_UnitsSinceReset += length;
    m_UnitsInAll += length;
}

void Machine::Reset() {
    m_Slots.assign(kFirstSlots, Slot());
    m_Mask = kFirstSlots - 1;
    m_TransitionCount = 0;
    m_Pool.assign(kStep, 0); // kGaveUp's empty output
    m_Kept.clear();
    m_States.clear();
    m_Keys.assign(1, {}); // kGaveUp
    m_KeyUnits = 0;
    m_UnitsSinceReset = 0;
    m_Start = StateNumber(State());
}

std::uint32_t Machine::StateNumber(const State& state) {
    m_Key.clear();
    m_Key += static_cast<char16_t>(state.progress.size());
    for (const RuleChain::Progress& p : state.progress) {
        m_Key += static_cast<char16_t>(p.Rule);
        m_Key += static_cast<char16_t>(p.Matched);
        m_Key += static_cast<char16_t>(p.Matched >> 16);
    }
    m_Key += state.pending;
    CountWork(m_Key.size());
    const auto known = m_States.find(m_Key);
    if (known != m_States.end()) return known->second;
    const std::uint32_t number = static_cast<std::uint32_t>(m_Keys.size()) * kSpread;
    m_Keys.push_back(m_Key);
    m_KeyUnits += m_Key.size() + 64; // and what the maps need
    m_States.emplace(m_Keys.back(), number);
    return number;
}

void Machine::Unpack(std::u16string_view key, State& state) {
    state.progress.clear();
    std::size_t at = 1;
    for (std::size_t count = key[0]; count > 0; --count, at += 3)
        state.progress.push_back({key[at], key[at + 1] | std::uint32_t{key[at + 2]} << 16});
    state.pending = key.substr(at);
}

const Machine::Slot* Machine::Find(std::uint32_t state, std::uint32_t number) {
    for (std::size_t probe = 0; probe < kProbes; ++probe) {
        const Slot& slot = m_Slots[(state + number + probe * kProbeStep) & m_Mask];
        if (slot.Is(state, number)) return &slot;
    }
    return state == kGaveUp ? nullptr : Compute(state, number);
}

void Machine::Insert(const Slot& slot) {
    for (;;) {
        for (std::size_t probe = 0; probe < kProbes; ++probe) {
            Slot& place = m_Slots[(slot.state + slot.number + probe * kProbeStep) & m_Mask];
            if (place.state != kGaveUp) continue;
            place = slot;
            return;
        }
        Enlarge();
    }
}

void Machine::Enlarge() {
    std::vector<Slot> old(m_Slots.size() * 2);
    old.swap(m_Slots);
    m_Mask = static_cast<std::uint32_t>(m_Slots.size() - 1);
    for (const Slot& slot : old) {
        if (slot.state != kGaveUp) Insert(slot);
    }
}

// Puts output and what rearranges it into the pool, each pair once, and returns where.
std::uint32_t Machine::Keep(std::u16string_view output, std::u16string_view rearranged,
                            std::size_t oldLength) {
    m_Key.assign(output);
    if (!rearranged.empty()) {
        m_Key += static_cast<char16_t>(oldLength);
        m_Key += static_cast<char16_t>(rearranged.size());
        m_Key += rearranged;
    }
    const auto [kept, isNew] = m_Kept.try_emplace(m_Key, static_cast<std::uint32_t>(m_Pool.size() - kStep));
    if (isNew) {
        // The copying store reads kStep units from the offset on.
        m_Pool.resize(m_Pool.size() - kStep);
        m_Pool += m_Key;
        m_Pool.append(kStep, u'\0');
    }
    return kept->second;
}

const Machine::Slot* Machine::Compute(std::uint32_t from, std::uint32_t number) {
    if (m_ComputedInAll >= m_Limits.NewInAll && m_ComputedInAll * m_Limits.UnitsPerNew >= m_UnitsInAll)
        m_Pays = false;
    if (m_NewLeft == 0 || !m_Pays) return nullptr;
    Unpack(m_Keys[from * kUnspread], m_Work);
    const bool goesOn = Advance(m_Work, number);
    const std::size_t asWork = 1 + m_Chain.Work() / m_Limits.WorkPerNew;
    m_ComputedInAll += asWork;
    m_NewLeft -= std::min(m_NewLeft, asWork);
    if (m_TransitionCount >= m_Limits.Transitions || m_Keys.size() >= m_Limits.States ||
        m_KeyUnits >= m_Limits.KeyUnits || m_Pool.size() >= m_Limits.PoolUnits) {
        if (m_UnitsSinceReset < m_Limits.UnitsPerState * m_Keys.size()) m_Pays = false;
        State state;
        Unpack(m_Keys[from * kUnspread], state);
        Reset();
        from = StateNumber(state);
    }
    Slot slot;
    slot.state = from;
    slot.number = static_cast<std::uint16_t>(number);
    if (goesOn) {
        slot.next = StateNumber(m_Work);
        slot.length = static_cast<std::uint16_t>(m_Emitted.size() | (m_Rearranged.empty() ? 0 : kRearranges));
        slot.offset = Keep(m_Emitted, m_Rearranged, m_TailLength);
    }
    ++m_TransitionCount;
    if (m_TransitionCount * 3 > m_Slots.size()) Enlarge();
    Insert(slot);
    for (std::size_t probe = 0;; ++probe) {
        const Slot& placed = m_Slots[(from + number + probe * kProbeStep) & m_Mask];
        if (placed.Is(from, number)) return &placed;
    }
}

// One step: state becomes the next one, m_Emitted is what goes to the output, m_Rearranged what
// becomes of its last m_TailLength units. False where the machine gives up.
bool Machine::Advance(State& state, std::uint32_t number) {
    const bool isEnd = number == Alphabet::kEnd, isForeign = number == Alphabet::kForeign;
    m_Chain.SetProgress(state.progress);
    m_Emitted.clear();
    m_Rearranged.clear();
    if (isEnd || isForeign) {
        // A unit that no rule knows makes every rule let go, as the end of the line does.
        m_Chain.Finish(m_Emitted);
    } else {
        m_Chain.Push(m_Alphabet.UnitOf(number), m_Emitted);
        m_Chain.Settle(m_Emitted);
    }
    if (!m_Chain.Completed() || m_Emitted.size() > Segments::kMostUnits) return false;
    m_Chain.GetProgress(state.progress);
    if (m_Segments == nullptr) return true;
    state.pending += m_Emitted;
    if (isForeign) state.pending += m_Alphabet.UnitOf(number);
    if (!m_Segments->Canonical(state.pending)) return false;
    m_TailLength = state.pending.size();
    CountWork(m_TailLength);
    if (!m_Segments->TakeSettled(state.pending, m_Chain.NextOut(), isEnd, m_Rearranged)) return false;
    m_Segments->Canonical(state.pending);
    return state.pending.size() <= m_Limits.Pending;
}

bool Machine::Finish(std::uint32_t state, UnitBuffer& output) {
    const Slot* slot = &m_Slots[(state + Alphabet::kEnd) & m_Mask];
    if (!slot->Is(state, Alphabet::kEnd)) slot = Find(state, Alphabet::kEnd);
    if (slot == nullptr || slot->next == kGaveUp) return false;
    char16_t* out = output.Room(kMostOutput);
    const std::size_t units = slot->length & ~kRearranges;
    const char16_t* const from = m_Pool.data() + slot->offset;
    std::memcpy(out, from, units * sizeof(char16_t));
    out += units;
    if (slot->length & kRearranges) out = Rearrange(out, from + units);
    output.SetSize(static_cast<std::size_t>(out - output.Data()));
    return true;
}
