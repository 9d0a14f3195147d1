// Tested by tests/windows/destroyed_within_test.cpp.
#include "controls/SystemCall.h"

#include "controls/Control.h"

#include <unordered_map>

namespace {

constexpr UINT kEnd = WM_APP + 0x180;

// Only the thread of the windows asks.
SystemCall* g_Innermost = nullptr;

// The windows that have lost their control, with their procedures.
std::unordered_map<HWND, WNDPROC>& Outlived() {
    static std::unordered_map<HWND, WNDPROC> outlived;
    return outlived;
}

bool IsInput(UINT message) {
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) ||
           (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST);
}

} // namespace

SystemCall::SystemCall(const Control& control)
    : m_Window(control.m_hWnd), m_Procedure(control.m_SystemProcedure), m_Outer(g_Innermost) {
    g_Innermost = this;
}

// A window inside this one, such as the text of a combo, may have raised the event and be at
// work still: the end comes out of the queue.
SystemCall::~SystemCall() {
    g_Innermost = m_Outer;
    if (!HasOutlived(m_Window)) return;
    for (const SystemCall* outer = m_Outer; outer; outer = outer->m_Outer) {
        if (outer->m_Window == m_Window) return;
    }
    if (!PostMessageW(m_Window, kEnd, 0, 0)) DestroyWindow(m_Window);
}

bool SystemCall::Outlives(HWND window) {
    for (const SystemCall* call = g_Innermost; call; call = call->m_Outer) {
        if (call->m_Window != window) continue;
        Outlived()[window] = call->m_Procedure;
        // Whoever watches the window hears that it goes, and lets go of it.
        SendMessageW(window, WM_NCDESTROY, 0, 0);
        ShowWindow(window, SW_HIDE);
        SetParent(window, HWND_MESSAGE);
        return true;
    }
    return false;
}

void SystemCall::OutliveInside(HWND window) {
    for (const SystemCall* call = g_Innermost; call; call = call->m_Outer) {
        if (IsChild(window, call->m_Window)) Outlives(call->m_Window);
    }
}

bool SystemCall::HasOutlived(HWND window) {
    return Outlived().count(window) != 0;
}

LRESULT SystemCall::Answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto found = Outlived().find(window);
    if (found == Outlived().end()) return DefWindowProcW(window, message, wParam, lParam);
    if (message == kEnd) return DestroyWindow(window);
    if (IsInput(message)) return 0; // it was still in the queue
    const WNDPROC procedure = found->second;
    if (message == WM_NCDESTROY) Outlived().erase(found);
    return CallWindowProcW(procedure, window, message, wParam, lParam);
}
