#include "windows/Spoken.h"

#include "controls/Accessible.h"

#include <algorithm>
#include <mutex>
#include <tuple>

namespace gui {
namespace {

using Heard = std::tuple<DWORD, HWND, LONG>;
std::mutex g_Lock;
std::vector<Heard> g_Heard;

void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child, DWORD, DWORD) {
    if (object != OBJID_CLIENT) return;
    const std::lock_guard lock(g_Lock);
    g_Heard.emplace_back(event, window, child);
}

// The object of a window, released at the end.
struct Object {
    IAccessible* Is = nullptr;
    explicit Object(HWND window) {
        AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT), IID_IAccessible,
                                   reinterpret_cast<void**>(&Is));
    }
    ~Object() {
        if (Is) Is->Release();
    }
};

VARIANT Number(int child) {
    VARIANT number{};
    number.vt = VT_I4;
    number.lVal = child;
    return number;
}

std::u16string Take(HRESULT result, BSTR text) {
    std::u16string taken;
    if (result == S_OK && text) taken.assign(Units(text), SysStringLen(text));
    SysFreeString(text);
    return taken;
}

} // namespace

Spoken Ask(HWND window, int child) {
    Spoken spoken;
    const Object object(window);
    if (!object.Is) return spoken;
    const VARIANT which = Number(child);
    BSTR text = nullptr;
    HRESULT result = object.Is->get_accName(which, &text);
    spoken.Name = Take(result, text);
    result = object.Is->get_accValue(which, &(text = nullptr));
    spoken.Value = Take(result, text);
    result = object.Is->get_accDefaultAction(which, &(text = nullptr));
    spoken.DefaultAction = Take(result, text);
    VARIANT answer{};
    if (object.Is->get_accRole(which, &answer) == S_OK) spoken.Role = answer.lVal;
    if (object.Is->get_accState(which, &answer) == S_OK) spoken.State = answer.lVal;
    object.Is->get_accChildCount(&spoken.Children);
    if (object.Is->get_accFocus(&answer) == S_OK) spoken.Focus = answer.lVal;
    if (object.Is->get_accSelection(&answer) == S_OK) spoken.Selection = answer.lVal;
    LONG left, top, width, height;
    if (object.Is->accLocation(&left, &top, &width, &height, which) == S_OK)
        spoken.Place = {left, top, left + width, top + height};
    return spoken;
}

int ChildAt(HWND window, POINT screen) {
    const Object object(window);
    VARIANT answer{};
    return object.Is && object.Is->accHitTest(screen.x, screen.y, &answer) == S_OK ? answer.lVal : -1;
}

HRESULT DoDefault(HWND window, int child) {
    const Object object(window);
    if (!object.Is) return E_FAIL;
    const HRESULT result = object.Is->accDoDefaultAction(Number(child));
    MSG message;
    while (PeekMessageW(&message, window, kDefaultAction, kDefaultAction, PM_REMOVE)) {
        if (message.message == WM_QUIT) { // passes every filter; the loops outside want it
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        DispatchMessageW(&message);
    }
    return result;
}

HRESULT Select(HWND window, LONG flags, int child) {
    const Object object(window);
    return object.Is ? object.Is->accSelect(flags, Number(child)) : E_FAIL;
}

HeardEvents::HeardEvents() {
    const std::lock_guard lock(g_Lock);
    g_Heard.clear();
    m_Hook = SetWinEventHook(EVENT_MIN, EVENT_MAX, GetModuleHandleW(nullptr), Hear, GetCurrentProcessId(), 0,
                             WINEVENT_INCONTEXT);
}

HeardEvents::~HeardEvents() {
    UnhookWinEvent(m_Hook);
}

int HeardEvents::Count(DWORD event, HWND window, LONG child) const {
    const std::lock_guard lock(g_Lock);
    return static_cast<int>(std::count(g_Heard.begin(), g_Heard.end(), Heard{event, window, child}));
}

} // namespace gui
