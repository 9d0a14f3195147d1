// Slow, obvious forms of the text decodings.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace reference {

// The code page, code by code from the table that its registration prints.
std::u16string PlainFromCp1252(std::string_view bytes);
// Each maximal part of an ill-formed sequence becomes one U+FFFD; invalid counts them.
std::u16string PlainFromUtf8(std::string_view bytes, std::size_t& invalid);
std::u16string PlainFromUtf16Le(std::string_view bytes);
// A lone surrogate becomes U+FFFD; replaced counts them.
std::string PlainToUtf8(std::u16string_view units, std::size_t& replaced);

// What reading a file of these bytes in format -2, -1 or 0 gives; empty where it fails.
std::u16string PlainReadText(std::string_view bytes, int format);

} // namespace reference
