// The drawing of a list, pixel by pixel, and which rows a paint reads.
#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "windows/ListForm.h"

namespace {

// The side panel's list, 176 by 112 pixels at 96 DPI, with rows of 22 inside its border.
class Drawing {
public:
    Drawing() {
        Images.AddNewImage(Picture::FromResource(u"task-text"));
        State.Row = [this](int row) -> const ListItem& {
            Asked.push_back(row);
            return Items.Item(row);
        };
        State.ImageList = &Images;
        State.Appearance = 0;
        State.ShowIcon = State.ShowHover = State.FullRowSelect = State.FocusRectangle = true;
        State.IconFocus = false;
        State.ForeColor = palette::Ink;
        State.SelColor = palette::Sel;
        State.SelGradientCol = palette::SelGrad;
        SetDpi(96);
    }
    void SetDpi(int dpi) {
        State.Dpi = dpi;
        m_Font = FontHandle(UiFont(), dpi);
        ::Font bold = UiFont();
        bold.Bold = true;
        m_Bold = FontHandle(bold, dpi);
        State.Font = m_Font.Get();
        State.BoldFont = m_Bold.Get();
    }
    void Fill(int count) {
        for (int i = 0; i < count; ++i) Items.AddItem(u"Row", -1, 0);
        State.Count = Items.ListCount();
    }
    gui::Pixels Pixels() {
        Asked.clear();
        return gui::Drawn(176, 112, [&](HDC dc) { DrawMcListBox(dc, {0, 0, 176, 112}, State); });
    }
    McListBoxState State;
    ListItems Items;
    McImageList Images;
    std::vector<int> Asked;

private:
    FontHandle m_Font, m_Bold;
};

// Row i is painted from 1 + 22 * i on.
RECT Row(int index) {
    return {1, 1 + 22 * index, 175, 23 + 22 * index};
}

TEST(McListBox, AnEmptyListIsItsGroundAndItsBorder) {
    Drawing drawing;
    const gui::Pixels pixels = drawing.Pixels();
    EXPECT_EQ(pixels.Count(palette::Card), 174 * 110);
    EXPECT_EQ(pixels.Count(palette::FieldBorder), 176 * 112 - 174 * 110);
}

TEST(McListBox, TheSelectionBeginsBehindTheIconCell) {
    Drawing drawing;
    drawing.Fill(3);
    drawing.Items.ListIcon(1, -1);
    drawing.State.ListIndex = 1;
    const gui::Pixels pixels = drawing.Pixels();
    for (int y = 23; y < 45; ++y) {
        EXPECT_EQ(pixels.Count(palette::Sel, {1, y, 25, y + 1}), 0) << y;
        EXPECT_EQ(pixels.At(25, y), palette::Sel) << y;
        EXPECT_EQ(pixels.At(174, y), palette::Sel) << y;
    }
    EXPECT_EQ(pixels.Count(palette::Sel, Row(0)), pixels.Count(palette::Sel, Row(2)));
    EXPECT_EQ(pixels.At(25, 22), palette::Card);
    EXPECT_EQ(pixels.At(25, 45), palette::Card);
    drawing.State.IconFocus = true;
    EXPECT_EQ(drawing.Pixels().At(1, 23), palette::Sel);
}

TEST(McListBox, WithoutFullRowSelectTheBlockEndsWithTheText) {
    Drawing drawing;
    drawing.Fill(1);
    drawing.State.ListIndex = 0;
    drawing.State.FullRowSelect = false;
    const int end = 25 + 3 + TextSize(drawing.State.Font, u"Row").cx + 3;
    const gui::Pixels pixels = drawing.Pixels();
    EXPECT_EQ(pixels.At(end - 1, 1), palette::Sel);
    EXPECT_EQ(pixels.At(end, 1), palette::Card);
}

TEST(McListBox, TheSelectionsGradientEndsInItsColours) {
    Drawing drawing;
    drawing.Fill(2);
    drawing.State.ListIndex = 0;
    drawing.State.SelGradient = 1;
    const gui::Pixels pixels = drawing.Pixels();
    EXPECT_EQ(pixels.Count(palette::SelGrad, {25, 1, 175, 2}), 150);
    EXPECT_EQ(pixels.Count(palette::Sel, {25, 22, 175, 23}), 150);
    // Half way: 2A7F7E to 17656D.
    EXPECT_EQ(pixels.At(174, 11), RGB(0x2A - 19 * 10 / 21, 0x7F - 26 * 10 / 21, 0x7E - 17 * 10 / 21));
}

TEST(McListBox, TheGroundsGradientGoesFromCornerToCorner) {
    Drawing drawing;
    drawing.State.BackGradient = 6;
    drawing.State.BackGradientCol = palette::ListGrad;
    const gui::Pixels pixels = drawing.Pixels();
    EXPECT_EQ(pixels.At(1, 1), palette::Card);
    EXPECT_EQ(pixels.At(174, 110), palette::ListGrad);
    // Equal steps right and down.
    EXPECT_EQ(pixels.At(51, 1), pixels.At(1, 51));
    EXPECT_NE(pixels.At(174, 1), pixels.At(1, 110));
    drawing.State.BackGradient = 1;
    const gui::Pixels down = drawing.Pixels();
    EXPECT_EQ(down.Count(palette::Card, {1, 1, 175, 2}), 174);
    EXPECT_EQ(down.Count(palette::ListGrad, {1, 110, 175, 111}), 174);
    drawing.State.BackGradient = 0;
    EXPECT_EQ(drawing.Pixels().Count(palette::Card), 174 * 110);
}

TEST(McListBox, TheHoveredRowIsMarkedBehindItsText) {
    Drawing drawing;
    drawing.Fill(3);
    drawing.State.HoveredRow = 2;
    gui::Pixels pixels = drawing.Pixels();
    EXPECT_EQ(pixels.At(25, 45), palette::RowHover);
    EXPECT_EQ(pixels.At(24, 45), palette::Card);
    EXPECT_EQ(pixels.At(174, 66), palette::RowHover);
    drawing.State.ListIndex = 2; // the selection covers it
    EXPECT_EQ(drawing.Pixels().Count(palette::RowHover), 0);
    drawing.State.ListIndex = -1;
    drawing.State.ShowHover = false;
    EXPECT_EQ(drawing.Pixels().Count(palette::RowHover), 0);
}

TEST(McListBox, TheFocusIsADottedRectangleInTheSelection) {
    Drawing drawing;
    drawing.Fill(2);
    drawing.State.ListIndex = 0;
    drawing.State.Focused = true;
    const gui::Pixels pixels = drawing.Pixels();
    // Inset by one pixel, every second one.
    EXPECT_EQ(pixels.At(26, 2), palette::Card);
    EXPECT_EQ(pixels.At(27, 2), palette::Sel);
    EXPECT_EQ(pixels.At(28, 2), palette::Card);
    EXPECT_EQ(pixels.Count(palette::Sel, {25, 1, 175, 2}), 150);
    drawing.State.Focused = false;
    EXPECT_EQ(drawing.Pixels().At(26, 2), palette::Sel);
    drawing.State.Focused = true;
    drawing.State.FocusRectangle = false;
    EXPECT_EQ(drawing.Pixels().At(26, 2), palette::Sel);
}

TEST(McListBox, IconsStandInTheirCell) {
    Drawing drawing;
    drawing.Fill(1);
    for (const int icon : {-1, 1, 100'000, -100'000}) {
        drawing.Items.ListIcon(0, icon);
        EXPECT_EQ(drawing.Pixels().Count(palette::Card, {1, 1, 25, 23}), 24 * 22) << icon;
    }
    drawing.Items.ListIcon(0, 0);
    const gui::Pixels pixels = drawing.Pixels();
    // 16 by 16 pixels, 5 from the edge, in the middle of the row.
    EXPECT_LT(pixels.Count(palette::Card, {6, 4, 22, 20}), 16 * 16);
    EXPECT_EQ(pixels.Count(palette::Card, {1, 1, 6, 23}), 5 * 22);
    EXPECT_EQ(pixels.Count(palette::Card, {22, 1, 25, 23}), 3 * 22);
    drawing.State.ShowIcon = false; // the text begins at the edge
    EXPECT_LT(drawing.Pixels().Count(palette::Card, {1, 1, 25, 23}), 24 * 22);
}

TEST(McListBox, BoldRowsAreWider) {
    Drawing drawing;
    drawing.Fill(2);
    drawing.Items.ListBold(1, true);
    drawing.State.ShowIcon = false;
    const gui::Pixels pixels = drawing.Pixels();
    EXPECT_LT(pixels.Count(palette::Card, Row(1)), pixels.Count(palette::Card, Row(0)));
}

TEST(McListBox, ADisabledListIsGrey) {
    Drawing drawing;
    drawing.Fill(2);
    drawing.State.ListIndex = 0;
    drawing.State.HoveredRow = 1;
    drawing.State.Focused = true;
    drawing.State.Enabled = false;
    const gui::Pixels pixels = drawing.Pixels();
    EXPECT_EQ(pixels.At(25, 1), palette::SelDisabled);
    EXPECT_EQ(pixels.At(26, 2), palette::SelDisabled);
    EXPECT_EQ(pixels.Count(palette::RowHover), 0);
    EXPECT_EQ(pixels.Count(palette::Ink), 0);
    EXPECT_GT(pixels.Count(palette::DisabledText, Row(1)), 0);
    // The picture has no colour left.
    for (int y = 26; y < 42; ++y) {
        for (int x = 6; x < 22; ++x) {
            const COLORREF colour = pixels.At(x, y);
            EXPECT_LE(std::abs(GetRValue(colour) - GetBValue(colour)), 1);
        }
    }
}

TEST(McListBox, ARowIsAtLeastAsHighAsItsText) {
    Drawing drawing;
    drawing.State.RowHeight = 2;
    EXPECT_EQ(McListBoxRows(drawing.State).Top(1), TextSize(drawing.State.Font, u"A").cy);
    drawing.State.RowHeight = 40;
    EXPECT_EQ(McListBoxRows(drawing.State).Top(1), 40);
    drawing.SetDpi(144);
    EXPECT_EQ(McListBoxRows(drawing.State).Top(1), 60);
}

// Five rows of 22 at 125 %: 27.5 pixels each, 138 together.
TEST(McListBox, EdgesOfRowsAreRounded) {
    Drawing drawing;
    drawing.SetDpi(120);
    const McListBoxRows rows(drawing.State);
    EXPECT_EQ(rows.Top(1), 28);
    EXPECT_EQ(rows.Top(2), 55);
    EXPECT_EQ(rows.Top(5), 138);
    for (int y = 0; y < 600; ++y) {
        EXPECT_LE(rows.Top(rows.At(y)), y);
        EXPECT_GT(rows.Top(rows.At(y) + 1), y);
    }
}

TEST(McListBox, ALongTextIsCutWithAnEllipsis) {
    Drawing drawing;
    drawing.State.ShowIcon = false;
    drawing.Items.AddItem(std::u16string(100'000, u'.')); // nothing else stands as low
    drawing.Items.AddItem(u"short");
    drawing.State.Count = 2;
    EXPECT_FALSE(McListBoxFits(drawing.Items.Item(0), 174, drawing.State));
    EXPECT_TRUE(McListBoxFits(drawing.Items.Item(1), 174, drawing.State));
    EXPECT_LT(drawing.Pixels().Count(palette::Card, Row(0)), 174 * 22);
    EXPECT_EQ(drawing.Pixels().Count(palette::Card, {172, 1, 175, 23}), 3 * 22);
}

TEST(McListBox, APaintAsksForTheVisibleRowsOnly) {
    Drawing drawing;
    drawing.Fill(100'000);
    drawing.State.TopRow = 50'000;
    drawing.Pixels();
    EXPECT_EQ(drawing.Asked, (std::vector<int>{50'000, 50'001, 50'002, 50'003, 50'004}));
    // And of a part only those that lie in it.
    drawing.Asked.clear();
    gui::Drawn(176, 112, [&](HDC dc) {
        IntersectClipRect(dc, 0, 30, 176, 40);
        DrawMcListBox(dc, {0, 0, 176, 112}, drawing.State);
    });
    EXPECT_EQ(drawing.Asked, (std::vector<int>{50'001}));
}

} // namespace
