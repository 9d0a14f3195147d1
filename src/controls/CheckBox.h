// A check box with three values, drawn from pictures.
#pragma once

#include "controls/Toggle.h"

class CheckBox {
public:
    CheckBox() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;

    const std::u16string& Caption() const { return Base.Caption(); }
    void Caption(std::u16string_view caption) { Base.Caption(caption); }
    // 0 off, 1 on, 2 grey. Setting it raises Click, also where it stays the same. Raises
    // failure 380 for anything else.
    int Value() const { return m_Value; }
    void Value(int value);
    OleColour ForeColor() const { return m_ForeColor; }
    void ForeColor(OleColour colour);
    // kButtonFace, as it comes, leaves the ground of the container.
    OleColour BackColor() const { return m_BackColor; }
    void BackColor(OleColour colour);

    // What DrawToggle is given; valid until the next change.
    ToggleState State();

    std::function<void(int Button, int Shift, int X, int Y)> MouseMove; // X, Y in twips
    std::function<void()> Click;

private:
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    void OnPaint(HDC dc, const RECT& client) { DrawToggle(dc, client, State()); }
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void OnChanged(Change what);
    void OnPress() { Value(m_Value == 0 ? 1 : 0); }

    int m_Value = 0;
    OleColour m_ForeColor = 0, m_BackColor = kButtonFace;
    ToggleInput m_Input;
};
