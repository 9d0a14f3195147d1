// Lists.
#include "controls/CheckList.h"
#include "controls/McListBox.h"
#include "controls/TwoColumnList.h"
#include "gallery/Sheets.h"
#include "gallery/Specimens.h"

#include "base/Text.h"

namespace gallery {
namespace {

void DrawLists(const Paper& paper) {
    paper.Heading(12, 9, u"tasks, gradient 6: idle, focused, disabled");
    McListBoxState tasks = TaskList(paper);
    DrawListIn(paper, 12, 32, 176, 112, tasks);
    tasks.ListIndex = 1;
    tasks.HoveredRow = 2;
    tasks.Focused = true;
    DrawListIn(paper, 200, 32, 176, 112, tasks);
    tasks.Enabled = false;
    DrawListIn(paper, 388, 32, 176, 112, tasks);

    paper.Heading(12, 158, u"files: bold, cut; Appearance 1, IconFocus; rows of 32; gradient 1");
    static const std::vector<ListItem> files = {{u"Letter to the editor.txt", 1, false},
                                                {u"Ready.txt", 1, true},
                                                {u"A name that is much too long for its row.doc", 2, false},
                                                {u"No picture", -1, false}};
    McListBoxState list = TaskList(paper);
    list.Row = [](int row) -> const ListItem& { return files[static_cast<std::size_t>(row)]; };
    list.Count = 4;
    list.RowHeight = 20;
    list.BackGradient = 0;
    list.ListIndex = 1;
    DrawListIn(paper, 12, 180, 176, 112, list);
    list.ListIndex = 2;
    list.Focused = true;
    list.Appearance = 1;
    list.IconFocus = true;
    list.FullRowSelect = false;
    DrawListIn(paper, 200, 180, 176, 112, list);
    list = TaskList(paper);
    list.RowHeight = 32;
    list.BackGradient = 1;
    list.SelGradient = 0;
    list.ListIndex = 0;
    DrawListIn(paper, 388, 180, 176, 112, list);
    paper.Heading(12, 306, u"live: many rows, few rows, disabled");

    paper.Heading(12, 454, u"no rows: idle, focused; gradient 6, focused");
    list.Count = 0;
    list.RowHeight = 20;
    list.BackGradient = 0;
    list.ListIndex = -1;
    DrawListIn(paper, 12, 476, 176, 60, list);
    list.Focused = true;
    DrawListIn(paper, 200, 476, 176, 60, list);
    tasks = TaskList(paper);
    tasks.Count = 0;
    tasks.Focused = true;
    DrawListIn(paper, 388, 476, 176, 60, tasks);
}

void PrepareLists(Form& form) {
    for (const std::u16string_view name : {u"Many", u"Few", u"Off"}) {
        McListBox& list = Live<McListBox>(form, name);
        list.ImageList(&Live<McImageList>(form, u"Images"));
        const int count = name == u"Few" ? 3 : 40;
        for (int i = 1; i <= count; ++i)
            list.AddItem(u"File " + text::Decimal(i) + u".txt", -1, i % 2, i % 5 == 0);
        list.ListIndex(1);
        list.Refresh();
    }
}

void DrawCheckLists(const Paper& paper) {
    const FontHandle plain(CheckListFont(), paper.Dpi);
    Font strong = CheckListFont();
    strong.Bold = true;
    const FontHandle bold(strong, paper.Dpi);
    constexpr std::u16string_view kTitles[] = {u"idle",     u"ticked",  u"pressed",
                                               u"selected", u"focused", u"disabled"};
    for (int i = 0; i < 6; ++i) {
        paper.Caption(12, 34 + i * 24, kTitles[i]);
        CheckRowState state{.Text = u"Table: Customers", .Font = bold.Get(), .Picture = CheckList::kTable};
        for (int column = 0; column < 2; ++column) {
            state.Checked = i == 1 || column == 1;
            state.Pressed = i == 2;
            state.Selected = i == 3 || i == 4;
            state.Focused = i == 4;
            state.Enabled = i != 5;
            state.Dpi = paper.Dpi;
            DrawCheckRow(paper.Dc, paper.Place(90 + column * 220, 32 + i * 24, 208, 20), state);
            state.Text = u"CustomerName";
            state.Font = plain.Get();
            state.Picture = CheckList::kColumn;
            state.Indent = 16;
        }
    }
    paper.Heading(12, 184, u"live, disabled");
}

void PrepareCheckLists(Form& form) {
    for (const std::u16string_view name : {u"Tree", u"Off"}) FillTree(Live<CheckList>(form, name));
}

void DrawTables(const Paper& paper) {
    paper.Heading(12, 9, u"live");
    paper.Heading(424, 9, u"header and rows");
    paper.Heading(424, 182, u"disabled");
    const auto row = [&](int top, int height, TableRowState state) {
        state.Texts[0] = state.Header ? u"Old Font" : u"SutonnyMJ";
        state.Texts[1] = state.Header ? u"Replaced Font" : u"SolaimanLipi";
        const RECT place = paper.Place(424, top, 300, height);
        state.Widths[0] = state.Widths[1] = (place.right - place.left) / 2;
        state.Font = state.Header ? paper.Strong.Get() : paper.Ui.Get();
        state.Dpi = paper.Dpi;
        DrawTableRow(paper.Dc, place, state);
    };
    row(32, 24, {.Texts = {}, .Header = true});
    row(56, 20, {});
    row(76, 20, {.Texts = {}, .Selected = true, .Focused = true, .Marked = true});
    row(96, 20, {.Texts = {}, .Selected = true});
    row(116, 20, {.Texts = {}, .Enabled = false});
    row(136, 20, {.Texts = {}, .Selected = true, .Enabled = false});
}

void PrepareTables(Form& form) {
    constexpr const char16_t* kPairs[][2] = {
        {u"SutonnyMJ", u"SolaimanLipi"},   {u"SulekhaT", u"SolaimanLipi"},
        {u"BurigangaMJ", u"Siyam Rupali"}, {u"DhakarchithiMJ", u"SolaimanLipi"},
        {u"TeeshtaMJ", u"Nikosh"},         {u"KongshoMJ", u"SolaimanLipi"},
        {u"RinkiyMJ", u"Kalpurush"},       {u"PadmaMJ", u"Kalpurush"}};
    for (const std::u16string_view name : {u"Table", u"Off"}) {
        TwoColumnList& table = Live<TwoColumnList>(form, name);
        for (const auto& pair : kPairs) table.AddItem(pair[0], pair[1]);
        table.ListIndex(2);
    }
}

} // namespace

Sheet Lists() {
    constexpr std::u16string_view kLook =
        u"Appearance=0; ShowIcon=yes; ShowHover=yes; IconFocus=no; FullRowSelect=yes; FocusRectangle=yes; "
        u"AutoHideScrollBars=yes; ForeColor=Ink; SelGradient=1; SelColor=Sel; SelGradientCol=SelGrad; "
        u"AccessibleName=";
    const std::u16string look(kLook);
    return {.Name = u"lists",
            .Shows = {&McListBox::kKind},
            .Layout = SheetLayout(576, 548) +
                      Row(u"Many", u"McListBox", 12, 328, 176, 112, u"", look + u"Many") +
                      Row(u"Few", u"McListBox", 200, 328, 176, 112, u"", look + u"Few") +
                      Row(u"Off", u"McListBox", 388, 328, 176, 112, u"", look + u"Disabled; Enabled=no") +
                      Row(u"Images", u"McImageList", 0, 0, 0, 0, u"",
                          u"ImageCount=2; Images0=task-text; Images1=task-word"),
            .Draw = DrawLists,
            .Prepare = PrepareLists};
}

Sheet CheckLists() {
    return {.Name = u"checklists",
            .Shows = {&CheckList::kKind},
            .Layout = SheetLayout(530, 350) +
                      Row(u"Tree", u"checklist", 12, 208, 247, 122, u"",
                          u"RowHeight=20; Font=CheckList; AccessibleName=Fields") +
                      Row(u"Off", u"checklist", 271, 208, 247, 122, u"",
                          u"RowHeight=20; Font=CheckList; Enabled=no; AccessibleName=Off"),
            .Draw = DrawCheckLists,
            .Prepare = PrepareCheckLists};
}

Sheet Tables() {
    return {.Name = u"tables",
            .Shows = {&TwoColumnList::kKind},
            .Layout = SheetLayout(840, 380) +
                      Row(u"Table", u"listview", 12, 32, 400, 166, u"",
                          u"Columns=Old Font|Replaced Font; AccessibleName=Fonts") +
                      Row(u"Off", u"listview", 424, 204, 400, 166, u"",
                          u"Columns=Old Font|Replaced Font; Enabled=no; AccessibleName=Disabled"),
            .Draw = DrawTables,
            .Prepare = PrepareTables};
}

} // namespace gallery
