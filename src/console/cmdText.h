// `zorvak text`: standard input to standard output.
#pragma once

#include <string>
#include <vector>

// The exit code. arguments: those behind the word "text".
int RunText(const std::vector<std::u16string>& arguments);
