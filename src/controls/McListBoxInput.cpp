// Mouse, keys, wheel, scroll bar and tip of a list.
//
// Tested by tests/windows/mclistbox_input_test.cpp and mclistbox_scroll_test.cpp.
#include "base/RuntimeFailure.h"
#include "controls/Dpi.h"
#include "controls/McListBox.h"
#include "controls/Painting.h"
#include "controls/RowScroll.h"
#include "controls/modSound.h"
#include "controls/modWin.h"

#include <commctrl.h>

#include <algorithm>

namespace {

constexpr std::size_t kLongestTip = 1024; // units
constexpr UINT_PTR kOverTimer = 2;
constexpr UINT kOverEvery = 10; // milliseconds

} // namespace

bool McListBox::OnInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    const auto mouse = [&] { return ReadMouse(message, wParam, lParam, Base.Dpi()); };
    switch (message) {
    case WM_MOUSEMOVE:
        OnMouseMove(mouse());
        return true;
    case WM_MOUSELEAVE:
        OnMouseLeave();
        return true;
    case WM_TIMER:
        if (wParam != kOverTimer) return false;
        OnOverTimer();
        return true;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
        OnPress(mouse(), false);
        return true;
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDBLCLK:
        OnPress(mouse(), true);
        return true;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
        OnRelease(mouse());
        return true;
    case WM_CAPTURECHANGED:
        m_Pressed = false;
        return true;
    case WM_MOUSEWHEEL:
        ScrollTo(m_State.TopRow -
                 RowScroll::RowsTurned(static_cast<short>(HIWORD(wParam)), VisibleRows(), m_WheelRest));
        return true;
    case WM_VSCROLL:
        ScrollTo(
            RowScroll::TopWanted(Base.hWnd(), LOWORD(wParam), m_State.TopRow, VisibleRows(), ListCount()));
        return true;
    case WM_KEYDOWN:
        OnKey(static_cast<int>(wParam));
        return true;
    case WM_KEYUP:
        Raise(KeyUp, static_cast<int>(wParam), ShiftState());
        return true;
    case WM_SYSKEYDOWN:
        // With Alt, and F10: told, and the system's to act on.
        Raise(KeyDown, static_cast<int>(wParam), ShiftState());
        return false;
    case WM_SYSKEYUP:
        Raise(KeyUp, static_cast<int>(wParam), ShiftState());
        return false;
    case WM_CHAR:
        OnCharacter(static_cast<char16_t>(wParam));
        return true;
    default:
        return false;
    }
}

void McListBox::OnKey(int key) {
    const StillThere here(Base);
    Raise(KeyDown, key, ShiftState());
    if (!here || !Base.hWnd()) return;
    // Without a current row the first one seen bears the sign of the focus, and keys begin there.
    const int last = ListCount() - 1, current = ListIndex();
    const int from = current >= 0 ? current : m_State.TopRow, step = current >= 0 ? 1 : 0;
    switch (key) {
    case VK_UP:
    case VK_LEFT:
        return Choose(std::max(from - step, 0));
    case VK_DOWN:
    case VK_RIGHT:
        return Choose(std::min(from + step, last));
    case VK_PRIOR:
        return Choose(std::max(from - VisibleRows(), 0));
    case VK_NEXT:
        return Choose(std::min(from + VisibleRows(), last));
    case VK_HOME:
        return Choose(0);
    case VK_END:
        return Choose(last);
    default:
        return;
    }
}

void McListBox::OnCharacter(char16_t unit) {
    const StillThere here(Base);
    Raise(KeyPress, static_cast<int>(unit));
    if (!here || !Base.hWnd()) return;
    Choose(m_Search.Find(unit, ListCount(), ListIndex(),
                         [this](int row) -> std::u16string_view { return m_Items.Item(row).Text; }));
}

// Nothing is chosen anew that is current already: forms answer a Click with work.
void McListBox::Choose(int row) {
    if (row < 0 || row >= ListCount() || row == ListIndex()) return;
    const StillThere here(Base);
    MoveTo(row);
    Raise(SelChange);
    if (here) Raise(Click);
}

void McListBox::MoveTo(int row) {
    RepaintRow(m_State.ListIndex < 0 ? m_State.TopRow : m_State.ListIndex);
    m_State.ListIndex = row;
    if (!Base.hWnd()) return;
    if (m_RowsAdded) UpdateScrollBar(); // it may be one of those
    const int visible = VisibleRows();
    if (row < m_State.TopRow)
        ScrollTo(row);
    else if (row >= m_State.TopRow + visible)
        ScrollTo(row - visible + 1);
    RepaintRow(row);
    if (Base.HasFocus()) Base.Notify(EVENT_OBJECT_FOCUS, row + 1);
    Base.Notify(EVENT_OBJECT_SELECTION, row + 1);
}

