// A timer of a form.
#pragma once

#include "controls/Control.h"

#include <functional>

class Timer {
public:
    Timer() : Base(this, kKind) {}
    ~Timer() { Stop(); }
    Control Base;
    static const ControlKind kKind;

    // Milliseconds; 0 stands still. Changing it begins anew. It ticks while its form has a window.
    int Interval() const { return m_Interval; }
    void Interval(int milliseconds);
    bool Enabled() const { return m_Enabled; }
    void Enabled(bool enabled);

    std::function<void()> Tick;

private:
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    void Restart();
    void Stop();
    static void CALLBACK OnTick(HWND, UINT, UINT_PTR id, DWORD);

    int m_Interval = 0;
    bool m_Enabled = false;
    HWND m_Window = nullptr; // that it runs with
};
