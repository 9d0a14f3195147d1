// What the targets that make rule tables have in common.
#pragma once

#include "engine/RuleSource.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

// Ends the run where a property does not hold.
inline void Require(bool holds) {
    if (!holds) std::abort();
}

inline bool AnyError(const std::vector<rulesource::Message>& messages) {
    return std::any_of(messages.begin(), messages.end(),
                       [](const rulesource::Message& message) { return message.error; });
}

// The same markers and rules; the lines that they stand in do not count.
inline bool Same(const rulesource::Table& a, const rulesource::Table& b) {
    using Rule = rulesource::Table::Rule;
    return a.reph.text == b.reph.text && a.yaPhala.text == b.yaPhala.text &&
           std::equal(
               a.rules.begin(), a.rules.end(), b.rules.begin(), b.rules.end(),
               [](const Rule& x, const Rule& y) { return x.find == y.find && x.replace == y.replace; });
}
