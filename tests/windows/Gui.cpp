#include "windows/Gui.h"

#include "controls/Form.h"

#include <exception>
#include <future>
#include <stdexcept>
#include <vector>

namespace gui {
namespace {

constexpr UINT kRunJob = WM_APP + 1;

// The threads whose windows the mouse may come to.
std::vector<UiThread*> g_Threads;

LRESULT CALLBACK JobProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != kRunJob) return DefWindowProcW(window, message, wParam, lParam);
    auto* job = reinterpret_cast<std::function<void()>*>(lParam);
    (*job)();
    delete job;
    return 0;
}

LRESULT CALLBACK PlainProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(window, message, wParam, lParam);
}

const wchar_t* WindowClass() {
    static const ATOM atom = [] {
        WNDCLASSW kind{};
        kind.lpfnWndProc = PlainProcedure;
        kind.hInstance = GetModuleHandleW(nullptr);
        kind.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
        kind.lpszClassName = L"ZorvakTestWindow";
        return RegisterClassW(&kind);
    }();
    return reinterpret_cast<const wchar_t*>(static_cast<ULONG_PTR>(atom));
}

bool OnScreen() {
    static const bool onScreen = GetEnvironmentVariableW(L"DISPLAY", nullptr, 0) != 0;
    return onScreen;
}

// On a real screen Wine moves the screen's own pointer too, and the desktop then tells once more
// where that was before. Answers whether the mouse is still there.
bool StaysAt(POINT wanted) {
    if (!OnScreen()) return true;
    SettleScreen();
    POINT at{};
    GetCursorPos(&at);
    return at.x == wanted.x && at.y == wanted.y;
}

} // namespace

// The screen is asked for a pixel, which it answers behind all that it has told.
void SettleScreen() {
    if (!OnScreen()) return;
    for (int i = 0; i < 2; ++i) {
        const HDC screen = GetDC(nullptr);
        GetPixel(screen, 0, 0);
        ReleaseDC(nullptr, screen);
        SendMessageTimeoutW(GetDesktopWindow(), WM_NULL, 0, 0, SMTO_NORMAL, 1'000, nullptr);
        for (UiThread* thread : g_Threads) thread->Settle();
    }
}

bool WaitUntil(const std::function<bool()>& ready, DWORD limitMs) {
    const ULONGLONG end = GetTickCount64() + limitMs;
    while (!ready()) {
        if (GetTickCount64() >= end) return false;
        Sleep(1);
    }
    return true;
}

UiThread::UiThread() {
    std::promise<HWND> made;
    auto window = made.get_future();
    m_Thread = std::thread([&made] {
        HWND jobs =
            CreateWindowExW(0, L"Static", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        SetWindowLongPtrW(jobs, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(JobProcedure));
        made.set_value(jobs);
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0) {
            if (Forms::Filter(message)) continue;
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    });
    m_Jobs = window.get();
    g_Threads.push_back(this);
}

UiThread::~UiThread() {
    std::erase(g_Threads, this);
    Post([] { PostQuitMessage(0); });
    m_Thread.join();
}

void UiThread::Post(std::function<void()> job) {
    PostMessageW(m_Jobs, kRunJob, 0, reinterpret_cast<LPARAM>(new std::function<void()>(std::move(job))));
}

void UiThread::Run(const std::function<void()>& job) {
    auto done = std::make_shared<std::promise<void>>();
    auto end = done->get_future();
    Post([job, done] {
        try {
            job();
            done->set_value();
        } catch (...) {
            done->set_exception(std::current_exception());
        }
    });
    if (end.wait_for(std::chrono::seconds(60)) != std::future_status::ready)
        throw std::runtime_error("the window thread does not answer");
    end.get();
}

// Input stays in the queue until a loop has asked for it, behind everything posted; a job
// runs between two messages, so what is not in the queue by then has been handled.
void UiThread::Settle() {
    WaitUntil([this] {
        bool taken = false;
        Run([&taken] { taken = HIWORD(GetQueueStatus(QS_INPUT)) == 0; });
        return taken;
    });
}

HWND MakeWindow(HWND parent, RECT place, WNDPROC procedure, const wchar_t* caption) {
    const DWORD style = (parent ? WS_CHILD : WS_POPUP) | WS_VISIBLE | WS_CLIPCHILDREN;
    HWND window =
        CreateWindowExW(0, WindowClass(), caption, style, place.left, place.top, place.right - place.left,
                        place.bottom - place.top, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (procedure) SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    return window;
}

bool Activate(HWND top) {
    constexpr ULONGLONG kPatience = 500; // milliseconds before it is asked for again
    ULONGLONG again = 0;
    return WaitUntil([&] {
        if (GetForegroundWindow() == top) return true;
        if (GetTickCount64() < again) return false;
        SetForegroundWindow(top);
        again = GetTickCount64() + kPatience;
        return false;
    });
}

POINT ToScreen(HWND window, int x, int y) {
    POINT point{x, y};
    ClientToScreen(window, &point);
    return point;
}

POINT CentreOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

// Wine merges a move into one before it that is still queued, even into one that a loop is
// just taking: then the new place is lost, and no window hears of it. So what came before
// has to be handled first.
void MoveTo(POINT screen) {
    for (UiThread* thread : g_Threads) thread->Settle();
    SettleScreen();
    // Half a pixel more, since the system cuts when it scales the value back.
    const long long width = GetSystemMetrics(SM_CXVIRTUALSCREEN);
    const long long height = GetSystemMetrics(SM_CYVIRTUALSCREEN);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = static_cast<LONG>((screen.x * 65536LL + 32768) / width);
    input.mi.dy = static_cast<LONG>((screen.y * 65536LL + 32768) / height);
    input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_VIRTUALDESK;
    int tries = 0;
    do SendInput(1, &input, sizeof input);
    while (!StaysAt(screen) && ++tries < 5);
}

void Press(DWORD mouseFlag) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = mouseFlag;
    SendInput(1, &input, sizeof input);
}

void Click(POINT screen) {
    MoveTo(screen);
    Press(MOUSEEVENTF_LEFTDOWN);
    Press(MOUSEEVENTF_LEFTUP);
}

void Key(WORD key, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
    SendInput(1, &input, sizeof input);
}

void Type(WORD key) {
    Key(key, false);
    Key(key, true);
}

int RunCase(const std::string& name) {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::wstring line = L"\"" + std::wstring(program) +
                        L"\" --gtest_also_run_disabled_tests --gtest_filter=" +
                        std::wstring(name.begin(), name.end());
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                        &process))
        return -1;
    DWORD code = static_cast<DWORD>(-1);
    if (WaitForSingleObject(process.hProcess, 30'000) == WAIT_OBJECT_0)
        GetExitCodeProcess(process.hProcess, &code);
    else
        TerminateProcess(process.hProcess, 98);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(code);
}

} // namespace gui
