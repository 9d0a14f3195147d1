// A frame: holds other controls and clips them; panes and pages are frames.
#pragma once

#include "controls/Control.h"
#include "controls/Theme.h"

class Frame {
public:
    Frame() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;

    // Fill of the ground; kNoColour shows what the frame stands on.
    OleColour BackColor() const { return m_BackColor; }
    void BackColor(OleColour colour);
    // A hair line along the edge; kNoColour for none.
    OleColour BorderColor() const { return m_BorderColor; }
    void BorderColor(OleColour colour);

private:
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    void OnGround(HDC dc, const RECT& client);

    OleColour m_BackColor = kNoColour;
    OleColour m_BorderColor = kNoColour;
};
