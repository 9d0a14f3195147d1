// Calls into the window procedures of the system's controls. What such a procedure raises may
// destroy the control, while the procedure goes on and reads what belongs to its window. So the
// window outlives the control until the procedure has returned, out of everybody's sight.
#pragma once

#include "base/win.h"

class Control;

class SystemCall {
public:
    // Lives as long as the procedure runs, or that of a window inside the control: the text of a
    // combo and its list act on the combo without a message.
    explicit SystemCall(const Control& control);
    ~SystemCall();
    SystemCall(const SystemCall&) = delete;
    SystemCall& operator=(const SystemCall&) = delete;

    // True where the procedure of the window is at work; then the window has been taken from its
    // control, which hears WM_NCDESTROY, and goes by itself.
    static bool Outlives(HWND window);
    // The same for all windows inside one that is about to be destroyed.
    static void OutliveInside(HWND window);
    // Answers for a window that is no control's: by its own procedure where it has outlived one.
    static LRESULT Answer(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    // The window has outlived its control.
    static bool HasOutlived(HWND window);

private:
    HWND m_Window;
    WNDPROC m_Procedure;
    SystemCall* m_Outer;
};
