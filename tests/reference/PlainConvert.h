// The judge of the engine: rule after rule by find and replace, then the passes by literal
// string surgery. Slow, and as plain as can be.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace reference {

struct Table {
    std::u16string reph;
    std::u16string yaPhala;
    std::vector<std::pair<std::u16string, std::u16string>> rules;

    std::u16string Payload() const;
};

struct Outcome {
    int failure = 0; // number of the run-time failure, or 0
    std::u16string text;
    bool operator==(const Outcome&) const = default;
};

// stepLimit bounds the steps of each pass; where it is passed, gaveUp (may be null) is set and
// the outcome means nothing. lengthLimit does the same for the length of the line.
Outcome Convert(const Table& table, std::u16string_view line, bool* gaveUp = nullptr,
                std::size_t stepLimit = 1u << 20, std::size_t lengthLimit = 1u << 24);

// The rule table alone.
std::u16string ApplyRules(const Table& table, std::u16string_view line);

} // namespace reference
