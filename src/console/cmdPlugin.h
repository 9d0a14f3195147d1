// `zorvak plugin`: makes, prints and checks conversion plug-ins.
#pragma once

#include <string>
#include <vector>

// The exit code. arguments: those behind the word "plugin".
int RunPlugin(const std::vector<std::u16string>& arguments);
