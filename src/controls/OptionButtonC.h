// A toggle of a group: of a control array in one container one is chosen at the most.
// Drawn from pictures.
#pragma once

#include "controls/Toggle.h"

#include <vector>

class OptionButtonC {
public:
    OptionButtonC() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;

    const std::u16string& Caption() const { return Base.Caption(); }
    void Caption(std::u16string_view caption) { Base.Caption(caption); }
    // Setting true clears the sisters first, each with its own Click; then an enabled control
    // raises Click, also where its value stays the same.
    bool Value() const { return m_Toggle.Value() != 0; }
    void Value(bool value);
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
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    void OnPaint(HDC dc, const RECT& client) { DrawToggle(dc, client, State()); }
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void OnChanged(Change what) { m_Toggle.OnChanged(what); }
    void OnPress() { Value(true); }
    bool OnArrow(WPARAM key);
    bool TakesTab() const;

    std::vector<OptionButtonC*> Group() const;
    std::vector<OptionButtonC*> UsableGroup() const;
    void ClearSisters();

    Toggle m_Toggle{Base, ToggleKind::Option};
};
