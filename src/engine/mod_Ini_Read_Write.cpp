// The rules of a profile file, as the system has them:
// - lines end at LF, CR or both. Blanks, controls 9 to 13 and 1A around a line, a name, a
//   key and a value do not count, nor does anything behind a NUL.
// - "[name]" up to the last bracket opens a section; only the first of a name counts. What
//   stands before the first section belongs to the section without a name.
// - "key=value", cut at the first '='; of two keys of a name the first counts. There are no
//   comments inside a line; one that begins with ';' is a key that nobody asks for.
// - one pair of equal quotes, " or ', around a value is taken off.
// Names are compared without regard to case (A to Z).
// Tested by tests/unit/engine/ini_test.cpp.

#include "engine/mod_Ini_Read_Write.h"

#include "base/Files.h"
#include "base/Text.h"

#include <algorithm>

namespace mod_Ini_Read_Write {
namespace {

using View = std::u16string_view;

constexpr std::size_t kBufferLength = 255; // one of them for the NUL

bool IsBlank(char16_t unit) {
    return unit == u' ' || (unit >= 9 && unit <= 13) || unit == 0x1A;
}

View Trim(View units) {
    while (!units.empty() && IsBlank(units.front())) units.remove_prefix(1);
    while (!units.empty() && IsBlank(units.back())) units.remove_suffix(1);
    return units;
}

View UpToNul(View units) {
    return units.substr(0, units.find(u'\0'));
}

// Takes the next line off rest.
View TakeLine(View& rest) {
    const std::size_t end = rest.find_first_of(u"\r\n");
    const View line = rest.substr(0, end);
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    return Trim(line);
}

// The name between the brackets. False where the line opens no section.
bool SectionName(View line, View& name) {
    const std::size_t close = line.rfind(u']');
    if (line.front() != u'[' || close == line.npos) return false;
    name = Trim(UpToNul(line.substr(1, close - 1)));
    return true;
}

View Unquoted(View value) {
    const bool quoted = value.size() > 1 && (value.front() == u'"' || value.front() == u'\'') &&
                        value.back() == value.front();
    if (!quoted) return value.substr(0, kBufferLength - 1);
    value.remove_prefix(1);
    const View kept = value.substr(0, kBufferLength - 1);
    // The closing quote goes with the last unit of the buffer, even where it was not in it.
    return value.size() <= kBufferLength ? kept.substr(0, kept.size() - 1) : kept;
}

// The text of the file. Its marks are known, as the system knows them.
std::u16string Decode(std::string_view bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) return text::FromUtf8(bytes.substr(3));
    if (bytes.starts_with("\xFF\xFE")) return text::FromUtf16Le(bytes.substr(2));
    return text::FromCp1252(bytes);
}

} // namespace

std::u16string ValueOf(std::string_view bytes, std::u16string_view section, std::u16string_view key) {
    const std::u16string units = Decode(bytes);
    section = Trim(UpToNul(section));
    key = Trim(UpToNul(key));
    bool inSection = section.empty();
    for (View rest = units; !rest.empty();) {
        const View line = TakeLine(rest);
        if (line.empty()) continue;
        View name;
        if (SectionName(line, name)) {
            if (inSection) return {};
            inSection = text::EqualNoCase(name, section);
            continue;
        }
        if (!inSection) continue;
        const std::size_t equals = line.find(u'=');
        if (!text::EqualNoCase(UpToNul(Trim(line.substr(0, equals))), key)) continue;
        if (equals == line.npos) return {};
        const View value = Unquoted(UpToNul(Trim(line.substr(equals + 1))));
        return text::FromCp1252(text::ToAnsi(value));
    }
    return {};
}

std::u16string ReadByOwn(std::u16string_view section, std::u16string_view key, std::u16string_view file) {
    std::string bytes;
    if (!files::ReadAll(file, bytes)) return {};
    const auto ansi = [](View units) { return text::FromCp1252(text::ToAnsi(units)); };
    return ValueOf(bytes, ansi(section), ansi(key));
}

std::u16string ReadPluginIni(std::u16string_view section, std::u16string_view key, std::u16string_view file) {
    if (!file.empty()) return ReadBySystem(section, key, file);
    const std::u16string folder = files::ProgramFolder();
    const std::u16string name = files::FindNoCase(folder, u"Plugin.INI");
    if (name.empty()) return {};
    return ReadBySystem(section, key, files::Join(folder, name));
}

} // namespace mod_Ini_Read_Write
