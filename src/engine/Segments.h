// What the passes do to the text behind the rules, told without its letters: where it can be
// cut so that the passes give the same for its parts, and how they rearrange a part.
#pragma once

#include "engine/LinearPasses.h"

#include <string>
#include <string_view>
#include <vector>

class Segments {
public:
    // Units of a text that a rearrangement can name.
    static constexpr std::size_t kMostUnits = 64;
    // In a rearrangement this and the following kMostUnits stand for the units of the old
    // text, by place; everything else for itself.
    static constexpr char16_t kPlace = 0xD800;

    // passes must outlive this and have its markers.
    explicit Segments(LinearPasses& passes) : m_Passes(passes) {}
    void Build();

    // Letters that the passes treat alike become the same: the n-th consonant of a text is the
    // n-th of a list, so is the n-th unit that no pass reads. False where the text is too long.
    bool Canonical(std::u16string& text) const;

    // Takes the longest front off text, which must be canonical, that nothing behind it can
    // change any more; text goes on with one of the units in next, if that is not null, or
    // ends. rearranged tells what becomes of the whole text; it is empty where nothing changes.
    // False where a pass fails.
    bool TakeSettled(std::u16string& text, const std::u16string* next, bool ends, std::u16string& rearranged);

private:
    bool IsWall(char16_t unit) const;
    bool IsForeign(char16_t unit) const;
    bool BeginsSegment(std::u16string_view text, std::size_t at, const std::u16string* next) const;
    bool RunPasses(std::u16string_view text, bool& closed);
    void Rearranged(std::u16string_view text, std::size_t settled, std::u16string& rearranged) const;

    LinearPasses& m_Passes;
    std::u16string m_Consonants, m_Walls; // the lists
    UnitBuffer m_Work;
};
