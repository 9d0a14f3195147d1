// A row is what the chain of rules holds and where the passes are in their syllable; a step is
// a byte, what becomes certain by it, and the next row. It is computed when it is first asked
// for, and is then a load, a store and two additions. What costs time is that each load has to
// wait for the one before it; so a block is cut into lanes that are walked side by side, each
// with lines of its own.
//
// A line that comes to row 0 stays there and is converted in another way: it is not as text
// is usually written (SyllablePasses), a reph would have to go back over more than a cluster
// of some units, or the table has grown too much.
//
// Tested by tests/unit/engine/SyllableMachine_test.cpp, Differential_test.cpp and
// HostileBlocks_test.cpp.

#include "engine/SyllableMachine.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "engine/BanglaUnits.h"
#include "engine/WorkCounter.h"

#include <algorithm>
#include <cstring>
#include <numeric>

namespace {

// Entry::length: 0 to 24 as it is; above that, what makes a step unusual.
constexpr std::uint16_t kLengthBits = 31;
constexpr unsigned kRephShift = 5;
constexpr std::uint16_t kMissing = 0x80;
constexpr unsigned kMostRephs = 3;

constexpr std::size_t kMostRows = 8192;
constexpr std::size_t kMostTexts = 60000;
// So many steps may be computed in any case, and one more for each of so many bytes.
constexpr std::size_t kFreeSteps = 50000;
constexpr std::size_t kBytesPerStep = 16;
// Of the rules; a step that takes more counts as several.
constexpr std::size_t kWorkPerStep = 256;
constexpr std::size_t kMostKeyUnits = 4u << 20;

// A reph goes back over so many units at most, the pairs of earlier ones included. No word has
// half of it; a line of nothing but rephs would be walked and moved as a whole for each.
constexpr std::ptrdiff_t kLongestCluster = 24;

// Below this a block is not worth the lanes, above it their buffers not the memory.
constexpr std::size_t kShortestBlock = 256;
constexpr std::size_t kLongestBlock = 1 << 20;
// Output of a byte of input, its line's end included.
constexpr std::size_t kMostPerByte = 28;
// Behind a lane's output; a step stores more than it writes.
constexpr std::size_t kSpare = 128;

} // namespace

struct SyllableMachine::Lanes {
    struct Lane {
        const char* line = nullptr; // start of the line
        const char* end = nullptr;  // of its text
        const char* next = nullptr; // start of the next line
        const char* last = nullptr; // end of the lane
        char* lineOut = nullptr;
        char* first = nullptr;
        char* limit = nullptr;
    };
    Lane lane[kLanes];
    const char* at[kLanes] = {};
    char* out[kLanes] = {};
    std::uint32_t row[kLanes] = {};
    LineEnd cut{};
    std::uint32_t start = 0;

    // Steps to the end of the line.
    std::size_t Left(std::size_t i) const { return static_cast<std::size_t>(lane[i].end - at[i]); }
    // False where the lane has come to its end.
    bool BeginLine(std::size_t i) {
        Lane& l = lane[i];
        l.line = at[i];
        l.lineOut = out[i];
        row[i] = start;
        if (l.line == l.last) return false;
        const char* lf = l.line;
        do {
            lf = static_cast<const char*>(std::memchr(lf, '\n', static_cast<std::size_t>(l.last - lf)));
            if (lf == nullptr) {
                l.end = l.next = l.last;
                break;
            }
            l.next = ++lf;
            l.end = lf - (lf - l.line > 1 && lf[-2] == '\r' ? 2 : 1);
        } while (cut == LineEnd::CrLf && l.next - l.end != 2);
        CountWork(static_cast<std::size_t>(l.next - l.line));
        return true;
    }
};

SyllableMachine::SyllableMachine(RuleChain& chain, const SyllablePasses& passes, OutputEncoding encoding)
    : m_Chain(chain), m_Passes(passes), m_Encoding(encoding),
      m_Step(encoding == OutputEncoding::Utf16 ? kUtf16Step : kUtf8Step) {}

// Columns in the order of the bytes' frequency, so that what is used lies together.
void SyllableMachine::Learn(std::string_view block) {
    std::array<std::size_t, 256> count{};
    for (const char byte : block.substr(0, 65536)) ++count[static_cast<unsigned char>(byte)];
    std::iota(m_Bytes.begin(), m_Bytes.end(), std::uint8_t{0});
    std::stable_sort(m_Bytes.begin(), m_Bytes.end(),
                     [&](std::uint8_t a, std::uint8_t b) { return count[a] > count[b]; });
    for (std::size_t column = 0; column < 256; ++column)
        m_Columns[m_Bytes[column]] = static_cast<std::uint8_t>(column);
    m_Learnt = true;
    Reset();
}

