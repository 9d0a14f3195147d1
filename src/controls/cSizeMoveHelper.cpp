// Tested by tests/windows/csizemovehelper_test.cpp.

#include "controls/cSizeMoveHelper.h"

#include "controls/Events.h"
#include "controls/MSubclass.h"

#include <cstdlib>

namespace {

constexpr UINT kMessages[] = {WM_ENTERSIZEMOVE, WM_EXITSIZEMOVE, WM_DESTROY, WM_MOVING,
                              WM_SIZING,        WM_ACTIVATE,     WM_SIZE};

// The helper that has switched full-window drag off; the setting is the whole session's.
const cSizeMoveHelper* g_SwitchedOffBy = nullptr;

void SetFullDrag(bool on) {
    SystemParametersInfoW(SPI_SETDRAGFULLWINDOWS, on, nullptr, SPIF_SENDCHANGE);
}

void SwitchFullDragOff(const cSizeMoveHelper* helper) {
    BOOL on = FALSE;
    SystemParametersInfoW(SPI_GETDRAGFULLWINDOWS, 0, &on, 0);
    if (!on) return;
    [[maybe_unused]] static const int registered = std::atexit(cSizeMoveHelper::RestoreDragSetting);
    g_SwitchedOffBy = helper;
    SetFullDrag(false);
}

void SwitchFullDragBack(const cSizeMoveHelper* helper) {
    if (g_SwitchedOffBy != helper) return;
    g_SwitchedOffBy = nullptr;
    SetFullDrag(true);
}

} // namespace

void cSizeMoveHelper::RestoreDragSetting() noexcept {
    if (g_SwitchedOffBy) SwitchFullDragBack(g_SwitchedOffBy);
}

cSizeMoveHelper::~cSizeMoveHelper() {
    Detach();
}

void cSizeMoveHelper::Attach(HWND hWnd) {
    Detach();
    for (UINT message : kMessages) {
        MSubclass::AttachMessage(*this, hWnd, message);
        m_Window = hWnd;
    }
    m_Active = GetActiveWindow() == hWnd;
    ApplyDragSetting();
}

void cSizeMoveHelper::Detach() {
    SwitchFullDragBack(this);
    for (UINT message : kMessages) MSubclass::DetachMessage(*this, m_Window, message);
    m_Window = nullptr;
    m_Active = *m_InSizeMove = false;
}

void cSizeMoveHelper::NoFullDrag(bool on) {
    m_NoFullDrag = on;
    ApplyDragSetting();
}

void cSizeMoveHelper::ApplyDragSetting() {
    if (m_NoFullDrag && m_Active)
        SwitchFullDragOff(this);
    else
        SwitchFullDragBack(this);
}

// The window sees all of them too. In a drag it comes first, so that what the event's
// handler sets is the last word, and the answer "handled" goes back.
int cSizeMoveHelper::MsgResponse() {
    const UINT message = MSubclass::CurrentMessage();
    return message == WM_MOVING || message == WM_SIZING ? kPreviousFirst : kClientFirst;
}

LRESULT cSizeMoveHelper::WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) {
    switch (iMsg) {
    case WM_ENTERSIZEMOVE:
        *m_InSizeMove = true;
        Raise(EnterSizeMove);
        break;
    case WM_EXITSIZEMOVE: {
        const auto note = m_InSizeMove;
        Raise(ExitSizeMove);
        *note = false;
        break;
    }
    case WM_DESTROY:
        Detach();
        break;
    case WM_ACTIVATE:
        m_Active = LOWORD(wParam) != WA_INACTIVE;
        ApplyDragSetting();
        if (m_Active)
            Raise(Activate, LOWORD(wParam) == WA_CLICKACTIVE);
        else
            Raise(Deactivate);
        break;
    case WM_SIZE: {
        if (*m_InSizeMove) break;
        RECT place{};
        GetWindowRect(hWnd, &place);
        Steer(place, Sizing);
        break;
    }
    case WM_SIZING:
        Steer(*reinterpret_cast<RECT*>(lParam), Sizing);
        return TRUE;
    case WM_MOVING:
        Steer(*reinterpret_cast<RECT*>(lParam), Moving);
        return TRUE;
    }
    return 0;
}

void cSizeMoveHelper::Steer(RECT& place, const std::function<void(LONG&, LONG&, LONG&, LONG&)>& event) {
    LONG left = place.left, top = place.top;
    LONG width = place.right - place.left, height = place.bottom - place.top;
    Raise(event, left, top, width, height);
    place = {left, top, left + width, top + height};
}
