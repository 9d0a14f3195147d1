// Cuts a block into lines and writes what becomes of them. UTF-16 is written where it stays;
// for UTF-8 a line is converted to units first.
//
// Tested by tests/unit/engine/ConvertLines_test.cpp.

#include "engine/Blocks.h"

#include "base/Text.h"
#include "engine/Engine.h"
#include "engine/WorkCounter.h"

#include <cstring>

namespace {

std::u16string Widen(std::string_view cp1252) {
    return text::FromCp1252(cp1252);
}
std::u16string Widen(std::u16string_view units) {
    return std::u16string(units);
}

// Lone surrogates become U+FFFD.
void AppendUtf8(std::u16string_view units, OutputBuffer& output) {
    CountWork(units.size());
    char* out = output.Room(units.size() * 3);
    char* const begin = out;
    const char16_t* unit = units.data();
    const char16_t* const end = unit + units.size();
    while (unit < end) {
        unsigned point = *unit++;
        if (point < 0x80) {
            *out++ = static_cast<char>(point);
            continue;
        }
        if (point < 0x800) {
            *out++ = static_cast<char>(0xC0 | point >> 6);
            *out++ = static_cast<char>(0x80 | (point & 0x3F));
            continue;
        }
        if ((point & 0xF800) == 0xD800) {
            if (point < 0xDC00 && unit < end && (*unit & 0xFC00) == 0xDC00) {
                point = 0x10000 + ((point & 0x3FF) << 10 | (*unit++ & 0x3FFu));
                *out++ = static_cast<char>(0xF0 | point >> 18);
                *out++ = static_cast<char>(0x80 | (point >> 12 & 0x3F));
                *out++ = static_cast<char>(0x80 | (point >> 6 & 0x3F));
                *out++ = static_cast<char>(0x80 | (point & 0x3F));
                continue;
            }
            point = 0xFFFD;
        }
        *out++ = static_cast<char>(0xE0 | point >> 12);
        *out++ = static_cast<char>(0x80 | (point >> 6 & 0x3F));
        *out++ = static_cast<char>(0x80 | (point & 0x3F));
    }
    output.Add(static_cast<std::size_t>(out - begin));
}

// Lends the room of the output to the units, and gives it back whatever happens.
class Loan {
public:
    Loan(OutputBuffer& output, UnitBuffer& units) : m_Output(output), m_Units(units) {
        m_Units.Adopt(m_Output);
    }
    ~Loan() { m_Output.Adopt(m_Units); }
    Loan(const Loan&) = delete;
    Loan& operator=(const Loan&) = delete;

private:
    OutputBuffer& m_Output;
    UnitBuffer& m_Units;
};

// Length of the line that text begins with, without its line end; end is the length of that.
template <class Unit>
std::size_t CutLine(std::basic_string_view<Unit> text, LineEnd cut, std::size_t& end) {
    for (std::size_t at = 0; (at = text.find(Unit{'\n'}, at)) != text.npos; ++at) {
        const bool behindCr = at > 0 && text[at - 1] == Unit{'\r'};
        if (cut == LineEnd::CrLf && !behindCr) continue;
        end = behindCr ? 2 : 1;
        CountWork(at + 1);
        return at + 1 - end;
    }
    end = 0;
    CountWork(text.size());
    return text.size();
}

// Appends the lines as units; each one is also told to done, with its length in units.
template <class Unit, class Done>
std::size_t ConvertToUnits(Engine& engine, std::basic_string_view<Unit> block, LineEnd cut, UnitBuffer& units,
                           const OnLineFailure& onFailure, Done done) {
    std::size_t start = 0;
    for (std::size_t line = 1; start < block.size(); ++line) {
        std::size_t end;
        const std::size_t length = CutLine(block.substr(start), cut, end);
        const std::size_t before = units.Size();
        try {
            engine.Convert(block.substr(start, length), units);
        } catch (const RuntimeFailure& failure) {
            const std::u16string legacy = Widen(block.substr(start, length));
            if (!onFailure({line, legacy, failure})) return start;
            units.SetSize(before);
            units.Append(legacy);
        }
        start += length;
        char16_t* const out = units.Room(2);
        for (std::size_t i = 0; i < end; ++i) out[i] = static_cast<char16_t>(block[start++]);
        units.Add(end);
        done();
    }
    return start;
}

} // namespace

