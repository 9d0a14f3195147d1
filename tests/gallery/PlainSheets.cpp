// Progress bars, labels, fields, and the surfaces that carry other controls.
#include "controls/AdvProgressBar.h"
#include "controls/ComboBox.h"
#include "controls/FieldFrame.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/Line.h"
#include "controls/PictureBox.h"
#include "controls/TextBox.h"
#include "gallery/Sheets.h"
#include "gallery/Specimens.h"

#include "base/Text.h"

namespace gallery {
namespace {

constexpr std::u16string_view kSentence =
    u"Converts legacy Bangla text to Unicode, in files, documents and databases.";

void DrawBars(const Paper& paper) {
    paper.Heading(12, 9, u"Appearance 0");
    paper.Heading(150, 9, u"sunken");
    paper.Heading(288, 9, u"no text; 1; Max 0");
    for (int i = 0; i <= 10; ++i) DrawBar(paper, 12, 34 + i * 26, i * 10);
    const auto bar = [&](int left, int top, AdvProgressBarState state) {
        state.TextColor = palette::Ink;
        state.BarColor1 = palette::Bar1;
        state.BarColor2 = palette::Bar2;
        state.BackColor = palette::Track;
        state.Font = paper.Bar.Get();
        state.Dpi = paper.Dpi;
        DrawAdvProgressBar(paper.Dc, paper.Place(left, top, 118, 18), state);
    };
    for (int i = 0; i <= 10; ++i) bar(150, 34 + i * 26, {.Value = i * 10, .ShowText = true, .Style = 2});
    bar(288, 34, {.Value = 43, .Style = 2, .Appearance = 0});
    bar(288, 60, {.Value = 43, .ShowText = true, .Style = 1, .Appearance = 0});
    bar(288, 86, {.Max = 0, .Value = 0, .ShowText = true, .Style = 2, .Appearance = 0});
    paper.Caption(12, 326, u"live");
}

void DrawLabels(const Paper& paper) {
    paper.Heading(12, 9, u"left, right, centre");
    paper.Heading(230, 9, u"wrapped");
    paper.Heading(448, 9, u"cut with an ellipsis");
    const auto label = [&](int left, int top, int height, LabelState state) {
        state.Font = paper.Ui.Get();
        DrawLabel(paper.Dc, paper.Place(left, top, 200, height), state);
    };
    using Align = Label::Align;
    int top = 34;
    for (const Align align : {Align::Left, Align::Right, Align::Centre}) {
        label(12, top, 20, {.Caption = u"&Name of the file:", .Alignment = align});
        label(230, top, 50, {.Caption = kSentence, .Alignment = align});
        label(448, top, 20, {.Caption = kSentence, .Alignment = align, .EndEllipsis = true});
        top += 56;
    }
    label(12, top, 20, {.Caption = u"Muted hint", .ForeColor = palette::Muted});
    label(230, top, 20, {.Caption = u"Disabled", .Enabled = false});
    label(448, top, 20, {.Caption = u"Save && close"});
    paper.Caption(12, 238, u"live, in the fonts of the design");
}

std::u16string LabelRows() {
    std::u16string rows;
    int left = 12;
    for (const std::u16string_view font :
         {u"Ui", u"Strong", u"Lead", u"Heading", u"Title", u"Header", u"Bar"}) {
        const std::u16string name(font);
        rows += Row(u"Label" + name, u"label", left, 262, 86, 30, font, u"Font=" + name);
        left += 90;
    }
    return rows;
}

void DrawFields(const Paper& paper) {
    for (int column = 0; column < 5; ++column) {
        paper.Heading(12 + column * 128, 9, kStates[column]);
        DrawField(paper, 12 + column * 128, 34, 110, u"- Unicode", column);
        DrawComboIn(paper, 12 + column * 128, 70, 110, u"Bijoy", column);
    }
    paper.Caption(12, 110, u"live");
}

void PrepareFields(Form& form) {
    for (const std::u16string_view name : {u"Combo", u"ComboEmpty", u"ComboOff"}) {
        ComboBox& combo = Live<ComboBox>(form, name);
        for (const char16_t* font : {u"Bijoy", u"Proshika", u"Alpona"}) combo.AddItem(font);
        if (name != u"ComboEmpty") combo.ListIndex(0);
    }
    Live<TextBox>(form, u"Password").Text(u"secret");
}

} // namespace

Sheet ProgressBars() {
    return {.Name = u"progress",
            .Shows = {&AdvProgressBar::kKind},
            .Layout =
                SheetLayout(420, 378) +
                Row(u"Live", u"AdvProgressBar", 12, 348, 394, 18, u"",
                    u"Max=300; Value=200; ShowText=yes; Style=2; Appearance=0; TextColor=Ink; "
                    u"BarColor1=Bar1; BarColor2=Bar2; BackColor=Track; Font=Bar; AccessibleName=Progress"),
            .Draw = DrawBars};
}

Sheet Labels() {
    return {.Name = u"labels",
            .Shows = {&Label::kKind},
            .Layout = SheetLayout(660, 304) + LabelRows(),
            .Draw = DrawLabels};
}

Sheet Fields() {
    return {.Name = u"fields",
            .Shows = {&TextBox::kKind, &ComboBox::kKind},
            .Layout = SheetLayout(660, 210) +
                      Row(u"Text", u"text", 12, 132, 150, 24, u"- Unicode", u"AccessibleName=Text") +
                      Row(u"TextLong", u"text", 172, 132, 150, 24, kSentence, u"AccessibleName=Long text") +
                      Row(u"Password", u"password", 332, 132, 150, 24, u"",
                          u"PasswordChar=*; AccessibleName=Password") +
                      Row(u"TextOff", u"text", 492, 132, 150, 24, u"- Unicode",
                          u"Enabled=no; AccessibleName=Disabled") +
                      Row(u"Combo", u"combo", 12, 170, 150, 24, u"", u"AccessibleName=Combo") +
                      Row(u"ComboEmpty", u"combo", 172, 170, 150, 24, u"", u"AccessibleName=No choice") +
                      Row(u"ComboOff", u"combo", 332, 170, 150, 24, u"",
                          u"Enabled=no; AccessibleName=Disabled combo"),
            .Draw = DrawFields,
            .Prepare = PrepareFields};
}

Sheet Surfaces() {
    return {
        .Name = u"surfaces",
        .Shows = {&Frame::kKind, &Line::kKind, &PictureBox::kKind},
        .Layout =
            SheetLayout(500, 300) +
            Row(u"Card", u"frame", 12, 12, 150, 100, u"",
                u"BackColor=Card; BorderColor=Line; AccessibleName=Card") +
            Row(u"Tint", u"frame", 174, 12, 150, 100, u"",
                u"BackColor=Tint; BorderColor=Line; AccessibleName=Group") +
            Row(u"Bare", u"frame", 336, 12, 150, 100, u"", u"BorderColor=FieldBorder; AccessibleName=Bare") +
            Row(u"Across", u"line", 12, 128, 474, 1) + Row(u"Down", u"line", 250, 140, 1, 148) +
            Row(u"Badge", u"picture", 12, 144, 36, 36, u"", u"Picture=badge") +
            Row(u"Warn", u"picture", 60, 144, 16, 16, u"", u"Picture=warn; AccessibleName=Warning") +
            Row(u"WarnOff", u"picture", 90, 144, 16, 16, u"",
                u"Picture=warn; Enabled=no; AccessibleName=Off") +
            Row(u"Framed", u"picture", 120, 144, 38, 38, u"",
                u"Picture=badge; BackColor=Card; BorderColor=Line") +
            Row(u"Welcome", u"picture", 12, 200, 160, 40, u"", u"Picture=welcome-160x40") +
            Row(u"Strip", u"picture", 12, 256, 220, 12, u"", u"Picture=strip-260x12") +
            Row(u"Notice", u"picture", 270, 144, 96, 72, u"", u"Picture=excel-notice-96x72") +
            Row(u"NoticeOff", u"picture", 380, 144, 96, 72, u"", u"Picture=excel-notice-96x72; Enabled=no")};
}

} // namespace gallery
