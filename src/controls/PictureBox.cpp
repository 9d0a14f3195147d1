// Paints ground, picture and then what its form adds, in one blit.
//
// Tested by tests/windows/picture_test.cpp and fields_spoken_test.cpp.
#include "controls/PictureBox.h"

#include "controls/Painting.h"

namespace {
// A picture without a name is an ornament.
LONG State(void* self, int) {
    return static_cast<PictureBox*>(self)->Base.SpokenName().empty() ? STATE_SYSTEM_INVISIBLE : 0;
}
constexpr AccessibleTable kAccessible{.Role = ROLE_SYSTEM_GRAPHIC, .State = State};
} // namespace

const ControlKind PictureBox::kKind{
    .TypeName = u"PictureBox",
    .LayoutKinds = u"picture|picturebox|picture holder",
    .Transparent = true,
    .Property = Entry<&PictureBox::OnProperty>::Call,
    .Paint = Entry<&PictureBox::OnPaint>::Call,
    .Message = Entry<&PictureBox::OnMessage>::Call,
    .Accessible = &kAccessible,
};

void PictureBox::Picture(const ::Picture& picture) {
    if (picture == m_Picture) return;
    m_Picture = picture;
    Base.Invalidate();
}

void PictureBox::BackColor(OleColour colour) {
    m_BackColor = colour;
    Base.Invalidate();
}

bool PictureBox::OnProperty(std::u16string_view name, std::u16string_view value) {
    if (name == u"Picture")
        Picture(::Picture::FromResource(value));
    else if (name == u"BackColor")
        BackColor(ParseColour(value));
    else if (name == u"BorderColor")
        m_BorderColor = ParseColour(value);
    else
        return false;
    return true;
}

void PictureBox::OnPaint(HDC dc, const RECT& client) {
    if (m_BackColor != kNoColour) FillRectangle(dc, client, Theme::Pick(Resolve(m_BackColor), COLOR_WINDOW));
    m_Picture.DrawOnPlate(dc, client, Base.Dpi(), !Base.EnabledInAll());
    const StillThere here(Base);
    Raise(Paint, dc, client);
    if (here && m_BorderColor != kNoColour)
        FrameRectangle(dc, client, Theme::Pick(Resolve(m_BorderColor), COLOR_WINDOWTEXT), Base.HairLine());
}

bool PictureBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    if (message != WM_LBUTTONDOWN && message != WM_RBUTTONDOWN && message != WM_MBUTTONDOWN) return false;
    const MouseAt mouse = ReadMouse(message, wParam, lParam, Base.Dpi());
    Raise(MouseDown, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
    return true;
}
