// The list view keeps the rows, scrolls and answers its messages; nothing of its look is
// left: see TwoColumnListPaint.cpp. The header is told in TwoColumnListHeader.cpp, the tip of a
// cut cell in TwoColumnListTip.cpp.
//
// Tested by tests/windows/twocolumnlist_test.cpp and twocolumnlist_paint_test.cpp.
#include "controls/TwoColumnList.h"

#include "base/Text.h"
#include "controls/ListBorder.h"
#include "controls/Painting.h"

#include <algorithm>
#include <commctrl.h>

namespace {

constexpr int kRowHeight = 20; // pixels at 96 DPI
constexpr UINT kClicked = WM_APP + 1, kSelected = WM_APP + 2;

} // namespace

// What screen readers are told of the rows.
struct TwoColumnListRows {
    static TwoColumnList& List(void* self) { return *static_cast<TwoColumnList*>(self); }
    static LONG State(void* self, int child) {
        if (child == 0) return 0;
        const TwoColumnList& list = List(self);
        LONG state = STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
        if (list.ListIndex() == child - 1)
            state |= STATE_SYSTEM_SELECTED | (list.Base.HasFocus() ? STATE_SYSTEM_FOCUSED : 0);
        const RECT place = Place(self, child);
        if (IsRectEmpty(&place)) state |= STATE_SYSTEM_OFFSCREEN;
        return state;
    }
    static std::u16string Name(void* self, int child) { return List(self).Text(child - 1, 0); }
    static std::u16string Value(void* self, int child) {
        return child == 0 ? std::u16string() : List(self).Text(child - 1, 1);
    }
    static std::u16string DefaultAction(void*, int child) { return child == 0 ? u"" : u"Select"; }
    static void DoDefault(void* self, int child) {
        if (child > 0) List(self).ListIndex(child - 1);
    }
    static int ChildCount(void* self) { return List(self).ListCount(); }
    static RECT Place(void* self, int child) {
        const TwoColumnList& list = List(self);
        RECT client, header{}, seen;
        GetClientRect(list.Base.hWnd(), &client);
        GetClientRect(list.m_Header, &header);
        client.top = header.bottom;
        const RECT row = list.Row(child - 1);
        IntersectRect(&seen, &row, &client);
        return seen;
    }
    static int ChildAt(void* self, POINT client) {
        LVHITTESTINFO hit{};
        hit.pt = client;
        return static_cast<int>(SendMessageW(List(self).Base.hWnd(), LVM_SUBITEMHITTEST, 0,
                                             reinterpret_cast<LPARAM>(&hit))) +
               1;
    }
    static int Selected(void* self) { return List(self).ListIndex() + 1; }
};

namespace {

constexpr AccessibleTable kAccessible{
    .Role = ROLE_SYSTEM_LIST,
    .State = TwoColumnListRows::State,
    .Name = TwoColumnListRows::Name,
    .Value = TwoColumnListRows::Value,
    .DefaultAction = TwoColumnListRows::DefaultAction,
    .DoDefault = TwoColumnListRows::DoDefault,
    .ChildCount = TwoColumnListRows::ChildCount,
    .ChildPlace = TwoColumnListRows::Place,
    .ChildAt = TwoColumnListRows::ChildAt,
    .FocusedChild = TwoColumnListRows::Selected,
    .SelectedChild = TwoColumnListRows::Selected,
    .SelectChild = TwoColumnListRows::DoDefault,
};

} // namespace

const ControlKind TwoColumnList::kKind{
    .TypeName = u"TwoColumnList",
    .LayoutKinds = u"listview",
    .WindowClass = WC_LISTVIEWW,
    .Style = LVS_REPORT | LVS_SINGLESEL | LVS_NOSORTHEADER | WS_CLIPCHILDREN,
    .Focusable = true,
    .TakesLabel = true,
    .Created = Entry<&TwoColumnList::OnCreated>::Call,
    .Property = Entry<&TwoColumnList::OnProperty>::Call,
    .Message = Entry<&TwoColumnList::OnMessage>::Call,
    .Changed = Entry<&TwoColumnList::OnChanged>::Call,
    .Accessible = &kAccessible,
};

