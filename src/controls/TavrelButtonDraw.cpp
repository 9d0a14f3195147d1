// The look of the button: fill and frame of each style, picture, focus, caption.
//
// Tested by tests/windows/button_look_test.cpp and button_states_test.cpp.
#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "controls/TavrelButton.h"

#include <algorithm>
#include <vector>

namespace {

constexpr OleColour kHighlight = 0x80000014, kShadow = 0x80000010, kDarkShadow = 0x80000015;
constexpr COLORREF kFocusFrame = RGB(140, 170, 230), kHotFrame = RGB(225, 153, 71);
// More characters than any button can show; longer captions take the system too long.
constexpr std::size_t kMostDrawn = 4096;

// The shades of style 3, all from the base, which is BackColor made lighter.
constexpr int kBaseOffset = 48, kPressedOffset = -32;
constexpr int kIdleSpan = -25, kPressedSpan = -15; // from the first line to the last
constexpr int kInnerOffset = -24, kOuterOffset = -84, kCornerOffset = -72;

void FillRows(HDC dc, const RECT& place, int row, int count, int cut, COLORREF colour) {
    const int top = place.top + row;
    FillRectangle(dc, {place.left + cut, top, place.right - cut, top + count}, colour);
}

// Line by line from first, the line 0, by an even step; from the bottom up when pressed.
void FillGradient(HDC dc, const RECT& place, COLORREF first, int span, bool fromBottom, int dpi) {
    const int height = HeightOf(place);
    std::vector<COLORREF> uncut;
    int uncutTop = 0;
    for (int row = 0; row < height; ++row) {
        const int line = fromBottom ? height - 1 - row : row;
        const int delta = (2 * span * line - height) / (2 * height); // span is below 0: to the nearest
        const COLORREF colour = OffsetColour(first, delta);
        if (const int cut = CutOfRow(row, height, dpi)) {
            FillRows(dc, place, row, 1, cut, colour);
            continue;
        }
        if (uncut.empty()) uncutTop = place.top + row;
        uncut.push_back(colour);
    }
    const int count = static_cast<int>(uncut.size());
    StretchShades(dc, {place.left, uncutTop, place.right, uncutTop + count}, 1, count, uncut);
}

void FillPlain(HDC dc, const RECT& place, COLORREF colour, int dpi) {
    const int height = HeightOf(place), cut = Scaled(2, dpi);
    for (int row = 0; row < height; ++row) {
        const bool inside = row >= cut && row < height - cut;
        const int count = inside ? height - 2 * cut : 1;
        FillRows(dc, place, row, count, CutOfRow(row, height, dpi), colour);
        row += count - 1;
    }
}

// The edge of the cut rectangle. At 96 DPI a corner is the one pixel (1,1).
void DrawOutline(HDC dc, const RECT& place, COLORREF edge, COLORREF corner, int dpi) {
    const int line = HairLine(dpi), one = Scaled(1, dpi), two = Scaled(2, dpi);
    const auto bar = [&](int left, int top, int right, int bottom, COLORREF colour) {
        FillRectangle(dc, {left, top, right, bottom}, colour);
    };
    bar(place.left + two, place.top, place.right - two, place.top + line, edge);
    bar(place.left + two, place.bottom - line, place.right - two, place.bottom, edge);
    bar(place.left, place.top + two, place.left + line, place.bottom - two, edge);
    bar(place.right - line, place.top + two, place.right, place.bottom - two, edge);
    // A piece of a corner, told for the top left one.
    const auto piece = [&](int left, int top, int right, int bottom, COLORREF colour) {
        bar(place.left + left, place.top + top, place.left + right, place.top + bottom, colour);
        bar(place.right - right, place.top + top, place.right - left, place.top + bottom, colour);
        bar(place.left + left, place.bottom - bottom, place.left + right, place.bottom - top, colour);
        bar(place.right - right, place.bottom - bottom, place.right - left, place.bottom - top, colour);
    };
    piece(two, 0, two + line, one, edge);
    piece(0, two, one, two + line, edge);
    piece(one, one, two, one + line, corner);
    piece(one, one, one + line, two, corner);
}

// A frame of that width inside the outline, as far as the corners leave room.
void DrawInnerFrame(HDC dc, const RECT& place, COLORREF colour, int width, int dpi) {
    const int line = HairLine(dpi), height = HeightOf(place), inner = line + width;
    for (int row = line; row < height - line; ++row) {
        const int cutOff = CutOfRow(row, height, dpi), cut = std::max(line, cutOff);
        if (row < inner || row >= height - inner) {
            FillRows(dc, place, row, 1, cut, colour);
            continue;
        }
        int count = 1;
        while (row + count < height - inner && CutOfRow(row + count, height, dpi) == cutOff) ++count;
        const int top = place.top + row;
        FillRectangle(dc, {place.left + cut, top, place.left + inner, top + count}, colour);
        FillRectangle(dc, {place.right - inner, top, place.right - cut, top + count}, colour);
        row += count - 1;
    }
}

// Hover and focus.
void DrawSignFrame(HDC dc, const RECT& place, COLORREF colour, int dpi) {
    DrawInnerFrame(dc, place, colour, Scaled(2, dpi), dpi);
}

void DrawXP(HDC dc, const RECT& place, const TavrelButtonState& state) {
    const int dpi = state.Dpi;
    const COLORREF base = OffsetColour(Resolve(state.BackColor), kBaseOffset);
    if (!state.Enabled) {
        FillPlain(dc, place, base, dpi);
        DrawInnerFrame(dc, place, OffsetColour(base, kInnerOffset), HairLine(dpi), dpi);
        DrawOutline(dc, place, OffsetColour(base, kOuterOffset), OffsetColour(base, kCornerOffset), dpi);
        return;
    }
    const COLORREF dark = Resolve(kDarkShadow);
    if (state.Pressed) {
        FillGradient(dc, place, OffsetColour(base, kPressedOffset), kPressedSpan, true, dpi);
    } else {
        FillGradient(dc, place, base, kIdleSpan, false, dpi);
        if (state.Focused) // wins over hover
            DrawSignFrame(dc, place, state.XPDefaultColors ? kFocusFrame : Resolve(state.XPColor_Pressed),
                          dpi);
        else if (state.Hovering)
            DrawSignFrame(dc, place, state.XPDefaultColors ? kHotFrame : Resolve(state.XPColor_Hover), dpi);
    }
    DrawOutline(dc, place, dark, dark, dpi);
}

// The flat styles stand on their container.
bool StandsOnGround(const TavrelButtonState& state) {
    return state.ButtonStyle != kStyleXP && (state.TransparentBG || state.BackColor == kButtonFace);
}

// Told by its ground, which high contrast does not paint.
bool Pinned(const TavrelButtonState& state) {
    return state.ButtonStyle == kStyleFlat && state.BackColor == palette::PinnedBack;
}

void DrawFlat(HDC dc, const RECT& place, const TavrelButtonState& state) {
    if (!StandsOnGround(state)) FillRectangle(dc, place, Resolve(state.BackColor));
    if (state.ButtonStyle == kStyleNone || !state.Enabled || !(state.Pressed || state.Hovering)) return;
    const int line = HairLine(state.Dpi);
    const COLORREF light = RGB(255, 255, 255), shade = palette::RaisedShadow;
    const COLORREF upper = state.Pressed ? shade : light, lower = state.Pressed ? light : shade;
    FillRectangle(dc, {place.left, place.top, place.right, place.top + line}, upper);
    FillRectangle(dc, {place.left, place.top, place.left + line, place.bottom}, upper);
    FillRectangle(dc, {place.left, place.bottom - line, place.right, place.bottom}, lower);
    FillRectangle(dc, {place.right - line, place.top, place.right, place.bottom}, lower);
}

// Fill and frame of all styles in the system's colours.
void DrawContrast(HDC dc, const RECT& place, const TavrelButtonState& state) {
    const bool pressed = state.Enabled && state.Pressed && state.ButtonStyle != kStyleNone;
    const COLORREF fill = GetSysColor(pressed ? COLOR_HIGHLIGHT : COLOR_BTNFACE);
    if (state.ButtonStyle == kStyleXP) {
        FillPlain(dc, place, fill, state.Dpi);
        if (state.Enabled && !state.Pressed && (state.Focused || state.Hovering))
            DrawSignFrame(dc, place, GetSysColor(COLOR_HIGHLIGHT), state.Dpi);
        const COLORREF edge = GetSysColor(state.Enabled ? COLOR_BTNTEXT : COLOR_GRAYTEXT);
        DrawOutline(dc, place, edge, edge, state.Dpi);
        return;
    }
    if (pressed || !StandsOnGround(state)) FillRectangle(dc, place, fill);
    if (Pinned(state))
        FrameRectangle(dc, place, GetSysColor(state.Enabled ? COLOR_HIGHLIGHT : COLOR_GRAYTEXT),
                       Scaled(2, state.Dpi));
    if (pressed || (state.Enabled && state.Hovering && state.ButtonStyle == kStyleFlat))
        FrameRectangle(dc, place, GetSysColor(COLOR_BTNTEXT), HairLine(state.Dpi));
}

COLORREF CaptionColour(const TavrelButtonState& state) {
    if (!Theme::HighContrast()) return Resolve(state.ForeColor);
    if (!state.Enabled) return GetSysColor(COLOR_GRAYTEXT);
    if (state.ButtonStyle == kStyleNone) return GetSysColor(COLOR_HOTLIGHT);
    if (state.Pressed) return GetSysColor(COLOR_HIGHLIGHTTEXT);
    return GetSysColor(StandsOnGround(state) ? COLOR_WINDOWTEXT : COLOR_BTNTEXT);
}

struct Placed {
    RECT Image{}, Text{};
};

// Picture and caption with their gap, as a pair in the middle of place.
Placed PlacePair(HDC dc, const RECT& place, std::u16string_view caption, const TavrelButtonState& state) {
    const RECT inside = Inset(place, Scaled(3, state.Dpi));
    const bool image =
        state.Image && !state.Image->Empty() && state.ImageSize.cx > 0 && state.ImageSize.cy > 0;
    const SIZE picture = image ? SIZE{Scaled(static_cast<int>(state.ImageSize.cx), state.Dpi),
                                      Scaled(static_cast<int>(state.ImageSize.cy), state.Dpi)}
                               : SIZE{};
    const int gap = image && !caption.empty() ? Scaled(4, state.Dpi) : 0;
    const bool beside = state.PicturePosition == kPictureLeft || state.PicturePosition == kPictureRight;
    const int most = std::max(1, WidthOf(inside) - static_cast<int>(beside ? picture.cx + gap : 0));
    RECT measured{0, 0, most, 0};
    if (!caption.empty())
        DrawTextIn(dc, state.Font, caption, measured, 0, DT_CENTER | DT_WORDBREAK | DT_CALCRECT);
    const SIZE text{caption.empty() ? 0 : std::min(WidthOf(measured), most), HeightOf(measured)};

    const SIZE pair = beside ? SIZE{picture.cx + gap + text.cx, std::max(picture.cy, text.cy)}
                             : SIZE{std::max(picture.cx, text.cx), picture.cy + gap + text.cy};
    const LONG left = place.left + (WidthOf(place) - pair.cx) / 2;
    const LONG top = place.top + (HeightOf(place) - pair.cy) / 2;
    const auto box = [&](SIZE size, LONG along) {
        const LONG x = beside ? left + along : place.left + (WidthOf(place) - size.cx) / 2;
        const LONG y = beside ? place.top + (HeightOf(place) - size.cy) / 2 : top + along;
        return RECT{x, y, x + size.cx, y + size.cy};
    };
    const bool imageFirst = state.PicturePosition == kPictureLeft || state.PicturePosition == kPictureAbove;
    const LONG textLength = beside ? text.cx : text.cy, imageLength = beside ? picture.cx : picture.cy;
    Placed placed;
    placed.Image = box(picture, imageFirst ? 0 : textLength + gap);
    placed.Text = box(text, imageFirst ? imageLength + gap : 0);
    // Drawn as wide as it was measured: in less, a line that just fits might break elsewhere.
    placed.Text.left -= (most - text.cx) / 2;
    placed.Text.right = placed.Text.left + most;
    if (state.Pressed && state.Enabled) {
        const int shift = Scaled(1, state.Dpi);
        OffsetRect(&placed.Image, shift, shift);
        OffsetRect(&placed.Text, shift, shift);
    }
    return placed;
}

void DrawCaption(HDC dc, RECT text, std::u16string_view caption, const TavrelButtonState& state) {
    constexpr UINT kFormat = DT_CENTER | DT_WORDBREAK;
    if (state.Enabled || Theme::HighContrast())
        return DrawTextIn(dc, state.Font, caption, text, CaptionColour(state), kFormat);
    const int shift = Scaled(1, state.Dpi);
    RECT light = text;
    OffsetRect(&light, shift, shift);
    DrawTextIn(dc, state.Font, caption, light, Resolve(kHighlight), kFormat);
    DrawTextIn(dc, state.Font, caption, text, Resolve(kShadow), kFormat);
}

} // namespace

