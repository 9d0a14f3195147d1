// Properties: every decoding answers as its plain form does, files of any bytes are read
// as the rules of their format say, and what goes there and back is unchanged.

#include "base/Files.h"
#include "base/Text.h"
#include "console/SourceCheck.h"
#include "reference/PlainText.h"
#include "textfiles/modUnicodeRW.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace {

void Require(bool holds, const char* property) {
    if (holds) return;
    std::fprintf(stderr, "does not hold: %s\n", property);
    std::abort();
}

// One file for all runs of this process, gone with it.
struct File {
    std::filesystem::path path = std::filesystem::temp_directory_path() /
                                 ("zc-textdecode-" + std::to_string(std::random_device()()) + ".txt");
    ~File() {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }
};

void CheckFile(std::string_view bytes) {
    static const File file;
    std::ofstream(file.path, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    for (const int format : {-2, -1, 0}) {
        bool ok = false;
        const std::u16string text = modUnicodeRW::ReadTextFile(file.path.u16string(), format, ok);
        const std::u16string plain = reference::PlainReadText(bytes, format);
        Require(ok == !plain.empty(), "reading fails for what holds no text, and for nothing else");
        Require(text == plain, "a file is read as its format says");
    }
}

void CheckBytes(std::string_view bytes) {
    const std::u16string ansi = text::FromCp1252(bytes);
    Require(ansi == reference::PlainFromCp1252(bytes), "cp1252 as the plain form");
    std::string back;
    Require(text::ToCp1252(ansi, back) && back == bytes, "cp1252 there and back");

    std::size_t invalid = 0, plainInvalid = 0;
    const std::u16string units = text::FromUtf8(bytes, &invalid);
    Require(units == reference::PlainFromUtf8(bytes, plainInvalid), "UTF-8 as the plain form");
    Require(invalid == plainInvalid, "invalid parts are counted");
    const std::size_t valid = text::ValidUtf8(bytes);
    Require(valid <= bytes.size() && (valid == bytes.size()) == (invalid == 0), "valid UTF-8 is told");
    Require(text::ToUtf8(text::FromUtf8(bytes.substr(0, valid))) == bytes.substr(0, valid),
            "valid UTF-8 there and back");
    if (valid < bytes.size()) {
        std::size_t first = 0;
        const std::u16string rest = text::FromUtf8(bytes.substr(valid), &first);
        Require(first == invalid && rest.front() == 0xFFFD, "the valid part ends at an invalid one");
    }
    bool beyond = false;
    for (const char byte : bytes) beyond = beyond || static_cast<unsigned char>(byte) > 0x7F;
    sourcecheck::Judge judge;
    judge.Take(bytes);
    Require((judge.Result() == sourcecheck::Finding::Utf8) == (invalid == 0 && beyond),
            "UTF-8 beyond ASCII is told");

    Require(files::ToPathBytes(files::FromPathBytes(bytes)) == bytes, "a path's bytes there and back");
}

void CheckUnits(std::string_view bytes) {
    const std::u16string units = text::FromUtf16Le(bytes);
    Require(units == reference::PlainFromUtf16Le(bytes), "UTF-16 as the plain form");
    if (bytes.size() % 2 == 0) Require(text::ToUtf16Le(units) == bytes, "UTF-16 there and back");
    std::size_t replaced = 0, plainReplaced = 0;
    const std::string utf8 = text::ToUtf8(units, &replaced);
    Require(utf8 == reference::PlainToUtf8(units, plainReplaced), "to UTF-8 as the plain form");
    Require(replaced == plainReplaced, "lone surrogates are counted");
    Require(text::ValidUtf8(utf8) == utf8.size(), "what is written is valid UTF-8");
    if (replaced == 0) Require(text::FromUtf8(utf8) == units, "UTF-16 by UTF-8 and back");

    std::u16string joined;
    for (const std::u16string_view part : text::Split(units, u"\r\n")) {
        Require(part.find(u"\r\n") == part.npos, "no separator in a part");
        joined += part;
        joined += u"\r\n";
    }
    Require(joined == units + u"\r\n", "split and joined again");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CheckBytes(bytes);
    CheckUnits(bytes);
    CheckFile(bytes);
    return 0;
}
