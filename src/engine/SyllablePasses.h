// The six passes for text as it is usually written, unit by unit: what they make of a
// syllable follows from the kinds of its units alone, and is known as soon as it is over.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// What a step writes.
struct SyllableOutput {
    std::u16string Units;
    // Where in Units the last cluster begins, for the reph that may come behind it.
    static constexpr std::size_t kNoCluster = static_cast<std::size_t>(-1);
    std::size_t Cluster = kNoCluster;
    // So many pairs of RA and virama go in front of a cluster that was written before.
    unsigned Rephs = 0;
};

class SyllablePasses {
public:
    // Between two units. A plain number, so that it can be part of a key.
    using State = std::uint16_t;
    static constexpr State kStart = 0;

    // Must be ordinary (AreOrdinaryMarkers).
    void SetMarkers(char16_t reph, char16_t yaPhala);

    // Goes on by a unit. False where text is not as it is usually written (a sign without a
    // letter, a reph without a cluster, ...): then the passes have to see all of the line.
    bool Put(State& state, char16_t unit, SyllableOutput& output) const;
    // The end of the line.
    bool End(State state, SyllableOutput& output) const;

private:
    char16_t m_Reph = 0;
    char16_t m_YaPhala = 0;
};
