// Reading: source text to table, table to payload and back. RuleSourceShow.cpp goes the
// other way.
// Tested by tests/unit/engine/rulesource_test.cpp.

#include "engine/RuleSource.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"

#include <algorithm>
#include <optional>

namespace rulesource {
namespace {

using View = std::u16string_view;

constexpr View kBlanks = u" \t";
constexpr View kRephItem = u"<reph>";
constexpr View kYaPhalaItem = u"<ya-phala>";

View Trim(View line) {
    const std::size_t from = line.find_first_not_of(kBlanks);
    if (from == line.npos) return {};
    return line.substr(from, line.find_last_not_of(kBlanks) - from + 1);
}

// The items of a line up to the one that begins a comment.
std::vector<View> Items(View line) {
    std::vector<View> items;
    for (std::size_t at = 0; (at = line.find_first_not_of(kBlanks, at)) != line.npos;) {
        const std::size_t end = std::min(line.find_first_of(kBlanks, at), line.size());
        const View item = line.substr(at, end - at);
        if (item == u"#") break;
        items.push_back(item);
        at = end;
    }
    return items;
}

// 4 to 6 hexadecimal digits behind "U+", as UTF-16; nothing where the item is malformed.
std::optional<std::u16string> CodePoint(View item) {
    const View digits = item.substr(2);
    if (digits.size() < 4 || digits.size() > 6) return {};
    unsigned point = 0;
    for (const char16_t digit : digits) {
        unsigned value;
        if (digit >= u'0' && digit <= u'9') {
            value = digit - u'0';
        } else if (digit >= u'A' && digit <= u'F') {
            value = digit - u'A' + 10u;
        } else if (digit >= u'a' && digit <= u'f') {
            value = digit - u'a' + 10u;
        } else {
            return {};
        }
        point = point * 16 + value;
    }
    if (point > 0x10FFFF) return {};
    if (point < 0x10000) return std::u16string(1, static_cast<char16_t>(point));
    return std::u16string{static_cast<char16_t>(0xD7C0 + (point >> 10)),
                          static_cast<char16_t>(0xDC00 + (point & 0x3FF))};
}

enum class Section { None, Markers, Rules, Unknown };

// The section that a line opens: "[markers]", "[rules]" or "[rules: any title]". A line with
// an item '=' is a rule even if it begins with a bracket.
std::optional<Section> SectionOf(View line) {
    if (line.substr(0, 1) != u"[") return {};
    const std::size_t comment = line.find(u"] #");
    if (comment != line.npos) line = line.substr(0, comment + 1);
    const bool closed = line.back() == u']';
    const View inside = closed ? line.substr(1, line.size() - 2) : line.substr(1);
    const View name = Trim(inside.substr(0, inside.find(u':')));
    const bool titled = inside.find(u':') != inside.npos;
    if (closed && name == u"markers" && !titled) return Section::Markers;
    if (closed && name == u"rules") return Section::Rules;
    const std::vector<View> items = Items(line);
    if (std::find(items.begin(), items.end(), u"=") != items.end()) return {};
    return Section::Unknown;
}

class Reader {
public:
    Reader(Table& table, std::vector<Message>& messages) : m_Table(table), m_Messages(messages) {}

    void Read(std::string_view bytes) {
        CheckUtf8(bytes);
        std::u16string units = text::FromUtf8(bytes);
        if (units.substr(0, 1) == u"\uFEFF") units.erase(0, 1);
        const std::vector<View> lines = text::Split(units, u"\n");
        // The markers first: a rule may name a marker that is told further down.
        for (const bool markers : {true, false}) {
            m_Section = Section::None;
            m_Line = 0;
            for (const View line : lines) {
                ++m_Line;
                ReadLine(line.substr(0, line.size() - (line.ends_with(u'\r') ? 1 : 0)), markers);
            }
        }
        if (m_Table.reph.line == 0) Error(0, u"no reph marker: write 'reph = U+E001' under [markers]");
        if (m_Table.yaPhala.line == 0)
            Error(0, u"no ya-phala marker: write 'ya-phala = U+E002' under [markers]");
        // Behind other mistakes that is no news.
        if (m_Table.rules.empty() && m_Messages.empty()) Error(0, u"no rule");
        std::stable_sort(m_Messages.begin(), m_Messages.end(),
                         [](const Message& a, const Message& b) { return a.line < b.line; });
    }

private:
    void Error(std::size_t line, std::u16string text) { m_Messages.push_back({line, true, std::move(text)}); }
    void Warn(std::size_t line, std::u16string text) { m_Messages.push_back({line, false, std::move(text)}); }