COLORREF OffsetColour(COLORREF colour, int delta) {
    const int blue = GetBValue(colour);
    const auto kept = [](int value) { return static_cast<BYTE>(std::clamp(value, 0, 255)); };
    return RGB(kept(GetRValue(colour) + delta), kept(GetGValue(colour) + delta),
               kept(blue * delta / 192 + blue));
}

int CutOfRow(int row, int height, int dpi) {
    const int fromEdge = std::min(row, height - 1 - row);
    if (fromEdge < Scaled(1, dpi)) return Scaled(2, dpi);
    return fromEdge < Scaled(2, dpi) ? Scaled(1, dpi) : 0;
}

void DrawTavrelButton(HDC dc, const RECT& place, const TavrelButtonState& state) {
    const int saved = SaveDC(dc);
    IntersectClipRect(dc, place.left, place.top, place.right, place.bottom);
    const bool contrast = Theme::HighContrast();
    if (contrast)
        DrawContrast(dc, place, state);
    else if (state.ButtonStyle == kStyleXP)
        DrawXP(dc, place, state);
    else
        DrawFlat(dc, place, state);

    const std::u16string_view caption = state.Caption.substr(0, kMostDrawn);
    const Placed placed = PlacePair(dc, place, caption, state);
    const bool image = state.Image && WidthOf(placed.Image) > 0;
    if (image) state.Image->DrawOnPlate(dc, placed.Image, state.Dpi, !state.Enabled);
    if (state.Focused && state.ShowFocusRect && state.ButtonStyle != kStyleXP) {
        // On the white plate of a picture white dots would be lost: they go round it, also on
        // the frame of a pinned one.
        const int inset = Scaled(contrast && image ? 1 : 4, state.Dpi);
        const int ink = Pinned(state) && image ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT;
        DottedRectangle(dc, Inset(place, inset), Theme::Pick(palette::Ink, ink), HairLine(state.Dpi));
    }
    if (!caption.empty()) DrawCaption(dc, placed.Text, caption, state);
    RestoreDC(dc, saved);
}
