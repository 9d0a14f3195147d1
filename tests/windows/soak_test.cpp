// Thousands of forms come and go, driven by messages: nothing of them stays behind.
#include "base/DoEvents.h"
#include "controls/ComboBox.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/PictureBox.h"
#include "controls/TextBox.h"
#include "controls/Timer.h"
#include "windows/FormTest.h"
#include "windows/Handles.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmSoak\tform\t\t\t5550\t4635\tSoak\t\tShape=101; BackColor=FrameTop; BackColor2=FrameBottom; "
    u"OutlineColor=Outline\n"
    u"f\tfrmSoak\tBox\tframe\t600\t600\t3000\t1800\t\t\tBackColor=Tint; BorderColor=Line\n"
    u"f\tBox\tTitle\tlabel\t150\t150\t900\t360\tTitle\t\tFont=Strong; ToolTipText=A tip\n"
    u"f\tBox\tField\ttext\t1200\t150\t1500\t360\t\t1\t\n"
    u"f\tBox\tChoice\tcombo\t1200\t600\t1500\t360\t\t2\tAccessibleName=Choice\n"
    u"f\tBox\tImage\tpicture\t150\t1050\t240\t240\t\t\tPicture=warn\n"
    u"f\tBox\tLine1\tline\t150\t1500\t1500\t15\t\t\t\n"
    u"f\tfrmSoak\tClock\ttimer\t\t\t\t\t\t\tInterval=10; Enabled=yes\n";

struct SoakForm {
    Form Window;
    Label Title;
    TextBox Field;
    ComboBox Choice;
    Timer Clock;
    int Presses = 0;
    SoakForm() {
        Window.Bind(u"Title", Title).Bind(u"Field", Field).Bind(u"Choice", Choice).Bind(u"Clock", Clock);
        Title.MouseDown = [this](int, int, int, int) { ++Presses; };
        Window.Create(kLayout);
        Choice.AddItem(u"one");
    }
};

// A life in messages: shown, hovered, pressed, typed into, painted at two DPIs, gone.
void Live() {
    SoakForm form;
    form.Window.Show();
    const HWND title = form.Title.Base.hWnd(), field = form.Field.Base.hWnd();
    SendMessageW(title, WM_MOUSEMOVE, 0, MAKELPARAM(3, 3));
    SendMessageW(title, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(3, 3));
    SendMessageW(title, WM_LBUTTONUP, 0, MAKELPARAM(3, 3));
    SendMessageW(field, WM_CHAR, 'x', 1);
    form.Choice.ListIndex(0);
    gui::Ask(field);
    UpdateWindow(form.Window.Base.hWnd());
    SendMessageW(form.Window.Base.hWnd(), WM_DPICHANGED, MAKEWPARAM(144, 144), 0);
    DoEvents();
    EXPECT_EQ(form.Presses, 1);
}

TEST(Soak, FormsLeaveNothingBehind) {
    gui::UiThread ui;
    const auto live = [&ui](int times) {
        ui.Run([times] {
            for (int i = 0; i < times; ++i) Live();
        });
    };
    const auto objects = [&ui] {
        int count = 0;
        ui.Run([&] { count = gui::GdiObjects(); });
        return count;
    };
    live(5); // what is made once and kept
    const int before = objects(), windows = gui::Windows();
    for (int i = 0; i < 10; ++i) live(10); // seven windows each
    EXPECT_LE(objects(), before + 5);
    EXPECT_EQ(gui::Windows(), windows);
    EXPECT_FALSE(EventFrame::Ending());
}

// The counts are worth something: what is left behind on purpose is seen.
TEST(Soak, ALeakOfFiftyIsSeen) {
    gui::UiThread ui;
    ui.Run([] {
        // The system has windows of its own as long as a thread has any.
        const HWND first = gui::MakeWindow(nullptr, {0, 0, 10, 10});
        const int objects = gui::GdiObjects();
        HGDIOBJ left[50];
        for (int i = 0; i < 50; ++i) left[i] = CreateSolidBrush(static_cast<COLORREF>(i + 1000));
        EXPECT_EQ(gui::GdiObjects(), objects + 50);
        for (const HGDIOBJ object : left) DeleteObject(object);
        EXPECT_EQ(gui::GdiObjects(), objects);

        const int windows = gui::Windows();
        HWND lost[50];
        for (HWND& window : lost) window = gui::MakeWindow(nullptr, {0, 0, 10, 10});
        EXPECT_EQ(gui::Windows(), windows + 50);
        for (const HWND window : lost) DestroyWindow(window);
        EXPECT_EQ(gui::Windows(), windows);
        DestroyWindow(first);
    });
}

} // namespace
