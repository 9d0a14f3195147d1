// Signed 16-bit counters that fail instead of wrapping.
#pragma once

#include "base/RuntimeFailure.h"

#include <cstdint>

// The value as a signed 16-bit number; raises failure 6 where it does not fit.
inline std::int16_t ToInt16(long long value, std::u16string_view source) {
    if (value < INT16_MIN || value > INT16_MAX) throw RuntimeFailure(kOverflow, source);
    return static_cast<std::int16_t>(value);
}
