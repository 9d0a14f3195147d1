// Lines that a careless engine takes quadratic time for, each of a quarter of a million
// and of a million units. Prints nanoseconds a unit of the longer and how much slower a
// unit of it is than one of the shorter.
//
//   hostile_lines PLUGIN.dll        a Bijoy table
#include "base/Text.h"
#include "engine/clsConvert.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <string>
#include <string_view>

namespace {

// front, then half of the line from `first` and half from `second` (all of it from `first`
// where there is no second), then back. In Bijoy spelling: K is ka, v the aa sign, y the u
// sign, ‡ the e sign, w the i sign, ‰ the ai sign, © the reph, ¨ the ya-phala, u the
// chandrabindu, & the virama.
struct Hostile {
    const char* name;
    std::u16string_view front, first, second, back;
};

constexpr Hostile kLines[] = {
    {"words without a line break", u"", u"Avgv‡`i †`k evsjv‡`k, wbR©b cÖvšÍi ", u"", u""},
    {"e signs, no consonant", u"", u"‡", u"", u""},
    {"e sign and blank, repeated", u"", u"‡ ", u"", u""},
    {"e, i, ai signs mixed, then one letter", u"", u"‡w‰", u"", u"K"},
    {"letter and reph, repeated", u"", u"K©", u"", u""},
    {"one letter, then rephs only", u"K", u"©", u"", u""},
    {"rephs with a blank between", u"K", u"© ", u"", u""},
    {"viramas and letters, then as many rephs", u"K", u"&K", u"©", u""},
    {"u signs, then one ya-phala", u"K", u"y", u"", u"¨"},
    {"u signs, then as many ya-phalas", u"K", u"y", u"¨", u""},
    {"letter, ya-phala, u sign, repeated", u"", u"K¨y", u"", u""},
    {"letter and chandrabindu, repeated", u"", u"Ku", u"", u""},
    {"chandrabindus, then aa signs", u"K", u"u", u"v", u""},
    {"words, one stray e sign in front", u"‡ ", u"Kvb ", u"", u""},
    {"words, one stray e sign behind", u"", u"Kvb ", u"", u"‡"},
};

void Repeat(std::u16string_view what, std::size_t units, std::u16string& line) {
    for (std::size_t i = 0; i < units; i += what.size()) line.append(what);
}

std::u16string Make(const Hostile& hostile, std::size_t units) {
    std::u16string line(hostile.front);
    Repeat(hostile.first, hostile.second.empty() ? units : units / 2, line);
    if (!hostile.second.empty()) Repeat(hostile.second, units / 2, line);
    return line.append(hostile.back);
}

double CpuSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// The best of three, nanoseconds a unit; negative where the line fails.
double NanosecondsPerUnit(clsConvert& converter, const std::u16string& line) {
    double best = 1e9;
    for (int i = 0; i < 3; ++i) {
        const double start = CpuSeconds();
        try {
            converter.Convert(line);
        } catch (const RuntimeFailure&) {
            return -1;
        }
        best = std::min(best, CpuSeconds() - start);
    }
    return best * 1e9 / static_cast<double>(line.size());
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    clsConvert converter;
    converter.LoadTable(text::FromUtf8(argv[1]));
    for (const Hostile& hostile : kLines) {
        const double shorter = NanosecondsPerUnit(converter, Make(hostile, 250000));
        const double longer = NanosecondsPerUnit(converter, Make(hostile, 1000000));
        if (shorter < 0 || longer < 0)
            std::printf("| %s | fails | |\n", hostile.name);
        else
            std::printf("| %s | %.1f | %.2f |\n", hostile.name, longer, longer / shorter);
    }
    return 0;
}
