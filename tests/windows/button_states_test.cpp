// Real input brings about what DrawTavrelButton draws; shape, repaints, flicker.
#include "windows/ButtonForm.h"
#include "windows/Looks.h"

namespace {

using gui::RedSquare;

constexpr COLORREF kMagenta = RGB(255, 0, 255); // the ground of gui::Drawn

gui::Pixels Draw(int width, int height, const TavrelButtonState& state, COLORREF ground) {
    return gui::Drawn(
        width, height,
        [&](HDC dc) {
            DrawTavrelButton(dc, {0, 0, width, height}, state);
        },
        ground);
}

class ButtonStates : public gui::ButtonTest {
protected:
    // Compares the button with the look in that state; want changes the idle one.
    void ExpectLook(TavrelButton& button, const std::function<void(TavrelButtonState&)>& want,
                    const char* what) {
        m_Ui.Run([&] {
            TavrelButtonState state = button.State();
            state.Hovering = state.Pressed = state.Focused = false;
            state.Enabled = true;
            want(state);
            const gui::Pixels shown = gui::ClientOf(button.Base.hWnd());
            EXPECT_TRUE(shown == Draw(shown.Width, shown.Height, state, palette::FrameTop)) << what;
        });
    }
    void EveryState(TavrelButton& button, const char* name) {
        m_Ui.Run([&] { m_Shown->Text.Base.SetFocus(); });
        ExpectLook(
            button, [](TavrelButtonState&) {}, name);
        Enter(button);
        ExpectLook(
            button, [](TavrelButtonState& s) { s.Hovering = true; }, name);
        gui::Press(MOUSEEVENTF_LEFTDOWN);
        ASSERT_TRUE(Becomes([&] { return button.State().Pressed; }));
        ExpectLook(
            button, [](TavrelButtonState& s) { s.Hovering = s.Pressed = s.Focused = true; }, name);
        Leave(button);
        ExpectLook(
            button, [](TavrelButtonState& s) { s.Focused = true; }, name);
        gui::Press(MOUSEEVENTF_LEFTUP);
        m_Ui.Settle();
        gui::Key(VK_SPACE, false);
        ASSERT_TRUE(Becomes([&] { return button.State().Pressed; }));
        ExpectLook(
            button, [](TavrelButtonState& s) { s.Hovering = s.Pressed = s.Focused = true; }, name);
        gui::Key(VK_SPACE, true);
        ASSERT_TRUE(Becomes([&] { return !button.State().Pressed; }));
        ExpectLook(
            button, [](TavrelButtonState& s) { s.Focused = true; }, name);
        m_Ui.Run([&] { button.Base.Enabled(false); });
        ExpectLook(
            button, [](TavrelButtonState& s) { s.Enabled = false; }, name);
        m_Ui.Run([&] { button.Base.Enabled(true); });
    }
    void EveryButton(const char* when) {
        SCOPED_TRACE(when);
        EveryState(*m_Shown->Back, "Back");
        EveryState(m_Shown->Main, "Main");
        EveryState(m_Shown->Tools, "Tools");
        EveryState(m_Shown->Closer, "Closer");
        EveryState(m_Shown->More, "More");
        EveryState(m_Shown->Plain, "Plain");
    }
};

TEST_F(ButtonStates, BringsAboutEachLook) {
    EveryButton("96 DPI");
}

TEST_F(ButtonStates, BringsAboutEachLookAtOtherScales) {
    for (const int dpi : {120, 144, 192}) {
        SetDpi(dpi);
        EveryState(*m_Shown->Back, "Back");
        EveryState(m_Shown->Tools, "Tools");
    }
}

TEST_F(ButtonStates, BringsAboutEachLookInHighContrast) {
    SetHighContrast(true);
    m_Ui.Run([&] { m_Shown->Text.Base.SetFocus(); });
    const COLORREF ground = GetSysColor(COLOR_WINDOW);
    const auto same = [&](TavrelButton& button) {
        return On([&] {
            const gui::Pixels shown = gui::ClientOf(button.Base.hWnd());
            return shown == Draw(shown.Width, shown.Height, button.State(), ground);
        });
    };
    for (TavrelButton* button : {m_Shown->Back.get(), &m_Shown->Tools, &m_Shown->More}) {
        EXPECT_TRUE(same(*button));
        Enter(*button);
        EXPECT_TRUE(same(*button));
        gui::Press(MOUSEEVENTF_LEFTDOWN);
        ASSERT_TRUE(Becomes([&] { return button->State().Pressed; }));
        EXPECT_TRUE(same(*button));
        gui::Press(MOUSEEVENTF_LEFTUP);
        Leave(*button);
    }
}

TEST_F(ButtonStates, AHoveredButtonFollowsDpiAndContrast) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] {
        m_Shown->Record(back);
        m_Shown->Text.Base.SetFocus();
    });
    const auto hovered = [](TavrelButtonState& state) { state.Hovering = true; };
    Enter(back);
    SetDpi(144); // the mouse is over it still
    m_Ui.Settle();
    ExpectLook(back, hovered, "144 DPI");
    SetHighContrast(true);
    EXPECT_TRUE(On([&] { return back.State().Hovering; }));
    SetHighContrast(false);
    SetDpi(96);
    ExpectLook(back, hovered, "96 DPI");
    Leave(back);
    const gui::Events log = Log();
    EXPECT_EQ(std::count(log.begin(), log.end(), "MouseIn"), 1);
    EXPECT_EQ(std::count(log.begin(), log.end(), "MouseOut"), 1);
}

