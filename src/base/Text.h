// Text of the program: strings of 16-bit code units, lone surrogates and NULs included,
// and the ways from and to bytes.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace text {

// The ANSI code page is Windows-1252 on every machine, its five holes kept as C1 controls,
// so that all 256 bytes go there and back exactly.
char16_t FromCp1252(unsigned char byte);
std::u16string FromCp1252(std::string_view bytes);
// Into room for as many units as there are bytes.
void FromCp1252(std::string_view bytes, char16_t* room);
// The byte of a code unit, or -1 where the code page has none.
int ToCp1252(char16_t unit);
// False where a unit has no byte; bytes is then left as it was.
bool ToCp1252(std::u16string_view units, std::string& bytes);
// One byte for each unit; a unit that has none becomes '?'.
std::string ToAnsi(std::u16string_view units);

// Invalid input becomes U+FFFD, one for each maximal part that no valid sequence begins
// with; invalid (may be null) is raised by their number.
std::u16string FromUtf8(std::string_view bytes, std::size_t* invalid = nullptr);
// Lone surrogates become U+FFFD and are counted in replaced (may be null).
std::string ToUtf8(std::u16string_view units, std::size_t* replaced = nullptr);
// Bytes of the longest valid UTF-8 at the start.
std::size_t ValidUtf8(std::string_view bytes);

// UTF-16 little-endian bytes. An odd last byte becomes U+FFFD.
std::u16string FromUtf16Le(std::string_view bytes);
// Two bytes for each unit, without a mark; lone surrogates as they are.
std::string ToUtf16Le(std::u16string_view units);

// Parts between separators; the text without any is one part, so is the empty text.
std::vector<std::u16string_view> Split(std::u16string_view units, std::u16string_view separator);
// Every occurrence of find, left to right, not overlapping; an empty find changes nothing.
std::u16string ReplaceAll(std::u16string_view units, std::u16string_view find, std::u16string_view replace);
// A to Z only.
std::u16string LowerAscii(std::u16string_view units);
bool EqualNoCase(std::u16string_view a, std::u16string_view b);
// The digits, a minus in front of a negative value.
std::u16string Decimal(long long value);

} // namespace text
