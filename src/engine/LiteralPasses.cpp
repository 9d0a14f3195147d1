// The passes in their plain form. Each step costs as much as it moves, so a line with many
// markers may cost its length squared; the engine comes here only for markers that the
// linear passes do not take (see LinearPasses.cpp), which no sensible table has.
//
// Markers can make a pass endless: an empty one is found again for ever, and one that its
// own replacement holds may be. A replacement of the ya-phala marker that holds the marker
// is seen at once, as each search begins at the start of the line. Whether a reph marker
// is endless depends on the line, so its steps are counted: markers that come to an end
// need about as many steps as the line has units.
//
// Tested by tests/unit/engine/Passes_test.cpp and Endless_test.cpp.

#include "engine/LiteralPasses.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "engine/modBanglaChar.h"

namespace literal {
namespace {

using namespace modBanglaChar;

constexpr std::u16string_view kReph = u"\u09B0\u09CD";
constexpr std::u16string_view kYaPhala = u"\u09CD\u09AF";
constexpr std::u16string_view kYaPhalaBehindBareRa = u"\u200C\u09CD\u09AF";

std::u16string_view At(std::u16string_view text, std::size_t pos) {
    return pos >= 1 && pos <= text.size() ? text.substr(pos - 1, 1) : std::u16string_view();
}

// Position of the first occurrence at or after pos; 0 where there is none or pos is behind
// the end.
std::size_t Find(std::u16string_view text, std::size_t pos, std::u16string_view wanted) {
    if (pos > text.size()) return 0;
    const std::size_t found = text.find(wanted, pos - 1);
    return found == std::u16string_view::npos ? 0 : found + 1;
}

[[noreturn]] void RaiseEndless(std::u16string_view name, std::u16string_view marker) {
    std::u16string description = u"Invalid procedure call or argument: the ";
    description += name;
    if (marker.empty()) {
        description += u" is empty";
    } else {
        description += u" \"";
        description += marker;
        description += u"\" makes its pass endless";
    }
    throw RuntimeFailure(kInvalidCall, u"clsConvert", description);
}

// MoveAndReplace on the line itself; moves no more than lies between the two places where
// the length stays.
void MoveAndReplaceIn(std::u16string& line, std::size_t fromPos, std::size_t toPos, std::size_t cutLength,
                      std::u16string_view insertText) {
    if (fromPos == toPos) return;
    if (toPos == 0) throw RuntimeFailure(kInvalidCall, u"clsConvert");
    if (fromPos <= line.size()) line.erase(fromPos - 1, cutLength);
    if (line.size() + insertText.size() > kLongestLine && insertText.size() > cutLength)
        throw RuntimeFailure(kOutOfStringSpace, u"clsConvert");
    if (toPos > line.size()) {
        line += insertText;
    } else {
        line.insert(toPos - 1, insertText);
    }
}

void ReorderPreBaseKar(std::u16string& line, std::u16string_view sign) {
    for (std::size_t pos = 1;;) {
        const std::size_t from = Find(line, pos, sign);
        if (from == 0) return;
        const std::size_t to = FindPreBaseKarTarget(line, from);
        MoveAndReplaceIn(line, from, to, 1, sign);
        pos = to + 1;
    }
}

} // namespace

std::u16string MoveAndReplace(std::u16string_view text, std::size_t fromPos, std::size_t toPos,
                              std::u16string_view cutText, std::u16string_view insertText) {
    std::u16string result(text);
    MoveAndReplaceIn(result, fromPos, toPos, cutText.size(), insertText);
    return result;
}

std::size_t FindRephTarget(std::u16string_view text, std::size_t pos, std::u16string_view yaPhalaMarker) {
    if (pos <= 1) return pos;
    std::size_t count = 0;
    bool vowelSeen = false;
    bool chandrabinduSeen = false;
    for (std::size_t i = pos - 1; i >= 1; --i) {
        const std::u16string_view c = At(text, i);
        if (IsVowelSign(c)) {
            if (vowelSeen) break;
            vowelSeen = true;
        } else if (c == Candrabindu()) {
            if (chandrabinduSeen) break;
            chandrabinduSeen = true;
        } else if (c != Virama() && c != yaPhalaMarker) {
            if (!IsConsonant(c) || At(text, i - 1) != Virama()) break;
        }
        ++count;
    }
    return pos - 1 - count;
}

std::size_t FindChandrabinduTarget(std::u16string_view text, std::size_t pos,
                                   std::u16string_view yaPhalaMarker) {
    std::size_t to = pos;
    while (to < text.size() && (At(text, to + 1) == yaPhalaMarker || IsPostBaseSign(At(text, to + 1)))) ++to;
    return to;
}

std::size_t FindPreBaseKarTarget(std::u16string_view text, std::size_t pos) {
    std::size_t count = 0;
    for (std::size_t i = pos + 1; i <= text.size(); ++i) {
        const std::u16string_view c = At(text, i);
        if (c == Virama()) {
            ++count;
        } else if (IsConsonant(c)) {
            ++count;
            if (At(text, i + 1) != Virama()) break;
        }
    }
    return pos + count;
}

void ResolveReph(std::u16string& line, const Markers& markers) {
    std::size_t steps = line.size() * 64 + 4096;
    for (std::size_t pos = 1;;) {
        const std::size_t from = Find(line, pos, markers.reph);
        if (from == 0) return;
        const std::size_t to = FindRephTarget(line, from, markers.yaPhala);
        MoveAndReplaceIn(line, from, to, markers.reph.size(), kReph);
        pos = to + 1;
        // An empty marker that stands behind the first unit goes in front of it for ever.
        if (--steps == 0 || (markers.reph.empty() && from > 1)) RaiseEndless(u"reph marker", markers.reph);
    }
}

void ReorderChandrabindu(std::u16string& line, const Markers& markers) {
    for (std::size_t pos = 1;;) {
        const std::size_t from = Find(line, pos, Candrabindu());
        if (from == 0) return;
        const std::size_t to = FindChandrabinduTarget(line, from, markers.yaPhala);
        MoveAndReplaceIn(line, from, to, 1, Candrabindu());
        pos = to + 1;
    }
}

void ResolveYaPhala(std::u16string& line, const Markers& markers) {
    const std::u16string_view marker = markers.yaPhala;
    std::size_t steps = line.size() * 64 + (std::size_t{1} << 20);
    for (std::size_t start = 1;;) {
        const std::size_t from = Find(line, start, marker);
        if (from == 0) return;
        if (marker.empty() || --steps == 0) RaiseEndless(u"ya-phala marker", marker);
        const std::u16string_view before = At(line, from - 1);
        const bool swaps = before == SignVocalicR() || before == SignUu() || before == SignU();
        std::u16string_view insert = kYaPhala;
        std::u16string swapped;
        if (swaps) {
            // Only one unit is taken off behind the sign, however long the marker is.
            swapped = marker;
            swapped += before;
            line.replace(from - 2, 2, swapped);
        } else {
            if (before == Ra() && At(line, from - 2) != Virama()) insert = kYaPhalaBehindBareRa;
            if (insert.find(marker) != std::u16string_view::npos) RaiseEndless(u"ya-phala marker", marker);
            line.replace(from - 1, marker.size(), insert);
        }
        if (line.size() > kLongestLine) throw RuntimeFailure(kOutOfStringSpace, u"clsConvert");
        // Nothing before the place of the change can have become a marker but what reaches it.
        start = from - 1 > marker.size() ? from - 1 - marker.size() : 1;
    }
}

void ComposeAa(std::u16string& line) {
    line = text::ReplaceAll(line, u"\u0985\u09BE", u"\u0986");
}

void ReorderPreBaseKars(std::u16string& line) {
    ReorderPreBaseKar(line, SignE());
    ReorderPreBaseKar(line, SignI());
    ReorderPreBaseKar(line, SignAi());
}

void ComposeSplitKars(std::u16string& line) {
    line = text::ReplaceAll(line, u"\u09C7\u09BE", u"\u09CB");
    line = text::ReplaceAll(line, u"\u09C7\u09D7", u"\u09CC");
}

} // namespace literal
