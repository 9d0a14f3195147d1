// Buttons and toggles.
#include "controls/CheckBox.h"
#include "controls/OptionButtonC.h"
#include "controls/TavrelButton.h"
#include "gallery/Sheets.h"
#include "gallery/Specimens.h"

namespace gallery {
namespace {

void DrawButtons(const Paper& paper) {
    const Picture paste = Picture::FromResource(u"paste"), options = Picture::FromResource(u"tool-options"),
                  pin = Picture::FromResource(u"pin-open"), pinned = Picture::FromResource(u"pin-closed");
    const auto row = [&](int top, int height, int width, std::u16string_view title,
                         const TavrelButtonState& look) {
        paper.Caption(12, top + (height - 16) / 2, title);
        for (int column = 0; column < 5; ++column)
            DrawButton(paper, 190 + column * 118, top, width, height, look, column);
    };
    for (int column = 0; column < 5; ++column) paper.Heading(190 + column * 118, 9, kStates[column]);
    row(32, 30, 106, u"3 primary", PrimaryButton(paper, u"&Convert"));
    row(70, 30, 106, u"3 neutral", NeutralButton(paper, u"Select &All"));
    TavrelButtonState builtIn = NeutralButton(paper, u"OK");
    builtIn.XPDefaultColors = true;
    row(108, 30, 106, u"3, built-in frames", builtIn);
    TavrelButtonState pasteButton = NeutralButton(paper, u"Paste here:");
    pasteButton.Image = &paste;
    pasteButton.ImageSize = {16, 16};
    row(146, 24, 106, u"3 with a picture", pasteButton);
    row(182, 42, 106, u"3, two lines", NeutralButton(paper, u"Open the Database"));
    TavrelButtonState pinButton = FlatButton(paper, u"");
    pinButton.Image = &pin;
    pinButton.ImageSize = {16, 16};
    row(236, 24, 28, u"1 with a picture", pinButton);
    pinButton.Image = &pinned;
    pinButton.BackColor = palette::PinnedBack;
    row(270, 24, 28, u"1 pinned", pinButton);
    row(304, 24, 28, u"1 caption", FlatButton(paper, u"?"));
    TavrelButtonState tool = FlatButton(paper, u"Options");
    tool.Font = paper.Ui.Get();
    tool.Image = &options;
    tool.ImageSize = {24, 24};
    tool.PicturePosition = kPictureAbove;
    tool.TransparentBG = true;
    row(340, 52, 60, u"1 transparent", tool);
    row(402, 22, 106, u"4", LinkButton(paper, u"More software"));

    paper.Heading(12, 440, u"sides of the picture");
    TavrelButtonState sided = NeutralButton(paper, u"Picture");
    sided.Image = &paste;
    sided.ImageSize = {16, 16};
    for (int side = kPictureAbove; side <= kPictureBelow; ++side) {
        sided.PicturePosition = side;
        DrawButton(paper, 190 + side * 118, 432, 106, 44, sided, kIdle);
    }
    sided.PicturePosition = kPictureLeft;
    sided.ImageSize = {32, 32};
    DrawButton(paper, 190 + 4 * 118, 432, 106, 44, sided, kIdle);
    paper.Heading(12, 492, u"live");
}

std::u16string ButtonRows() {
    return Row(u"neutral", u"set", 0, 0, 0, 0, u"",
               u"ButtonStyle=3; BackColor=NeutralBack; ForeColor=Ink; XPDefaultColors=no; "
               u"XPColor_Hover=HoverNeutral; XPColor_Pressed=FocusNeutral") +
           Row(u"Primary", u"TavrelButton", 190, 486, 106, 30, u"&Convert", u"ButtonStyle=3; Primary=yes") +
           Row(u"Neutral", u"TavrelButton", 308, 486, 106, 30, u"Go &Back", u"Use=neutral") +
           Row(u"Off", u"TavrelButton", 426, 486, 106, 30, u"Save &As...", u"Use=neutral; Enabled=no") +
           Row(u"Close", u"TavrelButton", 544, 486, 28, 24, u"X",
               u"ButtonStyle=1; ForeColor=Ink; BackColor=Card; AccessibleName=Close") +
           Row(u"Link", u"TavrelButton", 590, 486, 180, 24, u"More software",
               u"ButtonStyle=4; ForeColor=Link");
}

void DrawToggles(const Paper& paper) {
    for (int column = 0; column < 5; ++column) {
        const int x = 130 + column * 118;
        paper.Heading(x, 9, kStates[column]);
        for (int value = 0; value < 3; ++value)
            DrawToggleIn(paper, x, 32 + value * 28, ToggleKind::Check, value, column);
        for (int value = 0; value < 2; ++value)
            DrawToggleIn(paper, x, 116 + value * 28, ToggleKind::Option, value, column);
    }
    constexpr std::u16string_view kTitles[] = {u"CheckBox off", u"on", u"grey", u"OptionButtonC off", u"on"};
    for (int row = 0; row < 5; ++row) paper.Caption(12, 35 + row * 28, kTitles[row]);
    paper.Heading(12, 184, u"wrapped");
    for (int column = 0; column < 5; ++column)
        DrawToggle(paper.Dc, paper.Place(130 + column * 118, 184, 106, 52),
                   {.Kind = column % 2 ? ToggleKind::Option : ToggleKind::Check,
                    .Value = 1,
                    .Caption = u"Paste some text and convert it",
                    .Font = paper.Ui.Get(),
                    .ForeColor = palette::Ink,
                    .Enabled = column != kDisabled,
                    .Focused = column == kFocused,
                    .Dpi = paper.Dpi});
    paper.Heading(12, 252, u"live");
}

std::u16string ToggleRows() {
    return Row(u"Save", u"CheckBox", 130, 250, 280, 22, u"Automatically &save to file after conversion",
               u"Value=1") +
           Row(u"Some", u"CheckBox", 420, 250, 100, 22, u"S&ome", u"Value=2") +
           Row(u"Off", u"CheckBox", 530, 250, 100, 22, u"Disabled", u"Enabled=no") +
           Row(u"Option(0)", u"OptionButtonC", 130, 278, 280, 22, u"Convert my &plain text files",
               u"Value=yes") +
           Row(u"Option(1)", u"OptionButtonC", 420, 278, 240, 22, u"Convert my &database");
}

} // namespace

Sheet Buttons() {
    return {.Name = u"buttons",
            .Shows = {&TavrelButton::kKind},
            .Layout = SheetLayout(790, 530) + ButtonRows(),
            .Draw = DrawButtons};
}

Sheet Toggles() {
    return {.Name = u"toggles",
            .Shows = {&CheckBox::kKind, &OptionButtonC::kKind},
            .Layout = SheetLayout(730, 314) + ToggleRows(),
            .Draw = DrawToggles};
}

} // namespace gallery
