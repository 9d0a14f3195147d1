// The sheets, one function each.
#pragma once

#include "gallery/Sheet.h"

namespace gallery {
Sheet AllStates();
Sheet ProgressBars();
Sheet Labels();
Sheet Fields();
Sheet Surfaces();
} // namespace gallery