    void CheckUtf8(std::string_view bytes) {
        std::size_t line = 1;
        for (std::size_t from = 0; from < bytes.size(); ++line) {
            const std::size_t end = std::min(bytes.find('\n', from), bytes.size());
            std::size_t invalid = 0;
            text::FromUtf8(bytes.substr(from, end - from), &invalid);
            if (invalid) Error(line, u"not UTF-8; save the file as UTF-8");
            from = end + 1;
        }
    }

    void ReadLine(View line, bool markers) {
        const View trimmed = Trim(line);
        if (trimmed.empty() || trimmed[0] == u'#') return;
        if (const std::optional<Section> section = SectionOf(trimmed)) {
            m_Section = *section;
            if (m_Section == Section::Unknown && markers)
                Error(m_Line, u"unknown section; there are [markers], [rules] and [rules: a title]");
            return;
        }
        if (trimmed.find(u'\r') != trimmed.npos) {
            if (markers)
                Error(m_Line, u"a carriage return inside the line; write U+000D, or end lines with LF");
            return;
        }
        if (m_Section == Section::None && markers)
            Error(m_Line, u"a line before the first section; begin with [markers] or [rules]");
        if (m_Section == Section::Markers && markers) ReadMarker(trimmed);
        if (m_Section == Section::Rules && !markers) ReadRule(trimmed);
    }

    // Cuts a line at its '='. False where that is missing or comes twice.
    bool Cut(View line, std::vector<View>& left, std::vector<View>& right) {
        const std::vector<View> items = Items(line);
        const auto equals = std::find(items.begin(), items.end(), u"=");
        if (equals == items.end()) {
            Error(m_Line, u"no '=' between blanks; a rule reads FIND = REPLACE");
            return false;
        }
        if (std::find(equals + 1, items.end(), u"=") != items.end()) {
            Error(m_Line, u"a second '='; write U+003D for the character");
            return false;
        }
        left.assign(items.begin(), equals);
        right.assign(equals + 1, items.end());
        return true;
    }

    std::u16string Text(const std::vector<View>& items, bool mayNameMarkers) {
        std::u16string made;
        for (const View item : items) {
            if (item == kRephItem || item == kYaPhalaItem) {
                if (!mayNameMarkers) Error(m_Line, u"a marker cannot be told by " + std::u16string(item));
                made += item == kRephItem ? m_Table.reph.text : m_Table.yaPhala.text;
            } else if (item.starts_with(u"U+")) {
                const std::optional<std::u16string> point = CodePoint(item);
                if (!point)
                    Error(m_Line,
                          u"'" + std::u16string(item) +
                              u"' is no character; write U+ and 4 to 6 hexadecimal digits, at most U+10FFFF");
                made += point.value_or(u"");
            } else {
                made += item;
            }
        }
        return made;
    }

    void ReadMarker(View line) {
        std::vector<View> left, right;
        if (!Cut(line, left, right)) return;
        const View name = left.size() == 1 ? left[0] : View();
        Table::Marker* marker = name == u"reph"       ? &m_Table.reph
                                : name == u"ya-phala" ? &m_Table.yaPhala
                                                      : nullptr;
        if (!marker) {
            Error(m_Line, u"unknown marker; there are 'reph' and 'ya-phala'");
            return;
        }
        if (marker->line != 0) {
            Error(m_Line, u"the marker '" + std::u16string(name) + u"' is told twice; first in line " +
                              text::Decimal(static_cast<long long>(marker->line)));
            return;
        }
        *marker = {Text(right, false), m_Line};
    }

    void ReadRule(View line) {
        std::vector<View> left, right;
        if (!Cut(line, left, right)) return;
        std::u16string find = Text(left, true);
        m_Table.rules.push_back({std::move(find), Text(right, true), m_Line});
        for (const std::vector<View>* side : {&left, &right})
            for (const View item : *side) WarnOfLookalikes(item);
    }

