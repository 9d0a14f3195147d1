// The pass as told finds a marker, walks back over its cluster, puts RA and virama there, and
// searches on from that virama. Here the line is read once. What was read is cut into groups, each
// a unit that a scan may stop at and the units behind it that every scan steps over, so a scan
// looks at the last few groups only and its length does not matter. Pairs always go in front of a
// group and are only counted until the end.
//
// What was put in can be met again:
// - By a scan that passes the unit behind the pair: a consonant, as a virama now precedes it, or
//   a sign whose like is no longer in the way. The virama is stepped over; the RA stops the scan,
//   unless a virama stands before it.
// - By the search. Taking a marker of several units out brings its neighbours together, and they
//   may make a marker. No marker reaches across a pair, as it holds neither RA nor virama or cannot
//   get there; those that could, and a RA that is the ya-phala marker and so stops no scan, are
//   handled step by step, at the cost of each scan's length. They always come to an end: every
//   step takes away what no step puts in, or moves a RA or virama to the front of a letter or sign.
// - A marker at the very start of the line stays, until a pair is put in front of it.
//
// RA, virama and the two pairs of them are the only markers that can come around for ever: then
// the marker stands at the place where the pair went in, or is made there by its virama. The next
// step finds it, its scan stops at the same place, and leaves the same in front of the same text.
//
// Tested by tests/unit/engine/Passes_test.cpp, OddMarkers_test.cpp, Endless_test.cpp,
// Differential_test.cpp and HostileLines_test.cpp.

#include "engine/RephPass.h"

#include "base/RuntimeFailure.h"
#include "engine/BanglaUnits.h"
#include "engine/PassFailures.h"
#include "engine/WorkCounter.h"

#include <algorithm>
#include <cstring>

using namespace bangla;

namespace {

constexpr std::u16string_view kPair = u"\u09B0\u09CD";
constexpr std::u16string_view kName = u"reph marker";

} // namespace

void RephPass::SetMarkers(std::u16string_view reph, std::u16string_view yaPhala) {
    m_Search.SetMarker(reph);
    m_YaPhala = UnitOf(yaPhala);
    const bool stepsOverRa = m_YaPhala == kUnitRa;
    m_MayComeAround =
        !stepsOverRa && reph.size() < 3 && std::u16string_view(u"\u09B0\u09CD\u09B0").find(reph) != reph.npos;
    m_MayTakeInPairs =
        stepsOverRa ||
        (reph.size() > 1 && !m_MayComeAround &&
         (reph[0] == kUnitVirama || reph.starts_with(kPair) || reph.find(u"\u09CD\u09B0") != reph.npos));
}

RephPass::Kind RephPass::KindOf(char16_t unit) const {
    const std::uint8_t of = ClassOf(unit);
    if (of & bangla::kVowelSign) return Kind::VowelSign;
    if (of & bangla::kCandrabindu) return Kind::Candrabindu;
    if ((of & kVirama) || unit == m_YaPhala) return Kind::SteppedOver;
    return of & bangla::kConsonant ? Kind::Consonant : Kind::Foreign;
}

// Whether the unit before the group and its pairs is a virama.
bool RephPass::IsBehindVirama(const Group& group) const {
    return group.start > 0 && m_Units[group.start - 1] == kUnitVirama;
}

// Whether every scan passes the group, pairs and all.
bool RephPass::IsSteppedOver(const Group& group) const {
    if (group.pairs == 0 || !IsBehindVirama(group)) return false;
    const Kind kind = KindOf(m_Units[group.start]);
    return kind == Kind::SteppedOver || kind == Kind::Consonant;
}

// A marker of one unit never takes the end of a group away, so every consonant and foreign unit
// that begins a group stops a scan, and so does the second sign of a kind: none goes back over more
// than three groups. What lies before them is kept only for its pairs.
void RephPass::ForgetFarGroup() {
    constexpr std::size_t kReach = 3;
    if (m_Search.Length() > 1 || m_Groups.size() <= kReach) return;
    const auto far = m_Groups.end() - kReach;
    if (far->pairs == 0) m_Groups.erase(far);
}

