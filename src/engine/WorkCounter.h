// Counts units visited and moved, in builds that test how work grows; nothing elsewhere.
#pragma once

#include <cstdint>

#ifdef ZC_COUNT_WORK
inline std::uint64_t g_UnitsWorked = 0;
inline void CountWork(std::uint64_t units) {
    g_UnitsWorked += units;
}
#else
inline void CountWork(std::uint64_t) {}
#endif
