// Enter, Esc, access keys and DoEvents.
#include "base/DoEvents.h"
#include "base/RuntimeFailure.h"
#include "controls/TextBox.h"
#include "windows/FormTest.h"

namespace {

// The smallest control that can be pressed.
class Pressed {
public:
    Pressed() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;
    std::function<void()> Click;
    int Count = 0;

private:
    void OnPress() {
        ++Count;
        Raise(Click);
    }
    bool OnMessage(UINT message, WPARAM, LPARAM, LRESULT&) {
        if (message == WM_LBUTTONUP) OnPress();
        return message == WM_LBUTTONUP;
    }
};
const ControlKind Pressed::kKind{
    .TypeName = u"Pressed",
    .LayoutKinds = u"pressed",
    .Focusable = true,
    .EnterPresses = true,
    .Message = Entry<&Pressed::OnMessage>::Call,
    .Press = Entry<&Pressed::OnPress>::Call,
};

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmKeys\tform\t\t\t4500\t3000\tKeys\t\t\n"
    u"f\tfrmKeys\tText\ttext\t150\t150\t1500\t360\t\t1\tAccessibleName=Text\n"
    u"f\tfrmKeys\tOk\tpressed\t150\t600\t1500\t360\t&OK\t2\tDefault=yes\n"
    u"f\tfrmKeys\tStop\tpressed\t150\t1050\t1500\t360\tA && &Stop\t3\tCancel=yes\n"
    u"f\tfrmKeys\tOther\tpressed\t150\t1500\t1500\t360\t&&Other\t4\t\n";

struct KeysForm {
    Form Window;
    TextBox Text;
    std::unique_ptr<Pressed> Ok = std::make_unique<Pressed>(), Stop = std::make_unique<Pressed>();
    Pressed Other;
    KeysForm() {
        Window.Bind(u"Text", Text).Bind(u"Ok", *Ok).Bind(u"Stop", *Stop).Bind(u"Other", Other);
        Window.Create(kLayout);
        Window.Show();
    }
};

class FormKeys : public gui::FormTest<KeysForm> {
protected:
    void Alt(WORD key) {
        gui::Key(VK_MENU, false);
        gui::Type(key);
        gui::Key(VK_MENU, true);
    }
};

TEST_F(FormKeys, EnterPressesTheDefaultButtonAndEscTheCancelButton) {
    KeysForm& form = *m_Shown;
    ASSERT_TRUE(FocusComesTo(form.Text.Base));
    gui::Type(VK_RETURN);
    EXPECT_TRUE(Becomes([&] { return form.Ok->Count == 1; }));
    gui::Type(VK_ESCAPE);
    EXPECT_TRUE(Becomes([&] { return form.Stop->Count == 1; }));
    EXPECT_TRUE(On([&] { return form.Text.Base.HasFocus(); }));
}

TEST_F(FormKeys, EnterPressesTheFocusedButtonRatherThanTheDefaultOne) {
    KeysForm& form = *m_Shown;
    m_Ui.Run([&] { form.Other.Base.SetFocus(); });
    gui::Type(VK_RETURN);
    EXPECT_TRUE(Becomes([&] { return form.Other.Count == 1; }));
    EXPECT_EQ(form.Ok->Count, 0);
}

TEST_F(FormKeys, ADisabledButtonIsNotPressed) {
    KeysForm& form = *m_Shown;
    m_Ui.Run([&] {
        form.Ok->Base.Enabled(false);
        form.Stop->Base.Visible(false);
    });
    ASSERT_TRUE(FocusComesTo(form.Text.Base));
    gui::Type(VK_RETURN);
    gui::Type(VK_ESCAPE);
    Alt('O');
    Alt('S');
    gui::Type('X');
    EXPECT_TRUE(Becomes([&] { return form.Text.Text() == u"x"; })); // the keys before have been dealt with
    EXPECT_EQ(form.Ok->Count, 0);
    EXPECT_EQ(form.Stop->Count, 0);
}

TEST_F(FormKeys, AccessKeysPressAndTakeTheFocus) {
    KeysForm& form = *m_Shown;
    Alt('O');
    EXPECT_TRUE(Becomes([&] { return form.Ok->Count == 1; }));
    EXPECT_TRUE(FocusComesTo(form.Ok->Base));
    Alt('S'); // behind the doubled ampersand
    EXPECT_TRUE(Becomes([&] { return form.Stop->Count == 1; }));
    EXPECT_EQ(form.Other.Count, 0); // a doubled ampersand is none
}

TEST_F(FormKeys, AnAccessKeyThatIsHeldPressesOnce) {
    KeysForm& form = *m_Shown;
    gui::Key(VK_MENU, false);
    for (int i = 0; i < 5; ++i) gui::Key('O', false);
    gui::Key('O', true);
    gui::Type('S'); // behind all of them
    gui::Key(VK_MENU, true);
    EXPECT_TRUE(Becomes([&] { return form.Stop->Count == 1; }));
    EXPECT_EQ(form.Ok->Count, 1);
    m_Ui.Run([&] {
        // What is no access key here stays the system's, held or not.
        for (const WPARAM sign : {L'o', L'x'}) {
            MSG message{form.Text.Base.hWnd(), WM_SYSCHAR, sign, 1 << 29 | 1 << 30, 0, {}};
            EXPECT_EQ(Forms::Filter(message), sign == L'o') << sign;
        }
    });
    EXPECT_EQ(form.Ok->Count, 1);
}

// The system menu opens by it.
TEST_F(FormKeys, ABlankBehindAnAmpersandIsNoAccessKey) {
    KeysForm& form = *m_Shown;
    m_Ui.Run([&] {
        form.Other.Base.Caption(u"Save & Other");
        MSG message{form.Text.Base.hWnd(), WM_SYSCHAR, L' ', 1 << 29, 0, {}};
        EXPECT_FALSE(Forms::Filter(message));
    });
    EXPECT_EQ(form.Other.Count, 0);
}

// An ampersand is no key; the controls whose captions have none must not take it.
TEST_F(FormKeys, AltWithAnAmpersandPressesNothing) {
    KeysForm& form = *m_Shown;
    ASSERT_TRUE(FocusComesTo(form.Text.Base));
    m_Ui.Run([&] {
        for (const WPARAM sign : {L'&', L'7', L'\0'}) {
            MSG message{form.Text.Base.hWnd(), WM_SYSCHAR, sign, 1 << 29, 0, {}};
            EXPECT_FALSE(Forms::Filter(message)) << sign;
        }
    });
    gui::Key(VK_MENU, false);
    gui::Key(VK_SHIFT, false);
    gui::Type('7');
    gui::Key(VK_SHIFT, true);
    gui::Key(VK_MENU, true);
    gui::Type('X');
    EXPECT_TRUE(Becomes([&] { return form.Text.Text() == u"x"; })); // the keys before have been dealt with
    EXPECT_EQ(form.Other.Count + form.Ok->Count + form.Stop->Count, 0);
    EXPECT_TRUE(On([&] { return form.Text.Base.HasFocus(); }));
}

TEST_F(FormKeys, DoEventsKnowsTheKeysToo) {
    KeysForm& form = *m_Shown;
    form.Other.Click = [&] {
        for (int i = 0; i < 2000 && form.Ok->Count == 0; ++i) {
            DoEvents();
            Sleep(1);
        }
    };
    gui::Click(gui::CentreOf(form.Other.Base.hWnd()));
    Alt('O');
    EXPECT_TRUE(Becomes([&] { return form.Ok->Count == 1; }));
}

TEST_F(FormKeys, AFailureWhileEventsRunEndsTheRunningFlow) {
    KeysForm& form = *m_Shown;
    m_Ui.Run([&] {
        form.Ok->Click = [] { throw RuntimeFailure(kOverflow, u"Ok"); };
        PostMessageW(form.Ok->Base.hWnd(), WM_LBUTTONUP, 0, 0);
        EXPECT_THROW(DoEvents(), RuntimeFailure);
        EXPECT_TRUE(EventFrame::Ending());
        // From now on no handler runs.
        SendMessageW(form.Other.Base.hWnd(), WM_LBUTTONUP, 0, 0);
        EXPECT_EQ(form.Other.Count, 0);
        MSG message;
        while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
        }
        EventFrame::Forget();
    });
}

TEST_F(FormKeys, AControlMayBeDestroyedByItsOwnEvent) {
    KeysForm& form = *m_Shown;
    m_Ui.Run([&] { form.Ok->Click = [&] { form.Ok.reset(); }; });
    gui::Click(gui::CentreOf(form.Ok->Base.hWnd()));
    EXPECT_TRUE(Becomes([&] { return form.Ok == nullptr; }));
    m_Ui.Run([&] {
        EXPECT_EQ(form.Window.Find(u"Ok"), nullptr);
        EXPECT_EQ(form.Window.DefaultButton, nullptr);
        EXPECT_FALSE(EventFrame::Ending());
        form.Stop->Click = [&] { form.Stop.reset(); };
    });
    gui::Type(VK_ESCAPE);
    EXPECT_TRUE(Becomes([&] { return form.Stop == nullptr; }));
}

} // namespace
