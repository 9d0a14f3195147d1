// Made when the mouse comes to the cell, as most cells are whole. What moves or changes the rows
// under a mouse that rests repaints them, and a tip that is no longer true goes then.
//
// Tested by tests/windows/twocolumnlist_tip_test.cpp.
#include "controls/TwoColumnList.h"

#include <commctrl.h>

namespace {
constexpr std::size_t kLongestTip = 1024; // units
constexpr int kAlways = 1;                // also in a form that is not active
} // namespace

TwoColumnList::Cell TwoColumnList::CutUnderMouse() const {
    const HWND list = Base.hWnd();
    LVHITTESTINFO hit{};
    GetCursorPos(&hit.pt);
    ScreenToClient(list, &hit.pt);
    SendMessageW(list, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    if (!Valid(hit.iItem, hit.iSubItem)) return {};
    const std::u16string text = Text(hit.iItem, hit.iSubItem);
    const auto width =
        static_cast<int>(SendMessageW(list, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(hit.iSubItem), 0));
    const auto font = reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0));
    if (TableTextFits(text, width, font, Base.Dpi())) return {};
    return {hit.iItem, hit.iSubItem, text.substr(0, kLongestTip)};
}

// One for each cell, so that it waits and stands anew.
void TwoColumnList::ShowCellTip() {
    Cell cell = CutUnderMouse();
    if (cell == m_TipCell) return;
    m_TipCell = std::move(cell);
    m_Tip.reset();
    if (m_TipCell.Row < 0) return;
    m_Tip = std::make_unique<cToolTip>();
    m_Tip->Create(Base.hWnd(), m_TipCell.Text, kAlways, false, 0, {}, kNoColour, kNoColour, -1, -1);
    m_Tip->Hover(); // it came too late for the move that asked for it
}

void TwoColumnList::DropStaleTip() {
    if (!m_Tip || CutUnderMouse() == m_TipCell) return;
    m_Tip.reset();
    m_TipCell = {};
}