    // Items that are literal text but hardly meant so.
    void WarnOfLookalikes(View item) {
        const bool marker = item.size() > 2 && item != kRephItem && item != kYaPhalaItem &&
                            (text::EqualNoCase(item, kRephItem) || text::EqualNoCase(item, kYaPhalaItem));
        const bool point = item.starts_with(u"u+") && CodePoint(item);
        if (marker || point)
            Warn(m_Line,
                 u"'" + std::u16string(item) + u"' is taken as ordinary text; mind upper and lower case");
    }

    Table& m_Table;
    std::vector<Message>& m_Messages;
    Section m_Section = Section::None;
    std::size_t m_Line = 0;
};

[[noreturn]] void MissingPart(std::size_t line, View what) {
    throw RuntimeFailure(kSubscriptOutOfRange, u"clsConvert",
                         u"Subscript out of range: line " + text::Decimal(static_cast<long long>(line)) +
                             u" of the table " + std::u16string(what));
}

} // namespace

Table Parse(std::string_view bytes, std::vector<Message>& messages) {
    Table table;
    Reader(table, messages).Read(bytes);
    return table;
}

Table ParsePayload(std::u16string_view payload) {
    const std::vector<View> lines = text::Split(payload, u"\r\n");
    Table table;
    table.reph = {std::u16string(lines[0]), 1};
    if (lines.size() < 2) MissingPart(2, u"is missing, the ya-phala marker");
    table.yaPhala = {std::u16string(lines[1]), 2};
    if (lines.size() < 3) MissingPart(3, u"is missing, the first rule");
    for (std::size_t i = 2; i < lines.size(); ++i) {
        const View line = lines[i];
        if (line.empty()) MissingPart(i + 1, u"is empty");
        const std::size_t tab = line.find(u'\t');
        if (tab == line.npos) MissingPart(i + 1, u"has no TAB");
        const View rest = line.substr(tab + 1);
        table.rules.push_back(
            {std::u16string(line.substr(0, tab)), std::u16string(rest.substr(0, rest.find(u'\t'))), i + 1});
    }
    return table;
}

std::u16string Payload(const Table& table, std::vector<Message>& messages) {
    const std::size_t before = messages.size();
    const auto refuse = [&](std::size_t line, std::u16string text) {
        messages.push_back({line, true, std::move(text)});
    };
    const auto noLineEnd = [&](View units, std::size_t line, View what) {
        if (units.find(u"\r\n") != units.npos)
            refuse(line, std::u16string(what) + u" holds CR LF, which ends a line of a plug-in");
    };
    std::u16string made;
    for (const bool reph : {true, false}) {
        const Table::Marker& marker = reph ? table.reph : table.yaPhala;
        noLineEnd(marker.text, marker.line, reph ? u"the reph marker" : u"the ya-phala marker");
        std::u16string endless = reph ? EndlessReph(marker.text) : EndlessYaPhala(marker.text);
        if (!endless.empty()) refuse(marker.line, std::move(endless));
        made += marker.text;
        if (reph) made += u"\r\n";
    }
    if (table.rules.empty()) refuse(0, u"no rule");
    for (const Table::Rule& rule : table.rules) {
        if (rule.find.find(u'\t') != rule.find.npos || rule.replace.find(u'\t') != rule.replace.npos)
            refuse(rule.line, u"a TAB parts the fields of a plug-in and cannot stand in a rule");
        noLineEnd(rule.find, rule.line, u"the Find text");
        noLineEnd(rule.replace, rule.line, u"the Replace text");
        made += u"\r\n";
        made += rule.find;
        made += u'\t';
        made += rule.replace;
    }
    if (messages.size() != before) return {};
    return made;
}

std::u16string EndlessReph(std::u16string_view marker) {
    if (marker.empty()) return u"the reph marker is empty; no line would ever be done";
    // What was put in is searched again from its second unit on, and may stand in front of
    // another of its kind.
    if (View(u"\u09B0\u09CD\u09B0").find(marker) != View::npos && marker.size() < 3)
        return u"the reph marker stands in what replaces it, U+09B0 U+09CD; some lines would never be done";
    return {};
}

std::u16string EndlessYaPhala(std::u16string_view marker) {
    if (marker.empty()) return u"the ya-phala marker is empty; no line would ever be done";
    // Every search begins again with the line. The joiner comes only behind a bare ra.
    if (View(u"\u200C\u09CD\u09AF").find(marker) != View::npos)
        return u"the ya-phala marker stands in what replaces it, U+200C U+09CD U+09AF; some lines would "
               u"never be done";
    return {};
}

} // namespace rulesource
