// Mouse and space bar of the toggles: both act on the release.
#include "controls/Toggle.h"

bool ToggleInput::OnMessage(Control& control, UINT message, WPARAM wParam, LPARAM lParam,
                            const std::function<void()>& released) {
    const POINT at{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    switch (message) {
    case WM_MOUSEMOVE:
        Hover(control, at);
        return true;
    case WM_MOUSELEAVE:
        m_Hovering = false;
        control.Invalidate();
        return true;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
        SetCapture(control.hWnd());
        Hover(control, at);
        SetHeld(control, true, m_SpaceHeld);
        return true;
    case WM_LBUTTONUP: {
        const bool pressed = m_MouseHeld;
        Hover(control, at);
        const bool inside = m_Hovering;
        SetHeld(control, false, m_SpaceHeld);
        if (GetCapture() == control.hWnd()) ReleaseCapture();
        // A press that began elsewhere does not toggle.
        if (pressed && inside && control.EnabledInAll()) released();
        return true;
    }
    case WM_CAPTURECHANGED:
        if (reinterpret_cast<HWND>(lParam) != control.hWnd()) SetHeld(control, false, m_SpaceHeld);
        return true;
    case WM_KEYDOWN:
        if (wParam != VK_SPACE) return false;
        SetHeld(control, m_MouseHeld, true);
        return true;
    case WM_KEYUP: {
        if (wParam != VK_SPACE) return false;
        const bool pressed = m_SpaceHeld;
        SetHeld(control, m_MouseHeld, false);
        if (pressed && control.EnabledInAll()) released();
        return true;
    }
    default:
        return false;
    }
}

// While the mouse is held its moves come from everywhere.
void ToggleInput::Hover(Control& control, POINT at) {
    RECT client{};
    GetClientRect(control.hWnd(), &client);
    const bool inside = PtInRect(&client, at) != FALSE;
    if (inside == m_Hovering) return;
    m_Hovering = inside;
    control.Invalidate();
    if (!inside) return;
    TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, control.hWnd(), 0};
    TrackMouseEvent(&leaving);
}

void ToggleInput::SetHeld(Control& control, bool mouse, bool space) {
    if (mouse == m_MouseHeld && space == m_SpaceHeld) return;
    m_MouseHeld = mouse;
    m_SpaceHeld = space;
    control.Invalidate();
    control.Notify(EVENT_OBJECT_STATECHANGE);
}

void ToggleInput::LetGo(Control& control) {
    SetHeld(control, false, false);
    if (!control.EnabledInAll()) m_Hovering = false;
}
