// The combo prints itself into the bitmap of the paint, and the skin is drawn over it before
// anything reaches the screen. Ground and text are drawn too: the system would leave a bar of
// the selection there while a plain list has the focus.
//
// Tested by tests/windows/cxpcombo_test.cpp.
#include "controls/cXPCombo.h"

#include "controls/Control.h"
#include "controls/Dpi.h"
#include "controls/MSubclass.h"
#include "controls/Painting.h"

#include <algorithm>

namespace {

constexpr UINT kMessages[] = {WM_SETFOCUS,  WM_KILLFOCUS,   WM_ENABLE,    WM_ERASEBKGND,
                              WM_PAINT,     WM_PRINTCLIENT, WM_COMMAND,   WM_TIMER,
                              WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_CTLCOLOREDIT};
constexpr UINT kEditMessages[] = {WM_MOUSEMOVE, WM_SETFOCUS, WM_KILLFOCUS};
constexpr UINT_PTR kLeaveTimer = 0x5853;
constexpr UINT kLeaveMs = 10;
constexpr int kArrowField = 17, kTextLeft = 7, kArrowRows = 5; // pixels at 96 DPI

// Rows of an odd width, each a step narrower: the same shape at every size.
void DrawArrow(HDC dc, const RECT& field, COLORREF colour, int dpi) {
    const int rows = Scaled(kArrowRows, dpi);
    const LONG middle = (field.left + field.right) / 2, top = (field.top + field.bottom - rows) / 2;
    for (int row = 0; row < rows; ++row) {
        const int reach = rows - 1 - row;
        FillRectangle(dc, {middle - reach, top + row, middle + reach + 1, top + row + 1}, colour);
    }
}

} // namespace

cXPCombo::~cXPCombo() {
    Release();
}

void cXPCombo::Release() {
    if (!m_Window) return;
    for (const UINT message : kMessages) MSubclass::DetachMessage(*this, m_Window, message);
    for (const UINT message : kEditMessages) MSubclass::DetachMessage(*this, m_Edit, message);
    if (m_Hot) KillTimer(m_Window, kLeaveTimer);
    InvalidateRect(m_Window, nullptr, TRUE);
    m_Hot = false;
    m_Window = m_Edit = nullptr;
    m_Combo = nullptr;
}

void cXPCombo::MakeXP(Control& combo) {
    Release();
    for (const UINT message : kMessages) MSubclass::AttachMessage(*this, combo.hWnd(), message);
    m_Combo = &combo;
    m_Window = combo.hWnd();
    // The text of a combo to type in is a window of its own, and has mouse and focus there.
    m_Edit = FindWindowExW(m_Window, nullptr, L"Edit", nullptr);
    if (m_Edit) {
        for (const UINT message : kEditMessages) MSubclass::AttachMessage(*this, m_Edit, message);
    }
    Repaint();
}

void cXPCombo::ShowArrow(bool show) {
    m_ShowArrow = show;
    Repaint();
}

void cXPCombo::Set(OleColour& held, OleColour colour) {
    held = colour;
    Repaint();
}

void cXPCombo::Repaint() const {
    if (!m_Window) return;
    InvalidateRect(m_Window, nullptr, FALSE);
    if (m_Edit) InvalidateRect(m_Edit, nullptr, FALSE);
}

bool cXPCombo::Over() const {
    POINT at;
    if (!GetCursorPos(&at)) return false;
    const HWND under = WindowFromPoint(at);
    return (under == m_Window || IsChild(m_Window, under)) && IsWindowEnabled(m_Window);
}

void cXPCombo::FollowMouse() {
    const bool over = Over();
    if (over == m_Hot) return;
    m_Hot = over;
    if (over)
        SetTimer(m_Window, kLeaveTimer, kLeaveMs, nullptr);
    else
        KillTimer(m_Window, kLeaveTimer);
    Repaint();
}

