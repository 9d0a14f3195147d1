// The filter's ways from Unicode to the code page, whole blocks at a time, and counting.
#pragma once

#include <cstddef>
#include <string_view>

namespace codecs {

// How far a block went through: bytes read and bytes written.
struct Progress {
    std::size_t read;
    std::size_t written;
};

// The code page's bytes for UTF-8, up to the first character that has no byte there or is
// not valid. out needs room for as many bytes as are read.
Progress Cp1252FromUtf8(std::string_view bytes, char* out);
// The same for UTF-16: units read.
Progress Cp1252FromUnits(std::u16string_view units, char* out);

// Line feeds of a block.
std::size_t CountLf(std::string_view bytes);
std::size_t CountLf(std::u16string_view units);
// Surrogates that have no partner beside them.
std::size_t CountLoneSurrogates(std::u16string_view units);

} // namespace codecs
