// The literal passes start each scan anew, so that a line of markers costs its length
// squared. Here each pass walks once and carries along what a scan would have found. Why
// that gives the same text is told at each pass. Positions are 0-based but in ResolveReph.
//
// Tested by tests/unit/engine/Passes_test.cpp, Exhaustive_test.cpp, Differential_test.cpp and
// HostileLines_test.cpp.

#include "engine/LinearPasses.h"

#include "base/RuntimeFailure.h"
#include "engine/BanglaUnits.h"
#include "engine/LiteralPasses.h"
#include "engine/WorkCounter.h"

#include <cstring>

using namespace bangla;

namespace {

void Slide(char16_t* to, const char16_t* from, std::size_t count) {
    CountWork(count);
    std::memmove(to, from, count * sizeof(char16_t));
}

void CheckGrowth(std::size_t length) {
    if (length > kLongestLine) throw RuntimeFailure(kOutOfStringSpace, u"clsConvert");
}

// Replaces sign and mate by composed, the units behind moving up.
template <class Compose>
void ComposePairs(UnitBuffer& line, Compose composed) {
    char16_t* const units = line.Data();
    const std::size_t length = line.Size();
    CountWork(length);
    std::size_t out = 0;
    for (std::size_t i = 0; i < length; ++out) {
        const char16_t pair = i + 1 < length ? composed(units[i], units[i + 1]) : u'\0';
        units[out] = pair != 0 ? pair : units[i];
        i += pair != 0 ? 2 : 1;
    }
    line.SetSize(out);
}

} // namespace

void LinearPasses::SetMarkers(char16_t reph, char16_t yaPhala) {
    m_Reph = reph;
    m_YaPhala = yaPhala;
}

bool LinearPasses::Run(UnitBuffer& line) {
    unsigned classes = 0;
    bool rephs = false, yaPhalas = false;
    for (const char16_t unit : line.View()) {
        classes |= ClassOf(unit);
        rephs |= unit == m_Reph;
        yaPhalas |= unit == m_YaPhala;
    }
    CountWork(line.Size());
    if (rephs) ResolveReph(line);
    if (classes & kCandrabindu) ReorderChandrabindu(line);
    if (yaPhalas) ResolveYaPhala(line);
    if (classes & kLetterA) ComposeAa(line);
    if (!(classes & kPreBaseKar)) return true;
    const bool closed = ReorderPreBaseKars(line);
    ComposeSplitKars(line);
    return closed;
}

// The scan of a marker reads what stands before it with all earlier markers resolved. It is
// not walked: for each pair of flags (vowel sign seen, chandrabindu seen) the walk carries
// along where a scan that begins here with those flags would stop. A scan never goes beyond a
// place where RA and virama were put in: what stopped the earlier scan there stops this one
// too, or is now a consonant behind that virama, and then the RA stops it in front of the same
// text. So places only grow, and the text without markers is all that the scans depend on.
//
// A marker at the very start stays and stops scans as any foreign unit; the first scan that
// stops there puts its RA and virama in front, so that the search finds the marker again and
// resolves it to the same place.
void LinearPasses::ResolveReph(UnitBuffer& line) {
    char16_t* const units = line.Data();
    const std::size_t length = line.Size();
    CountWork(length);
    m_Targets.clear();
    // Indexed by the flags, vowel sign 1 and chandrabindu 2. Positions are 1-based; 0 is off
    // the start of the line.
    std::uint32_t stop[4] = {0, 0, 0, 0};
    std::uint32_t out = 0;
    std::size_t pairs = 0;
    bool keptAtStart = false;
    for (std::size_t i = 0; i < length; ++i) {
        const char16_t unit = units[i];
        if (unit == m_Reph && i > 0) {
            std::uint32_t target = stop[0];
            if (target == 0) throw RuntimeFailure(kInvalidCall, u"clsConvert");
            std::uint32_t count = 1;
            if (target == 1 && keptAtStart) {
                keptAtStart = false;
                count = 2;
            }
            if (!m_Targets.empty() && m_Targets.back().first == target) {
                m_Targets.back().second += count;
            } else {
                m_Targets.emplace_back(target, count);
            }
            pairs += count;
            continue;
        }
        keptAtStart |= unit == m_Reph;
        units[out++] = unit;
        const std::uint8_t of = ClassOf(unit);
        if (of & kVowelSign) {
            stop[0] = stop[1];
            stop[2] = stop[3];
            stop[1] = stop[3] = out;
        } else if (of & kCandrabindu) {
            stop[0] = stop[2];
            stop[1] = stop[3];
            stop[2] = stop[3] = out;
        } else if ((of & kVirama) || unit == m_YaPhala ||
                   ((of & kConsonant) && out > 1 && units[out - 2] == kUnitVirama)) {
            // Stepped over, whatever was seen.
        } else {
            stop[0] = stop[1] = stop[2] = stop[3] = out;
        }
    }
    if (m_Targets.empty()) return;

    // A marker at the start that was resolved after all is dropped from the text.
    const bool dropFirst = units[0] == m_Reph && !keptAtStart;
    const std::size_t total = out + 2 * pairs - (dropFirst ? 1 : 0);
    if (total > length) CheckGrowth(total);
    line.SetSize(0);
    char16_t* const spread = line.Room(total);
    line.SetSize(total);
    std::size_t to = total, from = out;
    for (std::size_t i = m_Targets.size(); i-- > 0;) {
        const auto [target, count] = m_Targets[i];
        std::size_t start = target - 1u;
        const std::size_t kept = start + (start == 0 && dropFirst ? 1 : 0);
        to -= from - kept;
        Slide(spread + to, spread + kept, from - kept);
        from = start;
        for (std::uint32_t k = 0; k < count; ++k) {
            spread[--to] = kUnitVirama;
            spread[--to] = kUnitRa;
        }
    }
}