void TwoColumnList::OnCreated() {
    SendMessageW(Base.hWnd(), LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    for (int column = 0; column < kColumns; ++column) {
        LVCOLUMNW added{};
        added.mask = LVCF_WIDTH | LVCF_SUBITEM;
        added.iSubItem = column;
        SendMessageW(Base.hWnd(), LVM_INSERTCOLUMNW, static_cast<WPARAM>(column),
                     reinterpret_cast<LPARAM>(&added));
    }
    TakeHeader();
    OnChanged(Change::Dpi);
}

bool TwoColumnList::OnProperty(std::u16string_view name, std::u16string_view value) {
    if (name != u"Columns") return false;
    const auto texts = text::Split(value, u"|");
    if (texts.size() != kColumns) return false;
    for (int column = 0; column < kColumns; ++column)
        Header(column, std::u16string(texts[static_cast<std::size_t>(column)]));
    return true;
}

bool TwoColumnList::Valid(int row, int column) const {
    return row >= 0 && row < ListCount() && column >= 0 && column < kColumns;
}

int TwoColumnList::AddItem(const std::u16string& first, const std::u16string& second) {
    LVITEMW added{};
    added.mask = LVIF_TEXT;
    added.iItem = ListCount();
    added.pszText = const_cast<wchar_t*>(Wide(first));
    const auto row =
        static_cast<int>(SendMessageW(Base.hWnd(), LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&added)));
    Text(row, 1, second);
    Base.Notify(EVENT_OBJECT_REORDER);
    return row;
}

void TwoColumnList::Remove(int row) {
    if (!Valid(row, 0)) return;
    SendMessageW(Base.hWnd(), LVM_DELETEITEM, static_cast<WPARAM>(row), 0);
    Base.Invalidate(); // also what stood there before and has moved
    Base.Notify(EVENT_OBJECT_REORDER);
}

void TwoColumnList::Clear() {
    SendMessageW(Base.hWnd(), LVM_DELETEALLITEMS, 0, 0);
    Base.Notify(EVENT_OBJECT_REORDER);
}

int TwoColumnList::ListCount() const {
    return static_cast<int>(SendMessageW(Base.hWnd(), LVM_GETITEMCOUNT, 0, 0));
}

std::u16string TwoColumnList::Text(int row, int column) const {
    if (!Valid(row, column)) return {};
    std::u16string text(256, u'\0');
    for (;;) {
        LVITEMW asked{};
        asked.iSubItem = column;
        asked.pszText = Wide(text.data());
        asked.cchTextMax = static_cast<int>(text.size());
        const auto length = static_cast<std::size_t>(SendMessageW(
            Base.hWnd(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&asked)));
        if (length + 1 < text.size()) {
            text.resize(length);
            return text;
        }
        text.assign(text.size() * 2, u'\0');
    }
}

void TwoColumnList::Text(int row, int column, const std::u16string& text) {
    if (!Valid(row, column)) return;
    LVITEMW changed{};
    changed.iSubItem = column;
    changed.pszText = const_cast<wchar_t*>(Wide(text));
    SendMessageW(Base.hWnd(), LVM_SETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&changed));
    Base.Notify(column == 0 ? EVENT_OBJECT_NAMECHANGE : EVENT_OBJECT_VALUECHANGE, row + 1);
}

int TwoColumnList::FindItem(const std::u16string& text, int from) const {
    const int count = ListCount();
    for (int row = std::max(from, 0); row < count; ++row) {
        const std::u16string held = Text(row, 0);
        if (CompareStringOrdinal(Wide(held), static_cast<int>(held.size()), Wide(text),
                                 static_cast<int>(text.size()), TRUE) == CSTR_EQUAL)
            return row;
    }
    return -1;
}

