// Controls and forms that are destroyed inside their own events, at once or while a handler
// lets pending events run.
#include "base/DoEvents.h"
#include "windows/EveryForm.h"

namespace {

class Destroyed : public gui::FormTest<gui::EveryForm> {
protected:
    using Wire = std::function<void(gui::EveryForm&)>;
    using Cause = std::function<void(gui::EveryForm&)>;

    // A fresh form, what cause does to it from outside, and a wait until gone.
    void GoesBy(const char* name, const Wire& wire, const Cause& cause, const std::function<bool()>& gone) {
        SCOPED_TRACE(name);
        gui::MoveTo({1, 1});
        m_Ui.Run([&] {
            m_Shown.reset();
            m_Shown = std::make_unique<gui::EveryForm>();
            wire(*m_Shown);
        });
        ASSERT_TRUE(gui::Activate(m_Shown->Window.Base.hWnd()));
        cause(*m_Shown);
        EXPECT_TRUE(Becomes(gone));
        m_Ui.Settle();
        EXPECT_FALSE(On([] { return EventFrame::Ending(); }));
    }
    void Focus(Control& control) {
        m_Ui.Run([&] { control.SetFocus(); });
        ASSERT_TRUE(FocusComesTo(control));
    }
    static void ClickOn(const Control& control) { gui::Click(gui::CentreOf(control.hWnd())); }

    // The ways in which a user brings a handler about.
    const Cause m_Type = [this](gui::EveryForm& form) {
        Focus(form.Text->Base);
        gui::Type('X');
    };
    const Cause m_Erase = [this](gui::EveryForm& form) {
        m_Ui.Run([&] {
            const auto change = std::exchange(form.Text->Change, nullptr);
            form.Text->Text(u"x");
            form.Text->SelStart(1);
            form.Text->Change = change;
        });
        Focus(form.Text->Base);
        gui::Type(VK_BACK);
    };
    // A message of the system to a text that is selected as a whole.
    Cause Changes(UINT message) {
        return [this, message](gui::EveryForm& form) {
            m_Ui.Run([&] {
                const HWND box = form.Text->Base.hWnd();
                const auto change = std::exchange(form.Text->Change, nullptr);
                form.Text->Text(u"abc");
                SendMessageW(box, EM_SETSEL, 0, -1);
                SendMessageW(box, WM_COPY, 0, 0); // for WM_PASTE
                form.Text->Change = change;
                const bool text = message == EM_REPLACESEL || message == WM_SETTEXT;
                SendMessageW(box, message, TRUE, text ? reinterpret_cast<LPARAM>(L"new") : 0);
            });
        };
    }
    const Cause m_ChooseByKey = [this](gui::EveryForm& form) {
        Focus(form.Choice->Base);
        gui::Type(VK_DOWN);
    };
    const Cause m_ChooseFromTheList = [this](gui::EveryForm& form) {
        Focus(form.Choice->Base);
        gui::Type(VK_F4);
        ASSERT_TRUE(
            Becomes([&] { return SendMessageW(form.Choice->Base.hWnd(), CB_GETDROPPEDSTATE, 0, 0) != 0; }));
        gui::Type(VK_DOWN);
        gui::Type(VK_RETURN);
    };
    const Cause m_ChooseByMouse = [this](gui::EveryForm& form) {
        const HWND combo = form.Choice->Base.hWnd();
        ClickOn(form.Choice->Base);
        ASSERT_TRUE(Becomes([&] { return SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) != 0; }));
        COMBOBOXINFO about{};
        about.cbSize = sizeof about;
        m_Ui.Run([&] { GetComboBoxInfo(combo, &about); });
        gui::Click(gui::ToScreen(about.hwndList, Px(20), Px(10)));
    };
    const Cause m_PressTitle = [](gui::EveryForm& form) { ClickOn(form.Title->Base); };
    const Cause m_PressImage = [](gui::EveryForm& form) { ClickOn(form.Image->Base); };
    const Cause m_LetTick = [this](gui::EveryForm& form) { m_Ui.Run([&] { form.Clock->Enabled(true); }); };
    const Cause m_PressForm = [this](gui::EveryForm& form) {
        gui::Click(gui::ToScreen(form.Window.Base.hWnd(), Px(590), Px(390)));
    };
    const Cause m_Widen = [this](gui::EveryForm& form) { m_Ui.Run([&] { form.Window.Base.Width(8000); }); };
    const Cause m_Close = [](gui::EveryForm& form) { SendMessageW(form.Window.Base.hWnd(), WM_CLOSE, 0, 0); };
    const Cause m_Scale = [this](gui::EveryForm& form) { SetDpi(form.Window.Dpi() * 3 / 2); };
    const Cause m_PressGo = [](gui::EveryForm& form) { ClickOn(form.Go->Base); };
    const Cause m_ChooseRow = [this](gui::EveryForm& form) {
        Focus(form.Rows.Base);
        gui::Type(VK_DOWN);
    };
};

