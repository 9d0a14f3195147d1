// Runs the cases of one program of window tests.

#include "base/win.h"

#include <commctrl.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>

namespace {

// A modal box that no test expects waits for ever; this ends the process before its limit.
class HangGuard : public testing::EmptyTestEventListener {
    static constexpr ULONGLONG kLimitMs = 300'000; // of one test

    static DWORD CALLBACK Watch(void* self) {
        const auto& started = static_cast<HangGuard*>(self)->m_Started;
        for (;;) {
            Sleep(1'000);
            if (GetTickCount64() - started < kLimitMs) continue;
            std::fputs("still running after 300 seconds\n", stderr);
            TerminateProcess(GetCurrentProcess(), 99);
        }
    }

    void OnTestProgramStart(const testing::UnitTest&) override {
        if (std::getenv("ZC_SOAK")) return; // as many lives as are asked for take as long as they take
        CloseHandle(CreateThread(nullptr, 0, Watch, this, 0, nullptr));
    }
    void OnTestStart(const testing::TestInfo&) override { m_Started = GetTickCount64(); }

    std::atomic<ULONGLONG> m_Started = GetTickCount64();
};

} // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES};
    InitCommonControlsEx(&classes);
    testing::UnitTest::GetInstance()->listeners().Append(new HangGuard);
    return RUN_ALL_TESTS();
}
