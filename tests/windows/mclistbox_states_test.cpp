// A list's states, brought about by real input, beside the drawing of each; what a paint costs.
#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "windows/ListForm.h"

#include <utility>

namespace {

using Lists = gui::Lists;

// The look that the control of that name should have now.
McListBoxState TasksLook(McListBox& list, HFONT bold, const McImageList& images) {
    McListBoxState look;
    look.Row = [&list](int row) -> const ListItem& { return list.Items().Item(row); };
    look.Count = list.ListCount();
    look.ImageList = &images;
    look.Font = list.Base.FontInUse();
    look.BoldFont = bold;
    look.Dpi = list.Base.Dpi();
    look.Appearance = 0;
    look.ShowIcon = look.ShowHover = look.FullRowSelect = look.FocusRectangle = true;
    look.IconFocus = false;
    look.ForeColor = palette::Ink;
    look.BackGradient = 6;
    look.BackGradientCol = palette::ListGrad;
    look.SelGradient = 1;
    look.SelColor = palette::Sel;
    look.SelGradientCol = palette::SelGrad;
    return look;
}

class ListLook : public Lists {
protected:
    void SetUp() override {
        Lists::SetUp();
        if (HasFatalFailure()) return;
        m_Ui.Run([&] {
            for (const char16_t* task :
                 {u"Clipboard", u"Text Files", u"Word Files", u"Excel Files", u"Database"})
                Tasks().AddItem(task, -1, Tasks().ListCount() % 2, Tasks().ListCount() == 4);
            Tasks().Refresh();
        });
    }
    McListBox& Tasks() { return m_Shown->Tasks; }
    // Moves again where a real screen has lost it.
    bool HoverComesTo(int row) {
        const POINT at = RowPoint(Tasks(), row);
        for (int i = 0; i < 5; ++i) {
            gui::MoveTo({at.x + i, at.y});
            if (gui::WaitUntil([&] { return On([&] { return Tasks().HoveredRow() == row; }); }, 2'000))
                return true;
        }
        return false;
    }
    // Compares the whole window with the drawing of that state.
    void ExpectLook(const std::function<void(McListBoxState&)>& set) {
        m_Ui.Run([&] {
            ::Font boldFont = Tasks().Base.Font();
            boldFont.Bold = true;
            const FontHandle bold(boldFont, Tasks().Base.Dpi());
            McListBoxState look = TasksLook(Tasks(), bold.Get(), m_Shown->Images);
            set(look);
            const gui::Pixels shown = gui::WindowOf(Tasks().Base.hWnd());
            EXPECT_EQ(shown, gui::Drawn(shown.Width, shown.Height, [&](HDC dc) {
                          DrawMcListBox(dc, {0, 0, shown.Width, shown.Height}, look);
                      }));
        });
    }
};

TEST_F(ListLook, EachStateByRealInputIsTheDrawing) {
    ExpectLook([](McListBoxState&) {});
    ASSERT_TRUE(HoverComesTo(2));
    ExpectLook([](McListBoxState& look) { look.HoveredRow = 2; });
    gui::Click(RowPoint(Tasks(), 1));
    ASSERT_TRUE(Becomes([&] { return Tasks().ListIndex() == 1; }));
    ASSERT_TRUE(HoverComesTo(3));
    ExpectLook([](McListBoxState& look) {
        look.ListIndex = 1;
        look.HoveredRow = 3;
        look.Focused = true;
    });
    gui::Type(VK_TAB);
    ASSERT_TRUE(FocusComesTo(m_Shown->Plain.Base));
    ExpectLook([](McListBoxState& look) {
        look.ListIndex = 1;
        look.HoveredRow = 3;
    });
    m_Ui.Run([&] { Tasks().Base.Enabled(false); });
    ExpectLook([](McListBoxState& look) {
        look.ListIndex = 1;
        look.Enabled = false;
    });
}

TEST_F(ListLook, AtEachDpi) {
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        m_Ui.Run([&] { Tasks().ListIndex(1); });
        ExpectLook([](McListBoxState& look) { look.ListIndex = 1; });
        EXPECT_EQ(On([&] { return Tasks().RowPlace(4).bottom; }), Scaled(5 * 22, dpi)) << dpi;
        EXPECT_EQ(On([&] { return Tasks().VisibleRows(); }), 5) << dpi;
    }
}

TEST_F(ListLook, AllRowsOfTheDesignAreSeenWhole) {
    EXPECT_EQ(On([&] { return Tasks().VisibleRows(); }), 5);
    EXPECT_EQ(On([&] { return Files().VisibleRows(); }), 7);
}

TEST_F(ListLook, HighContrastUsesTheSystemsColours) {
    m_Ui.Run([&] {
        Tasks().ListIndex(1);
        Tasks().Base.SetFocus();
    });
    ASSERT_TRUE(HoverComesTo(2));
    SetHighContrast(true);
    m_Ui.Run([&] {
        const gui::Pixels shown = gui::WindowOf(Tasks().Base.hWnd());
        EXPECT_EQ(shown.At(0, 0), GetSysColor(COLOR_WINDOWTEXT));
        const int hair = Hair(), left = hair + Px(24), right = shown.Width - hair - 1;
        const int first = hair + Px(22), last = hair + Px(44) - 1; // of the row
        EXPECT_EQ(shown.At(right, hair), GetSysColor(COLOR_WINDOW));
        EXPECT_EQ(shown.At(right, shown.Height - hair - 1), GetSysColor(COLOR_WINDOW));
        EXPECT_EQ(shown.At(left, first), GetSysColor(COLOR_HIGHLIGHT));
        EXPECT_EQ(shown.At(right, last), GetSysColor(COLOR_HIGHLIGHT));
        EXPECT_EQ(shown.At(left + hair, first + hair), GetSysColor(COLOR_HIGHLIGHTTEXT)); // the focus
        EXPECT_EQ(shown.At(left, last + 1), GetSysColor(COLOR_WINDOW));                   // no hover
        EXPECT_EQ(shown.At(hair + Px(3), first + Px(3)), RGB(255, 255, 255)); // the picture's plate
    });
    SetHighContrast(false);
    m_Ui.Run([&] {
        const gui::Pixels shown = gui::WindowOf(Tasks().Base.hWnd());
        EXPECT_EQ(shown.At(Hair() + Px(24), Hair() + Px(22)), palette::SelGrad);
    });
}

// On a real screen the mouse may be told to be back where it was: more than one change.
TEST_F(ListLook, HoveringPaintsOnceAndWithoutErasing) {
    int changes = 0, last = -1;
    m_Ui.Run([&] {
        const auto note = [&] { changes += std::exchange(last, Tasks().HoveredRow()) != last; };
        Tasks().MouseMove = [note](int, int, int, int) { note(); };
        Tasks().MouseLeave = note;
    });
    for (int row = 0; row < 5; ++row) {
        PaintAll();
        const auto before = On([&] { return std::pair{PaintsSoFar(), changes}; });
        gui::MoveTo(RowPoint(Tasks(), row));
        ASSERT_TRUE(Becomes([&] { return last == row && PaintsSoFar().Paints > before.first.Paints; }));
        PaintAll();
        const auto after = On([&] { return std::pair{PaintsSoFar(), changes}; });
        EXPECT_LE(after.first.Paints - before.first.Paints, after.second - before.second);
        EXPECT_EQ(after.first.Blits - before.first.Blits, after.first.Paints - before.first.Paints);
    }
    // A move inside the row changes nothing.
    const long before = On([] { return PaintsSoFar().Paints; });
    const POINT at = RowPoint(Tasks(), 4);
    gui::MoveTo({at.x + 20, at.y + 1});
    m_Ui.Settle();
    EXPECT_EQ(On([] { return PaintsSoFar().Paints; }), before);
    m_Ui.Run([&] {
        const HWND window = Tasks().Base.hWnd();
        const HDC dc = GetDC(window);
        EXPECT_EQ(SendMessageW(window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 1);
        ReleaseDC(window, dc);
    });
}

TEST_F(ListLook, AFontOfItsOwnMakesHigherRows) {
    m_Ui.Run([&] {
        ::Font font = UiFont();
        font.Size = 24;
        Tasks().Base.Font(font);
        EXPECT_EQ(HeightOf(Tasks().RowPlace(0)), TextSize(Tasks().Base.FontInUse(), u"A").cy);
        EXPECT_EQ(Tasks().RowHeight(), TextSize(FontHandle(font, 96).Get(), u"A").cy);
        EXPECT_GT(Tasks().RowHeight(), 22);
    });
}

TEST_F(ListLook, ASunkenEdgeTakesTwoPixels) {
    m_Ui.Run([&] {
        RECT client;
        GetClientRect(m_Shown->Plain.Base.hWnd(), &client);
        EXPECT_EQ(client.bottom, Px(112) - 4); // the system draws it so at any DPI
        m_Shown->Plain.Appearance(0);
        GetClientRect(m_Shown->Plain.Base.hWnd(), &client);
        EXPECT_EQ(client.bottom, Px(112) - 2 * Hair());
    });
}

} // namespace
