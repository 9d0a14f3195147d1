// What a form's controls stand on: its fill or gradient, and the outline of its region.
//
// Tested by tests/windows/shaped_form_test.cpp.
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
    const bool kept = m_Ground && size.cx == m_Ground->Size().cx && size.cy == m_Ground->Size().cy;
    if (!kept && m_PaintsGround) {
        // Asked for inside the form's own handler: what comes of that is seen later.
        m_AskedMeanwhile = true;
        FillGround(dc, client);
        return;
    }
    if (!kept && !MakeGround(client)) return;
    BitBlt(dc, 0, 0, size.cx, size.cy, m_Ground->Dc(), 0, 0, SRCCOPY);
}

// False where the handler has ended the form. The canvas is the form's only when it is done:
// the handler may let the old one go.
bool Form::MakeGround(const RECT& client) {
    const StillThere here(Base);
    const HDC screen = GetDC(Base.m_hWnd);
    auto ground = std::make_unique<Canvas>(screen, SIZE{WidthOf(client), HeightOf(client)});
    ReleaseDC(Base.m_hWnd, screen);
    const HDC memory = ground->Dc();
    FillGround(memory, client);
    m_PaintsGround = true;
    m_AskedMeanwhile = false;
    const int state = SaveDC(memory);
    EventFrame::Run([&] { Raise(PaintGround, memory, client); });
    RestoreDC(memory, state);
    if (!here) return false;
    m_PaintsGround = false;
    if (!Base.m_hWnd) return false;
    DrawOutline(memory);
    m_Ground = std::move(ground);
    if (m_AskedMeanwhile) RedrawWindow(Base.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    return true;
}

void Form::FillGround(HDC dc, const RECT& client) const {
    if (BackColor2 == kNoColour || Theme::HighContrast())
        FillRectangle(dc, client, Theme::Pick(Resolve(BackColor), COLOR_WINDOW));
    else
        VerticalGradient(dc, client, Resolve(BackColor), Resolve(BackColor2));
}

void Form::DrawOutline(HDC dc) const {
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    if (OutlineColor != kNoColour && GetWindowRgn(Base.m_hWnd, region) > NULLREGION) {
        const HBRUSH brush = CreateSolidBrush(Theme::Pick(Resolve(OutlineColor), COLOR_WINDOWTEXT));
        FrameRgn(dc, region, brush, HairLine(m_Dpi), HairLine(m_Dpi));
        DeleteObject(brush);
    }
    DeleteObject(region);
}

void Form::RefreshGround() {
    m_Ground.reset();
    if (Base.m_hWnd)
        RedrawWindow(Base.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_FRAME);
}
