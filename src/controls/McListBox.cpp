// The list's rows, properties, window frame and repaints. Drawing, input and drops have
// sources of their own.
//
// Tested by tests/windows/mclistbox_test.cpp and its neighbours.
#include "controls/McListBox.h"

#include "base/Counter16.h"
#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "controls/Properties.h"

#include <algorithm>

namespace {
constexpr UINT_PTR kRefreshTimer = 1;
constexpr UINT kRefreshEvery = 1; // milliseconds
constexpr int kRefreshTicks = 5;
} // namespace

const AccessibleTable McListBox::kAccessible{
    .Role = ROLE_SYSTEM_LIST,
    .ChildRole = ROLE_SYSTEM_LISTITEM,
    .State = [](void* self, int child) -> LONG {
        const auto* list = static_cast<McListBox*>(self);
        if (child == 0) return 0;
        const int row = child - 1;
        LONG state = STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
        if (row == list->ListIndex()) {
            state |= STATE_SYSTEM_SELECTED;
            if (list->Base.HasFocus()) state |= STATE_SYSTEM_FOCUSED;
        }
        const RECT place = list->RowPlace(row);
        if (IsRectEmpty(&place)) state |= STATE_SYSTEM_OFFSCREEN | STATE_SYSTEM_INVISIBLE;
        return state;
    },
    .Name = [](void* self, int child) { return static_cast<McListBox*>(self)->List(child - 1); },
    .Value = [](void* self,
                int child) { return child == 0 ? static_cast<McListBox*>(self)->Text() : std::u16string(); },
    .DefaultAction = [](void*, int child) { return std::u16string(child > 0 ? u"Select" : u""); },
    .DoDefault =
        [](void* self, int child) {
            if (child > 0) static_cast<McListBox*>(self)->Choose(child - 1);
        },
    .ChildCount = [](void* self) { return static_cast<McListBox*>(self)->ListCount(); },
    .ChildPlace = [](void* self, int child) { return static_cast<McListBox*>(self)->RowPlace(child - 1); },
    .ChildAt = [](void* self, POINT at) { return static_cast<McListBox*>(self)->RowAt(at) + 1; },
    .FocusedChild = [](void* self) { return static_cast<McListBox*>(self)->ListIndex() + 1; },
    .SelectedChild = [](void* self) { return static_cast<McListBox*>(self)->ListIndex() + 1; },
    .SelectChild = [](void* self, int child) { static_cast<McListBox*>(self)->Choose(child - 1); },
};

const ControlKind McListBox::kKind{
    .TypeName = u"McListBox",
    .LayoutKinds = u"McListBox",
    .Focusable = true,
    .TakesLabel = true,
    .Created = Entry<&McListBox::AcceptDrops>::Call,
    .Property = Entry<&McListBox::OnProperty>::Call,
    .Made = Entry<&McListBox::LookChanged>::Call,
    .Paint = Entry<&McListBox::OnPaint>::Call,
    .Message = Entry<&McListBox::OnMessage>::Call,
    .Changed = Entry<&McListBox::OnChanged>::Call,
    .Accessible = &kAccessible,
};

McListBox::McListBox() : Base(this, kKind) {
    m_Items.Changed = [this](ListChange change, int index) { OnItems(change, index); };
}

McListBox::~McListBox() {
    EndDrops();
}

void McListBox::AddItem(std::u16string_view text, int index, int icon, bool bold) {
    if (!ListItems::CanBeStored(text))
        throw RuntimeFailure(kInvalidCall, u"McListBox", u"The text holds the separator");
    m_Items.AddItem(text, index, icon, bold);
}

void McListBox::List(int index, std::u16string_view text) {
    if (!ListItems::CanBeStored(text))
        throw RuntimeFailure(kInvalidCall, u"McListBox", u"The text holds the separator");
    m_Items.List(index, text);
}

void McListBox::Remove(int index) {
    if (index == -1 && m_State.ListIndex < 0) return;
    m_Items.Remove(index == -1 ? m_State.ListIndex : index);
}

void McListBox::Clear() {
    m_Items.Clear();
}

