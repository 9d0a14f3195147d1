// `zorvak list`
#pragma once

#include <string>
#include <vector>

int RunList(const std::vector<std::u16string>& given);
