// The sheets, one function each.
#pragma once

#include "gallery/Sheet.h"

namespace gallery {
Sheet AllStates();
Sheet Buttons();
Sheet Toggles();
Sheet ProgressBars();
Sheet Labels();
Sheet Fields();
Sheet Surfaces();
Sheet TextBoxes();
Sheet FontLists();
Sheet Tables();
Sheet Lists();
Sheet CheckLists();
Sheet Tips();
std::vector<Sheet> Windows();
} // namespace gallery
