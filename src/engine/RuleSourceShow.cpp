// Writing: a table as source text, and the plain form there and back.
// Tested by tests/unit/engine/rulesource_test.cpp.

#include "engine/RuleSource.h"

#include "base/Text.h"

#include <algorithm>

namespace rulesource {
namespace {

using View = std::u16string_view;

// Characters that a reader can tell from each other; all others are shown by number.
bool IsPlain(char16_t unit) {
    if (unit > 0x20 && unit < 0x7F) return true;
    if (unit >= 0xA1 && unit <= 0xFF) return unit != 0xAD;
    if (unit >= 0x0980 && unit <= 0x09FE) return true;
    return unit > 0xFF && text::ToCp1252(unit) >= 0;
}

std::u16string Number(unsigned point) {
    constexpr char16_t kDigits[] = u"0123456789ABCDEF";
    std::u16string made = u"U+";
    for (int shift = point > 0xFFFFF ? 20 : point > 0xFFFF ? 16 : 12; shift >= 0; shift -= 4)
        made += kDigits[(point >> shift) & 15];
    return made;
}

// True where an item that begins here would be read as something else than its text.
bool NeedsNumber(View item) {
    return item.starts_with(u"U+") || item.starts_with(u"u+") || item.starts_with(u"#") ||
           item.starts_with(u"[") || item == u"=" || item.starts_with(u"<");
}

class Writer {
public:
    explicit Writer(const Table* table) : m_Table(table) {}

    std::u16string Write(View units) {
        std::size_t at = 0;
        while (at < units.size()) {
            const View rest = units.substr(at);
            if (m_Table && !m_Table->reph.text.empty() && rest.starts_with(m_Table->reph.text)) {
                Item(u"<reph>");
                at += m_Table->reph.text.size();
            } else if (m_Table && !m_Table->yaPhala.text.empty() && rest.starts_with(m_Table->yaPhala.text)) {
                Item(u"<ya-phala>");
                at += m_Table->yaPhala.text.size();
            } else if (IsPlain(rest[0])) {
                at += Literal(rest);
            } else {
                at += Numbered(rest);
            }
        }
        return m_Made;
    }

private:
    void Item(View item) {
        if (!m_Made.empty()) m_Made += u' ';
        m_Made += item;
    }

    // Up to the next unit that is not plain or begins a marker.
    std::size_t Literal(View rest) {
        std::size_t length = 1;
        while (length < rest.size() && IsPlain(rest[length]) && !BeginsMarker(rest.substr(length))) ++length;
        const View item = rest.substr(0, length);
        if (NeedsNumber(item)) {
            Item(Number(item[0]));
            return 1;
        }
        Item(item);
        return length;
    }

    bool BeginsMarker(View rest) const {
        return m_Table && ((!m_Table->reph.text.empty() && rest.starts_with(m_Table->reph.text)) ||
                           (!m_Table->yaPhala.text.empty() && rest.starts_with(m_Table->yaPhala.text)));
    }

    std::size_t Numbered(View rest) {
        const bool pair = rest.size() > 1 && (rest[0] & 0xFC00) == 0xD800 && (rest[1] & 0xFC00) == 0xDC00 &&
                          !BeginsMarker(rest.substr(1));
        if (!pair) {
            Item(Number(rest[0]));
            return 1;
        }
        Item(Number(((rest[0] - 0xD7C0u) << 10) + (rest[1] & 0x3FFu)));
        return 2;
    }

    const Table* m_Table;
    std::u16string m_Made;
};

std::u16string LineNumber(std::size_t line) {
    return u"line " + text::Decimal(static_cast<long long>(line)) + u": ";
}

} // namespace

std::u16string ShowText(std::u16string_view units, const Table* table) {
    return Writer(table).Write(units);
}

std::u16string Show(const Table& table) {
    std::u16string made = u"[markers]\n";
    made += u"reph = " + ShowText(table.reph.text) + u"\n";
    made += u"ya-phala = " + ShowText(table.yaPhala.text) + u"\n\n[rules]\n";
    for (const Table::Rule& rule : table.rules) {
        const std::u16string find = ShowText(rule.find, &table);
        const std::u16string replace = ShowText(rule.replace, &table);
        made += find;
        made += find.empty() ? u"=" : u" =";
        if (!replace.empty()) made += u' ';
        made += replace;
        made += u'\n';
    }
    return made;
}

bool PlainFromPayload(std::u16string_view payload, std::string& plain, std::u16string& problem) {
    std::u16string units;
    std::size_t line = 0;
    for (const View text : text::Split(payload, u"\r\n")) {
        if (++line > 1) units += u'\n';
        const std::size_t bad = text.find_first_of(u"\r\n");
        if (bad != text.npos) {
            problem =
                LineNumber(line) + u"the plain form cannot hold " + (text[bad] == u'\r' ? u"a CR" : u"an LF");
            return false;
        }
        std::size_t lone = 0;
        text::ToUtf8(text, &lone);
        if (lone) {
            problem = LineNumber(line) + u"the plain form cannot hold a lone surrogate";
            return false;
        }
        units += text;
    }
    plain = text::ToUtf8(units);
    return true;
}

bool PayloadFromPlain(std::string_view plain, std::u16string& payload, std::u16string& problem) {
    std::u16string made;
    std::size_t line = 1;
    for (std::size_t from = 0;; ++line) {
        const std::size_t end = std::min(plain.find('\n', from), plain.size());
        const std::string_view bytes = plain.substr(from, end - from);
        std::size_t invalid = 0;
        const std::u16string units = text::FromUtf8(bytes, &invalid);
        if (invalid || units.find(u'\r') != units.npos) {
            problem = LineNumber(line) +
                      (invalid ? u"not UTF-8 (a lone surrogate is none either)"
                               : u"a CR, which the plain form cannot hold; end lines with LF alone");
            return false;
        }
        made += units;
        if (end == plain.size()) break;
        made += u"\r\n";
        from = end + 1;
    }
    payload = std::move(made);
    return true;
}

} // namespace rulesource
