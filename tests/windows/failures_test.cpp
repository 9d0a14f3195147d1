// A handler that throws: the first failure is kept, the loops end, and no other handler runs.
// Each event by itself: failures_events_test.cpp.
#include "controls/Label.h"
#include "controls/TextBox.h"
#include "controls/Timer.h"
#include "windows/Boxes.h"
#include "windows/FormTest.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmFailing\tform\t\t\t4500\t3000\tFailing\t\t\n"
    u"f\tfrmFailing\tText\ttext\t150\t150\t1500\t360\t\t1\tAccessibleName=Text\n"
    u"f\tfrmFailing\tTitle\tlabel\t150\t1050\t1500\t360\tTitle\t\t\n"
    u"f\tfrmFailing\tClock\ttimer\t0\t0\t0\t0\t\t\tInterval=10; Enabled=no\n";

struct FailingForm {
    Form Window;
    TextBox Text;
    Label Title;
    Timer Clock;
    FailingForm() {
        Window.Bind(u"Text", Text).Bind(u"Title", Title).Bind(u"Clock", Clock).Create(kLayout);
        Window.Show();
    }
};

class Failing : public gui::FormTest<FailingForm> {
protected:
    // On the window's thread: cause brings the event about, which throws its number.
    void Keeps(int number, const std::function<void()>& cause) {
        m_Ui.Run([&] {
            cause();
            ASSERT_TRUE(EventFrame::Ending()) << number;
            try {
                EventFrame::Rethrow();
            } catch (const RuntimeFailure& failure) {
                EXPECT_EQ(failure.Number(), number);
            }
            MSG message;
            EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) << number;
            EventFrame::Forget();
        });
    }
    static std::function<void()> Throw(int number) {
        return [number] { throw RuntimeFailure(number, u"test"); };
    }
    static std::function<void(int, int, int, int)> ThrowAt(int number) {
        return [number](int, int, int, int) { throw RuntimeFailure(number, u"test"); };
    }
};

TEST_F(Failing, TheFirstFailureIsTheOneThatIsTold) {
    FailingForm& form = *m_Shown;
    form.Title.MouseDown = ThrowAt(301);
    form.Text.Change = Throw(302);
    Keeps(301, [&] {
        SendMessageW(form.Title.Base.hWnd(), WM_LBUTTONDOWN, MK_LBUTTON, 0);
        form.Text.Text(u"y"); // no handler runs any more
    });
}

TEST_F(Failing, TheEndingWindowStillAnswersAndPaintsNothingOfOurs) {
    FailingForm& form = *m_Shown;
    form.Title.MouseDown = ThrowAt(1);
    Keeps(1, [&] {
        SendMessageW(form.Title.Base.hWnd(), WM_LBUTTONDOWN, MK_LBUTTON, 0);
        form.Title.Base.Invalidate();
        UpdateWindow(form.Title.Base.hWnd());
        RECT dirty;
        EXPECT_FALSE(GetUpdateRect(form.Title.Base.hWnd(), &dirty, FALSE));
    });
    EXPECT_EQ(Said(form.Title.Base).Role, ROLE_SYSTEM_STATICTEXT);
}

TEST_F(Failing, WhatIsNoFailureOfOursIsToldToo) {
    m_Ui.Run([&] {
        const auto told = [](auto thrown) {
            return EventFrame::Describe(std::make_exception_ptr(thrown), u"");
        };
        EXPECT_EQ(told(std::bad_alloc()), u"Run-time error 7:\r\nOut of memory");
        EXPECT_EQ(told(std::runtime_error("odd")), u"Unexpected failure:\r\nodd");
        EXPECT_EQ(told(7), u"Unexpected failure");
    });
}

TEST_F(Failing, TheReportIsOneBoxAtTheVeryEnd) {
    FailingForm& form = *m_Shown;
    form.Title.MouseDown = ThrowAt(kOverflow);
    bool reported = false;
    m_Ui.Post([&] {
        EventFrame::Report(u"Zorvak Converter", u"C:\\a.txt"); // nothing has failed: no box
        SendMessageW(form.Title.Base.hWnd(), WM_LBUTTONDOWN, MK_LBUTTON, 0);
        EventFrame::Report(u"Zorvak Converter", u"C:\\a.txt");
        reported = true;
    });
    const gui::Box box = gui::WaitForBox();
    ASSERT_TRUE(box);
    EXPECT_EQ(box.Title, u"Zorvak Converter");
    EXPECT_EQ(box.Text, u"Run-time error 6:\r\nOverflow\r\ntest\r\nC:\\a.txt");
    EXPECT_EQ(box.Icon, gui::BoxIcon::Stop);
    EXPECT_EQ(box.Buttons, std::vector<int>{IDOK});
    EXPECT_TRUE(box.Press());
    EXPECT_TRUE(Becomes([&] { return reported; }));
}

// ---- the timer itself ----

TEST_F(Failing, ATimerTicksWhileItIsEnabledAndHasAnInterval) {
    FailingForm& form = *m_Shown;
    int ticks = 0;
    m_Ui.Run([&] {
        EXPECT_EQ(form.Clock.Interval(), 10);
        form.Clock.Tick = [&] { ++ticks; };
        form.Clock.Enabled(true);
    });
    EXPECT_TRUE(Becomes([&] { return ticks >= 3; }));
    m_Ui.Run([&] {
        form.Clock.Enabled(false);
        ticks = 0;
        // What was under way when it stopped does not come.
        MSG message;
        const ULONGLONG end = GetTickCount64() + 60;
        while (GetTickCount64() < end) {
            if (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        }
        EXPECT_EQ(ticks, 0);
        form.Clock.Interval(0);
        form.Clock.Enabled(true);
    });
    m_Ui.Settle();
    EXPECT_EQ(On([&] { return ticks; }), 0);
}

} // namespace
