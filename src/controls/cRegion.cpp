// Tested by tests/windows/cregion_test.cpp.

#include "controls/cRegion.h"

#include "controls/Dpi.h"

#include <cstring>
#include <string>
#include <vector>

namespace {

// Far beyond every screen, and small enough that no scaling leaves the system's range.
constexpr LONG kFarthest = 1 << 20;

HRGN RegionOf(int id, const std::u16string& type, int dpi) {
    HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(id), Wide(type));
    HGLOBAL block = found ? LoadResource(nullptr, found) : nullptr;
    return block ? MakeRegion(LockResource(block), SizeofResource(nullptr, found), dpi) : nullptr;
}

bool IsSound(const RECT& rectangle) {
    return rectangle.left < rectangle.right && rectangle.top < rectangle.bottom &&
           rectangle.left >= -kFarthest && rectangle.top >= -kFarthest && rectangle.right <= kFarthest &&
           rectangle.bottom <= kFarthest;
}

} // namespace

// The system trusts the numbers in the block and reads past its end: so they are checked
// here, and it gets a copy that is right in itself. Scaling rounds edges, not widths, so
// that rectangles which touch go on touching.
HRGN MakeRegion(const void* block, std::size_t size, int dpi) {
    RGNDATAHEADER header;
    if (size < sizeof header) return nullptr;
    std::memcpy(&header, block, sizeof header);
    if (header.dwSize != sizeof header || header.iType != RDH_RECTANGLES || header.nCount == 0)
        return nullptr;
    if (header.nCount > (size - sizeof header) / sizeof(RECT)) return nullptr;

    const char* from = static_cast<const char*>(block) + sizeof header;
    std::vector<char> copy(sizeof header + header.nCount * sizeof(RECT));
    char* to = copy.data() + sizeof header;
    header.nRgnSize = static_cast<DWORD>(header.nCount * sizeof(RECT));
    header.rcBound = {};
    for (DWORD i = 0; i < header.nCount; ++i, from += sizeof(RECT), to += sizeof(RECT)) {
        RECT rectangle;
        std::memcpy(&rectangle, from, sizeof rectangle);
        if (!IsSound(rectangle)) return nullptr;
        rectangle = {Scaled(rectangle.left, dpi), Scaled(rectangle.top, dpi), Scaled(rectangle.right, dpi),
                     Scaled(rectangle.bottom, dpi)};
        UnionRect(&header.rcBound, &header.rcBound, &rectangle);
        std::memcpy(to, &rectangle, sizeof rectangle);
    }
    std::memcpy(copy.data(), &header, sizeof header);
    return ExtCreateRegion(nullptr, static_cast<DWORD>(copy.size()),
                           reinterpret_cast<const RGNDATA*>(copy.data()));
}

cRegion::~cRegion() {
    if (m_Region) DeleteObject(m_Region);
}

bool cRegion::RegionFromResource(int ResID, std::u16string_view ResType, int dpi) {
    const std::u16string type(ResType);
    HRGN made = dpi == 192 ? RegionOf(ResID, type + u"192", 96) : nullptr;
    if (!made) made = RegionOf(ResID, type, dpi);
    if (!made) return false;
    if (m_Region) DeleteObject(m_Region);
    m_Region = made;
    return true;
}

bool cRegion::Apply(HWND window) const {
    HRGN copy = nullptr;
    if (m_Region) {
        copy = CreateRectRgn(0, 0, 0, 0);
        CombineRgn(copy, m_Region, nullptr, RGN_COPY);
    }
    // The window owns the copy from here on, unless it refuses it.
    if (SetWindowRgn(window, copy, TRUE)) return true;
    if (copy) DeleteObject(copy);
    return false;
}