TEST_F(Destroyed, AControlByItsOwnEvent) {
    const auto text = [this] { return !m_Shown->Text; };
    const auto choice = [this] { return !m_Shown->Choice; };
    const auto dropText = [](gui::EveryForm& form) { form.Text->Change = [&form] { form.Text.reset(); }; };
    const auto dropChoice = [](gui::EveryForm& form) {
        form.Choice->Click = [&form] { form.Choice.reset(); };
    };
    GoesBy("a text that is typed", dropText, m_Type, text);
    GoesBy("a text that is erased", dropText, m_Erase, text);
    for (const auto& [name, message] : {std::pair{"a text that is pasted", WM_PASTE},
                                        {"a text that is cut", WM_CUT},
                                        {"a text that is cleared", WM_CLEAR},
                                        {"a text that is replaced", EM_REPLACESEL},
                                        {"a text that is set", WM_SETTEXT}})
        GoesBy(name, dropText, Changes(static_cast<UINT>(message)), text);
    GoesBy("a combo by a key", dropChoice, m_ChooseByKey, choice);
    GoesBy("a combo by a key in its list", dropChoice, m_ChooseFromTheList, choice);
    GoesBy("a combo by the mouse", dropChoice, m_ChooseByMouse, choice);
    GoesBy(
        "a label",
        [](gui::EveryForm& form) { form.Title->MouseDown = [&form](auto&&...) { form.Title.reset(); }; },
        m_PressTitle, [this] { return !m_Shown->Title; });
    GoesBy(
        "a picture box",
        [](gui::EveryForm& form) { form.Image->MouseDown = [&form](auto&&...) { form.Image.reset(); }; },
        m_PressImage, [this] { return !m_Shown->Image; });
    GoesBy(
        "a timer", [](gui::EveryForm& form) { form.Clock->Tick = [&form] { form.Clock.reset(); }; },
        m_LetTick, [this] { return !m_Shown->Clock; });
}

// Esc and access keys go to the window with the focus: one that is gone would keep them.
TEST_F(Destroyed, TheOnlyOneForTheFocusLeavesItToTheForm) {
    const HWND form = m_Shown->Window.Base.hWnd();
    m_Ui.Run([&] {
        for (Control* control : m_Shown->Window.Controls())
            control->Enabled(control == &m_Shown->Go->Base || control->Kind().Container);
    });
    Focus(m_Shown->Go->Base);
    m_Ui.Run([&] {
        m_Shown->Go.reset();
        EXPECT_EQ(GetFocus(), form);
    });
    EXPECT_TRUE(Becomes([&] { return GetFocus() == form; }));
}

TEST_F(Destroyed, AFormByItsOwnEvent) {
    const auto gone = [this] { return !m_Shown; };
    const auto drop = [this](auto&&...) { m_Shown.reset(); };
    GoesBy(
        "MouseDown", [&](gui::EveryForm& form) { form.Window.MouseDown = drop; }, m_PressForm, gone);
    GoesBy(
        "Resize", [&](gui::EveryForm& form) { form.Window.Resize = drop; }, m_Widen, gone);
    GoesBy(
        "Resize by DPI", [&](gui::EveryForm& form) { form.Window.Resize = drop; }, m_Scale, gone);
    GoesBy(
        "DpiChanged", [&](gui::EveryForm& form) { form.Window.DpiChanged = drop; }, m_Scale, gone);
    GoesBy(
        "Closing", [&](gui::EveryForm& form) { form.Window.Closing = drop; }, m_Close, gone);
}

