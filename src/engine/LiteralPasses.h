// The six normalisation passes as plain string surgery, and the scans they are made of.
// They take any markers. Positions are 1-based counts of code units; reading beyond the end
// of a text gives the empty string.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace literal {

struct Markers {
    std::u16string_view reph;
    std::u16string_view yaPhala;
};

// Cuts cutText out at fromPos (only its length counts) and puts insertText in at toPos,
// which counts in the text after the cut. Equal positions leave the text as it is. Raises
// failure 5 for a toPos of 0.
std::u16string MoveAndReplace(std::u16string_view text, std::size_t fromPos, std::size_t toPos,
                              std::u16string_view cutText, std::u16string_view insertText);

// Where a reph at pos goes: in front of the character that stops the walk back over its
// cluster; 0 where the walk runs off the start.
std::size_t FindRephTarget(std::u16string_view text, std::size_t pos, std::u16string_view yaPhalaMarker);
// Where a chandrabindu at pos goes.
std::size_t FindChandrabinduTarget(std::u16string_view text, std::size_t pos,
                                   std::u16string_view yaPhalaMarker);
// Where an e, i or ai sign at pos goes: pos and the number of consonants and viramas that
// the walk counts, whatever else it walks over.
std::size_t FindPreBaseKarTarget(std::u16string_view text, std::size_t pos);

// The passes. Those that markers can make endless raise failure 5 naming the marker, and
// failure 14 where the line grows beyond kLongestLine.
void ResolveReph(std::u16string& line, const Markers& markers);
void ReorderChandrabindu(std::u16string& line, const Markers& markers);
void ResolveYaPhala(std::u16string& line, const Markers& markers);
void ComposeAa(std::u16string& line);
void ReorderPreBaseKars(std::u16string& line);
void ComposeSplitKars(std::u16string& line);

} // namespace literal

// A line that grows beyond this many units raises failure 14.
inline constexpr std::size_t kLongestLine = std::size_t{1} << 29;
