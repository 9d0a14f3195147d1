// Rows hold views of the table, which must outlive them. A table that breaks the form is a fault of the
// program and fails when it is read.
//
// Tested by tests/windows/layout_test.cpp and every_control_test.cpp.
#include "controls/Layout.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "base/win.h"

#include <algorithm>
#include <map>
#include <string>

namespace {

constexpr std::size_t kFields = 10; // up to tab; the properties may be missing

std::u16string_view Trimmed(std::u16string_view text) {
    while (!text.empty() && text.front() == u' ') text.remove_prefix(1);
    while (!text.empty() && text.back() == u' ') text.remove_suffix(1);
    return text;
}

// "OptionTask(2)" is the control 2 of the array OptionTask.
void SplitName(std::u16string_view told, LayoutRow& row) {
    row.Name = told;
    const std::size_t open = told.find(u'(');
    if (open == std::u16string_view::npos || !told.ends_with(u')')) return;
    row.Name = told.substr(0, open);
    row.Index = ParseNumber(told.substr(open + 1, told.size() - open - 2));
}

using Properties = decltype(LayoutRow::Properties);
using Sets = std::vector<std::pair<std::u16string_view, Properties>>;

Properties ParseProperties(std::u16string_view told, const Sets& sets) {
    Properties properties;
    for (const std::u16string_view part : text::Split(told, u";")) {
        const std::u16string_view property = Trimmed(part);
        if (property.empty()) continue;
        const std::size_t sign = property.find(u'=');
        if (sign == std::u16string_view::npos)
            throw RuntimeFailure(kTypeMismatch, u"Layout", u"No value: " + std::u16string(property));
        const std::u16string_view name = Trimmed(property.substr(0, sign));
        const std::u16string_view value = Trimmed(property.substr(sign + 1));
        if (name != u"Use") {
            properties.emplace_back(name, value);
            continue;
        }
        const auto set =
            std::find_if(sets.begin(), sets.end(), [&](const auto& s) { return s.first == value; });
        if (set == sets.end())
            throw RuntimeFailure(kTypeMismatch, u"Layout", u"No set " + std::u16string(value));
        properties.insert(properties.end(), set->second.begin(), set->second.end());
    }
    return properties;
}

LayoutRow ParseRow(const std::vector<std::u16string_view>& fields, const Sets& sets) {
    LayoutRow row;
    row.Container = fields[1];
    SplitName(fields[2], row);
    row.Kind = fields[3];
    int* const place[] = {&row.Left, &row.Top, &row.Width, &row.Height};
    for (std::size_t i = 0; i < 4; ++i) {
        if (!fields[4 + i].empty()) *place[i] = ParseNumber(fields[4 + i]);
    }
    row.Caption = fields[8];
    if (!fields[9].empty()) row.TabIndex = ParseNumber(fields[9]);
    if (fields.size() > kFields) row.Properties = ParseProperties(fields[kFields], sets);
    return row;
}

} // namespace

std::vector<LayoutRow> ParseLayout(std::u16string_view table) {
    std::vector<LayoutRow> rows;
    Sets sets;
    int line = 0;
    for (std::u16string_view told : text::Split(table, u"\n")) {
        ++line;
        if (told.ends_with(u'\r')) told.remove_suffix(1);
        if (told.empty() || line == 1) continue;
        const std::vector<std::u16string_view> fields = text::Split(told, u"\t");
        if (fields.size() < kFields)
            throw RuntimeFailure(kTypeMismatch, u"Layout", u"Line " + text::Decimal(line) + u" is too short");
        LayoutRow row = ParseRow(fields, sets);
        if (row.Kind == u"set")
            sets.emplace_back(row.Name, std::move(row.Properties));
        else
            rows.push_back(std::move(row));
    }
    return rows;
}

std::u16string_view LayoutFromResource(std::u16string_view form) {
    static std::map<std::u16string, std::u16string, std::less<>> kept;
    const auto known = kept.find(form);
    if (known != kept.end()) return known->second;
    const std::u16string name(form);
    const HRSRC found = FindResourceW(nullptr, Wide(name), L"LAYOUT");
    const HGLOBAL block = found ? LoadResource(nullptr, found) : nullptr;
    const void* bytes = block ? LockResource(block) : nullptr;
    if (!bytes) throw RuntimeFailure(kTypeMismatch, u"Layout", u"No layout " + name);
    return kept[name] = text::FromUtf8({static_cast<const char*>(bytes), SizeofResource(nullptr, found)});
}

bool ParseYesNo(std::u16string_view value) {
    if (value == u"yes") return true;
    if (value == u"no") return false;
    throw RuntimeFailure(kTypeMismatch, u"Layout", u"Neither yes nor no: " + std::u16string(value));
}

int ParseNumber(std::u16string_view value) {
    const bool negative = value.starts_with(u'-');
    const std::u16string_view digits = value.substr(negative ? 1 : 0);
    int sum = 0;
    for (const char16_t digit : digits) {
        if (digit < u'0' || digit > u'9' || sum > 1'000'000) sum = -1;
        if (sum < 0) break;
        sum = sum * 10 + (digit - u'0');
    }
    if (digits.empty() || sum < 0)
        throw RuntimeFailure(kTypeMismatch, u"Layout", u"No number: " + std::u16string(value));
    return negative ? -sum : sum;
}
