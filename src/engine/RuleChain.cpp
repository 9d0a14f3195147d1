// Replacing leftmost, not overlapping, is what a machine does that knows how many units of Find
// it has matched (with the borders of Knuth, Morris and Pratt, and back to none after a match).
// What is matched is held back until it is certain. Rule k's output is the input of rule k+1,
// so a unit pushed into the chain touches only the rules that react to it: those in progress
// and those that begin with it.
//
// Two things keep the rules from holding more than they must, without changing what comes out:
//
// Common beginning. Where Find and Replace begin alike those units come out in any case and go
// out at once.
//
// Settling. While an earlier rule holds text, the next unit that can reach a later rule is one
// of few: the first held unit, or the first that the rule puts in, both followed through the
// rules between. Where none of them continues what the later rule has matched, that rule falls
// back to what one of them does continue and gives out the rest now. It would have done so
// anyway when that unit came.
//
// Tested by tests/unit/engine/Differential_test.cpp, LargeTables_test.cpp and HostileRules_test.cpp.

#include "engine/RuleChain.h"

#include <algorithm>
#include <bit>

namespace {

constexpr std::uint32_t kNone = 0xFFFFFFFF;
constexpr std::size_t kMostArriving = 16;
constexpr int kArriveBudget = 64;
constexpr std::size_t kMostSteps = 1u << 16;

} // namespace

void RuleChain::Build(const RuleTable& table) {
    m_Rules.clear();
    m_Borders.clear();
    m_Beginning.clear();
    m_UnitsInFinds.clear();
    std::vector<bool> seen(0x10000);
    for (std::size_t i = 0; i < table.m_Find.size(); ++i) {
        const std::u16string_view find = table.m_Find[i], replace = table.m_Replace[i];
        if (find.empty() || find == replace) continue;
        Rule rule{find, replace, 0, static_cast<std::uint32_t>(m_Borders.size())};
        while (rule.common + 1 < find.size() && rule.common < replace.size() &&
               find[rule.common] == replace[rule.common])
            ++rule.common;
        // Border of the first n units, for n from 0 to the length less 1.
        m_Borders.push_back(0);
        if (find.size() > 1) m_Borders.push_back(0);
        for (std::size_t n = 2; n < find.size(); ++n) {
            std::uint32_t border = m_Borders.back();
            while (border > 0 && find[border] != find[n - 1]) border = Border(rule, border);
            m_Borders.push_back(find[border] == find[n - 1] ? border + 1 : 0);
        }
        m_Beginning[find[0]].push_back(static_cast<std::uint32_t>(m_Rules.size()));
        for (const char16_t unit : find) {
            if (!seen[unit]) m_UnitsInFinds += unit;
            seen[unit] = true;
        }
        m_Rules.push_back(rule);
    }
    m_Matched.assign(m_Rules.size(), 0);
    m_InProgress.assign(m_Rules.size() / 64 + 1, 0);
    m_InProgressWords.assign(m_InProgress.size() / 64 + 1, 0);
}

void RuleChain::SetMatched(std::uint32_t rule, std::uint32_t matched) {
    m_Matched[rule] = matched;
    std::uint64_t& word = m_InProgress[rule / 64];
    const std::uint64_t bit = std::uint64_t{1} << (rule % 64);
    word = matched > 0 ? word | bit : word & ~bit;
    std::uint64_t& words = m_InProgressWords[rule / 4096];
    const std::uint64_t wordBit = std::uint64_t{1} << (rule / 64 % 64);
    words = word != 0 ? words | wordBit : words & ~wordBit;
}

