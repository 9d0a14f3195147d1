// The bar's arithmetic is whole numbers throughout: a fraction of Value to Max in floating
// point would show 28% for 29 of 100.
//
// Tested by tests/windows/advprogressbar_test.cpp.
#include "controls/AdvProgressBar.h"

#include "base/Counter16.h"
#include "base/Text.h"
#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "controls/Properties.h"

#include <algorithm>

namespace {

constexpr int kValueDependant = 2;

// What a value comes to on the screen.
struct Bar {
    int Width = 0; // pixels
    COLORREF Colour = 0;
    std::u16string Label;
    bool operator==(const Bar&) const = default;
};

BYTE Between(int from, int to, const AdvProgressBarState& state) {
    const long long sum = 1LL * from * state.Max + 1LL * (static_cast<long long>(to) - from) * state.Value;
    return static_cast<BYTE>(std::clamp(sum / state.Max, 0LL, 255LL));
}

std::u16string Percent(const AdvProgressBarState& state) {
    return text::Decimal(100LL * state.Value / state.Max) + u"%";
}

Bar Measure(const RECT& surface, const AdvProgressBarState& state) {
    Bar bar;
    if (state.Max == 0) return bar;
    if (state.ShowText) bar.Label = Percent(state);
    if (state.Style != kValueDependant) return bar;
    const int width = std::max<int>(WidthOf(surface), 0);
    bar.Width = static_cast<int>(std::clamp(1LL * width * state.Value / state.Max, 0LL, 1LL * width));
    if (bar.Width == 0) return bar; // no colour is seen
    const COLORREF from = Resolve(state.BarColor1), to = Resolve(state.BarColor2);
    bar.Colour = Theme::Pick(RGB(Between(GetRValue(from), GetRValue(to), state),
                                 Between(GetGValue(from), GetGValue(to), state),
                                 Between(GetBValue(from), GetBValue(to), state)),
                             COLOR_HIGHLIGHT);
    return bar;
}

bool Sunken(const AdvProgressBarState& state) {
    return state.Appearance == 1 && state.BorderStyle == 1;
}

RECT Surface(const RECT& place, const AdvProgressBarState& state) {
    return Inset(place, Sunken(state) ? 2 : HairLine(state.Dpi));
}

void DrawLabel(HDC dc, const RECT& surface, const Bar& bar, const AdvProgressBarState& state) {
    const SIZE size = TextSize(state.Font, bar.Label);
    RECT text;
    text.left = surface.left + (WidthOf(surface) - size.cx) / 2;
    text.top = surface.top + (HeightOf(surface) - size.cy) / 2;
    text.right = text.left + size.cx;
    text.bottom = text.top + size.cy;
    const auto draw = [&](const RECT& part, COLORREF ink) {
        const int saved = SaveDC(dc);
        IntersectClipRect(dc, part.left, part.top, part.right, part.bottom);
        DrawTextIn(dc, state.Font, bar.Label, text, ink, DT_SINGLELINE | DT_NOPREFIX | DT_NOCLIP);
        RestoreDC(dc, saved);
    };
    if (!Theme::HighContrast()) {
        draw(surface, Resolve(state.TextColor));
        return;
    }
    // Over the bar in the bar's own text colour.
    RECT over = surface, beside = surface;
    over.right = beside.left = surface.left + bar.Width;
    draw(over, GetSysColor(COLOR_HIGHLIGHTTEXT));
    draw(beside, GetSysColor(COLOR_WINDOWTEXT));
}

} // namespace

void DrawAdvProgressBar(HDC dc, const RECT& place, const AdvProgressBarState& state) {
    const RECT surface = Surface(place, state);
    FillRectangle(dc, surface, Theme::Pick(Resolve(state.BackColor), COLOR_WINDOW));
    const Bar bar = Measure(surface, state);
    if (bar.Width > 0)
        FillRectangle(dc, {surface.left, surface.top, surface.left + bar.Width, surface.bottom}, bar.Colour);
    if (!bar.Label.empty()) DrawLabel(dc, surface, bar, state);
    RECT edge = place;
    if (Sunken(state))
        DrawEdge(dc, &edge, EDGE_SUNKEN, BF_RECT);
    else
        FrameRectangle(dc, place, Theme::Pick(palette::FieldBorder, COLOR_WINDOWTEXT), HairLine(state.Dpi));
}

const AccessibleTable AdvProgressBar::kAccessible{
    .Role = ROLE_SYSTEM_PROGRESSBAR,
    .State = [](void*, int) -> LONG { return STATE_SYSTEM_READONLY; },
    .Value = Entry<&AdvProgressBar::Spoken>::Call,
};

const ControlKind AdvProgressBar::kKind{
    .TypeName = u"AdvProgressBar",
    .LayoutKinds = u"AdvProgressBar",
    .Property = Entry<&AdvProgressBar::OnProperty>::Call,
    .Paint = Entry<&AdvProgressBar::OnPaint>::Call,
    .Accessible = &kAccessible,
};

void AdvProgressBar::Max(int max) {
    Progress(ToInt16(max, u"AdvProgressBar"), m_State.Value);
}

void AdvProgressBar::Value(int value) {
    Progress(m_State.Max, std::min<int>(ToInt16(value, u"AdvProgressBar"), m_State.Max));
}

// Long runs count by steps that are less than a pixel and less than a percent: they cost
// no painting.
void AdvProgressBar::Progress(int max, int value) {
    RECT client{};
    GetClientRect(Base.hWnd(), &client);
    m_State.Dpi = Base.Dpi();
    const RECT surface = Surface(client, m_State);
    const Bar before = Measure(surface, m_State);
    const std::u16string saidBefore = Spoken(0);
    m_State.Max = max;
    m_State.Value = value;
    if (Measure(surface, m_State) != before) Base.Refresh();
    if (Spoken(0) != saidBefore) Base.Notify(EVENT_OBJECT_VALUECHANGE);
}

bool AdvProgressBar::OnProperty(std::u16string_view name, std::u16string_view value) {
    static constexpr PropertySetter<AdvProgressBar> kSetters[] = {
        {u"Max", &AdvProgressBar::Max},
        {u"Value", &AdvProgressBar::Value},
        {u"ShowText", &AdvProgressBar::ShowText},
        {u"Style", &AdvProgressBar::Style},
        {u"Appearance", &AdvProgressBar::Appearance},
        {u"BorderStyle", &AdvProgressBar::BorderStyle},
        {u"TextColor", &AdvProgressBar::TextColor},
        {u"BarColor1", &AdvProgressBar::BarColor1},
        {u"BarColor2", &AdvProgressBar::BarColor2},
        {u"BackColor", &AdvProgressBar::BackColor},
    };
    return SetProperty(*this, kSetters, name, value);
}

void AdvProgressBar::OnPaint(HDC dc, const RECT& client) {
    AdvProgressBarState state = m_State;
    state.Font = Base.FontInUse();
    state.Dpi = Base.Dpi();
    DrawAdvProgressBar(dc, client, state);
}

std::u16string AdvProgressBar::Spoken(int) const {
    return m_State.Max == 0 ? std::u16string() : Percent(m_State);
}
