// Mouse, keys, wheel and scroll bar of the list.
//
// Tested by tests/windows/checklist_input_test.cpp and checklist_press_test.cpp.
#include "controls/CheckList.h"
#include "controls/Events.h"
#include "controls/ListBorder.h"
#include "controls/Painting.h"
#include "controls/RowScroll.h"

#include <algorithm>
#include <utility>

namespace {
constexpr UINT kRefresh = WM_APP + 1;
} // namespace

bool CheckList::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const POINT at{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
        const int row = RowAt(at);
        if (row < 0) return true;
        SetCapture(Base.hWnd()); // may tell of a loss of the capture first
        m_Pressed = row;
        ListIndex(row);
        InvalidateRow(row);
        return true;
    }
    case WM_LBUTTONUP: {
        // The press may have ended before, by Tab or an emptied list; the mouse is free in any case.
        const int row = std::exchange(m_Pressed, -1);
        if (GetCapture() == Base.hWnd()) ReleaseCapture();
        InvalidateRow(row);
        if (row >= 0 && RowAt(at) == row) Toggle(row);
        return true;
    }
    case WM_CAPTURECHANGED:
        InvalidateRow(std::exchange(m_Pressed, -1));
        return true;
    case WM_KEYDOWN:
        if (wParam == VK_SPACE && (lParam & (1 << 30))) return true; // held down: once
        return OnKey(wParam);
    case WM_CHAR:
        OnCharacter(static_cast<char16_t>(wParam));
        return true;
    case WM_MOUSEWHEEL:
        ScrollTo(m_Top -
                 RowScroll::RowsTurned(static_cast<short>(HIWORD(wParam)), RowsInSight(), m_WheelRest));
        return true;
    case WM_VSCROLL:
        ScrollTo(RowScroll::TopWanted(Base.hWnd(), LOWORD(wParam), m_Top, RowsInSight(), ListCount()));
        return true;
    case kRefresh:
        m_RefreshPosted = false;
        ScrollTo(m_Top);
        Base.Invalidate();
        Base.Notify(EVENT_OBJECT_REORDER);
        return true;
    default:
        return ListBorder::Message(Base, message, wParam, lParam, result);
    }
}

bool CheckList::OnKey(WPARAM key) {
    const int last = ListCount() - 1, page = std::max(RowsInSight() - 1, 1);
    if (last < 0) return false;
    // Without a current row the marked one is where keys begin.
    const int from = MarkedRow(), step = m_Current >= 0 ? 1 : 0;
    switch (key) {
    case VK_SPACE:
        Toggle(from);
        return true;
    case VK_UP:
        ListIndex(std::max(from - step, 0));
        return true;
    case VK_DOWN:
        ListIndex(std::min(from + step, last));
        return true;
    case VK_PRIOR:
        ListIndex(std::max(from - page, 0));
        return true;
    case VK_NEXT:
        ListIndex(std::min(from + page, last));
        return true;
    case VK_HOME:
        ListIndex(0);
        return true;
    case VK_END:
        ListIndex(last);
        return true;
    default:
        return false;
    }
}

// A blank has ticked the row already.
void CheckList::OnCharacter(char16_t unit) {
    if (unit == u' ') return;
    const int row = m_Search.Find(unit, ListCount(), m_Current,
                                  [this](int at) -> std::u16string_view { return At(at).Text; });
    if (row >= 0) ListIndex(row);
}

// What the user does to a tick. The handler comes last: it may destroy the list.
void CheckList::Toggle(int row) {
    if (!Valid(row)) return;
    ListIndex(row);
    Checked(row, !Checked(row));
    Raise(Click);
}

int CheckList::RowAt(POINT at) const {
    RECT client{};
    GetClientRect(Base.hWnd(), &client);
    if (!PtInRect(&client, at)) return -1;
    const int row = m_Top + static_cast<int>(at.y) / Base.Scaled(m_RowHeight);
    return Valid(row) ? row : -1;
}

int CheckList::RowsInSight() const {
    RECT client{};
    GetClientRect(Base.hWnd(), &client);
    return std::max<int>(client.bottom / Base.Scaled(m_RowHeight), 1);
}

void CheckList::ScrollTo(int top) {
    if (!Base.hWnd()) return;
    top = std::clamp(top, 0, std::max(ListCount() - RowsInSight(), 0));
    const bool moves = top != m_Top;
    m_Top = top;
    UpdateScrollBar();
    if (moves) Base.Invalidate();
}

void CheckList::Reveal(int row) {
    if (row < m_Top)
        ScrollTo(row);
    else if (row >= m_Top + RowsInSight())
        ScrollTo(row - RowsInSight() + 1);
}

void CheckList::UpdateScrollBar() {
    SCROLLINFO bar{};
    bar.cbSize = sizeof bar;
    bar.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    bar.nMax = std::max(ListCount() - 1, 0);
    bar.nPage = static_cast<UINT>(RowsInSight());
    bar.nPos = m_Top;
    SetScrollInfo(Base.hWnd(), SB_VERT, &bar, TRUE);
}

// Rows come by the hundred: the list follows once the queue is reached.
void CheckList::RefreshLater() {
    if (m_RefreshPosted || !Base.hWnd()) return;
    m_RefreshPosted = PostMessageW(Base.hWnd(), kRefresh, 0, 0) != 0;
}