void McListBox::OnPress(const MouseAt& mouse, bool second) {
    const StillThere here(Base);
    const bool left = mouse.Button == kLeftButton;
    if (left) {
        SetCapture(Base.hWnd()); // may tell of a loss of the capture first
        m_Pressed = true;
        m_SecondPress = second;
        const int row = RowAt(mouse.Pixel);
        if (row >= 0 && (!second || row != ListIndex())) {
            MoveTo(row);
            Raise(SelChange);
            if (!here) return;
        }
    }
    if (left && second)
        Raise(DbClick);
    else
        Raise(MouseDown, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
}

void McListBox::OnRelease(const MouseAt& mouse) {
    const StillThere here(Base);
    if (mouse.Button == kLeftButton) {
        const bool clicked = m_Pressed && !m_SecondPress && RowAt(mouse.Pixel) >= 0;
        m_Pressed = false;
        if (GetCapture() == Base.hWnd()) ReleaseCapture();
        if (clicked) Raise(Click);
    }
    if (here) Raise(MouseUp, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
}

void McListBox::OnMouseMove(const MouseAt& mouse) {
    const StillThere here(Base);
    if (!m_MouseInside) {
        m_MouseInside = true;
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Base.hWnd(), 0};
        TrackMouseEvent(&track);
        SetTimer(Base.hWnd(), kOverTimer, kOverEvery, nullptr);
        modSound::PlayEffect(modSound::kMouseOver);
        Raise(MouseEnter);
        if (!here || !Base.hWnd()) return;
    }
    Hover(RowAt(mouse.Pixel));
    Raise(MouseMove, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
}

// The system does not always tell that the mouse has left: a window that comes over the
// list is such a case.
void McListBox::OnOverTimer() {
    POINT cursor{};
    if (GetCursorPos(&cursor) && WindowFromPoint(cursor) == Base.hWnd()) return;
    if (GetCapture() == Base.hWnd()) return; // the leave comes when it is let go
    OnMouseLeave();
}

void McListBox::OnMouseLeave() {
    if (!m_MouseInside) return;
    m_MouseInside = false;
    KillTimer(Base.hWnd(), kOverTimer);
    Hover(-1);
    Raise(MouseLeave);
}

void McListBox::Hover(int row) {
    if (row == m_State.HoveredRow) return;
    const int before = m_State.HoveredRow;
    m_State.HoveredRow = row;
    if (m_State.ShowHover) {
        RepaintRow(before);
        RepaintRow(row);
    }
    ShowRowTip();
}

// The rows have moved under the mouse.
void McListBox::HoverUnderMouse() {
    if (!m_MouseInside) return;
    POINT at{};
    GetCursorPos(&at);
    ScreenToClient(Base.hWnd(), &at);
    m_State.HoveredRow = RowAt(at);
    ShowRowTip();
}

// A tip of its own for each row, so that it waits and stands anew.
void McListBox::ShowRowTip() {
    m_RowTip.reset();
    const int row = m_State.HoveredRow;
    if (!m_ShowToolTip || row < 0 || row >= ListCount()) return;
    const ListItem& item = m_Items.Item(row);
    if (McListBoxFits(item, WidthOf(Inside()), m_State)) return;
    constexpr int kAlways = 1;
    m_RowTip = std::make_unique<cToolTip>();
    m_RowTip->Create(Base.hWnd(), std::u16string_view(item.Text).substr(0, kLongestTip), kAlways, false, 0,
                     {}, kNoColour, kNoColour, -1, -1);
    m_RowTip->Hover(); // it came too late for the move that asked for it
}

void McListBox::ScrollTo(int top) {
    top = std::clamp(top, 0, std::max(0, ListCount() - VisibleRows()));
    if (top == m_State.TopRow) return;
    m_State.TopRow = top;
    SetScrollPos(Base.hWnd(), SB_VERT, top, TRUE);
    HoverUnderMouse();
    Base.Invalidate();
}

void McListBox::UpdateScrollBar() {
    if (!Base.hWnd() || !Base.Made()) return;
    const int visible = VisibleRows();
    m_State.TopRow = std::clamp(m_State.TopRow, 0, std::max(0, ListCount() - visible));
    SCROLLINFO bar{sizeof bar, SIF_RANGE | SIF_PAGE | SIF_POS, 0, 0, 0, 0, 0};
    if (!m_AutoHideScrollBars) {
        bar.fMask |= SIF_DISABLENOSCROLL;
        ShowScrollBar(Base.hWnd(), SB_VERT, TRUE);
    }
    bar.nMax = std::max(0, ListCount() - 1);
    bar.nPage = static_cast<UINT>(visible);
    bar.nPos = m_State.TopRow;
    SetScrollInfo(Base.hWnd(), SB_VERT, &bar, TRUE);
}
