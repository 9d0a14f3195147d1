// Written from the description of each pass, with 1-based positions and one substring at a
// time; shares nothing with the engine, not even the names of the characters.

#include "reference/PlainConvert.h"

namespace reference {
namespace {

using Text = std::u16string;

struct Failure {
    int number;
};
struct GaveUp {};

// Mid(text, from, length), from 1-based; what lies outside the text is empty.
Text Mid(const Text& text, long from, long length) {
    Text result;
    for (long i = from; i < from + length; ++i) {
        if (i >= 1 && i <= static_cast<long>(text.size())) result += text[static_cast<std::size_t>(i - 1)];
    }
    return result;
}
Text Left(const Text& text, long length) {
    return text.substr(0, static_cast<std::size_t>(length));
}
Text From(const Text& text, long from) {
    return from > static_cast<long>(text.size()) ? Text() : text.substr(static_cast<std::size_t>(from - 1));
}
// Position of the first occurrence at or after start; 0 where there is none.
long Find(long start, const Text& text, const Text& wanted) {
    if (start > static_cast<long>(text.size())) return 0;
    const std::size_t at = text.find(wanted, static_cast<std::size_t>(start - 1));
    return at == Text::npos ? 0 : static_cast<long>(at) + 1;
}

bool In(const Text& c, const Text& members) {
    return c.size() == 1 && members.find(c) != Text::npos;
}

const Text kVowelSigns = u"\u09BE\u09BF\u09C0\u09C1\u09C2\u09C3\u09C7\u09C8\u09CB\u09CC\u09D7";
const Text kPostBaseSigns = u"\u09BE\u09C0\u09C1\u09C2\u09C3\u09D7";
const Text kConsonants =
    u"\u0995\u0996\u0997\u0998\u0999\u099A\u099B\u099C\u099D\u099E\u099F\u09A0\u09A1\u09A2"
    u"\u09A3\u09A4\u09A5\u09A6\u09A7\u09A8\u09AA\u09AB\u09AC\u09AD\u09AE\u09AF\u09B0\u09B2"
    u"\u09B6\u09B7\u09B8\u09B9\u09CE\u09DC\u09DD\u09DF\u09F0\u09F1";

Text ReplaceEach(const Text& text, const Text& wanted, const Text& replacement) {
    if (wanted.empty()) return text;
    Text result;
    for (std::size_t at = 0; at < text.size();) {
        if (text.compare(at, wanted.size(), wanted) == 0) {
            result += replacement;
            at += wanted.size();
        } else {
            result += text[at++];
        }
    }
    return result;
}

Text Move(const Text& text, long from, long to, const Text& cut, const Text& insert) {
    if (from == to) return text;
    const Text temp = Left(text, from - 1) + From(text, from + static_cast<long>(cut.size()));
    if (to == 0) throw Failure{5};
    if (to > static_cast<long>(temp.size())) return temp + insert;
    return Left(temp, to - 1) + insert + From(temp, to);
}

long RephTarget(const Text& text, long pos, const Text& yaPhala) {
    if (pos - 1 < 1) return pos;
    long count = 0;
    bool vowelSeen = false, chandrabinduSeen = false;
    for (long i = pos - 1; i >= 1; --i) {
        const Text c = Mid(text, i, 1);
        if (In(c, kVowelSigns)) {
            if (vowelSeen) break;
            vowelSeen = true;
            ++count;
        } else if (c == u"\u0981") {
            if (chandrabinduSeen) break;
            chandrabinduSeen = true;
            ++count;
        } else if (c == u"\u09CD") {
            ++count;
        } else if (c == yaPhala) {
            ++count;
        } else if (In(c, kConsonants)) {
            if (i - 1 < 1) break;
            if (Mid(text, i - 1, 1) != u"\u09CD") break;
            ++count;
        } else {
            break;
        }
    }
    return pos - 1 - count;
}

long ChandrabinduTarget(const Text& text, long pos, const Text& yaPhala) {
    const long length = static_cast<long>(text.size());
    if (pos + 1 > length) return pos;
    long count = 0;
    for (long i = pos + 1; i <= length; ++i) {
        const Text c = Mid(text, i, 1);
        if (c != yaPhala && !In(c, kPostBaseSigns)) break;
        ++count;
    }
    return pos + count;
}

long PreBaseKarTarget(const Text& text, long pos) {
    const long length = static_cast<long>(text.size());
    if (pos + 1 > length) return pos;
    long count = 0;
    for (long i = pos + 1; i <= length; ++i) {
        const Text c = Mid(text, i, 1);
        if (c == u"\u09CD") {
            ++count;
        } else if (In(c, kConsonants)) {
            ++count;
            if (Mid(text, i + 1, 1) != u"\u09CD") break;
        }
    }
    return pos + count;
}

class Passes {
public:
    Passes(const Table& table, std::size_t stepLimit, std::size_t lengthLimit)
        : m_Table(table), m_StepLimit(stepLimit), m_LengthLimit(lengthLimit) {}

