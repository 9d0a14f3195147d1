// The six passes, each in one walk over the line, for markers of one unit that no pass reads
// or writes otherwise. Results and failures are those of the literal passes.
#pragma once

#include "engine/OutputBuffer.h"

#include <cstdint>
#include <utility>
#include <vector>

class LinearPasses {
public:
    // Both must be ordinary (IsOrdinaryMarker) and different.
    void SetMarkers(char16_t reph, char16_t yaPhala);
    char16_t Reph() const { return m_Reph; }
    char16_t YaPhala() const { return m_YaPhala; }

    // All passes in their order; only those that the line calls for walk over it. False where
    // a scan for an e, i or ai sign ran to the end of the line, so that what follows the line
    // would have changed the result.
    bool Run(UnitBuffer& line);

    // Raises failure 5 where a scan runs off the start of the line and failure 14 where the
    // line grows beyond the limit.
    void ResolveReph(UnitBuffer& line);
    void ReorderChandrabindu(UnitBuffer& line);
    void ResolveYaPhala(UnitBuffer& line);
    void ComposeAa(UnitBuffer& line);
    bool ReorderPreBaseKars(UnitBuffer& line);
    void ComposeSplitKars(UnitBuffer& line);

private:
    bool ReorderPreBaseKar(UnitBuffer& line, char16_t sign);

    char16_t m_Reph = 0;
    char16_t m_YaPhala = 0;
    // Where rephs go, ascending, and how many.
    std::vector<std::pair<std::uint32_t, std::uint32_t>> m_Targets;
};
