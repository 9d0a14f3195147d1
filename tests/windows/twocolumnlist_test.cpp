// The table of two columns: rows, the list view's own messages, events, look.
#include "controls/Painting.h"
#include "controls/TextBox.h"
#include "controls/TwoColumnList.h"
#include "windows/FormTest.h"
#include "windows/Pixels.h"

#include <commctrl.h>

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmTable\tform\t\t\t6600\t6000\tTable\t\t\n"
    u"f\tfrmTable\tTable\tlistview\t150\t150\t6000\t2490\t\t1\tColumns=Old Font|Replaced Font; "
    u"AccessibleName=Fonts\n"
    u"f\tfrmTable\tOther\ttext\t150\t3000\t2250\t360\t\t2\tAccessibleName=Other\n";

struct TableForm {
    Form Window;
    TwoColumnList Table;
    TextBox Other;
    std::vector<std::string> Log;
    TableForm() {
        Window.Bind(u"Table", Table).Bind(u"Other", Other).Create(kLayout);
        for (const auto& [from, to] : {std::pair{u"SutonnyMJ", u"SolaimanLipi"},
                                       {u"sutonnymj", u"Nikosh"},
                                       {u"BurigangaMJ", u"Siyam Rupali"}})
            Table.AddItem(from, to);
        Window.Show();
    }
    void Listen() {
        Table.MouseDown = [this](int button, int, int, int) {
            Log.push_back("down" + std::to_string(button));
        };
        Table.Click = [this] { Log.push_back("click"); };
        Table.SelChange = [this] { Log.push_back("sel" + std::to_string(Table.ListIndex())); };
    }
};

class Tables : public gui::FormTest<TableForm> {
protected:
    HWND List() { return m_Shown->Table.Base.hWnd(); }
    HWND Header() { return reinterpret_cast<HWND>(SendMessageW(List(), LVM_GETHEADER, 0, 0)); }
    RECT Cell(int row, int column, int part = LVIR_LABEL) {
        return On([&] {
            RECT place{part, column, 0, 0};
            SendMessageW(List(), LVM_GETSUBITEMRECT, static_cast<WPARAM>(row),
                         reinterpret_cast<LPARAM>(&place));
            return place;
        });
    }
    void ClickCell(int row, int column) {
        const RECT cell = Cell(row, column);
        gui::Click(gui::ToScreen(List(), cell.left + 20, (cell.top + cell.bottom) / 2));
    }
};

