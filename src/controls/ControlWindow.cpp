// The windows of the controls: one window procedure for all, the kit's own and the
// system's.
//
// Tested by tests/windows/form_test.cpp, failures_test.cpp and destroyed_test.cpp.
#include "base/RuntimeFailure.h"
#include "controls/Control.h"
#include "controls/EventFrame.h"
#include "controls/Form.h"
#include "controls/Painting.h"
#include "controls/SystemCall.h"

#include <unordered_map>

namespace {

// Only the thread of the windows asks.
std::unordered_map<HWND, Control*>& Known() {
    static std::unordered_map<HWND, Control*> known;
    return known;
}

// The control that a parent's message is about.
Control* Sender(UINT message, WPARAM, LPARAM lParam) {
    switch (message) {
    case WM_COMMAND:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORLISTBOX:
    case WM_CTLCOLORBTN:
    case WM_HSCROLL:
    case WM_VSCROLL:
        return Control::FromWindow(reinterpret_cast<HWND>(lParam));
    case WM_NOTIFY:
        return Control::FromWindow(reinterpret_cast<const NMHDR*>(lParam)->hwndFrom);
    case WM_DRAWITEM:
        return Control::FromWindow(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem);
    default:
        return nullptr;
    }
}

} // namespace

Control* Control::FromWindow(HWND window) {
    const auto found = Known().find(window);
    return found == Known().end() ? nullptr : found->second;
}

Control* Control::Around(HWND window) {
    for (; window; window = GetAncestor(window, GA_PARENT)) {
        if (Control* control = FromWindow(window)) return control;
    }
    return nullptr;
}

// The window class of the kit's own controls and of the forms.
const wchar_t* Control::OwnClass() {
    static const ATOM atom = [] {
        WNDCLASSW kind{};
        kind.style = CS_DBLCLKS;
        kind.lpfnWndProc = WindowProcedure;
        kind.hInstance = GetModuleHandleW(nullptr);
        kind.hIcon = LoadIconW(kind.hInstance, MAKEINTRESOURCEW(1));
        kind.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
        kind.lpszClassName = L"ZorvakControl";
        return RegisterClassW(&kind);
    }();
    return reinterpret_cast<const wchar_t*>(static_cast<ULONG_PTR>(atom));
}

void Control::MakeWindow() {
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | m_Kind->Style |
                        (m_Kind->Container ? static_cast<DWORD>(WS_CLIPCHILDREN) : 0);
    const wchar_t* windowClass = m_Kind->WindowClass ? m_Kind->WindowClass : OwnClass();
    // A class of the system may read what it gets in its own way.
    void* const given = m_Kind->WindowClass ? nullptr : this;
    const HWND window = CreateWindowExW(m_Kind->ExStyle, windowClass, Wide(m_Caption), style, 0, 0, 0, 0,
                                        m_Container->m_hWnd, nullptr, GetModuleHandleW(nullptr), given);
    if (!window)
        throw RuntimeFailure(static_cast<int>(GetLastError()), FullName(), u"The window cannot be made");
    if (!m_hWnd) Attach(window);
    FontChanged();
    PlaceWindow();
}

void Control::Attach(HWND window) {
    m_hWnd = window;
    Known()[window] = this;
    if (m_Kind->WindowClass)
        m_SystemProcedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WindowProcedure)));
}

void Control::Detach() {
    Known().erase(m_hWnd);
    m_hWnd = nullptr;
}

void Control::DestroyWindowNow() {
    m_Tip.reset();
    if (m_hWnd && !SystemCall::Outlives(m_hWnd)) DestroyWindow(m_hWnd);
    // Had it been another thread's window, it would still be there.
    if (m_hWnd) Detach();
}

LRESULT Control::DefaultProcedure(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!m_SystemProcedure) return DefWindowProcW(m_hWnd, message, wParam, lParam);
    const SystemCall call(*this);
    return CallWindowProcW(m_SystemProcedure, m_hWnd, message, wParam, lParam);
}

