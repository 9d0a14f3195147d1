#include "reference/RandomTable.h"

#include <cstdio>
#include <iterator>

namespace reference {
namespace {

using Text = std::u16string;

const Text kBytes = u"abcdeABxyz \t\r\n\u00A9\u2026\u00FF\u20AC";
const Text kBangla =
    u"\u0995\u0996\u09B0\u09AF\u09CD\u09CD\u09BE\u09BF\u09C0\u09C1\u09C2\u09C3\u09C7\u09C7\u09C8\u09CB"
    u"\u09D7\u0981\u0985\u0986\u0982\u09CE\u200C";
const Text kRephMarkers = u"\uE001R\u00A9";
const Text kYaPhalaMarkers = u"\uE002Y\u00A8";

Text Pick(Random& random, const Text& units, std::size_t most) {
    Text text;
    for (std::size_t length = random.Below(most + 1); length > 0; --length) text += random.Of(units);
    return text;
}

// A marker that is longer than a unit or one that the passes read. Some are endless in some lines.
Text OddMarker(Random& random, bool reph) {
    static const Text markers[] = {u"q\u0995", u"qq", u"q!", u"\u0981", u"\u09BE", u"\u09C7", u"\u0995"};
    static const Text rephMarkers[] = {u"\uE001\uE001\uE001", u"\u09B0\u09CD", u"\u09CDq"};
    if (reph && random.OneIn(3)) return rephMarkers[random.Below(std::size(rephMarkers))];
    return markers[random.Below(std::size(markers))];
}

std::pair<Text, Text> MakeRule(Random& random, const Table& table, const Text& alphabet) {
    Text find = Pick(random, alphabet, random.OneIn(12) ? 5 : 3);
    Text replace = Pick(random, alphabet, 3);
    if (!table.rules.empty() && random.OneIn(3)) {
        // Looks for what an earlier rule has put in, or for its end.
        const Text& earlier = table.rules[random.Below(table.rules.size())].second;
        find = earlier.substr(random.Below(earlier.size() + 1));
        if (random.OneIn(2)) find += random.Of(alphabet);
    }
    if (random.OneIn(4)) replace = find.substr(0, random.Below(find.size() + 1)) + replace;
    if (random.OneIn(6)) replace.clear();
    if (find.empty() && !random.OneIn(8)) find += random.Of(alphabet);
    return {find, replace};
}

char Byte(char16_t unit) {
    return static_cast<char>(unit);
}

} // namespace

std::uint64_t Random::Next() {
    std::uint64_t z = m_State += 0x9E3779B97F4A7C15u;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
}

RandomCase MakeRandomCase(Random& random) {
    RandomCase made;
    Table& table = made.table;
    table.reph = Text(1, random.Of(kRephMarkers));
    table.yaPhala = Text(1, random.Of(kYaPhalaMarkers));
    const bool odd = random.OneIn(5);
    if (odd && random.OneIn(2)) table.reph = OddMarker(random, true);
    if (odd && random.OneIn(2)) table.yaPhala = OddMarker(random, false);

    made.bytes = !random.OneIn(4);
    Text input, alphabet;
    for (std::size_t n = 2 + random.Below(5); n > 0; --n) input += random.Of(kBytes);
    if (!made.bytes)
        input += Pick(random, kBangla, 6) + table.reph + table.yaPhala + (random.OneIn(3) ? u"\u4E00" : u"");
    alphabet = input + Pick(random, kBangla, 6) + table.reph + table.yaPhala;
    if (random.OneIn(8)) alphabet += u'\0';
    if (random.OneIn(8)) alphabet += std::u16string{0xD83D, 0xDE00, 0xDE00};

    for (std::size_t n = random.Below(random.OneIn(4) ? 17 : 6); n > 0; --n)
        table.rules.push_back(MakeRule(random, table, alphabet));
    if (!random.OneIn(4)) {
        // Without a last block that makes Bangla of the input the passes would see little.
        const Text targets = kBangla + table.reph + table.reph + table.yaPhala + table.yaPhala;
        for (const char16_t unit : input) {
            if (!random.OneIn(5)) table.rules.emplace_back(Text(1, unit), Text(1, random.Of(targets)));
        }
    }
    for (auto& rule : table.rules) {
        // A payload cannot hold these.
        for (Text* field : {&rule.first, &rule.second}) {
            std::erase(*field, u'\t');
            std::erase(*field, u'\n');
        }
    }
    if (table.rules.empty()) table.rules.emplace_back(u"\uF000", u"");

    std::vector<Text> words;
    for (std::size_t n = 1 + random.Below(6); n > 0; --n) words.push_back(Pick(random, input, 6));
    for (std::size_t n = 2 + random.Below(8); n > 0; --n) {
        Text line;
        if (random.OneIn(2)) {
            for (std::size_t k = random.Below(7); k > 0; --k) {
                line += words[random.Below(words.size())];
                if (k > 1 || random.OneIn(6)) line += u' ';
            }
        } else {
            line = Pick(random, input + u" ", random.OneIn(12) ? 200 : 14);
        }
        made.lines.push_back(line);
    }
    return made;
}

RandomCase Shrink(RandomCase failing, const std::function<bool(const RandomCase&)>& fails) {
    const auto keepIf = [&](const RandomCase& smaller) {
        if (!fails(smaller)) return false;
        failing = smaller;
        return true;
    };
    const auto shorten = [&](auto member) {
        bool helped = false;
        for (std::size_t part = member(failing).size(); part > 0; part /= 2) {
            for (std::size_t at = 0; at + part <= member(failing).size();) {
                RandomCase smaller = failing;
                member(smaller).erase(member(smaller).begin() + static_cast<std::ptrdiff_t>(at),
                                      member(smaller).begin() + static_cast<std::ptrdiff_t>(at + part));
                if (keepIf(smaller)) {
                    helped = true;
                } else {
                    ++at;
                }
            }
        }
        return helped;
    };
    for (bool helped = true; helped;) {
        helped = shorten([](RandomCase & c) -> auto& { return c.lines; });
        helped |= shorten([](RandomCase & c) -> auto& { return c.table.rules; });
        for (std::size_t i = 0; i < failing.lines.size(); ++i)
            helped |= shorten([i](RandomCase & c) -> auto& { return c.lines[i]; });
        for (std::size_t i = 0; i < failing.table.rules.size(); ++i) {
            helped |= shorten([i](RandomCase & c) -> auto& { return c.table.rules[i].first; });
            helped |= shorten([i](RandomCase & c) -> auto& { return c.table.rules[i].second; });
        }
    }
    return failing;
}

std::string Describe(const RandomCase& failing) {
    const auto literal = [](const Text& text) {
        std::string out = "u\"";
        for (const char16_t unit : text) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned>(unit));
            if (unit > 0x20 && unit < 0x7F && unit != u'"' && unit != u'\\') {
                out += Byte(unit);
            } else {
                out += escape;
            }
        }
        return out + "\"";
    };
    std::string out = "table {" + literal(failing.table.reph) + ", " + literal(failing.table.yaPhala) + ", {";
    for (const auto& rule : failing.table.rules)
        out += "{" + literal(rule.first) + ", " + literal(rule.second) + "}, ";
    out += "}}\nlines";
    for (const Text& line : failing.lines) out += " " + literal(line);
    return out;
}

} // namespace reference