TEST_F(Tables, RowsAreAddedChangedFoundAndRemoved) {
    m_Ui.Run([&] {
        TwoColumnList& table = m_Shown->Table;
        EXPECT_EQ(table.Header(0), u"Old Font");
        EXPECT_EQ(table.Header(1), u"Replaced Font");
        EXPECT_EQ(table.ListCount(), 3);
        EXPECT_EQ(table.Text(1, 1), u"Nikosh");
        // The search takes any case; the caller looks for the exact one behind.
        EXPECT_EQ(table.FindItem(u"SUTONNYMJ"), 0);
        EXPECT_EQ(table.FindItem(u"SutonnyMJ", 1), 1);
        EXPECT_EQ(table.FindItem(u"SutonnyMJ", 2), -1);
        EXPECT_EQ(table.FindItem(u"SutonnyMJ", 99), -1);
        EXPECT_EQ(table.FindItem(u"SutonnyMJ", -5), 0);
        EXPECT_EQ(table.AddItem(u"\u0995", u""), 3);
        table.Text(3, 1, std::u16string(5'000, u'x'));
        EXPECT_EQ(table.Text(3, 1), std::u16string(5'000, u'x'));
        table.Remove(0);
        EXPECT_EQ(table.Text(0, 0), u"sutonnymj");
        table.Clear();
        EXPECT_EQ(table.ListCount(), 0);
        EXPECT_EQ(table.FindItem(u"SutonnyMJ"), -1);
    });
}

TEST_F(Tables, OddTextsAreTakenAsTheyAre) {
    m_Ui.Run([&] {
        TwoColumnList& table = m_Shown->Table;
        table.Clear();
        const std::vector<std::u16string> texts = {std::u16string(100'000, u'w'), u"", u"a|b\tc", u"&a && b&",
                                                   u"\xD800 \U0001F600 \xDC00"};
        for (const std::u16string& text : texts) {
            const int row = table.AddItem(text, text);
            EXPECT_TRUE(table.Text(row, 0) == text) << row;
            EXPECT_TRUE(table.Text(row, 1) == text) << row;
            EXPECT_EQ(table.FindItem(text), row);
            table.Header(1, text);
            EXPECT_TRUE(table.Header(1) == text) << row;
            EXPECT_TRUE(gui::Ask(Header(), 2).Name == text) << row;
            gui::ClientOf(Header());
        }
        table.AddItem(std::u16string(u"ends\0here", 9), u"");
        EXPECT_EQ(table.Text(5, 0), u"ends");
        gui::ClientOf(List());
        table.Base.Font({u"No Such Face", 12, false, false});
        gui::ClientOf(List());
    });
}

TEST_F(Tables, RowsAndColumnsThatDoNotExistChangeNothing) {
    m_Ui.Run([&] {
        TwoColumnList& table = m_Shown->Table;
        for (const int row : {-1, 3, 1'000'000}) {
            EXPECT_EQ(table.Text(row, 0), u"");
            table.Text(row, 0, u"lost");
            table.Remove(row);
            table.EnsureVisible(row);
        }
        for (const int column : {-1, 2}) {
            EXPECT_EQ(table.Text(0, column), u"");
            EXPECT_EQ(table.Header(column), u"");
            table.Text(0, column, u"lost");
            table.Header(column, u"lost");
        }
        EXPECT_EQ(table.ListCount(), 3);
        EXPECT_EQ(table.Text(0, 0), u"SutonnyMJ");
        table.ListIndex(1);
        table.ListIndex(3);
        table.ListIndex(-2);
        EXPECT_EQ(table.ListIndex(), 1);
        table.ListIndex(-1);
        EXPECT_EQ(table.ListIndex(), -1);
    });
}

TEST_F(Tables, AnswersTheListViewsMessages) {
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        RECT client;
        GetClientRect(List(), &client);
        const int header = 24 * dpi / 96, row = 20 * dpi / 96, half = client.right / 2;
        RECT head;
        GetClientRect(Header(), &head);
        EXPECT_EQ(head.bottom, header) << dpi;
        const RECT second = Cell(1, 1, LVIR_BOUNDS);
        EXPECT_EQ(second.left, half) << dpi;
        EXPECT_EQ(second.right, client.right) << dpi;
        EXPECT_EQ(second.top, header + row) << dpi;
        EXPECT_EQ(second.bottom, header + 2 * row) << dpi;
        const RECT label = Cell(1, 0);
        EXPECT_LE(label.right, half) << dpi;
        m_Ui.Run([&] {
            LVHITTESTINFO hit{};
            hit.pt = {half + 5, header + 2 * row + 3};
            EXPECT_EQ(SendMessageW(List(), LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)), 2);
            EXPECT_EQ(hit.iItem, 2);
            EXPECT_EQ(hit.iSubItem, 1);
            hit.pt = {5, client.bottom - 2};
            EXPECT_EQ(SendMessageW(List(), LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)), -1);
        });
    }
}

TEST_F(Tables, APressTellsMouseDownThenTheRowThenClick) {
    m_Ui.Run([&] { m_Shown->Listen(); });
    ClickCell(2, 1);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Log.size() >= 3; }));
    EXPECT_EQ(m_Shown->Log, (std::vector<std::string>{"down1", "sel2", "click"}));
    EXPECT_TRUE(FocusComesTo(m_Shown->Table.Base));
}

TEST_F(Tables, KeysAndCodeSelectWithoutClick) {
    m_Ui.Run([&] {
        m_Shown->Listen();
        m_Shown->Table.ListIndex(0);
        m_Shown->Table.ListIndex(0);
        m_Shown->Table.Base.SetFocus();
    });
    EXPECT_TRUE(Becomes([&] { return m_Shown->Log.size() == 1; }));
    gui::Type(VK_DOWN);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Log.size() >= 2; }));
    EXPECT_EQ(On([&] { return m_Shown->Log; }), (std::vector<std::string>{"sel0", "sel1"}));
    EXPECT_EQ(On([&] { return m_Shown->Table.ListIndex(); }), 1);
    gui::Type(VK_TAB);
    EXPECT_TRUE(FocusComesTo(m_Shown->Other.Base));
}

