// The frame round everything that the system calls: window procedures, timers, hooks and
// COM entry points. An exception must not travel through the system's own frames, so it is
// kept here; the loops then end, and the top of the program reports it once.
#pragma once

#include "base/win.h"

#include <exception>
#include <string>
#include <utility>

namespace EventFrame {

// True once a failure has been kept: no handler runs any more, messages go to the system.
bool Ending() noexcept;
// The first failure; null where there is none.
std::exception_ptr FirstFailure() noexcept;
// Called inside a catch: keeps the failure being handled, unless one is kept already, and
// asks the message loops to end.
void Keep() noexcept;
// Throws the kept failure, if there is one: for loops inside a running flow.
void Rethrow();
// Forgets the kept failure, after it has been reported.
void Forget() noexcept;

// Runs body and gives its result; onFailure where it threw.
template <class Result, class Body>
Result Run(Result onFailure, Body&& body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        Keep();
        return onFailure;
    }
}
// The same without a result.
template <class Body>
void Run(Body&& body) noexcept {
    try {
        std::forward<Body>(body)();
    } catch (...) {
        Keep();
    }
}

// Number, description and source of a failure, a line each; whereabouts, where not empty,
// is the last line.
std::u16string Describe(const std::exception_ptr& failure, const std::u16string& whereabouts);

// Shows the first failure in one box, when all loops have ended; does nothing without one.
void Report(const std::u16string& title, const std::u16string& whereabouts);

} // namespace EventFrame
