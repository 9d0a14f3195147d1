// The button's properties, shape and dress. Mouse and keys: TavrelButtonInput.cpp; the
// look: TavrelButtonDraw.cpp. Tested by tests/windows/button_*_test.cpp.
#include "controls/TavrelButton.h"

#include "base/Counter16.h"
#include "base/Files.h"
#include "base/RuntimeFailure.h"
#include "controls/Form.h"
#include "controls/Properties.h"

#include <algorithm>

namespace {

constexpr int kLeastSide = 150; // twips

LONG SpokenState(void* self, int) {
    auto& button = *static_cast<TavrelButton*>(self);
    const TavrelButtonState state = button.State();
    const Form* form = button.Base.Parent();
    return (state.Pressed ? STATE_SYSTEM_PRESSED : 0) | (state.Hovering ? STATE_SYSTEM_HOTTRACKED : 0) |
           (form && form->DefaultButton == &button.Base ? STATE_SYSTEM_DEFAULT : 0);
}

constexpr AccessibleTable kAccessible{.Role = ROLE_SYSTEM_PUSHBUTTON, .State = SpokenState};

int Within(int value, int least, int most, const Control& control) {
    if (value < least || value > most) throw RuntimeFailure(kInvalidPropertyValue, control.FullName());
    return value;
}

} // namespace

const ControlKind TavrelButton::kKind{
    .TypeName = u"TavrelButton",
    .LayoutKinds = u"TavrelButton",
    .Focusable = true,
    .Transparent = true,
    .EnterPresses = true,
    .Created = Entry<&TavrelButton::OnCreated>::Call,
    .Property = Entry<&TavrelButton::OnProperty>::Call,
    .Made = Entry<&TavrelButton::OnMade>::Call,
    .Paint = Entry<&TavrelButton::OnPaint>::Call,
    .Message = Entry<&TavrelButton::OnMessage>::Call,
    .Changed = Entry<&TavrelButton::OnChanged>::Call,
    .Press = Entry<&TavrelButton::OnPress>::Call,
    .Accessible = &kAccessible,
};

void TavrelButton::OnCreated() {
    m_SoundOver = files::Join(files::ProgramFolder(), u"over.wav");
    m_SoundClick = files::Join(files::ProgramFolder(), u"click.wav");
    KeepLeastSize();
}

bool TavrelButton::OnProperty(std::u16string_view name, std::u16string_view value) {
    static constexpr PropertySetter<TavrelButton> kSetters[] = {
        {u"Primary", &TavrelButton::Primary},
        {u"BackColor", &TavrelButton::BackColor},
        {u"ButtonStyle", &TavrelButton::ButtonStyle},
        {u"ForeColor", &TavrelButton::ForeColor},
        {u"TransparentBG", &TavrelButton::TransparentBG},
        {u"ShowFocusRect", &TavrelButton::ShowFocusRect},
        {u"PicturePosition", &TavrelButton::PicturePosition},
        {u"PictureSize", &TavrelButton::PictureSize},
        {u"PictureWidth", &TavrelButton::PictureWidth},
        {u"PictureHeight", &TavrelButton::PictureHeight},
        {u"XPDefaultColors", &TavrelButton::XPDefaultColors},
        {u"XPColor_Pressed", &TavrelButton::XPColor_Pressed},
        {u"XPColor_Hover", &TavrelButton::XPColor_Hover},
        {u"SoundOver", &TavrelButton::SoundOver},
        {u"SoundClick", &TavrelButton::SoundClick},
        {u"DefCurHand", &TavrelButton::DefCurHand},
    };
    if (name != u"Picture") return SetProperty(*this, kSetters, name, value);
    Picture(::Picture::FromResource(value));
    return true;
}

void TavrelButton::ButtonStyle(int style) {
    if (style != kStyleFlat && style != kStyleXP && style != kStyleNone)
        throw RuntimeFailure(kInvalidPropertyValue, Base.FullName());
    Set(m_Look.ButtonStyle, style);
    ShapeWindow();
}

