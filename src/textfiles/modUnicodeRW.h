// Whole text files in and out.
#pragma once

#include "base/Files.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace modUnicodeRW {

// How the bytes of a file are taken.
enum Tristate : std::int32_t {
    TristateUseDefault = -2, // reading: UTF-16 where it begins with FF FE, else ANSI
    TristateTrue = -1,       // UTF-16 little-endian; written with its mark, read without
    TristateFalse = 0,       // the ANSI code page, Windows-1252
};
constexpr std::int32_t kForWriting = 2;

// The format that a value of sReadEncoding stands for.
std::int32_t ReadFormat(std::u16string_view encoding);

// The file's whole text, line ends as they stood. ok is false, and the text empty, for a
// file that cannot be read or holds no text; LastFailure keeps why.
std::u16string ReadTextFile(std::u16string_view path, std::int32_t format, bool& ok);
// Writes text, and nothing behind it, over whatever stands at path, in one step. False on
// any failure, with the old file as it was: also for an ioMode other than 2 and for
// characters that the ANSI code page lacks. LastFailure keeps why.
bool WriteTextFile(std::u16string_view path, std::u16string_view text, std::int32_t ioMode,
                   std::int32_t format);

// What ReadTextFile does, with the reason of a failure; text is then left as it was.
files::Result ReadText(std::u16string_view path, std::int32_t format, std::u16string& text);
// A new file in format -1 that never replaces one; nameTaken says that the name is in use.
files::Result WriteNewText(std::u16string_view path, std::u16string_view text);

} // namespace modUnicodeRW
