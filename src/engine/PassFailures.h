// How the passes fail.
#pragma once

#include <cstddef>
#include <string_view>

// Failure 5: the marker would keep its pass going for ever.
[[noreturn]] void RaiseEndless(std::u16string_view name, std::u16string_view marker);

// Failure 14 for a line that has grown to more than longest units.
void CheckGrowth(std::size_t length, std::size_t longest);