LRESULT CALLBACK Control::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Control* control = FromWindow(window);
    if (!control && message == WM_NCCREATE) {
        control = static_cast<Control*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        if (control) EventFrame::Run([&] { control->Attach(window); });
    }
    if (!control) return SystemCall::Answer(window, message, wParam, lParam);
    if (message == WM_DESTROY) SystemCall::OutliveInside(window);
    if (message == WM_NCDESTROY) {
        // The control lives on without its window: it was its form's.
        const WNDPROC system = control->m_SystemProcedure;
        EventFrame::Run([&] {
            if (!EventFrame::Ending()) control->Dispatch(message, wParam, lParam);
        });
        control = FromWindow(window);
        if (control) control->Detach();
        if (SystemCall::HasOutlived(window)) return 0;
        return system ? CallWindowProcW(system, window, message, wParam, lParam)
                      : DefWindowProcW(window, message, wParam, lParam);
    }
    // Of a control that is going, the system's part still needs its last messages.
    if (EventFrame::Ending() || !control->m_Life) return control->DefaultProcedure(message, wParam, lParam);
    return EventFrame::Run<LRESULT>(0, [&] { return control->Dispatch(message, wParam, lParam); });
}

LRESULT Control::Dispatch(UINT message, WPARAM wParam, LPARAM lParam) {
    StillThere here(*this);
    // A press gives the focus first, as the system's own controls have it.
    if (message == WM_LBUTTONDOWN && m_Kind->Focusable && !m_Kind->WindowClass && !HasFocus()) {
        SetFocus();
        if (!here || !m_hWnd) return 0;
    }
    LRESULT result = 0;
    if (message == kDefaultAction || message == kSelectChild) {
        ActForReader(message, static_cast<int>(wParam));
        return 0;
    }
    if (m_Kind->Message && m_Kind->Message(m_Owner, message, wParam, lParam, result)) return result;
    if (!here || !m_hWnd || message == WM_NCDESTROY) return 0;
    if (Reflect(message, wParam, lParam, result)) return result;
    if (!here || !m_hWnd) return 0;
    return Answer(message, wParam, lParam);
}

// Meanwhile the control may have got out of reach.
void Control::ActForReader(UINT message, int child) {
    if (!Usable()) return;
    const AccessibleTable* table = m_Kind->Accessible;
    const int rows = table && table->ChildCount ? table->ChildCount(m_Owner) : 0;
    if (child < 0 || child > rows) return;
    if (message == kSelectChild) {
        if (child > 0 && table->SelectChild) table->SelectChild(m_Owner, child);
        return;
    }
    if (table && table->DoDefault)
        table->DoDefault(m_Owner, child);
    else if (child == 0 && m_Kind->Press)
        m_Kind->Press(m_Owner);
}

bool Control::Reflect(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    const Control* sender = Sender(message, wParam, lParam);
    if (!sender || sender == this || !sender->m_Kind->Message) return false;
    return sender->m_Kind->Message(sender->m_Owner, message + kReflected, wParam, lParam, result);
}

// The kit's share, and the system's.
LRESULT Control::Answer(UINT message, WPARAM wParam, LPARAM lParam) {
    const bool own = !m_Kind->WindowClass;
    const auto paint = [this](HDC dc, const RECT& client) {
        const StillThere here(*this); // the form's handler paints its share of the ground
        if (m_Kind->Transparent) PaintBehind(dc);
        if (here && m_hWnd && m_Kind->Paint) m_Kind->Paint(m_Owner, dc, client);
    };
    switch (message) {
    case WM_ERASEBKGND:
        if (own) return 1;
        break;
    case WM_PAINT:
        if (!own) break;
        PaintBuffered(m_hWnd, paint);
        return 0;
    case WM_PRINTCLIENT: {
        if (!own) break;
        RECT client;
        GetClientRect(m_hWnd, &client);
        paint(reinterpret_cast<HDC>(wParam), client);
        return 0;
    }
    case WM_GETOBJECT: {
        const LRESULT answer = AnswerGetObject(*this, m_Accessible, wParam, lParam);
        if (answer) return answer;
        break;
    }
    case WM_SETFOCUS:
    case WM_KILLFOCUS: {
        StillThere here(*this);
        const LRESULT result = DefaultProcedure(message, wParam, lParam);
        if (!here || !m_hWnd) return result;
        // The system itself tells screen readers where the focus goes.
        if (message == WM_SETFOCUS && m_Form) m_Form->NoteFocus(*this);
        if (m_Kind->Focusable) Tell(Change::Focus); // a form looks the same
        return result;
    }
    default:
        break;
    }
    return DefaultProcedure(message, wParam, lParam);
}
