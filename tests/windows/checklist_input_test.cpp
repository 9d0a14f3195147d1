// The check list under the mouse and the keys: ticks, selection, typing, scrolling.
#include "windows/CheckListForm.h"

namespace {

using Checks = gui::Checks;

TEST_F(Checks, AClickTicksAndThenTells) {
    gui::Click(At(1));
    EXPECT_TRUE(Becomes([&] { return m_Shown->Log.size() == 1; }));
    gui::Click(At(1, 26)); // on the glyph, the second press of a double click
    EXPECT_TRUE(Becomes([&] { return m_Shown->Log.size() == 2; }));
    gui::Click(At(2));
    EXPECT_TRUE(Becomes([&] { return m_Shown->Log.size() == 3; }));
    EXPECT_EQ(m_Shown->Log, (Told{"1 on", "1 off", "2 on"}));
    EXPECT_TRUE(FocusComesTo(m_Shown->Fields.Base));
}

TEST_F(Checks, APressThatEndsElsewhereSelectsOnly) {
    gui::MoveTo(At(1));
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Fields.ListIndex() == 1; }));
    gui::MoveTo(At(2));
    gui::Press(MOUSEEVENTF_LEFTUP);
    gui::Click(At(5)); // below the rows
    gui::MoveTo(At(0));
    gui::Press(MOUSEEVENTF_RIGHTDOWN);
    gui::Press(MOUSEEVENTF_RIGHTUP);
    gui::Type(VK_TAB); // behind all of them
    EXPECT_TRUE(FocusComesTo(m_Shown->Other.Base));
    EXPECT_TRUE(On([&] { return m_Shown->Log.empty(); }));
    EXPECT_EQ(On([&] { return m_Shown->Fields.ListIndex(); }), 1);
}

TEST_F(Checks, SpaceTicksAndArrowsOnlySelect) {
    m_Ui.Run([&] { m_Shown->Fields.Base.SetFocus(); });
    gui::Type(VK_DOWN);
    gui::Type(VK_SPACE);
    gui::Type(VK_DOWN);
    gui::Type(VK_DOWN);
    gui::Type(VK_DOWN);
    gui::Type(VK_SPACE);
    gui::Type(VK_HOME);
    gui::Type(VK_SPACE);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Log.size() == 3; }));
    EXPECT_EQ(m_Shown->Log, (Told{"0 on", "2 on", "0 off"}));
}

TEST_F(Checks, SpaceThatIsHeldTicksOnce) {
    m_Ui.Run([&] {
        m_Shown->Fields.ListIndex(0);
        SendMessageW(List(), WM_KEYDOWN, VK_SPACE, 1);
        for (int i = 0; i < 5; ++i) SendMessageW(List(), WM_KEYDOWN, VK_SPACE, 1 | (1 << 30));
    });
    EXPECT_EQ(m_Shown->Log, (Told{"0 on"}));
}

TEST_F(Checks, TypingALetterFindsARowAndTicksNone) {
    m_Ui.Run([&] {
        m_Shown->Fields.AddItem(u"Comments", UiFont(), CheckList::kColumn, 16);
        m_Shown->Fields.Base.SetFocus();
    });
    const auto comesTo = [&](int row) { return Becomes([&] { return m_Shown->Fields.ListIndex() == row; }); };
    gui::Type('C');
    EXPECT_TRUE(comesTo(1));
    gui::Type('C'); // the same letter: the next
    EXPECT_TRUE(comesTo(3));
    gui::Type('C');
    EXPECT_TRUE(comesTo(1));
    EXPECT_TRUE(m_Shown->Log.empty());
}

TEST_F(Checks, ABanglaLetterFindsItsRow) {
    m_Ui.Run([&] {
        m_Shown->Fields.AddItem(u"\u0995\u09BE", UiFont());
        SendMessageW(List(), WM_CHAR, u'\u0995', 1);
        EXPECT_EQ(m_Shown->Fields.ListIndex(), 3);
    });
}

