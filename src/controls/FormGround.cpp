// What a form's controls stand on: its fill or gradient, and the outline of its region.
#include "controls/Dpi.h"
#include "controls/EventFrame.h"
#include "controls/Form.h"
#include "controls/Painting.h"

void Form::OnPaint(HDC dc, const RECT& client) {
    OnGround(dc, client);
}

// Every label and button asks for its piece of the ground, so it is kept.
void Form::OnGround(HDC dc, const RECT& client) {
    const SIZE size{WidthOf(client), HeightOf(client)};
    if (size.cx <= 0 || size.cy <= 0) return;
    const HDC memory = CreateCompatibleDC(dc);
    const bool fresh = !m_Ground || size.cx != m_GroundSize.cx || size.cy != m_GroundSize.cy;
    if (fresh) {
        if (m_Ground) DeleteObject(m_Ground);
        const HDC screen = GetDC(Base.m_hWnd);
        m_Ground = CreateCompatibleBitmap(screen, size.cx, size.cy);
        ReleaseDC(Base.m_hWnd, screen);
        m_GroundSize = size;
    }
    const HGDIOBJ before = SelectObject(memory, m_Ground);
    if (fresh) {
        const bool plain = BackColor2 == kNoColour || Theme::HighContrast();
        if (plain)
            FillRectangle(memory, client, Theme::Pick(Resolve(BackColor), COLOR_WINDOW));
        else
            VerticalGradient(memory, client, Resolve(BackColor), Resolve(BackColor2));
        if (PaintGround) EventFrame::Run([&] { PaintGround(memory, client); });
        const HRGN region = CreateRectRgn(0, 0, 0, 0);
        if (OutlineColor != kNoColour && GetWindowRgn(Base.m_hWnd, region) > NULLREGION) {
            const HBRUSH brush = CreateSolidBrush(Theme::Pick(Resolve(OutlineColor), COLOR_WINDOWTEXT));
            FrameRgn(memory, region, brush, HairLine(m_Dpi), HairLine(m_Dpi));
            DeleteObject(brush);
        }
        DeleteObject(region);
    }
    BitBlt(dc, 0, 0, size.cx, size.cy, memory, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    DeleteDC(memory);
}

void Form::RefreshGround() {
    if (m_Ground) DeleteObject(m_Ground);
    m_Ground = nullptr;
    if (Base.m_hWnd)
        RedrawWindow(Base.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_FRAME);
}
