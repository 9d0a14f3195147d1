// A test with a form of its own on a thread of its own, driven from outside as by a user.
#pragma once

#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "controls/Dpi.h"
#include "controls/EventFrame.h"
#include "controls/Form.h"
#include "controls/Theme.h"
#include "windows/Gui.h"
#include "windows/Spoken.h"

#include <gtest/gtest.h>

#include <memory>

namespace gui {

// Shown is a struct that holds a Form named Window and its controls, and creates and shows
// it in its constructor.
template <class Shown>
class FormTest : public testing::Test {
protected:
    void SetUp() override {
        try {
            m_Ui.Run([this] { m_Shown = std::make_unique<Shown>(); });
        } catch (const RuntimeFailure& failure) {
            FAIL() << text::ToUtf8(failure.Source()) << ": " << text::ToUtf8(failure.Description());
        }
        ASSERT_TRUE(Activate(m_Shown->Window.Base.hWnd()));
    }
    void TearDown() override {
        m_Ui.Run([this] {
            m_Shown.reset();
            EventFrame::Forget();
            Theme::ReplaceHighContrast(nullptr);
        });
        MoveTo({5, 5});
    }

    // What ask answers on the thread of the windows.
    template <class Ask>
    auto On(Ask ask) {
        decltype(ask()) answer{};
        m_Ui.Run([&] { answer = ask(); });
        return answer;
    }
    bool Becomes(const std::function<bool()>& ready) {
        return WaitUntil([&] { return On(ready); });
    }
    bool FocusComesTo(const Control& control) {
        return Becomes([&] { return control.HasFocus(); });
    }

    // Pixels of the form for pixels of 96 DPI: the session may have any DPI.
    int Px(int pixels96) { return Scaled(pixels96, m_Shown->Window.Dpi()); }
    int Hair() { return HairLine(m_Shown->Window.Dpi()); }

    // Sets the form's DPI, as the system does when it comes to another monitor.
    void SetDpi(int dpi) {
        m_Ui.Run([&] {
            RECT place;
            GetWindowRect(m_Shown->Window.Base.hWnd(), &place);
            SendMessageW(m_Shown->Window.Base.hWnd(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi),
                         reinterpret_cast<LPARAM>(&place));
        });
    }
    // Switches high contrast on or off, as far as the form can see.
    void SetHighContrast(bool on) {
        m_Ui.Run([&] {
            Theme::ReplaceHighContrast(on ? [] { return true; } : [] { return false; });
            SendMessageW(m_Shown->Window.Base.hWnd(), WM_SETTINGCHANGE, SPI_SETHIGHCONTRAST, 0);
        });
    }
    Spoken Said(const Control& control, int child = 0) {
        return On([&] { return Ask(control.hWnd(), child); });
    }

    UiThread m_Ui;
    std::unique_ptr<Shown> m_Shown;
};

} // namespace gui
