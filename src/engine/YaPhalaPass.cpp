// The pass as told searches from the start of the line for each marker again. As no marker
// stands before the first one, a search need not go back further than a step reaches.
//
// A marker of one unit: in a stretch of u signs and markers every marker goes to the front of the
// stretch. The first one sees what stands before the stretch, each other one the YA of the one
// before it.
//
// A marker of several units is taken step by step. In front of a u sign it goes with its first
// unit only and leaves the others behind the sign, so that such a step makes the line longer;
// what is left may make further markers, and the line may double with each sign. Every other
// step takes a marker away. So the work is that of writing the line, as long as it becomes
// in the meantime, once. The one marker of which this is not true is YA and virama: it is
// replaced by as many units, and viramas go through all YAs before them one by one.
//
// A marker that stands in what replaces it is found again at the same place for ever. All others
// come to an end, or make the line longer for ever.
//
// Tested by tests/unit/engine/Passes_test.cpp, OddMarkers_test.cpp, Endless_test.cpp,
// Differential_test.cpp and HostileLines_test.cpp.

#include "engine/YaPhalaPass.h"

#include "engine/BanglaUnits.h"
#include "engine/PassFailures.h"
#include "engine/WorkCounter.h"

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

using namespace bangla;

namespace {

constexpr std::u16string_view kBehindBareRa = u"\u200C\u09CD\u09AF";
constexpr std::u16string_view kReplacement = kBehindBareRa.substr(1);

bool IsUSign(char16_t unit) {
    return ClassOf(unit) & kUSign;
}

bool EndsInBareRa(std::u16string_view text) {
    return text.ends_with(kUnitRa) && !text.ends_with(u"\u09CD\u09B0");
}

std::u16string_view ReplacementBehind(std::u16string_view text, std::u16string_view marker) {
    const std::u16string_view replacement = EndsInBareRa(text) ? kBehindBareRa : kReplacement;
    if (replacement.find(marker) != replacement.npos) RaiseEndless(u"ya-phala marker", marker);
    return replacement;
}

} // namespace

void YaPhalaPass::SetMarker(std::u16string_view marker) {
    m_Search.SetMarker(marker);
}

void YaPhalaPass::Run(UnitBuffer& line) {
    const std::u16string_view marker = m_Search.Marker();
    if (line.Size() == 0) return;
    if (marker.empty()) RaiseEndless(u"ya-phala marker", marker);
    if (marker.size() == 1) {
        RunOneUnit(line);
    } else if (marker == u"\u09AF\u09CD") {
        RunYaVirama(line);
    } else {
        RunSeveralUnits(line);
    }
}

void YaPhalaPass::RunOneUnit(UnitBuffer& line) {
    const char16_t marker = m_Search.Marker()[0];
    const auto markers = static_cast<std::size_t>(std::count(line.View().begin(), line.View().end(), marker));
    const std::size_t length = line.Size();
    // Each marker adds a unit at least: told before any room is taken, unless the pass is endless.
    if (markers > 0 && kBehindBareRa.find(marker) == kBehindBareRa.npos)
        CheckGrowth(length + markers, m_LongestLine);
    // A marker becomes three units at most. The text waits at the end of the room, so that
    // what is written never reaches what is still to be read.
    line.Room(3 * markers);
    char16_t* const units = line.Data();
    std::size_t from = 3 * markers;
    const std::size_t end = length + from;
    std::memmove(units + from, units, length * sizeof(char16_t));
    std::size_t out = 0;
    while (from < end) {
        if (units[from] != marker && !IsUSign(units[from])) {
            units[out++] = units[from++];
            continue;
        }
        std::size_t stretchEnd = from, count = 0;
        for (; stretchEnd < end && (units[stretchEnd] == marker || IsUSign(units[stretchEnd])); ++stretchEnd)
            count += units[stretchEnd] == marker;
        std::u16string_view replacement;
        if (count > 0) replacement = ReplacementBehind({units, out}, m_Search.Marker());
        for (; count > 0; --count, replacement = kReplacement)
            out += replacement.copy(units + out, replacement.size());
        for (; from < stretchEnd; ++from) {
            if (units[from] != marker) units[out++] = units[from];
        }
    }
    CountWork(2 * length + out);
    if (out > length) CheckGrowth(out, m_LongestLine);
    line.SetSize(out);
}

void YaPhalaPass::RunSeveralUnits(UnitBuffer& line) {
    const std::u16string_view marker = m_Search.Marker();
    m_Left.clear();
    m_Right.assign(line.View().rbegin(), line.View().rend());
    CountWork(line.Size());
    const auto putBack = [&](std::u16string_view text) { m_Right.append(text.rbegin(), text.rend()); };
    std::size_t matched = 0;
    while (!m_Right.empty()) {
        m_Left += m_Right.back();
        m_Right.pop_back();
        matched = m_Search.Next(matched, m_Left.back());
        CountWork(1);
        if (matched < marker.size()) continue;
        m_Left.resize(m_Left.size() - marker.size());
        if (!m_Left.empty() && IsUSign(m_Left.back())) {
            putBack(marker.substr(1));
            m_Right += m_Left.back();
            m_Left.pop_back();
            putBack(marker);
            CheckGrowth(m_Left.size() + m_Right.size(), m_LongestLine);
        } else {
            putBack(ReplacementBehind(m_Left, marker));
        }
        const std::size_t again = std::min(m_Left.size(), marker.size() - 1);
        matched = m_Search.AtEndOf(std::u16string_view(m_Left).substr(m_Left.size() - again));
        CountWork(marker.size() + again);
    }
    if (m_Left.size() > line.Size()) CheckGrowth(m_Left.size(), m_LongestLine);
    line.Clear();
    line.Append(m_Left);
}

// YAs wait until something else than a virama comes; a virama goes in front of those that wait. It
// is only the first of them that another unit than a virama may stand before.
void YaPhalaPass::RunYaVirama(UnitBuffer& line) {
    m_Left.clear();
    std::size_t waiting = 0;
    std::vector<std::pair<char16_t, std::size_t>> crossed; // u signs, and the YAs behind them
    const auto writeWaiting = [&] { m_Left.append(std::exchange(waiting, 0), kUnitYa); };
    for (const char16_t unit : line.View()) {
        if (unit == kUnitYa) {
            ++waiting;
            continue;
        }
        if (unit != kUnitVirama || waiting == 0) {
            writeWaiting();
            m_Left += unit;
            continue;
        }
        // In front of a u sign a marker goes whole, to the YAs there, and leaves a virama behind.
        while (!m_Left.empty() && IsUSign(m_Left.back())) {
            crossed.emplace_back(m_Left.back(), waiting - 1);
            m_Left.pop_back();
            for (waiting = 1; m_Left.ends_with(kUnitYa); m_Left.pop_back()) ++waiting;
            CountWork(waiting);
        }
        m_Left += ReplacementBehind(m_Left, m_Search.Marker()).starts_with(kUnitVirama) ? u"\u09CD"
                                                                                        : u"\u200C\u09CD";
        for (; !crossed.empty(); crossed.pop_back()) {
            writeWaiting();
            m_Left += crossed.back().first;
            m_Left += kUnitVirama;
            waiting = crossed.back().second;
        }
    }
    writeWaiting();
    CountWork(line.Size() + m_Left.size());
    if (m_Left.size() > line.Size()) CheckGrowth(m_Left.size(), m_LongestLine);
    line.Clear();
    line.Append(m_Left);
}
