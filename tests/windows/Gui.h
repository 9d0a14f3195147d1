// What the window tests share: a thread that owns the windows, real mouse and key input,
// and waits that end as soon as all is well. Nothing sleeps for a fixed time.
#pragma once

#include "base/win.h"

#include <functional>
#include <thread>

namespace gui {

// Waits until all have taken what a real screen has told so far.
void SettleScreen();

// Asks until ready answers true (result true) or the limit has passed (result false).
bool WaitUntil(const std::function<bool()>& ready, DWORD limitMs = 10'000);

// A thread with a message loop. The windows of a test are made and asked on it, while the
// test itself drives them from its own thread, as a user does.
class UiThread {
public:
    UiThread();
    ~UiThread(); // ends the loop; windows still there are destroyed with their thread
    UiThread(const UiThread&) = delete;
    UiThread& operator=(const UiThread&) = delete;

    // Runs job on the thread, also while a modal loop runs there, and waits for its end.
    // What job throws is thrown here again.
    void Run(const std::function<void()>& job);
    // Runs job on the thread and does not wait.
    void Post(std::function<void()> job);
    // Waits until all that was posted to the thread and all mouse and key input that came
    // before has been handled.
    void Settle();

private:
    std::thread m_Thread;
    HWND m_Jobs = nullptr;
};

// A top-level window (WS_POPUP, visible, class of its own) or a child, for use on the
// thread that calls; procedure may be null for DefWindowProcW. Place in pixels.
HWND MakeWindow(HWND parent, RECT place, WNDPROC procedure = nullptr, const wchar_t* caption = L"");

// Brings a top-level window to the front and waits until it is there.
bool Activate(HWND top);

// Real input: goes to whatever lies at that point of the screen, or has the focus.
POINT ToScreen(HWND window, int x, int y); // from client coordinates
POINT CentreOf(HWND window);
void MoveTo(POINT screen);
void Press(DWORD mouseFlag); // MOUSEEVENTF_LEFTDOWN and so on
void Click(POINT screen);    // move, left down, left up
void Key(WORD key, bool up);
void Type(WORD key); // down and up

// Runs one case of this program, which may be a disabled one, in a process of its own and
// gives that process's exit code; -1 where it cannot be started or goes on for 30 seconds.
int RunCase(const std::string& name);

} // namespace gui
