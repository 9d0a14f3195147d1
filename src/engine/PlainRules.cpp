// Linear in the line for each rule; the engine comes here for tables that its rule machine
// does not pay for and for lines that might outgrow the limit. Two buffers change places. A
// rule whose first unit is nowhere in the line is skipped without a look.
//
// Tested by tests/unit/engine/clsConvert_test.cpp and Differential_test.cpp.

#include "engine/PlainRules.h"

#include "base/RuntimeFailure.h"
#include "engine/Growth.h"

#include <algorithm>
#include <bitset>

namespace {

// Which units stand in the line; one that a rule has taken out may still be marked.
using Present = std::bitset<0x10000>;

void Mark(Present& present, std::u16string_view units) {
    for (const char16_t unit : units) present.set(unit);
}

// Whether the line would outgrow the limit; told before any room is taken.
bool Outgrows(std::u16string_view line, std::u16string_view find, std::size_t replaceLength) {
    if (replaceLength <= find.size()) return false;
    const std::size_t more = replaceLength - find.size();
    if (line.size() / find.size() < (kLongestLine - std::min(line.size(), kLongestLine)) / more) return false;
    std::size_t length = line.size();
    for (std::size_t at = line.find(find); at != std::u16string_view::npos;
         at = line.find(find, at + find.size()))
        length += more;
    return length > kLongestLine;
}

// False where find is not in line, which is then left alone.
bool Replace(std::u16string_view find, std::u16string_view replace, std::u16string& line,
             std::u16string& spare) {
    const std::u16string_view from = line;
    std::size_t at = from.find(find);
    if (at == std::u16string_view::npos) return false;
    if (Outgrows(from, find, replace.size())) throw RuntimeFailure(kOutOfStringSpace, u"clsConvert");
    spare.clear();
    std::size_t done = 0;
    do {
        spare.append(from, done, at - done);
        spare.append(replace);
        done = at + find.size();
        at = from.find(find, done);
    } while (at != std::u16string_view::npos);
    spare.append(from, done);
    line.swap(spare);
    return true;
}

} // namespace

void ApplyRules(const RuleTable& table, std::u16string& line, std::u16string& spare) {
    Present present;
    Mark(present, line);
    for (std::size_t i = 0; i < table.m_Find.size(); ++i) {
        const std::u16string& find = table.m_Find[i];
        if (find.empty() || !present.test(find[0])) continue;
        if (Replace(find, table.m_Replace[i], line, spare)) Mark(present, table.m_Replace[i]);
    }
}
