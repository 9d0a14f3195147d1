// The six normalisation passes, each in one walk over the line.
#pragma once

#include "engine/BanglaUnits.h"
#include "engine/OutputBuffer.h"
#include "engine/RephPass.h"
#include "engine/YaPhalaPass.h"

#include <string_view>

class LinearPasses {
public:
    explicit LinearPasses(std::size_t longestLine = kLongestLine)
        : m_RephPass(longestLine), m_YaPhalaPass(longestLine) {}

    // Any two texts.
    void SetMarkers(std::u16string_view reph, std::u16string_view yaPhala);
    // bangla::kNoUnit for a marker that is not one unit.
    char32_t Reph() const { return m_Reph; }
    char32_t YaPhala() const { return m_YaPhala; }

    // All passes in their order; only those that the line calls for walk over it. False where
    // a scan for an e, i or ai sign ran to the end of the line, so that what follows the line
    // would have changed the result.
    bool Run(UnitBuffer& line);

    // The first and the third raise the failures of RephPass and YaPhalaPass.
    void ResolveReph(UnitBuffer& line) { m_RephPass.Run(line); }
    void ReorderChandrabindu(UnitBuffer& line);
    void ResolveYaPhala(UnitBuffer& line) { m_YaPhalaPass.Run(line); }
    void ComposeAa(UnitBuffer& line);
    bool ReorderPreBaseKars(UnitBuffer& line);
    void ComposeSplitKars(UnitBuffer& line);

private:
    bool ReorderPreBaseKar(UnitBuffer& line, char16_t sign);

    RephPass m_RephPass;
    YaPhalaPass m_YaPhalaPass;
    bool m_AreOrdinary = false; // the markers
    char32_t m_Reph = bangla::kNoUnit, m_YaPhala = bangla::kNoUnit;
};