TEST_F(Tables, RowsAreDrawnAsTheirStateSays) {
    m_Ui.Run([&] {
        m_Shown->Table.ListIndex(1);
        m_Shown->Table.Base.SetFocus();
    });
    const auto client = [&] { return On([&] { return gui::ClientOf(List()); }); };
    const auto at = [&](int row) { return Cell(row, 0, LVIR_BOUNDS); };
    const RECT first = at(0), second = at(1);
    gui::Pixels drawn = client();
    EXPECT_EQ(drawn.At(first.right - 3, first.top + 2), palette::Card);
    EXPECT_EQ(drawn.At(first.left + 50, first.bottom - 1), palette::Grid);
    EXPECT_EQ(drawn.At(second.right - 3, second.top + 2), palette::Sel);
    EXPECT_EQ(drawn.At(first.right - 3, drawn.Height - 2), palette::Card); // below the rows
    m_Ui.Run([&] { m_Shown->Other.Base.SetFocus(); });
    EXPECT_EQ(client().At(second.right - 3, second.top + 2), palette::Card);
    m_Ui.Run([&] { m_Shown->Table.HideSelection(false); });
    EXPECT_EQ(client().At(second.right - 3, second.top + 2), RGB(0xCF, 0xE3, 0xE3));
    m_Ui.Run([&] { m_Shown->Table.Base.Enabled(false); });
    EXPECT_EQ(client().At(second.right - 3, second.top + 2), palette::SelDisabled);
    EXPECT_EQ(client().Count(palette::DisabledText, second), 0); // its text is white
    EXPECT_EQ(client().At(first.right - 3, first.top + 2), palette::DisabledGround);
    m_Ui.Run([&] { m_Shown->Table.Base.Enabled(true); });
    SetHighContrast(true);
    drawn = client();
    EXPECT_EQ(drawn.At(second.right - 3, second.top + 2), GetSysColor(COLOR_HIGHLIGHT));
    EXPECT_EQ(drawn.At(first.right - 3, first.top + 2), GetSysColor(COLOR_WINDOW));
}

TEST_F(Tables, TheHeaderHasItsGradientAndLines) {
    const gui::Pixels drawn = On([&] { return gui::ClientOf(Header()); });
    EXPECT_EQ(drawn.Height, Px(24));
    EXPECT_EQ(drawn.At(2, 0), palette::HeaderTop);
    EXPECT_EQ(drawn.At(2, drawn.Height - 1), palette::FieldBorder);
    EXPECT_EQ(drawn.At(drawn.Width / 2 - 1, 10), palette::Line);
    EXPECT_EQ(drawn.At(drawn.Width - 1, 10), palette::Line);
    SetHighContrast(true);
    EXPECT_EQ(On([&] { return gui::ClientOf(Header()); }).At(2, 10), GetSysColor(COLOR_WINDOW));
}

TEST_F(Tables, ADisabledHeaderHasNoStrongLines) {
    const auto lines = [&] {
        const gui::Pixels drawn = On([&] { return gui::ClientOf(Header()); });
        return std::vector{drawn.At(2, drawn.Height - 1), drawn.At(drawn.Width / 2 - 1, 10)};
    };
    m_Ui.Run([&] { m_Shown->Table.Base.Enabled(false); });
    EXPECT_EQ(lines(), (std::vector<COLORREF>{palette::Line, palette::Line}));
    SetHighContrast(true);
    const COLORREF grey = GetSysColor(COLOR_GRAYTEXT), ink = GetSysColor(COLOR_WINDOWTEXT);
    EXPECT_EQ(lines(), (std::vector<COLORREF>{grey, grey}));
    m_Ui.Run([&] { m_Shown->Table.Base.Enabled(true); });
    EXPECT_EQ(lines(), (std::vector<COLORREF>{ink, ink}));
}

