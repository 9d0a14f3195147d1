// Font list: any text, entries in their own face, fonts only for what is seen, its events.
#include "controls/ComboField.h"
#include "controls/FontCombo.h"
#include "controls/Label.h"
#include "controls/Painting.h"
#include "controls/TextBox.h"
#include "windows/FormTest.h"
#include "windows/Pixels.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmFonts\tform\t\t\t6000\t6000\tFonts\t\t\n"
    u"f\tfrmFonts\tLabelFont\tlabel\t150\t150\t4740\t300\tDisplay &font:\t\t\n"
    u"f\tfrmFonts\tFonts\tfontcombo\t150\t450\t4740\t360\t\t1\t\n"
    u"f\tfrmFonts\tLabelOther\tlabel\t150\t900\t4740\t300\t&Other:\t\t\n"
    u"f\tfrmFonts\tOther\ttext\t150\t1200\t2250\t360\t\t2\tAccessibleName=Other\n";

struct FontsForm {
    Form Window;
    Label LabelFont;
    FontCombo Fonts;
    TextBox Other;
    std::vector<int> Keys;
    int Clicks = 0;
    FontsForm() {
        Window.Bind(u"LabelFont", LabelFont).Bind(u"Fonts", Fonts).Bind(u"Other", Other).Create(kLayout);
        for (const char16_t* name : {u"Tahoma", u"Lohit Bengali", u"Liberation Serif", u"Tahoma"})
            Fonts.AddItem(name, {name, 12, false, false});
        Fonts.Click = [this] { ++Clicks; };
        Window.Show();
    }
};

class FontCombos : public gui::FormTest<FontsForm> {
protected:
    bool Dropped() {
        return On([&] { return ComboField::Dropped(m_Shown->Fonts.Base); });
    }
    HWND Part(bool list) {
        COMBOBOXINFO parts{};
        parts.cbSize = sizeof parts;
        GetComboBoxInfo(m_Shown->Fonts.Base.hWnd(), &parts);
        return list ? parts.hwndList : parts.hwndItem;
    }
    // Opens the list by a click on the arrow.
    void Drop() {
        RECT client;
        GetClientRect(m_Shown->Fonts.Base.hWnd(), &client);
        gui::Click(gui::ToScreen(m_Shown->Fonts.Base.hWnd(), client.right - 8, client.bottom / 2));
        ASSERT_TRUE(gui::WaitUntil([&] { return Dropped(); }));
    }
    void ClickRow(int row) {
        const int height = On([&] {
            return static_cast<int>(SendMessageW(m_Shown->Fonts.Base.hWnd(), CB_GETITEMHEIGHT, 0, 0));
        });
        gui::Click(gui::ToScreen(Part(true), 20, height * row + height / 2));
    }
};

int FontsInUse() {
    int count = 0;
    for (ULONG_PTR slot = 1; slot < 0x10000; ++slot)
        count += GetObjectType(reinterpret_cast<HGDIOBJ>(slot)) == OBJ_FONT;
    return count;
}

TEST_F(FontCombos, HoldsTextsAndRefusesIndexesOutOfRange) {
    m_Ui.Run([&] {
        FontCombo& fonts = m_Shown->Fonts;
        EXPECT_EQ(fonts.ListCount(), 4);
        EXPECT_EQ(fonts.ListIndex(), -1);
        EXPECT_EQ(fonts.List(1), u"Lohit Bengali");
        EXPECT_EQ(fonts.List(-1), u"");
        EXPECT_EQ(fonts.List(4), u"");
        fonts.ListIndex(2);
        EXPECT_EQ(fonts.Text(), u"Liberation Serif");
        fonts.ListIndex(4);
        fonts.ListIndex(-2);
        EXPECT_EQ(fonts.ListIndex(), 2);
        fonts.ListIndex(3);
        EXPECT_EQ(fonts.ListIndex(), 3); // not the first of that name
        fonts.ListIndex(-1);
        EXPECT_EQ(fonts.Text(), u"");
        EXPECT_EQ(fonts.Find(u"LOHIT bengali"), 1);
        EXPECT_EQ(fonts.Find(u"Lohit"), -1);
        EXPECT_EQ(fonts.Find(u"tahoma"), 0);
        EXPECT_EQ(fonts.Find(u""), -1);
        EXPECT_EQ(m_Shown->Clicks, 0);
        fonts.Clear();
        EXPECT_EQ(fonts.ListCount(), 0);
        EXPECT_EQ(fonts.Find(u"Tahoma"), -1);
        fonts.ListIndex(0);
        EXPECT_EQ(fonts.ListIndex(), -1);
    });
}

