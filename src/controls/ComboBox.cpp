// The system's combo box, its entries drawn by the owner. A choice is told by a posted message: the system
// is still at work when it tells of it, and the handler may end the box.
//
// Tested by tests/windows/combobox_test.cpp.
#include "controls/ComboBox.h"

#include "controls/ComboField.h"
#include "controls/Events.h"
#include "controls/FieldFrame.h"
#include "controls/Painting.h"

namespace {

constexpr int kRowsShown = 10;
constexpr UINT kChosen = WM_APP + 1;

constexpr AccessibleTable kAccessible = ComboField::Accessible<ComboBox>();

} // namespace

const ControlKind ComboBox::kKind{
    .TypeName = u"ComboBox",
    .LayoutKinds = u"combo",
    .WindowClass = L"COMBOBOX",
    .Style = CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | CBS_AUTOHSCROLL | WS_VSCROLL,
    .Focusable = true,
    .TakesLabel = true,
    .Created = Entry<&ComboBox::OnCreated>::Call,
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
    Base.Invalidate(); // the system repaints its own field only, a skin is larger
    TellChoice();
}

void ComboBox::TellChoice() {
    m_Chosen = ListIndex();
    Base.Notify(EVENT_OBJECT_VALUECHANGE);
    Raise(Click);
}

void ComboBox::OnCommand(UINT notification) {
    switch (notification) {
    case CBN_SELCHANGE:
        PostMessageW(Base.hWnd(), kChosen, 0, 0);
        break;
    case CBN_DROPDOWN:
        Base.Notify(EVENT_OBJECT_STATECHANGE);
        break;
    case CBN_CLOSEUP:
        ComboField::EndPress(Base);
        Base.Notify(EVENT_OBJECT_STATECHANGE);
        // Closing by Esc takes back what keys have chosen in the list, without SELCHANGE.
        PostMessageW(Base.hWnd(), kChosen, 0, 0);
        break;
    default:
        break;
    }
}

bool ComboBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == WM_SETFONT) ComboField::Close(Base);
    if (message == kReflected + WM_COMMAND) {
        OnCommand(HIWORD(wParam));
        return true;
    }
    if (message == kChosen) {
        if (ListIndex() != m_Chosen) TellChoice();
        return true;
    }
    if (message == kReflected + WM_DRAWITEM) {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        const bool selected = (item.itemState & ODS_SELECTED) && !(item.itemState & ODS_COMBOBOXEDIT);
        ComboField::DrawEntry(item.hDC, item.rcItem, List(static_cast<int>(item.itemID)), Base.FontInUse(),
                              selected, Base.Dpi());
        result = TRUE;
        return true;
    }
    if (message == WM_CTLCOLORLISTBOX || message == kReflected + WM_CTLCOLOREDIT ||
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

void ComboBox::OnPlace(const RECT& pixels) {
    ComboField::Place(Base, pixels, kRowsShown);
}

bool ComboBox::OnWantsKey(WPARAM) {
    return ComboField::Dropped(Base);
}
