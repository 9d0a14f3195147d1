#include "gallery/Sheet.h"

#include "base/Text.h"
#include "controls/Dpi.h"
#include "controls/Label.h"

#include <vector>

namespace gallery {

RECT Paper::Place(int left, int top, int width, int height) const {
    return ToPixels(left * 15, top * 15, width * 15, height * 15, Dpi);
}

void Paper::Caption(int left, int top, std::u16string_view text) const {
    DrawLabel(Dc, Place(left, top, 400, 16), {.Caption = text, .Font = Ui.Get()});
}

void Paper::Heading(int left, int top, std::u16string_view text) const {
    DrawLabel(Dc, Place(left, top, 400, 16), {.Caption = text, .Font = Strong.Get()});
}

std::u16string SheetLayout(int width96, int height96) {
    return u"form\tcontainer\tcontrol\tkind\tleft\ttop\twidth\theight\tcaption\ttab\tproperties\n"
           u"sheet\t\tsheet\tform\t\t\t" +
           text::Decimal(width96 * 15) + u"\t" + text::Decimal(height96 * 15) + u"\tGallery\t\t\n";
}

std::u16string Row(std::u16string_view name, std::u16string_view kind, int left, int top, int width,
                   int height, std::u16string_view caption, std::u16string_view properties) {
    std::u16string row = u"sheet\tsheet\t" + std::u16string(name) + u"\t" + std::u16string(kind);
    for (const int pixels : {left, top, width, height}) row += u"\t" + text::Decimal(pixels * 15);
    return row + u"\t" + std::u16string(caption) + u"\t\t" + std::u16string(properties) + u"\n";
}

SheetWindow::SheetWindow(const Sheet& sheet) : m_Sheet(sheet), m_Live(sheet.Layout) {
    if (sheet.Draw)
        Window.PaintGround = [this](HDC dc, const RECT&) { m_Sheet.Draw(Paper(dc, Window.Dpi())); };
    for (const std::u16string_view name : sheet.Tips) {
        Control& control = *Window.Find(name);
        if (!control.Tag().empty()) GiveBalloon(control);
    }
    if (sheet.Prepare) sheet.Prepare(Window);
}

// As the program's side panel gives them to its controls.
void SheetWindow::GiveBalloon(Control& control) {
    constexpr int kAlwaysBalloon = 65, kInformation = 1;
    constexpr OleColour kInfoBack = 0x80000018;
    m_Balloons.push_back(std::make_unique<cToolTip>());
    m_Balloons.back()->Create(control.hWnd(), control.ToolTipText(), kAlwaysBalloon,
                              control.TypeName() == u"TextBox", kInformation, control.Tag(), kButtonText,
                              kInfoBack, -1, -1);
    control.ToolTipText(u"");
}

void UseContrastTheme(bool on) {
    struct Colour {
        INT Index;
        COLORREF Value;
    };
    constexpr COLORREF kGround = RGB(0x20, 0x20, 0x20), kText = RGB(0xFF, 0xFF, 0xFF),
                       kAccent = RGB(0x8E, 0xE3, 0xF0), kOnAccent = RGB(0x26, 0x3B, 0x50),
                       kGrey = RGB(0xA6, 0xA6, 0xA6);
    static const Colour kTheme[] = {
        {COLOR_WINDOW, kGround},     {COLOR_WINDOWTEXT, kText},        {COLOR_WINDOWFRAME, kText},
        {COLOR_BTNFACE, kGround},    {COLOR_BTNTEXT, kText},           {COLOR_BTNSHADOW, kGrey},
        {COLOR_BTNHIGHLIGHT, kText}, {COLOR_3DDKSHADOW, kText},        {COLOR_3DLIGHT, kGrey},
        {COLOR_HIGHLIGHT, kAccent},  {COLOR_HIGHLIGHTTEXT, kOnAccent}, {COLOR_HOTLIGHT, kAccent},
        {COLOR_GRAYTEXT, kGrey},     {COLOR_SCROLLBAR, kGround},       {COLOR_INFOBK, kGround},
        {COLOR_INFOTEXT, kText},
    };
    static std::vector<COLORREF> before;
    std::vector<INT> indexes;
    std::vector<COLORREF> values;
    for (const Colour& colour : kTheme) {
        if (on && before.size() < std::size(kTheme)) before.push_back(GetSysColor(colour.Index));
        indexes.push_back(colour.Index);
        values.push_back(colour.Value);
    }
    if (!on) values = before;
    if (values.empty()) return;
    Theme::ReplaceHighContrast(on ? [] { return true; } : static_cast<bool (*)()>(nullptr));
    SetSysColors(static_cast<int>(values.size()), indexes.data(), values.data());
    for (Form* form : Forms::All()) SendMessageW(form->Base.hWnd(), WM_SETTINGCHANGE, SPI_SETHIGHCONTRAST, 0);
}

} // namespace gallery