void SyllableMachine::Reset() {
    m_Rows.assign(kRowSize, Entry{0, 0, 0});
    m_Texts.assign(m_Step, 0);
    m_Keys.assign(1, {});
    m_KeyUnits = 0;
    m_RowByKey.clear();
    m_TextByBytes.clear();
    m_Progress.clear();
    m_Start = RowOf(m_Progress, SyllablePasses::kStart);
}

std::uint32_t SyllableMachine::RowOf(const std::vector<RuleChain::Progress>& progress,
                                     SyllablePasses::State state) {
    std::u16string key(1, static_cast<char16_t>(state));
    for (const RuleChain::Progress& p : progress) {
        key += static_cast<char16_t>(p.Rule);
        key += static_cast<char16_t>(p.Matched);
        key += static_cast<char16_t>(p.Matched >> 16);
    }
    CountWork(key.size());
    const auto known = m_RowByKey.find(key);
    if (known != m_RowByKey.end()) return known->second;
    if (m_Keys.size() >= kMostRows || m_KeyUnits >= kMostKeyUnits) return 0;
    m_KeyUnits += key.size();
    const auto row = static_cast<std::uint32_t>(m_Rows.size());
    m_Rows.resize(m_Rows.size() + kRowSize, Entry{0, 0, kMissing});
    m_Keys.push_back(key);
    m_RowByKey.emplace(std::move(key), row);
    return row;
}

bool SyllableMachine::PutAll(std::u16string_view units, SyllablePasses::State& state,
                             SyllableOutput& output) const {
    for (const char16_t unit : units) {
        // More than a step holds in any encoding.
        if (output.Units.size() > m_Step) return false;
        if (!m_Passes.Put(state, unit, output)) return false;
    }
    return true;
}

bool SyllableMachine::Encode(const SyllableOutput& made, Entry& entry) {
    const bool wide = m_Encoding == OutputEncoding::Utf16;
    for (const char16_t unit : made.Units) {
        if (!wide && (unit & 0xF800) == 0xD800) return false; // its other half may be in another step
    }
    auto encode = [wide](std::u16string_view units) {
        return wide ? text::ToUtf16Le(units) : text::ToUtf8(units);
    };
    const std::string bytes = encode(made.Units);
    const std::size_t pair = wide ? 4 : 6;
    if (bytes.size() + made.Rephs * pair > m_Step || made.Rephs > kMostRephs) return false;
    auto [known, isNew] =
        m_TextByBytes.try_emplace(bytes, static_cast<std::uint16_t>(m_Texts.size() / m_Step));
    if (isNew) {
        if (m_Texts.size() / m_Step >= kMostTexts) return false;
        m_Texts.insert(m_Texts.end(), bytes.begin(), bytes.end());
        m_Texts.resize(m_Texts.size() + m_Step - bytes.size());
    }
    entry.text = known->second;
    entry.length = static_cast<std::uint16_t>(bytes.size() | made.Rephs << kRephShift);
    return true;
}

SyllableMachine::Entry SyllableMachine::Compute(std::uint32_t row, unsigned column) {
    const Entry givenUp{0, 0, 0};
    if (m_Computed >= kFreeSteps + m_BytesSeen / kBytesPerStep) {
        m_Pays = false;
        return givenUp;
    }
    const std::u16string key = m_Keys[row / kRowSize];
    m_Progress.clear();
    for (std::size_t at = 1; at < key.size(); at += 3)
        m_Progress.push_back({key[at], key[at + 1] | std::uint32_t{key[at + 2]} << 16});
    SyllablePasses::State state = key[0];
    SyllableOutput made;
    m_Chain.SetProgress(m_Progress);
    m_Emitted.clear();
    const bool isEnd = column == kColumns - 1;
    if (isEnd) {
        m_Chain.Finish(m_Emitted);
    } else {
        m_Chain.Push(text::FromCp1252(m_Bytes[column]), m_Emitted);
        m_Chain.Settle(m_Emitted);
    }
    bool usual = m_Chain.Completed();
    m_Chain.GetProgress(m_Progress);
    m_Computed += 1 + m_Chain.Work() / kWorkPerStep;
    Entry entry = givenUp;
    usual = usual && PutAll(m_Emitted, state, made);
    if (usual && isEnd) usual = m_Passes.End(state, made);
    if (usual && Encode(made, entry)) entry.next = isEnd ? m_Start : RowOf(m_Progress, state);
    if (entry.next == 0) entry = givenUp;
    m_Rows[row + column] = entry;
    return entry;
}

