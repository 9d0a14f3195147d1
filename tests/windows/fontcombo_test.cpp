// Font list: any text, the entries, what screen readers are told.
#include "windows/FontComboForm.h"
#include "windows/Pixels.h"

namespace {

using FontCombos = gui::FontCombos;

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

} // namespace
