// What is typed at a list, to find the row that begins so: one after the other the letters
// of a beginning, or the same letter again and again for the next row with it.
#pragma once

#include "base/win.h"

#include <functional>
#include <string>
#include <string_view>

class TypedSearch {
public:
    // A character has been typed, from inside its message. The row to go to, of count rows
    // from current (-1: none) on and round; -1 where none begins so.
    int Find(char16_t unit, int count, int current, const std::function<std::u16string_view(int row)>& text);

private:
    std::u16string m_Typed;
    DWORD m_TypedAt = 0;
};
