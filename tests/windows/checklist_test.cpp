// The check list: its rows, ticks by code, what screen readers are told.
#include "windows/CheckListForm.h"
#include "windows/Pixels.h"

namespace {

using Checks = gui::Checks;

TEST_F(Checks, CodeTicksWithoutClick) {
    m_Ui.Run([&] {
        CheckList& fields = m_Shown->Fields;
        fields.Checked(0, true);
        fields.ListIndex(2);
        EXPECT_TRUE(fields.Checked(0));
        EXPECT_FALSE(fields.Checked(2));
        EXPECT_EQ(fields.ListIndex(), 2);
    });
    EXPECT_TRUE(m_Shown->Log.empty());
}

TEST_F(Checks, IndexesOutOfRangeAreRefused) {
    m_Ui.Run([&] {
        CheckList& fields = m_Shown->Fields;
        EXPECT_EQ(fields.ListIndex(), -1);
        for (const int row : {-1, 3, 1'000'000, -1'000'000}) {
            EXPECT_EQ(fields.List(row), u"");
            EXPECT_FALSE(fields.Checked(row));
            fields.Checked(row, true);
            EXPECT_FALSE(fields.Checked(row));
            EXPECT_EQ(fields.ItemFont(row), fields.Base.Font());
        }
        fields.ListIndex(1);
        fields.ListIndex(3);
        fields.ListIndex(-2);
        EXPECT_EQ(fields.ListIndex(), 1);
        fields.ListIndex(-1);
        EXPECT_EQ(fields.ListIndex(), -1);
        fields.Clear();
        EXPECT_EQ(fields.ListCount(), 0);
        fields.ListIndex(0);
        EXPECT_EQ(fields.ListIndex(), -1);
    });
    gui::Click(At(0));
    m_Ui.Run([&] { m_Shown->Fields.Base.SetFocus(); });
    gui::Type(VK_SPACE);
    gui::Type(VK_DOWN);
    gui::Type(VK_TAB);
    EXPECT_TRUE(FocusComesTo(m_Shown->Other.Base));
    EXPECT_TRUE(m_Shown->Log.empty());
}

TEST_F(Checks, ARowKeepsItsOwnCopyOfTheFont) {
    m_Ui.Run([&] {
        CheckList& fields = m_Shown->Fields;
        Font font = fields.Base.Font();
        font.Bold = true;
        fields.AddItem(u"Table: Orders", font, CheckList::kTable);
        font.Bold = false;
        font.Name = u"Other";
        EXPECT_TRUE(fields.ItemFont(3).Bold);
        EXPECT_TRUE(fields.ItemFont(0).Bold);
        EXPECT_FALSE(fields.ItemFont(1).Bold);
        fields.Base.Font(UiFont());
        EXPECT_TRUE(fields.ItemFont(3).Bold);
    });
}

TEST_F(Checks, OddTextsAndFacesAreTakenAsTheyAre) {
    const std::vector<std::u16string> texts = {
        std::u16string(100'000, u'w'), u"", u"a|b\tc", u"&a && b&", u"\xD800 \U0001F600 \xDC00",
        std::u16string(u"a\0b", 3)};
    m_Ui.Run([&] {
        CheckList& fields = m_Shown->Fields;
        fields.Clear();
        for (const std::u16string& text : texts)
            fields.AddItem(text, {u"No Such Face", 9, false, false}, 7, 100'000);
        for (const std::u16string& text : texts) fields.AddItem(text, UiFont());
    });
    m_Ui.Settle();
    m_Ui.Run([&] {
        for (int row = 0; row < 12; ++row) {
            m_Shown->Fields.ListIndex(row);
            gui::ClientOf(List());
            EXPECT_TRUE(m_Shown->Fields.List(row) == texts[static_cast<std::size_t>(row % 6)]) << row;
            EXPECT_TRUE(gui::Ask(List(), row + 1).Name == texts[static_cast<std::size_t>(row % 6)]) << row;
        }
    });
}

TEST_F(Checks, ScreenReadersGetRowsAndTheirTicks) {
    std::unique_ptr<gui::HeardEvents> heard;
    m_Ui.Run([&] {
        heard = std::make_unique<gui::HeardEvents>();
        m_Shown->Fields.Base.SetFocus();
        m_Shown->Fields.ListIndex(1);
        m_Shown->Fields.Checked(1, true);
        m_Shown->Fields.Checked(1, true);
    });
    EXPECT_EQ(heard->Count(EVENT_OBJECT_STATECHANGE, List(), 2), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_SELECTION, List(), 2), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_FOCUS, List(), 2), 1);
    const gui::Spoken list = Said(m_Shown->Fields.Base), row = Said(m_Shown->Fields.Base, 2);
    EXPECT_EQ(list.Name, u"Select field(s) to convert:");
    EXPECT_EQ(list.Role, ROLE_SYSTEM_LIST);
    EXPECT_EQ(list.Children, 3);
    EXPECT_EQ(row.Name, u"CustomerName");
    EXPECT_EQ(row.Role, ROLE_SYSTEM_CHECKBUTTON);
    EXPECT_TRUE(row.State & STATE_SYSTEM_CHECKED);
    EXPECT_TRUE(row.State & STATE_SYSTEM_FOCUSED);
    EXPECT_EQ(row.DefaultAction, u"Uncheck");
    EXPECT_EQ(row.Place.bottom - row.Place.top, Px(20));
    EXPECT_FALSE(Said(m_Shown->Fields.Base, 1).State & STATE_SYSTEM_CHECKED);
    // As by the mouse: with Click.
    m_Ui.Run([&] { EXPECT_EQ(gui::DoDefault(List(), 3), S_OK); });
    EXPECT_EQ(m_Shown->Log, (Told{"2 on"}));
    FillTo(50);
    EXPECT_TRUE(Said(m_Shown->Fields.Base, 50).State & STATE_SYSTEM_OFFSCREEN);
    m_Ui.Run([&] { heard.reset(); });
}

TEST_F(Checks, ADisabledListTakesNothing) {
    m_Ui.Run([&] { m_Shown->Fields.Base.Enabled(false); });
    gui::Click(At(1));
    m_Ui.Run([&] { EXPECT_NE(gui::DoDefault(List(), 2), S_OK); });
    EXPECT_TRUE(Said(m_Shown->Fields.Base).State & STATE_SYSTEM_UNAVAILABLE);
    m_Ui.Run([&] {
        m_Shown->Fields.Checked(1, true); // the program is not stopped
        EXPECT_TRUE(m_Shown->Fields.Checked(1));
    });
    EXPECT_TRUE(m_Shown->Log.empty());
}

} // namespace
