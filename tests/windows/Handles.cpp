#include "windows/Handles.h"

#include "base/win.h"

#include <cstddef>
#include <cstdint>

namespace gui {
namespace {

// One entry of the table that the process block points to; a free one has no type.
struct Entry {
    std::uint64_t Object;
    std::uint16_t Process, Count, Unique;
    std::uint8_t Type, Flags;
    std::uint64_t User;
};
constexpr std::size_t kEntries = 0x10000;
constexpr std::size_t kTableAt = sizeof(void*) == 8 ? 0xF8 : 0x94;

BOOL CALLBACK CountInner(HWND, LPARAM count) {
    ++*reinterpret_cast<int*>(count);
    return TRUE;
}

void CountTop(HWND window, int& count) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != GetCurrentProcessId()) return;
    ++count;
    EnumChildWindows(window, CountInner, reinterpret_cast<LPARAM>(&count));
}

BOOL CALLBACK CountVisibleTop(HWND window, LPARAM count) {
    CountTop(window, *reinterpret_cast<int*>(count));
    return TRUE;
}

} // namespace

int GdiObjects() {
    GdiFlush();
    using CurrentBlock = const std::byte*(WINAPI*)();
    const auto* block = Lookup<CurrentBlock>(L"ntdll.dll", "RtlGetCurrentPeb")();
    const auto* table = *reinterpret_cast<const Entry* const*>(block + kTableAt);
    const auto own = static_cast<std::uint16_t>(GetCurrentProcessId());
    int count = 0;
    for (std::size_t i = 0; i < kEntries; ++i) {
        // Windows shares the table among all processes, Wine gives each its own.
        const bool mine = table[i].Process == own || table[i].Process == 0;
        count += table[i].Type != 0 && mine;
    }
    return count;
}

int Windows() {
    int count = 0;
    EnumWindows(CountVisibleTop, reinterpret_cast<LPARAM>(&count));
    for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr;)
        CountTop(window, count);
    return count;
}

} // namespace gui
