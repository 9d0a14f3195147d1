// Linear in the line for each rule; the engine comes here for tables that its rule machine
// does not pay for and for lines that might outgrow the limit. Two buffers change places. A
// rule whose first unit is nowhere in the line is skipped without a look. A long Find text is
// looked for unit by unit: a search that compares anew at each place would cost its length for
// each unit of a line that nearly holds it everywhere.
//
// Tested by tests/unit/engine/clsConvert_test.cpp, Differential_test.cpp and HostileRules_test.cpp.

#include "engine/PlainRules.h"

#include "base/RuntimeFailure.h"
#include "engine/MarkerSearch.h"
#include "engine/WorkCounter.h"

#include <algorithm>
#include <bitset>

namespace {

// Which units stand in the line; one that a rule has taken out may still be marked.
using Present = std::bitset<0x10000>;

void Mark(Present& present, std::u16string_view units) {
    CountWork(units.size());
    for (const char16_t unit : units) present.set(unit);
}

class FindText {
public:
    explicit FindText(std::u16string_view find) : m_Find(find) {
        if (find.size() > kShort) m_Search.SetMarker(find);
    }
    std::size_t Size() const { return m_Find.size(); }
    // Where it stands next in line, from this place on.
    std::size_t Next(std::u16string_view line, std::size_t from) const {
        const std::size_t at =
            m_Search.Length() == 0 ? line.find(m_Find, from) : m_Search.FirstIn(line, from);
        // A short one is compared with at each place.
        const std::size_t scanned = std::min(at, line.size()) - std::min(from, line.size()) + 1;
        CountWork(scanned * (m_Search.Length() == 0 ? m_Find.size() : 1));
        return at;
    }

private:
    static constexpr std::size_t kShort = 8;

    std::u16string_view m_Find;
    MarkerSearch m_Search;
};

// Whether the line would outgrow the limit; told before any room is taken.
bool Outgrows(std::u16string_view line, const FindText& find, std::size_t replaceLength,
              std::size_t longestLine) {
    if (replaceLength <= find.Size()) return false;
    const std::size_t more = replaceLength - find.Size();
    if (line.size() / find.Size() < (longestLine - std::min(line.size(), longestLine)) / more) return false;
    std::size_t length = line.size();
    for (std::size_t at = find.Next(line, 0); at != std::u16string_view::npos;
         at = find.Next(line, at + find.Size()))
        length += more;
    return length > longestLine;
}

// False where find is not in line, which is then left alone.
bool Replace(std::u16string_view findText, std::u16string_view replace, std::u16string& line,
             std::u16string& spare, std::size_t longestLine) {
    const std::u16string_view from = line;
    if (findText.size() > from.size()) return false;
    const FindText find(findText);
    std::size_t at = find.Next(from, 0);
    if (at == std::u16string_view::npos) return false;
    if (Outgrows(from, find, replace.size(), longestLine))
        throw RuntimeFailure(kOutOfStringSpace, u"clsConvert");
    spare.clear();
    std::size_t done = 0;
    do {
        spare.append(from, done, at - done);
        spare.append(replace);
        done = at + find.Size();
        at = find.Next(from, done);
    } while (at != std::u16string_view::npos);
    spare.append(from, done);
    CountWork(spare.size());
    line.swap(spare);
    return true;
}

} // namespace

void ApplyRules(const RuleTable& table, std::u16string& line, std::u16string& spare,
                std::size_t longestLine) {
    Present present;
    Mark(present, line);
    for (std::size_t i = 0; i < table.m_Find.size(); ++i) {
        const std::u16string& find = table.m_Find[i];
        if (find.empty() || !present.test(find[0])) continue;
        if (Replace(find, table.m_Replace[i], line, spare, longestLine)) Mark(present, table.m_Replace[i]);
    }
}
