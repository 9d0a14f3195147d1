// Controls that come and go by the thousand on a form that stands: made from a row of a
// layout, painted, hovered, pressed and asked by messages, gone.
#pragma once

#include "base/DoEvents.h"
#include "controls/EventFrame.h"
#include "controls/Form.h"
#include "windows/Gui.h"
#include "windows/Handles.h"
#include "windows/Spoken.h"

#include <gtest/gtest.h>

#include <mmsystem.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

namespace gui {

// What comes and goes.
struct Soaked {
    const char* Name;
    int Lives;
    void (*Live)(Form& form, int& told); // counts told once, by an event or a paint
    int Sounds = 0, Asked = 1;           // what one life asks of the system, see BytesLost
};
inline std::ostream& operator<<(std::ostream& out, const Soaked& kind) {
    return out << kind.Name;
}
inline std::string NameOf(const testing::TestParamInfo<Soaked>& info) {
    return info.param.Name;
}

// A row of the standing form: its kind and what stands behind, for the control "It".
#define SOAK_ROW(kind, rest) (u"form\nf\tfrmSoak\tIt\t" kind u"\t150\t150\t1800\t1200\tIt\t1\t" rest u"\n")

// The standing form. The mouse rests where each control will stand: so it hovers indeed.
class OnStandingForm : public testing::Test {
protected:
    void SetUp() override {
        m_Form.Create(u"form\nf\t\tfrmSoak\tform\t\t\t6000\t4500\tSoak\t\t\n");
        m_Form.Show();
        POINT at{40, 40};
        ClientToScreen(m_Form.Base.hWnd(), &at);
        MoveTo(at);
        DoEvents();
    }
    void TearDown() override { MoveTo({5, 5}); }

    Form m_Form;
};

// What the system itself loses for each call: Wine does, when it is asked for sound devices
// where there are none (24 bytes), which goes before each sound, and when an object of
// whatever program is handed out as an IAccessible (2056).
inline double BytesLost(const std::function<void()>& call) {
    constexpr int kTimes = 100;
    return static_cast<double>(LeftBy(kTimes, call).Bytes) / kTimes;
}

// Nothing stays of these lives. A block that each life left would come to more than is
// allowed for tables that grow.
inline void ExpectNothing(const Held& left, const Form& asked, int soundsEach, int askedEach) {
    const double lost = soundsEach * BytesLost([] { waveOutGetNumDevs(); }) +
                        askedEach * BytesLost([&] { Ask(asked.Base.hWnd()); });
    EXPECT_EQ(left.Objects, 0) << left;
    EXPECT_EQ(left.Windows, 0) << left;
    EXPECT_NEAR(static_cast<double>(left.Bytes), left.Lives * lost, 8.0 * left.Lives) << left;
    EXPECT_EQ(Timers(), 0);
    EXPECT_FALSE(EventFrame::Ending());
}

// ZC_SOAK=10000 gives every kind that many lives.
inline int LivesOf(const Soaked& kind) {
    const char* wanted = std::getenv("ZC_SOAK");
    return wanted ? std::atoi(wanted) : kind.Lives;
}

class Soak : public OnStandingForm, public testing::WithParamInterface<Soaked> {
protected:
    void LiveAll() {
        const Soaked& kind = GetParam();
        const int wanted = LivesOf(kind);
        int lives = 0, told = 0;
        const Held left = LeftBy(wanted, [&] {
            ++lives;
            kind.Live(m_Form, told);
        });
        if (left.Lives < wanted)
            std::cout << "stopped after " << left.Lives << " lives, a minute" << std::endl;
        EXPECT_EQ(told, lives);
        ExpectNothing(left, m_Form, kind.Sounds, kind.Asked);
    }
};

inline void Touch(const Control& control) {
    const HWND window = control.hWnd();
    const LPARAM at = MAKELPARAM(8, 8);
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_FRAME);
    SendMessageW(window, WM_MOUSEMOVE, 0, at);
    SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(window, WM_LBUTTONUP, 0, at);
    EXPECT_EQ(Ask(window).Name, u"It");
    SendMessageW(window, WM_MOUSELEAVE, 0, 0);
}

// One life. use gets the control before it is touched, to fill it and to set its events.
template <class Class, class Use>
void LiveOnce(Form& form, std::u16string_view row, Use use) {
    Class control;
    form.Bind(u"It", control).Create(row);
    use(control);
    Touch(control.Base);
    DoEvents();
}

} // namespace gui
