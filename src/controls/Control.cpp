// What controls have in common: creation from a layout row, place, state, focus. The window
// procedure is in ControlWindow.cpp.
//
// Tested by tests/windows/form_test.cpp, moved_test.cpp, every_control_test.cpp and destroyed_test.cpp.
#include "controls/Control.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "controls/Caption.h"
#include "controls/Dpi.h"
#include "controls/Form.h"

namespace {
// A control that is going is told nothing any more: the object round it is half gone.
constexpr ControlKind kGone{};
} // namespace

Control::~Control() {
    m_Life.reset();
    m_Kind = &kGone;
    const bool givesFocus = m_Form && HasFocus() && IsWindowVisible(m_hWnd);
    m_Enabled = false; // so that its form does not give the focus back to it
    if (givesFocus) m_Form->FocusNext(*this);
    DestroyWindowNow();
    if (m_Form) m_Form->Forget(*this);
    Disconnect(m_Accessible);
}

void Control::Create(Form& form, Control* container, const LayoutRow& row) {
    m_Form = &form;
    m_Container = container;
    m_Name = row.Name;
    m_Index = row.Index;
    m_Caption = row.Caption;
    m_Left = row.Left;
    m_Top = row.Top;
    m_Width = row.Width;
    m_Height = row.Height;
    m_TabIndex = row.TabIndex;
    m_Font = UiFont();
    if (m_Kind->HasWindow) MakeWindow();
    if (m_hWnd && !EnabledInAll()) EnableWindow(m_hWnd, FALSE);
    if (m_Kind->Created) m_Kind->Created(m_Owner);
    for (const auto& [name, value] : row.Properties) ApplyProperty(name, value);
    m_Made = true;
    Invalidate();
    if (m_Kind->Made) m_Kind->Made(m_Owner);
}

void Control::ApplyProperty(std::u16string_view name, std::u16string_view value) {
    if (m_Kind->Property && m_Kind->Property(m_Owner, name, value)) return;
    if (name == u"Font")
        Font(DesignFont(value));
    else if (name == u"Visible")
        Visible(ParseYesNo(value));
    else if (name == u"Enabled")
        Enabled(ParseYesNo(value));
    else if (name == u"Tag")
        Tag(value);
    else if (name == u"ToolTipText")
        ToolTipText(m_DesignTip = value);
    else if (name == u"AccessibleName")
        AccessibleName(value);
    else
        throw RuntimeFailure(kTypeMismatch, FullName(), u"No property " + std::u16string(name));
}

std::u16string Control::FullName() const {
    return m_Index < 0 ? m_Name : m_Name + u"(" + text::Decimal(m_Index) + u")";
}

void Control::Move(int left, int top, int width, int height) {
    const bool sized = width != m_Width || height != m_Height;
    const bool moved = left != m_Left || top != m_Top;
    m_Left = left;
    m_Top = top;
    m_Width = width;
    m_Height = height;
    if (!m_hWnd) return;
    const StillThere here(*this);
    PlaceAgain(sized);
    if (!here || !moved || !m_Container) return; // a form's Resize may have destroyed it
    m_Form->EachInside(*this, [](Control& held) {
        if (held.m_hWnd) held.PlaceAgain(false);
    });
}

// Its size in pixels depends on its place, and what the system moves along was painted on the ground
// of the old place.
void Control::PlaceAgain(bool sized) {
    RECT before, after;
    GetClientRect(m_hWnd, &before);
    const StillThere here(*this);
    PlaceWindow();
    if (!here || !m_hWnd) return;
    GetClientRect(m_hWnd, &after);
    if (m_Container) RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    if (sized || !EqualRect(&before, &after)) Tell(Change::Size);
}