LRESULT cXPCombo::WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) {
    switch (iMsg) {
    case WM_ERASEBKGND:
        return 1;
    case WM_PAINT:
        PaintBuffered(hWnd, [this](HDC dc, const RECT& client) { Paint(dc, client); });
        return 0;
    case WM_PRINTCLIENT: {
        RECT client;
        GetClientRect(hWnd, &client);
        Paint(reinterpret_cast<HDC>(wParam), client);
        return 0;
    }
    case WM_TIMER:
        if (wParam != kLeaveTimer) break;
        FollowMouse();
        return 0;
    case WM_CTLCOLOREDIT: {
        const LRESULT brush = MSubclass::CallOldWindowProc(hWnd, iMsg, wParam, lParam);
        if (Theme::HighContrast()) return brush;
        SetBkColor(reinterpret_cast<HDC>(wParam), Resolve(m_Back));
        SetDCBrushColor(reinterpret_cast<HDC>(wParam), Resolve(m_Back));
        return reinterpret_cast<LRESULT>(GetStockObject(DC_BRUSH));
    }
    default:
        break;
    }
    if (iMsg == WM_MOUSEMOVE) FollowMouse();
    // What the combo raises may end the skin and the combo itself.
    const HWND window = m_Window;
    const LRESULT result = MSubclass::CallOldWindowProc(hWnd, iMsg, wParam, lParam);
    if (iMsg != WM_MOUSEMOVE && IsWindow(window)) InvalidateRect(window, nullptr, FALSE);
    return result;
}

void cXPCombo::Paint(HDC dc, const RECT& client) {
    MSubclass::CallOldWindowProc(m_Window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    // Of a combo to type in the text lies in front.
    const std::u16string text = m_Edit ? std::u16string() : WindowText(m_Window);
    DrawCombo(dc, client,
              {.FrameNormal = m_FrameNormal,
               .FrameHot = m_FrameHot,
               .FrameDisabled = m_FrameDisabled,
               .Back = m_Back,
               .ArrowEnabled = m_ArrowEnabled,
               .ArrowDisabled = m_ArrowDisabled,
               .ShowArrow = m_ShowArrow,
               .Hot = m_Hot || SendMessageW(m_Window, CB_GETDROPPEDSTATE, 0, 0) != 0,
               .Focused = m_Combo->HasFocus(),
               .Enabled = m_Combo->EnabledInAll(),
               .Text = text,
               .Font = m_Combo->FontInUse(),
               .Dpi = m_Combo->Dpi()});
}

void DrawCombo(HDC dc, const RECT& place, const ComboState& state) {
    const int hair = HairLine(state.Dpi);
    const auto pick = [&](OleColour colour, int system) { return Theme::Pick(Resolve(colour), system); };
    const COLORREF ground =
        state.Enabled ? pick(state.Back, COLOR_WINDOW) : Theme::Pick(palette::DisabledGround, COLOR_WINDOW);
    const COLORREF arrow = state.Enabled ? pick(state.ArrowEnabled, COLOR_WINDOWTEXT)
                                         : pick(state.ArrowDisabled, COLOR_GRAYTEXT);
    COLORREF frame = pick(state.FrameNormal, COLOR_WINDOWTEXT);
    int width = hair;
    if (!state.Enabled) {
        frame = pick(state.FrameDisabled, COLOR_GRAYTEXT);
    } else if (state.Focused) {
        frame = Theme::Pick(palette::FocusNeutral, COLOR_HIGHLIGHT);
        width = Scaled(2, state.Dpi);
    } else if (state.Hot) {
        frame = pick(state.FrameHot, COLOR_HIGHLIGHT);
    }

    const RECT inside = Inset(place, hair);
    const RECT field{inside.right - Scaled(kArrowField, state.Dpi), inside.top, inside.right, inside.bottom};
    const LONG textRight = field.left - hair;
    FillRectangle(dc, {inside.left, inside.top, textRight, inside.bottom}, ground);
    RECT text{place.left + Scaled(kTextLeft, state.Dpi), inside.top, textRight, inside.bottom};
    DrawTextIn(dc, state.Font, state.Text, text,
               state.Enabled ? Theme::Pick(palette::Ink, COLOR_WINDOWTEXT)
                             : Theme::Pick(palette::DisabledText, COLOR_GRAYTEXT),
               DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    FillRectangle(dc, {textRight, inside.top, field.left, inside.bottom},
                  Theme::HighContrast() ? frame : palette::Line);
    FillRectangle(dc, field, state.Enabled ? Theme::Pick(palette::ArrowField, COLOR_WINDOW) : ground);
    // The middle lies between the divider and the outer edge.
    if (state.ShowArrow) DrawArrow(dc, {field.left, field.top, place.right, field.bottom}, arrow, state.Dpi);
    FrameRectangle(dc, place, frame, width);
}
