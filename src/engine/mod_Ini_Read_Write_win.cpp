#include "engine/mod_Ini_Read_Write.h"

#include "base/Text.h"
#include "base/win.h"

namespace mod_Ini_Read_Write {
namespace {

// The path in the system's code page; empty where it has no such form.
std::string AnsiForm(const std::wstring& path) {
    BOOL lossy = FALSE;
    std::string bytes(path.size() * 2 + 1, '\0');
    const int length = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, path.c_str(), -1, bytes.data(),
                                           static_cast<int>(bytes.size()), nullptr, &lossy);
    if (length <= 1 || lossy) return {};
    bytes.resize(static_cast<std::size_t>(length) - 1);
    return bytes;
}

std::wstring ShortForm(const std::wstring& path) {
    wchar_t made[MAX_PATH];
    const DWORD length = GetShortPathNameW(path.c_str(), made, MAX_PATH);
    return length > 0 && length < MAX_PATH ? std::wstring(made, length) : std::wstring();
}

} // namespace

std::u16string ReadBySystem(std::u16string_view section, std::u16string_view key, std::u16string_view file) {
    const std::wstring wide(file.begin(), file.end());
    std::string path = AnsiForm(wide);
    if (path.empty()) path = AnsiForm(ShortForm(wide));
    if (path.empty() || path.size() >= MAX_PATH) return ReadByOwn(section, key, file);

    char buffer[255] = {};
    const DWORD length = GetPrivateProfileStringA(text::ToAnsi(section).c_str(), text::ToAnsi(key).c_str(),
                                                  "", buffer, sizeof buffer, path.c_str());
    return text::FromCp1252(std::string_view(buffer, length));
}

} // namespace mod_Ini_Read_Write
