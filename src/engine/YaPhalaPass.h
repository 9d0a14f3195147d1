// ResolveYaPhala: each ya-phala marker becomes virama and YA, with a U+200C in front of them behind
// a bare RA. Those behind u signs go in front of them.
#pragma once

#include "engine/Growth.h"
#include "engine/MarkerSearch.h"
#include "engine/OutputBuffer.h"

#include <string>
#include <string_view>

class YaPhalaPass {
public:
    explicit YaPhalaPass(std::size_t longestLine = kLongestLine) : m_LongestLine(longestLine) {}

    // Any text.
    void SetMarker(std::u16string_view marker);

    // Raises failure 5 naming the marker where the pass would never end and failure 14 where the
    // line grows beyond the longest.
    void Run(UnitBuffer& line);

private:
    void RunOneUnit(UnitBuffer& line);
    void RunSeveralUnits(UnitBuffer& line);
    void RunYaVirama(UnitBuffer& line);

    std::size_t m_LongestLine;
    MarkerSearch m_Search;
    std::u16string m_Left, m_Right; // of the line; the right part from its end
};