// A cluster is consonants with viramas between; a virama or vowel signs may stand behind it.
// Null where it is too long.
char* SyllableMachine::ClusterStart(const char* lineOut, char* out) const {
    const bool wide = m_Encoding == OutputEncoding::Utf16;
    const std::ptrdiff_t size = wide ? 2 : 3;
    const bool allInReach = out - lineOut <= kLongestCluster * size;
    const char* const reach = allInReach ? lineOut : out - kLongestCluster * size;
    // 0 for what is no unit of three bytes, and beyond reach.
    const auto before = [&](const char* place) -> std::uint8_t {
        if (place - reach < size) return 0;
        CountWork(1);
        const auto byte = [&](int i) { return static_cast<unsigned char>(place[i]); };
        if (wide) return bangla::ClassOf(static_cast<char16_t>(byte(-2) | byte(-1) << 8));
        if ((byte(-3) & 0xF0) != 0xE0) return 0;
        return bangla::ClassOf(
            static_cast<char16_t>((byte(-3) & 0xF) << 12 | (byte(-2) & 0x3F) << 6 | (byte(-1) & 0x3F)));
    };
    while (before(out) & (bangla::kVowelSign | bangla::kCandrabindu)) out -= size;
    if (before(out) & bangla::kVirama) out -= size;
    if (before(out) & bangla::kConsonant) out -= size;
    while ((before(out) & bangla::kVirama) && (before(out - size) & bangla::kConsonant)) out -= 2 * size;
    // Beyond reach, the units that ended the walk would not have been seen.
    return allInReach || out - reach >= 2 * size ? out : nullptr;
}

SyllableMachine::Step SyllableMachine::Unusual(std::uint32_t row, unsigned column, const char* lineOut,
                                               char* out) {
    Entry entry = m_Rows[row + column];
    if (entry.length & kMissing) entry = Compute(row, column);
    const std::size_t rephs = entry.length >> kRephShift;
    if (rephs > 0) {
        const char* const pair =
            m_Encoding == OutputEncoding::Utf16 ? "\xB0\x09\xCD\x09" : "\xE0\xA6\xB0\xE0\xA7\x8D";
        const std::size_t length = m_Encoding == OutputEncoding::Utf16 ? 4 : 6;
        char* const cluster = ClusterStart(lineOut, out);
        if (cluster == nullptr) return {Entry{0, 0, 0}, out};
        CountWork(static_cast<std::size_t>(out - cluster) / 2 + 2 * rephs);
        std::memmove(cluster + rephs * length, cluster, static_cast<std::size_t>(out - cluster));
        for (std::size_t i = 0; i < rephs; ++i) std::memcpy(cluster + i * length, pair, length);
        out += rephs * length;
        entry.length &= kLengthBits;
    }
    return {entry, out};
}

// Takes so many steps in each of the lanes from `first` on.
template <std::size_t kCount>
void SyllableMachine::Walk(Lanes& lanes, std::size_t first, std::size_t steps) {
    if (m_Step == kUtf16Step)
        WalkSteps<kCount, kUtf16Step>(lanes, first, steps);
    else
        WalkSteps<kCount, kUtf8Step>(lanes, first, steps);
}

template <std::size_t kCount, std::size_t kStep>
void SyllableMachine::WalkSteps(Lanes& lanes, std::size_t first, std::size_t steps) {
    const char* at[kCount];
    char* out[kCount];
    std::uint32_t row[kCount];
    CountWork(kCount * steps);
    for (std::size_t k = 0; k < kCount; ++k) {
        at[k] = lanes.at[first + k];
        out[k] = lanes.out[first + k];
        row[k] = lanes.row[first + k];
    }
    const Entry* rows = m_Rows.data();
    const char* texts = m_Texts.data();
    for (std::size_t i = 0; i < steps; ++i) {
#pragma GCC unroll 8
        for (std::size_t k = 0; k < kCount; ++k) {
            const unsigned column = m_Columns[static_cast<unsigned char>(at[k][i])];
            Entry entry = rows[row[k] + column];
            if (entry.length > kStep) [[unlikely]] {
                const Step step = Unusual(row[k], column, lanes.lane[first + k].lineOut, out[k]);
                entry = step.entry;
                out[k] = step.out;
                rows = m_Rows.data();
                texts = m_Texts.data();
            }
            std::memcpy(out[k], texts + entry.text * kStep, kStep);
            out[k] += entry.length;
            row[k] = entry.next;
        }
    }
    for (std::size_t k = 0; k < kCount; ++k) {
        lanes.at[first + k] += steps;
        lanes.out[first + k] = out[k];
        lanes.row[first + k] = row[k];
    }
}

