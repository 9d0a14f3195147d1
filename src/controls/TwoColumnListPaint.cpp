// The look of the list and of its header, one blit each.
//
// Tested by tests/windows/twocolumnlist_test.cpp.
#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "controls/Theme.h"
#include "controls/TwoColumnList.h"

#include <commctrl.h>

namespace {

constexpr int kTextLeft = 6;                                // pixels at 96 DPI
constexpr COLORREF kQuietSelection = RGB(0xCF, 0xE3, 0xE3); // of a list without the focus

// Above the line under the row.
void MarkFocus(HDC dc, const RECT& row, COLORREF ink, int hair) {
    DottedRectangle(dc, Inset({row.left, row.top, row.right, row.bottom - hair}, hair), ink, hair);
}

} // namespace

// Without a selected row the first one seen tells where the focus is; else, or without the
// focus, -1.
int TwoColumnList::MarkedTop() const {
    if (!Base.HasFocus() || ListIndex() >= 0) return -1;
    return static_cast<int>(SendMessageW(Base.hWnd(), LVM_GETTOPINDEX, 0, 0));
}

void TwoColumnList::PaintRows(HDC dc, const RECT& client) const {
    const bool enabled = Base.EnabledInAll(), focused = Base.HasFocus();
    FillRectangle(dc, client, Theme::Pick(enabled ? palette::Card : palette::DisabledGround, COLOR_WINDOW));
    TableRowState state;
    state.Font = reinterpret_cast<HFONT>(SendMessageW(Base.hWnd(), WM_GETFONT, 0, 0));
    state.Focused = focused;
    state.Enabled = enabled;
    state.Dpi = Base.Dpi();
    for (int column = 0; column < kColumns; ++column)
        state.Widths[column] =
            static_cast<int>(SendMessageW(Base.hWnd(), LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    const int selected = focused || !HideSelection() ? ListIndex() : -1;
    const int count = ListCount(), markedTop = MarkedTop();
    for (int row = static_cast<int>(SendMessageW(Base.hWnd(), LVM_GETTOPINDEX, 0, 0)); row < count; ++row) {
        const RECT place = Row(row);
        if (place.top >= client.bottom || IsRectEmpty(&place)) break;
        const std::u16string first = Text(row, 0), second = Text(row, 1);
        state.Texts[0] = first;
        state.Texts[1] = second;
        state.Selected = row == selected;
        state.Marked = focused && (state.Selected || row == markedTop);
        DrawTableRow(dc, place, state);
    }
    // Without rows the focus is where the first one will be.
    if (count == 0 && focused && enabled)
        MarkFocus(dc, FirstPlace(), Theme::Pick(palette::Ink, COLOR_WINDOWTEXT), Base.HairLine());
}

void TwoColumnList::PaintHeader(HDC dc, const RECT& client) const {
    const FontHandle strong(StrongFont(), Base.Dpi());
    const std::u16string first = Header(0), second = Header(1);
    TableRowState state;
    state.Header = true;
    state.Font = strong.Get();
    state.Enabled = Base.EnabledInAll();
    state.Dpi = Base.Dpi();
    state.Texts[0] = first;
    state.Texts[1] = second;
    for (int column = 0; column < kColumns; ++column)
        state.Widths[column] =
            static_cast<int>(SendMessageW(Base.hWnd(), LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    DrawTableRow(dc, client, state);
}

void DrawTableRow(HDC dc, const RECT& place, const TableRowState& state) {
    const int hair = HairLine(state.Dpi);
    const bool contrast = Theme::HighContrast();
    COLORREF ink = state.Enabled ? Theme::Pick(palette::Ink, COLOR_WINDOWTEXT)
                                 : Theme::Pick(palette::DisabledText, COLOR_GRAYTEXT);
    COLORREF lines = Theme::Pick(palette::Grid, COLOR_WINDOW), divider = lines;
    if (state.Header && state.Enabled) {
        lines = Theme::Pick(palette::FieldBorder, COLOR_WINDOWTEXT);
        divider = Theme::Pick(palette::Line, COLOR_WINDOWTEXT);
    } else if (state.Header) {
        lines = divider = Theme::Pick(palette::Line, COLOR_GRAYTEXT);
    }
    RECT ground = place;
    ground.bottom -= hair;
    if (state.Header && !contrast && state.Enabled) {
        VerticalGradient(dc, ground, palette::HeaderTop, palette::HeaderBottom);
    } else if (state.Selected && !state.Enabled) {
        FillRectangle(dc, ground, Theme::Pick(palette::SelDisabled, COLOR_WINDOW));
        ink = Theme::Pick(palette::Card, COLOR_GRAYTEXT);
    } else if (state.Selected && (state.Focused || contrast)) {
        FillRectangle(dc, ground, Theme::Pick(palette::Sel, COLOR_HIGHLIGHT));
        ink = Theme::Pick(palette::Card, COLOR_HIGHLIGHTTEXT);
    } else {
        const COLORREF plain = state.Enabled ? palette::Card : palette::DisabledGround;
        FillRectangle(dc, ground, Theme::Pick(state.Selected ? kQuietSelection : plain, COLOR_WINDOW));
    }
    FillRectangle(dc, {place.left, place.bottom - hair, place.right, place.bottom}, lines);

    LONG left = place.left;
    for (int column = 0; column < TwoColumnList::kColumns; ++column) {
        const LONG right = left + state.Widths[column];
        RECT text{left + Scaled(kTextLeft, state.Dpi), ground.top, right - hair, ground.bottom};
        DrawTextIn(dc, state.Font, state.Texts[column], text, ink,
                   DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
        // Under high contrast the last one would make the list's border twice as wide.
        if (column + 1 < TwoColumnList::kColumns || !contrast)
            FillRectangle(dc, {right - hair, ground.top, right, ground.bottom}, divider);
        left = right;
    }
    if (state.Marked && state.Enabled) MarkFocus(dc, place, ink, hair);
}

bool TableTextFits(std::u16string_view text, int width, HFONT font, int dpi) {
    constexpr std::size_t kNeverFits = 1024; // units
    return text.size() <= kNeverFits &&
           TextSize(font, text).cx <= width - Scaled(kTextLeft, dpi) - HairLine(dpi);
}
