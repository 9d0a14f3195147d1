// What mouse and keyboard do to the button, and the order of its events. Any event may
// destroy the button, so each is followed by a look whether it still exists.
//
// Tested by tests/windows/button_test.cpp and button_sound_test.cpp.
#include "controls/TavrelButton.h"

#include "base/DoEvents.h"
#include "controls/modSound.h"
#include "controls/modWin.h"

namespace {
constexpr UINT_PTR kOverTimer = 1;
constexpr UINT kOverInterval = 10;    // milliseconds
constexpr LPARAM kHeldDown = 1 << 30; // of WM_KEYDOWN: the key was down before
} // namespace

bool TavrelButton::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_TIMER:
        if (wParam != kOverTimer) return false;
        OverTimer();
        return true;
    case WM_KEYDOWN:
        KeyGoesDown(static_cast<int>(wParam), (lParam & kHeldDown) != 0);
        return true;
    case WM_CHAR:
        Raise(KeyPress, static_cast<int>(wParam));
        return true;
    case WM_KEYUP:
        KeyComesUp(static_cast<int>(wParam));
        return true;
    case WM_SYSKEYDOWN:
        // With Alt, and F10: told, and the system's to act on.
        Raise(KeyDown, static_cast<int>(wParam), ShiftState());
        return false;
    case WM_SYSKEYUP:
        KeyComesUp(static_cast<int>(wParam));
        return false;
    case WM_CAPTURECHANGED:
        // Somebody else has the mouse now: no release will come here.
        if (m_ButtonsHeld && reinterpret_cast<HWND>(lParam) != Base.hWnd()) {
            m_ButtonsHeld = 0;
            if (!m_SpaceHeld) SetPressed(false);
        }
        return true;
    case WM_SETCURSOR:
        if (!m_DefCurHand || LOWORD(lParam) != HTCLIENT) return false;
        SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(32649))); // the hand
        result = TRUE;
        return true;
    default:
        return OnMouse(message, wParam, lParam);
    }
}

bool TavrelButton::OnMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto mouse = [&] { return ReadMouse(message, wParam, lParam, Base.Dpi()); };
    switch (message) {
    case WM_MOUSEMOVE:
        MouseMoved(mouse());
        return true;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
        MouseGoesDown(mouse());
        return true;
    case WM_LBUTTONDBLCLK:
    case WM_RBUTTONDBLCLK:
    case WM_MBUTTONDBLCLK:
        // The second press of a double click counts like the first.
        MouseGoesDown(m_LastDown);
        return true;
    case WM_LBUTTONUP:
    case WM_RBUTTONUP:
    case WM_MBUTTONUP:
        MouseComesUp(mouse());
        return true;
    default:
        return false;
    }
}

void TavrelButton::MouseMoved(const MouseAt& mouse) {
    const StillThere here(Base);
    RECT client{};
    GetClientRect(Base.hWnd(), &client);
    if (!m_Hovering && PtInRect(&client, mouse.Pixel)) ComeIn(mouse.Shift);
    if (here) Raise(MouseMove, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
}

void TavrelButton::ComeIn(int shift) {
    const StillThere here(Base);
    const bool sounds = !m_SoundOver.empty();
    SetTimer(Base.hWnd(), kOverTimer, kOverInterval, nullptr);
    m_OverTimerRuns = true;
    m_Hovering = true;
    m_LooksReleased = false;
    Raise(MouseIn, shift);
    if (!here) return;
    Base.Refresh();
    DoEvents();
    if (sounds) modSound::PlayEffect(modSound::kMouseOver);
}

// Stands in for a message that the mouse has left.
void TavrelButton::OverTimer() {
    POINT cursor;
    if (GetCursorPos(&cursor) && WindowFromPoint(cursor) == Base.hWnd()) return;
    const StillThere here(Base);
    KillTimer(Base.hWnd(), kOverTimer);
    m_OverTimerRuns = false;
    m_Hovering = false;
    // It looks released, but its release is still waited for.
    m_LooksReleased = m_Pressed;
    Raise(MouseOut, ShiftState());
    if (here) Base.Refresh();
}

void TavrelButton::MouseGoesDown(const MouseAt& mouse) {
    m_LastDown = mouse;
    m_ButtonsHeld |= mouse.Button;
    SetCapture(Base.hWnd());
    if (mouse.Button != kRightButton) {
        m_LooksReleased = false;
        SetPressed(true);
        Base.Refresh();
    }
    Raise(MouseDown, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
}

void TavrelButton::MouseComesUp(const MouseAt& mouse) {
    // A button that went down elsewhere does not click here.
    const bool ours = (m_ButtonsHeld & mouse.Button) != 0;
    m_ButtonsHeld &= ~mouse.Button;
    if (m_ButtonsHeld == 0 && GetCapture() == Base.hWnd()) ReleaseCapture();
    if (ours)
        Release(mouse);
    else
        Raise(MouseUp, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
}

void TavrelButton::Release(const MouseAt& mouse) {
    const StillThere here(Base);
    SetPressed(false);
    if (mouse.Button != kRightButton) {
        Base.Refresh();
        RECT client{};
        GetClientRect(Base.hWnd(), &client);
        if (PtInRect(&client, mouse.Pixel)) {
            Raise(Click);
            if (!here) return;
            if (!m_SoundClick.empty()) modSound::PlayEffect(modSound::kPressed);
        }
    }
    Raise(MouseUp, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
}

void TavrelButton::KeyGoesDown(int key, bool repeated) {
    if (key == VK_SPACE && !repeated) {
        m_SpaceHeld = true;
        m_Hovering = true;
        m_LooksReleased = false;
        SetPressed(true);
        Base.Refresh();
    }
    Raise(KeyDown, key, ShiftState());
}

void TavrelButton::KeyComesUp(int key) {
    const StillThere here(Base);
    // A space that went down elsewhere does not click here.
    if (key == VK_SPACE && m_SpaceHeld) {
        m_SpaceHeld = false;
        m_Hovering = false;
        SetPressed(false);
        Base.Refresh();
        MouseAt mouse;
        mouse.Button = kLeftButton;
        Release(mouse);
        if (!here) return;
    }
    Raise(KeyUp, key, ShiftState());
}

// The access key, Enter, Esc or a screen reader.
void TavrelButton::OnPress() {
    if (Base.EnabledInAll()) Raise(Click);
}

void TavrelButton::SetPressed(bool pressed) {
    if (pressed == m_Pressed) return;
    m_Pressed = pressed;
    Base.Invalidate();
    Base.Notify(EVENT_OBJECT_STATECHANGE);
}

// The focus has gone, or the user may not press any more.
void TavrelButton::LetGo() {
    m_SpaceHeld = false;
    // The space bar alone has no timer that would end the hover.
    if (!m_OverTimerRuns) m_Hovering = false;
    SetPressed(false);
}
