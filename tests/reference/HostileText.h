// Lines in Bijoy spelling that cost a careless engine their length squared.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace reference {

// front, then half of the line from first, middle and half from second (all of it from first
// where there is no second), then back. K is ka, v the aa sign, y the u sign, ‡ the e sign, w
// the i sign, ‰ the ai sign, © the reph, ¨ the ya-phala, u the chandrabindu, & the virama, ¯ sa
// and a virama. Each unit has a byte in the ANSI code page.
struct HostileText {
    const char* name;
    std::u16string_view front, first, middle, second, back;

    // Of about so many units.
    std::u16string Line(std::size_t units) const {
        std::u16string line(front);
        const auto repeat = [&line](std::u16string_view what, std::size_t count) {
            for (std::size_t i = 0; i < count; i += what.size()) line += what;
        };
        repeat(first, second.empty() ? units : units / 2);
        line += middle;
        if (!second.empty()) repeat(second, units / 2);
        return line.append(back);
    }
};

inline constexpr HostileText kHostileTexts[] = {
    {"words without a line break", u"", u"Avgv‡`i †`k evsjv‡`k, wbR©b cÖvšÍi ", u"", u"", u""},
    {"e signs, no consonant", u"", u"‡", u"", u"", u""},
    {"e sign and blank, repeated", u"", u"‡ ", u"", u"", u""},
    {"e, i, ai signs mixed, then one letter", u"", u"‡w‰", u"", u"", u"K"},
    {"letter and reph, repeated", u"", u"K©", u"", u"", u""},
    {"letter and eight rephs, repeated", u"", u"K©©©©©©©©", u"", u"", u""},
    {"letter and twenty rephs, repeated", u"", u"K©©©©©©©©©©©©©©©©©©©©", u"", u"", u""},
    {"one letter, then rephs only", u"K", u"©", u"", u"", u""},
    {"letters, then as many rephs", u"", u"K", u"", u"©", u""},
    {"rephs with a blank between", u"K", u"© ", u"", u"", u""},
    {"viramas and letters, then as many rephs", u"K", u"&K", u"", u"©", u""},
    {"half letters, one letter, then rephs", u"", u"¯", u"K", u"©", u""},
    {"half letters, aa sign, then rephs", u"", u"¯", u"Kv", u"©", u""},
    {"u signs, then one ya-phala", u"K", u"y", u"", u"", u"¨"},
    {"u signs, then as many ya-phalas", u"K", u"y", u"", u"¨", u""},
    {"letter, ya-phala, u sign, repeated", u"", u"K¨y", u"", u"", u""},
    {"ya-phalas, then rephs", u"K", u"¨", u"", u"©", u""},
    {"letter and chandrabindu, repeated", u"", u"Ku", u"", u"", u""},
    {"chandrabindus, then aa signs", u"K", u"u", u"", u"v", u""},
    {"aa signs, then rephs", u"K", u"v", u"", u"©", u""},
    {"words, one stray e sign in front", u"‡ ", u"Kvb ", u"", u"", u""},
    {"words, one stray e sign behind", u"", u"Kvb ", u"", u"", u"‡"},
};

} // namespace reference
