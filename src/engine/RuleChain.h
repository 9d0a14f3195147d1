// The rules as a chain of small machines, each fed with what the one before it gives out.
#pragma once

#include "engine/RuleTable.h"
#include "engine/WorkCounter.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class RuleChain {
public:
    // What a rule has matched so far: the first Matched units of its Find text.
    struct Progress {
        std::uint16_t Rule;
        std::uint32_t Matched;
        bool operator==(const Progress&) const = default;
    };

    // table must outlive the chain. Rules that do nothing are left out.
    void Build(const RuleTable& table);

    // Rules in progress are put in and taken out between the calls, rule numbers ascending.
    void SetProgress(const std::vector<Progress>& progress);
    void GetProgress(std::vector<Progress>& progress) const;
    // Each of these appends to output what has gone through the whole chain.
    void Push(char16_t unit, std::u16string& output);
    // The end of the line: every rule lets go what it holds.
    void Finish(std::u16string& output);
    // Lets rules give up hope that what is held before them cannot fulfil.
    void Settle(std::u16string& output);

    // The units that can come out of the chain next, whatever is pushed; null where nothing is
    // known about it.
    const std::u16string* NextOut();

    // The units that some rule begins with or waits for.
    const std::u16string& UnitsInFinds() const { return m_UnitsInFinds; }
    // False where a call since the last SetProgress was broken off because it went on for too
    // long; what it gave out is then not all.
    bool Completed() const { return m_StepsLeft > 0; }
    // Rules and units looked at since the last SetProgress began.
    std::size_t Work() const { return m_Work; }

private:
    struct Rule {
        std::u16string_view find, replace;
        std::uint32_t common;  // units that Find and Replace begin with alike, less than all of Find
        std::uint32_t borders; // where this rule's borders begin in m_Borders
    };
    struct Segment {
        const char16_t* units; // null: the one unit
        std::size_t length;
        std::uint32_t level;
        char16_t unit;
    };

    std::uint32_t Given(const Rule& rule, std::uint32_t matched) const {
        return matched < rule.common ? matched : rule.common;
    }
    std::uint32_t Border(const Rule& rule, std::uint32_t matched) const {
        return m_Borders[rule.borders + matched];
    }
    void Worked(std::size_t count) {
        m_Work += count;
        CountWork(count);
    }
    bool Extends(const Rule& rule, std::uint32_t& matched, char16_t unit);
    void SetMatched(std::uint32_t rule, std::uint32_t matched);
    std::uint32_t NextInProgress(std::uint32_t level) const;
    std::uint32_t NextReacting(std::uint32_t level, char16_t unit) const;
    void PushSegment(std::u16string_view units, std::uint32_t level);
    void React(std::uint32_t rule, char16_t unit);
    void Run(std::u16string& output);
    bool FindArriving(std::uint32_t source, std::uint32_t target);
    bool Arrive(char16_t unit, std::uint32_t level, std::uint32_t target, int& budget);

    std::vector<Rule> m_Rules;
    std::vector<std::uint32_t> m_Borders;
    std::unordered_map<char16_t, std::vector<std::uint32_t>> m_Beginning; // rules by first unit
    std::u16string m_UnitsInFinds;

    std::vector<std::uint32_t> m_Matched;                       // by rule
    std::vector<std::uint64_t> m_InProgress, m_InProgressWords; // bit maps of two levels
    std::vector<Segment> m_Stack;
    std::u16string m_Arriving;
    std::size_t m_StepsLeft = 0;
    std::size_t m_Work = 0;
};
