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
    int Value() const { return m_Toggle.Value(); }
    void Value(int value);
    OleColour ForeColor() const { return m_Toggle.ForeColor(); }
    void ForeColor(OleColour colour) { m_Toggle.ForeColor(colour); }
    // kButtonFace, as it comes, leaves the ground of the container.
    OleColour BackColor() const { return m_Toggle.BackColor(); }
    void BackColor(OleColour colour) { m_Toggle.BackColor(colour); }

    // What DrawToggle is given; valid until the next change.
    ToggleState State() { return m_Toggle.State(); }

    std::function<void(int Button, int Shift, int X, int Y)> MouseMove; // X, Y in twips
    std::function<void()> Click;

private:
    int Checked(int value) const;
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    void OnPaint(HDC dc, const RECT& client) { DrawToggle(dc, client, State()); }
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void OnChanged(Change what) { m_Toggle.OnChanged(what); }
    void OnPress() { Value(Value() == 0 ? 1 : 0); }

    Toggle m_Toggle{Base, ToggleKind::Check};
};
