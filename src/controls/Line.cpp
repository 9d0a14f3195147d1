// Its place is widened to a hair line at each DPI; the twips stay as they were told.
//
// Tested by tests/windows/fields_look_test.cpp.
#include "controls/Line.h"

#include "controls/Painting.h"
#include "controls/Theme.h"

#include <algorithm>

namespace {
constexpr AccessibleTable kAccessible{.Role = ROLE_SYSTEM_SEPARATOR, .Ornament = true};
}

const ControlKind Line::kKind{
    .TypeName = u"Line",
    .LayoutKinds = u"line",
    .Paint = Entry<&Line::OnPaint>::Call,
    .Place = Entry<&Line::OnPlace>::Call,
    .Accessible = &kAccessible,
};

void Line::OnPaint(HDC dc, const RECT& client) {
    FillRectangle(dc, client, Theme::Pick(palette::Line, COLOR_WINDOWTEXT));
}

void Line::OnPlace(const RECT& pixels) {
    const int hair = Base.HairLine();
    const bool flat = Base.Height() <= Base.Width();
    SetWindowPos(Base.hWnd(), nullptr, pixels.left, pixels.top, flat ? WidthOf(pixels) : hair,
                 flat ? hair : HeightOf(pixels), SWP_NOZORDER | SWP_NOACTIVATE);
}
