// The look of the toggles: glyph, caption wrapped by hand, focus rectangle.
//
// Tested by tests/windows/toggle_look_test.cpp.
#include "controls/Toggle.h"

#include "base/Text.h"
#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "controls/Picture.h"

#include <algorithm>
#include <array>

namespace {

constexpr int kGlyphSide = 13, kTextLeft = 15, kAround = 2; // pixels of 96 DPI
// More characters than any toggle can show.
constexpr std::size_t kMostDrawn = 4096;

// The pictures are made once: every painting asks.
const Picture& GlyphPicture(const ToggleState& state, std::size_t look) {
    static constexpr std::u16string_view kStates[] = {u"check-off-", u"check-on-", u"check-grey-",
                                                      u"option-off-", u"option-on-"};
    static constexpr std::u16string_view kLooks[] = {u"idle", u"hover", u"pressed", u"disabled"};
    static std::array<std::array<Picture, std::size(kLooks)>, std::size(kStates)> made;
    const auto value = static_cast<std::size_t>(state.Value);
    const std::size_t which = state.Kind == ToggleKind::Check ? value : 3 + std::min<std::size_t>(value, 1);
    Picture& picture = made[which][look];
    if (picture.Empty())
        picture = Picture::FromResource(std::u16string(kStates[which]) + std::u16string(kLooks[look]));
    return picture;
}

COLORREF ContrastInk(const ToggleState& state) {
    return GetSysColor(state.Enabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT);
}

// Outline and core, each a square or a circle; the core of a grey box is hollow.
void DrawContrastGlyph(HDC dc, const RECT& place, const ToggleState& state) {
    const bool lit = state.Enabled && (state.Hovering || state.Pressed);
    const COLORREF ink = lit ? GetSysColor(COLOR_HIGHLIGHT) : ContrastInk(state);
    const int line = HairLine(state.Dpi);
    const RECT core = Inset(place, Scaled(3, state.Dpi));
    if (state.Kind == ToggleKind::Check) {
        FrameRectangle(dc, place, ink, line);
        if (state.Value == 1) FillRectangle(dc, core, ink);
        if (state.Value == 2) FrameRectangle(dc, core, ink, Scaled(2, state.Dpi));
        return;
    }
    const HPEN pen = CreatePen(PS_INSIDEFRAME, line, ink);
    const HBRUSH brush = CreateSolidBrush(ink);
    const HGDIOBJ penBefore = SelectObject(dc, pen);
    const HGDIOBJ brushBefore = SelectObject(dc, GetStockObject(NULL_BRUSH));
    Ellipse(dc, place.left, place.top, place.right, place.bottom);
    SelectObject(dc, brush);
    if (state.Value != 0) Ellipse(dc, core.left, core.top, core.right, core.bottom);
    SelectObject(dc, brushBefore);
    SelectObject(dc, penBefore);
    DeleteObject(brush);
    DeleteObject(pen);
}

void DrawGlyph(HDC dc, const RECT& place, const ToggleState& state) {
    if (Theme::HighContrast()) return DrawContrastGlyph(dc, place, state);
    const std::size_t look = !state.Enabled ? 3 : state.Pressed ? 2 : state.Hovering ? 1 : 0;
    GlyphPicture(state, look).Draw(dc, place, state.Dpi);
}

int WidthOfLine(HDC dc, std::u16string_view line) {
    RECT measured{};
    DrawTextW(dc, reinterpret_cast<const wchar_t*>(line.data()), static_cast<int>(line.size()), &measured,
              DT_SINGLELINE | DT_CALCRECT);
    return line.empty() ? 0 : static_cast<int>(measured.right);
}

} // namespace

std::u16string WrapCaption(std::u16string_view caption, int width,
                           const std::function<int(std::u16string_view)>& widthOf) {
    std::u16string wrapped, line;
    bool first = true;
    for (const std::u16string_view word : text::Split(caption, u" ")) {
        const std::u16string longer = first ? std::u16string(word) : line + u" " + std::u16string(word);
        if (first || widthOf(longer) <= width) {
            wrapped.append(first ? u"" : u" ").append(word);
            line = longer;
        } else {
            wrapped.append(u"\r\n").append(word);
            line = word;
        }
        first = false;
    }
    return wrapped;
}

void DrawToggle(HDC dc, const RECT& place, const ToggleState& state) {
    const int saved = SaveDC(dc);
    IntersectClipRect(dc, place.left, place.top, place.right, place.bottom);
    if (state.BackColor != kButtonFace)
        FillRectangle(dc, place, Theme::Pick(Resolve(state.BackColor), COLOR_WINDOW));

    SelectObject(dc, state.Font);
    const int left = Scaled(kTextLeft, state.Dpi), step = LineHeight(state.Font);
    const std::u16string wrapped =
        WrapCaption(state.Caption.substr(0, kMostDrawn), WidthOf(place) - left,
                    [dc](std::u16string_view line) { return WidthOfLine(dc, line); });
    const auto lines = text::Split(wrapped, u"\r\n");
    const int height = step * static_cast<int>(lines.size());
    // In the middle, of an odd rest the larger part above, the glyph beside the first line. A
    // caption that is too high begins at the top.
    const int side = Scaled(kGlyphSide, state.Dpi), rest = std::max(0, HeightOf(place) - height);
    RECT text{place.left + left, place.top + (rest + 1) / 2, place.left + left, 0};
    text.bottom = text.top + height;
    const LONG glyphTop = place.top + (rest + step - side + 1) / 2;
    DrawGlyph(dc, {place.left, glyphTop, place.left + side, glyphTop + side}, state);

    COLORREF ink = Theme::Pick(Resolve(state.ForeColor), COLOR_WINDOWTEXT);
    if (!state.Enabled) ink = Theme::Pick(palette::DisabledText, COLOR_GRAYTEXT);
    LONG top = text.top;
    for (const std::u16string_view line : lines) {
        if (top >= place.bottom) break;
        RECT row{text.left, top, std::max(place.right, text.left), top + step};
        DrawTextIn(dc, state.Font, line, row, ink, DT_SINGLELINE | DT_NOCLIP);
        text.right = std::max<LONG>(text.right, text.left + WidthOfLine(dc, line));
        top += step;
    }
    if (state.Focused) {
        RECT around = Inset(text, -Scaled(kAround, state.Dpi)), shown;
        IntersectRect(&shown, &around, &place);
        DottedRectangle(dc, shown, Theme::Pick(palette::Ink, COLOR_WINDOWTEXT), HairLine(state.Dpi));
    }
    RestoreDC(dc, saved);
}
