// The skin of the combos: each state by real input has the pixels of DrawCombo.
#include "controls/ComboBox.h"
#include "controls/Dpi.h"
#include "controls/FontCombo.h"
#include "controls/MSubclass.h"
#include "controls/Painting.h"
#include "controls/TextBox.h"
#include "controls/modXPCombo.h"
#include "windows/FormTest.h"
#include "windows/Pixels.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmSkins\tform\t\t\t6000\t6000\tSkins\t\t\n"
    u"f\tfrmSkins\tOther\ttext\t150\t150\t2250\t360\t\t1\tAccessibleName=Other\n"
    u"f\tfrmSkins\tPlain\tcombo\t150\t900\t1650\t360\t\t2\tAccessibleName=Plain\n"
    u"f\tfrmSkins\tFonts\tfontcombo\t150\t1650\t3000\t360\t\t3\tAccessibleName=Fonts\n"
    u"f\tfrmSkins\tCell\toverlay\t150\t2400\t2985\t300\t\t4\tAccessibleName=Cell\n";

struct SkinsForm {
    Form Window;
    TextBox Other;
    ComboBox Plain;
    FontCombo Fonts, Cell;
    cXPCombo SkinOfPlain, SkinOfFonts, SkinOfCell;
    SkinsForm() {
        Window.Bind(u"Other", Other).Bind(u"Plain", Plain).Bind(u"Fonts", Fonts).Bind(u"Cell", Cell);
        Window.Create(kLayout);
        for (const char16_t* text : {u"Bijoy", u"Another"}) Plain.AddItem(text);
        Plain.ListIndex(0);
        Fonts.AddItem(u"Tahoma", {u"Tahoma", 12, false, false});
        Fonts.Text(u"SutonnyMJ");
        modXPCombo::ApplySkin(SkinOfPlain, Plain.Base);
        modXPCombo::ApplySkin(SkinOfFonts, Fonts.Base);
        modXPCombo::ApplySkin(SkinOfCell, Cell.Base);
        Window.Show();
        Other.Base.SetFocus();
    }
};

class Skins : public gui::FormTest<SkinsForm> {
protected:
    // The field of the arrow, without the frame and the line in front of it.
    RECT ArrowField() {
        const RECT inside = Inset({0, 0, WidthOf(Place()), HeightOf(Place())}, Hair());
        return {inside.right - Px(17), inside.top, inside.right, inside.bottom};
    }
    RECT Place() { return ToPixels(150, 900, 1650, 360, m_Shown->Window.Dpi()); }
    // Of an arrow nine pixels wide at its top, one at its tip.
    int ArrowPixels() {
        int sum = 0;
        for (int row = 0; row < Px(5); ++row) sum += 2 * row + 1;
        return sum;
    }
    HWND Combo() { return m_Shown->Plain.Base.hWnd(); }
    gui::Pixels Shown() {
        return On([&] { return gui::ClientOf(Combo()); });
    }
    gui::Pixels Drawn(ComboState state) {
        return On([&] {
            const std::u16string text = m_Shown->Plain.Text();
            state.Text = text;
            state.Font = m_Shown->Plain.Base.FontInUse();
            state.Dpi = m_Shown->Window.Dpi();
            RECT client;
            GetClientRect(Combo(), &client);
            return gui::Drawn(client.right, client.bottom, [&](HDC dc) { DrawCombo(dc, client, state); });
        });
    }
    void Hover() {
        gui::MoveTo(gui::CentreOf(Combo()));
        EXPECT_TRUE(gui::WaitUntil([&] { return Shown() == Drawn({.Hot = true}); }));
    }
};

TEST_F(Skins, EachStateByInputIsAsDrawn) {
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        m_Ui.Run([&] { m_Shown->Other.Base.SetFocus(); });
        gui::MoveTo({5, 5});
        EXPECT_TRUE(gui::WaitUntil([&] { return Shown() == Drawn({}); })) << dpi;
        Hover();
        gui::MoveTo({5, 5}); // the timer sees it leave
        EXPECT_TRUE(gui::WaitUntil([&] { return Shown() == Drawn({}); })) << dpi;
        m_Ui.Run([&] { m_Shown->Plain.Base.SetFocus(); });
        EXPECT_TRUE(Shown() == Drawn({.Focused = true})) << dpi;
        m_Ui.Run([&] { m_Shown->Plain.Base.Enabled(false); });
        EXPECT_TRUE(Shown() == Drawn({.Enabled = false})) << dpi;
        m_Ui.Run([&] { m_Shown->Plain.Base.Enabled(true); });
    }
}

