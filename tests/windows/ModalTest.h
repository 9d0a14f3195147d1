// Forms that are shown modally over another.
#pragma once

#include "controls/TavrelButton.h"
#include "controls/TextBox.h"
#include "windows/FormTest.h"

#include <atomic>

namespace gui {

constexpr std::u16string_view kMainLayout =
    u"form\n"
    u"f\t\tfrmMain\tform\t\t\t6000\t4500\tMain\t\t\n"
    u"f\tfrmMain\tGo\tTavrelButton\t150\t150\t1500\t450\tGo\t1\t\n"
    u"f\tfrmMain\tText\ttext\t150\t900\t1500\t360\t\t2\tAccessibleName=Text\n";

struct MainForm {
    Form Window;
    TavrelButton Go;
    TextBox Text;
    int Clicks = 0;
    MainForm() {
        Window.Bind(u"Go", Go).Bind(u"Text", Text).Create(kMainLayout);
        Go.Click = [this] { ++Clicks; };
        Window.Show();
    }
};

constexpr std::u16string_view kAskLayout =
    u"form\n"
    u"f\t\tfrmAsk\tform\t\t\t3000\t1500\tAsk\t\t\n"
    u"f\tfrmAsk\tOk\tTavrelButton\t150\t150\t1500\t450\tOK\t1\tDefault=yes\n";

struct AskForm {
    Form Window;
    TavrelButton Ok;
    AskForm() {
        Window.Bind(u"Ok", Ok).Create(kAskLayout);
        Window.Base.Left(0); // beside the button of the main form
        Ok.Click = [this] { Window.Hide(); };
    }
    HWND hWnd() const { return Window.Base.hWnd(); }
};

class ModalTest : public FormTest<MainForm> {
protected:
    // A form and its show: Back when the call has come back, Failure the number it threw.
    struct Asked {
        std::unique_ptr<AskForm> Form;
        std::atomic<bool> Back = false;
        int Failure = 0;
        AskForm* operator->() const { return Form.get(); }
    };

    void Make(Asked& asked) {
        m_Ui.Run([&] { asked.Form = std::make_unique<AskForm>(); });
    }
    // Begins the show and waits until the form has the keys.
    void Show(Asked& asked, Form* owner) {
        asked.Back = false;
        m_Ui.Post([&asked, owner] {
            try {
                asked->Window.ShowModal(owner);
            } catch (const RuntimeFailure& failure) {
                asked.Failure = failure.Number();
                MSG message; // it has asked all loops to end
                PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
            }
            asked.Back = true;
        });
        ASSERT_TRUE(FocusComesTo(asked->Ok.Base));
    }
    // Waits without posting anything: the loop must end by itself.
    static bool ComesBack(const Asked& asked) {
        return WaitUntil([&] { return asked.Back.load(); });
    }
    void Hide(Asked& asked) {
        m_Ui.Run([&] { asked->Window.Hide(); });
    }
    HWND Main() { return m_Shown->Window.Base.hWnd(); }
    void TearDown() override {
        m_Ui.Run([this] {
            m_Ask.Form.reset();
            m_Other.Form.reset();
        });
        FormTest::TearDown();
    }

    Asked m_Ask, m_Other;
};

} // namespace gui
