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

// True where an item that begins so may be read as something else than its text.
bool NeedsNumber(View rest) {
    return rest.starts_with(u"U+") || rest.starts_with(u"u+") || rest[0] == u'#' || rest[0] == u'[' ||
           rest[0] == u'<';
}

// Longer markers are written out, since they would be looked for at every unit.
constexpr std::size_t kLongestNamed = 64;

View Named(View marker) {
    return marker.size() <= kLongestNamed ? marker : View();
}

class Writer {
public:
    explicit Writer(const Table* table) {
        if (!table) return;
        m_Reph = Named(table->reph.text);
        m_YaPhala = Named(table->yaPhala.text);
    }

    std::u16string Write(View units) {
        while (!units.empty()) units.remove_prefix(WriteItem(units));
        return m_Made;
    }

private:
    static bool Begins(View rest, View marker) { return !marker.empty() && rest.starts_with(marker); }
    bool BeginsMarker(View rest) const { return Begins(rest, m_Reph) || Begins(rest, m_YaPhala); }

    // Writes one item and returns how many units it stands for.
    std::size_t WriteItem(View rest) {
        if (Begins(rest, m_Reph)) return Item(u"<reph>", m_Reph.size());
        if (Begins(rest, m_YaPhala)) return Item(u"<ya-phala>", m_YaPhala.size());
        if (IsPlain(rest[0]) && !NeedsNumber(rest)) {
            std::size_t length = 1;
            while (length < rest.size() && IsPlain(rest[length]) && !BeginsMarker(rest.substr(length)))
                ++length;
            const View literal = rest.substr(0, length);
            if (literal != u"=") return Item(literal, length);
        }
        const bool pair = rest.size() > 1 && (rest[0] & 0xFC00) == 0xD800 && (rest[1] & 0xFC00) == 0xDC00 &&
                          !BeginsMarker(rest.substr(1));
        if (pair) return Item(Number(((rest[0] - 0xD7C0u) << 10) + (rest[1] & 0x3FFu)), 2);
        return Item(Number(rest[0]), 1);
    }

    std::size_t Item(View item, std::size_t units) {
        if (!m_Made.empty()) m_Made += u' ';
        m_Made += item;
        return units;
    }

    View m_Reph;
    View m_YaPhala;
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
