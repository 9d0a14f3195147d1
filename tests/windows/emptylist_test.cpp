// Where the focus is in a list without rows, as it is seen on the screen.
#include "controls/CheckList.h"
#include "controls/McListBox.h"
#include "controls/Painting.h"
#include "controls/TextBox.h"
#include "controls/Theme.h"
#include "controls/TwoColumnList.h"
#include "windows/FormTest.h"
#include "windows/Pixels.h"

#include <algorithm>
#include <ostream>

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmLists\tform\t\t\t6900\t4500\tLists\t\t\n"
    u"f\tfrmLists\tOther\ttext\t150\t3750\t2250\t360\t\t1\tAccessibleName=Other\n"
    u"f\tfrmLists\tFiles\tMcListBox\t150\t2250\t3705\t1305\t\t2\tAppearance=0; RowHeight=20; ShowIcon=yes; "
    u"IconFocus=no; FullRowSelect=yes; FocusRectangle=yes; AutoHideScrollBars=yes; ForeColor=Ink; "
    u"AccessibleName=Files\n"
    u"f\tfrmLists\tTicks\tchecklist\t150\t150\t3705\t1830\t\t3\tAccessibleName=Ticks\n"
    u"f\tfrmLists\tTable\tlistview\t3975\t150\t2775\t2490\t\t4\tColumns=One|Two; AccessibleName=Table\n";

struct ListsForm {
    Form Window;
    TextBox Other;
    McListBox Files;
    CheckList Ticks;
    TwoColumnList Table;
    ListsForm() {
        Window.Bind(u"Other", Other).Bind(u"Files", Files).Bind(u"Ticks", Ticks).Bind(u"Table", Table);
        Window.Create(kLayout);
        Window.Base.Left(0); // on the screen as a whole at 192 DPI too
        Window.Base.Top(0);
        Window.Show();
        Other.Base.SetFocus();
    }
};

// The dots of the sign: how many there are, and what they lie in.
struct Dots {
    int Count = 0;
    RECT Around{};
    bool operator==(const Dots& other) const {
        return Count == other.Count && EqualRect(&Around, &other.Around);
    }
    friend std::ostream& operator<<(std::ostream& out, const Dots& dots) {
        return out << dots.Count << " in " << dots.Around.left << ' ' << dots.Around.top << ' '
                   << dots.Around.right << ' ' << dots.Around.bottom;
    }
};

class EmptyList : public gui::FormTest<ListsForm> {
protected:
    // One of the three; Left and Top of a row's mark in pixels of 96 DPI.
    struct Tried {
        const char* Name;
        Control& Base;
        int Left, Top;
        std::function<void()> Add, Clear; // a row of blanks
    };
    std::vector<Tried> All() {
        ListsForm& form = *m_Shown;
        return {{"files", form.Files.Base, 24, 0,
                 [&] {
                     form.Files.AddItem(u" ");
                     form.Files.Refresh();
                 },
                 [&] { form.Files.Clear(); }},
                {"ticks", form.Ticks.Base, 41, 0, [&] { form.Ticks.AddItem(u" ", UiFont()); },
                 [&] { form.Ticks.Clear(); }},
                {"table", form.Table.Base, 0, 24, [&] { form.Table.AddItem(u" ", u" "); },
                 [&] { form.Table.Clear(); }}};
    }
    // What the screen shows behind the glyphs and below a header.
    Dots Seen(const Tried& list) {
        m_Ui.Settle();
        return On([&] {
            const HWND window = list.Base.hWnd();
            for (int i = 0; i < 3; ++i) UpdateWindow(window);
            RECT client;
            GetClientRect(window, &client);
            const HDC screen = GetDC(window);
            const gui::Pixels shown = gui::Drawn(client.right, client.bottom, [&](HDC dc) {
                BitBlt(dc, 0, 0, client.right, client.bottom, screen, 0, 0, SRCCOPY);
            });
            ReleaseDC(window, screen);
            const COLORREF ink = Theme::Pick(palette::Ink, COLOR_WINDOWTEXT);
            Dots dots;
            for (int y = Px(list.Top); y < client.bottom; ++y) {
                for (int x = Px(list.Left); x < client.right; ++x) {
                    if (shown.At(x, y) != ink) continue;
                    ++dots.Count;
                    const RECT dot{x, y, x + 1, y + 1};
                    UnionRect(&dots.Around, &dots.Around, &dot);
                }
            }
            return dots;
        });
    }
    // The mark of the first row, which is 20 high; the table has a line under it.
    Dots Mark(const Tried& list) {
        RECT client{};
        m_Ui.Run([&] { GetClientRect(list.Base.hWnd(), &client); });
        const int hair = Hair(), line = list.Top > 0 ? hair : 0;
        Dots mark;
        mark.Around = Inset({Px(list.Left), Px(list.Top), client.right, Px(list.Top) + Px(20) - line}, hair);
        return mark;
    }
    void FocusOther() {
        m_Ui.Run([&] { m_Shown->Other.Base.SetFocus(); });
        ASSERT_TRUE(FocusComesTo(m_Shown->Other.Base));
    }
};

TEST_F(EmptyList, TabShowsTheFocusWhereTheFirstRowWillBe) {
    for (const bool contrast : {false, true}) {
        for (const int dpi : {96, 120, 144, 192}) {
            SetHighContrast(contrast);
            SetDpi(dpi);
            FocusOther();
            for (const Tried& list : All()) {
                SCOPED_TRACE(std::string(list.Name) + (contrast ? ", contrast, " : ", ") +
                             std::to_string(dpi));
                EXPECT_EQ(Seen(list), Dots());
                gui::Type(VK_TAB);
                ASSERT_TRUE(FocusComesTo(list.Base));
                const Dots shown = Seen(list);
                Dots expected = Mark(list);
                // Every second dot of its border.
                const int hair = Hair(),
                          border = 2 * (WidthOf(expected.Around) + HeightOf(expected.Around)) * hair;
                expected.Count = shown.Count;
                EXPECT_EQ(shown, expected);
                EXPECT_NEAR(shown.Count, border / 2, 6 * hair * hair);
            }
            FocusOther();
            for (const Tried& list : All()) EXPECT_EQ(Seen(list), Dots()) << list.Name;
        }
    }
}

TEST_F(EmptyList, TheFirstRowTakesItOverAndGivesItBack) {
    for (const Tried& list : All()) {
        SCOPED_TRACE(list.Name);
        m_Ui.Run([&] { list.Base.SetFocus(); });
        const Dots empty = Seen(list);
        EXPECT_GT(empty.Count, 0);
        m_Ui.Run(list.Add);
        EXPECT_EQ(Seen(list), empty);
        m_Ui.Run(list.Clear);
        EXPECT_EQ(Seen(list), empty);
    }
}

TEST_F(EmptyList, NoneWhereTheListIsDisabledOrWithoutTheSign) {
    for (const Tried& list : All()) {
        SCOPED_TRACE(list.Name);
        m_Ui.Run([&] {
            list.Base.SetFocus();
            list.Base.Enabled(false);
        });
        EXPECT_EQ(Seen(list), Dots());
    }
    m_Ui.Run([&] {
        m_Shown->Files.Base.Enabled(true);
        m_Shown->Files.Base.SetFocus();
        m_Shown->Files.FocusRectangle(false);
    });
    EXPECT_EQ(Seen(All().front()), Dots());
}

} // namespace
