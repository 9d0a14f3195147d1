// What holds on a form at every moment, whatever has been done to it.
#pragma once

#include "windows/MonkeyForm.h"

namespace gui {

// Tells who is hot without the mouse, who holds a mouse that is not theirs, and where the focus
// is that is of no use; empty where all is in order. held: the left button is down. On the
// form's thread.
std::string Disorder(MonkeyForm& form, bool held);

} // namespace gui
