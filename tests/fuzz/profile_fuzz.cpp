// Properties of a value read from any profile file: at most 254 characters of the code page,
// part of one line, the same whatever the case of the names and whatever stands behind in
// further sections.
//
// Input: section, LF, key, LF, the file.

#include "base/Text.h"
#include "engine/mod_Ini_Read_Write.h"

#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

std::u16string Upper(std::u16string units) {
    for (char16_t& unit : units)
        if (unit >= u'a' && unit <= u'z') unit = static_cast<char16_t>(unit - 32);
    return units;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using mod_Ini_Read_Write::ValueOf;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t first = input.find('\n');
    if (first == input.npos) return 0;
    const std::size_t second = input.find('\n', first + 1);
    if (second == input.npos) return 0;
    const std::u16string section = text::FromCp1252(input.substr(0, first));
    const std::u16string key = text::FromCp1252(input.substr(first + 1, second - first - 1));
    const std::string file(input.substr(second + 1));

    const std::u16string value = ValueOf(file, section, key);
    std::string bytes;
    Require(value.size() <= 254 && text::ToCp1252(value, bytes));
    Require(value.find_first_of(std::u16string_view(u"\r\n\0", 3)) == value.npos);
    Require(ValueOf(file, Upper(section), Upper(key)) == value);
    Require(ValueOf(file, u" " + section + u"\t", u"\v" + key + u" ") == value);
    const bool marked = file.starts_with("\xEF\xBB\xBF") || file.starts_with("\xFF\xFE");
    if (marked) return 0;
    Require(text::FromCp1252(file).find(value) != std::u16string::npos);
    Require(ValueOf("\r\n;\r\n" + file, section, key) == value || key.find(u';') != key.npos);
    if (!value.empty()) Require(ValueOf(file + "\n[" + bytes + "]\nx=y", section, key) == value);
    return 0;
}
