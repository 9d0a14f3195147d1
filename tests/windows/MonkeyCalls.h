// What a program may call at any moment.
#pragma once

#include "windows/MonkeyForm.h"

namespace gui {

// A call on the form or any control of it; to be done on the form's thread.
Step DrawCall(MonkeyForm& form, Dice& dice);
// A call on one of the lists.
Step DrawListCall(MonkeyForm& form, Dice& dice);

} // namespace gui
