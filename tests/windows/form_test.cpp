// The form kit: a form from a layout table, keys, stacked panes, focus, DPI, accessibility.
#include "base/DoEvents.h"
#include "base/RuntimeFailure.h"
#include "controls/ComboBox.h"
#include "controls/Dpi.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/Painting.h"
#include "controls/TextBox.h"
#include "windows/FormTest.h"

#include <gtest/gtest.h>

namespace {

constexpr std::u16string_view kLayout =
    u"form\tcontainer\tcontrol\tkind\tleft\ttop\twidth\theight\tcaption\ttab\tproperties\tnotes\n"
    u"frmTest\t(screen)\tfrmTest\tform\t\t\t6000\t4500\tTest form\t\tBackColor=FrameTop; "
    u"BackColor2=FrameBottom\n"
    u"frmTest\tfrmTest\tFrameLow\tframe\t600\t600\t4500\t1500\t\t\tBackColor=Card\n"
    u"frmTest\tfrmTest\tFrameHigh\tframe\t600\t600\t4500\t1500\t\t\tBackColor=Card\n"
    u"frmTest\tFrameLow\tLabelLow\tlabel\t150\t150\t900\t360\t&Low:\t\t\n"
    u"frmTest\tFrameLow\tTextLow\ttext\t1200\t150\t1500\t360\t- Unicode\t10\t\tsample\n"
    u"frmTest\tFrameHigh\tLabelHigh\tlabel\t150\t150\t900\t360\tHigh:\t\tFont=Strong\n"
    u"frmTest\tFrameHigh\tTextHigh\ttext\t1200\t150\t1500\t360\t\t20\t\n"
    u"frmTest\tFrameHigh\tComboHigh\tcombo\t1200\t600\t1500\t360\t\t21\tAccessibleName=Sizes\n"
    u"frmTest\tfrmTest\tLast(0)\ttext\t600\t2400\t1500\t360\t\t31\tToolTipText=The first\n"
    u"frmTest\tfrmTest\tLast(1)\ttext\t2400\t2400\t1500\t360\t\t30\tToolTipText=The second\n"
    u"frmTest\tfrmTest\tLine1\tline\t600\t3000\t3000\t15\t\t\t\n";

struct TestForm {
    Form Window;
    Frame FrameLow, FrameHigh;
    Label LabelHigh;
    TextBox TextLow, TextHigh, Last[2];
    ComboBox ComboHigh;

