#include "gallery/Specimens.h"

#include "controls/AdvProgressBar.h"
#include "controls/FieldFrame.h"
#include "controls/Painting.h"

namespace gallery {

TavrelButtonState PrimaryButton(const Paper& paper, std::u16string_view caption) {
    return {.Caption = caption,
            .Font = paper.Strong.Get(),
            .BackColor = palette::PrimaryBack,
            .ForeColor = palette::Card,
            .XPDefaultColors = false,
            .XPColor_Pressed = palette::FocusPrimary,
            .XPColor_Hover = palette::HoverPrimary};
}

TavrelButtonState NeutralButton(const Paper& paper, std::u16string_view caption) {
    return {.Caption = caption,
            .Font = paper.Ui.Get(),
            .BackColor = palette::NeutralBack,
            .ForeColor = palette::Ink,
            .XPDefaultColors = false,
            .XPColor_Pressed = palette::FocusNeutral,
            .XPColor_Hover = palette::HoverNeutral};
}

TavrelButtonState FlatButton(const Paper& paper, std::u16string_view caption) {
    return {.Caption = caption,
            .Font = paper.Strong.Get(),
            .ButtonStyle = kStyleFlat,
            .BackColor = palette::Card,
            .ForeColor = palette::Ink};
}

TavrelButtonState LinkButton(const Paper& paper, std::u16string_view caption) {
    return {.Caption = caption,
            .Font = paper.Ui.Get(),
            .ButtonStyle = kStyleNone,
            .ForeColor = palette::Link,
            .TransparentBG = true};
}

void DrawButton(const Paper& paper, int left, int top, int width, int height, TavrelButtonState look,
                int column) {
    look.Hovering = column == kHover || column == kPressed;
    look.Pressed = column == kPressed;
    look.Focused = column == kFocused;
    look.Enabled = column != kDisabled;
    if (!look.Enabled && look.BackColor == palette::PrimaryBack) look.BackColor = palette::NeutralBack;
    look.Dpi = paper.Dpi;
    DrawTavrelButton(paper.Dc, paper.Place(left, top, width, height), look);
}

void DrawToggleIn(const Paper& paper, int left, int top, ToggleKind kind, int value, int column) {
    DrawToggle(paper.Dc, paper.Place(left, top, 110, 22),
               {.Kind = kind,
                .Value = value,
                .Caption = u"Caption",
                .Font = paper.Ui.Get(),
                .ForeColor = palette::Ink,
                .Enabled = column != kDisabled,
                .Hovering = column == kHover || column == kPressed,
                .Pressed = column == kPressed,
                .Focused = column == kFocused,
                .Dpi = paper.Dpi});
}

void DrawField(const Paper& paper, int left, int top, int width, std::u16string_view text, int column) {
    const bool enabled = column != kDisabled;
    FieldFrame::Draw(paper.Dc, paper.Place(left, top, width, 24), paper.Dpi,
                     {.Focused = column == kFocused, .Enabled = enabled});
    // The text itself is the system's.
    RECT inside = paper.Place(left + 6, top, width - 12, 24);
    DrawTextIn(paper.Dc, paper.Ui.Get(), text, inside, FieldFrame::Ink(enabled),
               DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

void DrawComboIn(const Paper& paper, int left, int top, int width, std::u16string_view text, int column) {
    DrawCombo(paper.Dc, paper.Place(left, top, width, 24),
              {.Hot = column == kHover || column == kPressed,
               .Focused = column == kFocused,
               .Enabled = column != kDisabled,
               .Text = text,
               .Font = paper.Ui.Get(),
               .Dpi = paper.Dpi});
}

McListBoxState TaskList(const Paper& paper) {
    static const std::vector<ListItem> tasks = {{u"Clipboard", 0, false},
                                                {u"Text Files", 1, false},
                                                {u"Word Files", 2, false},
                                                {u"Excel Files", 3, false},
                                                {u"Database", 4, false}};
    static const McImageList& images = []() -> McImageList& {
        static McImageList made;
        for (const char16_t* name :
             {u"task-clipboard", u"task-text", u"task-word", u"task-excel", u"task-database"})
            made.AddNewImage(Picture::FromResource(name));
        return made;
    }();
    McListBoxState state;
    state.Row = [](int row) -> const ListItem& { return tasks[static_cast<std::size_t>(row)]; };
    state.Count = static_cast<int>(tasks.size());
    state.ImageList = &images;
    state.Font = paper.Ui.Get();
    state.BoldFont = paper.Strong.Get();
    state.ShowHover = state.ShowIcon = state.FullRowSelect = state.FocusRectangle = true;
    state.IconFocus = false;
    state.Appearance = 0;
    state.ForeColor = palette::Ink;
    state.SelColor = palette::Sel;
    state.SelGradient = 1;
    state.SelGradientCol = palette::SelGrad;
    state.BackGradient = 6;
    state.BackGradientCol = palette::ListGrad;
    return state;
}

void DrawListIn(const Paper& paper, int left, int top, int width, int height, McListBoxState look) {
    look.Dpi = paper.Dpi;
    DrawMcListBox(paper.Dc, paper.Place(left, top, width, height), look);
}

void FillTree(CheckList& tree) {
    const Font plain = tree.Base.Font();
    Font bold = plain;
    bold.Bold = true;
    tree.AddItem(u"Table: Customers", bold, CheckList::kTable);
    for (const char16_t* column : {u"CustomerName", u"Address", u"Remarks"})
        tree.AddItem(column, plain, CheckList::kColumn, 16);
    tree.AddItem(u"Table: Products", bold, CheckList::kTable);
    for (const char16_t* column : {u"ProductName", u"Price", u"Unit"})
        tree.AddItem(column, plain, CheckList::kColumn, 16);
    for (const int row : {0, 1, 2}) tree.Checked(row, true);
    tree.ListIndex(2);
}

void DrawBar(const Paper& paper, int left, int top, int percent) {
    DrawAdvProgressBar(paper.Dc, paper.Place(left, top, 118, 18),
                       {.Value = percent,
                        .ShowText = true,
                        .Style = 2,
                        .Appearance = 0,
                        .TextColor = palette::Ink,
                        .BarColor1 = palette::Bar1,
                        .BarColor2 = palette::Bar2,
                        .BackColor = palette::Track,
                        .Font = paper.Bar.Get(),
                        .Dpi = paper.Dpi});
}

} // namespace gallery