TEST_F(ButtonStates, TheHoverEndsWhenTheFormIsHidden) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] { m_Shown->Record(back); });
    Enter(back);
    m_Ui.Run([&] { m_Shown->Window.Hide(); });
    EXPECT_TRUE(Logged("MouseOut"));
    EXPECT_FALSE(On([&] { return back.State().Hovering; }));
}

// Alt and what is typed with it, and F10: told like other keys, and left to the system.
TEST_F(ButtonStates, KeysOfTheSystemAreToldToo) {
    TavrelButton& back = *m_Shown->Back;
    m_Ui.Run([&] {
        m_Shown->Record(back);
        back.Base.SetFocus();
    });
    ASSERT_TRUE(FocusComesTo(back.Base));
    ClearLog();
    gui::Key(VK_MENU, false);
    gui::Type('Q');
    gui::Key(VK_MENU, true);
    const gui::Events log = LogOf(4);
    EXPECT_EQ(log, (gui::Events{"KeyDown 18", "KeyDown 81", "KeyUp 81", "KeyUp 18"}));
    EXPECT_FALSE(On([&] { return back.State().Pressed; }));
}

TEST_F(ButtonStates, AllStatesDifferToTheEye) {
    for (TavrelButton* button : {m_Shown->Back.get(), &m_Shown->Main, &m_Shown->Tools, &m_Shown->Closer}) {
        m_Ui.Run([&] {
            std::vector<gui::Pixels> looks;
            for (int which = 0; which < 5; ++which) {
                TavrelButtonState state = button->State();
                state.Hovering = which == 1;
                state.Pressed = which == 2;
                state.Focused = which == 3;
                state.Enabled = which != 4;
                looks.push_back(Draw(100, 40, state, palette::FrameTop));
            }
            for (std::size_t i = 0; i < looks.size(); ++i) {
                for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(looks[i] == looks[j]) << i << " " << j;
            }
        });
    }
}

TEST_F(ButtonStates, TheStyle3WindowHasItsCornersCut) {
    const HWND window = m_Shown->Back->Base.hWnd();
    const auto shape = [&] {
        return On([&] {
            const HRGN region = CreateRectRgn(0, 0, 0, 0);
            const bool shaped = GetWindowRgn(window, region) != ERROR;
            std::vector<RECT> rows;
            if (shaped) {
                std::vector<char> block(GetRegionData(region, 0, nullptr));
                auto* data = reinterpret_cast<RGNDATA*>(block.data());
                GetRegionData(region, static_cast<DWORD>(block.size()), data);
                const auto* first = reinterpret_cast<const RECT*>(data->Buffer);
                rows.assign(first, first + data->rdh.nCount);
            }
            DeleteObject(region);
            return rows;
        });
    };
    // Each row cut on both sides by 2 and 1 pixels of 96 DPI.
    const auto expect = [&](int wide, int high) {
        m_Ui.Run([&] { m_Shown->Back->Base.Move(150, 150, wide, high); });
        const RECT place = ToPixels(150, 150, wide, high, m_Shown->Window.Dpi());
        const LONG width = WidthOf(place), height = HeightOf(place), one = Px(1), two = Px(2);
        const RECT wanted[] = {{two, 0, width - two, one},
                               {one, one, width - one, two},
                               {0, two, width, height - two},
                               {one, height - two, width - one, height - one},
                               {two, height - one, width - two, height}};
        const std::vector<RECT> rows = shape();
        ASSERT_EQ(rows.size(), std::size(wanted));
        for (std::size_t i = 0; i < rows.size(); ++i)
            EXPECT_TRUE(EqualRect(&rows[i], &wanted[i])) << i << " of " << width;
    };
    for (const int dpi : {m_Shown->Window.Dpi(), 96, 192}) {
        SetDpi(dpi);
        expect(1500, 450);
        expect(750, 300); // rebuilt on each resize
    }
    m_Ui.Run([&] { m_Shown->Back->ButtonStyle(kStyleFlat); });
    EXPECT_TRUE(shape().empty());
    m_Ui.Run([&] { m_Shown->Back->ButtonStyle(kStyleXP); });
    EXPECT_EQ(shape().size(), 5u);
    // The mouse falls through the corner.
    const HWND form = m_Shown->Window.Base.hWnd();
    EXPECT_EQ(On([&] { return WindowFromPoint(gui::ToScreen(window, 0, 0)); }), form);
    EXPECT_EQ(On([&] { return WindowFromPoint(gui::ToScreen(window, 4, 4)); }), window);
}

