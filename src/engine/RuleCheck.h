// Looks through a table for what is allowed but hardly meant.
#pragma once

#include "engine/RuleSource.h"

#include <vector>

namespace rulecheck {

// Appends warnings to messages, in line order. That a rule "can never match" is said only
// where no rule in between could make the text that it looks for.
void Check(const rulesource::Table& table, std::vector<rulesource::Message>& messages);

} // namespace rulecheck
