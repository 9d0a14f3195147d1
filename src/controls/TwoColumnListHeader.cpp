// The header of the table: its height, its paint, and what screen readers are told of its
// columns.
//
// Tested by tests/windows/twocolumnlist_test.cpp and spoken_rows_test.cpp.
#include "controls/MSubclass.h"
#include "controls/Painting.h"
#include "controls/TwoColumnList.h"

#include <commctrl.h>

namespace {

constexpr int kHeight = 24; // pixels at 96 DPI
constexpr UINT kWatched[] = {WM_GETOBJECT, WM_PAINT, WM_PRINTCLIENT, WM_ERASEBKGND, HDM_LAYOUT};

} // namespace

// child is the column's number from 1.
struct TwoColumnListHeads {
    static const TwoColumnList& List(void* self) { return *static_cast<const TwoColumnList*>(self); }
    static std::u16string Name(void* self, int child) { return List(self).Header(child - 1); }
    static int ChildCount(void*) { return TwoColumnList::kColumns; }
    static RECT Place(void* self, int child) {
        RECT place{};
        SendMessageW(List(self).m_Header, HDM_GETITEMRECT, static_cast<WPARAM>(child - 1),
                     reinterpret_cast<LPARAM>(&place));
        return place;
    }
    static int ChildAt(void* self, POINT client) {
        HDHITTESTINFO hit{};
        hit.pt = client;
        return static_cast<int>(
                   SendMessageW(List(self).m_Header, HDM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit))) +
               1;
    }
};

namespace {

constexpr AccessibleTable kAccessible{
    .Role = ROLE_SYSTEM_LIST,
    .ChildRole = ROLE_SYSTEM_COLUMNHEADER,
    .Name = TwoColumnListHeads::Name,
    .ChildCount = TwoColumnListHeads::ChildCount,
    .ChildPlace = TwoColumnListHeads::Place,
    .ChildAt = TwoColumnListHeads::ChildAt,
};

} // namespace

void TwoColumnList::TakeHeader() {
    m_Header = reinterpret_cast<HWND>(SendMessageW(Base.hWnd(), LVM_GETHEADER, 0, 0));
    // The widths are the list's: dragged dividers would leave a gap.
    SetWindowLongW(m_Header, GWL_STYLE, GetWindowLongW(m_Header, GWL_STYLE) | HDS_NOSIZING);
    for (const UINT message : kWatched) MSubclass::AttachMessage(*this, m_Header, message);
}

TwoColumnList::~TwoColumnList() {
    for (const UINT message : kWatched) MSubclass::DetachMessage(*this, m_Header, message);
}

LRESULT TwoColumnList::WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) {
    switch (iMsg) {
    case WM_GETOBJECT:
        if (const LRESULT answer = m_HeaderAccessible.Answer(Base, hWnd, kAccessible, this, wParam, lParam))
            return answer;
        break;
    case WM_PAINT:
        PaintBuffered(hWnd, [this](HDC dc, const RECT& client) { PaintHeader(dc, client); });
        return 0;
    case WM_PRINTCLIENT: {
        RECT client;
        GetClientRect(hWnd, &client);
        PaintHeader(reinterpret_cast<HDC>(wParam), client);
        return 0;
    }
    case WM_ERASEBKGND:
        return 1;
    case HDM_LAYOUT: {
        const auto* layout = reinterpret_cast<const HDLAYOUT*>(lParam);
        const LONG top = layout->prc->top;
        const LRESULT result = MSubclass::CallOldWindowProc(hWnd, iMsg, wParam, lParam);
        layout->pwpos->cy = Base.Scaled(kHeight);
        layout->prc->top = top + layout->pwpos->cy;
        return result;
    }
    default:
        break;
    }
    return MSubclass::CallOldWindowProc(hWnd, iMsg, wParam, lParam);
}

std::u16string TwoColumnList::Header(int column) const {
    return column < 0 || column >= kColumns ? u"" : m_Heads[column];
}

void TwoColumnList::Header(int column, const std::u16string& text) {
    if (column < 0 || column >= kColumns) return;
    m_Heads[column] = text;
    if (!Base.hWnd()) return;
    LVCOLUMNW changed{};
    changed.mask = LVCF_TEXT;
    changed.pszText = const_cast<wchar_t*>(Wide(text));
    SendMessageW(Base.hWnd(), LVM_SETCOLUMNW, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&changed));
    InvalidateRect(m_Header, nullptr, FALSE);
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, m_Header, OBJID_CLIENT, column + 1);
}
