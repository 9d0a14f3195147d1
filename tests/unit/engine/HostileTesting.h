// Lines that would cost a plain engine their length squared, and what they are converted with.
#pragma once

#include "reference/PlainConvert.h"

#include <cstddef>
#include <string>
#include <string_view>

inline std::u16string Repeated(std::u16string_view part, std::size_t length) {
    std::u16string line;
    while (line.size() < length) line += part;
    return line;
}

inline std::u16string Then(std::u16string_view front, std::u16string_view back, std::size_t length) {
    return Repeated(front, length / 2) + Repeated(back, length / 2);
}

struct Hostile {
    const char* name;
    std::u16string (*make)(std::size_t length);
    std::u16string_view reph = u"R", yaPhala = u"Y";

    // With a rule that halves "hh".
    reference::Table Table() const {
        return {std::u16string(reph), std::u16string(yaPhala), {{u"hh", u"h"}, {u"zzz", u""}}};
    }
};

inline const Hostile kHostile[] = {
    {"letters without a line break", [](std::size_t n) { return Repeated(u"\u0995\u09BE x", n); }},
    {"e signs, no consonant", [](std::size_t n) { return Repeated(u"\u09C7", n); }},
    {"e signs and blanks", [](std::size_t n) { return Repeated(u"\u09C7 ", n); }},
    {"e, i and ai signs, then a letter",
     [](std::size_t n) { return Repeated(u"\u09C7\u09BF\u09C8", n) + u"\u0995"; }},
    {"signs, then viramas and letters",
     [](std::size_t n) { return Then(u"\u09C7\u09BF", u"\u0995\u09CD", n); }},
    {"a letter, then rephs", [](std::size_t n) { return u"\u0995" + Repeated(u"R", n); }},
    {"letter and reph", [](std::size_t n) { return Repeated(u"\u0995R", n); }},
    {"rephs with blanks", [](std::size_t n) { return Repeated(u"R ", n); }},
    {"a long cluster, then rephs", [](std::size_t n) { return u"\u0995" + Then(u"\u09CD\u0995", u"R", n); }},
    {"u signs, then ya-phalas", [](std::size_t n) { return u"\u0995" + Then(u"\u09C1", u"Y", n); }},
    {"letter, ya-phala, u sign", [](std::size_t n) { return Repeated(u"\u0995Y\u09C1", n); }},
    {"chandrabindus, then aa signs", [](std::size_t n) { return Then(u"\u0981", u"\u09BE", n); }},
    {"chandrabindu and aa sign", [](std::size_t n) { return Repeated(u"\u0995\u0981\u09BE", n); }},
    {"one letter that a rule halves", [](std::size_t n) { return Repeated(u"h", n); }},
    {"a stray e sign at the end", [](std::size_t n) { return Repeated(u"\u0995\u09BE ", n) + u"\u09C7"; }},

    // Markers of several units.
    {"a long cluster, then rephs of two units",
     [](std::size_t n) { return u"\u0995" + Then(u"\u09CD\u0995", u"RR", n); }, u"RR"},
    {"rephs in rephs", [](std::size_t n) { return u"\u0995" + Then(u"R", u"Q", n); }, u"RQ"},
    {"rephs in rephs of equal units", [](std::size_t n) { return Repeated(u"R", n) + u"Q"; }, u"RRRRRRRR"},
    {"rephs that break and make clusters", [](std::size_t n) { return Repeated(u"\u0995\u09CDRRQQ", n); },
     u"RQ"},
    {"signs in rephs", [](std::size_t n) { return u"\u0995" + Then(u"\u09CD\u09C7", u"Q", n); }, u"\u09C7Q"},
    {"a pair in front of each letter", [](std::size_t n) { return Then(u"\u0995", u"RQ", n); }, u"RQ"},
    {"a long cluster, then rephs that are pairs",
     [](std::size_t n) { return u" " + Repeated(u"\u0995\u09CD", n) + u"\u0995\u09B0\u09CD"; },
     u"\u09B0\u09CD"},
    {"letter, u sign, ya-phala of two units", [](std::size_t n) { return Repeated(u"\u0995\u09C1YZ", n); },
     u"R", u"YZ"},
    {"u signs, then a ya-phala of two units",
     [](std::size_t n) { return u"\u0995" + Repeated(u"\u09C1", n) + u"YZ"; }, u"R", u"YZ"},
    {"ya-phalas in ya-phalas", [](std::size_t n) { return Then(u"Y", u"Z", n); }, u"R", u"YZ"},
    {"chandrabindus and ya-phalas of two units", [](std::size_t n) { return Then(u"\u0981", u"YZ", n); },
     u"R", u"YZ"},
    {"both of two units", [](std::size_t n) { return Repeated(u"\u0995RRYY \u09C7\u0995", n); }, u"RR",
     u"YY"},

    // Markers that the passes read themselves.
    {"rephs that are letters", [](std::size_t n) { return u"\u0996" + Then(u"\u09CD\u0996", u"\u0995", n); },
     u"\u0995"},
    {"rephs that are e signs", [](std::size_t n) { return u"\u0996" + Then(u"\u09CD\u0996", u"\u09C7", n); },
     u"\u09C7"},
    {"rephs that are chandrabindus",
     [](std::size_t n) { return u"\u0996" + Then(u"\u09CD\u0996\u09BE", u"\u0981", n); }, u"\u0981"},
    {"rephs that are virama and letter", [](std::size_t n) { return Repeated(u"x\u09CDk\u09CDk ", n); },
     u"\u09CDk"},
    {"ya-phalas that are u signs", [](std::size_t n) { return u"\u0995" + Then(u"\u09C2", u"\u09C1", n); },
     u"R", u"\u09C1"},
    {"ya-phalas that are chandrabindus", [](std::size_t n) { return Then(u"\u0981\u09BE", u"\u0981", n); },
     u"R", u"\u0981"},
    {"ya-phalas that are ra", [](std::size_t n) { return Repeated(u"\u0995\u09B0\u09C1", n); }, u"R",
     u"\u09B0"},
    {"ya-phalas that are joiners", [](std::size_t n) { return Repeated(u"\u0995\u200C\u09C1", n); }, u"R",
     u"\u200C"},
    {"ya, then viramas", [](std::size_t n) { return u"x" + Then(u"\u09AF", u"\u09CD", n); }, u"R",
     u"\u09AF\u09CD"},
    {"ya and virama over u signs",
     [](std::size_t n) { return u"x" + Then(u"\u09AF\u09C1", u"\u09CD\u09AF", n); }, u"R", u"\u09AF\u09CD"},
    {"u sign, ya and virama", [](std::size_t n) { return u"x" + Repeated(u"\u09C1\u09AF\u09AF\u09CD", n); },
     u"R", u"\u09AF\u09CD"},
    {"both the same", [](std::size_t n) { return u"x" + Then(u"\u0995\u09C1", u"Y", n); }, u"Y", u"Y"},
};