TEST_F(Tables, TypingALetterFindsARow) {
    m_Ui.Run([&] { m_Shown->Table.Base.SetFocus(); });
    gui::Type('B');
    EXPECT_TRUE(Becomes([&] { return m_Shown->Table.ListIndex() == 2; }));
}

TEST_F(Tables, WhatIsShownIsWhatTheRowsDraw) {
    m_Ui.Run([&] { m_Shown->Table.Base.SetFocus(); });
    ClickCell(0, 0);
    EXPECT_TRUE(Becomes([&] { return m_Shown->Table.ListIndex() == 0; }));
    const RECT row = Cell(0, 0, LVIR_BOUNDS);
    const gui::Pixels shown = On([&] { return gui::ClientOf(List()); });
    const gui::Pixels drawn = On([&] {
        RECT client;
        GetClientRect(List(), &client);
        TableRowState state{
            .Texts = {u"SutonnyMJ", u"SolaimanLipi"},
            .Widths = {static_cast<int>(client.right / 2), static_cast<int>(client.right - client.right / 2)},
            .Font = m_Shown->Table.Base.FontInUse(),
            .Selected = true,
            .Focused = true,
            .Marked = true,
            .Dpi = m_Shown->Window.Dpi()};
        return gui::Drawn(shown.Width, shown.Height, [&](HDC dc) { DrawTableRow(dc, row, state); });
    });
    for (int y = row.top; y < row.bottom; ++y) {
        for (int x = row.left; x < row.right; ++x) ASSERT_EQ(shown.At(x, y), drawn.At(x, y)) << x << ' ' << y;
    }
}