void TavrelButton::PicturePosition(int side) {
    Set(m_Look.PicturePosition, Within(side, kPictureAbove, kPictureBelow, Base));
}

void TavrelButton::PictureSize(int mode) {
    Set(m_PictureSize, Within(mode, kSizeAsLoaded, kSizeLarge, Base));
}

void TavrelButton::Primary(bool primary) {
    if (primary == m_Primary) return;
    m_Primary = primary;
    Base.Font(primary ? StrongFont() : UiFont());
    Dress();
}

// The colours of the design for style 3.
void TavrelButton::Dress() {
    const bool filled = m_Primary && Base.EnabledInAll();
    BackColor(filled ? palette::PrimaryBack : palette::NeutralBack);
    ForeColor(filled ? palette::Card : palette::Ink);
    XPColor_Hover(filled ? palette::HoverPrimary : palette::HoverNeutral);
    XPColor_Pressed(filled ? palette::FocusPrimary : palette::FocusNeutral);
    XPDefaultColors(false);
}

void TavrelButton::PictureWidth(int pixels96) {
    Set<int>(m_PictureWidth, ToInt16(pixels96, u"TavrelButton"));
}

void TavrelButton::PictureHeight(int pixels96) {
    Set<int>(m_PictureHeight, ToInt16(pixels96, u"TavrelButton"));
}

void TavrelButton::OnPaint(HDC dc, const RECT& client) {
    DrawTavrelButton(dc, client, State());
}

TavrelButtonState TavrelButton::State() {
    TavrelButtonState state = m_Look;
    state.Caption = Base.Caption();
    state.Font = Base.FontInUse();
    state.Image = &m_Picture;
    switch (m_PictureSize) {
    case kSizeAsLoaded:
        state.ImageSize = m_Picture.Size();
        break;
    case kSizeLarge:
        state.ImageSize = {32, 32};
        break;
    case kSizeSmall:
        state.ImageSize = {16, 16};
        break;
    default:
        state.ImageSize = {m_PictureWidth, m_PictureHeight};
    }
    state.Enabled = Base.EnabledInAll();
    state.Hovering = m_Hovering;
    state.Pressed = m_Pressed && !m_LooksReleased;
    state.Focused = Base.HasFocus();
    state.Dpi = Base.Dpi();
    return state;
}

void TavrelButton::OnChanged(Change what) {
    switch (what) {
    case Change::Size:
        KeepLeastSize();
        ShapeWindow();
        break;
    case Change::Dpi:
        ShapeWindow();
        break;
    case Change::Focus:
        if (!Base.HasFocus()) LetGo();
        break;
    case Change::Enabled:
        if (!Base.EnabledInAll()) LetGo();
        if (m_Primary) Dress();
        break;
    default:
        break;
    }
}

void TavrelButton::KeepLeastSize() {
    if (Base.Width() >= kLeastSide && Base.Height() >= kLeastSide) return;
    Base.Move(Base.Left(), Base.Top(), std::max(Base.Width(), kLeastSide),
              std::max(Base.Height(), kLeastSide));
}

// Style 3 has its corners cut; the system owns the region from then on.
void TavrelButton::ShapeWindow(bool repaint) {
    const HWND window = Base.hWnd();
    if (!window || !Base.Made()) return;
    if (m_Look.ButtonStyle != kStyleXP) {
        if (m_Shaped) SetWindowRgn(window, nullptr, TRUE);
        m_Shaped = false;
        return;
    }
    m_Shaped = true;
    RECT client;
    GetClientRect(window, &client);
    const HRGN whole = CreateRectRgn(0, 0, 0, 0);
    for (int top = 0; top < client.bottom;) {
        const int cut = CutOfRow(top, client.bottom, Base.Dpi());
        int bottom = top + 1;
        while (bottom < client.bottom && CutOfRow(bottom, client.bottom, Base.Dpi()) == cut) ++bottom;
        const HRGN rows = CreateRectRgn(cut, top, client.right - cut, bottom);
        CombineRgn(whole, whole, rows, RGN_OR);
        DeleteObject(rows);
        top = bottom;
    }
    SetWindowRgn(window, whole, repaint);
}