// The end of a lane's line: what waited, and CR LF or LF. False where there is no room.
bool SyllableMachine::EndLine(Lanes& lanes, std::size_t lane, const OtherWay& otherWay) {
    Lanes::Lane& l = lanes.lane[lane];
    char*& out = lanes.out[lane];
    Entry entry = m_Rows[lanes.row[lane] + kColumns - 1];
    if (entry.length > m_Step) {
        const Step step = Unusual(lanes.row[lane], kColumns - 1, l.lineOut, out);
        entry = step.entry;
        out = step.out;
    }
    std::memcpy(out, &m_Texts[entry.text * m_Step], m_Step);
    out += entry.length;
    CountWork(1);
    if (entry.next == 0) {
        m_Other.Clear();
        otherWay({l.line, static_cast<std::size_t>(l.end - l.line)}, m_Other);
        if (m_Other.Size() + kMostPerByte * static_cast<std::size_t>(l.last - l.end) + m_Step >
            static_cast<std::size_t>(l.limit - l.lineOut))
            return false;
        CountWork(m_Other.Size() / 2);
        if (m_Other.Size() > 0) std::memcpy(l.lineOut, m_Other.Data(), m_Other.Size());
        out = l.lineOut + m_Other.Size();
    }
    for (const char* end = l.end; end < l.next; ++end) {
        *out++ = *end;
        if (m_Encoding == OutputEncoding::Utf16) *out++ = '\0';
    }
    lanes.at[lane] = l.next;
    return true;
}

bool SyllableMachine::ConvertBlock(std::string_view block, LineEnd cut, OutputBuffer& output,
                                   const OtherWay& otherWay) {
    if (block.size() < kShortestBlock || block.size() > kLongestBlock || !m_Pays) return false;
    if (!m_Learnt) Learn(block);
    m_BytesSeen += block.size();
    const std::size_t needed = block.size() * kMostPerByte + kLanes * kSpare;
    if (m_ScratchSize < needed) {
        m_Scratch = std::make_unique_for_overwrite<char[]>(needed);
        m_ScratchSize = needed;
    }

    Lanes lanes;
    lanes.cut = cut;
    lanes.start = m_Start;
    std::size_t active = 0;
    char* scratch = m_Scratch.get();
    const char* from = block.data();
    const char* const blockEnd = from + block.size();
    for (std::size_t k = 0; k < kLanes; ++k) {
        // Lanes of about the same length, whole lines each.
        const char* to =
            k + 1 == kLanes ? blockEnd : std::max(from, block.data() + block.size() * (k + 1) / kLanes);
        for (; to < blockEnd && to > from; ++to) {
            CountWork(1);
            if (to[-1] == '\n' && (cut == LineEnd::Lf || (to - from > 1 && to[-2] == '\r'))) break;
        }
        lanes.at[k] = from;
        lanes.lane[k].last = to;
        lanes.lane[k].first = lanes.out[k] = scratch;
        scratch += static_cast<std::size_t>(to - from) * kMostPerByte + kSpare;
        lanes.lane[k].limit = scratch;
        from = to;
        active += lanes.BeginLine(k);
    }
    try {
        // While all lanes have a line they go side by side; the last lines go by themselves.
        while (active == kLanes) {
            std::size_t steps = lanes.Left(0);
            for (std::size_t k = 1; k < kLanes; ++k) steps = std::min(steps, lanes.Left(k));
            Walk<kLanes>(lanes, 0, steps);
            for (std::size_t k = 0; k < kLanes; ++k) {
                if (lanes.Left(k) > 0) continue;
                if (!EndLine(lanes, k, otherWay)) return false;
                if (!lanes.BeginLine(k)) --active;
            }
        }
        for (std::size_t k = 0; k < kLanes; ++k) {
            while (lanes.at[k] < lanes.lane[k].last) {
                Walk<1>(lanes, k, lanes.Left(k));
                if (!EndLine(lanes, k, otherWay)) return false;
                lanes.BeginLine(k);
            }
        }
    } catch (const RuntimeFailure&) {
        return false;
    }
    for (std::size_t k = 0; k < kLanes; ++k) {
        const auto length = static_cast<std::size_t>(lanes.out[k] - lanes.lane[k].first);
        CountWork(length / 2);
        std::memcpy(output.Room(length + 1), lanes.lane[k].first, length);
        output.Add(length);
    }
    return true;
}