int TwoColumnList::ListIndex() const {
    return static_cast<int>(
        SendMessageW(Base.hWnd(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

void TwoColumnList::ListIndex(int row) {
    if (row < -1 || row >= ListCount()) return;
    LVITEMW state{};
    state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    state.state = row < 0 ? 0 : state.stateMask;
    // Row -1 stands for all rows.
    SendMessageW(Base.hWnd(), LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&state));
}

void TwoColumnList::EnsureVisible(int row) {
    if (Valid(row, 0)) SendMessageW(Base.hWnd(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

bool TwoColumnList::HideSelection() const {
    return !(GetWindowLongW(Base.hWnd(), GWL_STYLE) & LVS_SHOWSELALWAYS);
}

void TwoColumnList::HideSelection(bool hide) {
    const LONG style = GetWindowLongW(Base.hWnd(), GWL_STYLE);
    SetWindowLongW(Base.hWnd(), GWL_STYLE, hide ? style & ~LVS_SHOWSELALWAYS : style | LVS_SHOWSELALWAYS);
    Base.Invalidate();
}

bool TwoColumnList::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_MOUSEMOVE:
        ShowCellTip();
        return false;
    case WM_DESTROY:
        m_Tip.reset();
        return false;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDOWN: {
        const MouseAt mouse = ReadMouse(message, wParam, lParam, Base.Dpi());
        const StillThere here(Base);
        Raise(MouseDown, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
        return !here;
    }
    case WM_ERASEBKGND:
        result = 1;
        return true;
    case WM_PAINT:
        PaintBuffered(Base.hWnd(), [this](HDC dc, const RECT& client) { PaintRows(dc, client); });
        // The list repaints the rows that it has changed or scrolled in, not the sign of the focus.
        if (const int marked = MarkedTop(); marked != m_MarkedTop) {
            m_MarkedTop = marked;
            Base.Invalidate();
        }
        DropStaleTip();
        return true;
    case WM_PRINTCLIENT: {
        RECT client;
        GetClientRect(Base.hWnd(), &client);
        PaintRows(reinterpret_cast<HDC>(wParam), client);
        return true;
    }
    case kReflected + WM_NOTIFY:
        OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
        return true;
    case kClicked:
        Raise(Click);
        return true;
    case kSelected:
        Raise(SelChange);
        return true;
    case WM_SIZE: // also when the scroll bar comes or goes
        result = Base.DefaultProcedure(message, wParam, lParam);
        FitColumns();
        return true;
    default:
        return ListBorder::Message(Base, message, wParam, lParam, result);
    }
}

void TwoColumnList::OnNotify(const NMHDR& told) {
    // The list is still at work: handlers, which may destroy it, wait.
    switch (told.code) {
    case NM_CLICK:
    case NM_DBLCLK:
        PostMessageW(Base.hWnd(), kClicked, 0, 0);
        break;
    case LVN_ITEMCHANGED: {
        Base.Invalidate(); // the list itself leaves out the left edge of its rows
        const auto& item = reinterpret_cast<const NMLISTVIEW&>(told);
        if (!(item.uNewState & LVIS_SELECTED) || (item.uOldState & LVIS_SELECTED)) break;
        Base.Notify(EVENT_OBJECT_SELECTION, item.iItem + 1);
        if (Base.HasFocus()) Base.Notify(EVENT_OBJECT_FOCUS, item.iItem + 1);
        PostMessageW(Base.hWnd(), kSelected, 0, 0);
        break;
    }
    default:
        break;
    }
}

void TwoColumnList::OnChanged(Change what) {
    const HWND list = Base.hWnd();
    if (!list || !m_Header) return;
    if (what == Change::Dpi) {
        // Rows are as high as their pictures, and one pixel more.
        const HIMAGELIST spacer =
            ImageList_Create(1, std::max(Base.Scaled(kRowHeight) - 1, 1), ILC_COLOR, 0, 1);
        const auto old = reinterpret_cast<HIMAGELIST>(
            SendMessageW(list, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(spacer)));
        if (old) ImageList_Destroy(old);
    }
    if (what == Change::Dpi) FitColumns();
    ListBorder::Changed(Base, what);
    InvalidateRect(m_Header, nullptr, FALSE);
    if (what == Change::Focus && Base.HasFocus() && ListIndex() >= 0)
        Base.Notify(EVENT_OBJECT_FOCUS, ListIndex() + 1);
}

void TwoColumnList::FitColumns() {
    RECT client;
    GetClientRect(Base.hWnd(), &client);
    const int half = WidthOf(client) / kColumns;
    SendMessageW(Base.hWnd(), LVM_SETCOLUMNWIDTH, 0, half);
    SendMessageW(Base.hWnd(), LVM_SETCOLUMNWIDTH, 1, WidthOf(client) - half);
    Base.Invalidate(); // the dividers of the rows have moved
}

RECT TwoColumnList::Row(int row) const {
    RECT place{};
    place.left = LVIR_BOUNDS;
    if (!SendMessageW(Base.hWnd(), LVM_GETITEMRECT, static_cast<WPARAM>(row),
                      reinterpret_cast<LPARAM>(&place)))
        return {};
    return place;
}

RECT TwoColumnList::FirstPlace() const {
    RECT place{}, header{};
    GetClientRect(Base.hWnd(), &place);
    GetClientRect(m_Header, &header);
    place.top = header.bottom;
    place.bottom = place.top + std::max(Base.Scaled(kRowHeight), 2);
    return place;
}