TEST_F(Skins, FrameAndArrowAreThoseOfTheDesign) {
    gui::Pixels idle = Shown();
    ASSERT_EQ(idle.Width, WidthOf(Place()));
    ASSERT_EQ(idle.Height, HeightOf(Place()));
    const RECT field = ArrowField();
    const int hair = Hair();
    EXPECT_EQ(idle.At(0, 0), palette::FieldBorder);
    EXPECT_EQ(idle.At(hair - 1, Px(5)), palette::FieldBorder);
    EXPECT_EQ(idle.At(hair, hair), palette::Card);
    EXPECT_EQ(idle.At(field.left - hair - 1, Px(5)), palette::Card);
    EXPECT_EQ(idle.At(field.left - hair, Px(5)), palette::Line);
    EXPECT_EQ(idle.At(field.left - 1, Px(5)), palette::Line);
    EXPECT_EQ(idle.At(field.left, Px(5)), palette::ArrowField);
    EXPECT_EQ(idle.At(field.right - 1, Px(5)), palette::ArrowField);
    EXPECT_EQ(idle.At(field.right, Px(5)), palette::FieldBorder);
    EXPECT_EQ(idle.Count(palette::Ink, field), ArrowPixels());
    const LONG middle = (field.left + idle.Width) / 2, reach = Px(5) - 1, top = (idle.Height - Px(5)) / 2;
    EXPECT_EQ(idle.At(middle - reach, top), palette::Ink);
    EXPECT_EQ(idle.At(middle + reach, top), palette::Ink);
    EXPECT_EQ(idle.At(middle, top + reach), palette::Ink);
    Hover();
    EXPECT_EQ(Shown().At(0, Px(5)), palette::Brand);
    m_Ui.Run([&] { m_Shown->Plain.Base.SetFocus(); });
    const gui::Pixels focused = Shown(); // the focus wins over the mouse
    EXPECT_EQ(focused.At(Px(2) - 1, Px(5)), palette::FocusNeutral);
    EXPECT_EQ(focused.At(Px(2), Px(5)), palette::Card);
    m_Ui.Run([&] { m_Shown->Plain.Base.Enabled(false); });
    const gui::Pixels disabled = Shown();
    EXPECT_EQ(disabled.At(0, Px(5)), palette::Line);
    EXPECT_EQ(disabled.At(3, 3), palette::DisabledGround);
    EXPECT_EQ(disabled.Count(palette::DisabledArrow, field), ArrowPixels());
}

TEST_F(Skins, ADroppedListKeepsTheHotFrame) {
    gui::Click(gui::ToScreen(Combo(), Px(100), Px(12)));
    EXPECT_TRUE(Becomes([&] { return SendMessageW(Combo(), CB_GETDROPPEDSTATE, 0, 0) != 0; }));
    EXPECT_TRUE(Shown() == Drawn({.Hot = true, .Focused = true}));
    gui::Type(VK_DOWN);
    gui::Type(VK_RETURN);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Plain.ListIndex() == 1; }));
    EXPECT_EQ(On([&] { return m_Shown->Plain.Text(); }), u"Another");
    EXPECT_TRUE(gui::WaitUntil([&] { return Shown() == Drawn({.Hot = true, .Focused = true}); }));
}

TEST_F(Skins, AnIndexSetByCodeIsPaintedAsAWhole) {
    m_Ui.Run([&] {
        UpdateWindow(Combo());
        m_Shown->Plain.ListIndex(1);
        RECT dirty{}, client;
        EXPECT_TRUE(GetUpdateRect(Combo(), &dirty, FALSE));
        GetClientRect(Combo(), &client);
        EXPECT_TRUE(EqualRect(&dirty, &client)) << dirty.left << ' ' << dirty.right;
    });
}