    TestForm() {
        Window.Bind(u"FrameLow", FrameLow).Bind(u"FrameHigh", FrameHigh).Bind(u"LabelHigh", LabelHigh);
        Window.Bind(u"TextLow", TextLow).Bind(u"TextHigh", TextHigh).Bind(u"Last", Last);
        Window.Bind(u"ComboHigh", ComboHigh).Create(kLayout);
        FrameHigh.Base.ZOrder();
        Window.Show();
    }
};

using FormKit = gui::FormTest<TestForm>;

TEST_F(FormKit, ControlsAreMadeFromTheTable) {
    TestForm& form = *m_Shown;
    EXPECT_EQ(form.Window.Controls().size(), 10u);
    EXPECT_EQ(form.TextLow.Base.Name(), u"TextLow");
    EXPECT_EQ(form.TextLow.Base.TypeName(), u"TextBox");
    EXPECT_EQ(form.TextLow.Base.Container(), &form.FrameLow.Base);
    EXPECT_EQ(form.TextLow.Base.Left(), 1200);
    EXPECT_EQ(form.TextLow.Base.TabIndex(), 10);
    EXPECT_EQ(form.Last[1].Base.FullName(), u"Last(1)");
    EXPECT_EQ(form.Window.Find(u"Last(1)"), &form.Last[1].Base);
    EXPECT_EQ(On([&] { return form.TextLow.Text(); }), u"- Unicode");
    // Nobody joined LabelLow: the form keeps it.
    ASSERT_NE(form.Window.Find(u"LabelLow"), nullptr);
    EXPECT_EQ(form.Window.Find(u"LabelLow")->TypeName(), u"Label");
    EXPECT_EQ(WindowText(form.Window.Base.hWnd()), u"Test form");
    RECT client;
    GetClientRect(form.Window.Base.hWnd(), &client);
    EXPECT_EQ(WidthOf(client), Scaled(400, form.Window.Dpi()));
    EXPECT_EQ(HeightOf(client), Scaled(300, form.Window.Dpi()));
}

TEST_F(FormKit, TabGoesByTheNumbersAndSkipsWhatARaisedPaneCovers) {
    TestForm& form = *m_Shown;
    ASSERT_TRUE(FocusComesTo(form.TextHigh.Base)); // 10 is covered
    gui::Type(VK_TAB);
    EXPECT_TRUE(FocusComesTo(form.ComboHigh.Base));
    gui::Type(VK_TAB);
    EXPECT_TRUE(FocusComesTo(form.Last[1].Base));
    gui::Type(VK_TAB);
    EXPECT_TRUE(FocusComesTo(form.Last[0].Base));
    gui::Type(VK_TAB);
    EXPECT_TRUE(FocusComesTo(form.TextHigh.Base));
    gui::Key(VK_SHIFT, false);
    gui::Type(VK_TAB);
    gui::Key(VK_SHIFT, true);
    EXPECT_TRUE(FocusComesTo(form.Last[0].Base));
    m_Ui.Run([&] { form.FrameLow.Base.ZOrder(); });
    gui::Type(VK_TAB);
    EXPECT_TRUE(FocusComesTo(form.TextLow.Base));
}

TEST_F(FormKit, FocusMovesOnWhenItsControlIsDisabledOrHidden) {
    TestForm& form = *m_Shown;
    ASSERT_TRUE(FocusComesTo(form.TextHigh.Base));
    m_Ui.Run([&] { form.TextHigh.Base.Enabled(false); });
    EXPECT_TRUE(FocusComesTo(form.ComboHigh.Base));
    m_Ui.Run([&] { form.FrameHigh.Base.Enabled(false); });
    EXPECT_TRUE(FocusComesTo(form.Last[1].Base));
    m_Ui.Run([&] { form.Last[1].Base.Visible(false); });
    EXPECT_TRUE(FocusComesTo(form.Last[0].Base));
    // When nothing is left, the form itself keeps the keys.
    m_Ui.Run([&] { form.Last[0].Base.Enabled(false); });
    EXPECT_TRUE(Becomes([&] { return GetFocus() == form.Window.Base.hWnd(); }));
    EXPECT_FALSE(On([] { return EventFrame::Ending(); }));
}

TEST_F(FormKit, FocusLeavesAPaneThatARaisedOneCovers) {
    TestForm& form = *m_Shown;
    ASSERT_TRUE(FocusComesTo(form.TextHigh.Base));
    m_Ui.Run([&] { form.FrameLow.Base.ZOrder(); });
    EXPECT_TRUE(FocusComesTo(form.Last[1].Base)); // the next number that can be seen
    m_Ui.Run([&] { form.FrameLow.Base.ZOrder(1); });
    EXPECT_TRUE(On([&] { return form.Last[1].Base.HasFocus(); }));
}

TEST_F(FormKit, FocusMovesOnAlsoWhileAnotherFormIsActive) {
    TestForm& form = *m_Shown;
    std::unique_ptr<Form> other;
    ASSERT_TRUE(FocusComesTo(form.TextHigh.Base));
    m_Ui.Run([&] {
        form.Last[1].Base.SetFocus();
        other = std::make_unique<Form>();
        other->Create(u"form\nf\t\tfrmB\tform\t\t\t900\t900\t\t\t\n");
        other->Show();
    });
    ASSERT_TRUE(Becomes([&] { return GetActiveWindow() == other->Base.hWnd(); }));
    m_Ui.Run([&] { form.Last[1].Base.Enabled(false); });
    EXPECT_TRUE(On([&] { return GetActiveWindow() == other->Base.hWnd(); })); // nothing comes to the front
    ASSERT_TRUE(gui::Activate(form.Window.Base.hWnd()));
    EXPECT_TRUE(FocusComesTo(form.Last[0].Base)); // the next one, not the first
    m_Ui.Run([&] { other.reset(); });
}

TEST_F(FormKit, WhatCannotBeReachedTakesNoFocus) {
    TestForm& form = *m_Shown;
    ASSERT_TRUE(FocusComesTo(form.TextHigh.Base));
    m_Ui.Run([&] {
        form.TextLow.Base.SetFocus(); // covered
        EXPECT_TRUE(form.TextHigh.Base.HasFocus());
        form.Last[0].Base.Visible(false);
        form.Last[0].Base.SetFocus();
        EXPECT_TRUE(form.TextHigh.Base.HasFocus());
        form.Last[1].Base.Enabled(false);
        form.Last[1].Base.SetFocus();
        EXPECT_TRUE(form.TextHigh.Base.HasFocus());
        form.ComboHigh.Base.SetFocus();
        EXPECT_TRUE(form.ComboHigh.Base.HasFocus());
    });
}

TEST_F(FormKit, AFormThatIsEnabledAgainHasItsFocusBack) {
    TestForm& form = *m_Shown;
    ASSERT_TRUE(FocusComesTo(form.TextHigh.Base));
    m_Ui.Run([&] { form.Window.Base.Enabled(false); });
    m_Ui.Run([&] { form.Window.Base.Enabled(true); });
    gui::Type('X');
    EXPECT_TRUE(Becomes([&] { return form.TextHigh.Text() == u"x"; }));
}

TEST_F(FormKit, AFormIsMadeOnce) {
    m_Ui.Run([&] {
        Form& form = m_Shown->Window;
        for (const bool unloaded : {false, true}) {
            if (unloaded) form.Unload();
            try {
                form.Create(kLayout);
                ADD_FAILURE() << "it was made again";
            } catch (const RuntimeFailure& failure) {
                EXPECT_EQ(failure.Number(), kInvalidCall);
            }
            EXPECT_EQ(form.Controls().size(), 10u);
        }
    });
}

TEST_F(FormKit, AnAccessKeyOfALabelGoesToItsField) {
    TestForm& form = *m_Shown;
    m_Ui.Run([&] { form.FrameLow.Base.ZOrder(); });
    gui::Key(VK_MENU, false);
    gui::Type('L');
    gui::Key(VK_MENU, true);
    EXPECT_TRUE(FocusComesTo(form.TextLow.Base));
}

// What ends with the form in twips ends with it in pixels.
TEST_F(FormKit, TheInsideHasTheFormsSizeWhereverItLies) {
    Control& form = m_Shown->Window.Base;
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        for (int left = 0; left < 30; ++left) {
            m_Ui.Run([&] { form.Move(left, left, 6000 + 8, 4500 + 8); });
            RECT client;
            GetClientRect(form.hWnd(), &client);
            EXPECT_EQ(client.right, ToPixels(6008, dpi)) << left << " at " << dpi;
            EXPECT_EQ(client.bottom, ToPixels(4508, dpi)) << left << " at " << dpi;
        }
    }
}