TEST_F(ButtonStates, APrimaryButtonIsNeutralWhileDisabled) {
    m_Ui.Run([&] {
        TavrelButton& main = m_Shown->Main;
        EXPECT_EQ(main.BackColor(), palette::PrimaryBack);
        EXPECT_EQ(main.ForeColor(), RGB(255, 255, 255));
        EXPECT_EQ(main.XPColor_Hover(), palette::HoverPrimary);
        EXPECT_EQ(main.XPColor_Pressed(), palette::FocusPrimary);
        EXPECT_EQ(main.Base.Font(), StrongFont());
        main.Base.Enabled(false);
        EXPECT_EQ(main.BackColor(), palette::NeutralBack);
        main.Base.Enabled(true);
        EXPECT_EQ(main.BackColor(), palette::PrimaryBack);
        main.Primary(false);
        EXPECT_EQ(main.BackColor(), palette::NeutralBack);
        EXPECT_EQ(main.Base.Font(), UiFont());
    });
}

// Each property is seen.
TEST_F(ButtonStates, SettingAPropertyRepaintsWithIt) {
    TavrelButton& plain = m_Shown->Plain;
    const auto changes = [&](const char* name, const std::function<void()>& set) {
        m_Ui.Run([&] {
            const gui::Pixels before = gui::ClientOf(plain.Base.hWnd());
            UpdateWindow(plain.Base.hWnd());
            EXPECT_FALSE(GetUpdateRect(plain.Base.hWnd(), nullptr, FALSE)) << name;
            set();
            EXPECT_TRUE(GetUpdateRect(plain.Base.hWnd(), nullptr, FALSE)) << name;
            EXPECT_FALSE(gui::ClientOf(plain.Base.hWnd()) == before) << name;
        });
    };
    changes("BackColor", [&] { plain.BackColor(RGB(100, 150, 200)); });
    changes("ForeColor", [&] { plain.ForeColor(RGB(200, 0, 0)); });
    changes("Caption", [&] { plain.Caption(u"Other"); });
    changes("Font", [&] { plain.Base.Font({u"Tahoma", 12, true, false}); });
    changes("absent font", [&] { plain.Base.Font({u"No Such Face", 7, false, false}); });
    changes("Picture", [&] { plain.Picture(RedSquare(20)); });
    changes("PicturePosition", [&] { plain.PicturePosition(kPictureRight); });
    changes("PictureWidth", [&] { plain.PictureWidth(5); });
    changes("PictureHeight", [&] { plain.PictureHeight(5); });
    changes("PictureSize as loaded", [&] { plain.PictureSize(kSizeAsLoaded); });
    changes("PictureSize large", [&] { plain.PictureSize(kSizeLarge); });
    changes("PictureSize small", [&] { plain.PictureSize(kSizeSmall); });
    m_Ui.Run([&] { plain.Base.SetFocus(); });
    changes("XPDefaultColors", [&] { plain.XPDefaultColors(false); });
    changes("XPColor_Pressed", [&] { plain.XPColor_Pressed(RGB(1, 2, 3)); });
    changes("ButtonStyle", [&] { plain.ButtonStyle(kStyleFlat); });
    changes("ShowFocusRect", [&] { plain.ShowFocusRect(false); });
    changes("TransparentBG", [&] { plain.TransparentBG(true); });
    m_Ui.Run([&] {
        m_Shown->Text.Base.SetFocus();
        plain.ButtonStyle(kStyleXP);
    });
    Enter(plain);
    changes("XPColor_Hover", [&] { plain.XPColor_Hover(RGB(1, 2, 3)); });
}

TEST_F(ButtonStates, PaintsOnceForEachChangeAndNeverOnErase) {
    TavrelButton& back = *m_Shown->Back;
    Enter(m_Shown->Main);
    m_Ui.Run([&] {
        RedrawWindow(m_Shown->Window.Base.hWnd(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        const gui::Pixels erased = gui::Drawn(20, 20, [&](HDC dc) {
            EXPECT_NE(SendMessageW(back.Base.hWnd(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 0);
        });
        EXPECT_EQ(erased.Count(kMagenta), 400);
    });
    const PaintTally before = On([] { return PaintsSoFar(); });
    Enter(back);
    for (int x = 10; x < 60; ++x) gui::MoveTo(gui::ToScreen(back.Base.hWnd(), x, 10));
    m_Ui.Settle();
    ASSERT_TRUE(Becomes([&] { return !m_Shown->Main.State().Hovering; })); // by its timer
    const PaintTally after = On([] { return PaintsSoFar(); });
    // One button is left, the other entered; moves inside paint nothing.
    EXPECT_EQ(after.Paints - before.Paints, 2);
    EXPECT_EQ(after.Blits - before.Blits, 2);
}

} // namespace
