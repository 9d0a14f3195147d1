// Each unit has a weight, how many units it can at most become. Seen from the last rule back to
// the first, a rule needs the units of its Find text to weigh as much as those of its Replace
// text do behind it; where they do not, they are made heavier. So no rule ever makes a line
// heavier, and as no unit weighs less than one, a line is never longer than its first weight.
//
// Tested by tests/unit/engine/clsConvert_test.cpp.

#include "engine/Growth.h"

#include "base/Text.h"
#include "engine/WorkCounter.h"

#include <algorithm>

namespace {

constexpr float kHeaviest = 1e18f;
// The passes make three units of a ya-phala marker.
constexpr double kPassesGrowth = 3;

} // namespace

void Growth::Build(const RuleTable& table, std::size_t longestLine) {
    m_LongestLine = static_cast<double>(longestLine);
    m_Weights.assign(0x10000, 1.0f);
    const auto weigh = [&](std::u16string_view units) {
        double sum = 0;
        for (const char16_t unit : units) sum += m_Weights[unit];
        return sum;
    };
    m_Heaviest = 1;
    for (std::size_t i = table.m_Find.size(); i-- > 0;) {
        const std::u16string_view find = table.m_Find[i];
        if (find.empty()) continue;
        const double needed = weigh(table.m_Replace[i]), there = weigh(find);
        if (needed <= there) continue;
        // Rounded up: a unit that stands in find twice is made heavier once.
        const double factor = needed / there * 1.0001;
        std::u16string units(find);
        std::sort(units.begin(), units.end());
        units.erase(std::unique(units.begin(), units.end()), units.end());
        for (const char16_t unit : units) {
            m_Weights[unit] = std::min(static_cast<float>(m_Weights[unit] * factor), kHeaviest);
            m_Heaviest = std::max<double>(m_Heaviest, m_Weights[unit]);
        }
    }
}

double Growth::Weight(char byte) const {
    return m_Weights[text::FromCp1252(static_cast<unsigned char>(byte))];
}

template <class Unit>
bool Growth::MayOutgrow(std::basic_string_view<Unit> line) const {
    if (static_cast<double>(line.size()) * m_Heaviest * kPassesGrowth <= m_LongestLine) return false;
    CountWork(line.size());
    double sum = 0;
    for (const Unit unit : line) sum += Weight(unit);
    return sum * kPassesGrowth > m_LongestLine;
}

template bool Growth::MayOutgrow(std::string_view) const;
template bool Growth::MayOutgrow(std::u16string_view) const;
