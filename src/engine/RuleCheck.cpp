// Which rules can never match is decided so: behind rule i no text of its Find is left in
// the line, unless a replacement of rule i or of a later one makes it anew. A later rule
// whose Find holds that text is dead as long as no rule in between can have made it.
// Tested by tests/unit/engine/rulecheck_test.cpp.

#include "engine/RuleCheck.h"

#include "base/Text.h"
#include "engine/RuleTable.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>

namespace rulecheck {
namespace {

using rulesource::Message;
using rulesource::Table;
using View = std::u16string_view;

// Texts of a hostile table may be of any length. Longer ones than this are not searched for,
// or in, and only their beginning is told.
constexpr std::size_t kLongestSearched = 64;
constexpr std::size_t kLongestTold = 40;
// Units looked at before the search for dead rules is given up.
constexpr std::size_t kMostWork = 20'000'000;

std::u16string LineOf(std::size_t line) {
    return u"line " + text::Decimal(static_cast<long long>(line));
}

// The Find texts seen so far, found inside a longer one.
class FindTree {
public:
    // The first rule whose Find is units; nothing is changed where there is one already.
    void Add(View units, std::size_t rule) {
        std::uint32_t node = 0;
        for (const char16_t unit : units) {
            const auto [next, isNew] = m_Next.try_emplace(Key(node, unit), m_Last + 1);
            if (isNew) ++m_Last;
            node = next->second;
        }
        m_Rule.try_emplace(node, rule);
    }
    // Calls found(rule) for each Find that begins at the start of units.
    template <class Found>
    void At(View units, Found found) const {
        std::uint32_t node = 0;
        for (const char16_t unit : units) {
            const auto next = m_Next.find(Key(node, unit));
            if (next == m_Next.end()) return;
            node = next->second;
            if (const auto rule = m_Rule.find(node); rule != m_Rule.end()) found(rule->second);
        }
    }

private:
    static std::uint64_t Key(std::uint32_t node, char16_t unit) { return std::uint64_t{node} << 16 | unit; }

