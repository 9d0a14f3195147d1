#include "textfiles/modFileFolder.h"

#include "base/win.h"

#include <shellapi.h>
#include <shlobj.h>

namespace modFileFolder {

void OpenDocument(void* owner, std::u16string_view path, std::u16string_view workingFolder) {
    const std::u16string file(path);
    const std::u16string folder = workingFolder.empty() ? GetAppPath() : std::u16string(workingFolder);
    SHELLEXECUTEINFOW call = {};
    call.cbSize = sizeof call;
    call.fMask = SEE_MASK_NOCLOSEPROCESS; // 64
    call.hwnd = static_cast<HWND>(owner);
    call.lpVerb = L"open";
    call.lpFile = Wide(file);
    call.lpDirectory = Wide(folder);
    call.nShow = SW_SHOWNORMAL; // 1
    if (ShellExecuteExW(&call) && call.hProcess) CloseHandle(call.hProcess);
}

std::u16string GetSpecialFolder(std::int32_t csidl) {
    PIDLIST_ABSOLUTE folder = nullptr;
    if (SHGetSpecialFolderLocation(nullptr, csidl, &folder) != S_OK) return {};
    wchar_t room[MAX_PATH] = {};
    const BOOL found = SHGetPathFromIDListW(folder, room);
    CoTaskMemFree(folder);
    if (!found) return {};
    const std::u16string_view path = Units(room);
    const std::size_t first = path.find_first_not_of(u' ');
    if (first == path.npos) return {};
    return std::u16string(path.substr(first, path.find_last_not_of(u' ') - first + 1));
}

} // namespace modFileFolder