// The current row stays the same row, wherever it goes.
void McListBox::OnItems(ListChange change, int index) {
    int& current = m_State.ListIndex;
    switch (change) {
    case ListChange::Added:
        if (current >= index) ++current;
        m_RowsAdded = true;
        if (!m_AutoRefresh || !Base.hWnd()) return;
        m_RefreshTicks = 0;
        if (!m_Refreshing) m_Refreshing = SetTimer(Base.hWnd(), kRefreshTimer, kRefreshEvery, nullptr) != 0;
        return;
    case ListChange::Removed:
        if (current == index)
            current = -1;
        else if (current > index)
            --current;
        break;
    case ListChange::Cleared:
        current = -1;
        break;
    case ListChange::Written:
        Base.Notify(EVENT_OBJECT_NAMECHANGE, index + 1);
        RepaintRow(index);
        return;
    }
    Base.Notify(EVENT_OBJECT_REORDER);
    Refresh();
}

void McListBox::OnRefreshTick() {
    if (++m_RefreshTicks >= kRefreshTicks) Refresh();
}

// A refresh that was to come is done with.
void McListBox::Refresh() {
    if (!Base.hWnd()) return;
    if (m_Refreshing) KillTimer(Base.hWnd(), kRefreshTimer);
    m_Refreshing = false;
    m_RefreshTicks = 0;
    if (m_RowsAdded) Base.Notify(EVENT_OBJECT_REORDER);
    m_RowsAdded = false;
    UpdateScrollBar();
    HoverUnderMouse();
    Base.Refresh();
}

void McListBox::ListIndex(int index) {
    if (index < 0 || index >= ListCount()) return;
    MoveTo(index);
    Raise(SelChange);
}

std::u16string McListBox::Text() const {
    return m_State.ListIndex < 0 ? std::u16string() : List(m_State.ListIndex);
}

void McListBox::ImageList(McImageList* images) {
    m_ImageList = images;
    Base.Invalidate();
}

int McListBox::RowHeight() const {
    const FontHandle font(Base.Font(), 96);
    return std::max<int>(m_State.RowHeight, TextSize(font.Get(), u"A").cy);
}

void McListBox::RowHeight(int pixels96) {
    Set<int>(m_State.RowHeight, ToInt16(pixels96, u"McListBox"));
}

bool McListBox::OnProperty(std::u16string_view name, std::u16string_view value) {
    static constexpr PropertySetter<McListBox> kSetters[] = {
        {u"ShowHover", &McListBox::ShowHover},
        {u"ShowToolTip", &McListBox::ShowToolTip},
        {u"ShowIcon", &McListBox::ShowIcon},
        {u"IconFocus", &McListBox::IconFocus},
        {u"FullRowSelect", &McListBox::FullRowSelect},
        {u"FocusRectangle", &McListBox::FocusRectangle},
        {u"AutoHideScrollBars", &McListBox::AutoHideScrollBars},
        {u"AutoRefresh", &McListBox::AutoRefresh},
        {u"Appearance", &McListBox::Appearance},
        {u"RowHeight", &McListBox::RowHeight},
        {u"BackGradient", &McListBox::BackGradient},
        {u"SelGradient", &McListBox::SelGradient},
        {u"BackColor", &McListBox::BackColor},
        {u"ForeColor", &McListBox::ForeColor},
        {u"SelColor", &McListBox::SelColor},
        {u"SelForeColor", &McListBox::SelForeColor},
        {u"BackGradientCol", &McListBox::BackGradientCol},
        {u"SelGradientCol", &McListBox::SelGradientCol},
    };
    return SetProperty(*this, kSetters, name, value);
}

// A font or DPI of its own gives rows another height, a frame another width.
void McListBox::OnChanged(Change what) {
    if (what == Change::Focus && Base.HasFocus() && ListIndex() >= 0)
        Base.Notify(EVENT_OBJECT_FOCUS, ListIndex() + 1);
    if (what == Change::Focus || what == Change::Caption || what == Change::Size) return;
    if (what == Change::Enabled) Hover(-1);
    LookChanged();
}