// The signs and ya-phala markers behind a chandrabindu move up by one and it goes behind them;
// the search goes on behind it, so that no unit moves twice.
void LinearPasses::ReorderChandrabindu(UnitBuffer& line) {
    char16_t* const units = line.Data();
    const std::size_t length = line.Size();
    CountWork(length);
    for (std::size_t i = 0; i < length; ++i) {
        if (units[i] != kUnitCandrabindu) continue;
        while (i + 1 < length && (units[i + 1] == m_YaPhala || (ClassOf(units[i + 1]) & kPostBase))) {
            units[i] = units[i + 1];
            ++i;
        }
        units[i] = kUnitCandrabindu;
    }
}

// In a stretch of u signs and markers every marker goes to the front of the stretch. The first
// one sees what stands before the stretch, each other one the YA of the one before it.
void LinearPasses::ResolveYaPhala(UnitBuffer& line) {
    std::size_t markers = 0;
    for (const char16_t unit : line.View()) markers += unit == m_YaPhala;
    const std::size_t length = line.Size();
    // A marker becomes three units at most. The text waits at the end of the room, so that
    // what is written never reaches what is still to be read.
    line.Room(3 * markers);
    char16_t* const units = line.Data();
    std::size_t from = 3 * markers;
    const std::size_t end = length + from;
    Slide(units + from, units, length);
    std::size_t out = 0;
    while (from < end) {
        if (units[from] != m_YaPhala && !(ClassOf(units[from]) & kUSign)) {
            units[out++] = units[from++];
            continue;
        }
        std::size_t stretchEnd = from;
        std::size_t count = 0;
        for (; stretchEnd < end; ++stretchEnd) {
            if (units[stretchEnd] == m_YaPhala) {
                ++count;
            } else if (!(ClassOf(units[stretchEnd]) & kUSign)) {
                break;
            }
        }
        const bool bareRa =
            out > 0 && units[out - 1] == kUnitRa && !(out > 1 && units[out - 2] == kUnitVirama);
        if (count > 0 && bareRa) units[out++] = kUnitNonJoiner;
        for (; count > 0; --count) {
            units[out++] = kUnitVirama;
            units[out++] = kUnitYa;
        }
        for (; from < stretchEnd; ++from) {
            if (units[from] != m_YaPhala) units[out++] = units[from];
        }
    }
    CountWork(2 * length + out);
    if (out > length) CheckGrowth(out);
    line.SetSize(out);
}

void LinearPasses::ComposeAa(UnitBuffer& line) {
    ComposePairs(line, [](char16_t first, char16_t second) {
        return first == kUnitA && second == kUnitSignAa ? kUnitAa : u'\0';
    });
}

bool LinearPasses::ReorderPreBaseKars(UnitBuffer& line) {
    const bool e = ReorderPreBaseKar(line, kUnitSignE);
    const bool i = ReorderPreBaseKar(line, kUnitSignI);
    const bool ai = ReorderPreBaseKar(line, kUnitSignAi);
    return e && i && ai;
}

// A walk ends behind the first consonant that no virama follows. Every walk that begins before
// that place ends there too, as a move changes nothing to the right of the sign's new place.
// So one walk finds the end, and what is left to count is carried along.
bool LinearPasses::ReorderPreBaseKar(UnitBuffer& line, char16_t sign) {
    char16_t* const units = line.Data();
    const std::size_t length = line.Size();
    bool closed = true;
    std::size_t end = 0;   // where the current walk ended
    std::size_t count = 0; // consonants and viramas from i to end
    std::size_t walked = 0;
    for (std::size_t i = 0; i < length;) {
        if (units[i] != sign) {
            if (i < end && (ClassOf(units[i]) & (kConsonant | kVirama))) --count;
            ++i;
            continue;
        }
        if (i >= end) {
            count = 0;
            end = length;
            bool stopped = false;
            for (std::size_t k = i + 1; k < length && !stopped; ++k) {
                const std::uint8_t of = ClassOf(units[k]);
                if (!(of & (kConsonant | kVirama))) continue;
                ++count;
                stopped = (of & kConsonant) && !(k + 1 < length && units[k + 1] == kUnitVirama);
                if (stopped) end = k + 1;
            }
            walked += end - i;
            closed &= stopped;
        }
        const std::size_t moved = count;
        for (std::size_t k = i; k < i + moved; ++k) {
            units[k] = units[k + 1];
            if (ClassOf(units[k]) & (kConsonant | kVirama)) --count;
        }
        units[i + moved] = sign;
        i += moved + 1;
    }
    CountWork(length + walked);
    return closed;
}

// One walk for both pairs: the first replacement makes nothing that the second one finds.
void LinearPasses::ComposeSplitKars(UnitBuffer& line) {
    ComposePairs(line, [](char16_t first, char16_t second) {
        if (first != kUnitSignE) return u'\0';
        return second == kUnitSignAa ? kUnitSignO : second == kUnitAuLengthMark ? kUnitSignAu : u'\0';
    });
}
