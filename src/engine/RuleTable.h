// The table of one encoding: two markers and the rules, exactly as read.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct RuleTable {
    // Convert takes no more rules than its signed 16-bit counter can pass.
    static constexpr std::size_t kMostRules = 32767;

    // Row i of m_Find belongs to row i of m_Replace; the order of the rows is significant.
    std::vector<std::u16string> m_Find;
    std::vector<std::u16string> m_Replace;
    std::u16string m_RephMarker;
    std::u16string m_YaPhalaMarker;

    // Reads a payload: reph marker, ya-phala marker, then one rule a line (Find TAB Replace),
    // the lines with CR LF between them. Raises failure 9 at the first line or field that is
    // missing; what was read before it stays.
    void Read(std::u16string_view payload);
    // Erases the rows. The markers stay.
    void Erase();
    bool IsErased() const { return m_Find.empty(); }
};
