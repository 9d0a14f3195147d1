// The box that takes pasted text: plain text of any length, in the one font that it is given.
#pragma once

#include "controls/Control.h"

class PasteBox {
public:
    PasteBox();
    Control Base;
    static const ControlKind kKind;

    // Line ends are CR LF; what is set may have any, and ends at a NUL.
    std::u16string Text() const;
    void Text(const std::u16string& text);
    // Locked text can be selected and copied, but neither typed nor pasted; code still sets it.
    bool Locked() const;
    void Locked(bool locked);
};
