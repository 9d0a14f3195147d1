// Tested by tests/unit/engine/crypto_test.cpp.

#include "engine/CryptoContainer.h"

#include "base/Files.h"
#include "base/RuntimeFailure.h"
#include "base/Text.h"

namespace container {
namespace {

constexpr std::u16string_view kSource = u"clsCryptoAPI";

} // namespace

std::string Read(std::u16string_view path) {
    std::string bytes;
    if (const files::Result read = files::ReadAll(path, bytes); !read) {
        if (!files::FileExists(path))
            throw RuntimeFailure(kFileNotFound, kSource, u"File not found: " + std::u16string(path));
        throw RuntimeFailure(read.error, kSource, read.text + u": " + std::u16string(path));
    }
    return bytes;
}

void Write(std::u16string_view path, std::string_view bytes) {
    if (files::FileExists(path)) {
        if (const files::Result gone = files::Delete(path, false); !gone) KeepLastFailure(gone.text);
    }
    if (const files::Result written = files::WriteReplacing(path, bytes); !written)
        throw RuntimeFailure(written.error, kSource, written.text + u": " + std::u16string(path));
}

std::string Join(std::string_view content, std::string_view trailer) {
    if (trailer.size() > 255) throw RuntimeFailure(kOverflow, kSource);
    std::string bytes(content);
    bytes += trailer;
    bytes += static_cast<char>(trailer.size());
    return bytes;
}

void Split(std::string& bytes, std::u16string& trailer) {
    trailer.clear();
    if (bytes.empty()) throw RuntimeFailure(kSubscriptOutOfRange, kSource);
    const std::size_t last = bytes.size() - 1;
    const std::size_t length = static_cast<unsigned char>(bytes[last]);
    if (length > last) throw RuntimeFailure(kSubscriptOutOfRange, kSource);
    trailer = text::FromCp1252(std::string_view(bytes).substr(last - length, length));
    if (length == last) throw RuntimeFailure(kSubscriptOutOfRange, kSource);
    bytes.resize(last - length);
}

std::uint32_t Length(std::string_view bytes) {
    if (bytes.size() > UINT32_MAX) throw RuntimeFailure(kOverflow, kSource);
    return static_cast<std::uint32_t>(bytes.size());
}

} // namespace container
