// A payload is read line by line into the fields. The reading order decides what a damaged
// payload leaves behind, and an empty string has no parts at all: neither an empty payload
// nor an empty line has a first field.
//
// Tested by tests/unit/engine/RuleTable_test.cpp.

#include "engine/RuleTable.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"

namespace {

std::vector<std::u16string_view> Parts(std::u16string_view units, std::u16string_view separator) {
    if (units.empty()) return {};
    return text::Split(units, separator);
}

std::u16string_view Part(const std::vector<std::u16string_view>& parts, std::size_t index) {
    if (index >= parts.size()) throw RuntimeFailure(kSubscriptOutOfRange, u"clsConvert");
    return parts[index];
}

} // namespace

void RuleTable::Read(std::u16string_view payload) {
    const std::vector<std::u16string_view> lines = Parts(payload, u"\r\n");
    m_RephMarker = Part(lines, 0);
    m_YaPhalaMarker = Part(lines, 1);
    // Two lines would give the rows an upper bound below their lower one.
    Part(lines, 2);
    const std::size_t rows = lines.size() - 2;
    m_Find.assign(rows, {});
    m_Replace.assign(rows, {});
    for (std::size_t row = 0; row < rows; ++row) {
        // Fields behind the second are ignored, so there is no need to look for them.
        const std::u16string_view line = lines[row + 2];
        if (line.empty()) throw RuntimeFailure(kSubscriptOutOfRange, u"clsConvert");
        const std::size_t tab = line.find(u'\t');
        m_Find[row] = line.substr(0, tab);
        if (tab == std::u16string_view::npos) throw RuntimeFailure(kSubscriptOutOfRange, u"clsConvert");
        const std::u16string_view rest = line.substr(tab + 1);
        m_Replace[row] = rest.substr(0, rest.find(u'\t'));
    }
}

void RuleTable::Erase() {
    m_Find.clear();
    m_Replace.clear();
}
