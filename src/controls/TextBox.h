// A box for one line of text, or for a password.
#pragma once

#include "controls/Control.h"

#include <functional>

class TextBox {
public:
    TextBox() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;

    // Of any length. Setting the same text again does nothing.
    std::u16string Text() const;
    void Text(const std::u16string& text);
    // The caret, or where the selection begins: 0-based, in code units. Setting it ends the
    // selection; a position behind the end counts as the end.
    int SelStart() const;
    void SelStart(int position);
    int SelLength() const;
    void SelLength(int length);
    // Shown in place of each character; 0 for none.
    void PasswordChar(char16_t shown);

    std::function<void()> Change; // by the user or by code

private:
    void OnCreated();
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void OnChanged(::Change what);
};