// The first rule in progress at or behind level.
std::uint32_t RuleChain::NextInProgress(std::uint32_t level) const {
    if (level >= m_Rules.size()) return kNone;
    std::size_t word = level / 64;
    std::uint64_t bits = m_InProgress[word] & (~std::uint64_t{0} << (level % 64));
    if (bits == 0) {
        std::size_t group = ++word / 64;
        if (group >= m_InProgressWords.size()) return kNone;
        std::uint64_t words = m_InProgressWords[group] & (~std::uint64_t{0} << (word % 64));
        while (words == 0) {
            if (++group >= m_InProgressWords.size()) return kNone;
            words = m_InProgressWords[group];
        }
        word = group * 64 + static_cast<std::size_t>(std::countr_zero(words));
        bits = m_InProgress[word];
    }
    return static_cast<std::uint32_t>(word * 64) + static_cast<std::uint32_t>(std::countr_zero(bits));
}

std::uint32_t RuleChain::NextReacting(std::uint32_t level, char16_t unit) const {
    const std::uint32_t inProgress = NextInProgress(level);
    const auto beginning = m_Beginning.find(unit);
    if (beginning == m_Beginning.end()) return inProgress;
    const auto next = std::lower_bound(beginning->second.begin(), beginning->second.end(), level);
    return next == beginning->second.end() ? inProgress : std::min(*next, inProgress);
}

void RuleChain::SetProgress(const std::vector<Progress>& progress) {
    m_Work = 0;
    for (std::uint32_t rule; (rule = NextInProgress(0)) != kNone; Worked(1)) SetMatched(rule, 0);
    for (const Progress& p : progress) SetMatched(p.Rule, p.Matched);
    Worked(progress.size());
    m_StepsLeft = kMostSteps;
}

void RuleChain::GetProgress(std::vector<Progress>& progress) const {
    progress.clear();
    for (std::uint32_t rule = 0; (rule = NextInProgress(rule)) != kNone; ++rule)
        progress.push_back({static_cast<std::uint16_t>(rule), m_Matched[rule]});
    CountWork(progress.size());
}

// Lowers matched to its longest border that unit continues. False where none is, and matched
// is then 0.
bool RuleChain::Extends(const Rule& rule, std::uint32_t& matched, char16_t unit) {
    std::size_t looks = 1;
    for (; rule.find[matched] != unit && matched > 0; ++looks) matched = Border(rule, matched);
    Worked(looks);
    return rule.find[matched] == unit;
}

void RuleChain::PushSegment(std::u16string_view units, std::uint32_t level) {
    if (!units.empty()) m_Stack.push_back({units.data(), units.size(), level, 0});
}

// Feeds unit to a rule. What comes out goes on the stack for the next level, last part first.
void RuleChain::React(std::uint32_t number, char16_t unit) {
    const Rule& rule = m_Rules[number];
    const std::uint32_t before = m_Matched[number];
    std::uint32_t matched = before;
    const bool extended = Extends(rule, matched, unit);
    const std::uint32_t fallen = before - matched; // units in front of what is matched now
    const std::uint32_t level = number + 1;
    if (extended && matched + 1 == rule.find.size()) {
        PushSegment(rule.replace.substr(rule.common), level);
        PushSegment(rule.find.substr(Given(rule, before), fallen + rule.common - Given(rule, before)), level);
        SetMatched(number, 0);
        return;
    }
    const std::uint32_t now = extended ? matched + 1 : 0;
    // Everything up to here goes out, counted in the text matched before and the unit itself.
    const std::uint32_t out = extended ? fallen + Given(rule, now) : before + 1;
    if (out > before) m_Stack.push_back({nullptr, 1, level, unit});
    const std::uint32_t upTo = std::min(out, before);
    PushSegment(rule.find.substr(Given(rule, before), upTo - Given(rule, before)), level);
    SetMatched(number, now);
}

void RuleChain::Run(std::u16string& output) {
    while (!m_Stack.empty()) {
        Segment& top = m_Stack.back();
        const std::uint32_t level = top.level;
        char16_t unit = top.unit;
        if (top.units != nullptr) unit = *top.units++;
        if (--top.length == 0) m_Stack.pop_back();
        Worked(1);
        if (m_StepsLeft == 0 || --m_StepsLeft == 0) {
            m_Stack.clear();
            return;
        }
        const std::uint32_t rule = NextReacting(level, unit);
        if (rule == kNone) {
            output += unit;
        } else {
            React(rule, unit);
        }
    }
}

