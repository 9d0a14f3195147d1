#include "windows/Boxes.h"

#include "windows/Gui.h"

namespace gui {
namespace {

constexpr int kTextId = 0xFFFF; // of the text in a message box; a file dialog has none

BOOL CALLBACK TakeBox(HWND window, LPARAM found) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    wchar_t name[16];
    GetClassNameW(window, name, 16);
    if (process != GetCurrentProcessId() || !IsWindowVisible(window) || std::wstring(name) != L"#32770" ||
        !GetDlgItem(window, kTextId))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

BOOL CALLBACK ReadChild(HWND child, LPARAM told) {
    Box& box = *reinterpret_cast<Box*>(told);
    wchar_t name[16];
    GetClassNameW(child, name, 16);
    if (std::wstring(name) == L"Button") box.Buttons.push_back(GetDlgCtrlID(child));
    if (std::wstring(name) != L"Static" || (GetWindowLongW(child, GWL_STYLE) & SS_TYPEMASK) != SS_ICON)
        return TRUE;
    const auto icon = reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0));
    // The system's icons are shared: one handle for the process.
    const std::pair<WORD, BoxIcon> known[] = {{32513, BoxIcon::Stop},
                                              {32514, BoxIcon::Question},
                                              {32515, BoxIcon::Exclamation},
                                              {32516, BoxIcon::Information}};
    for (const auto& [id, kind] : known) {
        if (icon && icon == LoadIconW(nullptr, MAKEINTRESOURCEW(id))) box.Icon = kind;
    }
    return TRUE;
}

} // namespace

Box WaitForBox(DWORD limitMs) {
    Box box;
    WaitUntil(
        [&] {
            EnumWindows(TakeBox, reinterpret_cast<LPARAM>(&box.Window));
            return box.Window != nullptr;
        },
        limitMs);
    if (!box.Window) return box;
    box.Title = WindowText(box.Window);
    box.Text = WindowText(GetDlgItem(box.Window, kTextId));
    EnumChildWindows(box.Window, ReadChild, reinterpret_cast<LPARAM>(&box));
    return box;
}

bool Box::Press(int button) const {
    PostMessageW(Window, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0);
    return WaitUntil([this] { return !IsWindow(Window); });
}

} // namespace gui
