// Whether what stands on the screen is what would be painted now.
#pragma once

#include "controls/Form.h"

#include <string>

namespace gui {

// Names each control of the form, and the form itself, whose pixels on the screen are other
// than those of a fresh drawing; empty where all are the same. What is covered, hidden or off
// the screen does not count, nor do fields with a caret, nor the field of an open combo, whose
// system follows the mouse with its choice. On the form's thread; paints first what is due.
std::string Stale(Form& form);

} // namespace gui
