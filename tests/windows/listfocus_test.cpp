// Where the focus is in a list without a current row, as it is seen on the screen.
#include "controls/CheckList.h"
#include "controls/Painting.h"
#include "controls/TextBox.h"
#include "controls/Theme.h"
#include "controls/TwoColumnList.h"
#include "windows/FormTest.h"
#include "windows/Pixels.h"

#include <cstdlib>

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmLists\tform\t\t\t6900\t4500\tLists\t\t\n"
    u"f\tfrmLists\tOther\ttext\t150\t3750\t2250\t360\t\t1\tAccessibleName=Other\n"
    u"f\tfrmLists\tTicks\tchecklist\t150\t150\t3705\t1830\t\t2\tAccessibleName=Ticks\n"
    u"f\tfrmLists\tTable\tlistview\t3975\t150\t2775\t2490\t\t3\tColumns=One|Two; AccessibleName=Table\n";

struct ListsForm {
    Form Window;
    TextBox Other;
    CheckList Ticks;
    TwoColumnList Table;
    ListsForm() {
        Window.Bind(u"Other", Other).Bind(u"Ticks", Ticks).Bind(u"Table", Table).Create(kLayout);
        for (int i = 0; i < 40; ++i) {
            Ticks.AddItem(u"row " + text::Decimal(i), UiFont());
            Table.AddItem(u"row " + text::Decimal(i), u"x");
        }
        Window.Show();
        Other.Base.SetFocus();
    }
};

class ListFocus : public gui::FormTest<ListsForm> {
protected:
    // The rows whose upper edge is dotted, of those seen from the first.
    std::vector<int> Dotted(const Control& list) {
        m_Ui.Settle();
        return On([&] {
            const bool table = &list == &m_Shown->Table.Base;
            const HWND window = list.hWnd();
            for (int i = 0; i < 3; ++i) UpdateWindow(window);
            const gui::Pixels shown = gui::ShownOf(window);
            std::vector<int> dotted;
            for (int row = 0; row < 5; ++row) {
                const int y = (table ? Px(24) : 0) + row * Px(20) + Hair();
                const RECT edge{table ? 2 * Hair() : Px(60), y, shown.Width - 2 * Hair(), y + 1};
                // Every second pixel; a selected row has them in the colour of its text.
                const COLORREF ink = Theme::Pick(palette::Ink, COLOR_WINDOWTEXT),
                               light = Theme::Pick(palette::Card, COLOR_HIGHLIGHTTEXT);
                const bool current = row == (table ? m_Shown->Table.ListIndex() : m_Shown->Ticks.ListIndex());
                const int dots = shown.Count(current ? light : ink, edge);
                if (std::abs(dots - WidthOf(edge) / 2) <= Hair()) dotted.push_back(row);
            }
            return dotted;
        });
    }
    using Rows = std::vector<int>;
};

TEST_F(ListFocus, TabShowsItAtTheFirstRowSeen) {
    const Control &ticks = m_Shown->Ticks.Base, &table = m_Shown->Table.Base;
    for (const bool contrast : {false, true}) {
        SCOPED_TRACE(contrast);
        SetHighContrast(contrast);
        m_Ui.Run([&] { m_Shown->Other.Base.SetFocus(); });
        EXPECT_EQ(Dotted(ticks), Rows{});
        EXPECT_EQ(Dotted(table), Rows{});
        gui::Type(VK_TAB);
        ASSERT_TRUE(FocusComesTo(ticks));
        EXPECT_EQ(Dotted(ticks), Rows{0});
        EXPECT_EQ(Dotted(table), Rows{});
        gui::Type(VK_TAB);
        ASSERT_TRUE(FocusComesTo(table));
        EXPECT_EQ(Dotted(ticks), Rows{});
        EXPECT_EQ(Dotted(table), Rows{0});
        EXPECT_EQ(On([&] { return m_Shown->Table.ListIndex(); }), -1); // it chooses nothing
    }
}

TEST_F(ListFocus, TheCurrentRowTakesItOver) {
    const Control &ticks = m_Shown->Ticks.Base, &table = m_Shown->Table.Base;
    m_Ui.Run([&] { m_Shown->Ticks.Base.SetFocus(); });
    EXPECT_EQ(Dotted(ticks), Rows{0});
    m_Ui.Run([&] { m_Shown->Ticks.ListIndex(2); });
    EXPECT_EQ(Dotted(ticks), Rows{2});
    m_Ui.Run([&] { m_Shown->Ticks.ListIndex(-1); });
    EXPECT_EQ(Dotted(ticks), Rows{0});
    m_Ui.Run([&] { m_Shown->Table.Base.SetFocus(); });
    EXPECT_EQ(Dotted(table), Rows{0});
    m_Ui.Run([&] { m_Shown->Table.ListIndex(2); });
    EXPECT_EQ(Dotted(table), Rows{2});
    m_Ui.Run([&] { m_Shown->Table.ListIndex(-1); });
    EXPECT_EQ(Dotted(table), Rows{0});
}

TEST_F(ListFocus, ItStaysAtTheFirstRowSeenWhileTheListScrolls) {
    for (const Control* list : {&m_Shown->Ticks.Base, &m_Shown->Table.Base}) {
        m_Ui.Run([&] { ::SetFocus(list->hWnd()); });
        EXPECT_EQ(Dotted(*list), Rows{0});
        for (const WPARAM way : {SB_LINEDOWN, SB_PAGEDOWN, SB_LINEUP}) {
            m_Ui.Run([&] { SendMessageW(list->hWnd(), WM_VSCROLL, way, 0); });
            EXPECT_EQ(Dotted(*list), Rows{0}) << way;
        }
    }
}

} // namespace
