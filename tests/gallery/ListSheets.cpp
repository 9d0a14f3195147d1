// Lists.
#include "controls/TwoColumnList.h"
#include "gallery/Sheets.h"

namespace gallery {
namespace {

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
    row(76, 20, {.Texts = {}, .Selected = true, .Focused = true});
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