void RephPass::Place(char16_t unit) {
    const Group& last = m_Groups.back();
    if (last.start < m_End) {
        const Kind kind = KindOf(unit);
        const bool inCluster = kind == Kind::Consonant && m_Units[m_End - 1] == kUnitVirama;
        if (kind != Kind::SteppedOver && !inCluster) {
            const std::uint32_t back = IsSteppedOver(last) ? last.back + 1 : 1;
            ForgetFarGroup();
            m_Groups.push_back({m_End, 0, back});
        }
    }
    m_Units[m_End++] = unit;
}

// Takes off the end; a group without units stays where it has pairs.
void RephPass::Remove(std::size_t length) {
    m_End -= static_cast<std::uint32_t>(length);
    while (m_Groups.size() > 1 && m_Groups.back().start >= m_End &&
           (m_Groups.back().start > m_End || m_Groups.back().pairs == 0))
        m_Groups.pop_back();
}

// Comes once in a line at most: behind pairs no marker stays.
void RephPass::RemoveAtStart(std::size_t length) {
    const auto removed = static_cast<std::uint32_t>(length);
    CountWork(m_End + m_Groups.size());
    std::memmove(m_Units, m_Units + removed, (m_End - removed) * sizeof(char16_t));
    m_End -= removed;
    std::size_t gone = 0;
    while (gone + 1 < m_Groups.size() && m_Groups[gone + 1].start <= removed) {
        ++gone;
        if (m_Groups[gone].start == removed) m_Groups[0].pairs += m_Groups[gone].pairs;
    }
    m_Groups.erase(m_Groups.begin() + 1, m_Groups.begin() + 1 + static_cast<std::ptrdiff_t>(gone));
    for (std::size_t i = 1; i < m_Groups.size(); ++i) {
        m_Groups[i].start -= removed;
        m_Groups[i].back = std::min(m_Groups[i].back, static_cast<std::uint32_t>(i));
    }
}

// The scan from the end of what was read.
RephPass::Target RephPass::FindRephTarget() const {
    bool vowelSeen = false, candrabinduSeen = false;
    for (std::size_t at = m_Groups.size() - 1;; at -= m_Groups[at].back) {
        CountWork(1);
        const Group& group = m_Groups[at];
        if (group.start < m_End) {
            const Kind kind = KindOf(m_Units[group.start]);
            if (kind == Kind::Foreign || (kind == Kind::VowelSign && vowelSeen) ||
                (kind == Kind::Candrabindu && candrabinduSeen) ||
                (kind == Kind::Consonant && group.pairs == 0))
                return {at, false};
            vowelSeen |= kind == Kind::VowelSign;
            candrabinduSeen |= kind == Kind::Candrabindu;
        }
        if (group.pairs > 0 && !IsBehindVirama(group)) return {at, true};
        if (at == 0) throw RuntimeFailure(kInvalidCall, u"clsConvert");
    }
}

bool RephPass::ComesAround(const Target& target) const {
    std::u16string text(1, kUnitVirama);
    const std::uint32_t start = m_Groups[target.group].start;
    text +=
        target.atPair ? kPair : std::u16string_view(m_Units + start, std::min<std::size_t>(m_End - start, 2));
    return text.find(m_Search.Marker()) != text.npos;
}

// How much of a marker stands at the end of what was read, not counting what lies before a pair.
std::size_t RephPass::MatchedAtEnd() const {
    const std::size_t most = std::min<std::size_t>(m_Search.Length() - 1, m_End);
    std::size_t start = m_End - most;
    for (std::size_t i = m_Groups.size(); i-- > 0 && m_Groups[i].start > start;) {
        if (m_Groups[i].pairs > 0) start = m_Groups[i].start;
    }
    CountWork(m_End - start);
    return m_Search.AtEndOf({m_Units + start, m_End - start});
}

