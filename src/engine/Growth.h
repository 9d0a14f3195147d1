// How long a line can become.
#pragma once

#include "engine/RuleTable.h"

#include <cstddef>
#include <string_view>
#include <vector>

// A line that grows beyond this many units raises failure 14.
inline constexpr std::size_t kLongestLine = std::size_t{1} << 29;

class Growth {
public:
    void Build(const RuleTable& table, std::size_t longestLine);
    // False where it is certain that neither the rules nor the passes, at any step, make the
    // line longer than the longest.
    template <class Unit>
    bool MayOutgrow(std::basic_string_view<Unit> line) const;

private:
    double Weight(char16_t unit) const { return m_Weights[unit]; }
    double Weight(char byte) const;

    std::vector<float> m_Weights; // by unit
    double m_Heaviest = 1;
    double m_LongestLine = 0;
};
