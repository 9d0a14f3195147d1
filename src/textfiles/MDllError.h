// Error numbers of the system in words.
#pragma once

#include <cstdint>
#include <string>

namespace MDllError {

// The system's own text, line end included where it gives one; "System error code: " and
// the number where it has none; empty for 0.
std::u16string GetSystemErrorText(std::int32_t errorCode);

} // namespace MDllError
