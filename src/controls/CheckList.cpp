// The rows, their look, and what screen readers are told. Mouse, keys and scrolling:
// CheckListInput.cpp.
//
// Tested by tests/windows/checklist_test.cpp and checklist_look_test.cpp.
#include "controls/CheckList.h"

#include "controls/Dpi.h"
#include "controls/ListBorder.h"
#include "controls/Painting.h"
#include "controls/Picture.h"
#include "controls/Theme.h"
#include "controls/Toggle.h"

#include <algorithm>

namespace {

// Pixels at 96 DPI, from the left edge of the row, indent apart.
constexpr int kGlyphLeft = 5, kGlyphSide = 13, kPictureLeft = 22, kPictureSide = 16;
constexpr int kBlockLeft = 41, kTextLeft = 45;

// What the selection fills.
RECT BlockOf(const RECT& place, int indent, int dpi) {
    return {place.left + Scaled(kBlockLeft, dpi) + Scaled(indent, dpi), place.top, place.right, place.bottom};
}

void MarkFocus(HDC dc, const RECT& block, COLORREF ink, int dpi) {
    DottedRectangle(dc, Inset(block, HairLine(dpi)), ink, HairLine(dpi));
}

const Picture& PictureOf(int number) {
    static const Picture table = Picture::FromResource(u"row-table");
    static const Picture column = Picture::FromResource(u"row-column");
    static const Picture none;
    return number == CheckList::kTable ? table : number == CheckList::kColumn ? column : none;
}

} // namespace

// What screen readers are told of the rows; child is the row's number from 1.
struct CheckListRows {
    static CheckList& List(void* self) { return *static_cast<CheckList*>(self); }
    static LONG State(void* self, int child) {
        if (child == 0) return 0;
        const CheckList& list = List(self);
        const RECT place = Place(self, child);
        LONG state = STATE_SYSTEM_SELECTABLE | STATE_SYSTEM_FOCUSABLE;
        if (list.Checked(child - 1)) state |= STATE_SYSTEM_CHECKED;
        if (list.ListIndex() == child - 1)
            state |= STATE_SYSTEM_SELECTED | (list.Base.HasFocus() ? STATE_SYSTEM_FOCUSED : 0);
        if (IsRectEmpty(&place)) state |= STATE_SYSTEM_OFFSCREEN;
        return state;
    }
    static std::u16string Name(void* self, int child) { return List(self).List(child - 1); }
    static std::u16string DefaultAction(void* self, int child) {
        return child == 0 ? u"" : List(self).Checked(child - 1) ? u"Uncheck" : u"Check";
    }
    static void DoDefault(void* self, int child) {
        if (child > 0) List(self).Toggle(child - 1);
    }
    static int ChildCount(void* self) { return List(self).ListCount(); }
    static RECT Place(void* self, int child) {
        RECT client{}, seen;
        GetClientRect(List(self).Base.hWnd(), &client);
        const RECT row = List(self).PlaceOf(child - 1);
        IntersectRect(&seen, &row, &client);
        return seen;
    }
    static int ChildAt(void* self, POINT client) { return List(self).RowAt(client) + 1; }
    static int Current(void* self) { return List(self).ListIndex() + 1; }
    static void Select(void* self, int child) { List(self).ListIndex(child - 1); }
};

namespace {

constexpr AccessibleTable kAccessible{
    .Role = ROLE_SYSTEM_LIST,
    .ChildRole = ROLE_SYSTEM_CHECKBUTTON,
    .State = CheckListRows::State,
    .Name = CheckListRows::Name,
    .DefaultAction = CheckListRows::DefaultAction,
    .DoDefault = CheckListRows::DoDefault,
    .ChildCount = CheckListRows::ChildCount,
    .ChildPlace = CheckListRows::Place,
    .ChildAt = CheckListRows::ChildAt,
    .FocusedChild = CheckListRows::Current,
    .SelectedChild = CheckListRows::Current,
    .SelectChild = CheckListRows::Select,
};

} // namespace

