// How many drawing objects and windows this process holds, to see whether something leaks.
#pragma once

namespace gui {

// Fonts, bitmaps, brushes, regions, contexts... counted in the process's own table:
// GetGuiResources answers 0 under Wine.
int GdiObjects();
// All windows of the process, hidden and inner ones and those without a parent included.
int Windows();

} // namespace gui
