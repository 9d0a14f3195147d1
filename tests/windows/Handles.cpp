#include "windows/Handles.h"

#include "base/win.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <utility>
#include <vector>

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

// The type of an object in the table: bits 16 to 22 of its handle, as the system numbers them.
const char* TypeName(int type) {
    switch (type) {
    case 0x01:
        return "contexts";
    case 0x04:
        return "regions";
    case 0x05:
        return "bitmaps";
    case 0x08:
        return "palettes";
    case 0x0A:
        return "fonts";
    case 0x10:
        return "brushes";
    case 0x30:
    case 0x50:
        return "pens";
    default:
        return "others";
    }
}

// The system makes some objects once and keeps them: brushes of its colours, and as many contexts,
// each with a bitmap and a region, as were ever in use at once. When that is depends on the
// moment, so all are made before anything is counted.
void MakeWhatTheSystemKeeps() {
    for (int colour = COLOR_SCROLLBAR; colour <= COLOR_MENUBAR; ++colour) GetSysColorBrush(colour);
    std::vector<HDC> contexts(64);
    for (HDC& context : contexts) context = GetDC(nullptr);
    for (const HDC context : contexts) ReleaseDC(nullptr, context);
}

} // namespace

std::map<std::string, int> GdiObjects() {
    GdiFlush();
    using CurrentBlock = const std::byte*(WINAPI*)();
    const auto* block = Lookup<CurrentBlock>(L"ntdll.dll", "RtlGetCurrentPeb")();
    const auto* table = *reinterpret_cast<const Entry* const*>(block + kTableAt);
    const auto own = static_cast<std::uint16_t>(GetCurrentProcessId());
    std::map<std::string, int> counts;
    for (std::size_t i = 0; i < kEntries; ++i) {
        // Windows shares the table among all processes, Wine gives each its own.
        const bool mine = table[i].Process == own || table[i].Process == 0;
        if (table[i].Type != 0 && mine) ++counts[TypeName(table[i].Type & 0x7F)];
    }
    return counts;
}

int Windows() {
    int count = 0;
    EnumWindows(CountVisibleTop, reinterpret_cast<LPARAM>(&count));
    for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr)) != nullptr;)
        CountTop(window, count);
    return count;
}

long long HeapBytes() {
    std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr));
    heaps.resize(GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data()));
    long long sum = 0;
    for (const HANDLE heap : heaps) {
        HeapLock(heap);
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heap, &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) sum += entry.cbData;
        HeapUnlock(heap);
    }
    return sum;
}

int Timers() {
    std::set<std::pair<HWND, WPARAM>> ticking;
    const ULONGLONG end = GetTickCount64() + 200;
    MSG tick;
    while (GetTickCount64() < end) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_TIMER);
        while (PeekMessageW(&tick, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE))
            ticking.emplace(tick.hwnd, tick.wParam);
    }
    return static_cast<int>(ticking.size());
}

std::ostream& operator<<(std::ostream& out, const Held& held) {
    out << held.Objects << " drawing objects";
    for (const auto& [type, count] : held.ObjectsOf) out << (count < 0 ? " " : " +") << count << " " << type;
    return out << ", " << held.Windows << " windows, " << held.Bytes << " bytes by " << held.Lives
               << " lives";
}

Held LeftBy(int lives, const std::function<void()>& live) {
    constexpr int kFirst = 20;
    for (int i = 0; i < kFirst; ++i) live();
    MakeWhatTheSystemKeeps();
    const std::map<std::string, int> objects = GdiObjects();
    const int windows = Windows();
    const long long bytes = HeapBytes();
    const ULONGLONG minute = GetTickCount64() + 60'000;
    int lived = 0;
    const bool toTheEnd = std::getenv("ZC_SOAK") != nullptr;
    while (lived < lives && (lived < 200 || toTheEnd || GetTickCount64() < minute)) {
        live();
        ++lived;
    }
    // The heap first: the table of the counts lies in it.
    const long long more = HeapBytes() - bytes;
    Held left{GdiObjects(), 0, Windows() - windows, more, lived};
    for (const auto& [type, count] : objects) left.ObjectsOf[type] -= count;
    std::erase_if(left.ObjectsOf, [](const auto& type) { return type.second == 0; });
    for (const auto& [type, count] : left.ObjectsOf) left.Objects += count;
    return left;
}

} // namespace gui