TEST_F(FormKit, PlacesFollowTheDpi) {
    TestForm& form = *m_Shown;
    for (const int dpi : {96, 120, 144, 192}) {
        m_Ui.Run([&] {
            const RECT suggested{20, 30, 500, 500};
            SendMessageW(form.Window.Base.hWnd(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
                         reinterpret_cast<LPARAM>(&suggested));
        });
        RECT place, client;
        GetWindowRect(form.TextHigh.Base.hWnd(), &place);
        MapWindowPoints(nullptr, form.FrameHigh.Base.hWnd(), reinterpret_cast<POINT*>(&place), 2);
        // 1200, 150, 2700, 510 twips
        EXPECT_EQ(place.left, 80 * dpi / 96);
        EXPECT_EQ(place.top, (10 * dpi + 48) / 96);
        EXPECT_EQ(place.right, 180 * dpi / 96);
        EXPECT_EQ(place.bottom, (34 * dpi + 48) / 96);
        GetClientRect(form.Window.Base.hWnd(), &client);
        EXPECT_EQ(client.right, 400 * dpi / 96);
        GetWindowRect(form.ComboHigh.Base.hWnd(), &place);
        EXPECT_EQ(HeightOf(place), ToPixels(960, dpi) - ToPixels(600, dpi)) << dpi;
        EXPECT_EQ(On([&] { return form.Window.Base.Left(); }), ToTwips(20, dpi));
        EXPECT_EQ(On([&] { return LineHeight(form.TextHigh.Base.FontInUse()); }),
                  LineHeight(FontHandle(UiFont(), dpi).Get()));
    }
}

// At 120 DPI 15 twips are a pixel and a quarter.
TEST_F(FormKit, WhatEndsWithItsContainerDoesSoWhereverThatStands) {
    SetDpi(120);
    m_Ui.Run([&] {
        TestForm& form = *m_Shown;
        form.TextLow.Base.Move(300, 300, 3765, 360);
        form.FrameLow.Base.Move(0, 0, 4065, 1500);
        for (const int left : {0, 615, 630, 645, 660}) {
            form.FrameLow.Base.Left(left);
            RECT inside, place;
            GetClientRect(form.FrameLow.Base.hWnd(), &inside);
            GetWindowRect(form.TextLow.Base.hWnd(), &place);
            MapWindowPoints(nullptr, form.FrameLow.Base.hWnd(), reinterpret_cast<POINT*>(&place), 2);
            EXPECT_EQ(place.right, inside.right) << left;
        }
    });
}

// Every activation of a form that steers its own dragging sends it to all windows.
TEST_F(FormKit, TheDragSettingPaintsNothing) {
    m_Ui.Run([&] {
        const HWND form = m_Shown->Window.Base.hWnd();
        DoEvents();
        const auto paints = PaintsSoFar().Paints;
        SendMessageW(form, WM_SETTINGCHANGE, SPI_SETDRAGFULLWINDOWS, 0);
        DoEvents();
        EXPECT_EQ(PaintsSoFar().Paints, paints);
        SendMessageW(form, WM_SETTINGCHANGE, SPI_SETHIGHCONTRAST, 0);
        DoEvents();
        EXPECT_GT(PaintsSoFar().Paints, paints);
    });
}

TEST_F(FormKit, AFailureInAHandlerIsKeptAndEndsTheLoop) {
    TestForm& form = *m_Shown;
    m_Ui.Run([&] {
        form.TextHigh.Change = [] { throw RuntimeFailure(kOverflow, u"test"); };
        form.TextHigh.Text(u"x"); // the system lies between: nothing is thrown here
        EXPECT_TRUE(EventFrame::Ending());
        EXPECT_THROW(EventFrame::Rethrow(), RuntimeFailure);
        EXPECT_EQ(EventFrame::Describe(EventFrame::FirstFailure(), u"C:\\a.txt"),
                  u"Run-time error 6:\r\nOverflow\r\ntest\r\nC:\\a.txt");
        MSG message;
        EXPECT_TRUE(PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
        EventFrame::Forget();
    });
}

TEST_F(FormKit, ScreenReadersAreTold) {
    TestForm& form = *m_Shown;
    ASSERT_TRUE(FocusComesTo(form.TextHigh.Base));
    m_Ui.Run([&] {
        form.TextHigh.Text(u"abc");
        const gui::Spoken high = gui::Ask(form.TextHigh.Base.hWnd());
        EXPECT_EQ(high.Name, u"High:"); // its label's text
        EXPECT_EQ(high.Value, u"abc");
        EXPECT_EQ(high.Role, ROLE_SYSTEM_TEXT);
        EXPECT_EQ(high.State, STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_FOCUSED);
        const gui::Spoken low = gui::Ask(form.TextLow.Base.hWnd());
        EXPECT_EQ(low.Name, u"Low:");                                          // without the ampersand
        EXPECT_EQ(low.State, STATE_SYSTEM_FOCUSABLE | STATE_SYSTEM_INVISIBLE); // covered
        EXPECT_EQ(gui::Ask(form.ComboHigh.Base.hWnd()).Name, u"Sizes");
        EXPECT_EQ(gui::Ask(form.Last[0].Base.hWnd()).Name, u"The first");
        form.Last[0].Base.Enabled(false);
        EXPECT_EQ(gui::Ask(form.Last[0].Base.hWnd()).State, STATE_SYSTEM_UNAVAILABLE);
        EXPECT_EQ(gui::Ask(form.LabelHigh.Base.hWnd()).Role, ROLE_SYSTEM_STATICTEXT);
    });
}

TEST_F(FormKit, WhatChangesANameIsTold) {
    TestForm& form = *m_Shown;
    const auto names = [](const Control& control, const std::function<void()>& change) {
        const gui::HeardEvents heard;
        change();
        return heard.Count(EVENT_OBJECT_NAMECHANGE, control.hWnd());
    };
    m_Ui.Run([&] {
        Control &field = form.TextHigh.Base, &combo = form.ComboHigh.Base;
        EXPECT_EQ(names(field, [&] { form.LabelHigh.Caption(u"Higher:"); }), 1); // by its label
        EXPECT_EQ(gui::Ask(field.hWnd()).Name, u"Higher:");
        EXPECT_EQ(names(field, [&] { form.LabelHigh.Caption(u"Higher:"); }), 0);
        EXPECT_EQ(names(combo, [&] { combo.AccessibleName(u"Widths"); }), 1);
        EXPECT_EQ(gui::Ask(combo.hWnd()).Name, u"Widths");
        EXPECT_EQ(names(combo, [&] { combo.AccessibleName(u"Widths"); }), 0);
        field.AccessibleName(u"Its own");
        EXPECT_EQ(names(field, [&] { form.LabelHigh.Caption(u"High:"); }), 0); // no more its name
    });
}

// Screen readers live in other processes; another thread is the next best here.
TEST_F(FormKit, ScreenReadersMayAskFromOutside) {
    ASSERT_EQ(CoInitializeEx(nullptr, COINIT_MULTITHREADED), S_OK);
    const gui::Spoken high = gui::Ask(m_Shown->TextHigh.Base.hWnd());
    EXPECT_EQ(high.Name, u"High:");
    EXPECT_EQ(high.Role, ROLE_SYSTEM_TEXT);
    RECT place;
    GetWindowRect(m_Shown->TextHigh.Base.hWnd(), &place);
    EXPECT_EQ(high.Place.left, place.left);
    EXPECT_EQ(high.Place.bottom, place.bottom);
    CoUninitialize();
}

// Who holds the object longer than the control lives is told so.
TEST_F(FormKit, AnObjectOutlivesItsControl) {
    m_Ui.Run([&] {
        auto label = std::make_unique<Label>();
        IAccessible* object = nullptr;
        {
            Form form;
            form.Bind(u"L", *label)
                .Create(u"form\nf\t\tfrmB\tform\t\t\t900\t900\t\t\t\nf\tfrmB\tL\tlabel\t0\t0\t90\t90\tText\t"
                        u"\t\n");
            ASSERT_EQ(AccessibleObjectFromWindow(label->Base.hWnd(), static_cast<DWORD>(OBJID_CLIENT),
                                                 IID_IAccessible, reinterpret_cast<void**>(&object)),
                      S_OK);
        }
        VARIANT self{};
        self.vt = VT_I4;
        BSTR name = nullptr;
        EXPECT_EQ(object->get_accName(self, &name), CO_E_OBJNOTCONNECTED); // its window has gone
        label.reset();
        EXPECT_EQ(object->get_accName(self, &name), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(name, nullptr);
        object->Release();
    });
}

} // namespace