TEST_F(Skins, AWindowThatComesOverTheComboCoolsIt) {
    Hover();
    HWND cover = nullptr;
    m_Ui.Run([&] {
        RECT place{};
        GetWindowRect(Combo(), &place);
        cover = gui::MakeWindow(nullptr, place);
        SetWindowPos(cover, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    });
    EXPECT_TRUE(gui::WaitUntil([&] { return Shown() == Drawn({}); }));
    m_Ui.Run([&] { DestroyWindow(cover); });
}

TEST_F(Skins, ColoursAndArrowFollowTheirProperties) {
    m_Ui.Run([&] {
        cXPCombo& skin = m_Shown->SkinOfPlain;
        UpdateWindow(Combo());
        skin.FrameColorNormal(RGB(1, 2, 3));
        RECT dirty;
        EXPECT_TRUE(GetUpdateRect(Combo(), &dirty, FALSE)); // shows at once
        skin.FrameColorHot(RGB(4, 5, 6));
        skin.FrameColorDiss(RGB(7, 8, 9));
        skin.CboBackColor(RGB(10, 11, 12));
        skin.ArrowEnabledColor(RGB(13, 14, 15));
        skin.ArrowDisabledColor(RGB(16, 17, 18));
        EXPECT_EQ(skin.FrameColorDiss(), static_cast<OleColour>(RGB(7, 8, 9)));
    });
    const RECT field = ArrowField();
    gui::Pixels shown = Shown();
    EXPECT_EQ(shown.At(0, 0), RGB(1, 2, 3));
    EXPECT_EQ(shown.At(2, 2), RGB(10, 11, 12));
    EXPECT_EQ(shown.Count(RGB(13, 14, 15), field), ArrowPixels());
    gui::MoveTo(gui::CentreOf(Combo()));
    EXPECT_TRUE(gui::WaitUntil([&] { return Shown().At(0, 0) == RGB(4, 5, 6); }));
    m_Ui.Run([&] { m_Shown->SkinOfPlain.ShowArrow(false); });
    EXPECT_EQ(Shown().Count(RGB(13, 14, 15), field), 0);
    m_Ui.Run([&] {
        m_Shown->SkinOfPlain.ShowArrow(true);
        m_Shown->Plain.Base.Enabled(false);
    });
    shown = Shown();
    EXPECT_EQ(shown.At(0, 0), RGB(7, 8, 9));
    EXPECT_EQ(shown.Count(RGB(16, 17, 18), field), ArrowPixels());
    m_Ui.Run([&] {
        m_Shown->Plain.Base.Enabled(true);
        modXPCombo::ApplySkin(m_Shown->SkinOfPlain, m_Shown->Plain.Base); // the whole set again
    });
    gui::MoveTo({5, 5});
    EXPECT_TRUE(gui::WaitUntil([&] { return Shown() == Drawn({}); }));
}

TEST_F(Skins, UnderHighContrastTheSystemsColoursRule) {
    SetHighContrast(true);
    const RECT field = ArrowField();
    gui::Pixels shown = Shown();
    const POINT arrow{(field.left + shown.Width) / 2, shown.Height / 2};
    EXPECT_EQ(shown.At(0, 0), GetSysColor(COLOR_WINDOWTEXT));
    EXPECT_EQ(shown.At(2, 2), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(shown.At(field.left - 1, Px(9)), GetSysColor(COLOR_WINDOWTEXT));
    EXPECT_EQ(shown.At(field.left, Px(9)), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(shown.At(arrow.x, arrow.y), GetSysColor(COLOR_WINDOWTEXT));
    Hover(); // a hair line, divider included
    shown = Shown();
    EXPECT_EQ(shown.At(Hair() - 1, Px(5)), GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(shown.At(Hair(), Px(5)), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(shown.At(field.left - 1, Px(5)), GetSysColor(COLOR_HIGHLIGHT));
    m_Ui.Run([&] { m_Shown->Plain.Base.SetFocus(); });
    EXPECT_EQ(Shown().At(Px(2) - 1, Px(5)), GetSysColor(COLOR_HIGHLIGHT)); // two pixels
    EXPECT_EQ(Shown().At(Px(2), Px(5)), GetSysColor(COLOR_WINDOW));
    m_Ui.Run([&] { m_Shown->Plain.Base.Enabled(false); });
    EXPECT_EQ(Shown().At(arrow.x, arrow.y), GetSysColor(COLOR_GRAYTEXT));
    SetHighContrast(false);
    EXPECT_TRUE(Shown() == Drawn({.Enabled = false}));
}

TEST_F(Skins, TheTextWindowOfAFontListIsPartOfIt) {
    const HWND fonts = m_Shown->Fonts.Base.hWnd();
    const auto frame = [&] { return On([&] { return gui::ClientOf(fonts).At(0, 12); }); };
    EXPECT_EQ(frame(), palette::FieldBorder);
    gui::MoveTo(gui::ToScreen(fonts, 30, 12)); // over the text
    EXPECT_TRUE(gui::WaitUntil([&] { return frame() == palette::Brand; }));
    gui::Click(gui::ToScreen(fonts, 30, 12));
    EXPECT_TRUE(gui::WaitUntil([&] { return frame() == palette::FocusNeutral; }));
    gui::MoveTo({5, 5});
    m_Ui.Run([&] { m_Shown->Other.Base.SetFocus(); });
    EXPECT_TRUE(gui::WaitUntil([&] { return frame() == palette::FieldBorder; }));
    EXPECT_EQ(On([&] { return m_Shown->Fonts.Text(); }), u"SutonnyMJ");
}

// Also in the low box that lies over the cell of a table.
TEST_F(Skins, TheTextLeavesTheFrameOfTheFocusFree) {
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        for (FontCombo* combo : {&m_Shown->Fonts, &m_Shown->Cell}) {
            m_Ui.Run([&] {
                combo->Text(u"\u0995gÅ|\u0981 WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW");
                combo->Base.SetFocus();
                combo->SelectAll();
            });
            const gui::Pixels shown = On([&] { return gui::WindowOf(combo->Base.hWnd()); });
            const int two = (2 * dpi + 48) / 96, right = shown.Width, bottom = shown.Height;
            for (const RECT& edge : {RECT{0, 0, right, two}, RECT{0, bottom - two, right, bottom},
                                     RECT{0, 0, two, bottom}, RECT{right - two, 0, right, bottom}})
                EXPECT_EQ(shown.Count(palette::FocusNeutral, edge), WidthOf(edge) * HeightOf(edge))
                    << dpi << ' ' << bottom;
            // The bar of the selection begins where the text does: as in the other combos, or
            // as in the cell.
            int left = 0;
            while (left < right && shown.At(left, bottom / 2) != GetSysColor(COLOR_HIGHLIGHT)) ++left;
            EXPECT_EQ(left, Scaled(combo == &m_Shown->Cell ? 6 : 7, dpi)) << dpi;
        }
    }
}

TEST_F(Skins, APaintIsOneBlitAlsoWhileHovering) {
    m_Ui.Run([&] {
        UpdateWindow(m_Shown->Window.Base.hWnd());
        const gui::Pixels erased = gui::Drawn(20, 20, [&](HDC dc) {
            EXPECT_NE(SendMessageW(Combo(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 0);
        });
        EXPECT_EQ(erased.Count(RGB(255, 0, 255)), 400);
    });
    const PaintTally before = PaintsSoFar();
    Hover();
    for (int x = 40; x < 60; ++x) gui::MoveTo(gui::ToScreen(Combo(), x, 12));
    m_Ui.Settle();
    m_Ui.Run([&] { UpdateWindow(Combo()); });
    EXPECT_EQ(PaintsSoFar().Paints - before.Paints, PaintsSoFar().Blits - before.Blits);
    // Moves inside it paint nothing.
    EXPECT_LE(PaintsSoFar().Paints - before.Paints, 2);
}

TEST_F(Skins, TheExtendedInterfaceIsSwitched) {
    m_Ui.Run([&] {
        EXPECT_EQ(SendMessageW(Combo(), CB_GETEXTENDEDUI, 0, 0), 0);
        modXPCombo::SetExtendedUI(m_Shown->Plain.Base, true);
        EXPECT_EQ(SendMessageW(Combo(), CB_GETEXTENDEDUI, 0, 0), 1);
        modXPCombo::SetExtendedUI(m_Shown->Plain.Base, false);
        EXPECT_EQ(SendMessageW(Combo(), CB_GETEXTENDEDUI, 0, 0), 0);
    });
}

TEST_F(Skins, ItMovesToAnotherComboAndMayGoFirst) {
    m_Ui.Run([&] {
        const auto procedure = [](HWND window) { return GetWindowLongPtrW(window, GWLP_WNDPROC); };
        const LONG_PTR skinned = procedure(Combo());
        {
            cXPCombo extra;
            extra.MakeXP(m_Shown->Other.Base);
            extra.MakeXP(m_Shown->Plain.Base);
        }
        EXPECT_EQ(procedure(Combo()), skinned);
        m_Shown->SkinOfPlain.MakeXP(m_Shown->Fonts.Base);
        EXPECT_NE(procedure(Combo()), skinned); // its own procedure is back
    });
    EXPECT_FALSE(Shown() == Drawn({}));
}

TEST_F(Skins, SkinAndComboMayGoInsideTheCombosEvent) {
    m_Ui.Run([&] { m_Shown.reset(); });
    struct Own {
        Form Window;
        std::unique_ptr<ComboBox> Plain = std::make_unique<ComboBox>();
        std::unique_ptr<cXPCombo> Skin = std::make_unique<cXPCombo>();
        Own() {
            Window.Bind(u"Plain", *Plain)
                .Create(u"form\nf\t\tfrmOwn\tform\t\t\t6000\t3000\tOwn\t\t\n"
                        u"f\tfrmOwn\tPlain\tcombo\t150\t150\t1650\t360\t\t1\tAccessibleName=P\n");
            Plain->AddItem(u"a");
            Plain->AddItem(u"b");
            Plain->ListIndex(0);
            modXPCombo::ApplySkin(*Skin, Plain->Base);
            Window.Show();
            Plain->Base.SetFocus();
        }
    };
    for (const bool comboToo : {false, true}) {
        std::unique_ptr<Own> own;
        m_Ui.Run([&] {
            own = std::make_unique<Own>();
            own->Plain->Click = [&, comboToo] {
                own->Skin.reset();
                if (comboToo) own->Plain.reset();
            };
        });
        ASSERT_TRUE(gui::Activate(own->Window.Base.hWnd()));
        gui::Type(VK_DOWN);
        EXPECT_TRUE(Becomes([&] { return !own->Skin; })) << comboToo;
        m_Ui.Run([&] { own.reset(); });
    }
}

} // namespace