// Edges are rounded as they lie on the form, so that what ends with its container in twips
// ends with it at every DPI.
void Control::PlaceWindow() {
    long long left = 0, top = 0; // of the container's inside on the form
    for (const Control* outer = m_Container; outer && outer->m_Container; outer = outer->m_Container) {
        left += outer->m_Left;
        top += outer->m_Top;
    }
    RECT pixels = ToPixels(left + m_Left, top + m_Top, m_Width, m_Height, Dpi());
    OffsetRect(&pixels, -ToPixels(left, Dpi()), -ToPixels(top, Dpi()));
    if (m_Kind->Place)
        m_Kind->Place(m_Owner, pixels);
    else
        SetWindowPos(m_hWnd, nullptr, pixels.left, pixels.top, pixels.right - pixels.left,
                     pixels.bottom - pixels.top, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

void Control::Visible(bool visible) {
    if (visible == m_Visible) return;
    m_Visible = visible;
    if (!m_hWnd) return;
    Control* focused = Around(GetFocus());
    ShowWindow(m_hWnd, visible ? SW_SHOWNA : SW_HIDE);
    Notify(visible ? EVENT_OBJECT_SHOW : EVENT_OBJECT_HIDE);
    if (m_Container) m_Form->KeepFocusUsable(focused); // a form goes as a whole
}

void Control::Enabled(bool enabled) {
    if (enabled == m_Enabled) return;
    m_Enabled = enabled;
    if (!m_hWnd) return;
    Control* focused = Around(GetFocus());
    m_Form->EnabledChanged(*this);
    Notify(EVENT_OBJECT_STATECHANGE);
    m_Form->KeepFocusUsable(focused);
}

void Control::Caption(std::u16string_view caption) {
    if (caption == m_Caption) return;
    m_Caption = caption;
    if (!m_hWnd) return;
    SetWindowTextW(m_hWnd, Wide(m_Caption));
    Tell(Change::Caption);
    Notify(EVENT_OBJECT_NAMECHANGE);
    // A label names the field behind it.
    for (const Control* other : m_Form->Controls()) {
        if (other->m_Label == this && other->m_AccessibleName.empty()) other->Notify(EVENT_OBJECT_NAMECHANGE);
    }
}

void Control::AccessibleName(std::u16string_view name) {
    if (name == m_AccessibleName) return;
    m_AccessibleName = name;
    if (m_Made) Notify(EVENT_OBJECT_NAMECHANGE);
}

void Control::ToolTipText(std::u16string_view tip) {
    m_ToolTipText = tip;
    if (!m_hWnd || tip.empty()) {
        m_Tip.reset();
        return;
    }
    constexpr int kAlways = 1;
    if (!m_Tip) m_Tip = std::make_unique<cToolTip>();
    m_Tip->Create(m_hWnd, tip, kAlways, false, 0, {}, kNoColour, kNoColour, -1, -1);
}

void Control::Font(const ::Font& font) {
    if (font == m_Font) return;
    m_Font = font;
    FontChanged();
    Tell(Change::Font);
}

// A system control holds the old font until it has been given the new one.
void Control::FontChanged() {
    const FontHandle old = std::move(m_FontHandle);
    if (m_hWnd && m_Kind->WindowClass)
        SendMessageW(m_hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(FontInUse()), FALSE);
}

HFONT Control::FontInUse() {
    if (!m_FontHandle) m_FontHandle = FontHandle(m_Font, Dpi());
    return m_FontHandle.Get();
}

void Control::ZOrder(int position) {
    SetWindowPos(m_hWnd, position == 0 ? HWND_TOP : HWND_BOTTOM, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    Notify(EVENT_OBJECT_REORDER);
    if (m_Container) m_Form->KeepFocusUsable(Around(GetFocus()));
}

void Control::SetFocus() {
    if (!UsableOnForm()) return;
    if (!FormDisabled())
        ::SetFocus(m_hWnd);
    else if (m_Container)
        m_Form->NoteFocus(*this);
}

bool Control::HasFocus() const {
    const HWND focus = GetFocus();
    return m_hWnd && focus && (focus == m_hWnd || IsChild(m_hWnd, focus));
}

// While its row is being applied, each property would ask for the same.
void Control::Invalidate() {
    if (m_hWnd && m_Made) InvalidateRect(m_hWnd, nullptr, FALSE);
}

void Control::Refresh() {
    if (m_hWnd) RedrawWindow(m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
}

bool Control::EnabledInAll() const {
    for (const Control* control = this; control; control = control->m_Container) {
        if (!control->m_Enabled) return false;
    }
    return true;
}

bool Control::Covered() const {
    for (const Control* held = this; held && held->m_Container; held = held->m_Container) {
        if (!held->m_Kind->Container) continue;
        RECT own;
        GetWindowRect(held->m_hWnd, &own);
        for (HWND above = GetWindow(held->m_hWnd, GW_HWNDPREV); above;
             above = GetWindow(above, GW_HWNDPREV)) {
            const Control* sibling = FromWindow(above);
            if (!sibling || !sibling->m_Visible || !sibling->m_Kind->Container) continue;
            RECT cover, both;
            GetWindowRect(above, &cover);
            if (IntersectRect(&both, &own, &cover) && EqualRect(&both, &own)) return true;
        }
    }
    return false;
}

bool Control::FormDisabled() const {
    return m_Form && !IsWindowEnabled(m_Form->Base.m_hWnd);
}

bool Control::Usable() const {
    return UsableOnForm() && !FormDisabled();
}

bool Control::UsableOnForm() const {
    if (!m_hWnd || !EnabledInAll()) return false;
    for (const Control* control = this; control->m_Container; control = control->m_Container) {
        if (!control->m_Visible) return false;
    }
    return !Covered();
}

int Control::Dpi() const {
    return m_Form ? m_Form->Dpi() : 96;
}
int Control::Pixels(int twips) const {
    return ToPixels(twips, Dpi());
}
int Control::Scaled(int pixels96) const {
    return ::Scaled(pixels96, Dpi());
}
int Control::HairLine() const {
    return ::HairLine(Dpi());
}

void Control::PaintBehind(HDC dc) {
    if (!m_Container) return;
    RECT client, behind;
    GetClientRect(m_hWnd, &client);
    GetClientRect(m_Container->m_hWnd, &behind);
    POINT at{0, 0};
    MapWindowPoints(m_hWnd, m_Container->m_hWnd, &at, 1);
    const int state = SaveDC(dc);
    IntersectClipRect(dc, client.left, client.top, client.right, client.bottom);
    OffsetViewportOrgEx(dc, -at.x, -at.y, nullptr);
    if (m_Container->m_Kind->Ground)
        m_Container->m_Kind->Ground(m_Container->m_Owner, dc, behind);
    else
        m_Container->PaintBehind(dc);
    RestoreDC(dc, state);
}

std::u16string Control::SpokenName() const {
    if (!m_AccessibleName.empty()) return m_AccessibleName;
    if (m_Kind->TakesLabel) {
        if (m_Label) return WithoutAmpersand(m_Label->m_Caption);
    } else if (!m_Caption.empty()) {
        return WithoutAmpersand(m_Caption);
    }
    return m_DesignTip;
}

void Control::Notify(DWORD event, int child) const {
    if (m_hWnd) NotifyWinEvent(event, m_hWnd, OBJID_CLIENT, child);
}

void Control::Tell(Change what) {
    Invalidate();
    if (m_Kind->Changed) m_Kind->Changed(m_Owner, what);
}
