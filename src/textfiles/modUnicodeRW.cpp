// A text is read into the memory it stays in: UTF-16 straight from the file, ANSI part by
// part through a small room. Tested by tests/unit/textfiles/modunicoderw_test.cpp.

#include "textfiles/modUnicodeRW.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <exception>
#include <memory>

namespace modUnicodeRW {
namespace {

constexpr std::size_t kPart = 1 << 18;
constexpr char kMark[2] = {'\xFF', '\xFE'};
constexpr char16_t kReplacement = 0xFFFD;
constexpr int kPastEnd = 62; // reading past the end of a file

static_assert(std::endian::native == std::endian::little);

files::Result Failed(int error, std::u16string_view text) {
    files::Result result;
    result.error = error;
    result.text = text;
    return result;
}

// Reads what is left of the file behind the length bytes that head holds.
files::Result ReadUtf16(files::InputFile& file, const char* head, std::size_t length, std::u16string& units) {
    // One unit more than the size: the read that fills less than its room has met the end.
    units.resize(static_cast<std::size_t>(file.Size() / 2) + 2);
    std::memcpy(units.data(), head, length);
    for (;;) {
        std::size_t got;
        const std::size_t room = units.size() * 2 - length;
        if (files::Result read = file.Read(reinterpret_cast<char*>(units.data()) + length, room, got); !read)
            return read;
        length += got;
        if (got < room) break;
        units.resize(units.size() * 2);
    }
    if (length % 2) units[length / 2] = kReplacement;
    units.resize((length + 1) / 2);
    return {};
}

files::Result ReadAnsi(files::InputFile& file, const char* head, std::size_t length, std::u16string& units) {
    units = text::FromCp1252({head, length});
    units.reserve(static_cast<std::size_t>(file.Size()));
    const std::size_t room =
        file.Size() == 0 ? kPart : static_cast<std::size_t>(std::min<std::uint64_t>(file.Size() + 1, kPart));
    const auto part = std::make_unique<char[]>(room);
    std::size_t got;
    do {
        if (files::Result read = file.Read(part.get(), room, got); !read) return read;
        const std::size_t end = units.size();
        units.resize(end + got);
        text::FromCp1252({part.get(), got}, units.data() + end);
    } while (got == room);
    return {};
}

files::Result Read(std::u16string_view path, std::int32_t format, std::u16string& units) {
    files::InputFile file;
    if (files::Result opened = file.Open(path); !opened) return opened;
    char head[2];
    std::size_t length;
    if (files::Result read = file.Read(head, 2, length); !read) return read;
    const bool hasMark = length == 2 && std::memcmp(head, kMark, 2) == 0;
    const bool isUtf16 = format == TristateTrue || (format == TristateUseDefault && hasMark);
    files::Result read =
        isUtf16 ? ReadUtf16(file, head, hasMark ? 0 : length, units) : ReadAnsi(file, head, length, units);
    if (read && units.empty()) return Failed(kPastEnd, u"The file is empty");
    return read;
}

files::Result Write(std::u16string_view path, std::u16string_view text, std::int32_t ioMode,
                    std::int32_t format) {
    if (ioMode != kForWriting || (format != TristateTrue && format != TristateFalse))
        return Failed(kInvalidCall, u"Text is only written anew, as ANSI or UTF-16");
    if (format == TristateTrue) {
        const std::string_view bytes(reinterpret_cast<const char*>(text.data()), text.size() * 2);
        return files::WriteReplacing(path, files::Parts{{kMark, 2}, bytes});
    }
    std::string bytes;
    if (!text::ToCp1252(text, bytes))
        return Failed(kInvalidCall, u"The text has characters that the ANSI code page lacks");
    return files::WriteReplacing(path, bytes);
}

} // namespace

std::int32_t ReadFormat(std::u16string_view encoding) {
    if (encoding == u"ASCII ENCODING") return TristateFalse;
    if (encoding == u"UNICODE (UTF-16) ENCODING") return TristateTrue;
    return TristateUseDefault;
}

files::Result ReadText(std::u16string_view path, std::int32_t format, std::u16string& text) {
    if (format < TristateUseDefault || format > TristateFalse) return Failed(kInvalidCall, u"No such format");
    try {
        std::u16string units;
        files::Result read = Read(path, format, units);
        if (read) text = std::move(units);
        return read;
    } catch (const std::exception&) { // a file larger than the memory
        return Failed(kOutOfStringSpace, u"Out of memory");
    }
}

files::Result WriteNewText(std::u16string_view path, std::u16string_view text) {
    const std::string_view bytes(reinterpret_cast<const char*>(text.data()), text.size() * 2);
    return files::WriteNew(path, files::Parts{{kMark, 2}, bytes});
}

std::u16string ReadTextFile(std::u16string_view path, std::int32_t format, bool& ok) {
    std::u16string text;
    const files::Result read = ReadText(path, format, text);
    ok = static_cast<bool>(read);
    if (!ok) KeepLastFailure(read.text);
    return text;
}

bool WriteTextFile(std::u16string_view path, std::u16string_view text, std::int32_t ioMode,
                   std::int32_t format) {
    try {
        const files::Result written = Write(path, text, ioMode, format);
        if (!written) KeepLastFailure(written.text);
        return static_cast<bool>(written);
    } catch (const std::exception&) {
        KeepLastFailure(u"Out of memory");
        return false;
    }
}

} // namespace modUnicodeRW
