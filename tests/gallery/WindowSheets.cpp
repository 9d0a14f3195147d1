// Panes and pages of the program's own layouts, with samples in them: what takes the place
// of the system's fields and lists, where it will stand.
#include "controls/CheckBox.h"
#include "controls/CheckList.h"
#include "controls/ComboBox.h"
#include "controls/FontCombo.h"
#include "controls/McImageList.h"
#include "controls/McListBox.h"
#include "controls/Painting.h"
#include "controls/PasteBox.h"
#include "controls/PictureBox.h"
#include "controls/ResultBox.h"
#include "controls/TextBox.h"
#include "controls/TwoColumnList.h"
#include "gallery/Sheets.h"
#include "gallery/Specimens.h"

namespace gallery {
namespace {

void DrawMain(const Paper& paper) {
    if (Theme::HighContrast()) return;
    Picture::FromResource(u"spine-34x309").Draw(paper.Dc, paper.Place(0, 0, 34, 309), paper.Dpi);
    FrameRectangle(paper.Dc, paper.Place(41, 55, 273, 231), palette::Line, 1);
}

void DrawOptions(const Paper& paper) {
    const RECT bar = paper.Place(0, 412, 620, 48);
    FillRectangle(paper.Dc, bar, Theme::Pick(palette::FrameBottom, COLOR_WINDOW));
    const COLORREF line = Theme::Pick(palette::Line, COLOR_WINDOWTEXT);
    FillRectangle(paper.Dc, paper.Place(0, 412, 620, 1), line);
    FillRectangle(paper.Dc, paper.Place(206, 49, 402, 1), line);
}

void ShowPane(Form& form, std::u16string_view frame) {
    form.Find(frame)->ZOrder();
    form.Find(u"RTFClipboardGet")->Font({UiFont().Name, 16, false, false});
    form.Find(u"txtClipboardGet")->Font({u"SolaimanLipi", 16, false, false});
}

void PrepareClipboard(Form& form) {
    ShowPane(form, u"FrameClipboard");
    PasteBox& box = Live<PasteBox>(form, u"RTFClipboardGet");
    box.Text(u"Avgvi †mvbvi evsjv,\nAvwg †Zvgvq fv‡jvevwm|\nwPiw`b †Zvgvi AvKvk,\n†Zvgvi evZvm, Avgvi");
    box.Base.SetFocus();
}

void PrepareResult(Form& form) {
    ShowPane(form, u"FrameClipboard_End");
    Live<ResultBox>(form, u"txtClipboardGet")
        .Text(u"আমার সোনার বাংলা,\nআমি তোমায় ভালোবাসি।\nচিরদিন তোমার আকাশ,\nতোমার বাতাস, আমার\nপ্রাণে বাজায় "
              u"বাঁশি।");
    form.Find(u"ButtonCopy")->SetFocus();
}

void PrepareDatabase(Form& form) {
    ShowPane(form, u"FrameAccess");
    CheckList& tree = Live<CheckList>(form, u"DTree");
    FillTree(tree);
    tree.Base.SetFocus();
}

void PreparePages(Form& form, std::u16string_view frame, int page, std::u16string_view head,
                  std::u16string_view picture) {
    static McImageList pictures;
    constexpr const char16_t* kPages[][2] = {
        {u"General Settings", u"opt-general"},      {u"Font Replacement", u"opt-font"},
        {u"Clipboard Converter", u"opt-clipboard"}, {u"Text File Converter", u"opt-text"},
        {u"Word File Converter", u"opt-word"},      {u"Excel File Converter", u"opt-excel"},
        {u"Database Converter", u"opt-database"},
    };
    McListBox& list = Live<McListBox>(form, u"List");
    list.ImageList(&pictures);
    int icon = 0;
    for (const auto& [text, name] : kPages) {
        if (pictures.ImageCount() < static_cast<int>(std::size(kPages)))
            pictures.AddNewImage(Picture::FromResource(name));
        list.AddItem(text, -1, icon++);
    }
    list.ListIndex(page);
    form.Find(frame)->ZOrder();
    form.Find(u"lblHead")->Caption(head);
    Live<PictureBox>(form, u"HeaderImage").Picture(Picture::FromResource(picture));
}

void Fill(Form& form, std::u16string_view combo, std::u16string_view text) {
    ComboBox& box = Live<ComboBox>(form, combo);
    box.AddItem(std::u16string(text));
    box.ListIndex(0);
}

void PrepareFonts(Form& form) {
    PreparePages(form, u"FrameFont", 1, u"Font Replacement", u"opt-font");
    Fill(form, u"ComboFontFamily", u"Bijoy");
    TwoColumnList& table = Live<TwoColumnList>(form, u"FontList");
    constexpr const char16_t* kPairs[][2] = {
        {u"SutonnyMJ", u"SolaimanLipi"},   {u"SulekhaT", u"SolaimanLipi"},
        {u"BurigangaMJ", u"Siyam Rupali"}, {u"DhakarchithiMJ", u"SolaimanLipi"},
        {u"TeeshtaMJ", u"Nikosh"},         {u"KongshoMJ", u"SolaimanLipi"},
        {u"RinkiyMJ", u"Kalpurush"}};
    for (const auto& pair : kPairs) table.AddItem(pair[0], pair[1]);
    table.HideSelection(false);
    table.ListIndex(2);
    Live<FontCombo>(form, u"FontCombo1").Text(u"BurigangaMJ");
    Live<FontCombo>(form, u"FontCombo2").Text(u"Siyam Rupali");
    FontCombo& cell = Live<FontCombo>(form, u"ListViewFontList");
    cell.Text(u"Siyam Rupali");
    cell.Base.ZOrder();
    cell.Base.Visible(true);
    cell.Base.SetFocus();
    cell.SelectAll();
}

void PrepareClipboardPage(Form& form) {
    PreparePages(form, u"FrameClipboard", 2, u"Clipboard Converter", u"opt-clipboard");
    Live<FontCombo>(form, u"FontComboClip_Paste").Text(u"SutonnyMJ");
    Live<FontCombo>(form, u"FontComboClip_Display").Text(u"SolaimanLipi");
    Fill(form, u"ComboClip_Paste_FontSize", u"16");
    Fill(form, u"ComboClip_Paste_FontSize_Converted", u"16");
    Fill(form, u"Clip_Combo_AfterSaving", u"Do Nothing");
    Live<TextBox>(form, u"ClipboardSaveFolder").Text(u"C:\\Users\\Rina\\Documents");
    Live<TextBox>(form, u"txtClipFileName").Text(u"Autosaved - Unicode");
    CheckBox& save = Live<CheckBox>(form, u"Check_ClipAutoSave");
    save.Value(1);
    save.Base.SetFocus();
}

Sheet Window(std::u16string_view name, std::u16string_view form, void (*draw)(const Paper&),
             void (*prepare)(Form&)) {
    return {.Name = name,
            .Shows = {},
            .Layout = std::u16string(LayoutFromResource(form)),
            .Draw = draw,
            .Prepare = prepare};
}

} // namespace

std::vector<Sheet> Windows() {
    return {Window(u"window-clipboard", u"frmMain", DrawMain, PrepareClipboard),
            Window(u"window-result", u"frmMain", DrawMain, PrepareResult),
            Window(u"window-database", u"frmMain", DrawMain, PrepareDatabase),
            Window(u"window-fonts", u"frmOption", DrawOptions, PrepareFonts),
            Window(u"window-clipboard-page", u"frmOption", DrawOptions, PrepareClipboardPage)};
}

} // namespace gallery
