// What a run of the tests is given from outside.
#pragma once

#include <cstdint>
#include <cstdlib>

// A number, or otherwise where it is not set.
inline std::uint64_t FromEnvironment(const char* name, std::uint64_t otherwise) {
    const char* const value = std::getenv(name);
    return value == nullptr ? otherwise : std::strtoull(value, nullptr, 10);
}