TEST_F(Checks, ABeginningIsTypedOutAndABlankTicksMeanwhile) {
    m_Ui.Run([&] {
        m_Shown->Fields.AddItem(u"Comments", UiFont());
        m_Shown->Fields.Base.SetFocus();
    });
    for (const WORD key : {'C', 'O'}) gui::Type(key);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Fields.ListIndex() == 3; }));
    gui::Type(VK_SPACE);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Log.size() == 1; }));
    gui::Type('M');
    gui::Type(VK_SPACE);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Log.size() == 2; }));
    EXPECT_EQ(m_Shown->Log, (Told{"3 on", "3 off"}));
    m_Ui.Run([&] {
        m_Shown->Fields.Clear();
        SendMessageW(List(), WM_CHAR, u'c', 1); // no rows
        EXPECT_EQ(m_Shown->Fields.ListIndex(), -1);
    });
}

TEST_F(Checks, KeysWheelAndScrollBarMoveThroughManyRows) {
    FillTo(100);
    m_Ui.Run([&] {
        EXPECT_TRUE(GetWindowLongW(List(), GWL_STYLE) & WS_VSCROLL);
        m_Shown->Fields.Base.SetFocus();
    });
    gui::Type(VK_END);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Fields.ListIndex() == 99; }));
    // 120 of the 122 pixels hold six rows.
    EXPECT_EQ(On([&] { return m_Shown->Fields.TopRow(); }), 94);
    gui::Type(VK_PRIOR);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Fields.ListIndex() == 94; }));
    gui::Type(VK_UP);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Fields.TopRow() == 93; }));
    m_Ui.Run([&] {
        SendMessageW(List(), WM_VSCROLL, SB_TOP, 0);
        EXPECT_EQ(m_Shown->Fields.TopRow(), 0);
        SendMessageW(List(), WM_VSCROLL, SB_PAGEDOWN, 0);
        EXPECT_EQ(m_Shown->Fields.TopRow(), 6);
        SendMessageW(List(), WM_VSCROLL, SB_LINEUP, 0);
        EXPECT_EQ(m_Shown->Fields.TopRow(), 5);
        UINT lines = 0;
        SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
        // Half turns of a fine wheel add up.
        SendMessageW(List(), WM_MOUSEWHEEL, MAKEWPARAM(0, -60), 0);
        SendMessageW(List(), WM_MOUSEWHEEL, MAKEWPARAM(0, -60), 0);
        EXPECT_EQ(m_Shown->Fields.TopRow(), 5 + static_cast<int>(lines));
        EXPECT_EQ(m_Shown->Fields.ListIndex(), 93);
        m_Shown->Fields.Clear();
    });
    EXPECT_TRUE(Becomes([&] { return !(GetWindowLongW(List(), GWL_STYLE) & WS_VSCROLL); }));
    EXPECT_EQ(On([&] { return m_Shown->Fields.TopRow(); }), 0);
}

TEST_F(Checks, ItMayBeDestroyedInsideItsOwnEvent) {
    m_Ui.Run([&] { m_Shown.reset(); });
    struct Own {
        Form Window;
        std::unique_ptr<CheckList> Fields = std::make_unique<CheckList>();
        Own() {
            Window.Bind(u"Fields", *Fields)
                .Create(u"form\nf\t\tfrmOwn\tform\t\t\t6000\t3000\tOwn\t\t\n"
                        u"f\tfrmOwn\tFields\tchecklist\t150\t150\t3705\t1830\t\t1\tAccessibleName=C\n");
            Fields->AddItem(u"a", UiFont());
            Fields->Click = [this] { Fields.reset(); };
            Window.Show();
        }
    };
    for (const bool byKey : {true, false}) {
        std::unique_ptr<Own> own;
        m_Ui.Run([&] {
            own = std::make_unique<Own>();
            own->Fields->Base.SetFocus();
        });
        ASSERT_TRUE(gui::Activate(own->Window.Base.hWnd()));
        if (byKey) {
            gui::Type(VK_DOWN);
            gui::Type(VK_SPACE);
        } else {
            gui::Click(gui::ToScreen(own->Fields->Base.hWnd(), 60, 10));
        }
        EXPECT_TRUE(Becomes([&] { return !own->Fields; })) << byKey;
        m_Ui.Run([&] { own.reset(); });
    }
}

} // namespace
