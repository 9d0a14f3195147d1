// The text is written as it comes, but for what must wait: an e, i or ai sign for the end of
// its cluster, a chandrabindu for the signs behind it, the letter A for an aa sign. A reph is
// the one thing that goes back: in front of the cluster it stands behind, which the caller
// finds in what is written. Whatever the passes treat otherwise (their scans leave the
// syllable, a second sign changes what is counted) is refused.
//
// Why the passes do the same with the whole line: a cluster begins behind a unit that is no
// virama, so a reph's scan stops there; the walk of a sign stops at the end of its cluster, as
// what comes next is no virama; and the signs of a syllable are followed by a unit that the
// other passes do not look beyond.
//
// Tested by tests/unit/engine/SyllablePasses_test.cpp and Differential_test.cpp.

#include "engine/SyllablePasses.h"

#include "engine/BanglaUnits.h"

using namespace bangla;

namespace {

enum Phase : std::uint8_t {
    kPlain,   // behind a unit that no pass looks beyond, or at the start of the line
    kSign,    // behind a pre-base sign, whose cluster is to come
    kCluster, // behind a consonant
    kJoin,    // behind a virama in a cluster
    kVowel,   // behind a cluster and a vowel sign
    kBeyond,  // behind signs that a reph's scan does not pass
};

struct Fields {
    Phase phase = kPlain;
    unsigned sign = 0;             // 1 to 3: the pre-base sign that waits
    bool chandrabindu = false;     // waits
    bool chandrabinduSeen = false; // in this syllable
    bool letterA = false;          // waits
    bool bareRa = false;           // the cluster is RA alone and ends here
    bool joiner = false;           // the cluster has got a U+200C

    explicit Fields(SyllablePasses::State state)
        : phase(static_cast<Phase>(state & 7)), sign(state >> 3 & 3), chandrabindu(state & 32),
          chandrabinduSeen(state & 64), letterA(state & 128), bareRa(state & 256), joiner(state & 512) {}
    SyllablePasses::State Packed() const {
        return static_cast<SyllablePasses::State>(phase | sign << 3 | (chandrabindu ? 32 : 0) |
                                                  (chandrabinduSeen ? 64 : 0) | (letterA ? 128 : 0) |
                                                  (bareRa ? 256 : 0) | (joiner ? 512 : 0));
    }
};

constexpr char16_t kSigns[] = {0, kUnitSignE, kUnitSignI, kUnitSignAi};

// Writes what waits; nothing can come in between any more.
void Release(Fields& fields, SyllableOutput& output) {
    if (fields.letterA) output.Units += kUnitA;
    if (fields.sign != 0) output.Units += kSigns[fields.sign];
    if (fields.chandrabindu) output.Units += kUnitCandrabindu;
    fields.letterA = fields.chandrabindu = false;
    fields.sign = 0;
}

bool PutConsonant(Fields& fields, char16_t unit, SyllableOutput& output) {
    if (fields.phase == kJoin) {
        fields.phase = kCluster;
        fields.bareRa = false;
        output.Units += unit;
        return true;
    }
    const unsigned waiting = fields.phase == kSign ? fields.sign : 0;
    if (waiting == 0) Release(fields, output);
    fields = Fields(kCluster);
    fields.sign = waiting;
    fields.bareRa = unit == kUnitRa;
    output.Cluster = output.Units.size();
    output.Units += unit;
    return true;
}

bool PutPostBase(Fields& fields, char16_t unit, SyllableOutput& output) {
    if (fields.phase == kSign || (fields.phase == kJoin && fields.sign != 0)) return false;
    const bool behindCluster = fields.phase == kCluster || fields.phase == kJoin;
    // A chandrabindu goes on waiting, and is written behind the sign.
    if (fields.letterA) output.Units += unit == kUnitSignAa ? kUnitAa : kUnitA;
    const bool split = fields.sign == 1 && (unit == kUnitSignAa || unit == kUnitAuLengthMark);
    if (split)
        output.Units += unit == kUnitSignAa ? kUnitSignO : kUnitSignAu;
    else if (fields.sign != 0)
        output.Units += kSigns[fields.sign];
    if (!split && !(fields.letterA && unit == kUnitSignAa)) output.Units += unit;
    fields.letterA = false;
    fields.sign = 0;
    fields.phase = behindCluster ? kVowel : kBeyond;
    return true;
}

} // namespace

void SyllablePasses::SetMarkers(char16_t reph, char16_t yaPhala) {
    m_Reph = reph;
    m_YaPhala = yaPhala;
}

bool SyllablePasses::Put(State& state, char16_t unit, SyllableOutput& output) const {
    Fields fields(state);
    const std::uint8_t of = ClassOf(unit);
    bool usual = true;
    if (unit == m_Reph) {
        usual =
            (fields.phase == kCluster || fields.phase == kJoin || fields.phase == kVowel) && !fields.joiner;
        fields.bareRa = false;
        if (output.Cluster == SyllableOutput::kNoCluster) {
            ++output.Rephs;
        } else {
            const char16_t pair[] = {kUnitRa, kUnitVirama};
            output.Units.insert(output.Cluster, pair, 2);
        }
    } else if (unit == m_YaPhala) {
        usual = fields.phase == kCluster;
        if (fields.bareRa) {
            // No virama stands behind the RA now, so the walk of a sign ends there.
            if (fields.sign != 0) output.Units += kSigns[fields.sign];
            fields.sign = 0;
            output.Units += kUnitNonJoiner;
            fields.joiner = true;
        }
        output.Units += kUnitVirama;
        output.Units += kUnitYa;
        fields.bareRa = false;
        fields.phase = kCluster;
    } else if (of & kConsonant) {
        usual = PutConsonant(fields, unit, output);
    } else if (of & kVirama) {
        usual = fields.phase == kCluster && !fields.chandrabindu;
        output.Units += unit;
        fields.bareRa = false;
        fields.phase = kJoin;
    } else if (of & kCandrabindu) {
        usual = fields.phase != kSign && fields.phase != kJoin && !fields.chandrabinduSeen;
        fields.chandrabindu = fields.chandrabinduSeen = true;
        if (fields.phase == kPlain && !fields.letterA) fields.phase = kBeyond;
    } else if (of & kPostBase) {
        usual = PutPostBase(fields, unit, output);
    } else if (fields.phase == kSign || (fields.phase == kJoin && fields.sign != 0)) {
        usual = false; // the walk of the sign goes on beyond this unit
    } else if (fields.phase == kJoin && (of & kPreBaseKar)) {
        usual = false; // in what is written, the virama would join two clusters
    } else if (of & kPreBaseKar) {
        Release(fields, output);
        fields = Fields(kSign);
        fields.sign = unit == kUnitSignE ? 1 : unit == kUnitSignI ? 2 : 3;
    } else if (of & kVowelSign) {
        Release(fields, output);
        output.Units += unit;
        const bool behindCluster = fields.phase == kCluster || fields.phase == kJoin;
        fields.phase = behindCluster ? kVowel : kBeyond;
    } else {
        Release(fields, output);
        fields = Fields(kPlain);
        if (of & kLetterA)
            fields.letterA = true;
        else
            output.Units += unit;
    }
    state = fields.Packed();
    return usual;
}

bool SyllablePasses::End(State state, SyllableOutput& output) const {
    Fields fields(state);
    Release(fields, output);
    return true;
}
