// A label: text on its container's ground. Text that fits one line stands in the middle of
// the height, longer text wraps and begins at the top.
#pragma once

#include "controls/Control.h"
#include "controls/Events.h"
#include "controls/Theme.h"

class Label {
public:
    Label() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;

    enum class Align { Left, Right, Centre };

    const std::u16string& Caption() const { return Base.Caption(); }
    void Caption(std::u16string_view caption) { Base.Caption(caption); }
    OleColour ForeColor() const { return m_ForeColor; }
    void ForeColor(OleColour colour);

    // X, Y in twips of the label.
    std::function<void(int Button, int Shift, int X, int Y)> MouseDown;

private:
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    void OnPaint(HDC dc, const RECT& client);
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    OleColour m_ForeColor = palette::Ink;
    Align m_Alignment = Align::Left;
    bool m_EndEllipsis = false; // one line, cut with an ellipsis
};

// The look of a label, for the gallery too.
struct LabelState {
    std::u16string_view Caption;
    HFONT Font = nullptr;
    OleColour ForeColor = palette::Ink;
    Label::Align Alignment = Label::Align::Left;
    bool EndEllipsis = false;
    bool Enabled = true;
};
void DrawLabel(HDC dc, const RECT& place, const LabelState& state);