void McListBox::TakeFonts() {
    m_State.Font = Base.FontInUse();
    m_State.Dpi = Base.Dpi();
    ::Font bold = Base.Font();
    bold.Bold = true;
    m_BoldFont = FontHandle(bold, Base.Dpi());
    m_State.BoldFont = m_BoldFont.Get();
}

void McListBox::LookChanged() {
    if (!Base.hWnd() || !Base.Made()) return;
    TakeFonts();
    SetWindowPos(Base.hWnd(), nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    UpdateScrollBar();
    ShowRowTip();
    RedrawWindow(Base.hWnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
}

McListBoxState McListBox::Look() const {
    McListBoxState look = m_State;
    look.Row = [this](int row) -> const ListItem& {
        TallyRow();
        return m_Items.Item(row);
    };
    look.Count = ListCount();
    look.ImageList = m_ImageList;
    look.Enabled = Base.EnabledInAll();
    look.Focused = Base.HasFocus();
    return look;
}

// The border lies round the client area and the scroll bar; here it is clipped away.
void McListBox::OnPaint(HDC dc, const RECT& client) {
    const McListBoxState look = Look();
    DrawMcListBox(dc, Inset(client, -McListBoxBorder(look)), look);
}

RECT McListBox::Inside() const {
    RECT inside{};
    GetClientRect(Base.hWnd(), &inside);
    return inside;
}

int McListBox::VisibleRows() const {
    return std::max(1, McListBoxRows(m_State).At(HeightOf(Inside())));
}

RECT McListBox::RowPlace(int row) const {
    RECT shown{};
    const RECT inside = Inside();
    const McListBoxRows rows(m_State);
    const int below = row - m_State.TopRow;
    if (below < 0 || below > rows.At(HeightOf(inside))) return shown;
    const RECT place{inside.left, rows.Top(below), inside.right, rows.Top(below + 1)};
    IntersectRect(&shown, &place, &inside);
    return shown;
}

int McListBox::RowAt(POINT at) const {
    const RECT inside = Inside();
    if (!PtInRect(&inside, at)) return -1;
    const int row = m_State.TopRow + McListBoxRows(m_State).At(at.y);
    return row < ListCount() ? row : -1;
}

void McListBox::RepaintRow(int row) {
    if (!Base.hWnd()) return;
    const RECT place = RowPlace(row);
    if (!IsRectEmpty(&place)) InvalidateRect(Base.hWnd(), &place, FALSE);
}

bool McListBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == WM_TIMER && wParam == kRefreshTimer) {
        OnRefreshTick();
        return true;
    }
    if (message == WM_DESTROY) {
        EndDrops();
        m_RowTip.reset();
        return false;
    }
    return OnFrameMessage(message, wParam, lParam, result) || OnInput(message, wParam, lParam, result);
}

bool McListBox::OnFrameMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const auto frame = [this](HDC dc) {
        RECT place{};
        GetWindowRect(Base.hWnd(), &place);
        OffsetRect(&place, -place.left, -place.top);
        DrawMcListBoxBorder(dc, place, m_State);
    };
    switch (message) {
    case WM_NCCALCSIZE: {
        RECT& window =
            wParam ? reinterpret_cast<NCCALCSIZE_PARAMS*>(lParam)->rgrc[0] : *reinterpret_cast<RECT*>(lParam);
        const int border = McListBoxBorder(m_State);
        window = Inset(window, border);
        if (window.right < window.left) window.right = window.left;
        if (window.bottom < window.top) window.bottom = window.top;
        result = Base.DefaultProcedure(message, wParam, lParam); // takes off the scroll bar
        return true;
    }
    case WM_NCPAINT: {
        result = Base.DefaultProcedure(message, wParam, lParam);
        const HDC dc = GetWindowDC(Base.hWnd());
        frame(dc);
        ReleaseDC(Base.hWnd(), dc);
        return true;
    }
    case WM_PRINT:
        result = Base.DefaultProcedure(message, wParam, lParam);
        if (lParam & PRF_NONCLIENT) frame(reinterpret_cast<HDC>(wParam));
        return true;
    case WM_SIZE:
        TakeFonts(); // it may come in front of the change of DPI that it is a part of
        UpdateScrollBar();
        Base.Invalidate();
        return false;
    default:
        return false;
    }
}
