// A window without text of the system's: the label draws it.
//
// Tested by tests/windows/form_test.cpp, option_keys_test.cpp and bad_input_test.cpp.
#include "controls/Label.h"

#include "base/RuntimeFailure.h"
#include "controls/Painting.h"

namespace {
constexpr AccessibleTable kAccessible{.Role = ROLE_SYSTEM_STATICTEXT};
// No label shows more; measuring a text of words takes long.
constexpr std::size_t kMostDrawn = 4096;
} // namespace

const ControlKind Label::kKind{
    .TypeName = u"Label",
    .LayoutKinds = u"label",
    .Transparent = true,
    .Property = Entry<&Label::OnProperty>::Call,
    .Paint = Entry<&Label::OnPaint>::Call,
    .Message = Entry<&Label::OnMessage>::Call,
    .Accessible = &kAccessible,
};

void Label::ForeColor(OleColour colour) {
    m_ForeColor = colour;
    Base.Invalidate();
}

bool Label::OnProperty(std::u16string_view name, std::u16string_view value) {
    if (name == u"ForeColor") {
        ForeColor(ParseColour(value));
    } else if (name == u"Align") {
        if (value != u"left" && value != u"right" && value != u"centre")
            throw RuntimeFailure(kTypeMismatch, Base.FullName(), u"Align is left, right or centre");
        m_Alignment = value == u"left" ? Align::Left : value == u"right" ? Align::Right : Align::Centre;
    } else if (name == u"EndEllipsis") {
        m_EndEllipsis = ParseYesNo(value);
    } else {
        return false;
    }
    return true;
}

void Label::OnPaint(HDC dc, const RECT& client) {
    DrawLabel(
        dc, client,
        {Base.Caption(), Base.FontInUse(), m_ForeColor, m_Alignment, m_EndEllipsis, Base.EnabledInAll()});
}

bool Label::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    if (message != WM_LBUTTONDOWN && message != WM_RBUTTONDOWN && message != WM_MBUTTONDOWN) return false;
    const MouseAt mouse = ReadMouse(message, wParam, lParam, Base.Dpi());
    Raise(MouseDown, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
    return true;
}

void DrawLabel(HDC dc, const RECT& place, const LabelState& state) {
    UINT format = state.EndEllipsis ? DT_SINGLELINE | DT_END_ELLIPSIS : DT_WORDBREAK;
    if (state.Alignment == Label::Align::Right) format |= DT_RIGHT;
    if (state.Alignment == Label::Align::Centre) format |= DT_CENTER;
    COLORREF ink = Theme::Pick(Resolve(state.ForeColor), COLOR_WINDOWTEXT);
    if (!state.Enabled) ink = Theme::Pick(palette::DisabledText, COLOR_GRAYTEXT);
    const std::u16string_view shown = state.Caption.substr(0, kMostDrawn);
    RECT text = place, measured{0, 0, WidthOf(place), 0};
    DrawTextIn(dc, state.Font, shown, measured, ink, format | DT_CALCRECT);
    const bool oneLine = HeightOf(measured) < 2 * LineHeight(state.Font);
    if (oneLine) text.top += (HeightOf(place) - HeightOf(measured)) / 2;
    DrawTextIn(dc, state.Font, shown, text, ink, format);
}