const ControlKind CheckList::kKind{
    .TypeName = u"CheckList",
    .LayoutKinds = u"checklist",
    .Focusable = true,
    .TakesLabel = true,
    .Property = Entry<&CheckList::OnProperty>::Call,
    .Paint = Entry<&CheckList::OnPaint>::Call,
    .Message = Entry<&CheckList::OnMessage>::Call,
    .Changed = Entry<&CheckList::OnChanged>::Call,
    .Accessible = &kAccessible,
};

bool CheckList::OnProperty(std::u16string_view name, std::u16string_view value) {
    if (name != u"RowHeight") return false;
    m_RowHeight = std::max(ParseNumber(value), 1);
    RefreshLater();
    return true;
}

void CheckList::AddItem(const std::u16string& text, const ::Font& font, int picture, int indent) {
    m_Rows.push_back({text, FontNumber(font), picture, indent, false});
    RefreshLater();
}

void CheckList::Clear() {
    m_Rows.clear();
    m_Fonts.clear();
    m_Current = m_Pressed = -1;
    m_Top = 0;
    RefreshLater();
}

std::u16string CheckList::List(int row) const {
    return Valid(row) ? At(row).Text : std::u16string();
}

const ::Font& CheckList::ItemFont(int row) const {
    return Valid(row) ? m_Fonts[At(row).Font].first : Base.Font();
}

bool CheckList::Checked(int row) const {
    return Valid(row) && At(row).Checked;
}

void CheckList::Checked(int row, bool checked) {
    if (!Valid(row) || At(row).Checked == checked) return;
    m_Rows[static_cast<std::size_t>(row)].Checked = checked;
    InvalidateRow(row);
    Base.Notify(EVENT_OBJECT_STATECHANGE, row + 1);
}

void CheckList::ListIndex(int row) {
    if (row < -1 || row >= ListCount() || row == m_Current) return;
    InvalidateRow(MarkedRow());
    m_Current = row;
    if (row < 0) return InvalidateRow(MarkedRow());
    Reveal(row);
    InvalidateRow(row);
    Base.Notify(EVENT_OBJECT_SELECTION, row + 1);
    if (Base.HasFocus()) Base.Notify(EVENT_OBJECT_FOCUS, row + 1);
}

std::size_t CheckList::FontNumber(const ::Font& font) {
    const auto known =
        std::find_if(m_Fonts.begin(), m_Fonts.end(), [&](const auto& held) { return held.first == font; });
    if (known != m_Fonts.end()) return static_cast<std::size_t>(known - m_Fonts.begin());
    m_Fonts.emplace_back(font, FontHandle());
    return m_Fonts.size() - 1;
}

int CheckList::MarkedRow() const {
    return m_Current >= 0 ? m_Current : m_Top;
}

RECT CheckList::PlaceOf(int row) const {
    RECT client{};
    GetClientRect(Base.hWnd(), &client);
    const int height = Base.Scaled(m_RowHeight);
    const int top = (row - m_Top) * height;
    return {0, top, client.right, top + height};
}

void CheckList::InvalidateRow(int row) const {
    if (!Valid(row) || !Base.hWnd()) return;
    const RECT place = PlaceOf(row);
    InvalidateRect(Base.hWnd(), &place, FALSE);
}

