// Font list: entries in their own face, fonts only for what is seen, its measures.
#include "controls/Painting.h"
#include "windows/FontComboForm.h"
#include "windows/Pixels.h"

namespace {

using FontCombos = gui::FontCombos;

int FontsInUse() {
    int count = 0;
    for (ULONG_PTR slot = 1; slot < 0x10000; ++slot)
        count += GetObjectType(reinterpret_cast<HGDIOBJ>(slot)) == OBJ_FONT;
    return count;
}

TEST_F(FontCombos, AnEntryIsDrawnInItsOwnFace) {
    const FontHandle tahoma({u"Tahoma", 12, false, false}, 96),
        serif({u"Liberation Serif", 12, false, false}, 96);
    const auto drawn = [](const FontEntryState& state) {
        return gui::Drawn(200, 24, [&](HDC dc) { DrawFontEntry(dc, {0, 0, 200, 24}, state); });
    };
    const gui::Pixels one = drawn({.Text = u"Same & text", .Face = tahoma.Get()});
    EXPECT_FALSE(one == drawn({.Text = u"Same & text", .Face = serif.Get()}));
    EXPECT_EQ(one.At(0, 0), palette::Card);
    EXPECT_EQ(one.Count(RGB(255, 0, 255)), 0);
    EXPECT_EQ(drawn({.Text = u"x", .Face = tahoma.Get(), .Selected = true}).At(0, 0), palette::Sel);
    Theme::ReplaceHighContrast([] { return true; });
    EXPECT_EQ(drawn({.Text = u"x", .Face = tahoma.Get()}).At(0, 0), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(drawn({.Text = u"x", .Face = tahoma.Get(), .Selected = true}).At(0, 0),
              GetSysColor(COLOR_HIGHLIGHT));
}

TEST_F(FontCombos, AFaceWithoutTheLettersOfItsNameLeavesItReadable) {
    const FontHandle bangla({u"Lohit Bengali", 12, false, false}, 96),
        plain({u"Tahoma", 9, false, false}, 96);
    const auto drawn = [&](std::u16string_view text, HFONT face, HFONT instead) {
        return gui::Drawn(200, 24, [&](HDC dc) {
            DrawFontEntry(dc, {0, 0, 200, 24}, {.Text = text, .Face = face, .Plain = instead});
        });
    };
    EXPECT_TRUE(drawn(u"Lohit", bangla.Get(), plain.Get()) == drawn(u"Lohit", plain.Get(), nullptr));
    EXPECT_TRUE(drawn(u"\u0995\u09BE", bangla.Get(), plain.Get()) ==
                drawn(u"\u0995\u09BE", bangla.Get(), nullptr));
    EXPECT_TRUE(drawn(u"", bangla.Get(), plain.Get()).Count(palette::Card) == 200 * 24);
}

TEST_F(FontCombos, FontsAreMadeOnlyForEntriesThatAreSeenAndGoWithTheList) {
    m_Ui.Run([&] {
        m_Shown->Fonts.Clear();
        UpdateWindow(m_Shown->Window.Base.hWnd());
    });
    const int before = On(FontsInUse);
    m_Ui.Run([&] {
        for (int i = 0; i < 300; ++i)
            m_Shown->Fonts.AddItem(u"Face " + text::Decimal(i), {u"Tahoma", 12, false, false});
        m_Shown->Fonts.Text(u"Face 7");
    });
    EXPECT_EQ(On(FontsInUse), before);
    Drop();
    RECT list;
    GetClientRect(Part(true), &list);
    const int height = On(
        [&] { return static_cast<int>(SendMessageW(m_Shown->Fonts.Base.hWnd(), CB_GETITEMHEIGHT, 0, 0)); });
    const int seen = (list.bottom + height - 1) / height;
    EXPECT_LE(seen, 11);
    EXPECT_TRUE(Becomes([&] { return FontsInUse() > before; }));
    EXPECT_LE(On(FontsInUse), before + seen);
    gui::Type(VK_ESCAPE);
    EXPECT_TRUE(gui::WaitUntil([&] { return !Dropped(); }));
    EXPECT_EQ(On(FontsInUse), before);
}

TEST_F(FontCombos, AFontOfTheSameHeightIsSeenInTheText) {
    const HWND edit = Part(false);
    EXPECT_TRUE(On([&] {
        m_Shown->Fonts.Text(u"Tahoma");
        UpdateWindow(edit);
        ::Font bold = m_Shown->Fonts.Base.Font();
        bold.Bold = true;
        m_Shown->Fonts.Base.Font(bold);
        return GetUpdateRect(edit, nullptr, FALSE) != 0;
    }));
}

TEST_F(FontCombos, TheDroppedListCanBeWiderThanTheBox) {
    RECT box;
    GetWindowRect(m_Shown->Fonts.Base.hWnd(), &box);
    m_Ui.Run([&] {
        m_Shown->Fonts.DropDownWidth(2 * WidthOf(box));
        EXPECT_EQ(m_Shown->Fonts.DropDownWidth(), 2 * WidthOf(box));
    });
    Drop();
    RECT list;
    GetWindowRect(Part(true), &list);
    EXPECT_NEAR(WidthOf(list), 2 * WidthOf(box), 4);
    gui::Type(VK_ESCAPE);
    SetDpi(m_Shown->Window.Dpi() * 3 / 2); // it grows with the box
    EXPECT_EQ(On([&] { return m_Shown->Fonts.DropDownWidth(); }), 3 * WidthOf(box));
}

TEST_F(FontCombos, TheBoxHasItsHeightAndItsRowsTheirsAtEveryDpi) {
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        RECT box, edit;
        GetWindowRect(m_Shown->Fonts.Base.hWnd(), &box);
        GetWindowRect(Part(false), &edit);
        EXPECT_EQ(HeightOf(box), 24 * dpi / 96) << dpi;
        EXPECT_EQ(WidthOf(box), 316 * dpi / 96) << dpi;
        EXPECT_LE(edit.right, box.right - 20 * dpi / 96) << dpi;
        EXPECT_GE(edit.left, box.left + 2 * dpi / 96) << dpi;
        EXPECT_NEAR(edit.top - box.top, box.bottom - edit.bottom, 1) << dpi;
        EXPECT_EQ(On([&] { return SendMessageW(m_Shown->Fonts.Base.hWnd(), CB_GETITEMHEIGHT, 0, 0); }),
                  24 * dpi / 96);
    }
}

} // namespace
