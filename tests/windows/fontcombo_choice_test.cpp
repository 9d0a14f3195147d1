// Font list: choosing by mouse and keys, and its two events.
#include "windows/FontComboForm.h"

namespace {

using FontCombos = gui::FontCombos;

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
