// The shape of every file that clsCryptoAPI writes: content, then a trailer (salt, session
// key or signature), then the trailer's length as the last byte.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace container {

// Bytes of the file at path. Failure 53 where there is none, the system's own number and
// text where it cannot be read.
std::string Read(std::u16string_view path);
// Deletes what stands at path (a failure of that is ignored) and writes the file.
void Write(std::u16string_view path, std::string_view bytes);

// Failure 6 where the trailer has more than 255 bytes.
std::string Join(std::string_view content, std::string_view trailer);
// Takes bytes apart: the trailer goes to trailer, the content stays in bytes. Failure 9
// where bytes is empty, too short for the trailer that it announces, or without content.
void Split(std::string& bytes, std::u16string& trailer);

// The number of bytes as CryptoAPI counts them, in 32 bits. Failure 6 where there are more.
std::uint32_t Length(std::string_view bytes);

} // namespace container
