// The help texts of the command.
#pragma once

#include <string_view>

namespace help {

// The text of a command; of the whole program where command is empty; empty where it has none.
std::u16string_view Text(std::u16string_view command);
// The few lines for a call without arguments.
std::u16string_view ShortUsage();

} // namespace help
