// Runs the cases of one program of window tests.

#include "base/win.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <cstdio>

namespace {

// A modal box that no test expects waits for ever; this ends the process before its limit.
DWORD CALLBACK EndHangingRun(void*) {
    Sleep(170'000);
    std::fputs("still running after 170 seconds\n", stderr);
    TerminateProcess(GetCurrentProcess(), 99);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&classes);
    CloseHandle(CreateThread(nullptr, 0, EndHangingRun, nullptr, 0, nullptr));
    return RUN_ALL_TESTS();
}