    Text Rules(Text line) const {
        for (const auto& [find, replace] : m_Table.rules) {
            line = ReplaceEach(line, find, replace);
            if (line.size() > m_LengthLimit) throw GaveUp();
        }
        return line;
    }

    Text All(Text line) const {
        line = MoveEach(line, m_Table.reph, u"\u09B0\u09CD",
                        [&](const Text& text, long pos) { return RephTarget(text, pos, m_Table.yaPhala); });
        line = MoveEach(line, u"\u0981", u"\u0981", [&](const Text& text, long pos) {
            return ChandrabinduTarget(text, pos, m_Table.yaPhala);
        });
        line = YaPhala(line);
        line = ReplaceEach(line, u"\u0985\u09BE", u"\u0986");
        for (const Text sign : {u"\u09C7", u"\u09BF", u"\u09C8"})
            line = MoveEach(line, sign, sign, PreBaseKarTarget);
        line = ReplaceEach(line, u"\u09C7\u09BE", u"\u09CB");
        return ReplaceEach(line, u"\u09C7\u09D7", u"\u09CC");
    }

private:
    template <class Target>
    Text MoveEach(Text line, const Text& cut, const Text& insert, Target target) const {
        std::size_t steps = 0;
        for (long p = 1;;) {
            const long f = Find(p, line, cut);
            if (p > static_cast<long>(line.size()) || f == 0) return line;
            const long t = target(line, f);
            line = Move(line, f, t, cut, insert);
            p = t + 1;
            if (++steps > m_StepLimit || line.size() > m_LengthLimit) throw GaveUp();
        }
    }

    Text YaPhala(Text line) const {
        const Text& marker = m_Table.yaPhala;
        for (std::size_t steps = 0;; ++steps) {
            if (steps > m_StepLimit || line.size() > m_LengthLimit) throw GaveUp();
            const long f = Find(1, line, marker);
            if (f == 0) return line;
            const Text b = f > 1 ? Mid(line, f - 1, 1) : Text();
            const bool bareRa = b == u"\u09B0" && (f - 2 < 1 || Mid(line, f - 2, 1) != u"\u09CD");
            if (b == u"\u09C3" || b == u"\u09C2" || b == u"\u09C1") {
                line = Left(line, f - 2) + marker + b + From(line, f + 1);
            } else {
                line = Left(line, f - 1) + (bareRa ? u"\u200C\u09CD\u09AF" : u"\u09CD\u09AF") +
                       From(line, f + static_cast<long>(marker.size()));
            }
        }
    }

    const Table& m_Table;
    std::size_t m_StepLimit;
    std::size_t m_LengthLimit;
};

} // namespace

std::u16string Table::Payload() const {
    Text payload = reph + u"\r\n" + yaPhala;
    for (const auto& [find, replace] : rules) payload += u"\r\n" + find + u"\t" + replace;
    return payload;
}

std::u16string ApplyRules(const Table& table, std::u16string_view line) {
    return Passes(table, 0, Text::npos).Rules(Text(line));
}

Outcome Convert(const Table& table, std::u16string_view line, bool* gaveUp, std::size_t stepLimit,
                std::size_t lengthLimit) {
    if (gaveUp != nullptr) *gaveUp = false;
    try {
        const Passes passes(table, stepLimit, lengthLimit);
        return {0, passes.All(passes.Rules(Text(line)))};
    } catch (const Failure& failure) {
        return {failure.number, {}};
    } catch (const GaveUp&) {
        if (gaveUp != nullptr) *gaveUp = true;
        return {};
    }
}

} // namespace reference