void RuleChain::Push(char16_t unit, std::u16string& output) {
    m_Stack.push_back({nullptr, 1, 0, unit});
    Run(output);
}

void RuleChain::Finish(std::u16string& output) {
    for (std::uint32_t rule = 0; (rule = NextInProgress(rule)) != kNone; ++rule) {
        const Rule& of = m_Rules[rule];
        Worked(1);
        const std::uint32_t matched = m_Matched[rule], given = Given(of, matched);
        SetMatched(rule, 0);
        PushSegment(of.find.substr(given, matched - given), rule + 1);
        Run(output);
    }
}

// Follows a unit from level to the rule target and adds what arrives there to m_Arriving.
// False where it could be anything. Rules on the way hold nothing.
bool RuleChain::Arrive(char16_t unit, std::uint32_t level, std::uint32_t target, int& budget) {
    for (;;) {
        const std::uint32_t number = NextReacting(level, unit);
        Worked(1);
        if (number >= target) {
            if (m_Arriving.find(unit) != std::u16string::npos) return true;
            if (m_Arriving.size() == kMostArriving) return false;
            m_Arriving += unit;
            return true;
        }
        if (--budget < 0) return false;
        const Rule& rule = m_Rules[number];
        std::uint32_t matched = m_Matched[number];
        level = number + 1;
        if (!Extends(rule, matched, unit)) continue;
        const bool putsIn = rule.replace.size() > rule.common;
        if (matched + 1 == rule.find.size()) {
            if (!putsIn) return false;
            unit = rule.replace[rule.common];
        } else if (matched + 1 > rule.common) {
            // It will be held: it comes later, or what the rule puts in instead.
            if (!putsIn || !Arrive(rule.replace[rule.common], level, target, budget)) return false;
        }
    }
}

// Collects what can arrive next at the rule target, with source the nearest rule before it that
// holds text: the first unit held, or the first that comes in its place.
bool RuleChain::FindArriving(std::uint32_t source, std::uint32_t target) {
    const Rule& from = m_Rules[source];
    m_Arriving.clear();
    int budget = kArriveBudget;
    return from.replace.size() > from.common && Arrive(from.find[from.common], source + 1, target, budget) &&
           Arrive(from.replace[from.common], source + 1, target, budget);
}

void RuleChain::Settle(std::u16string& output) {
    std::uint32_t source = kNone; // the nearest earlier rule that holds text
    for (std::uint32_t number = 0; (number = NextInProgress(number)) != kNone; ++number) {
        const Rule& rule = m_Rules[number];
        const std::uint32_t before = m_Matched[number];
        Worked(1);
        if (source != kNone && FindArriving(source, number)) {
            std::uint32_t longest = 0;
            for (const char16_t unit : m_Arriving) {
                std::uint32_t matched = before;
                if (Extends(rule, matched, unit)) longest = std::max(longest, matched);
            }
            if (longest < before) {
                const std::uint32_t given = Given(rule, before);
                const std::uint32_t out = before - longest + Given(rule, longest);
                SetMatched(number, longest);
                PushSegment(rule.find.substr(given, out - given), number + 1);
                Run(output);
            }
        }
        if (m_Matched[number] > rule.common) source = number;
    }
}

const std::u16string* RuleChain::NextOut() {
    std::uint32_t source = kNone;
    for (std::uint32_t number = 0; (number = NextInProgress(number)) != kNone; ++number) {
        Worked(1);
        if (m_Matched[number] > m_Rules[number].common) source = number;
    }
    if (source == kNone || !FindArriving(source, static_cast<std::uint32_t>(m_Rules.size()))) return nullptr;
    return &m_Arriving;
}
