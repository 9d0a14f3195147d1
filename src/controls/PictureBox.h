// A picture, or a surface that its form draws on.
#pragma once

#include "controls/Control.h"
#include "controls/Events.h"
#include "controls/Picture.h"
#include "controls/Theme.h"

class PictureBox {
public:
    PictureBox() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;

    const ::Picture& Picture() const { return m_Picture; }
    void Picture(const ::Picture& picture);
    // kNoColour: its container's ground shows.
    OleColour BackColor() const { return m_BackColor; }
    void BackColor(OleColour colour);

    std::function<void(HDC, const RECT& client)> Paint; // over ground and picture; client in pixels
    std::function<void(int Button, int Shift, int X, int Y)> MouseDown; // X, Y in twips of the box

private:
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    void OnPaint(HDC dc, const RECT& client);
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    ::Picture m_Picture;
    OleColour m_BackColor = kNoColour;
    OleColour m_BorderColor = kNoColour;
};
