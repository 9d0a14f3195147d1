// The states of all controls on one sheet, laid out as the design's picture of them.
#include "controls/Picture.h"
#include "gallery/Sheets.h"
#include "gallery/Specimens.h"

namespace gallery {
namespace {

constexpr int kLeft = 200, kPitch = 128;

struct RowTitle {
    int Top;
    std::u16string_view Text;
};
constexpr RowTitle kRows[] = {
    {41, u"Button style 3 primary"},
    {83, u"Button style 3 neutral"},
    {122, u"Button style 1 caption"},
    {164, u"Button style 1 picture"},
    {204, u"Button style 4 (none)"},
    {235, u"CheckBox off"},
    {267, u"CheckBox on"},
    {299, u"CheckBox grey"},
    {331, u"OptionButtonC off"},
    {363, u"OptionButtonC on"},
    {398, u"Combo"},
    {434, u"Text box"},
    {465, u"McListBox"},
};

void Draw(const Paper& paper) {
    for (const RowTitle& row : kRows) paper.Caption(12, row.Top, row.Text);
    TavrelButtonState tool = FlatButton(paper, u"");
    const Picture options = Picture::FromResource(u"tool-options");
    tool.Image = &options;
    tool.ImageSize = {24, 24};
    tool.TransparentBG = true;
    for (int column = 0; column < 5; ++column) {
        const int x = kLeft + column * kPitch;
        paper.Heading(x, 9, kStates[column]);
        DrawButton(paper, x, 34, 100, 30, PrimaryButton(paper, u"Convert"), column);
        DrawButton(paper, x, 76, 100, 30, NeutralButton(paper, u"Go Back"), column);
        DrawButton(paper, x, 118, 28, 24, FlatButton(paper, u"X"), column);
        DrawButton(paper, x, 154, 36, 36, tool, column);
        DrawButton(paper, x, 200, 110, 24, LinkButton(paper, u"More software"), column);
        DrawToggleIn(paper, x, 232, ToggleKind::Check, 0, column);
        DrawToggleIn(paper, x, 264, ToggleKind::Check, 1, column);
        DrawToggleIn(paper, x, 296, ToggleKind::Check, 2, column);
        DrawToggleIn(paper, x, 328, ToggleKind::Option, 0, column);
        DrawToggleIn(paper, x, 360, ToggleKind::Option, 1, column);
        DrawComboIn(paper, x, 394, 110, u"Bijoy", column);
        DrawField(paper, x, 430, 110, u"- Unicode", column);
    }
    McListBoxState tasks = TaskList(paper);
    tasks.Row = [row = tasks.Row](int at) -> const ListItem& { return row(at == 3 ? 4 : at); };
    tasks.Count = 4;
    tasks.ListIndex = 1;
    tasks.HoveredRow = 2;
    tasks.Focused = true;
    DrawListIn(paper, 200, 466, 176, 90, tasks);
    paper.Caption(390, 469, u"row 1 selected and focused, row 2 hovered");
    paper.Caption(390, 501, u"AdvProgressBar 0 / 43 / 100 %");
    DrawBar(paper, 390, 526, 0);
    DrawBar(paper, 520, 526, 43);
    DrawBar(paper, 650, 526, 100);
}

} // namespace

Sheet AllStates() {
    return {.Name = u"states", .Shows = {&Form::kKind}, .Layout = SheetLayout(860, 560), .Draw = Draw};
}

} // namespace gallery
