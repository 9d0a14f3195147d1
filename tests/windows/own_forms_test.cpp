// The forms of the program, each made whole from its own layout: every control is there,
// stands where it may, has a name, and is reached by Tab in the layout's order.
#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "controls/Caption.h"
#include "controls/CheckBox.h"
#include "controls/Dpi.h"
#include "controls/EventFrame.h"
#include "controls/Label.h"
#include "controls/Line.h"
#include "controls/OptionButtonC.h"
#include "controls/Painting.h"
#include "controls/PictureBox.h"
#include "controls/Theme.h"
#include "gallery/LayoutForm.h"
#include "gallery/Sheet.h"
#include "windows/Gui.h"
#include "windows/Pixels.h"
#include "windows/Spoken.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace {

std::string Told(const Control& control, int dpi = 96) {
    return text::ToUtf8(control.Parent()->Base.Name() + u"." + control.FullName() + u" at " +
                        text::Decimal(dpi));
}

// Its place in pixels of its container's inside.
RECT PlaceOf(const Control& control) {
    RECT place;
    GetWindowRect(control.hWnd(), &place);
    MapWindowPoints(nullptr, control.Container()->hWnd(), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

// Lie over others on purpose: the editor of a cell, the border round the whole notice.
bool LiesOverOthers(const Control& control) {
    return control.Name() == u"ListViewFontList" || control.Name() == u"ShapeBorder";
}

class OwnForms : public testing::TestWithParam<const char16_t*> {
protected:
    void SetUp() override {
        m_Ui.Run([&] {
            try {
                m_Form = std::make_unique<gallery::LayoutForm>(LayoutFromResource(GetParam()));
            } catch (const RuntimeFailure& failure) {
                ADD_FAILURE() << text::ToUtf8(failure.Source()) << ": "
                              << text::ToUtf8(failure.Description());
            }
        });
        ASSERT_TRUE(m_Form);
    }
    void TearDown() override {
        m_Ui.Run([&] {
            m_Form.reset();
            EXPECT_FALSE(EventFrame::Ending());
            EventFrame::Forget();
        });
    }
    Form& Shown() { return m_Form->Window; }
    // Runs job with each control that has a window, at each DPI.
    void Each(const std::function<void(Control& control, int dpi)>& job) {
        m_Ui.Run([&] {
            for (const int dpi : {96, 120, 144, 192}) {
                SendMessageW(Shown().Base.hWnd(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), 0);
                for (Control* control : Shown().Controls()) {
                    if (control->hWnd()) job(*control, dpi);
                }
            }
        });
    }

    gui::UiThread m_Ui;
    std::unique_ptr<gallery::LayoutForm> m_Form;
};

TEST_P(OwnForms, EveryRowIsAControl) {
    const auto rows = ParseLayout(LayoutFromResource(GetParam()));
    ASSERT_EQ(Shown().Controls().size(), rows.size() - 1);
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const Control& control = *Shown().Controls()[i - 1];
        EXPECT_EQ(control.Name(), rows[i].Name);
        EXPECT_EQ(control.Index(), rows[i].Index);
        EXPECT_EQ(control.Container()->Name(), rows[i].Container);
        EXPECT_EQ(control.TabIndex(), rows[i].TabIndex);
        EXPECT_EQ(control.hWnd() != nullptr, control.Kind().HasWindow);
        // Only the editor of a cell gets its focus from code alone.
        if (control.Kind().Focusable && control.Name() != u"ListViewFontList") {
            EXPECT_GE(control.TabIndex(), 0) << Told(control);
        }
    }
}

TEST_P(OwnForms, EveryControlLiesInsideItsContainer) {
    Each([](Control& control, int dpi) {
        // Under a caption bar only the monitor's own DPI gives the form its true inside.
        RECT inside{0, 0, ToPixels(control.Parent()->Base.Width(), dpi),
                    ToPixels(control.Parent()->Base.Height(), dpi)};
        if (control.Container() != &control.Parent()->Base)
            GetClientRect(control.Container()->hWnd(), &inside);
        const RECT place = PlaceOf(control);
        EXPECT_GE(place.left, 0) << Told(control, dpi);
        EXPECT_GE(place.top, 0) << Told(control, dpi);
        EXPECT_LE(place.right, inside.right) << Told(control, dpi);
        EXPECT_LE(place.bottom, inside.bottom) << Told(control, dpi);
        if (control.Width() > 0 && !control.As<Line>()) {
            // To a pixel: its edges are rounded.
            EXPECT_NEAR(WidthOf(place), ToPixels(control.Width(), dpi), 1) << Told(control, dpi);
            EXPECT_NEAR(HeightOf(place), ToPixels(control.Height(), dpi), 1) << Told(control, dpi);
        }
    });
}

TEST_P(OwnForms, TheFormHasTheLayoutsSize) {
    m_Ui.Run([&] {
        RECT inside;
        GetClientRect(Shown().Base.hWnd(), &inside);
        EXPECT_EQ(inside.right, ToPixels(Shown().Base.Width(), Shown().Dpi()));
        EXPECT_EQ(inside.bottom, ToPixels(Shown().Base.Height(), Shown().Dpi()));
    });
}

TEST_P(OwnForms, OnlyPanesLieOnOneAnother) {
    Each([](Control& control, int dpi) {
        const RECT place = PlaceOf(control);
        for (const Control* other : control.Parent()->Controls()) {
            if (other == &control || !other->hWnd() || other->Container() != control.Container()) continue;
            if (LiesOverOthers(control) || LiesOverOthers(*other)) continue;
            if (control.Kind().Container && other->Kind().Container) continue; // stacked
            RECT both;
            const RECT beside = PlaceOf(*other);
            EXPECT_FALSE(IntersectRect(&both, &place, &beside)) << Told(control, dpi) << " " << Told(*other);
        }
    });
}

TEST_P(OwnForms, WhatCanBeClickedIsLargeEnough) {
    Each([](Control& control, int dpi) {
        if (!control.Kind().Focusable) return;
        const RECT place = PlaceOf(control);
        EXPECT_GE(WidthOf(place), Scaled(20, dpi)) << Told(control, dpi);
        EXPECT_GE(HeightOf(place), Scaled(20, dpi)) << Told(control, dpi);
    });
}

// Nothing is cut: the design leaves room for every caption.
TEST_P(OwnForms, CaptionsFit) {
    Each([](Control& control, int dpi) {
        const RECT place = PlaceOf(control);
        const HFONT font = control.FontInUse();
        if (control.As<Label>()) {
            RECT needed{0, 0, WidthOf(place), 0};
            const HDC screen = GetDC(nullptr);
            DrawTextIn(screen, font, control.Caption(), needed, 0, DT_WORDBREAK | DT_CALCRECT);
            ReleaseDC(nullptr, screen);
            EXPECT_LE(HeightOf(needed), HeightOf(place)) << Told(control, dpi);
            EXPECT_LE(WidthOf(needed), WidthOf(place)) << Told(control, dpi);
        } else if (control.As<CheckBox>() || control.As<OptionButtonC>()) {
            const int room = WidthOf(place) - Scaled(15, dpi);
            const std::u16string wrapped =
                WrapCaption(control.Caption(), room, [&](std::u16string_view line) {
                    return static_cast<int>(TextSize(font, line).cx);
                });
            const auto lines = text::Split(wrapped, u"\r\n");
            EXPECT_LE(static_cast<int>(lines.size()) * LineHeight(font), HeightOf(place))
                << Told(control, dpi);
            for (const std::u16string_view line : lines)
                EXPECT_LE(TextSize(font, line).cx, room) << Told(control, dpi);
        } else if (control.TypeName() == u"TavrelButton") {
            EXPECT_LE(TextSize(font, WithoutAmpersand(control.Caption())).cx, WidthOf(place))
                << Told(control, dpi);
        }
    });
}

TEST_P(OwnForms, EveryControlHasAName) {
    m_Ui.Run([&] {
        EXPECT_FALSE(gui::Ask(Shown().Base.hWnd()).Name.empty());
        for (const Control* control : Shown().Controls()) {
            const bool told = control->Kind().Focusable || control->TypeName() == u"AdvProgressBar" ||
                              control->Name() == u"pbScrollBox";
            if (!told) continue;
            EXPECT_FALSE(gui::Ask(control->hWnd()).Name.empty()) << Told(*control);
        }
    });
}

// Pane after pane, with real keys.
class OwnFormsKeys : public OwnForms {
protected:
    // Where the focus is, as the name of the control.
    std::u16string Focused() {
        std::u16string name;
        m_Ui.Run([&] {
            const Control* control = Control::Around(GetFocus());
            if (control) name = control->FullName();
        });
        return name;
    }
    // The controls that Tab should come to now, by the layout's numbers.
    std::vector<std::u16string> Expected() {
        std::map<int, std::u16string> order;
        m_Ui.Run([&] {
            for (const Control* control : Shown().Controls()) {
                if (!control->Kind().Focusable || !control->Usable()) continue;
                // Of a group of options none is chosen yet: the first one takes Tab.
                if (control->As<OptionButtonC>() && control->Index() > 0) continue;
                order[control->TabIndex()] = control->FullName();
            }
        });
        std::vector<std::u16string> names;
        for (const auto& [tab, name] : order) names.push_back(name);
        return names;
    }
    // The control as it is drawn now, without a caret.
    gui::Pixels Look(std::u16string_view name) {
        gui::Pixels look;
        m_Ui.Run([&] { look = gui::WindowOf(Shown().Find(name)->hWnd()); });
        return look;
    }
    // 0 to 765; black and white are farthest.
    static int Distance(COLORREF one, COLORREF other) {
        return std::abs(GetRValue(one) - GetRValue(other)) + std::abs(GetGValue(one) - GetGValue(other)) +
               std::abs(GetBValue(one) - GetBValue(other));
    }
    // Each stop looks clearly otherwise while it has the focus: a dotted line or a frame at least.
    void ExpectSigns(const std::string& pane) {
        const std::vector<std::u16string> stops = Expected();
        if (stops.size() < 2) return;
        m_Ui.Run([&] { Shown().Find(stops.back())->SetFocus(); });
        for (std::size_t i = 0; i < stops.size(); ++i) {
            const gui::Pixels before = Look(stops[i]);
            gui::Type(VK_TAB);
            ASSERT_TRUE(gui::WaitUntil([&] { return Focused() == stops[i]; }, 3000)) << pane;
            m_Ui.Settle();
            const gui::Pixels after = Look(stops[i]);
            int differing = 0;
            for (int y = 0; y < after.Height; ++y) {
                for (int x = 0; x < after.Width; ++x)
                    differing += Distance(after.At(x, y), before.At(x, y)) >= 120;
            }
            const int around = after.Width + after.Height; // half of them, where each second is a dot
            EXPECT_GT(differing, around / 4) << pane << ": " << text::ToUtf8(stops[i]);
        }
    }
    void EachPane(const std::function<void(const std::string& pane)>& job) {
        m_Ui.Run([&] { Shown().Show(); });
        ASSERT_TRUE(gui::Activate(Shown().Base.hWnd()));
        job("as it comes");
        for (Control* pane : Shown().Controls()) {
            if (!pane->Kind().Container) continue;
            m_Ui.Run([&] { pane->ZOrder(); });
            job(Told(*pane));
        }
    }
    void ExpectTabs(const std::string& pane) {
        const std::vector<std::u16string> expected = Expected();
        if (expected.empty()) return;
        m_Ui.Run([&] { Shown().Find(expected.back())->SetFocus(); });
        for (const std::u16string& name : expected) {
            gui::Type(VK_TAB);
            ASSERT_TRUE(gui::WaitUntil([&] { return Focused() == name; }, 3000))
                << pane << ": " << text::ToUtf8(name) << ", not " << text::ToUtf8(Focused());
        }
    }
};

TEST_P(OwnFormsKeys, TabGoesByTheLayoutsNumbers) {
    EachPane([this](const std::string& pane) { ExpectTabs(pane); });
}

TEST_P(OwnFormsKeys, ArrowsReachEveryOption) {
    EachPane([this](const std::string& pane) {
        std::vector<std::u16string> options;
        m_Ui.Run([&] {
            for (const Control* control : Shown().Controls()) {
                if (control->As<OptionButtonC>() && control->Usable()) options.push_back(control->FullName());
            }
            if (!options.empty()) Shown().Find(options.front())->SetFocus();
        });
        for (const std::u16string& name : options) {
            EXPECT_TRUE(gui::WaitUntil([&] { return Focused() == name; }, 3000))
                << pane << ": " << text::ToUtf8(name) << ", not " << text::ToUtf8(Focused());
            gui::Type(VK_DOWN);
        }
    });
}

TEST_P(OwnFormsKeys, EveryStopShowsTheFocus) {
    EachPane([this](const std::string& pane) { ExpectSigns(pane); });
}

TEST_P(OwnFormsKeys, EveryStopShowsTheFocusUnderHighContrast) {
    const auto use = [this](bool on) {
        m_Ui.Run([&] {
            Theme::ReplaceHighContrast(on ? [] { return true; } : [] { return false; });
            gallery::UseContrastTheme(on);
            SendMessageW(Shown().Base.hWnd(), WM_SYSCOLORCHANGE, 0, 0);
            SendMessageW(Shown().Base.hWnd(), WM_SETTINGCHANGE, SPI_SETHIGHCONTRAST, 0);
        });
    };
    use(true);
    EachPane([this](const std::string& pane) { ExpectSigns(pane); });
    use(false);
}

constexpr const char16_t* kForms[] = {u"frmMain",  u"frm2nd",     u"frmFirstSetting", u"frmOption",
                                      u"frmAbout", u"frmLoading", u"frmDataPassword"};
std::string NameOf(const testing::TestParamInfo<const char16_t*>& info) {
    return text::ToUtf8(info.param);
}
INSTANTIATE_TEST_SUITE_P(All, OwnForms, testing::ValuesIn(kForms), NameOf);
INSTANTIATE_TEST_SUITE_P(All, OwnFormsKeys, testing::ValuesIn(kForms), NameOf);

} // namespace
