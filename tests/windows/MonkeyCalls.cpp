#include "windows/MonkeyCalls.h"

namespace gui {
namespace {

std::string Of(const Control& control, const char* what) {
    return NameOf(control) + "." + what;
}

// On any control.

Step Enabled(MonkeyForm& form, Dice& dice) {
    Control& control = form.Any(dice);
    const bool enabled = !dice.OneIn(3);
    return {Told(Of(control, "Enabled"), enabled), [&, enabled] { control.Enabled(enabled); }};
}

Step Visible(MonkeyForm& form, Dice& dice) {
    Control& control = form.Any(dice);
    const bool visible = !dice.OneIn(3);
    return {Told(Of(control, "Visible"), visible), [&, visible] { control.Visible(visible); }};
}

Step Caption(MonkeyForm& form, Dice& dice) {
    EveryForm& every = form.Every;
    Control* const captioned[] = {&every.Go->Base, &every.Title->Base, &every.Tick.Base, &every.Task[0].Base,
                                  &every.Task[1].Base};
    Control& control = *dice.Of(captioned);
    const bool longer = dice.OneIn(2);
    return {Told(Of(control, "Caption"), longer ? "long" : "short"),
            [&, longer] { control.Caption(longer ? u"A &longer caption of words" : u"x"); }};
}

Step FontOf(MonkeyForm& form, Dice& dice) {
    Control& control = form.Any(dice);
    Font font = UiFont();
    font.Size = dice.Within(7, 14);
    font.Bold = dice.OneIn(2);
    font.Underline = dice.OneIn(2);
    return {Told(Of(control, "Font"), font.Size, font.Bold ? "bold" : "", font.Underline ? "underlined" : ""),
            [&, font] { control.Font(font); }};
}

Step SetFocus(MonkeyForm& form, Dice& dice) {
    Control& control = form.Any(dice);
    return {Of(control, "SetFocus"), [&] { control.SetFocus(); }};
}

Step ZOrder(MonkeyForm& form, Dice& dice) {
    Control& control = form.Any(dice);
    const int position = dice.Below(2);
    return {Told(Of(control, "ZOrder"), position), [&, position] { control.ZOrder(position); }};
}

Step Move(MonkeyForm& form, Dice& dice) {
    Control& control = form.Any(dice);
    const int left = dice.Within(0, 6'500), top = dice.Within(0, 4'500);
    const int width = dice.Within(600, 3'600), height = dice.Within(300, 1'800);
    return {Told(Of(control, "Move"), left, top, width, height),
            [=, &control] { control.Move(left, top, width, height); }};
}

// On top of another one.
Step MoveOver(MonkeyForm& form, Dice& dice) {
    Control &control = form.Any(dice), &other = form.Any(dice);
    return {Told(Of(control, "Move"), "over", NameOf(other)), [&] {
                if (control.Container() != other.Container()) return;
                control.ZOrder(0);
                control.Move(other.Left(), other.Top(), control.Width(), control.Height());
            }};
}

Step ToolTipText(MonkeyForm& form, Dice& dice) {
    Control& control = form.Any(dice);
    const std::u16string tip = dice.OneIn(2) ? u"" : u"tip";
    return {Told(Of(control, "ToolTipText"), text::ToUtf8(tip)), [&, tip] { control.ToolTipText(tip); }};
}

// On the form.

Step OtherDpi(MonkeyForm& form, Dice& dice) {
    const int dpi = dice.Of({96, 120, 144, form.OwnDpi});
    return {Told("WM_DPICHANGED", dpi), [&, dpi] {
                const HWND window = form.Window.Base.hWnd();
                RECT place;
                GetWindowRect(window, &place);
                SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&place));
            }};
}

Step OtherContrast(MonkeyForm& form, Dice& dice) {
    const bool high = dice.OneIn(2);
    return {Told("high contrast", high), [&, high] {
                Theme::ReplaceHighContrast(high ? [] { return true; } : [] { return false; });
                SendMessageW(form.Window.Base.hWnd(), WM_SETTINGCHANGE, SPI_SETHIGHCONTRAST, 0);
            }};
}

