// What the tests of the engine share.
#pragma once

#include "base/RuntimeFailure.h"
#include "engine/clsConvert.h"
#include "reference/PlainConvert.h"
#include "support/Environment.h"

#include <cstdio>
#include <ostream>
#include <string>
#include <string_view>

// Code points in hexadecimal with blanks between.
inline std::string Hex(std::u16string_view units) {
    std::string hex;
    for (const char16_t unit : units) {
        char digits[8];
        std::snprintf(digits, sizeof digits, "%s%04X", hex.empty() ? "" : " ", static_cast<unsigned>(unit));
        hex += digits;
    }
    return hex;
}

namespace reference {
inline void PrintTo(const Outcome& outcome, std::ostream* stream) {
    if (outcome.failure != 0) {
        *stream << "failure " << outcome.failure;
    } else {
        *stream << Hex(outcome.text);
    }
}
} // namespace reference

// The outcome of one call, as the reference tells it.
inline reference::Outcome ConvertOutcome(clsConvert& converter, std::u16string_view line) {
    try {
        return {0, converter.Convert(line)};
    } catch (const RuntimeFailure& failure) {
        return {failure.Number(), {}};
    }
}
