// The list that a box drops, as screen readers find it. The list itself is the system's.
#pragma once

#include "controls/Accessible.h"
#include "controls/ISubclass.h"

class DroppedList final : public ISubclass {
public:
    DroppedList() = default;
    ~DroppedList();
    DroppedList(const DroppedList&) = delete;
    DroppedList& operator=(const DroppedList&) = delete;

    // Once the window of the combo is there.
    void Watch(Control& combo);

    // ISubclass, for MSubclass only.
    int MsgResponse() override { return kClientAlone; }
    void MsgResponse(int) override {}
    LRESULT WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) override;

private:
    friend struct DroppedRows;
    void TellRow();

    Control* m_Combo = nullptr;
    HWND m_List = nullptr;
    int m_Told = -1; // the row that was told last, while the list is open
    AccessiblePart m_Accessible;
};