TEST_F(FontCombos, TakesTheNameOfAFontThatIsNotThere) {
    m_Ui.Run([&] {
        FontCombo& fonts = m_Shown->Fonts;
        fonts.Text(u"SutonnyMJ");
        EXPECT_EQ(fonts.Text(), u"SutonnyMJ");
        EXPECT_EQ(fonts.ListIndex(), -1);
        fonts.Text(u"lohit bengali");
        EXPECT_EQ(fonts.Text(), u"lohit bengali");
        fonts.Text(u"Liberation Serif");
        EXPECT_EQ(fonts.ListIndex(), 2);
        fonts.Text(std::u16string(10'000, u'x'));
        EXPECT_EQ(fonts.Text().size(), 10'000u);
        fonts.AddItem(u"SutonnyMJ", {u"SutonnyMJ", 12, false, false});
        fonts.ListIndex(4);
        fonts.Text(u"");
        fonts.Clear();
        fonts.Text(u"kept");
        fonts.Clear();
        EXPECT_EQ(fonts.Text(), u"kept");
        fonts.Text(u"");
        fonts.Base.SetFocus();
    });
    gui::Type('A');
    gui::Type('B');
    EXPECT_TRUE(Becomes([&] { return m_Shown->Fonts.Text() == u"ab"; }));
}

TEST_F(FontCombos, SelectAllMakesTheNextKeyReplaceTheText) {
    m_Ui.Run([&] {
        m_Shown->Fonts.Text(u"Siyam Rupali");
        m_Shown->Fonts.Base.SetFocus();
        m_Shown->Fonts.SelectAll();
    });
    gui::Type('Q');
    EXPECT_TRUE(Becomes([&] { return m_Shown->Fonts.Text() == u"q"; }));
}

TEST_F(FontCombos, AChosenEntryRaisesClickOnceAlsoTheSameAgain) {
    Drop();
    ClickRow(1);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Clicks == 1; }));
    EXPECT_EQ(On([&] { return m_Shown->Fonts.Text(); }), u"Lohit Bengali");
    EXPECT_EQ(On([&] { return m_Shown->Fonts.ListIndex(); }), 1);
    EXPECT_FALSE(Dropped());
    Drop();
    ClickRow(1);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Clicks == 2; }));
    EXPECT_FALSE(Dropped());
}

TEST_F(FontCombos, KeysInTheDroppedListChooseByEnterAndGiveUpByEsc) {
    m_Shown->Fonts.KeyDown = [&](int key, int) { m_Shown->Keys.push_back(key); };
    m_Ui.Run([&] { m_Shown->Window.Closing = [] { ADD_FAILURE() << "closed"; }; });
    Drop();
    gui::Type(VK_DOWN);
    gui::Type(VK_DOWN);
    gui::Type(VK_RETURN);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Clicks == 1; }));
    EXPECT_EQ(On([&] { return m_Shown->Fonts.Text(); }), u"Lohit Bengali");
    // Wine's list keeps the mouse after keys have closed it: opened by code.
    m_Ui.Run([&] { ComboField::Toggle(m_Shown->Fonts.Base); });
    gui::Type(VK_ESCAPE);
    EXPECT_TRUE(gui::WaitUntil([&] { return !Dropped(); }));
    EXPECT_EQ(On([&] { return m_Shown->Clicks; }), 1);
    EXPECT_EQ(m_Shown->Keys, (std::vector<int>{VK_DOWN, VK_DOWN}));
}

