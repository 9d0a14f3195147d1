// Tested by tests/windows/modwin_test.cpp.

#include "controls/modWin.h"

namespace modWin {
namespace {

constexpr UINT kKeepAll = SWP_NOSIZE | SWP_NOMOVE | SWP_NOACTIVATE;

} // namespace

void DragWindow(HWND form, int button) {
    if (button != kLeftButton) return;
    ReleaseCapture();
    SendMessageW(form, WM_NCLBUTTONDOWN, HTCAPTION, 0);
}

void SetTopMost(HWND form) {
    SetWindowPos(form, HWND_TOPMOST, 0, 0, 0, 0, kKeepAll);
}
void SetNotTopMost(HWND form) {
    SetWindowPos(form, HWND_NOTOPMOST, 0, 0, 0, 0, kKeepAll);
}

} // namespace modWin