Step Ground(MonkeyForm& form, Dice& dice) {
    const bool plain = dice.OneIn(2);
    return {Told("ground of the form", plain ? "plain" : "gradient"), [&, plain] {
                form.Window.BackColor2 = plain ? kNoColour : palette::FrameBottom;
                form.Window.RefreshGround();
            }};
}

// On the control of one class.

Step Bar(MonkeyForm& form, Dice& dice) {
    const int max = dice.Within(1, 200), value = dice.Below(200);
    const bool text = dice.OneIn(2);
    return {Told("Bar.Max Value ShowText", max, value, text), [=, &bar = form.Every.Bar] {
                bar.Max(max);
                bar.Value(value);
                bar.ShowText(text);
            }};
}

Step Choice(MonkeyForm& form, Dice& dice) {
    const int row = dice.Within(-1, 2);
    return {Told("Choice.ListIndex", row), [&, row] { form.Every.Choice->ListIndex(row); }};
}

Step Faces(MonkeyForm& form, Dice& dice) {
    const int row = dice.Within(-1, 3);
    return {Told("Faces.ListIndex or Text", row), [=, &faces = form.Every.Faces] {
                if (row < 3)
                    faces.ListIndex(row);
                else
                    faces.Text(u"Some face");
            }};
}

Step Skin(MonkeyForm& form, Dice& dice) {
    const bool dark = dice.OneIn(2), arrow = dice.OneIn(2);
    return {Told("skin dark arrow", dark, arrow), [=, &skin = form.ChoiceSkin] {
                skin.FrameColorNormal(dark ? palette::Ink : palette::Line);
                skin.ShowArrow(arrow);
            }};
}

Step TickValue(MonkeyForm& form, Dice& dice) {
    const int value = dice.Below(3);
    return {Told("Tick.Value", value), [&, value] { form.Every.Tick.Value(value); }};
}

Step TaskValue(MonkeyForm& form, Dice& dice) {
    const int which = dice.Below(2);
    return {Told("Task.Value", which), [&, which] { form.Every.Task[which].Value(true); }};
}

Step Button(MonkeyForm& form, Dice& dice) {
    const int style = dice.Of({1, 3, 4});
    const bool primary = dice.OneIn(2);
    return {Told("Go.ButtonStyle Primary", style, primary), [=, &button = *form.Every.Go] {
                button.ButtonStyle(style);
                button.Primary(primary);
            }};
}

Step FrameColours(MonkeyForm& form, Dice& dice) {
    const bool ground = dice.OneIn(2), border = dice.OneIn(2);
    return {Told("Box ground border", ground, border), [=, &box = form.Every.Box] {
                box.BackColor(ground ? palette::Tint : kNoColour);
                box.BorderColor(border ? palette::Line : kNoColour);
            }};
}

Step ImageColour(MonkeyForm& form, Dice& dice) {
    const bool ground = dice.OneIn(2);
    return {Told("Image ground", ground),
            [&, ground] { form.Every.Image->BackColor(ground ? palette::Sel : kNoColour); }};
}

using Draw = Step (*)(MonkeyForm& form, Dice& dice);
constexpr Draw kOnAny[] = {Enabled, Enabled, Visible, Visible,  Caption,  FontOf,     SetFocus,
                           ZOrder,  Move,    Move,    MoveOver, MoveOver, ToolTipText};
constexpr Draw kOnOne[] = {OtherDpi, OtherContrast, Ground,    Bar,    Choice,       Faces,
                           Skin,     TickValue,     TaskValue, Button, FrameColours, ImageColour};

} // namespace

Step DrawCall(MonkeyForm& form, Dice& dice) {
    return dice.OneIn(3) ? dice.Of(kOnOne)(form, dice) : dice.Of(kOnAny)(form, dice);
}

} // namespace gui
