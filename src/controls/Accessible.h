// What screen readers are told about a control. The kit knows name, place, focus and the
// common states; a control adds the rest in a table.
#pragma once

#include "base/win.h"

#include <ole2.h>
#include <oleacc.h>

#include <string>

class Control;

// child 0 is the control itself, its rows count from 1. Every entry may be missing.
struct AccessibleTable {
    LONG Role = ROLE_SYSTEM_CLIENT;
    LONG ChildRole = ROLE_SYSTEM_LISTITEM;
    bool Ornament = false; // nothing to read: told as invisible
    // States beyond those that the kit adds: unavailable, invisible, focusable, focused.
    LONG (*State)(void* self, int child) = nullptr;
    std::u16string (*Name)(void* self, int child) = nullptr; // of rows only
    std::u16string (*Value)(void* self, int child) = nullptr;
    std::u16string (*DefaultAction)(void* self, int child) = nullptr;
    void (*DoDefault)(void* self, int child) = nullptr;
    int (*ChildCount)(void* self) = nullptr;
    // In pixels of the client area; empty where the row is scrolled out of sight.
    RECT (*ChildPlace)(void* self, int child) = nullptr;
    int (*ChildAt)(void* self, POINT client) = nullptr; // 0: none
    int (*FocusedChild)(void* self) = nullptr;          // 0: the control itself
    int (*SelectedChild)(void* self) = nullptr;         // 0: none
    void (*SelectChild)(void* self, int child) = nullptr;
};

// A default action or a selection waits in the control's queue under this number, its child
// in wParam: the handler that it runs may open a modal form, and no screen reader should wait
// for its end.
constexpr UINT kDefaultAction = WM_APP + 0x100, kSelectChild = kDefaultAction + 1;

class ControlAccessible;
// The answer to WM_GETOBJECT. accessible is made at the first need.
LRESULT AnswerGetObject(Control& control, ControlAccessible*& accessible, WPARAM wParam, LPARAM lParam);
// The control is going; whoever still holds the object is told so.
void Disconnect(ControlAccessible*& accessible);

// A further window of a control that has rows to read: the header of a table, the list that
// a box drops. It has the control's name, and is enabled and covered with it.
class AccessiblePart {
public:
    AccessiblePart() = default;
    ~AccessiblePart();
    AccessiblePart(const AccessiblePart&) = delete;
    AccessiblePart& operator=(const AccessiblePart&) = delete;

    // The answer to the WM_GETOBJECT of window part; 0: the system has to answer. The
    // entries of table get self.
    LRESULT Answer(Control& control, HWND part, const AccessibleTable& table, void* self, WPARAM wParam,
                   LPARAM lParam);

private:
    ControlAccessible* m_Accessible = nullptr;
};
