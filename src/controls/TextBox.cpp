// The system's edit box of one line.
//
// Tested by tests/windows/fields_test.cpp, fields_look_test.cpp and fields_spoken_test.cpp.
#include "controls/TextBox.h"

#include "controls/Events.h"
#include "controls/FieldFrame.h"

#include <algorithm>

namespace {
bool Protected(const TextBox* box) {
    return SendMessageW(box->Base.hWnd(), EM_GETPASSWORDCHAR, 0, 0) != 0;
}
LONG State(void* self, int) {
    return Protected(static_cast<TextBox*>(self)) ? STATE_SYSTEM_PROTECTED : 0;
}
std::u16string Value(void* self, int) {
    const auto* box = static_cast<TextBox*>(self);
    return Protected(box) ? std::u16string() : box->Text();
}
constexpr AccessibleTable kAccessible{.Role = ROLE_SYSTEM_TEXT, .State = State, .Value = Value};
} // namespace

const ControlKind TextBox::kKind{
    .TypeName = u"TextBox",
    .LayoutKinds = u"text|password",
    .WindowClass = L"EDIT",
    .Style = ES_AUTOHSCROLL,
    .Focusable = true,
    .TakesLabel = true,
    .Created = Entry<&TextBox::OnCreated>::Call,
    .Property = Entry<&TextBox::OnProperty>::Call,
    .Message = Entry<&TextBox::OnMessage>::Call,
    .Changed = Entry<&TextBox::OnChanged>::Call,
    .Accessible = &kAccessible,
};

void TextBox::OnCreated() {
    SendMessageW(Base.hWnd(), EM_SETLIMITTEXT, 0, 0);
    OnChanged(::Change::Font);
}

bool TextBox::OnProperty(std::u16string_view name, std::u16string_view value) {
    if (name != u"PasswordChar" || value.size() != 1) return false;
    PasswordChar(value.front());
    return true;
}

std::u16string TextBox::Text() const {
    return WindowText(Base.hWnd());
}

void TextBox::Text(const std::u16string& text) {
    if (text != Text()) SetWindowTextW(Base.hWnd(), Wide(text));
}

int TextBox::SelStart() const {
    DWORD from = 0, to = 0;
    SendMessageW(Base.hWnd(), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    return static_cast<int>(from);
}

void TextBox::SelStart(int position) {
    position = std::clamp(position, 0, GetWindowTextLengthW(Base.hWnd()));
    SendMessageW(Base.hWnd(), EM_SETSEL, static_cast<WPARAM>(position), position);
}

int TextBox::SelLength() const {
    DWORD from = 0, to = 0;
    SendMessageW(Base.hWnd(), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    return static_cast<int>(to - from);
}

void TextBox::SelLength(int length) {
    const int from = SelStart();
    const int to = from + std::clamp(length, 0, GetWindowTextLengthW(Base.hWnd()) - from);
    SendMessageW(Base.hWnd(), EM_SETSEL, static_cast<WPARAM>(from), to);
}

void TextBox::PasswordChar(char16_t shown) {
    SendMessageW(Base.hWnd(), EM_SETPASSWORDCHAR, shown, 0);
    Base.Invalidate();
}

bool TextBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case kReflected + WM_COMMAND:
        if (HIWORD(wParam) == EN_CHANGE) {
            Base.Notify(EVENT_OBJECT_VALUECHANGE);
            Raise(Change);
        }
        return true;
    case WM_CHAR:
        // Of Enter and Esc that press no button: the system beeps at them.
        if (wParam == VK_RETURN || wParam == VK_ESCAPE) return true;
        break;
    case kReflected + WM_CTLCOLOREDIT:
    case kReflected + WM_CTLCOLORSTATIC:
        result = FieldFrame::Colours(reinterpret_cast<HDC>(wParam), Base.EnabledInAll());
        return true;
    default:
        break;
    }
    return FieldFrame::Message(Base, true, message, wParam, lParam, result);
}

void TextBox::OnChanged(::Change what) {
    // With a new font the system makes room of its own beside the text.
    if (what == ::Change::Font || what == ::Change::Dpi)
        SendMessageW(Base.hWnd(), EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
    FieldFrame::Changed(Base, what);
}