// Spreads what was read, from its end.
void RephPass::Write(UnitBuffer& line, std::size_t pairs) const {
    const std::size_t total = m_End + 2 * pairs;
    if (total > line.Size()) CheckGrowth(total, m_LongestLine);
    line.SetSize(0);
    char16_t* const units = line.Room(total);
    line.SetSize(total);
    CountWork(total);
    char16_t* to = units + total;
    std::size_t end = m_End;
    for (std::size_t i = m_Groups.size(); i-- > 0 && pairs > 0;) {
        const Group& group = m_Groups[i];
        if (group.pairs == 0) continue;
        to -= end - group.start;
        std::memmove(to, units + group.start, (end - group.start) * sizeof(char16_t));
        end = group.start;
        pairs -= group.pairs;
        for (std::uint32_t k = 0; k < group.pairs; ++k) {
            *--to = kUnitVirama;
            *--to = kUnitRa;
        }
    }
}

void RephPass::Run(UnitBuffer& line) {
    const std::size_t length = line.Size(), markerLength = m_Search.Length();
    // Found in front of the second unit, an empty marker goes to the first, again and again.
    if (markerLength == 0 && length > 1) RaiseEndless(kName, {});
    if (markerLength == 0) return;
    if (m_MayTakeInPairs) return RunStepByStep(line);
    CountWork(length);
    m_Units = line.Data();
    m_End = 0;
    m_Groups.assign(1, {0, 0, 0});
    std::size_t pairs = 0, matched = 0;
    bool keptAtStart = false;
    for (std::size_t i = 0; i < length; ++i) {
        const char16_t unit = m_Units[i];
        matched = m_Search.Next(matched, unit);
        const bool atStart = m_End + 1 == markerLength && m_Groups[0].pairs == 0;
        if (matched < markerLength || atStart) {
            keptAtStart |= matched == markerLength;
            Place(unit);
            continue;
        }
        Remove(markerLength - 1);
        keptAtStart &= m_End >= markerLength;
        const Target target = FindRephTarget();
        if (m_MayComeAround && ComesAround(target)) RaiseEndless(kName, m_Search.Marker());
        ++m_Groups[target.group].pairs;
        ++pairs;
        if (keptAtStart && target.group == 0) {
            RemoveAtStart(markerLength);
            ++m_Groups[0].pairs;
            ++pairs;
        }
        keptAtStart &= target.group != 0 && m_Groups[target.group].start >= markerLength;
        matched = MatchedAtEnd();
    }
    if (pairs > 0) Write(line, pairs);
}

// The pass as told. The right part begins where the search goes on.
void RephPass::RunStepByStep(UnitBuffer& line) {
    const std::size_t markerLength = m_Search.Length();
    m_Left.clear();
    m_Right.assign(line.View().rbegin(), line.View().rend());
    CountWork(line.Size());
    std::size_t matched = 0;
    while (!m_Right.empty()) {
        m_Left += m_Right.back();
        m_Right.pop_back();
        matched = m_Search.Next(matched, m_Left.back());
        CountWork(1);
        if (matched < markerLength || m_Left.size() == markerLength) continue;
        m_Left.resize(m_Left.size() - markerLength);
        bool vowelSeen = false, candrabinduSeen = false;
        for (;; m_Left.pop_back()) {
            CountWork(1);
            if (m_Left.empty()) throw RuntimeFailure(kInvalidCall, u"clsConvert");
            const char16_t unit = m_Left.back();
            const Kind kind = KindOf(unit);
            const bool behindVirama = m_Left.size() > 1 && m_Left[m_Left.size() - 2] == kUnitVirama;
            if (kind == Kind::Foreign || (kind == Kind::VowelSign && vowelSeen) ||
                (kind == Kind::Candrabindu && candrabinduSeen) || (kind == Kind::Consonant && !behindVirama))
                break;
            vowelSeen |= kind == Kind::VowelSign;
            candrabinduSeen |= kind == Kind::Candrabindu;
            m_Right += unit;
        }
        m_Right += m_Left.back();
        m_Right += kUnitVirama;
        m_Left.back() = kUnitRa;
        matched = 0;
        CheckGrowth(m_Left.size() + m_Right.size(), m_LongestLine);
    }
    line.Clear();
    line.Append(m_Left);
}
