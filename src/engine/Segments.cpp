// Two parts of a line are independent of each other where
// - no scan for a reph comes from the right part to its left end: the right part begins with
//   something that surely stops it (a unit that no class holds; a consonant that no virama
//   precedes; an e, i or ai sign with one of these behind it);
// - no chandrabindu, ya-phala marker or composed pair reaches across: the right part does not
//   begin with a post-base sign, a chandrabindu or a marker;
// - every scan for an e, i or ai sign of the left part ends inside it, on a consonant that the
//   right part puts no virama behind. What the right part begins with is never a virama, in
//   no pass: only an e, i or ai sign can leave its first place, and then a consonant or a unit
//   of no class comes there.
// A ya-phala marker behind a RA that begins the right part looks at what stands before that
// RA; there is no virama, as the RA is a consonant that none precedes.
//
// All of this, and what the passes do, depends on the class of each unit and on a few units
// that the passes name. So texts that differ only in other letters are one, and what becomes of
// them is one rearrangement.
//
// Tested by tests/unit/engine/Differential_test.cpp and Exhaustive_test.cpp.

#include "engine/Segments.h"

#include "base/RuntimeFailure.h"
#include "engine/BanglaUnits.h"

#include <algorithm>

using namespace bangla;

bool Segments::IsWall(char16_t unit) const {
    return ClassOf(unit) == 0 && unit != m_Passes.Reph() && unit != m_Passes.YaPhala();
}

bool Segments::IsForeign(char16_t unit) const {
    return unit == kUnitA || IsWall(unit);
}

void Segments::Build() {
    m_Consonants.clear();
    // The passes put RA and YA in and look for RA.
    for (char16_t unit = 0x0980; unit < 0x0A00; ++unit) {
        if ((ClassOf(unit) & kConsonant) && unit != kUnitRa && unit != kUnitYa) m_Consonants += unit;
    }
    m_Walls.clear();
    for (char16_t unit = 1; m_Walls.size() < kMostUnits; ++unit) {
        if (IsWall(unit)) m_Walls += unit;
    }
}

bool Segments::Canonical(std::u16string& text) const {
    if (text.size() > kMostUnits) return false;
    std::size_t consonants = 0, walls = 0;
    for (char16_t& unit : text) {
        if ((ClassOf(unit) & kConsonant) && unit != kUnitRa) {
            if (consonants == m_Consonants.size()) return false;
            unit = m_Consonants[consonants++];
        } else if (IsWall(unit)) {
            unit = m_Walls[walls++];
        }
    }
    return true;
}

// Whether a segment begins at this place of text, whichever of next it goes on with. The place
// may be the end of text.
bool Segments::BeginsSegment(std::u16string_view text, std::size_t at, const std::u16string* next) const {
    const auto allOf = [&](std::size_t place, auto test) {
        if (place < text.size()) return test(text[place]);
        return next != nullptr && std::all_of(next->begin(), next->end(), test);
    };
    return allOf(at, [&](char16_t unit) {
        const std::uint8_t of = ClassOf(unit);
        if (of & kConsonant) {
            // What stands before it once the rephs are resolved.
            std::size_t before = at;
            while (before > 0 && text[before - 1] == m_Passes.Reph()) --before;
            return before > 0 && text[before - 1] != kUnitVirama;
        }
        if ((of & kPreBaseKar) && at < text.size())
            return allOf(
                at + 1, [&](char16_t second) { return IsForeign(second) || (ClassOf(second) & kConsonant); });
        return IsForeign(unit);
    });
}

bool Segments::RunPasses(std::u16string_view text, bool& closed) {
    m_Work.Clear();
    m_Work.Append(text);
    try {
        closed = m_Passes.Run(m_Work);
    } catch (const RuntimeFailure&) {
        return false;
    }
    return true;
}

bool Segments::TakeSettled(std::u16string& text, const std::u16string* next, bool ends,
                           std::u16string& rearranged) {
    rearranged.clear();
    for (std::size_t at = text.size(); at > 0; --at) {
        const bool isEnd = ends && at == text.size();
        if (!isEnd && !BeginsSegment(text, at, next)) continue;
        bool closed;
        if (!RunPasses(std::u16string_view(text).substr(0, at), closed)) return false;
        if (!closed && !isEnd) continue;
        Rearranged(text, at, rearranged);
        text.erase(0, at);
        break;
    }
    return true;
}

void Segments::Rearranged(std::u16string_view text, std::size_t settled, std::u16string& rearranged) const {
    if (m_Work.View() == text.substr(0, settled)) return;
    for (const char16_t unit : m_Work.View()) {
        const bool isLetter = unit != kUnitRa && unit != kUnitYa && (ClassOf(unit) & kConsonant);
        const bool isNamed = isLetter || (IsWall(unit) && unit != kUnitNonJoiner && unit != kUnitAa);
        // The letters of a canonical text are all different.
        rearranged += isNamed ? static_cast<char16_t>(kPlace + text.find(unit)) : unit;
    }
    for (std::size_t place = settled; place < text.size(); ++place)
        rearranged += static_cast<char16_t>(kPlace + place);
}
