// The tips that controls of a form get by their ToolTipText.
#include "controls/Form.h"
#include "controls/Label.h"
#include "windows/Gui.h"

#include <gtest/gtest.h>

#include <commctrl.h>

#include <memory>
#include <vector>

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmTips\tform\t\t\t6000\t4500\tTips\t\t\n"
    u"f\tfrmTips\tBox\tframe\t300\t300\t5000\t3000\t\t\t\n"
    u"f\tBox\tInside\tframe\t300\t300\t4000\t2000\t\t\t\n"
    u"f\tInside\tFirst\tlabel\t300\t300\t900\t600\tOne\t\tToolTipText=The first\n"
    u"f\tInside\tOther\tlabel\t1800\t300\t900\t600\tTwo\t\tToolTipText=The second\n";

std::vector<HWND> Tips() {
    std::vector<HWND> tips;
    for (HWND tip = nullptr; (tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr;) {
        DWORD process = 0;
        GetWindowThreadProcessId(tip, &process);
        if (process == GetCurrentProcessId()) tips.push_back(tip);
    }
    return tips;
}

// The tip on the screen; null where there is none or more than one.
HWND Shown() {
    HWND shown = nullptr;
    for (const HWND tip : Tips()) {
        if (!IsWindowVisible(tip)) continue;
        if (shown) return nullptr;
        shown = tip;
    }
    return shown;
}

std::wstring TextOf(HWND tip) {
    wchar_t text[100] = L"";
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.lpszText = text;
    SendMessageW(tip, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&tool));
    return text;
}

class ControlTips : public testing::Test {
protected:
    struct TipForm {
        Form Window;
        Label First, Other;
        TipForm() { Window.Bind(u"First", First).Bind(u"Other", Other).Create(kLayout); }
    };

    void SetUp() override {
        gui::MoveTo({5, 5});
        m_Ui.Run([this] {
            m_Form = std::make_unique<TipForm>();
            m_Form->Window.Show();
        });
        ASSERT_TRUE(gui::Activate(m_Form->Window.Base.hWnd()));
    }
    void TearDown() override {
        gui::MoveTo({5, 5});
        m_Ui.Run([this] { m_Form.reset(); });
    }
    void Hover(const Label& label) { gui::MoveTo(gui::CentreOf(label.Base.hWnd())); }
    bool Shows(std::wstring_view text) {
        return gui::WaitUntil([&] {
            const HWND tip = Shown();
            return tip && TextOf(tip) == text;
        });
    }

    gui::UiThread m_Ui;
    std::unique_ptr<TipForm> m_Form;
};

TEST_F(ControlTips, ATipIsMadeWhenTheMouseFirstComes) {
    EXPECT_EQ(Tips().size(), 0u);
    Hover(m_Form->First);
    EXPECT_TRUE(Shows(L"The first"));
    EXPECT_EQ(Tips().size(), 1u);
    Hover(m_Form->Other);
    EXPECT_TRUE(Shows(L"The second"));
    EXPECT_EQ(Tips().size(), 2u);
    m_Ui.Run([this] { m_Form->Other.Base.ToolTipText(u""); });
    EXPECT_EQ(Tips().size(), 1u);
    m_Ui.Run([this] { m_Form.reset(); });
    EXPECT_EQ(Tips().size(), 0u);
}

TEST_F(ControlTips, ControlsOfADisabledFrameKeepTheirTips) {
    m_Ui.Run([this] { m_Form->Window.Find(u"Box")->Enabled(false); });
    Hover(m_Form->First);
    EXPECT_TRUE(Shows(L"The first"));
    Hover(m_Form->Other);
    EXPECT_TRUE(Shows(L"The second"));
    m_Ui.Run([this] {
        m_Form->Window.Find(u"Box")->Enabled(true);
        m_Form->Window.Find(u"Inside")->Enabled(false);
    });
    Hover(m_Form->First);
    EXPECT_TRUE(Shows(L"The first"));
}

TEST_F(ControlTips, ATextThatChangesWhileItShowsIsTheNextOne) {
    Hover(m_Form->First);
    ASSERT_TRUE(Shows(L"The first"));
    m_Ui.Run([this] { m_Form->First.Base.ToolTipText(u"Anew"); });
    gui::MoveTo(gui::ToScreen(m_Form->First.Base.hWnd(), 3, 3));
    EXPECT_TRUE(Shows(L"Anew"));
}

// The system's font for tips, in pixels of the form's own resolution.
TEST_F(ControlTips, TheirFontFollowsTheResolutionOfTheForm) {
    Hover(m_Form->First);
    ASSERT_TRUE(Shows(L"The first"));
    const auto height = [] {
        LOGFONTW font{};
        GetObjectW(reinterpret_cast<HFONT>(SendMessageW(Shown(), WM_GETFONT, 0, 0)), sizeof font, &font);
        return -font.lfHeight;
    };
    NONCLIENTMETRICSW system{};
    system.cbSize = sizeof system;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof system, &system, 0);
    const LONG before = height();
    EXPECT_EQ(before, -system.lfStatusFont.lfHeight);
    const int dpi = m_Form->Window.Dpi();
    m_Ui.Run(
        [&] { SendMessageW(m_Form->Window.Base.hWnd(), WM_DPICHANGED, MAKEWPARAM(2 * dpi, 2 * dpi), 0); });
    Hover(m_Form->Other);
    ASSERT_TRUE(Shows(L"The second"));
    EXPECT_NEAR(height(), 2 * before, 1); // one made now
    Hover(m_Form->First);
    ASSERT_TRUE(Shows(L"The first"));
    EXPECT_NEAR(height(), 2 * before, 1); // one made earlier
}

} // namespace