// Some systems tell of a choice at each arrow key in the open list: it is one when the list closes.
TEST_F(FontCombos, ChoicesInTheOpenListAreOneClickOrNone) {
    const auto tell = [this](WORD notification) {
        const HWND box = m_Shown->Fonts.Base.hWnd();
        m_Ui.Run([&] {
            SendMessageW(GetParent(box), WM_COMMAND, MAKEWPARAM(0, notification),
                         reinterpret_cast<LPARAM>(box));
        });
    };
    Drop();
    tell(CBN_SELENDOK);
    tell(CBN_SELENDOK);
    m_Ui.Settle();
    EXPECT_EQ(m_Shown->Clicks, 0);
    gui::Type(VK_ESCAPE);
    ASSERT_TRUE(gui::WaitUntil([&] { return !Dropped(); }));
    m_Ui.Settle();
    EXPECT_EQ(m_Shown->Clicks, 0);
    // Wine's list keeps the mouse after keys have closed it: opened by code.
    m_Ui.Run([&] { ComboField::Toggle(m_Shown->Fonts.Base); });
    gui::Type(VK_DOWN);
    tell(CBN_SELENDOK);
    gui::Type(VK_RETURN);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Clicks == 1; }));
    m_Ui.Settle();
    EXPECT_EQ(m_Shown->Clicks, 1);
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

TEST_F(FontCombos, ArrowKeysInTheClosedBoxChangeTheTextWithoutClick) {
    m_Ui.Run([&] { m_Shown->Fonts.Base.SetFocus(); });
    gui::Type(VK_DOWN);
    gui::Type(VK_DOWN);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Fonts.Text() == u"Lohit Bengali"; }));
    EXPECT_EQ(On([&] { return m_Shown->Fonts.ListIndex(); }), 1);
    EXPECT_EQ(On([&] { return m_Shown->Clicks; }), 0);
}

TEST_F(FontCombos, EnterAndEscOfTheClosedBoxComeAsKeyDownOnly) {
    m_Ui.Run([&] {
        m_Shown->Window.Closing = [] { ADD_FAILURE() << "closed"; };
        m_Shown->Fonts.KeyDown = [&](int key, int shift) {
            m_Shown->Keys.push_back(key);
            m_Shown->Keys.push_back(shift);
        };
        m_Shown->Fonts.Base.SetFocus();
    });
    gui::Type(VK_RETURN);
    gui::Key(VK_SHIFT, false);
    gui::Type(VK_END);
    gui::Key(VK_SHIFT, true);
    gui::Type(VK_ESCAPE);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Keys.size() == 8; }));
    EXPECT_EQ(m_Shown->Keys, (std::vector<int>{VK_RETURN, 0, VK_SHIFT, 1, VK_END, 1, VK_ESCAPE, 0}));
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

TEST_F(FontCombos, OpeningTheListLeavesTheTextAsItIs) {
    m_Ui.Run([&] {
        for (const char16_t* name : {u"Arial Black", u"Arial"})
            m_Shown->Fonts.AddItem(name, {name, 12, false, false});
    });
    // Each is the beginning of another entry further up; the second is no entry.
    for (const auto& [text, row] : {std::pair{u"Arial", 5}, {u"Liber", -1}, {u"ARIAL", 5}}) {
        m_Ui.Run([&] { m_Shown->Fonts.Text(text); });
        m_Ui.Run([&] { ComboField::Toggle(m_Shown->Fonts.Base); });
        m_Ui.Settle();
        EXPECT_EQ(On([&] { return m_Shown->Fonts.Text(); }), text);
        EXPECT_EQ(On([&] { return SendMessageW(Part(true), LB_GETCURSEL, 0, 0); }), row) << row;
        gui::Type(VK_ESCAPE);
        EXPECT_TRUE(gui::WaitUntil([&] { return !Dropped(); }));
        EXPECT_EQ(On([&] { return m_Shown->Fonts.Text(); }), text);
    }
    // What code sets meanwhile counts.
    m_Ui.Run([&] {
        ComboField::Toggle(m_Shown->Fonts.Base);
        m_Shown->Fonts.Text(u"Nikosh");
    });
    m_Ui.Settle();
    EXPECT_EQ(On([&] { return m_Shown->Fonts.Text(); }), u"Nikosh");
    EXPECT_EQ(On([&] { return m_Shown->Clicks; }), 0);
}

