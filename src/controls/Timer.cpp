// A timer of the form's window, found again by its address, since the system knows numbers only.
//
// Tested by tests/windows/timer_test.cpp.
#include "controls/Timer.h"

#include "controls/EventFrame.h"
#include "controls/Events.h"
#include "controls/Form.h"

#include <unordered_set>

namespace {
// A tick may be under way when its timer has gone.
std::unordered_set<const Timer*>& Running() {
    static std::unordered_set<const Timer*> running;
    return running;
}
} // namespace

const ControlKind Timer::kKind{
    .TypeName = u"Timer",
    .LayoutKinds = u"timer",
    .HasWindow = false,
    .Property = Entry<&Timer::OnProperty>::Call,
};

void Timer::Interval(int milliseconds) {
    m_Interval = milliseconds;
    Restart();
}

void Timer::Enabled(bool enabled) {
    if (enabled == m_Enabled) return;
    m_Enabled = enabled;
    Restart();
}

bool Timer::OnProperty(std::u16string_view name, std::u16string_view value) {
    if (name == u"Interval")
        Interval(ParseNumber(value));
    else if (name == u"Enabled")
        Enabled(ParseYesNo(value));
    else
        return false;
    return true;
}

// The system ends it with the form's window.
void Timer::Restart() {
    Stop();
    const Form* form = Base.Parent();
    if (!m_Enabled || m_Interval <= 0 || !form || !form->Base.hWnd()) return;
    m_Window = form->Base.hWnd();
    SetTimer(m_Window, reinterpret_cast<UINT_PTR>(this), static_cast<UINT>(m_Interval), OnTick);
    Running().insert(this);
}

void Timer::Stop() {
    if (!Running().erase(this)) return;
    KillTimer(m_Window, reinterpret_cast<UINT_PTR>(this));
}

void CALLBACK Timer::OnTick(HWND, UINT, UINT_PTR id, DWORD) {
    if (EventFrame::Ending()) return;
    EventFrame::Run([id] {
        const auto* timer = reinterpret_cast<const Timer*>(id);
        if (Running().contains(timer)) Raise(timer->Tick);
    });
}
