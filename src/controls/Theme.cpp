// Colours have names in layouts, the same as in the palette.
//
// Tested by tests/windows/layout_test.cpp and every_control_test.cpp.
#include "controls/Theme.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"

namespace {

bool ReadFlag() {
    HIGHCONTRASTW setting{};
    setting.cbSize = sizeof setting;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof setting, &setting, 0) &&
           (setting.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool (*g_Answer)() = ReadFlag;
// Read once and then again on each change, since every painting asks.
bool g_Known = false, g_HighContrast = false;

struct Named {
    std::u16string_view Name;
    COLORREF Colour;
};
constexpr Named kNames[] = {
    {u"Ink", palette::Ink},
    {u"Muted", palette::Muted},
    {u"Link", palette::Link},
    {u"Card", palette::Card},
    {u"FrameTop", palette::FrameTop},
    {u"FrameBottom", palette::FrameBottom},
    {u"Tint", palette::Tint},
    {u"Line", palette::Line},
    {u"FieldBorder", palette::FieldBorder},
    {u"Outline", palette::Outline},
    {u"Brand", palette::Brand},
    {u"PrimaryBack", palette::PrimaryBack},
    {u"NeutralBack", palette::NeutralBack},
    {u"PinnedBack", palette::PinnedBack},
    {u"HoverNeutral", palette::HoverNeutral},
    {u"HoverPrimary", palette::HoverPrimary},
    {u"FocusNeutral", palette::FocusNeutral},
    {u"FocusPrimary", palette::FocusPrimary},
    {u"Sel", palette::Sel},
    {u"SelGrad", palette::SelGrad},
    {u"ListGrad", palette::ListGrad},
    {u"Bar1", palette::Bar1},
    {u"Bar2", palette::Bar2},
    {u"Track", palette::Track},
    {u"None", kNoColour},
};

// Up to 8 hexadecimal digits; false for anything else.
bool ReadHex(std::u16string_view digits, std::uint32_t& value) {
    if (digits.empty() || digits.size() > 8) return false;
    std::uint32_t sum = 0;
    for (const char16_t digit : digits) {
        const char16_t lower = digit | 0x20;
        if (digit >= u'0' && digit <= u'9')
            sum = sum * 16 + (digit - u'0');
        else if (lower >= u'a' && lower <= u'f')
            sum = sum * 16 + (lower - u'a' + 10);
        else
            return false;
    }
    value = sum;
    return true;
}

} // namespace

COLORREF Resolve(OleColour colour) {
    if (colour & 0x80000000) return GetSysColor(static_cast<int>(colour & 0xFF));
    return colour & 0xFFFFFF;
}

OleColour ParseColour(std::u16string_view text) {
    for (const Named& known : kNames) {
        if (text::EqualNoCase(known.Name, text)) return known.Colour;
    }
    std::uint32_t value = 0;
    if (text.starts_with(u"&H") && ReadHex(text.substr(2), value)) return value;
    if (text.starts_with(u"#") && text.size() == 7 && ReadHex(text.substr(1), value))
        return RGB(value >> 16, (value >> 8) & 0xFF, value & 0xFF);
    throw RuntimeFailure(kTypeMismatch, u"ParseColour", u"No colour: " + std::u16string(text));
}

namespace Theme {

bool HighContrast() {
    if (!g_Known) SettingsChanged();
    return g_HighContrast;
}

void ReplaceHighContrast(bool (*answer)()) {
    g_Answer = answer ? answer : ReadFlag;
    g_Known = false;
}

COLORREF Pick(COLORREF normal, int systemIndex) {
    return HighContrast() ? GetSysColor(systemIndex) : normal;
}

void SettingsChanged() {
    g_HighContrast = g_Answer();
    g_Known = true;
}

} // namespace Theme
