// Tips in the picture of a sheet: they are windows of their own, which come with the mouse.
#pragma once

#include "gallery/Sheet.h"
#include "windows/Pixels.h"

namespace gallery {

// Brings the mouse over each control of the sheet that has a tip to show, and puts the tip
// where it came into the picture of the sheet's client area. Raises failure 5 where none comes.
void AddTips(const Sheet& sheet, Form& window, gui::Pixels& picture);

} // namespace gallery
