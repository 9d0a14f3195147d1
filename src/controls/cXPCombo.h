// The flat look of the combo boxes.
#pragma once

#include "controls/ISubclass.h"
#include "controls/Theme.h"

#include <string_view>

class Control;

class cXPCombo final : public ISubclass {
public:
    cXPCombo() = default;
    ~cXPCombo(); // gives the combo its own look back
    cXPCombo(const cXPCombo&) = delete;
    cXPCombo& operator=(const cXPCombo&) = delete;

    // Paints that combo from now on, and no longer the one before it. Raises what
    // MSubclass::AttachMessage raises.
    void MakeXP(Control& combo);

    // A change shows at once. Under high contrast the system's colours take their place.
    OleColour FrameColorNormal() const { return m_FrameNormal; }
    void FrameColorNormal(OleColour colour) { Set(m_FrameNormal, colour); }
    OleColour FrameColorHot() const { return m_FrameHot; }
    void FrameColorHot(OleColour colour) { Set(m_FrameHot, colour); }
    OleColour FrameColorDiss() const { return m_FrameDisabled; }
    void FrameColorDiss(OleColour colour) { Set(m_FrameDisabled, colour); }
    OleColour CboBackColor() const { return m_Back; } // of the field and the text in it
    void CboBackColor(OleColour colour) { Set(m_Back, colour); }
    OleColour ArrowEnabledColor() const { return m_ArrowEnabled; }
    void ArrowEnabledColor(OleColour colour) { Set(m_ArrowEnabled, colour); }
    OleColour ArrowDisabledColor() const { return m_ArrowDisabled; }
    void ArrowDisabledColor(OleColour colour) { Set(m_ArrowDisabled, colour); }
    bool ShowArrow() const { return m_ShowArrow; }
    void ShowArrow(bool show);

    // ISubclass, for MSubclass only.
    int MsgResponse() override { return kClientAlone; }
    void MsgResponse(int) override {}
    LRESULT WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) override;

private:
    void Release();
    void Set(OleColour& held, OleColour colour);
    void Repaint() const;
    void Paint(HDC dc, const RECT& client);
    bool Over() const;
    void FollowMouse();

    Control* m_Combo = nullptr;
    HWND m_Window = nullptr, m_Edit = nullptr;
    OleColour m_FrameNormal = palette::FieldBorder, m_FrameHot = palette::Brand;
    OleColour m_FrameDisabled = palette::Line, m_Back = palette::Card;
    OleColour m_ArrowEnabled = palette::Ink, m_ArrowDisabled = palette::DisabledArrow;
    bool m_ShowArrow = true;
    bool m_Hot = false;
};

// The skin, for the gallery too.
struct ComboState {
    OleColour FrameNormal = palette::FieldBorder, FrameHot = palette::Brand, FrameDisabled = palette::Line;
    OleColour Back = palette::Card, ArrowEnabled = palette::Ink, ArrowDisabled = palette::DisabledArrow;
    bool ShowArrow = true;
    bool Hot = false, Focused = false, Enabled = true;
    std::u16string_view Text = {};
    HFONT Font = nullptr;
    int Dpi = 96;
};
void DrawCombo(HDC dc, const RECT& place, const ComboState& state);