    std::unordered_map<std::uint64_t, std::uint32_t> m_Next;
    std::unordered_map<std::uint32_t, std::size_t> m_Rule;
    std::uint32_t m_Last = 0;
};

// True where putting replace into some line can bring forth an occurrence of find.
bool CanMake(View replace, View find) {
    if (replace.empty()) return find.size() > 1; // neighbours come together
    if (replace.find(find) != View::npos || find.find(replace) != View::npos) return true;
    for (std::size_t length = 1; length < std::min(replace.size(), find.size()); ++length)
        if (replace.substr(replace.size() - length) == find.substr(0, length) ||
            replace.substr(0, length) == find.substr(find.size() - length))
            return true;
    return false;
}

bool IsPrivate(char16_t unit) {
    return (unit >= 0xE000 && unit <= 0xF8FF) || (unit >= 0xDB80 && unit <= 0xDBFF) ||
           (unit >= 0xFDD0 && unit <= 0xFDEF) || unit >= 0xFFFE;
}

// Letters that only legacy text has; quotes, dashes and signs may be meant.
bool IsLegacyLetter(char16_t unit) {
    if ((unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z')) return true;
    if (unit >= 0x80 && unit < 0xA0) return true;
    if (unit == 0xAA || unit == 0xB5 || unit == 0xBA) return true;
    if (unit >= 0xC0 && unit <= 0xFF) return unit != 0xD7 && unit != 0xF7;
    return View(u"\u0152\u0153\u0160\u0161\u0178\u017D\u017E\u0192").find(unit) != View::npos;
}

class Checker {
public:
    Checker(const Table& table, std::vector<Message>& messages) : m_Table(table), m_Messages(messages) {}

    void Check() {
        CheckMarker(m_Table.reph, u"reph", u"what stands around one may make another");
        CheckMarker(m_Table.yaPhala, u"ya-phala",
                    u"the scans for clusters do not know it, and each u sign before it keeps a part of it");
        CheckFinds();
        CheckReplaces();
        if (m_Table.rules.size() > RuleTable::kMostRules)
            Warn(m_Table.rules[RuleTable::kMostRules].line,
                 u"more than 32767 rules; the table loads, but every conversion with it fails");
    }

private:
    void Warn(std::size_t line, std::u16string text) { m_Messages.push_back({line, false, std::move(text)}); }

    std::u16string Quoted(View units) const {
        const bool cut = units.size() > kLongestTold;
        return u"'" + rulesource::ShowText(units.substr(0, kLongestTold), &m_Table) + (cut ? u" ...'" : u"'");
    }

    void CheckMarker(const Table::Marker& marker, View name, View ifLong) {
        if (marker.text.empty()) return;
        const std::u16string the = u"the " + std::u16string(name) + u" marker ";
        if (marker.text.size() > 1)
            Warn(marker.line, the + u"is longer than one 16-bit unit; " + std::u16string(ifLong));
        if (std::none_of(marker.text.begin(), marker.text.end(), IsPrivate))
            Warn(marker.line, the + u"'" + rulesource::ShowText(View(marker.text).substr(0, kLongestTold)) +
                                  u"'" +
                                  u" occurs in ordinary text; take a private character such as U+E001");
        if (marker.text.size() > kLongestSearched) return;
        for (const Table::Rule& rule : m_Table.rules)
            if (rule.find.find(marker.text) != View::npos) Warn(rule.line, the + u"stands in a Find text");
    }

    void CheckFinds() {
        FindTree tree;
        std::unordered_map<std::u16string_view, std::size_t> first;
        for (std::size_t j = 0; j < m_Table.rules.size(); ++j) {
            const Table::Rule& rule = m_Table.rules[j];
            if (rule.find.empty()) {
                Warn(rule.line, u"the Find text is empty; the rule does nothing");
                continue;
            }
            if (const auto [earlier, isNew] = first.try_emplace(rule.find, j); !isNew) {
                CheckDouble(earlier->second, j);
                continue;
            }
            if (rule.find.size() > kLongestSearched) continue;
            CheckShorter(tree, j);
            tree.Add(rule.find, j);
        }
    }

    void CheckDouble(std::size_t i, std::size_t j) {
        const std::u16string same = Quoted(m_Table.rules[j].find) + u" is looked for in " +
                                    LineOf(m_Table.rules[i].line) + u" already; this rule ";
        Warn(m_Table.rules[j].line,
             same + (IsDead(i, j) ? u"can never match" : u"meets only what rules have made since"));
    }

    void CheckShorter(const FindTree& tree, std::size_t j) {
        const View find = m_Table.rules[j].find;
        std::size_t blame = j;
        for (std::size_t at = 0; at < find.size(); ++at)
            tree.At(find.substr(at), [&](std::size_t i) {
                if (i < blame && IsDead(i, j)) blame = i;
            });
        if (blame == j) return;
        const Table::Rule& earlier = m_Table.rules[blame];
        Warn(m_Table.rules[j].line, Quoted(find) + u" can never match: " + LineOf(earlier.line) +
                                        u" replaces " + Quoted(earlier.find) +
                                        u" before it; put the longer one first");
    }

    // True where no rule from i to j - 1 can bring forth the Find text of rule i.
    bool IsDead(std::size_t i, std::size_t j) {
        const View find = m_Table.rules[i].find;
        if (find.size() > kLongestSearched) return false;
        for (std::size_t k = i; k < j; ++k) {
            m_Work += 1 + m_Table.rules[k].replace.size();
            if (m_Work > kMostWork) return false;
            // A rule that never does anything makes nothing.
            if (!m_Table.rules[k].find.empty() && CanMake(m_Table.rules[k].replace, find)) return false;
        }
        return true;
    }

    void CheckReplaces() {
        // The last rule that looks for each unit.
        std::unordered_map<char16_t, std::size_t> last;
        for (std::size_t i = 0; i < m_Table.rules.size(); ++i)
            for (const char16_t unit : m_Table.rules[i].find) last[unit] = i;
        for (std::size_t i = 0; i < m_Table.rules.size(); ++i) {
            const Table::Rule& rule = m_Table.rules[i];
            if (rule.find.empty()) continue;
            for (const char16_t unit : rule.replace) {
                if (!IsLegacyLetter(unit)) continue;
                const auto taken = last.find(unit);
                if (taken != last.end() && taken->second > i) continue;
                Warn(rule.line, u"the legacy character " + Quoted(View(&unit, 1)) +
                                    u" is left in the Replace text; no later rule looks for it");
                break;
            }
        }
    }

    const Table& m_Table;
    std::vector<Message>& m_Messages;
    std::size_t m_Work = 0;
};

} // namespace

void Check(const Table& table, std::vector<Message>& messages) {
    const auto from = static_cast<std::ptrdiff_t>(messages.size());
    Checker(table, messages).Check();
    std::stable_sort(messages.begin() + from, messages.end(),
                     [](const Message& a, const Message& b) { return a.line < b.line; });
}

} // namespace rulecheck
