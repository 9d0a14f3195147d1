// What controls cost under the user's hands: microseconds of whole operations with all that they
// paint, the least of some rounds. A Windows program; ./run bench runs it.
#include "base/DoEvents.h"
#include "controls/AdvProgressBar.h"
#include "controls/CheckBox.h"
#include "controls/CheckList.h"
#include "controls/Form.h"
#include "controls/McListBox.h"
#include "controls/OptionButtonC.h"
#include "controls/TavrelButton.h"
#include "controls/TextBox.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmBench\tform\t\t\t9000\t6000\tBench\t\tBackColor=FrameTop; BackColor2=FrameBottom\n"
    u"f\tfrmBench\tFlat\tTavrelButton\t150\t150\t1500\t450\tFlat\t1\tButtonStyle=1\n"
    u"f\tfrmBench\tFilled\tTavrelButton\t150\t750\t1500\t450\tFilled\t2\tButtonStyle=3; Primary=yes\n"
    u"f\tfrmBench\tLink\tTavrelButton\t150\t1350\t1500\t450\tLink\t3\tButtonStyle=4; ForeColor=Link\n"
    u"f\tfrmBench\tTick\tCheckBox\t150\t1950\t1500\t300\tTick\t4\t\n"
    u"f\tfrmBench\tTask\tOptionButtonC\t150\t2400\t1500\t300\tOption\t5\t\n"
    u"f\tfrmBench\tBar\tAdvProgressBar\t150\t2850\t3000\t300\t\t\tStyle=2; ShowText=yes; Font=Bar; "
    u"AccessibleName=Bar\n"
    u"f\tfrmBench\tFiles\tMcListBox\t3300\t150\t3705\t2130\t\t6\tAppearance=0; RowHeight=20; ShowIcon=yes; "
    u"ShowHover=yes; IconFocus=no; FullRowSelect=yes; FocusRectangle=yes; AutoHideScrollBars=yes; "
    u"SelGradient=1; ForeColor=Ink; SelColor=Sel; SelGradientCol=SelGrad; AccessibleName=Files\n"
    u"f\tfrmBench\tTicks\tchecklist\t3300\t2400\t3705\t2130\t\t7\tAccessibleName=Ticks\n"
    u"f\tfrmBench\tField\ttext\t150\t3300\t1500\t360\t\t8\tAccessibleName=Field\n";

struct BenchForm {
    Form Window;
    TavrelButton Flat, Filled, Link;
    CheckBox Tick;
    OptionButtonC Task;
    AdvProgressBar Bar;
    McListBox Files;
    CheckList Ticks;
    TextBox Field;
    BenchForm() {
        Window.Bind(u"Flat", Flat).Bind(u"Filled", Filled).Bind(u"Link", Link).Bind(u"Tick", Tick);
        Window.Bind(u"Task", Task).Bind(u"Bar", Bar).Bind(u"Files", Files).Bind(u"Ticks", Ticks);
        Window.Bind(u"Field", Field).Create(kLayout);
        for (int row = 0; row < 100; ++row) {
            Files.AddItem(u"C:\\Documents\\letter.txt");
            Ticks.AddItem(u"Font", UiFont(), CheckList::kTable);
        }
        Files.Refresh();
        Window.Show();
        Field.Base.SetFocus();
        DoEvents();
    }
};

