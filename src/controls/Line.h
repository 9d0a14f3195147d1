// A thin line for decoration. It is never thinner than a hair line.
#pragma once

#include "controls/Control.h"

class Line {
public:
    Line() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;

private:
    void OnPaint(HDC dc, const RECT& client);
    void OnPlace(const RECT& pixels);
};
