// A window's shape, from region data that lies in the program's resources.
#pragma once

#include "base/win.h"

#include <string_view>

class cRegion {
public:
    cRegion() = default;
    ~cRegion(); // frees the region
    cRegion(const cRegion&) = delete;
    cRegion& operator=(const cRegion&) = delete;

    // Builds the region from a resource of the program, a block in the layout of RGNDATA
    // in pixels of 96 DPI, for a screen of the given DPI. At 192 DPI a resource of the same
    // number whose type has "192" behind it comes first: the same shape, drawn finer.
    // False where there is no such resource or its block is unsound; hRgn is then as before.
    bool RegionFromResource(int ResID, std::u16string_view ResType, int dpi = 96);

    // Shapes the window with a copy of the region and repaints it. Without a region it
    // becomes a plain rectangle again.
    bool Apply(HWND window) const;

    // The region itself, which stays ours; null as long as there is none.
    HRGN hRgn() const { return m_Region; }

private:
    HRGN m_Region = nullptr;
};

// A region of the block's rectangles, scaled from 96 DPI. Null where the block is cut
// short, counts more rectangles than it holds or none, or has one without an inside.
// Nothing beyond size is read, whatever the block says.
HRGN MakeRegion(const void* block, std::size_t size, int dpi);
