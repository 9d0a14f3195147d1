// `zorvak convert`
#pragma once

#include <string>
#include <vector>

int RunConvert(const std::vector<std::u16string>& given);
