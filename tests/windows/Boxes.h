// Message boxes of this process, read and answered.
#pragma once

#include "base/win.h"

#include <string>
#include <vector>

namespace gui {

enum class BoxIcon { None, Stop, Question, Exclamation, Information };

struct Box {
    HWND Window = nullptr; // null: none came
    std::u16string Title, Text;
    BoxIcon Icon = BoxIcon::None;
    std::vector<int> Buttons; // IDOK, IDYES...

    explicit operator bool() const { return Window != nullptr; }
    // Presses a button and waits until the box is gone.
    bool Press(int button = IDOK) const;
};
// Waits for a box, from another thread than that which shows it.
Box WaitForBox(DWORD limitMs = 10'000);

} // namespace gui
