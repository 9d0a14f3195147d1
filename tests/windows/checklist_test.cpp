// The check list: ticks by mouse, Space and code, rows with their own font, scrolling, look.
#include "controls/CheckList.h"
#include "controls/Dpi.h"
#include "controls/Label.h"
#include "controls/Painting.h"
#include "controls/TextBox.h"
#include "windows/FormTest.h"
#include "windows/Pixels.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmChecks\tform\t\t\t6000\t6000\tChecks\t\t\n"
    u"f\tfrmChecks\tLabelFields\tlabel\t150\t150\t3705\t300\tSelect &field(s) to convert:\t\t\n"
    u"f\tfrmChecks\tFields\tchecklist\t150\t450\t3705\t1830\t\t1\tRowHeight=20; Font=CheckList\n"
    u"f\tfrmChecks\tOther\ttext\t150\t3000\t2250\t360\t\t2\tAccessibleName=Other\n";

struct ChecksForm {
    Form Window;
    Label LabelFields;
    CheckList Fields;
    TextBox Other;
    std::vector<std::string> Log;
    ChecksForm() {
        Window.Bind(u"LabelFields", LabelFields)
            .Bind(u"Fields", Fields)
            .Bind(u"Other", Other)
            .Create(kLayout);
        Font bold = Fields.Base.Font();
        bold.Bold = true;
        Fields.AddItem(u"Table: Customers", bold, CheckList::kTable);
        Fields.AddItem(u"CustomerName", Fields.Base.Font(), CheckList::kColumn, 16);
        Fields.AddItem(u"Address", Fields.Base.Font(), CheckList::kColumn, 16);
        Fields.Click = [this] {
            Log.push_back(std::to_string(Fields.ListIndex()) +
                          (Fields.Checked(Fields.ListIndex()) ? " on" : " off"));
        };
        Window.Show();
    }
};

class Checks : public gui::FormTest<ChecksForm> {
protected:
    using Told = std::vector<std::string>;
    HWND List() { return m_Shown->Fields.Base.hWnd(); }
    POINT At(int row, int x = 60) { return gui::ToScreen(List(), Px(x), Px(row * 20 + 10)); }
    void FillTo(int count) {
        m_Ui.Run([&] {
            while (m_Shown->Fields.ListCount() < count)
                m_Shown->Fields.AddItem(u"Row " + text::Decimal(m_Shown->Fields.ListCount()), UiFont());
        });
        m_Ui.Settle();
    }
};

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

TEST_F(Checks, SpaceThatIsHeldTicksOnce) {
    m_Ui.Run([&] {
        m_Shown->Fields.ListIndex(0);
        SendMessageW(List(), WM_KEYDOWN, VK_SPACE, 1);
        for (int i = 0; i < 5; ++i) SendMessageW(List(), WM_KEYDOWN, VK_SPACE, 1 | (1 << 30));
    });
    EXPECT_EQ(m_Shown->Log, (Told{"0 on"}));
}

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

