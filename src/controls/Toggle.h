// What CheckBox and OptionButtonC share: their look, and what mouse and keys do to them.
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

// Follows mouse and space bar.
class ToggleInput {
public:
    bool Hovering() const { return m_Hovering; }
    // Held down, and for the mouse: still over the control.
    bool Pressed() const { return m_SpaceHeld || (m_MouseHeld && m_Hovering); }
    // True where the message has been dealt with. released is called last, when the user has
    // toggled: it may destroy the control.
    bool OnMessage(Control& control, UINT message, WPARAM wParam, LPARAM lParam,
                   const std::function<void()>& released);
    // The focus has gone, or the control has been disabled.
    void LetGo(Control& control);

private:
    void Hover(Control& control, POINT at);
    void SetHeld(Control& control, bool mouse, bool space);

    bool m_Hovering = false, m_MouseHeld = false, m_SpaceHeld = false;
};
