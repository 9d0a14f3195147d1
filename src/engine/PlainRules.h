// The rules in their plain form: rule after rule over the whole line.
#pragma once

#include "engine/Growth.h"
#include "engine/RuleTable.h"

#include <string>

// Raises failure 14 where the line grows beyond longestLine units. spare is room to work in.
void ApplyRules(const RuleTable& table, std::u16string& line, std::u16string& spare,
                std::size_t longestLine = kLongestLine);
