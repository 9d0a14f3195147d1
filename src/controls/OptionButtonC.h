// A toggle of a group: setting one control of a control array clears the others of the same
// container. Drawn from pictures.
#pragma once

#include "controls/Toggle.h"

class OptionButtonC {
public:
    OptionButtonC() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;

    const std::u16string& Caption() const { return Base.Caption(); }
    void Caption(std::u16string_view caption) { Base.Caption(caption); }
    // Setting true clears the sisters first, each with its own Click; then an enabled control
    // raises Click, also where its value stays the same.
    bool Value() const { return m_Value; }
    void Value(bool value);
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
    void OnPress() { Value(true); }
    void ClearSisters();

    bool m_Value = false;
    OleColour m_ForeColor = 0, m_BackColor = kButtonFace;
    ToggleInput m_Input;
};
