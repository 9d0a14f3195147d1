// The bar that tells how far a run has come, with the percentage written on it.
#pragma once

#include "controls/Control.h"
#include "controls/Theme.h"

// Everything that its look depends on, for the gallery too.
struct AdvProgressBarState {
    int Max = 100, Value = 100;
    bool ShowText = false;
    int Style = 1; // 2: the bar's colour goes with the value; any other draws no bar
    // Both 1: a sunken edge; else a hair line.
    int Appearance = 1, BorderStyle = 1;
    OleColour TextColor = 0;
    OleColour BarColor1 = 0x8000000E, BarColor2 = 0x00FF00; // at nothing, at Max
    OleColour BackColor = kButtonFace;
    HFONT Font = nullptr;
    int Dpi = 96;
};
// With Max 0 nothing but ground and border.
void DrawAdvProgressBar(HDC dc, const RECT& place, const AdvProgressBarState& state);

class AdvProgressBar {
public:
    AdvProgressBar() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;

    // Both are 16-bit and raise failure 6 beyond. Each change that can be seen is painted
    // at once.
    int Max() const { return m_State.Max; }
    void Max(int max);
    int Value() const { return m_State.Value; }
    void Value(int value); // beyond Max it becomes Max

    bool ShowText() const { return m_State.ShowText; }
    void ShowText(bool show) { Set(m_State.ShowText, show); }
    int Style() const { return m_State.Style; }
    void Style(int style) { Set(m_State.Style, style); }
    int Appearance() const { return m_State.Appearance; }
    void Appearance(int appearance) { Set(m_State.Appearance, appearance); }
    int BorderStyle() const { return m_State.BorderStyle; }
    void BorderStyle(int style) { Set(m_State.BorderStyle, style); }
    OleColour TextColor() const { return m_State.TextColor; }
    void TextColor(OleColour colour) { Set(m_State.TextColor, colour); }
    OleColour BarColor1() const { return m_State.BarColor1; }
    void BarColor1(OleColour colour) { Set(m_State.BarColor1, colour); }
    OleColour BarColor2() const { return m_State.BarColor2; }
    void BarColor2(OleColour colour) { Set(m_State.BarColor2, colour); }
    OleColour BackColor() const { return m_State.BackColor; }
    void BackColor(OleColour colour) { Set(m_State.BackColor, colour); }

private:
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    void OnPaint(HDC dc, const RECT& client);
    std::u16string Spoken(int child) const;
    void Progress(int max, int value);
    template <class Type>
    void Set(Type& field, Type value) {
        field = value;
        Base.Invalidate();
    }

    static const AccessibleTable kAccessible;
    AdvProgressBarState m_State;
};
