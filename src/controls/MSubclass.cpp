// Tested by tests/windows/msubclass_test.cpp.

#include "controls/MSubclass.h"

#include "base/RuntimeFailure.h"
#include "controls/EventFrame.h"

#include <cstdio>
#include <cwchar>
#include <vector>

namespace MSubclass {
namespace {

// The message in hand and the procedure behind it, for CallOldWindowProc.
UINT g_Message = 0;
WNDPROC g_Previous = nullptr;

// The name of a property.
class Key {
public:
    static Key Previous(HWND window) { return Key(L"%lld", Digits(window)); }
    static Key Attachments(HWND window) { return Key(L"C%lld", Digits(window)); }
    static Key Clients(HWND window, UINT message) { return Key(L"%lld#%uC", Digits(window), message); }
    static Key Client(HWND window, UINT message, int n) {
        return Key(L"%lld#%u#%d", Digits(window), message, n);
    }
    operator const wchar_t*() const { return m_Text; }

private:
    template <class... Parts>
    explicit Key(const wchar_t* format, Parts... parts) {
        std::swprintf(m_Text, sizeof m_Text / sizeof *m_Text, format, parts...);
    }
    static long long Digits(HWND window) { return reinterpret_cast<LONG_PTR>(window); }

    wchar_t m_Text[64];
};

int Number(HWND window, const Key& key) {
    return static_cast<int>(reinterpret_cast<LONG_PTR>(GetPropW(window, key)));
}

// A number of 0 is kept by no property at all. False where there is no room for the name:
// the system has one table for the names of all programs.
bool SetNumber(HWND window, const Key& key, int value) {
    if (value != 0) return SetPropW(window, key, reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(value)));
    RemovePropW(window, key);
    return true;
}

WNDPROC PreviousProcedure(HWND window) {
    return reinterpret_cast<WNDPROC>(GetPropW(window, Key::Previous(window)));
}

ISubclass* Client(HWND window, UINT message, int n) {
    return static_cast<ISubclass*>(GetPropW(window, Key::Client(window, message, n)));
}

// The client's number (1-based), or 0.
int FindClient(HWND window, UINT message, const ISubclass* client) {
    const int count = Number(window, Key::Clients(window, message));
    for (int n = 1; n <= count; ++n)
        if (Client(window, message, n) == client) return n;
    return 0;
}

// Enters the client behind the others of the message; on false nothing is entered.
bool AddClient(HWND window, UINT message, ISubclass& client) {
    const int clients = Number(window, Key::Clients(window, message));
    if (SetPropW(window, Key::Client(window, message, clients + 1), &client) &&
        SetNumber(window, Key::Clients(window, message), clients + 1) &&
        SetNumber(window, Key::Attachments(window), Number(window, Key::Attachments(window)) + 1))
        return true;
    SetNumber(window, Key::Clients(window, message), clients);
    RemovePropW(window, Key::Client(window, message, clients + 1));
    return false;
}

[[noreturn]] void Fail(int number, std::u16string_view description) {
    throw RuntimeFailure(number, u"Zorvak Converter.WindowProc", description);
}

LRESULT CALLBACK SharedProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Gives the window its previous procedure back. Where another subclasser stands in front
// of ours, that would cut it off: then ours stays in the chain and passes everything on.
void ReleaseWindow(HWND window) {
    const WNDPROC previous = PreviousProcedure(window);
    if (!previous || GetWindowLongPtrW(window, GWLP_WNDPROC) != reinterpret_cast<LONG_PTR>(SharedProcedure))
        return;
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
    RemovePropW(window, Key::Previous(window));
}

BOOL CALLBACK RemoveOurs(HWND window, LPWSTR name, HANDLE, ULONG_PTR) {
    if (IS_INTRESOURCE(name)) return TRUE;
    const Key own = Key::Previous(window);
    const std::size_t length = std::wcslen(own);
    const bool ours =
        std::wcscmp(name, Key::Attachments(window)) == 0 ||
        (std::wcsncmp(name, own, length) == 0 && (name[length] == L'\0' || name[length] == L'#'));
    if (ours) RemovePropW(window, name);
    return TRUE;
}

// One message on its way through the clients; keeps the module's variables right when
// dispatches nest and when a client fails.
class Dispatch {
public:
    Dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam, WNDPROC previous)
        : m_Window(window), m_Message(message), m_WParam(wParam), m_LParam(lParam), m_Previous(previous),
          m_OuterMessage(g_Message), m_OuterPrevious(g_Previous) {
        g_Message = message;
        g_Previous = previous;
    }
    ~Dispatch() {
        g_Message = m_OuterMessage;
        g_Previous = m_OuterPrevious;
    }
    Dispatch(const Dispatch&) = delete;
    Dispatch& operator=(const Dispatch&) = delete;

