// What the kit draws itself, and the services beside it, hundreds of times: nothing stays.
// Together the kinds have more than ten thousand lives; what each life lost would show in a few of
// them. ZC_SOAK=10000 gives each kind that many.
// Boxes and lists of the system, and whole forms: soaksystem_test.cpp.
#include "base/RuntimeFailure.h"
#include "controls/AdvProgressBar.h"
#include "controls/CheckBox.h"
#include "controls/CheckList.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/Line.h"
#include "controls/MSubclass.h"
#include "controls/McListBox.h"
#include "controls/OptionButtonC.h"
#include "controls/Painting.h"
#include "controls/PictureBox.h"
#include "controls/TavrelButton.h"
#include "controls/Timer.h"
#include "controls/cSizeMoveHelper.h"
#include "windows/Soak.h"

namespace {

using gui::LiveOnce;

// Proof of life where no event tells it.
bool Paints(Control& control) {
    const long before = PaintsSoFar().Blits;
    control.Refresh();
    return PaintsSoFar().Blits == before + 1;
}

void PressButton(Form& form, std::u16string_view row, int& told) {
    LiveOnce<TavrelButton>(form, row, [&](TavrelButton& button) {
        button.Click = [&] { ++told; };
        // The timer of its hovering ticks, with the mouse outside and inside again.
        button.MouseUp = [&](int, int, int, int) { SendMessageW(button.Base.hWnd(), WM_TIMER, 1, 0); };
    });
}

void FillList(Form& form, int& told) {
    McImageList images;
    form.Bind(u"Images", images)
        .Create(u"form\nf\tfrmSoak\tImages\tMcImageList\t0\t0\t0\t0\t\t\tImageCount=1; Images0=task-text\n");
    LiveOnce<McListBox>(
        form,
        SOAK_ROW(u"McListBox",
                 u"Appearance=0; RowHeight=20; ShowIcon=yes; ShowHover=yes; IconFocus=no; FullRowSelect=yes; "
                 u"FocusRectangle=yes; AutoHideScrollBars=yes; BackGradient=6; BackGradientCol=ListGrad; "
                 u"SelGradient=1; SelColor=Sel; SelGradientCol=SelGrad; AccessibleName=It"),
        [&](McListBox& list) {
            list.ImageList(&images);
            // Cut, so that the mouse over it makes a tip.
            list.AddItem(std::u16string(60, u'x'), -1, 0, true);
            list.AddItem(u"two");
            list.Refresh();
            list.Click = [&] { ++told; };
        });
}

// A client of two messages, which are sent to the form.
struct Client final : ISubclass {
    int MsgResponse() override { return kClientFirst; }
    void MsgResponse(int) override {}
    LRESULT WindowProc(HWND, UINT, WPARAM, LPARAM) override { return ++Calls; }
    int Calls = 0;
};

void Subclass(Form& form, int& told) {
    Client client;
    const HWND window = form.Base.hWnd();
    for (const UINT message : {WM_USER, WM_USER + 1}) MSubclass::AttachMessage(client, window, message);
    EXPECT_THROW(MSubclass::AttachMessage(client, window, WM_USER), RuntimeFailure);
    SendMessageW(window, WM_USER, 0, 0);
    for (const UINT message : {WM_USER, WM_USER + 1}) MSubclass::DetachMessage(client, window, message);
    SendMessageW(window, WM_USER, 0, 0);
    told += client.Calls;
}

void HelpSizing(Form& form, int& told) {
    cSizeMoveHelper helper;
    helper.EnterSizeMove = [&] { ++told; };
    helper.Attach(form.Base.hWnd());
    SendMessageW(form.Base.hWnd(), WM_ENTERSIZEMOVE, 0, 0);
    SendMessageW(form.Base.hWnd(), WM_EXITSIZEMOVE, 0, 0);
}

void Shape(Form& form, int& told) {
    cRegion region;
    told += region.RegionFromResource(101, u"CUSTOM") && region.Apply(form.Base.hWnd());
    EXPECT_TRUE(cRegion().Apply(form.Base.hWnd()));
}

void StartTimer(Form& form, int& told) {
    Timer timer;
    form.Bind(u"It", timer).Create(SOAK_ROW(u"timer", u"Interval=10; Enabled=yes"));
    timer.Interval(20);
    told += timer.Enabled();
}

const gui::Soaked kKinds[] = {
    {"Label", 500,
     [](Form& form, int& told) {
         LiveOnce<Label>(form, SOAK_ROW(u"label", u"Font=Strong"),
                         [&](Label& label) { label.MouseDown = [&](int, int, int, int) { ++told; }; });
     }},
    {"PictureBox", 500,
     [](Form& form, int& told) {
         LiveOnce<PictureBox>(form, SOAK_ROW(u"picture", u"Picture=warn"),
                              [&](PictureBox& box) { box.MouseDown = [&](int, int, int, int) { ++told; }; });
     }},
    {"Frame", 500,
     [](Form& form, int& told) {
         LiveOnce<Frame>(form, SOAK_ROW(u"frame", u"BackColor=Tint; BorderColor=Line"),
                         [&](Frame& frame) { told += Paints(frame.Base); });
     }},
    {"Line", 500,
     [](Form& form, int& told) {
         LiveOnce<Line>(form, SOAK_ROW(u"line", u""), [&](Line& line) { told += Paints(line.Base); });
     }},
    {"ButtonStyle1", 500,
     [](Form& form, int& told) {
         PressButton(form,
                     SOAK_ROW(u"TavrelButton",
                              u"ButtonStyle=1; Picture=tool-options; PictureWidth=24; PictureHeight=24"),
                     told);
     },
     2},
    {"ButtonStyle3", 10'000,
     [](Form& form, int& told) {
         PressButton(form, SOAK_ROW(u"TavrelButton", u"ButtonStyle=3; Primary=yes; Default=yes"), told);
     },
     2},
    {"ButtonStyle4", 500,
     [](Form& form, int& told) {
         PressButton(form, SOAK_ROW(u"TavrelButton", u"ButtonStyle=4; ForeColor=Link"), told);
     },
     2},
    {"CheckBox", 500,
     [](Form& form, int& told) {
         LiveOnce<CheckBox>(form, SOAK_ROW(u"CheckBox", u""),
                            [&](CheckBox& box) { box.Click = [&] { ++told; }; });
     }},
    {"OptionButton", 500,
     [](Form& form, int& told) {
         LiveOnce<OptionButtonC>(form, SOAK_ROW(u"OptionButtonC", u""),
                                 [&](OptionButtonC& option) { option.Click = [&] { ++told; }; });
     }},
    {"McListBox", 500, FillList, 1},
    {"ProgressBar", 500,
     [](Form& form, int& told) {
         LiveOnce<AdvProgressBar>(
             form, SOAK_ROW(u"AdvProgressBar", u"Style=2; ShowText=yes; Font=Bar; AccessibleName=It"),
             [&](AdvProgressBar& bar) {
                 const long before = PaintsSoFar().Blits;
                 bar.Value(50);
                 told += PaintsSoFar().Blits == before + 1;
             });
     }},
    {"CheckList", 500,
     [](Form& form, int& told) {
         LiveOnce<CheckList>(form, SOAK_ROW(u"checklist", u"AccessibleName=It"), [&](CheckList& list) {
             list.AddItem(u"one", {u"Tahoma", 9, false, false}, CheckList::kTable);
             list.Click = [&] { ++told; };
         });
     }},
    {"Timer", 500, StartTimer, 0, 0},
    {"Subclass", 500, Subclass, 0, 0},
    {"SizeMoveHelper", 500, HelpSizing, 0, 0},
    {"Region", 500, Shape, 0, 0},
};

class OwnSoak : public gui::Soak {};
TEST_P(OwnSoak, NothingStays) {
    LiveAll();
}
INSTANTIATE_TEST_SUITE_P(Kinds, OwnSoak, testing::ValuesIn(kKinds), gui::NameOf);

} // namespace
