// Plain text is enforced twice: by the text mode, and by reading the clipboard here, since
// rich edits differ in what their own paste takes in that mode.
//
// Tested by tests/windows/richboxes_test.cpp, richboxes_paste_test.cpp and richboxes_look_test.cpp.
#include "controls/RichField.h"

#include "controls/FieldFrame.h"
#include "controls/Painting.h"

#include <algorithm>
#include <richedit.h>

namespace RichField {
namespace {

// Pixels at 96 DPI between border padding and text.
constexpr int kLeftMargin = 7, kTopMargin = 4, kRightMargin = 3;
constexpr LPARAM kNoLimit = 0x7FFFFFFE;

bool ReadOnly(HWND box) {
    return (GetWindowLongW(box, GWL_STYLE) & ES_READONLY) != 0;
}

// Programs that watch the clipboard hold it for a moment after each copy.
bool OpenClipboardSoon(HWND owner) {
    constexpr DWORD kLongest = 500, kPause = 10; // milliseconds
    const ULONGLONG end = GetTickCount64() + kLongest;
    while (!OpenClipboard(owner)) {
        if (GetTickCount64() >= end) return false;
        Sleep(kPause);
    }
    return true;
}

// The clipboard's Unicode text up to its NUL; empty where there is none or another program does
// not let the clipboard go.
std::u16string ClipboardText(HWND owner) {
    std::u16string text;
    if (!IsClipboardFormatAvailable(CF_UNICODETEXT) || !OpenClipboardSoon(owner)) return text;
    if (const HANDLE block = GetClipboardData(CF_UNICODETEXT)) {
        if (const auto* units = static_cast<const char16_t*>(GlobalLock(block))) {
            const std::size_t room = GlobalSize(block) / sizeof(char16_t);
            text.assign(units, std::find(units, units + room, u'\0'));
            GlobalUnlock(block);
        }
    }
    CloseClipboard();
    return text;
}

void Paste(HWND box) {
    if (ReadOnly(box)) return;
    const std::u16string text = ClipboardText(box);
    if (!text.empty()) SendMessageW(box, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(Wide(text)));
}

bool IsPasteKey(WPARAM key) {
    if (GetKeyState(VK_MENU) < 0) return false;
    const bool ctrl = GetKeyState(VK_CONTROL) < 0, shift = GetKeyState(VK_SHIFT) < 0;
    return (key == 'V' && ctrl) || (key == VK_INSERT && shift && !ctrl);
}

void ApplyColours(Control& box) {
    const bool enabled = box.EnabledInAll();
    SendMessageW(box.hWnd(), EM_SETBKGNDCOLOR, 0, static_cast<LPARAM>(FieldFrame::Ground(enabled)));
    CHARFORMAT2W format{};
    format.cbSize = sizeof format;
    format.dwMask = CFM_COLOR;
    format.crTextColor = FieldFrame::Ink(enabled);
    SendMessageW(box.hWnd(), EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
    SendMessageW(box.hWnd(), EM_SETCHARFORMAT, SCF_ALL, reinterpret_cast<LPARAM>(&format));
}

void PlaceText(Control& box) {
    RECT inside;
    GetClientRect(box.hWnd(), &inside);
    inside.left += box.Scaled(kLeftMargin);
    inside.top += box.Scaled(kTopMargin);
    inside.right = std::max(inside.right - box.Scaled(kRightMargin), inside.left + 1);
    SendMessageW(box.hWnd(), EM_SETRECT, 0, reinterpret_cast<LPARAM>(&inside));
}

} // namespace

void LoadClass() {
    static const HMODULE library = LoadLibraryW(L"msftedit.dll");
    (void)library;
}

void Created(Control& box) {
    const HWND window = box.hWnd();
    SendMessageW(window, EM_SETTEXTMODE, TM_PLAINTEXT | TM_MULTILEVELUNDO, 0);
    SendMessageW(window, EM_SETLANGOPTIONS, 0, 0); // no fonts and sizes but the box's own
    SendMessageW(window, EM_EXLIMITTEXT, 0, kNoLimit);
    SendMessageW(window, EM_SETEVENTMASK, 0, ENM_CHANGE);
    Changed(box, Change::Font);
}

bool Message(Control& box, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case kReflected + WM_COMMAND:
        if (HIWORD(wParam) == EN_CHANGE) box.Notify(EVENT_OBJECT_VALUECHANGE);
        return true;
    case WM_KEYDOWN:
        if (!IsPasteKey(wParam)) return false;
        Paste(box.hWnd());
        return true;
    case WM_CHAR:
        return wParam == 0x16; // Ctrl+V, done with at its key
    case WM_PASTE:
        Paste(box.hWnd());
        return true;
    case WM_ERASEBKGND: // its paint fills the whole ground
        result = 1;
        return true;
    case WM_SIZE:
        result = box.DefaultProcedure(message, wParam, lParam);
        PlaceText(box);
        return true;
    default:
        return FieldFrame::Message(box, false, message, wParam, lParam, result);
    }
}

void Changed(Control& box, Change what) {
    if (!box.hWnd()) return;
    if (what != Change::Focus && what != Change::Size) ApplyColours(box);
    FieldFrame::Changed(box, what);
    if (what == Change::Font || what == Change::Dpi) PlaceText(box);
}

std::u16string Text(const Control& box) {
    GETTEXTLENGTHEX measure{GTL_USECRLF | GTL_PRECISE | GTL_NUMCHARS, 1200};
    const LRESULT length =
        SendMessageW(box.hWnd(), EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&measure), 0);
    if (length <= 0) return {};
    std::u16string text(static_cast<std::size_t>(length), u'\0');
    GETTEXTEX wanted{};
    wanted.cb = static_cast<DWORD>((text.size() + 1) * sizeof(char16_t));
    wanted.flags = GT_USECRLF;
    wanted.codepage = 1200;
    const LRESULT taken = SendMessageW(box.hWnd(), EM_GETTEXTEX, reinterpret_cast<WPARAM>(&wanted),
                                       reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(std::clamp<LRESULT>(taken, 0, length)));
    return text;
}

// By replacing, since a whole text that is set may be taken for RTF.
void Text(Control& box, const std::u16string& text) {
    const HWND window = box.hWnd();
    if (!window) return;
    // Switching the drawing on shows a hidden window.
    const bool shown = (GetWindowLongW(window, GWL_STYLE) & WS_VISIBLE) != 0;
    if (shown) SendMessageW(window, WM_SETREDRAW, FALSE, 0);
    SendMessageW(window, EM_SETSEL, 0, -1);
    SendMessageW(window, EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>(Wide(text)));
    SendMessageW(window, EM_SETSEL, 0, 0);
    SendMessageW(window, EM_EMPTYUNDOBUFFER, 0, 0);
    if (shown) SendMessageW(window, WM_SETREDRAW, TRUE, 0);
    SendMessageW(window, EM_SCROLLCARET, 0, 0);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
}

LONG State(const Control& box) {
    return ReadOnly(box.hWnd()) ? STATE_SYSTEM_READONLY : 0;
}

} // namespace RichField
