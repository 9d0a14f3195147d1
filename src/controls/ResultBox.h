// The box that shows converted text: plain text of any length, in the one font that it is given.
#pragma once

#include "controls/Control.h"

class ResultBox {
public:
    ResultBox();
    Control Base;
    static const ControlKind kKind;

    // Line ends are CR LF; what is set may have any, and ends at a NUL.
    std::u16string Text() const;
    void Text(const std::u16string& text);
};