TEST_F(Destroyed, AFormUnloadedByItsOwnEvent) {
    const auto gone = [this] { return !m_Shown->Window.Base.hWnd(); };
    const auto drop = [this](auto&&...) { m_Shown->Window.Unload(); };
    GoesBy(
        "MouseDown", [&](gui::EveryForm& form) { form.Window.MouseDown = drop; }, m_PressForm, gone);
    GoesBy(
        "Resize", [&](gui::EveryForm& form) { form.Window.Resize = drop; }, m_Widen, gone);
    GoesBy(
        "Resize by DPI", [&](gui::EveryForm& form) { form.Window.Resize = drop; }, m_Scale, gone);
    GoesBy(
        "DpiChanged", [&](gui::EveryForm& form) { form.Window.DpiChanged = drop; }, m_Scale, gone);
    GoesBy(
        "Closing", [&](gui::EveryForm& form) { form.Window.Closing = drop; }, m_Close, gone);
}

// The form goes by another event while the handler waits; behind it, the handler ends.
TEST_F(Destroyed, AFormWhileItsHandlerWaits) {
    bool ended = false;
    const auto gone = [&] { return !m_Shown && ended; };
    const auto wait = [&](auto&&...) {
        m_Ui.Post([this] { m_Shown.reset(); });
        for (int i = 0; i < 10'000 && m_Shown; ++i) {
            DoEvents();
            Sleep(1);
        }
        ended = true;
    };
    const struct {
        const char* Name;
        Wire Connect;
        const Cause& By;
    } cases[] = {
        {"Click of a button", [&](gui::EveryForm& form) { form.Go->Click = wait; }, m_PressGo},
        {"MouseIn", [&](gui::EveryForm& form) { form.Go->MouseIn = wait; }, m_PressGo},
        {"MouseDown of a button", [&](gui::EveryForm& form) { form.Go->MouseDown = wait; }, m_PressGo},
        {"Change", [&](gui::EveryForm& form) { form.Text->Change = wait; }, m_Type},
        {"Click of a combo", [&](gui::EveryForm& form) { form.Choice->Click = wait; }, m_ChooseByKey},
        {"Click of a combo's list", [&](gui::EveryForm& form) { form.Choice->Click = wait; },
         m_ChooseByMouse},
        {"SelChange", [&](gui::EveryForm& form) { form.Rows.SelChange = wait; }, m_ChooseRow},
        {"MouseDown of a label", [&](gui::EveryForm& form) { form.Title->MouseDown = wait; }, m_PressTitle},
        {"Tick", [&](gui::EveryForm& form) { form.Clock->Tick = wait; }, m_LetTick},
        {"MouseDown of the form", [&](gui::EveryForm& form) { form.Window.MouseDown = wait; }, m_PressForm},
        {"Resize", [&](gui::EveryForm& form) { form.Window.Resize = wait; }, m_Widen},
        {"DpiChanged", [&](gui::EveryForm& form) { form.Window.DpiChanged = wait; }, m_Scale},
        {"Closing", [&](gui::EveryForm& form) { form.Window.Closing = wait; }, m_Close},
    };
    for (const auto& tried : cases) {
        ended = false;
        GoesBy(tried.Name, tried.Connect, tried.By, gone);
    }
}

TEST_F(Destroyed, ASecondPressWhileTheHandlerWaitsComesInBetween) {
    int begun = 0, ended = 0;
    m_Ui.Run([&] {
        m_Shown->Go->Click = [&] {
            const bool first = ++begun == 1;
            for (int i = 0; first && i < 10'000 && ended == 0; ++i) {
                DoEvents();
                Sleep(1);
            }
            ++ended;
        };
    });
    ClickOn(m_Shown->Go->Base);
    ASSERT_TRUE(Becomes([&] { return begun == 1; }));
    ClickOn(m_Shown->Go->Base);
    EXPECT_TRUE(Becomes([&] { return ended == 2; }));
    EXPECT_FALSE(On([&] { return m_Shown->Go->State().Pressed; }));
}

} // namespace
