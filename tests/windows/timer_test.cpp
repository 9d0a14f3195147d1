// Timers and the windows that they belong to.
#include "controls/Timer.h"
#include "windows/FormTest.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmClock\tform\t\t\t3000\t1500\tClock\t\t\n"
    u"f\tfrmClock\tClock\ttimer\t0\t0\t0\t0\t\t\tInterval=10; Enabled=yes\n";

struct ClockForm {
    Form Window;
    Timer Clock;
    int Ticks = 0;
    ClockForm() {
        Clock.Tick = [this] { ++Ticks; };
        Window.Bind(u"Clock", Clock).Create(kLayout);
        Window.Show();
    }
};

class Timers : public gui::FormTest<ClockForm> {
protected:
    // Long enough for several ticks.
    int TicksFromNow() {
        const int before = m_Shown->Ticks;
        const ULONGLONG end = GetTickCount64() + 80;
        MSG message;
        while (GetTickCount64() < end) {
            if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        }
        return m_Shown->Ticks - before;
    }
};

TEST_F(Timers, NoneTicksWithoutItsFormsWindow) {
    ASSERT_TRUE(Becomes([&] { return m_Shown->Ticks >= 3; }));
    m_Ui.Run([&] {
        m_Shown->Window.Unload();
        EXPECT_EQ(TicksFromNow(), 0);
        EXPECT_TRUE(m_Shown->Clock.Enabled());
        m_Shown->Clock.Interval(5); // begins nothing anew
        m_Shown->Clock.Enabled(false);
        m_Shown->Clock.Enabled(true);
        EXPECT_EQ(TicksFromNow(), 0);
    });
}

TEST_F(Timers, NoneTicksWhenTheWindowHasGoneOtherwise) {
    ASSERT_TRUE(Becomes([&] { return m_Shown->Ticks >= 3; }));
    m_Ui.Run([&] {
        DestroyWindow(m_Shown->Window.Base.hWnd()); // as with its owner
        EXPECT_EQ(TicksFromNow(), 0);
    });
}

TEST_F(Timers, ItsOwnTickMayUnloadTheForm) {
    m_Ui.Run([&] {
        m_Shown->Clock.Tick = [&] {
            ++m_Shown->Ticks;
            m_Shown->Window.Unload();
        };
        m_Shown->Ticks = 0;
    });
    EXPECT_TRUE(Becomes([&] { return m_Shown->Ticks > 0; }));
    EXPECT_EQ(On([&] { return m_Shown->Ticks + TicksFromNow(); }), 1);
}

} // namespace
