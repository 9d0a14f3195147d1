// Everything runs on one thread, so the first failure is one variable.
//
// Tested by tests/windows/failures_test.cpp and failures_events_test.cpp.
#include "controls/EventFrame.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"

namespace EventFrame {
namespace {

std::exception_ptr g_First;

} // namespace

bool Ending() noexcept {
    return g_First != nullptr;
}

std::exception_ptr FirstFailure() noexcept {
    return g_First;
}

void Keep() noexcept {
    if (g_First) return;
    g_First = std::current_exception();
    PostQuitMessage(1);
}

void Rethrow() {
    if (g_First) std::rethrow_exception(g_First);
}

void Forget() noexcept {
    g_First = nullptr;
}

std::u16string Describe(const std::exception_ptr& failure, const std::u16string& whereabouts) {
    std::u16string told;
    try {
        std::rethrow_exception(failure);
    } catch (const RuntimeFailure& known) {
        told = u"Run-time error " + text::Decimal(known.Number()) + u":\r\n" + known.Description();
        if (!known.Source().empty()) told += u"\r\n" + known.Source();
    } catch (const std::bad_alloc&) {
        told = u"Run-time error 7:\r\nOut of memory";
    } catch (const std::exception& other) {
        told = u"Unexpected failure:\r\n" + text::FromUtf8(other.what());
    } catch (...) {
        told = u"Unexpected failure";
    }
    if (!whereabouts.empty()) told += u"\r\n" + whereabouts;
    return told;
}

void Report(const std::u16string& title, const std::u16string& whereabouts) {
    if (!g_First) return;
    // A box would close at once while the end is still being asked for.
    MSG message;
    while (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) {
    }
    const std::u16string told = Describe(g_First, whereabouts);
    MessageBoxW(nullptr, Wide(told), Wide(title), MB_OK | MB_ICONERROR | MB_SETFOREGROUND | MB_TASKMODAL);
}

} // namespace EventFrame