TEST_F(Checks, ABurstOfRowsCostsOneRefreshAndAPaintIsOneBlit) {
    m_Ui.Run([&] { UpdateWindow(m_Shown->Window.Base.hWnd()); });
    std::unique_ptr<gui::HeardEvents> heard;
    m_Ui.Run([&] {
        heard = std::make_unique<gui::HeardEvents>();
        for (int i = 0; i < 5'000; ++i) m_Shown->Fields.AddItem(u"x", UiFont());
    });
    EXPECT_TRUE(Becomes([&] { return (GetWindowLongW(List(), GWL_STYLE) & WS_VSCROLL) != 0; }));
    EXPECT_EQ(heard->Count(EVENT_OBJECT_REORDER, List()), 1);
    m_Ui.Run([&] {
        heard.reset();
        UpdateWindow(List());
        const PaintTally before = PaintsSoFar();
        m_Shown->Fields.Checked(1, true);
        UpdateWindow(List());
        EXPECT_EQ(PaintsSoFar().Paints - before.Paints, 1);
        EXPECT_EQ(PaintsSoFar().Blits - before.Blits, 1);
        const gui::Pixels erased = gui::Drawn(20, 20, [&](HDC dc) {
            EXPECT_NE(SendMessageW(List(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 0);
        });
        EXPECT_EQ(erased.Count(RGB(255, 0, 255)), 400);
    });
}

TEST_F(Checks, WhatInputBringsAboutIsWhatTheRowsDraw) {
    gui::Click(At(1));
    EXPECT_TRUE(Becomes([&] { return m_Shown->Log.size() == 1; }));
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        const gui::Pixels shown = On([&] { return gui::ClientOf(List()); });
        const int height = 20 * dpi / 96;
        const gui::Pixels drawn = On([&] {
            const Font plain = m_Shown->Fields.Base.Font();
            Font bold = plain;
            bold.Bold = true;
            const FontHandle thin(plain, dpi), fat(bold, dpi);
            return gui::Drawn(shown.Width, 2 * height, [&](HDC dc) {
                DrawCheckRow(dc, {0, 0, shown.Width, height},
                             {.Text = u"Table: Customers", .Font = fat.Get(), .Picture = 0, .Dpi = dpi});
                DrawCheckRow(dc, {0, height, shown.Width, 2 * height},
                             {.Text = u"CustomerName",
                              .Font = thin.Get(),
                              .Picture = 1,
                              .Indent = 16,
                              .Checked = true,
                              .Selected = true,
                              .Focused = true,
                              .Dpi = dpi});
            });
        });
        int differing = 0;
        for (int y = 0; y < 2 * height; ++y) {
            for (int x = 0; x < shown.Width; ++x) differing += shown.At(x, y) != drawn.At(x, y);
        }
        EXPECT_EQ(differing, 0) << dpi;
        // The block stands right of the picture: 16 of indent, 41 of glyph and picture.
        const int left = Scaled(16, dpi) + Scaled(41, dpi);
        EXPECT_EQ(shown.At(left - 1, height + 1), palette::Card) << dpi;
        EXPECT_EQ(shown.At(left, height), palette::SelGrad) << dpi;
        const int hair = HairLine(dpi);
        EXPECT_EQ(shown.At(left + hair, height + hair), palette::Card) << dpi; // the focus, a line inside
        EXPECT_NE(shown.At(left + 2 * hair, height + 2 * hair), palette::Card) << dpi;
    }
}

TEST_F(Checks, StatesHaveTheirColours) {
    const auto drawn = [](const CheckRowState& state) {
        return gui::Drawn(200, 20, [&](HDC dc) { DrawCheckRow(dc, {0, 0, 200, 20}, state); });
    };
    m_Ui.Run([&] {
        const HFONT font = m_Shown->Fields.Base.FontInUse();
        CheckRowState state{.Text = u"", .Font = font, .Selected = true};
        EXPECT_EQ(drawn(state).At(198, 0), palette::SelGrad);
        EXPECT_EQ(drawn(state).At(2, 2), palette::Card);
        state.Enabled = false;
        EXPECT_EQ(drawn(state).At(198, 10), palette::SelDisabled);
        EXPECT_EQ(drawn(state).At(2, 2), palette::DisabledGround);
        state.Enabled = true;
        const gui::Pixels off = drawn(state);
        state.Checked = true;
        EXPECT_FALSE(off == drawn(state));
        state.Selected = false;
        EXPECT_EQ(drawn(state).At(198, 10), palette::Card);
    });
    SetHighContrast(true);
    m_Ui.Run([&] {
        const HFONT font = m_Shown->Fields.Base.FontInUse();
        CheckRowState state{.Text = u"", .Font = font, .Checked = true};
        gui::Pixels row = drawn(state);
        EXPECT_EQ(row.At(198, 10), GetSysColor(COLOR_WINDOW));
        EXPECT_EQ(row.At(5 + 6, 10), GetSysColor(COLOR_WINDOWTEXT)); // the core of the tick
        state.Selected = true;
        EXPECT_EQ(drawn(state).At(198, 10), GetSysColor(COLOR_HIGHLIGHT));
        m_Shown->Fields.Base.Enabled(false);
        EXPECT_EQ(gui::ClientOf(List()).At(200, 110), GetSysColor(COLOR_WINDOW));
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
