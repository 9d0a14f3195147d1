// Throws for tests that draw by lot: the same for the same seed everywhere.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace gui {

class Dice {
public:
    explicit Dice(std::uint64_t seed) : m_Engine(static_cast<std::mt19937::result_type>(seed)) {}
    int Below(int limit) { return static_cast<int>(m_Engine() % static_cast<unsigned>(limit)); }
    int Within(int low, int high) { return low + Below(high - low + 1); }
    bool OneIn(int n) { return Below(n) == 0; }
    // One of the values.
    template <class Value, std::size_t Count>
    const Value& Of(const Value (&values)[Count]) {
        return values[Below(static_cast<int>(Count))];
    }
    template <class Value>
    const Value& Of(const std::vector<Value>& values) {
        return values[static_cast<std::size_t>(Below(static_cast<int>(values.size())))];
    }

private:
    std::mt19937 m_Engine;
};

} // namespace gui
