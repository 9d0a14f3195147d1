// Scans that start anew for each sign cost a line of signs its length squared. Here each pass walks
// once and carries along what a scan would have found. Why that gives the same text is told at each
// pass.
//
// Tested by tests/unit/engine/Passes_test.cpp, Exhaustive_test.cpp, Differential_test.cpp and
// HostileLines_test.cpp.

#include "engine/LinearPasses.h"

#include "engine/WorkCounter.h"

using namespace bangla;

namespace {

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

void LinearPasses::SetMarkers(std::u16string_view reph, std::u16string_view yaPhala) {
    m_AreOrdinary = AreOrdinaryMarkers(reph, yaPhala);
    m_Reph = UnitOf(reph);
    m_YaPhala = UnitOf(yaPhala);
    m_RephPass.SetMarkers(reph, yaPhala);
    m_YaPhalaPass.SetMarker(yaPhala);
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
    if (!m_AreOrdinary) rephs = yaPhalas = true; // not seen so, or made by the reph's pass
    if (rephs) ResolveReph(line);
    if (classes & kCandrabindu) ReorderChandrabindu(line);
    if (yaPhalas) ResolveYaPhala(line);
    if (classes & kLetterA) ComposeAa(line);
    if (!(classes & kPreBaseKar)) return true;
    const bool closed = ReorderPreBaseKars(line);
    ComposeSplitKars(line);
    return closed;
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