    LRESULT Run() noexcept {
        int response = ISubclass::kClientFirst;
        // Where a client fails, the window still gets its message.
        EventFrame::Run([&] { response = CallClients(); });
        if (response == ISubclass::kClientFirst && !m_PreviousRan && IsWindow(m_Window)) CallPrevious();
        return m_Result;
    }

private:
    // The response of the last client. A client may attach, detach, end itself, or destroy
    // the window: so the list is copied, and a client must still stand in the window's own
    // before it is touched.
    int CallClients() {
        std::vector<ISubclass*> clients;
        const int count = Number(m_Window, Key::Clients(m_Window, m_Message));
        for (int n = 1; n <= count; ++n) clients.push_back(Client(m_Window, m_Message, n));

        int response = ISubclass::kClientFirst;
        for (ISubclass* client : clients) {
            if (!IsAttached(client)) continue;
            response = client->MsgResponse();
            if (client == clients.front() && response == ISubclass::kPreviousFirst) {
                CallPrevious();
                if (!IsAttached(client)) continue;
            }
            m_Result = client->WindowProc(m_Window, m_Message, m_WParam, m_LParam);
            if (IsAttached(client)) response = client->MsgResponse();
        }
        return response;
    }
    bool IsAttached(ISubclass* client) const { return FindClient(m_Window, m_Message, client) != 0; }
    void CallPrevious() {
        m_PreviousRan = true;
        m_Result = CallWindowProcW(m_Previous, m_Window, m_Message, m_WParam, m_LParam);
    }

    HWND m_Window;
    UINT m_Message;
    WPARAM m_WParam;
    LPARAM m_LParam;
    WNDPROC m_Previous;
    UINT m_OuterMessage;
    WNDPROC m_OuterPrevious;
    LRESULT m_Result = 0;
    bool m_PreviousRan = false;
};

LRESULT CALLBACK SharedProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    WNDPROC previous = PreviousProcedure(window);
    if (!previous) previous = DefWindowProcW;
    const bool handled = !EventFrame::Ending() && Number(window, Key::Clients(window, message)) != 0;
    const LRESULT result = handled ? Dispatch(window, message, wParam, lParam, previous).Run()
                                   : CallWindowProcW(previous, window, message, wParam, lParam);
    if (message == WM_NCDESTROY) {
        ReleaseWindow(window);
        EnumPropsExW(window, RemoveOurs, 0);
    }
    return result;
}

} // namespace

void AttachMessage(ISubclass& client, HWND hWnd, UINT iMsg) {
    if (!IsWindow(hWnd)) Fail(kInvalidWindow, u"Invalid window");
    DWORD process = 0;
    GetWindowThreadProcessId(hWnd, &process);
    if (process != GetCurrentProcessId()) Fail(kExternalWindow, u"Can't modify external window");
    // Asked before anything is counted, so that a refusal leaves no attachment behind.
    if (FindClient(hWnd, iMsg, &client) != 0)
        Fail(kAlreadyHandled, u"Message already handled by another class");

    if (!PreviousProcedure(hWnd)) {
        const LONG_PTR previous =
            SetWindowLongPtrW(hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(SharedProcedure));
        if (previous == 0) Fail(kCannotSubclass, u"Can't subclass window");
        if (!SetPropW(hWnd, Key::Previous(hWnd), reinterpret_cast<HANDLE>(previous))) {
            SetWindowLongPtrW(hWnd, GWLP_WNDPROC, previous);
            Fail(kCannotSubclass, u"Can't subclass window");
        }
    }
    if (AddClient(hWnd, iMsg, client)) return;
    if (Number(hWnd, Key::Attachments(hWnd)) == 0) ReleaseWindow(hWnd);
    Fail(kCannotSubclass, u"Can't subclass window");
}

void DetachMessage(ISubclass& client, HWND hWnd, UINT iMsg) {
    const int found = FindClient(hWnd, iMsg, &client);
    if (found == 0) return;
    const int count = Number(hWnd, Key::Clients(hWnd, iMsg));
    for (int n = found; n < count; ++n) SetPropW(hWnd, Key::Client(hWnd, iMsg, n), Client(hWnd, iMsg, n + 1));
    RemovePropW(hWnd, Key::Client(hWnd, iMsg, count));
    SetNumber(hWnd, Key::Clients(hWnd, iMsg), count - 1);

    const int attachments = Number(hWnd, Key::Attachments(hWnd)) - 1;
    SetNumber(hWnd, Key::Attachments(hWnd), attachments);
    if (attachments == 0) ReleaseWindow(hWnd);
}

LRESULT CallOldWindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) {
    return g_Previous ? CallWindowProcW(g_Previous, hWnd, iMsg, wParam, lParam) : 0;
}

UINT CurrentMessage() {
    return g_Message;
}

} // namespace MSubclass
