// One control in one state, as several sheets show it. Places in pixels of 96 DPI, columns
// as in kStates.
#pragma once

#include "gallery/Sheet.h"

namespace gallery {
void DrawField(const Paper& paper, int left, int top, int width, std::u16string_view text, int column);
void DrawBar(const Paper& paper, int left, int top, int percent); // 118 by 18
} // namespace gallery
