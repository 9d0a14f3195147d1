// The zorvak command.
#pragma once

#include <string>
#include <vector>

// Runs the command with its arguments (without the program's own name); the exit code.
int RunZorvak(const std::vector<std::u16string>& arguments);
