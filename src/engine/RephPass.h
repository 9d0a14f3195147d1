// ResolveReph: each reph marker becomes RA and virama in front of its cluster.
#pragma once

#include "engine/BanglaUnits.h"
#include "engine/Growth.h"
#include "engine/MarkerSearch.h"
#include "engine/OutputBuffer.h"

#include <cstdint>
#include <string_view>
#include <vector>

class RephPass {
public:
    explicit RephPass(std::size_t longestLine = kLongestLine) : m_LongestLine(longestLine) {}

    // Any two texts.
    void SetMarkers(std::u16string_view reph, std::u16string_view yaPhala);

    // Raises failure 5 where a scan runs off the start of the line, and naming the marker where
    // the pass would never end; failure 14 where the line grows beyond the longest.
    void Run(UnitBuffer& line);

    // So many groups were kept at the end of the last line; they are what the pass needs room for.
    std::size_t GroupsKept() const { return m_Groups.size(); }

private:
    enum class Kind : std::uint8_t { Foreign, Consonant, SteppedOver, VowelSign, Candrabindu };
    // A unit that a scan may stop at, and those behind it that every scan steps over. The pairs of
    // RA and virama that were put in front of it are counted, not written. Only the first group
    // can begin with a unit that is stepped over, and one whose first units a marker has taken away.
    struct Group {
        std::uint32_t start;
        std::uint32_t pairs;
        std::uint32_t back; // so many groups before it a scan that passes it goes on
    };
    struct Target {
        std::size_t group;
        bool atPair; // stopped by a RA that was put in
    };

    Kind KindOf(char16_t unit) const;
    bool IsBehindVirama(const Group& group) const;
    bool IsSteppedOver(const Group& group) const;
    void ForgetFarGroup();
    void Place(char16_t unit);
    void Remove(std::size_t length);
    void RemoveAtStart(std::size_t length);
    Target FindRephTarget() const;
    bool ComesAround(const Target& target) const;
    std::size_t MatchedAtEnd() const;
    void Write(UnitBuffer& line, std::size_t pairs) const;
    void RunStepByStep(UnitBuffer& line);

    std::size_t m_LongestLine;
    MarkerSearch m_Search;
    char32_t m_YaPhala = bangla::kNoUnit;
    bool m_MayComeAround = false;
    bool m_MayTakeInPairs = false;

    // What was read so far, without markers and without what was put in.
    char16_t* m_Units = nullptr;
    std::uint32_t m_End = 0;
    std::vector<Group> m_Groups;
    std::u16string m_Left, m_Right; // of the line, for RunStepByStep; the right part from its end
};
