#include "windows/MonkeyRecord.h"

#include "base/win.h"

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace gui {
namespace {

constexpr std::size_t kTold = 12; // steps
constexpr int kMostFrames = 60;
constexpr std::size_t kContextWords = 32;

const MonkeyRecord* g_Record = nullptr;

// "windows_monkey.exe+0x1234", empty outside all code.
std::string PlaceOf(const void* address) {
    HMODULE module = nullptr;
    constexpr DWORD kByAddress =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    if (!GetModuleHandleExW(kByAddress, static_cast<const wchar_t*>(address), &module)) return {};
    char path[MAX_PATH] = "";
    GetModuleFileNameA(module, path, MAX_PATH);
    const std::string_view name = std::string_view(path).substr(std::string_view(path).rfind('\\') + 1);
    char place[MAX_PATH + 32];
    std::snprintf(
        place, sizeof place, "%.*s+0x%zx", static_cast<int>(name.size()), name.data(),
        static_cast<std::size_t>(static_cast<const char*>(address) - reinterpret_cast<char*>(module)));
    return place;
}

// Whatever on the stack points into code: the calls under way are among it.
void PrintStack(const EXCEPTION_POINTERS& told) {
    MEMORY_BASIC_INFORMATION stack{};
    const void* const here = &told;
    VirtualQuery(here, &stack, sizeof stack);
    const auto* at = reinterpret_cast<void* const*>(told.ContextRecord);
    const auto* end =
        reinterpret_cast<void* const*>(static_cast<char*>(stack.BaseAddress) + stack.RegionSize);
    for (int frames = 0; at < end && frames < kMostFrames; ++at) {
        if (!*at) continue; // a null address means the program itself
        const std::string place = PlaceOf(*at);
        if (place.empty()) continue;
        std::fprintf(stderr, "  %s\n", place.c_str());
        ++frames;
    }
}

// The registers among them, as the structure has them.
void PrintContext(const CONTEXT& context) {
    const auto* words = reinterpret_cast<const ULONG_PTR*>(&context);
    for (std::size_t i = 0; i < kContextWords; ++i)
        std::fprintf(stderr, "%s%0*zx", i % 4 ? " " : "\n  ", static_cast<int>(2 * sizeof *words),
                     static_cast<std::size_t>(words[i]));
}

LONG CALLBACK OnCrash(EXCEPTION_POINTERS* told) {
    const EXCEPTION_RECORD& crash = *told->ExceptionRecord;
    std::fprintf(stderr, "crash 0x%lx at %s (%p), in thread %lu", crash.ExceptionCode,
                 PlaceOf(crash.ExceptionAddress).c_str(), crash.ExceptionAddress, GetCurrentThreadId());
    for (DWORD i = 0; i < crash.NumberParameters; ++i)
        std::fprintf(stderr, ", 0x%zx", static_cast<std::size_t>(crash.ExceptionInformation[i]));
    PrintContext(*told->ContextRecord);
    std::fprintf(stderr, "\n%s\n", g_Record ? g_Record->Tell().c_str() : "");
    PrintStack(*told);
    std::fflush(stderr);
    return EXCEPTION_CONTINUE_SEARCH;
}

} // namespace

MonkeyRecord::MonkeyRecord(std::uint64_t seed) : m_Seed(seed) {
    g_Record = this;
    SetUnhandledExceptionFilter(OnCrash);
}

MonkeyRecord::~MonkeyRecord() {
    SetUnhandledExceptionFilter(nullptr);
    g_Record = nullptr;
}

std::string MonkeyRecord::Tell() const {
    std::string told = "ZC_MONKEY_SEED=" + std::to_string(m_Seed) +
                       " ZC_MONKEY_STEPS=" + std::to_string(m_Steps.size()) +
                       " does it again; the last steps:";
    for (std::size_t i = m_Steps.size() - std::min(kTold, m_Steps.size()); i < m_Steps.size(); ++i)
        told += "\n  " + std::to_string(i + 1) + " " + m_Steps[i];
    return told;
}

} // namespace gui