TEST_F(FontCombos, OddTextsAndFacesAreTakenAsTheyAre) {
    const std::u16string longest(100'000, u'x'), lone = u"\xD800 \U0001F600 \xDC00", separated = u"a|b\tc&d";
    m_Ui.Run([&] {
        FontCombo& fonts = m_Shown->Fonts;
        fonts.Clear();
        for (const std::u16string& text : {longest, lone, separated, std::u16string()})
            fonts.AddItem(text, {u"No Such Face", 12, false, false});
        fonts.AddItem(std::u16string(u"ends\0here", 9), {std::u16string(200, u'n'), 12, false, false});
        for (int i = 0; i < 4; ++i) {
            fonts.ListIndex(i);
            EXPECT_EQ(fonts.ListIndex(), i);
            EXPECT_TRUE(fonts.Text() == fonts.List(i)) << i;
            EXPECT_EQ(fonts.Find(fonts.Text()), i);
        }
        EXPECT_TRUE(fonts.List(0) == longest);
        EXPECT_EQ(fonts.List(4), u"ends");
        fonts.ListIndex(4);
        EXPECT_EQ(fonts.ListIndex(), 4);
        fonts.Text(longest);
        EXPECT_TRUE(fonts.Text() == longest);
        fonts.Text(lone);
        EXPECT_EQ(fonts.Text(), lone);
        fonts.Text(std::u16string(u"a\0b", 3));
        EXPECT_EQ(fonts.Text(), u"a");
    });
    Drop(); // and they are painted
    m_Ui.Run([&] { EXPECT_GT(gui::ClientOf(Part(true)).Count(palette::Ink), 0); });
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

TEST_F(FontCombos, ScreenReadersGetNameValueAndState) {
    std::unique_ptr<gui::HeardEvents> heard;
    const HWND combo = m_Shown->Fonts.Base.hWnd();
    m_Ui.Run([&] {
        heard = std::make_unique<gui::HeardEvents>();
        m_Shown->Fonts.Base.SetFocus();
        m_Shown->Fonts.Text(u"SutonnyMJ");
    });
    EXPECT_EQ(heard->Count(EVENT_OBJECT_VALUECHANGE, combo), 1);
    gui::Spoken said = Said(m_Shown->Fonts.Base);
    EXPECT_EQ(said.Name, u"Display font:");
    EXPECT_EQ(said.Role, ROLE_SYSTEM_COMBOBOX);
    EXPECT_EQ(said.Value, u"SutonnyMJ");
    EXPECT_EQ(said.DefaultAction, u"Open");
    EXPECT_TRUE(said.State & STATE_SYSTEM_COLLAPSED);
    EXPECT_TRUE(said.State & STATE_SYSTEM_FOCUSED);
    // The window inside, which has the focus, says the same.
    said = On([&] { return gui::Ask(Part(false)); });
    EXPECT_EQ(said.Name, u"Display font:");
    EXPECT_EQ(said.Value, u"SutonnyMJ");
    m_Ui.Run([&] { EXPECT_EQ(gui::DoDefault(combo), S_OK); });
    EXPECT_TRUE(Said(m_Shown->Fonts.Base).State & STATE_SYSTEM_EXPANDED);
    EXPECT_GE(heard->Count(EVENT_OBJECT_STATECHANGE, combo), 1);
    m_Ui.Run([&] { heard.reset(); });
}

TEST_F(FontCombos, ItMayBeDestroyedInsideItsOwnEvents) {
    m_Ui.Run([&] { m_Shown.reset(); });
    struct Own {
        Form Window;
        std::unique_ptr<FontCombo> Fonts = std::make_unique<FontCombo>();
        Own() {
            Window.Bind(u"Fonts", *Fonts)
                .Create(u"form\nf\t\tfrmOwn\tform\t\t\t6000\t3000\tOwn\t\t\n"
                        u"f\tfrmOwn\tFonts\tfontcombo\t150\t450\t4740\t360\t\t1\tAccessibleName=F\n");
            Fonts->AddItem(u"Tahoma", {u"Tahoma", 12, false, false});
            Window.Show();
            Fonts->Base.SetFocus();
        }
    };
    for (const bool byKey : {true, false}) {
        std::unique_ptr<Own> own;
        m_Ui.Run([&] {
            own = std::make_unique<Own>();
            own->Fonts->KeyDown = [&, byKey](int key, int) {
                if (byKey && key == 'A') own->Fonts.reset();
            };
            own->Fonts->Click = [&] { own->Fonts.reset(); };
        });
        ASSERT_TRUE(gui::Activate(own->Window.Base.hWnd()));
        if (byKey) {
            gui::Type('A');
        } else {
            m_Ui.Run([&] { SendMessageW(own->Fonts->Base.hWnd(), CB_SHOWDROPDOWN, TRUE, 0); });
            gui::Type(VK_DOWN);
            gui::Type(VK_RETURN);
        }
        EXPECT_TRUE(Becomes([&] { return !own->Fonts; })) << byKey;
        m_Ui.Run([&] { own.reset(); });
    }
}

TEST_F(FontCombos, KeysWithAltAreToldAndStillDoTheirWork) {
    std::vector<std::pair<int, int>> told;
    m_Ui.Run([&] {
        m_Shown->Fonts.Text(u"SutonnyMJ");
        m_Shown->Fonts.KeyDown = [&](int key, int shift) { told.emplace_back(key, shift); };
        m_Shown->Fonts.Base.SetFocus();
    });
    gui::Key(VK_MENU, false);
    gui::Type(VK_DOWN);
    EXPECT_TRUE(gui::WaitUntil([&] { return Dropped(); }));
    gui::Type(VK_UP);
    EXPECT_TRUE(gui::WaitUntil([&] { return !Dropped(); }));
    gui::Type('O'); // the access key of the box below
    gui::Key(VK_MENU, true);
    EXPECT_TRUE(FocusComesTo(m_Shown->Other.Base));
    using Keys = std::vector<std::pair<int, int>>;
    EXPECT_EQ(told, (Keys{{VK_MENU, 4}, {VK_DOWN, 4}, {VK_UP, 4}, {'O', 4}}));
    EXPECT_EQ(On([&] { return m_Shown->Fonts.Text(); }), u"SutonnyMJ");
}

TEST_F(FontCombos, ItMayBeDestroyedByAKeyWithAlt) {
    m_Ui.Run([&] { m_Shown.reset(); });
    Form window;
    auto fonts = std::make_unique<FontCombo>();
    m_Ui.Run([&] {
        window.Bind(u"Fonts", *fonts)
            .Create(u"form\nf\t\tfrmOwn\tform\t\t\t6000\t3000\tOwn\t\t\n"
                    u"f\tfrmOwn\tFonts\tfontcombo\t150\t450\t4740\t360\t\t1\tAccessibleName=F\n");
        fonts->KeyDown = [&](int key, int) {
            if (key == VK_DOWN) fonts.reset();
        };
        window.Show();
        fonts->Base.SetFocus();
    });
    ASSERT_TRUE(gui::Activate(window.Base.hWnd()));
    gui::Key(VK_MENU, false);
    gui::Type(VK_DOWN);
    gui::Key(VK_MENU, true);
    EXPECT_TRUE(Becomes([&] { return !fonts; }));
    m_Ui.Run([&] { window.Unload(); });
}

} // namespace
