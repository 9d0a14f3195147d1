#include "controls/Timer.h"

#include "controls/EventFrame.h"
#include "controls/Events.h"

#include <unordered_map>

namespace {
// A tick may be under way when its timer has gone.
std::unordered_map<UINT_PTR, Timer*>& Running() {
    static std::unordered_map<UINT_PTR, Timer*> running;
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

void Timer::Restart() {
    Stop();
    if (!m_Enabled || m_Interval <= 0) return;
    m_Id = SetTimer(nullptr, 0, static_cast<UINT>(m_Interval), OnTick);
    Running()[m_Id] = this;
}

void Timer::Stop() {
    if (!m_Id) return;
    KillTimer(nullptr, m_Id);
    Running().erase(m_Id);
    m_Id = 0;
}

void CALLBACK Timer::OnTick(HWND, UINT, UINT_PTR id, DWORD) {
    if (EventFrame::Ending()) return;
    EventFrame::Run([id] {
        const auto found = Running().find(id);
        if (found != Running().end()) Raise(found->second->Tick);
    });
}
