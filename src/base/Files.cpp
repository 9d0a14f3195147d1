// What both sides of the files seam share. Tested by tests/unit/base/files_test.cpp.

#include "base/Files.h"

#include "base/Text.h"

#include <algorithm>

namespace files {
namespace {

constexpr char16_t kEscape = 0xDC00; // the byte 0x80 stands in a path as U+DC80

// True where path is all root: "/", "C:\", "\\server\share\".
bool EndsInRoot(std::u16string_view path) {
    return path.size() == 1 || (path.size() == 3 && path[1] == u':');
}

} // namespace

std::size_t NameStart(std::u16string_view path) {
    std::size_t at = path.size();
    while (at > 0 && !IsSeparator(path[at - 1])) --at;
    return at;
}

std::u16string ParentFolder(std::u16string_view path) {
    auto dropSeparators = [&] {
        while (!path.empty() && IsSeparator(path.back()) && !EndsInRoot(path)) path.remove_suffix(1);
    };
    dropSeparators();
    path = path.substr(0, NameStart(path) == path.size() ? 0 : NameStart(path));
    dropSeparators();
    return std::u16string(path);
}

std::u16string Join(std::u16string_view folder, std::u16string_view name) {
    std::u16string path(folder);
    if (path.empty() || !IsSeparator(path.back())) path += Separator();
    path += name;
    return path;
}

std::u16string FromPathBytes(std::string_view bytes) {
    std::u16string path;
    path.reserve(bytes.size());
    std::size_t from = 0;
    while (from < bytes.size()) {
        const std::size_t valid = text::ValidUtf8(bytes.substr(from));
        path += text::FromUtf8(bytes.substr(from, valid));
        from += valid;
        if (from < bytes.size())
            path += static_cast<char16_t>(kEscape + static_cast<unsigned char>(bytes[from++]));
    }
    return path;
}

std::string ToPathBytes(std::u16string_view path) {
    std::string bytes;
    bytes.reserve(path.size());
    std::size_t from = 0;
    for (std::size_t i = 0; i < path.size(); ++i) {
        const bool isHigh = (path[i] & 0xFC00) == 0xD800;
        if (isHigh && i + 1 < path.size() && (path[i + 1] & 0xFC00) == 0xDC00) {
            ++i;
        } else if (path[i] >= kEscape + 0x80 && path[i] <= kEscape + 0xFF) {
            bytes += text::ToUtf8(path.substr(from, i - from));
            bytes += static_cast<char>(path[i] - kEscape);
            from = i + 1;
        }
    }
    return bytes += text::ToUtf8(path.substr(from));
}

Result ReadAll(std::u16string_view path, std::string& bytes) {
    InputFile file;
    if (Result opened = file.Open(path); !opened) return opened;
    // One byte more than the size: the read that fills less than its room has met the end.
    std::string all(static_cast<std::size_t>(file.Size()) + 1, '\0');
    std::size_t length = 0;
    for (;;) {
        std::size_t got;
        if (Result read = file.Read(all.data() + length, all.size() - length, got); !read) return read;
        length += got;
        if (length < all.size()) break;
        all.resize(all.size() * 2);
    }
    all.resize(length);
    bytes = std::move(all);
    return {};
}

} // namespace files
