// What CheckBox and OptionButtonC share: their look, and all that mouse, keys and properties
// do to them. They differ in their values and in what a press means.
#pragma once

#include "controls/Control.h"
#include "controls/Events.h"
#include "controls/Theme.h"

#include <functional>
#include <string>
#include <string_view>

enum class ToggleKind { Check, Option };

// The look of a toggle, which the gallery draws too.
struct ToggleState {
    ToggleKind Kind = ToggleKind::Check;
    int Value = 0; // 0 off, 1 on, 2 grey
    std::u16string_view Caption = {};
    HFONT Font = nullptr;
    OleColour ForeColor = 0;
    OleColour BackColor = kButtonFace; // which leaves the ground that is there already
    bool Enabled = true, Hovering = false, Pressed = false, Focused = false;
    int Dpi = 96;
};
void DrawToggle(HDC dc, const RECT& place, const ToggleState& state);

// The caption with CR LF in front of each word that does not fit behind the words before
// it. A word that is wider than width stands on a line of its own.
std::u16string WrapCaption(std::u16string_view caption, int width,
                           const std::function<int(std::u16string_view line)>& widthOf);

// The state that screen readers are told.
LONG SpokenState(const ToggleState& state);

class Toggle {
public:
    // base is that of the control which holds the toggle.
    Toggle(Control& base, ToggleKind kind) : m_Base(base), m_Kind(kind) {}

    int Value() const { return m_Value; }
    // Repaints and tells screen readers, where it is another; no event comes from here.
    void Value(int value);
    OleColour ForeColor() const { return m_ForeColor; }
    void ForeColor(OleColour colour);
    OleColour BackColor() const { return m_BackColor; }
    void BackColor(OleColour colour);
    // What DrawToggle is given; valid until the next change.
    ToggleState State();

    // Deals with the colours; a control's own values are its own.
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    // press is what the user's release means, and it may destroy the control; so may the
    // handler of mouseMove.
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, const std::function<void()>& press,
                   const std::function<void(int, int, int, int)>& mouseMove);
    void OnChanged(Change what);

private:
    bool OnInput(UINT message, WPARAM wParam, LPARAM lParam, const std::function<void()>& press);
    void Hover(POINT at);
    void OnOverTimer();
    void SetHovering(bool hovering);
    void SetHeld(bool mouse, bool space);
    // Held down, and for the mouse: still over the control.
    bool Pressed() const { return m_SpaceHeld || (m_MouseHeld && m_Hovering); }

    Control& m_Base;
    ToggleKind m_Kind;
    int m_Value = 0;
    OleColour m_ForeColor = 0, m_BackColor = kButtonFace;
    bool m_Hovering = false, m_MouseHeld = false, m_SpaceHeld = false;
};