void AppendUnits(std::u16string_view units, OutputEncoding encoding, OutputBuffer& output) {
    if (encoding == OutputEncoding::Utf8) return AppendUtf8(units, output);
    output.Append({reinterpret_cast<const char*>(units.data()), units.size() * sizeof(char16_t)});
}

namespace {

template <class Unit>
std::size_t ConvertByLine(Engine& engine, std::basic_string_view<Unit> block, LineEnd cut,
                          OutputEncoding encoding, OutputBuffer& output, const OnLineFailure& onFailure) {
    UnitBuffer units;
    if (encoding == OutputEncoding::Utf8) {
        return ConvertToUnits(engine, block, cut, units, onFailure, [&] {
            AppendUtf8(units.View(), output);
            units.Clear();
        });
    }
    if (output.Size() % sizeof(char16_t) == 0) {
        const Loan loan(output, units);
        return ConvertToUnits(engine, block, cut, units, onFailure, [] {});
    }
    return ConvertToUnits(engine, block, cut, units, onFailure, [&] {
        output.Append({reinterpret_cast<const char*>(units.Data()), units.Size() * sizeof(char16_t)});
        units.Clear();
    });
}

// A few lines more or less change nothing, so a text is cut into pieces that stay in the cache.
constexpr std::size_t kPiece = 128 * 1024;

// The end of a piece of whole lines that begins at start.
std::size_t PieceEnd(std::string_view block, std::size_t start, LineEnd cut) {
    if (block.size() - start <= kPiece + kPiece / 4) return block.size();
    std::size_t lf = start + kPiece;
    do {
        lf = block.rfind('\n', lf - 1);
    } while (lf != block.npos && lf > start && cut == LineEnd::CrLf && block[lf - 1] != '\r');
    CountWork(start + kPiece - (lf == block.npos ? 0 : lf));
    if (lf != block.npos && lf > start) return lf + 1;
    // A long line.
    std::size_t end;
    const std::size_t length = CutLine(block.substr(start), cut, end);
    return start + length + end;
}

std::size_t CountLines(std::string_view block, LineEnd cut) {
    std::size_t count = 0;
    while (!block.empty()) {
        std::size_t end;
        const std::size_t length = CutLine(block, cut, end);
        block.remove_prefix(length + end);
        ++count;
    }
    return count;
}

} // namespace

template <>
std::size_t ConvertBlock(Engine& engine, std::string_view block, LineEnd cut, OutputEncoding encoding,
                         OutputBuffer& output, const OnLineFailure& onFailure) {
    engine.CheckTable();
    std::size_t start = 0;
    // Lines are counted only where one fails.
    std::size_t counted = 0, lines = 0;
    const OnLineFailure onFailureOfPiece = [&](const LineFailure& failure) {
        lines += CountLines(block.substr(counted, start - counted), cut);
        counted = start;
        return onFailure({lines + failure.Line, failure.Legacy, failure.Failure});
    };
    while (start < block.size()) {
        const std::string_view piece = block.substr(start, PieceEnd(block, start, cut) - start);
        if (!engine.ConvertLines(piece, cut, encoding, output)) {
            const std::size_t done = ConvertByLine(engine, piece, cut, encoding, output, onFailureOfPiece);
            if (done < piece.size()) return start + done;
        }
        start += piece.size();
    }
    return start;
}

template <>
std::size_t ConvertBlock(Engine& engine, std::u16string_view block, LineEnd cut, OutputEncoding encoding,
                         OutputBuffer& output, const OnLineFailure& onFailure) {
    engine.CheckTable();
    return ConvertByLine(engine, block, cut, encoding, output, onFailure);
}
