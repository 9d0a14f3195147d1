// A frame paints no more than ground and border; what its children ask to be painted behind them is the same
// ground, further up where it has none.
//
// Tested by tests/windows/form_test.cpp and gallery_test.cpp.
#include "controls/Frame.h"

#include "controls/Painting.h"

namespace {
constexpr AccessibleTable kAccessible{.Role = ROLE_SYSTEM_GROUPING};
}

const ControlKind Frame::kKind{
    .TypeName = u"Frame",
    .LayoutKinds = u"frame|shape",
    .Container = true,
    .Property = Entry<&Frame::OnProperty>::Call,
    .Paint = Entry<&Frame::OnGround>::Call,
    .Ground = Entry<&Frame::OnGround>::Call,
    .Accessible = &kAccessible,
};

void Frame::BackColor(OleColour colour) {
    m_BackColor = colour;
    if (Base.hWnd()) RedrawWindow(Base.hWnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
}

void Frame::BorderColor(OleColour colour) {
    m_BorderColor = colour;
    Base.Invalidate();
}

bool Frame::OnProperty(std::u16string_view name, std::u16string_view value) {
    if (name == u"BackColor")
        BackColor(ParseColour(value));
    else if (name == u"BorderColor")
        BorderColor(ParseColour(value));
    else
        return false;
    return true;
}

void Frame::OnGround(HDC dc, const RECT& client) {
    const StillThere here(Base);
    if (m_BackColor == kNoColour)
        Base.PaintBehind(dc);
    else
        FillRectangle(dc, client, Theme::Pick(Resolve(m_BackColor), COLOR_WINDOW));
    if (here && m_BorderColor != kNoColour)
        FrameRectangle(dc, client, Theme::Pick(Resolve(m_BorderColor), COLOR_WINDOWTEXT), Base.HairLine());
}
