// Keys and mouse as the handlers are told of them.
//
// Tested by tests/windows/button_test.cpp and fields_test.cpp.
#include "controls/Events.h"

#include "controls/Dpi.h"
#include "controls/modWin.h"

int ShiftState() {
    return (GetKeyState(VK_SHIFT) < 0 ? kShiftMask : 0) | (GetKeyState(VK_CONTROL) < 0 ? kCtrlMask : 0) |
           (GetKeyState(VK_MENU) < 0 ? kAltMask : 0);
}

MouseAt ReadMouse(UINT message, WPARAM wParam, LPARAM lParam, int dpi) {
    MouseAt mouse;
    mouse.Pixel = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    mouse.X = ToTwips(mouse.Pixel.x, dpi);
    mouse.Y = ToTwips(mouse.Pixel.y, dpi);
    mouse.Shift = (wParam & MK_SHIFT ? kShiftMask : 0) | (wParam & MK_CONTROL ? kCtrlMask : 0) |
                  (GetKeyState(VK_MENU) < 0 ? kAltMask : 0);
    switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONUP:
    case WM_LBUTTONDBLCLK:
        mouse.Button = kLeftButton;
        break;
    case WM_RBUTTONDOWN:
    case WM_RBUTTONUP:
    case WM_RBUTTONDBLCLK:
        mouse.Button = kRightButton;
        break;
    case WM_MBUTTONDOWN:
    case WM_MBUTTONUP:
    case WM_MBUTTONDBLCLK:
        mouse.Button = kMiddleButton;
        break;
    default:
        mouse.Button = (wParam & MK_LBUTTON ? kLeftButton : 0) | (wParam & MK_RBUTTON ? kRightButton : 0) |
                       (wParam & MK_MBUTTON ? kMiddleButton : 0);
    }
    return mouse;
}