TEST_F(Tables, APaintIsOneBlitAndReadsTheVisibleRowsOnly) {
    m_Ui.Run([&] {
        SendMessageW(List(), WM_SETREDRAW, FALSE, 0);
        for (int i = 0; i < 2'000; ++i) m_Shown->Table.AddItem(text::Decimal(i), u"x");
        SendMessageW(List(), WM_SETREDRAW, TRUE, 0);
        m_Shown->Table.EnsureVisible(1'999);
        RedrawWindow(List(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        const PaintTally before = PaintsSoFar();
        m_Shown->Table.Base.Refresh();
        EXPECT_EQ(PaintsSoFar().Paints - before.Paints, 1);
        EXPECT_EQ(PaintsSoFar().Blits - before.Blits, 1);
        const gui::Pixels erased = gui::Drawn(20, 20, [&](HDC dc) {
            EXPECT_NE(SendMessageW(List(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 0);
        });
        EXPECT_EQ(erased.Count(RGB(255, 0, 255)), 400);
    });
    // With a scroll bar the columns share what is left, and none stands below.
    EXPECT_FALSE(GetWindowLongW(List(), GWL_STYLE) & WS_HSCROLL);
    EXPECT_TRUE(GetWindowLongW(List(), GWL_STYLE) & WS_VSCROLL);
}

TEST_F(Tables, ScreenReadersGetRowsWithBothColumns) {
    std::unique_ptr<gui::HeardEvents> heard;
    m_Ui.Run([&] {
        heard = std::make_unique<gui::HeardEvents>();
        m_Shown->Table.Base.SetFocus();
        m_Shown->Table.ListIndex(2);
        m_Shown->Table.Text(2, 1, u"Kalpurush");
    });
    EXPECT_EQ(heard->Count(EVENT_OBJECT_SELECTION, List(), 3), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_FOCUS, List(), 3), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_VALUECHANGE, List(), 3), 1);
    m_Ui.Run([&] { m_Shown->Other.Base.SetFocus(); });
    m_Ui.Run([&] { m_Shown->Table.Base.SetFocus(); }); // comes back to its row
    EXPECT_EQ(heard->Count(EVENT_OBJECT_FOCUS, List(), 3), 2);
    const gui::Spoken list = Said(m_Shown->Table.Base), row = Said(m_Shown->Table.Base, 3);
    EXPECT_EQ(list.Name, u"Fonts");
    EXPECT_EQ(list.Role, ROLE_SYSTEM_LIST);
    EXPECT_EQ(list.Children, 3);
    EXPECT_EQ(row.Name, u"BurigangaMJ");
    EXPECT_EQ(row.Value, u"Kalpurush");
    EXPECT_EQ(row.Role, ROLE_SYSTEM_LISTITEM);
    EXPECT_TRUE(row.State & STATE_SYSTEM_SELECTED);
    EXPECT_TRUE(row.State & STATE_SYSTEM_FOCUSED);
    EXPECT_EQ(row.Place.bottom - row.Place.top, Px(20));
    EXPECT_FALSE(Said(m_Shown->Table.Base, 1).State & STATE_SYSTEM_SELECTED);
    m_Ui.Run([&] {
        EXPECT_EQ(gui::DoDefault(List(), 1), S_OK);
        EXPECT_EQ(m_Shown->Table.ListIndex(), 0);
        heard.reset();
    });
}

TEST_F(Tables, ScreenReadersGetTheColumnsOfTheHeader) {
    std::unique_ptr<gui::HeardEvents> heard;
    m_Ui.Run([&] {
        heard = std::make_unique<gui::HeardEvents>();
        m_Shown->Table.Header(1, u"New Font");
    });
    EXPECT_EQ(heard->Count(EVENT_OBJECT_NAMECHANGE, Header(), 2), 1);
    m_Ui.Run([&] { heard.reset(); });
    const auto said = [&](int child) { return On([&] { return gui::Ask(Header(), child); }); };
    const gui::Spoken header = said(0), first = said(1), second = said(2);
    EXPECT_EQ(header.Name, u"Fonts");
    EXPECT_EQ(header.Role, ROLE_SYSTEM_LIST);
    EXPECT_EQ(header.Children, 2);
    EXPECT_EQ(header.Focus, -1);
    EXPECT_EQ(header.Place.bottom - header.Place.top, Px(24));
    EXPECT_EQ(first.Name, u"Old Font");
    EXPECT_EQ(second.Name, u"New Font");
    EXPECT_EQ(second.Role, ROLE_SYSTEM_COLUMNHEADER);
    EXPECT_EQ(second.DefaultAction, u"");
    EXPECT_EQ(first.Place.right, second.Place.left);
    EXPECT_EQ(second.Place.right, header.Place.right);
    EXPECT_FALSE(second.State & STATE_SYSTEM_UNAVAILABLE);
    m_Ui.Run([&] {
        EXPECT_EQ(gui::ChildAt(Header(), {second.Place.left + 9, second.Place.top + 3}), 2);
        m_Shown->Table.Base.Enabled(false);
    });
    EXPECT_TRUE(said(2).State & STATE_SYSTEM_UNAVAILABLE);
}

TEST_F(Tables, ItMayBeDestroyedInsideItsOwnEvents) {
    m_Ui.Run([&] { m_Shown.reset(); });
    struct Own {
        Form Window;
        std::unique_ptr<TwoColumnList> Table = std::make_unique<TwoColumnList>();
        Own() {
            Window.Bind(u"Table", *Table)
                .Create(u"form\nf\t\tfrmOwn\tform\t\t\t6000\t3000\tOwn\t\t\n"
                        u"f\tfrmOwn\tTable\tlistview\t150\t150\t4740\t2000\t\t1\tAccessibleName=T\n");
            Table->AddItem(u"a", u"b");
            Window.Show();
        }
    };
    for (const int event : {0, 1, 2}) {
        std::unique_ptr<Own> own;
        int dpi = 0;
        m_Ui.Run([&] {
            own = std::make_unique<Own>();
            dpi = own->Window.Dpi();
            if (event == 0) own->Table->MouseDown = [&](int, int, int, int) { own->Table.reset(); };
            if (event == 1) own->Table->SelChange = [&] { own->Table.reset(); };
            if (event == 2) own->Table->Click = [&] { own->Table.reset(); };
        });
        ASSERT_TRUE(gui::Activate(own->Window.Base.hWnd()));
        gui::Click(gui::ToScreen(own->Table->Base.hWnd(), dpi * 20 / 96, dpi * 34 / 96));
        EXPECT_TRUE(Becomes([&] { return !own->Table; })) << event;
        m_Ui.Run([&] { own.reset(); });
    }
}

} // namespace
