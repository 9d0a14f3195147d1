#include "controls/ComboBox.h"

#include "controls/Events.h"
#include "controls/FieldFrame.h"
#include "controls/Painting.h"

namespace {

constexpr int kRowsShown = 10;

bool Dropped(const ComboBox* combo) {
    return SendMessageW(combo->Base.hWnd(), CB_GETDROPPEDSTATE, 0, 0) != 0;
}
LONG State(void* self, int) {
    return STATE_SYSTEM_HASPOPUP |
           (Dropped(static_cast<ComboBox*>(self)) ? STATE_SYSTEM_EXPANDED : STATE_SYSTEM_COLLAPSED);
}
std::u16string Value(void* self, int) {
    return static_cast<ComboBox*>(self)->Text();
}
std::u16string DefaultAction(void* self, int) {
    return Dropped(static_cast<ComboBox*>(self)) ? u"Close" : u"Open";
}
void DoDefault(void* self, int) {
    const auto* combo = static_cast<ComboBox*>(self);
    SendMessageW(combo->Base.hWnd(), CB_SHOWDROPDOWN, !Dropped(combo), 0);
}
constexpr AccessibleTable kAccessible{
    .Role = ROLE_SYSTEM_COMBOBOX,
    .State = State,
    .Value = Value,
    .DefaultAction = DefaultAction,
    .DoDefault = DoDefault,
};

} // namespace

const ControlKind ComboBox::kKind{
    .TypeName = u"ComboBox",
    .LayoutKinds = u"combo",
    .WindowClass = L"COMBOBOX",
    .Style = CBS_DROPDOWNLIST | CBS_HASSTRINGS | CBS_AUTOHSCROLL | WS_VSCROLL,
    .Focusable = true,
    .TakesLabel = true,
    .Message = Entry<&ComboBox::OnMessage>::Call,
    .Changed = Entry<&ComboBox::OnChanged>::Call,
    .Place = Entry<&ComboBox::OnPlace>::Call,
    .WantsKey = Entry<&ComboBox::OnWantsKey>::Call,
    .Accessible = &kAccessible,
};

void ComboBox::AddItem(const std::u16string& text) {
    SendMessageW(Base.hWnd(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(Wide(text)));
}

void ComboBox::Clear() {
    SendMessageW(Base.hWnd(), CB_RESETCONTENT, 0, 0);
    m_Chosen = -1;
    Base.Invalidate();
}

int ComboBox::ListCount() const {
    return static_cast<int>(SendMessageW(Base.hWnd(), CB_GETCOUNT, 0, 0));
}

std::u16string ComboBox::List(int index) const {
    if (index < 0 || index >= ListCount()) return {};
    const auto at = static_cast<WPARAM>(index);
    std::u16string text(static_cast<std::size_t>(SendMessageW(Base.hWnd(), CB_GETLBTEXTLEN, at, 0)), u'\0');
    SendMessageW(Base.hWnd(), CB_GETLBTEXT, at, reinterpret_cast<LPARAM>(text.data()));
    return text;
}

int ComboBox::ListIndex() const {
    return static_cast<int>(SendMessageW(Base.hWnd(), CB_GETCURSEL, 0, 0));
}

void ComboBox::ListIndex(int index) {
    if (index < -1 || index >= ListCount() || index == ListIndex()) return;
    SendMessageW(Base.hWnd(), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    m_Chosen = index;
    Base.Notify(EVENT_OBJECT_VALUECHANGE);
    Raise(Click);
}

bool ComboBox::OnMessage(UINT message, WPARAM wParam, LPARAM, LRESULT& result) {
    if (message == kReflected + WM_COMMAND) {
        // Closing the list by Esc takes back what keys have chosen in it, without SELCHANGE.
        const bool told = HIWORD(wParam) == CBN_SELCHANGE || HIWORD(wParam) == CBN_CLOSEUP;
        if (told && ListIndex() != m_Chosen) {
            m_Chosen = ListIndex();
            Base.Notify(EVENT_OBJECT_VALUECHANGE);
            Raise(Click);
        }
        return true;
    }
    if (message == kReflected + WM_CTLCOLORLISTBOX || message == kReflected + WM_CTLCOLOREDIT ||
        message == kReflected + WM_CTLCOLORSTATIC) {
        result = FieldFrame::Colours(reinterpret_cast<HDC>(wParam), Base.EnabledInAll());
        return true;
    }
    return false;
}

void ComboBox::OnChanged(Change what) {
    if (what == Change::Font || what == Change::Dpi) {
        SendMessageW(Base.hWnd(), CB_SETITEMHEIGHT, 0, LineHeight(Base.FontInUse()) + Base.Scaled(4));
        Base.Move(Base.Left(), Base.Top(), Base.Width(), Base.Height());
    }
}

// The system counts the dropped list into the height; how high the closed box becomes
// follows from the height of its entry.
void ComboBox::OnPlace(const RECT& pixels) {
    const HWND window = Base.hWnd();
    const int row = static_cast<int>(SendMessageW(window, CB_GETITEMHEIGHT, 0, 0));
    SetWindowPos(window, nullptr, pixels.left, pixels.top, WidthOf(pixels),
                 HeightOf(pixels) + row * kRowsShown + Base.Scaled(2), SWP_NOZORDER | SWP_NOACTIVATE);
    // What is asked for and what comes of it differ by borders that only the system knows.
    const auto closed = static_cast<WPARAM>(-1);
    int asked = static_cast<int>(SendMessageW(window, CB_GETITEMHEIGHT, closed, 0));
    for (int attempt = 0; attempt < 3; ++attempt) {
        RECT place;
        GetWindowRect(window, &place);
        const int missing = HeightOf(pixels) - HeightOf(place);
        if (missing == 0 || asked + missing < 1) break;
        asked += missing;
        SendMessageW(window, CB_SETITEMHEIGHT, closed, asked);
    }
}

bool ComboBox::OnWantsKey(WPARAM) {
    return Dropped(this);
}
