// What a toggle holds, and what mouse and space bar do to it: both act on the release. The
// look: ToggleDraw.cpp. Tested by tests/windows/toggle_*_test.cpp.
#include "controls/Toggle.h"

namespace {
constexpr UINT_PTR kOverTimer = 1;
constexpr UINT kOverEvery = 10; // milliseconds
} // namespace

void Toggle::Value(int value) {
    if (value == m_Value) return;
    m_Value = value;
    m_Base.Invalidate();
    m_Base.Notify(EVENT_OBJECT_STATECHANGE);
}

void Toggle::ForeColor(OleColour colour) {
    m_ForeColor = colour;
    m_Base.Invalidate();
}

void Toggle::BackColor(OleColour colour) {
    m_BackColor = colour;
    m_Base.Invalidate();
}

ToggleState Toggle::State() {
    return {.Kind = m_Kind,
            .Value = m_Value,
            .Caption = m_Base.Caption(),
            .Font = m_Base.FontInUse(),
            .ForeColor = m_ForeColor,
            .BackColor = m_BackColor,
            .Enabled = m_Base.EnabledInAll(),
            .Hovering = m_Hovering,
            .Pressed = Pressed(),
            .Focused = m_Base.HasFocus(),
            .Dpi = m_Base.Dpi()};
}

LONG SpokenState(const ToggleState& state) {
    constexpr LONG kValues[] = {0, STATE_SYSTEM_CHECKED, STATE_SYSTEM_MIXED};
    return kValues[state.Value] | (state.Pressed ? STATE_SYSTEM_PRESSED : 0) |
           (state.Hovering ? STATE_SYSTEM_HOTTRACKED : 0);
}

bool Toggle::OnProperty(std::u16string_view name, std::u16string_view value) {
    if (name == u"ForeColor")
        ForeColor(ParseColour(value));
    else if (name == u"BackColor")
        BackColor(ParseColour(value));
    else
        return false;
    return true;
}

bool Toggle::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, const std::function<void()>& press,
                       const std::function<void(int, int, int, int)>& mouseMove) {
    if (!OnInput(message, wParam, lParam, press)) return false;
    if (message == WM_MOUSEMOVE) {
        const MouseAt mouse = ReadMouse(message, wParam, lParam, m_Base.Dpi());
        Raise(mouseMove, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
    }
    return true;
}

// A press may be the end of the control: it comes last.
bool Toggle::OnInput(UINT message, WPARAM wParam, LPARAM lParam, const std::function<void()>& press) {
    const POINT at{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    switch (message) {
    case WM_MOUSEMOVE:
        Hover(at);
        return true;
    case WM_MOUSELEAVE:
        SetHovering(false);
        return true;
    case WM_TIMER:
        if (wParam != kOverTimer) return false;
        OnOverTimer();
        return true;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        SetCapture(m_Base.hWnd());
        Hover(at);
        SetHeld(true, m_SpaceHeld);
        return true;
    case WM_LBUTTONUP: {
        // A press that began elsewhere does not toggle.
        const bool pressed = m_MouseHeld;
        Hover(at);
        const bool inside = m_Hovering;
        SetHeld(false, m_SpaceHeld);
        if (GetCapture() == m_Base.hWnd()) ReleaseCapture();
        if (pressed && inside && m_Base.EnabledInAll()) press();
        return true;
    }
    case WM_CAPTURECHANGED:
        if (reinterpret_cast<HWND>(lParam) != m_Base.hWnd()) SetHeld(false, m_SpaceHeld);
        return true;
    case WM_KEYDOWN:
        if (wParam != VK_SPACE) return false;
        // What was held before the focus came is no press here.
        if (!(lParam & (1 << 30))) SetHeld(m_MouseHeld, true);
        return true;
    case WM_SYSKEYUP: // released while Alt is held
    case WM_KEYUP: {
        if (wParam != VK_SPACE) return false;
        const bool pressed = m_SpaceHeld;
        SetHeld(m_MouseHeld, false);
        if (pressed && m_Base.EnabledInAll()) press();
        return true;
    }
    default:
        return false;
    }
}

// While the mouse is held its moves come from everywhere.
void Toggle::Hover(POINT at) {
    RECT client{};
    GetClientRect(m_Base.hWnd(), &client);
    const bool inside = PtInRect(&client, at) != FALSE;
    if (inside == m_Hovering) return;
    SetHovering(inside);
    if (!inside) return;
    TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, m_Base.hWnd(), 0};
    TrackMouseEvent(&leaving);
}

// The system does not always tell that the mouse has left: a window that comes over the
// toggle is such a case.
void Toggle::OnOverTimer() {
    POINT cursor{};
    if (GetCursorPos(&cursor) && WindowFromPoint(cursor) == m_Base.hWnd()) return;
    if (GetCapture() != m_Base.hWnd()) SetHovering(false);
}

void Toggle::SetHovering(bool hovering) {
    if (hovering == m_Hovering) return;
    m_Hovering = hovering;
    if (hovering)
        SetTimer(m_Base.hWnd(), kOverTimer, kOverEvery, nullptr);
    else
        KillTimer(m_Base.hWnd(), kOverTimer);
    m_Base.Invalidate();
}

void Toggle::SetHeld(bool mouse, bool space) {
    if (mouse == m_MouseHeld && space == m_SpaceHeld) return;
    m_MouseHeld = mouse;
    m_SpaceHeld = space;
    m_Base.Invalidate();
    m_Base.Notify(EVENT_OBJECT_STATECHANGE);
}

// Without the focus, or disabled, nothing is held any more.
void Toggle::OnChanged(Change what) {
    const bool enabled = m_Base.EnabledInAll();
    if (!(what == Change::Focus && !m_Base.HasFocus()) && !(what == Change::Enabled && !enabled)) return;
    SetHeld(false, false);
    if (!enabled) SetHovering(false);
}