void CheckList::OnPaint(HDC dc, const RECT& client) {
    const bool enabled = Base.EnabledInAll(), focused = Base.HasFocus();
    RECT seen{};
    GetClipBox(dc, &seen);
    FillRectangle(dc, client, Theme::Pick(enabled ? palette::Card : palette::DisabledGround, COLOR_WINDOW));
    for (int row = m_Top; row < ListCount(); ++row) {
        const RECT place = PlaceOf(row);
        if (place.top >= client.bottom || place.top >= seen.bottom) break;
        if (place.bottom <= seen.top) continue;
        const Row& held = At(row);
        auto& [font, handle] = m_Fonts[held.Font];
        if (!handle) handle = FontHandle(font, Base.Dpi());
        DrawCheckRow(dc, place,
                     {.Text = held.Text,
                      .Font = handle.Get(),
                      .Picture = held.Picture,
                      .Indent = held.Indent,
                      .Checked = held.Checked,
                      .Pressed = row == m_Pressed,
                      .Selected = row == m_Current,
                      .Focused = focused && row == MarkedRow(),
                      .Enabled = enabled,
                      .Dpi = Base.Dpi()});
    }
    // Without rows the focus is where the first one will be.
    if (m_Rows.empty() && focused && enabled)
        MarkFocus(dc, BlockOf(PlaceOf(0), 0, Base.Dpi()), Theme::Pick(palette::Ink, COLOR_WINDOWTEXT),
                  Base.Dpi());
}

void CheckList::OnChanged(Change what) {
    if (what == Change::Dpi) {
        for (auto& [font, handle] : m_Fonts) handle = FontHandle();
    }
    if (what == Change::Enabled || what == Change::Focus) m_Pressed = -1;
    ListBorder::Changed(Base, what);
    if (what == Change::Dpi || what == Change::Size) ScrollTo(m_Top);
    if (what == Change::Focus && m_Current >= 0 && Base.HasFocus())
        Base.Notify(EVENT_OBJECT_FOCUS, m_Current + 1);
}

void DrawCheckRow(HDC dc, const RECT& place, const CheckRowState& state) {
    // The plate of a picture is higher than the row at some DPI, and rows are painted one by one.
    const int saved = SaveDC(dc);
    IntersectClipRect(dc, place.left, place.top, place.right, place.bottom);
    const auto across = [&](int pixels) {
        return place.left + Scaled(pixels, state.Dpi) + Scaled(state.Indent, state.Dpi);
    };
    FillRectangle(dc, place,
                  Theme::Pick(state.Enabled ? palette::Card : palette::DisabledGround, COLOR_WINDOW));

    const int glyph = across(kGlyphLeft);
    DrawToggle(dc, {glyph, place.top, glyph + Scaled(kGlyphSide, state.Dpi), place.bottom},
               {.Value = state.Checked ? 1 : 0,
                .Font = state.Font,
                .Enabled = state.Enabled,
                .Pressed = state.Pressed,
                .Dpi = state.Dpi});
    const int side = Scaled(kPictureSide, state.Dpi), left = across(kPictureLeft);
    const LONG top = place.top + (HeightOf(place) - side) / 2;
    PictureOf(state.Picture).DrawOnPlate(dc, {left, top, left + side, top + side}, state.Dpi, !state.Enabled);

    COLORREF ink = state.Enabled ? Theme::Pick(palette::Ink, COLOR_WINDOWTEXT)
                                 : Theme::Pick(palette::DisabledText, COLOR_GRAYTEXT);
    const RECT block = BlockOf(place, state.Indent, state.Dpi);
    if (state.Selected) {
        if (Theme::HighContrast())
            FillRectangle(dc, block, GetSysColor(state.Enabled ? COLOR_HIGHLIGHT : COLOR_WINDOW));
        else if (state.Enabled)
            VerticalGradient(dc, block, palette::SelGrad, palette::Sel);
        else
            FillRectangle(dc, block, palette::SelDisabled);
        if (state.Enabled || !Theme::HighContrast()) ink = Theme::Pick(palette::Card, COLOR_HIGHLIGHTTEXT);
    }
    RECT text{across(kTextLeft), place.top, place.right, place.bottom};
    DrawTextIn(dc, state.Font, state.Text, text, ink,
               DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    if (state.Focused && state.Enabled) MarkFocus(dc, block, ink, state.Dpi);
    RestoreDC(dc, saved);
}