void Send(const Control& control, UINT message, WPARAM wParam = 0, int y = 10) {
    SendMessageW(control.hWnd(), message, wParam, MAKELPARAM(30, y));
}
// What has been asked for is painted, in the form too.
void Painted(const BenchForm& form) {
    RedrawWindow(form.Window.Base.hWnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

// The mouse itself is elsewhere, so the first tick of a hover ends it.
void HoverButton(BenchForm& form, TavrelButton& button) {
    Send(button.Base, WM_MOUSEMOVE);
    Send(button.Base, WM_TIMER, 1);
    Painted(form);
}
template <class Toggled>
void HoverToggle(BenchForm& form, Toggled& toggle) {
    Send(toggle.Base, WM_MOUSEMOVE);
    Painted(form);
    Send(toggle.Base, WM_MOUSELEAVE);
    Painted(form);
}
void PressAndRelease(BenchForm& form, const Control& control) {
    Send(control, WM_LBUTTONDOWN, MK_LBUTTON);
    Painted(form);
    Send(control, WM_LBUTTONUP);
    Painted(form);
}

struct Job {
    const char* Name;
    void (*Do)(BenchForm& form, int time);
};
const Job kJobs[] = {
    {"paint a flat button", [](BenchForm& form, int) { form.Flat.Base.Refresh(); }},
    {"paint a filled button", [](BenchForm& form, int) { form.Filled.Base.Refresh(); }},
    {"paint a check box", [](BenchForm& form, int) { form.Tick.Base.Refresh(); }},
    {"paint the whole form",
     [](BenchForm& form, int) {
         RedrawWindow(form.Window.Base.hWnd(), nullptr, nullptr,
                      RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
     }},
    {"hover a flat button", [](BenchForm& form, int) { HoverButton(form, form.Flat); }},
    {"hover a filled button", [](BenchForm& form, int) { HoverButton(form, form.Filled); }},
    {"hover a check box", [](BenchForm& form, int) { HoverToggle(form, form.Tick); }},
    {"press a filled button", [](BenchForm& form, int) { PressAndRelease(form, form.Filled.Base); }},
    {"press a check box", [](BenchForm& form, int) { PressAndRelease(form, form.Tick.Base); }},
    {"the mouse from row to row",
     [](BenchForm& form, int time) {
         Send(form.Files.Base, WM_MOUSEMOVE, 0, 10 + time % 2 * 20);
         Painted(form);
     }},
    {"another current row",
     [](BenchForm& form, int time) {
         form.Files.ListIndex(time % 2);
         Painted(form);
     }},
    {"another current row of a check list",
     [](BenchForm& form, int time) {
         form.Ticks.ListIndex(time % 2);
         Painted(form);
     }},
    {"tick a row", [](BenchForm& form, int) { PressAndRelease(form, form.Ticks.Base); }},
    {"a percent of progress", [](BenchForm& form, int time) { form.Bar.Value(time % 100); }},
    {"disable a button and enable it",
     [](BenchForm& form, int) {
         form.Filled.Base.Enabled(false);
         form.Filled.Base.Enabled(true);
         Painted(form);
     }},
    {"hide a button and show it",
     [](BenchForm& form, int) {
         form.Filled.Base.Visible(false);
         form.Filled.Base.Visible(true);
         Painted(form);
     }},
    {"move the focus from button to button",
     [](BenchForm& form, int time) {
         (time % 2 ? form.Filled : form.Link).Base.SetFocus();
         Painted(form);
     }},
    {"make a filled button and destroy it",
     [](BenchForm& form, int) {
         TavrelButton button;
         form.Window.Bind(u"New", button)
             .Create(u"form\nf\tfrmBench\tNew\tTavrelButton\t7200\t150\t1500\t450\tNew\t9\tPrimary=yes\n");
         Painted(form);
     }},
    {"make a form of nine controls and destroy it", [](BenchForm&, int) { BenchForm another; }},
};

double Now() {
    LARGE_INTEGER ticks, perSecond;
    QueryPerformanceCounter(&ticks);
    QueryPerformanceFrequency(&perSecond);
    return 1e6 * static_cast<double>(ticks.QuadPart) / static_cast<double>(perSecond.QuadPart);
}

double Measure(BenchForm& form, const Job& job) {
    constexpr int kRounds = 10, kTimes = 20;
    double least = 1e9;
    for (int round = 0; round < kRounds; ++round) {
        const double from = Now();
        for (int time = 0; time < kTimes; ++time) job.Do(form, time);
        least = std::min(least, (Now() - from) / kTimes);
        DoEvents();
    }
    return least;
}

} // namespace

int main() {
    BenchForm form;
    for (const Job& job : kJobs) {
        std::printf("| %s | %.0f |\n", job.Name, Measure(form, job));
        std::fflush(stdout);
    }
    return 0;
}
