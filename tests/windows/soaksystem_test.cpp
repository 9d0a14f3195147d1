// Boxes and lists of the system under the kit, tips, and whole forms, hundreds of times:
// nothing stays. And what stays on purpose is seen.
#include "controls/ComboBox.h"
#include "controls/FontCombo.h"
#include "controls/Label.h"
#include "controls/McListBox.h"
#include "controls/PasteBox.h"
#include "controls/ResultBox.h"
#include "controls/TavrelButton.h"
#include "controls/TextBox.h"
#include "controls/Timer.h"
#include "controls/TwoColumnList.h"
#include "controls/modXPCombo.h"
#include "windows/Soak.h"

namespace {

using gui::LiveOnce;

// Real moves: a tip's window comes with the mouse.
void MoveAbout() {
    static int at = 40;
    at = at == 40 ? 41 : 40;
    POINT inside{at, at};
    ClientToScreen(GetForegroundWindow(), &inside);
    gui::MoveTo(inside);
    DoEvents();
}

// A combo with its skin, which goes first.
template <class Combo>
struct Skinned {
    Combo Box;
    cXPCombo Skin;
    Control& Base = Box.Base;
};

template <class Box>
void FillRich(Form& form, std::u16string_view row, int& told) {
    LiveOnce<Box>(form, row, [&](Box& box) {
        box.Text(u"\u0986\u09AE\u09BE\u09B0");
        told += box.Text().size() == 4;
    });
}

const gui::Soaked kKinds[] = {
    {"TextBox", 500,
     [](Form& form, int& told) {
         LiveOnce<TextBox>(form, SOAK_ROW(u"text", u"AccessibleName=It"), [&](TextBox& box) {
             box.Change = [&] { ++told; };
             SendMessageW(box.Base.hWnd(), WM_CHAR, 'x', 1);
         });
     }},
    {"PasswordBox", 500,
     [](Form& form, int& told) {
         LiveOnce<TextBox>(form, SOAK_ROW(u"text", u"AccessibleName=It; PasswordChar=*"), [&](TextBox& box) {
             box.Change = [&] { ++told; };
             box.Text(u"secret");
         });
     }},
    {"ComboBox", 500,
     [](Form& form, int& told) {
         LiveOnce<Skinned<ComboBox>>(form, SOAK_ROW(u"combo", u"AccessibleName=It"),
                                     [&](Skinned<ComboBox>& combo) {
                                         modXPCombo::ApplySkin(combo.Skin, combo.Base);
                                         combo.Box.Click = [&] { ++told; };
                                         combo.Box.AddItem(u"one");
                                         combo.Box.ListIndex(0);
                                     });
     }},
    {"FontCombo", 500,
     [](Form& form, int& told) {
         LiveOnce<Skinned<FontCombo>>(
             form, SOAK_ROW(u"fontcombo", u"AccessibleName=It"), [&](Skinned<FontCombo>& combo) {
                 modXPCombo::ApplySkin(combo.Skin, combo.Base);
                 for (const char16_t* face : {u"Tahoma", u"Liberation Serif"})
                     combo.Box.AddItem(face, {face, 12, false, false});
                 combo.Box.KeyDown = [&](int, int) { ++told; };
                 SendMessageW(FindWindowExW(combo.Base.hWnd(), nullptr, L"Edit", nullptr), WM_KEYDOWN,
                              VK_HOME, 1);
             });
     }},
    {"PasteBox", 500,
     [](Form& form, int& told) {
         FillRich<PasteBox>(form, SOAK_ROW(u"richtext", u"AccessibleName=It"), told);
     }},
    {"ResultBox", 500,
     [](Form& form, int& told) {
         FillRich<ResultBox>(form, SOAK_ROW(u"unitext", u"AccessibleName=It"), told);
     }},
    {"TwoColumnList", 500,
     [](Form& form, int& told) {
         LiveOnce<TwoColumnList>(form, SOAK_ROW(u"listview", u"Columns=Old|New; AccessibleName=It"),
                                 [&](TwoColumnList& list) {
                                     list.AddItem(u"one", u"two");
                                     list.MouseDown = [&](int, int, int, int) { ++told; };
                                 });
     }},
    {"TipOfTheKit", 500,
     [](Form& form, int& told) {
         LiveOnce<Label>(form, SOAK_ROW(u"label", u"ToolTipText=A tip"), [&](Label&) {
             MoveAbout();
             told += FindWindowExW(nullptr, nullptr, L"tooltips_class32", nullptr) != nullptr;
         });
     }},
    {"Balloon", 500,
     [](Form& form, int& told) {
         cToolTip tip;
         tip.Create(form.Base.hWnd(), u"One|Two", 65, true, 1, u"Title", 0, 0xFFFFFF, -1, 10);
         MoveAbout();
         told += tip.hWnd() != nullptr;
         tip.Title(u"Another");
     },
     0, 0},
};

class SystemSoak : public gui::Soak {};
TEST_P(SystemSoak, NothingStays) {
    LiveAll();
}
INSTANTIATE_TEST_SUITE_P(Kinds, SystemSoak, testing::ValuesIn(kKinds), gui::NameOf);

// A whole form with much on it, at two resolutions, with its list dropped.
constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmLife\tform\t\t\t6000\t4635\tLife\t\tShape=101; BackColor=FrameTop; BackColor2=FrameBottom; "
    u"OutlineColor=Outline\n"
    u"f\tfrmLife\tBox\tframe\t300\t600\t5400\t3600\t\t\tBackColor=Tint; BorderColor=Line\n"
    u"f\tBox\tTitle\tlabel\t150\t150\t900\t360\tTitle\t\tFont=Strong; ToolTipText=A tip\n"
    u"f\tBox\tField\ttext\t1200\t150\t1500\t360\t\t1\t\n"
    u"f\tBox\tFonts\tfontcombo\t1200\t600\t1500\t360\t\t2\tAccessibleName=Fonts\n"
    u"f\tBox\tImage\tpicture\t150\t1050\t240\t240\t\t\tPicture=warn\n"
    u"f\tBox\tGo\tTavrelButton\t1200\t1050\t1500\t450\tGo\t3\tPrimary=yes; Default=yes; ToolTipText=Go\n"
    u"f\tBox\tFiles\tMcListBox\t2850\t150\t2400\t1500\t\t4\tAccessibleName=Files\n"
    u"f\tBox\tPaste\trichtext\t150\t1800\t2500\t1500\t\t5\tAccessibleName=Paste\n"
    u"f\tBox\tTable\tlistview\t2850\t1800\t2400\t1500\t\t6\tAccessibleName=Table\n"
    u"f\tfrmLife\tClock\ttimer\t\t\t\t\t\t\tInterval=10; Enabled=yes\n";

struct LifeForm {
    Form Window;
    TextBox Field;
    FontCombo Fonts;
    TavrelButton Go;
    McListBox Files;
    PasteBox Paste;
    TwoColumnList Table;
    Timer Clock;
    cXPCombo Skin;
    int Clicks = 0;
    LifeForm() {
        Window.Bind(u"Field", Field).Bind(u"Fonts", Fonts).Bind(u"Go", Go).Bind(u"Files", Files);
        Window.Bind(u"Paste", Paste).Bind(u"Table", Table).Bind(u"Clock", Clock).Create(kLayout);
        modXPCombo::ApplySkin(Skin, Fonts.Base);
        Go.Click = [this] { ++Clicks; };
        Fonts.AddItem(u"Tahoma", {u"Tahoma", 12, false, false});
    }
};

void LiveAsForm() {
    LifeForm form;
    form.Window.Show();
    SendMessageW(form.Fonts.Base.hWnd(), CB_SHOWDROPDOWN, TRUE, 0);
    DoEvents();
    const HWND button = form.Go.Base.hWnd();
    SendMessageW(button, WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    SendMessageW(button, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
    SendMessageW(button, WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
    for (const Control* control : form.Window.Controls()) {
        if (control->hWnd()) gui::Ask(control->hWnd());
    }
    SendMessageW(form.Window.Base.hWnd(), WM_DPICHANGED, MAKEWPARAM(144, 144), 0);
    DoEvents();
    EXPECT_EQ(form.Clicks, 1);
}

class SoakForms : public gui::OnStandingForm {};
TEST_F(SoakForms, NothingStays) {
    constexpr int kLives = 40, kSounds = 2, kAsked = 9;
    gui::ExpectNothing(gui::LeftBy(kLives, LiveAsForm), m_Form, kSounds, kAsked);
}

// The counts are worth something: of a thousand lives fifty leave something behind.
class Leaks : public gui::OnStandingForm {
protected:
    gui::Held LeftByFiftyOf(const std::function<void()>& leave) {
        int lives = 0;
        return gui::LeftBy(1'000, [&] {
            Label label;
            m_Form.Bind(u"It", label).Create(SOAK_ROW(u"label", u""));
            if (lives++ % 20 == 0) leave();
        });
    }
};

TEST_F(Leaks, FiftyBrushesAreSeen) {
    std::vector<HGDIOBJ> lost;
    const gui::Held left = LeftByFiftyOf([&] { lost.push_back(CreateSolidBrush(RGB(1, 2, 3))); });
    EXPECT_EQ(left.Objects, 50);
    EXPECT_EQ(left.Windows, 0);
    for (const HGDIOBJ object : lost) DeleteObject(object);
}

// Contexts that were in use at once stay in the system's store, and the brush of a colour that was asked for.
TEST_F(Leaks, WhatTheSystemKeepsIsNone) {
    int times = 0;
    const gui::Held left = LeftByFiftyOf([&] {
        if (times++ == 0) return; // before anything is counted
        std::vector<HDC> contexts(20);
        for (HDC& context : contexts) context = GetDC(nullptr);
        for (const HDC context : contexts) ReleaseDC(nullptr, context);
        GetSysColorBrush(COLOR_INFOBK);
    });
    EXPECT_EQ(left.Objects, 0) << left;
}

TEST_F(Leaks, FiftyWindowsAreSeen) {
    std::vector<HWND> lost;
    const gui::Held left = LeftByFiftyOf([&] { lost.push_back(gui::MakeWindow(nullptr, {0, 0, 10, 10})); });
    EXPECT_EQ(left.Windows, 50);
    for (const HWND window : lost) DestroyWindow(window);
}

TEST_F(Leaks, FiftyBlocksAreSeen) {
    std::vector<std::unique_ptr<char[]>> lost(100);
    std::size_t next = 0;
    const gui::Held left = LeftByFiftyOf([&] { lost[next++] = std::make_unique<char[]>(1'000); });
    EXPECT_NEAR(static_cast<double>(left.Bytes), 50'000, 5'000);
    EXPECT_EQ(left.Objects, 0);
}

TEST_F(Leaks, FiftyTimersAreSeen) {
    EXPECT_EQ(gui::Timers(), 0);
    std::vector<UINT_PTR> lost;
    LeftByFiftyOf([&] { lost.push_back(SetTimer(nullptr, 0, 20, nullptr)); });
    EXPECT_EQ(gui::Timers(), static_cast<int>(lost.size()));
    for (const UINT_PTR timer : lost) KillTimer(nullptr, timer);
}

} // namespace
