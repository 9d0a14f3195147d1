// How a list looks. Only rows inside the context's clipping area are asked for and drawn.
//
// Tested by tests/windows/mclistbox_look_test.cpp and mclistbox_states_test.cpp.
#include "controls/Dpi.h"
#include "controls/McListBox.h"
#include "controls/Painting.h"

#include <algorithm>
#include <vector>

namespace {

// Pixels of 96 DPI.
constexpr int kIconCell = 24;
constexpr int kIconLeft = 5;
constexpr int kTextPad = 3;

constexpr int kDownwards = 1, kDiagonal = 6;
constexpr std::size_t kMostUnits = 4096; // no screen shows more of one row

COLORREF Between(COLORREF from, COLORREF to, int step, int steps) {
    if (steps == 0) return from;
    const auto channel = [&](int a, int b) { return a + (b - a) * step / steps; };
    return RGB(channel(GetRValue(from), GetRValue(to)), channel(GetGValue(from), GetGValue(to)),
               channel(GetBValue(from), GetBValue(to)));
}

void FillBlock(HDC dc, const RECT& place, int gradient, COLORREF from, COLORREF to) {
    const int width = WidthOf(place), height = HeightOf(place);
    if (width <= 0 || height <= 0) return;
    if (gradient != kDownwards && gradient != kDiagonal) {
        FillRectangle(dc, place, from);
        return;
    }
    const int across = gradient == kDiagonal ? width : 1;
    const int steps = gradient == kDiagonal ? width + height - 2 : height - 1;
    std::vector<COLORREF> steep;
    for (int step = 0; step <= steps; ++step) steep.push_back(Between(from, to, step, steps));
    std::vector<COLORREF> shades;
    shades.reserve(static_cast<std::size_t>(across) * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y)
        shades.insert(shades.end(), steep.begin() + y, steep.begin() + y + across);
    StretchShades(dc, place, across, height, shades);
}

int IconCell(const McListBoxState& state) {
    return state.ShowIcon ? Scaled(kIconCell, state.Dpi) : 0;
}

std::u16string_view Shown(const ListItem& item) {
    return std::u16string_view(item.Text).substr(0, kMostUnits);
}

HFONT FontOf(const ListItem& item, const McListBoxState& state) {
    return item.Bold ? state.BoldFont : state.Font;
}

struct RowLook {
    bool Selected, Hovered;
    RECT Text, Block; // where the text stands, what the selection fills
};

RowLook Place(const ListItem& item, const RECT& row, int index, const McListBoxState& state) {
    RowLook look;
    look.Selected = index == state.ListIndex;
    look.Hovered = !look.Selected && index == state.HoveredRow && state.ShowHover && state.Enabled &&
                   !Theme::HighContrast();
    look.Text = look.Block = row;
    if (!state.IconFocus) look.Block.left += IconCell(state);
    const int pad = Scaled(kTextPad, state.Dpi);
    look.Text.left += IconCell(state) + pad;
    look.Text.right -= pad;
    if (!state.FullRowSelect && (look.Selected || look.Hovered)) {
        const LONG end = look.Text.left + TextSize(FontOf(item, state), Shown(item)).cx + pad;
        look.Block.right = std::min(row.right, end);
    }
    return look;
}

// What the selection's text is drawn in.
COLORREF SelectionInk(const McListBoxState& state) {
    if (state.Enabled) return Theme::Pick(Resolve(state.SelForeColor), COLOR_HIGHLIGHTTEXT);
    return Theme::Pick(palette::Card, COLOR_WINDOW);
}

COLORREF Ink(const McListBoxState& state) {
    return state.Enabled ? Theme::Pick(Resolve(state.ForeColor), COLOR_WINDOWTEXT)
                         : Theme::Pick(palette::DisabledText, COLOR_GRAYTEXT);
}

void FillSelection(HDC dc, const RECT& block, const McListBoxState& state) {
    if (!state.Enabled)
        FillRectangle(dc, block, Theme::Pick(palette::SelDisabled, COLOR_GRAYTEXT));
    else if (Theme::HighContrast())
        FillRectangle(dc, block, GetSysColor(COLOR_HIGHLIGHT));
    else if (state.SelGradient == kDownwards || state.SelGradient == kDiagonal)
        FillBlock(dc, block, state.SelGradient, Resolve(state.SelGradientCol), Resolve(state.SelColor));
    else
        FillRectangle(dc, block, Resolve(state.SelColor));
}

void DrawIcon(HDC dc, const RECT& row, int icon, const McListBoxState& state) {
    if (!state.ImageList || icon < 0 || icon >= state.ImageList->ImageCount()) return;
    const Picture& picture = state.ImageList->Image(icon);
    const SIZE size = picture.Size();
    RECT place;
    place.left = row.left + Scaled(kIconLeft, state.Dpi);
    place.right = place.left + Scaled(size.cx, state.Dpi);
    place.top = row.top + (HeightOf(row) - Scaled(size.cy, state.Dpi)) / 2;
    place.bottom = place.top + Scaled(size.cy, state.Dpi);
    const int saved = SaveDC(dc);
    IntersectClipRect(dc, row.left, row.top, row.left + IconCell(state), row.bottom);
    picture.DrawOnPlate(dc, place, state.Dpi, !state.Enabled);
    RestoreDC(dc, saved);
}

void MarkFocus(HDC dc, const RECT& block, COLORREF ink, const McListBoxState& state) {
    if (!state.FocusRectangle || !state.Focused || !state.Enabled) return;
    const int hair = HairLine(state.Dpi);
    DottedRectangle(dc, Inset(block, hair), ink, hair);
}

void DrawRow(HDC dc, const RECT& row, int index, const McListBoxState& state) {
    const ListItem& item = state.Row(index);
    RowLook look = Place(item, row, index, state);
    if (look.Selected)
        FillSelection(dc, look.Block, state);
    else if (look.Hovered)
        FillRectangle(dc, look.Block, palette::RowHover);
    if (state.ShowIcon) DrawIcon(dc, row, item.Icon, state);
    const COLORREF ink = look.Selected ? SelectionInk(state) : Ink(state);
    DrawTextIn(dc, FontOf(item, state), Shown(item), look.Text, ink,
               DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    // Without a current row the first one seen tells where the focus is.
    if (look.Selected || (state.ListIndex < 0 && index == state.TopRow))
        MarkFocus(dc, look.Block, ink, state);
}

bool Sunken(const McListBoxState& state) {
    return state.Appearance == 1;
}

} // namespace

McListBoxRows::McListBoxRows(const McListBoxState& state)
    : m_TextHeight(std::max<int>(TextSize(state.Font, u"A").cy, 1)), m_RowHeight(state.RowHeight),
      m_Dpi(state.Dpi), m_ByText(1LL * m_TextHeight * 96 > 1LL * m_RowHeight * m_Dpi) {}

int McListBoxRows::Top(int row) const {
    return m_ByText ? row * m_TextHeight : Scaled(row * m_RowHeight, m_Dpi);
}

int McListBoxRows::At(int y) const {
    if (m_ByText) return y / m_TextHeight;
    int row = static_cast<int>(96LL * y / (1LL * m_RowHeight * m_Dpi));
    while (row > 0 && Top(row) > y) --row;
    while (Top(row + 1) <= y) ++row;
    return row;
}

int McListBoxBorder(const McListBoxState& state) {
    return Sunken(state) ? 2 : HairLine(state.Dpi);
}

bool McListBoxFits(const ListItem& item, int width, const McListBoxState& state) {
    if (item.Text.size() > kMostUnits) return false;
    const int room = width - IconCell(state) - 2 * Scaled(kTextPad, state.Dpi);
    return TextSize(FontOf(item, state), item.Text).cx <= room;
}

void DrawMcListBoxBorder(HDC dc, const RECT& place, const McListBoxState& state) {
    RECT edge = place;
    if (Sunken(state))
        DrawEdge(dc, &edge, EDGE_SUNKEN, BF_RECT);
    else
        FrameRectangle(dc, place, Theme::Pick(palette::FieldBorder, COLOR_WINDOWTEXT), HairLine(state.Dpi));
}

void DrawMcListBox(HDC dc, const RECT& place, const McListBoxState& state) {
    const RECT inside = Inset(place, McListBoxBorder(state));
    const int saved = SaveDC(dc);
    IntersectClipRect(dc, inside.left, inside.top, inside.right, inside.bottom);
    if (Theme::HighContrast())
        FillRectangle(dc, inside, GetSysColor(COLOR_WINDOW));
    else
        FillBlock(dc, inside, state.BackGradient, Resolve(state.BackColor), Resolve(state.BackGradientCol));
    RECT seen{};
    GetClipBox(dc, &seen);
    const McListBoxRows rows(state);
    const auto rowPlace = [&](int below) {
        return RECT{inside.left, inside.top + rows.Top(below), inside.right,
                    inside.top + rows.Top(below + 1)};
    };
    for (int index = state.TopRow; index < state.Count; ++index) {
        const RECT row = rowPlace(index - state.TopRow);
        if (row.top >= seen.bottom) break;
        if (row.bottom > seen.top) DrawRow(dc, row, index, state);
    }
    // Without rows the focus is where the first one will be.
    if (state.Count == 0) MarkFocus(dc, Place({}, rowPlace(0), 0, state).Block, Ink(state), state);
    RestoreDC(dc, saved);
    DrawMcListBoxBorder(dc, place, state);
}
