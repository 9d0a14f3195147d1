// The boxes for long text and the list of fonts.
#include "controls/FieldFrame.h"
#include "controls/FontCombo.h"
#include "controls/PasteBox.h"
#include "controls/ResultBox.h"
#include "gallery/Sheets.h"

namespace gallery {
namespace {

constexpr const char16_t* kLegacy = u"Avgvi †mvbvi evsjv,\r\nAvwg †Zvgvq fv‡jvevwm|\r\nwPiw`b †Zvgvi AvKvk,";
constexpr const char16_t* kBangla = u"আমার সোনার বাংলা,\r\nআমি তোমায় ভালোবাসি।\r\nচিরদিন তোমার আকাশ,";

void DrawTextBoxes(const Paper& paper) {
    paper.Heading(12, 9, u"paste box");
    paper.Heading(271, 9, u"result box");
    paper.Heading(12, 184, u"locked");
    paper.Heading(271, 184, u"disabled");
    constexpr std::u16string_view kBorders[] = {u"idle", u"focused", u"disabled"};
    for (int i = 0; i < 3; ++i) {
        FieldFrame::Draw(paper.Dc, paper.Place(12 + i * 90, 360, 80, 40), paper.Dpi,
                         {.Focused = i == 1, .Enabled = i != 2});
        paper.Caption(22 + i * 90, 372, kBorders[i]);
    }
}

void PrepareTextBoxes(Form& form) {
    const Font legacy{UiFont().Name, 16, false, false}, bangla{u"SolaimanLipi", 16, false, false};
    for (const std::u16string_view name : {u"Paste", u"Locked", u"Off"}) {
        PasteBox& box = Live<PasteBox>(form, name);
        box.Base.Font(legacy);
        box.Text(kLegacy);
    }
    Live<PasteBox>(form, u"Locked").Locked(true);
    ResultBox& result = Live<ResultBox>(form, u"Result");
    result.Base.Font(bangla);
    result.Text(kBangla);
}

void DrawFontEntries(const Paper& paper) {
    paper.Heading(12, 9, u"font list: live, absent font, disabled");
    paper.Heading(12, 78, u"its entries");
    constexpr const char16_t* kFaces[] = {u"Tahoma", u"Liberation Serif", u"Lohit Bengali",
                                          u"Liberation Mono"};
    for (int i = 0; i < 4; ++i) {
        const FontHandle face({kFaces[i], 12, false, false}, paper.Dpi);
        DrawFontEntry(paper.Dc, paper.Place(12, 102 + i * 24, 196, 24),
                      {.Text = kFaces[i],
                       .Face = face.Get(),
                       .Plain = paper.Ui.Get(),
                       .Selected = i == 1,
                       .Dpi = paper.Dpi});
    }
}

void PrepareFontLists(Form& form) {
    for (const std::u16string_view name : {u"Fonts", u"Absent", u"Off"}) {
        FontCombo& fonts = Live<FontCombo>(form, name);
        for (const char16_t* face : {u"Tahoma", u"Liberation Serif", u"Lohit Bengali"})
            fonts.AddItem(face, {face, 12, false, false});
        fonts.Text(name == u"Absent" ? u"SutonnyMJ" : u"Liberation Serif");
    }
}

} // namespace

Sheet TextBoxes() {
    return {.Name = u"textboxes",
            .Shows = {&PasteBox::kKind, &ResultBox::kKind},
            .Layout = SheetLayout(530, 412) +
                      Row(u"Paste", u"richtext", 12, 32, 247, 142, u"", u"AccessibleName=Text to convert") +
                      Row(u"Result", u"unitext", 271, 32, 247, 142, u"", u"AccessibleName=Converted text") +
                      Row(u"Locked", u"richtext", 12, 208, 247, 142, u"", u"AccessibleName=Locked text") +
                      Row(u"Off", u"richtext", 271, 208, 247, 142, u"",
                          u"Enabled=no; AccessibleName=Disabled text"),
            .Draw = DrawTextBoxes,
            .Prepare = PrepareTextBoxes};
}

Sheet FontLists() {
    return {.Name = u"fontlists",
            .Shows = {&FontCombo::kKind},
            .Layout =
                SheetLayout(640, 212) +
                Row(u"Fonts", u"fontcombo", 12, 36, 196, 24, u"", u"AccessibleName=Fonts") +
                Row(u"Absent", u"fontcombo", 220, 36, 196, 24, u"", u"AccessibleName=Absent font") +
                Row(u"Off", u"fontcombo", 428, 36, 196, 24, u"", u"Enabled=no; AccessibleName=Disabled"),
            .Draw = DrawFontEntries,
            .Prepare = PrepareFontLists};
}

} // namespace gallery
