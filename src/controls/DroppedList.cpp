// Subclasses the list's window and answers what screen readers ask for; its rows are those of the box.
//
// Tested by tests/windows/droppedlist_test.cpp.
#include "controls/DroppedList.h"

#include "controls/ComboField.h"
#include "controls/MSubclass.h"
#include "controls/SystemCall.h"

namespace {

// Beside what screen readers ask for: all that moves the mark to another row, and what opens
// and closes the list.
constexpr UINT kWatched[] = {WM_GETOBJECT,   WM_KEYDOWN,       WM_CHAR,      WM_MOUSEMOVE,
                             WM_LBUTTONDOWN, LB_SETCARETINDEX, LB_SETCURSEL, WM_WINDOWPOSCHANGED,
                             kDefaultAction, kSelectChild};

} // namespace

// What screen readers are told of the rows; child is the row's number from 1.
struct DroppedRows {
    static const DroppedList& Of(void* self) { return *static_cast<const DroppedList*>(self); }
    static LRESULT Ask(void* self, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return SendMessageW(Of(self).m_List, message, wParam, lParam);
    }
    static LONG State(void* self, int child) {
        if (child == 0) return 0;
        LONG state = STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
        if (Current(self) == child) state |= STATE_SYSTEM_SELECTED;
        if (Focused(self) == child) state |= STATE_SYSTEM_FOCUSED;
        const RECT place = Place(self, child);
        if (IsRectEmpty(&place)) state |= STATE_SYSTEM_OFFSCREEN;
        return state;
    }
    static std::u16string Name(void* self, int child) {
        const auto row = static_cast<WPARAM>(child - 1);
        std::u16string text(static_cast<std::size_t>(Ask(self, LB_GETTEXTLEN, row)), u'\0');
        Ask(self, LB_GETTEXT, row, reinterpret_cast<LPARAM>(text.data()));
        return text;
    }
    static std::u16string DefaultAction(void*, int child) { return child == 0 ? u"" : u"Select"; }
    // As a click on the row does, which is brought into sight first.
    static void DoDefault(void* self, int child) {
        const Control& combo = *Of(self).m_Combo;
        if (!ComboField::Dropped(combo)) return;
        Select(self, child);
        const RECT row = Place(self, child);
        const LPARAM at = MAKELPARAM(row.left, row.top);
        const HWND list = Of(self).m_List;
        SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, at);
        SendMessageW(list, WM_LBUTTONUP, 0, at);
    }
    static int ChildCount(void* self) { return static_cast<int>(Ask(self, LB_GETCOUNT)); }
    static RECT Place(void* self, int child) {
        RECT row{}, client, seen;
        GetClientRect(Of(self).m_List, &client);
        Ask(self, LB_GETITEMRECT, static_cast<WPARAM>(child - 1), reinterpret_cast<LPARAM>(&row));
        IntersectRect(&seen, &row, &client);
        return seen;
    }
    static int ChildAt(void* self, POINT client) {
        const LRESULT found = Ask(self, LB_ITEMFROMPOINT, 0, MAKELPARAM(client.x, client.y));
        return HIWORD(found) ? 0 : LOWORD(found) + 1;
    }
    static int Current(void* self) { return static_cast<int>(Ask(self, LB_GETCURSEL)) + 1; }
    static int Focused(void* self) {
        const Control& combo = *Of(self).m_Combo;
        return combo.HasFocus() && ComboField::Dropped(combo) ? Current(self) : 0;
    }
    static void Select(void* self, int child) { Ask(self, LB_SETCURSEL, static_cast<WPARAM>(child - 1)); }
};

namespace {

constexpr AccessibleTable kAccessible{
    .Role = ROLE_SYSTEM_LIST,
    .State = DroppedRows::State,
    .Name = DroppedRows::Name,
    .DefaultAction = DroppedRows::DefaultAction,
    .DoDefault = DroppedRows::DoDefault,
    .ChildCount = DroppedRows::ChildCount,
    .ChildPlace = DroppedRows::Place,
    .ChildAt = DroppedRows::ChildAt,
    .FocusedChild = DroppedRows::Focused,
    .SelectedChild = DroppedRows::Current,
    .SelectChild = DroppedRows::Select,
};

} // namespace

DroppedList::~DroppedList() {
    for (const UINT message : kWatched) MSubclass::DetachMessage(*this, m_List, message);
}

void DroppedList::Watch(Control& combo) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    GetComboBoxInfo(combo.hWnd(), &parts);
    m_Combo = &combo;
    m_List = parts.hwndList;
    for (const UINT message : kWatched) MSubclass::AttachMessage(*this, m_List, message);
}

LRESULT DroppedList::WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) {
    if (iMsg == WM_GETOBJECT) {
        const LRESULT answer = m_Accessible.Answer(*m_Combo, hWnd, kAccessible, this, wParam, lParam);
        return answer ? answer : MSubclass::CallOldWindowProc(hWnd, iMsg, wParam, lParam);
    }
    // A choice may end the combo, and this with it.
    const StillThere here(*m_Combo);
    if (iMsg == kDefaultAction || iMsg == kSelectChild) {
        const int child = static_cast<int>(wParam);
        if (!m_Combo->Usable() || child < 1 || child > DroppedRows::ChildCount(this)) return 0;
        iMsg == kDefaultAction ? DroppedRows::DoDefault(this, child) : DroppedRows::Select(this, child);
        return 0;
    }
    const SystemCall call(*m_Combo);
    const LRESULT result = MSubclass::CallOldWindowProc(hWnd, iMsg, wParam, lParam);
    if (here && m_Combo->hWnd()) TellRow();
    return result;
}

// The mark has moved, or the list has opened with one. Closed, it tells of the box again.
void DroppedList::TellRow() {
    const bool open = IsWindowVisible(m_List) != 0;
    const int row = open ? static_cast<int>(SendMessageW(m_List, LB_GETCURSEL, 0, 0)) : -1;
    if (row == m_Told) return;
    m_Told = row;
    if (row >= 0) {
        if (m_Combo->HasFocus()) NotifyWinEvent(EVENT_OBJECT_FOCUS, m_List, OBJID_CLIENT, row + 1);
        NotifyWinEvent(EVENT_OBJECT_SELECTION, m_List, OBJID_CLIENT, row + 1);
    } else if (!open && m_Combo->HasFocus()) {
        m_Combo->Notify(EVENT_OBJECT_FOCUS);
    }
}
