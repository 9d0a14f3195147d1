// Property: for any table and any lines the engine answers as the plain form does, failure for
// failure; line by line, a second time, and as a block.
//
// Input: options, then units of an alphabet that the passes read; 0xFE ends a field or line.

#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "engine/clsConvert.h"
#include "reference/PlainConvert.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

constexpr char16_t kAlphabet[] = {u'a',   u'b',   u'c',   u' ',   u',',   0x0096, 0x0152, 0x00A9,
                                  0x0995, 0x0995, 0x09B0, 0x09AF, 0x09CE, 0x09BE, 0x09C0, 0x09C1,
                                  0x09C2, 0x09D7, 0x09BF, 0x09C7, 0x09C8, 0x09CD, 0x0981, 0x0985,
                                  0x200C, 0xE001, 0xE002, 0xE010, 0x0000, 0xD800};
constexpr std::size_t kLetters = sizeof(kAlphabet) / sizeof(kAlphabet[0]);

struct Reader {
    const std::uint8_t* data;
    std::size_t size;
    std::size_t at = 0;

    bool Done() const { return at >= size; }
    std::uint8_t Byte() { return Done() ? 0 : data[at++]; }
    std::u16string Field(std::size_t most) {
        std::u16string field;
        while (!Done()) {
            const std::uint8_t byte = Byte();
            if (byte == 0xFE) break;
            if (field.size() < most) field += kAlphabet[byte % kLetters];
        }
        return field;
    }
};

reference::Outcome Fast(clsConvert& engine, std::u16string_view line) {
    try {
        return {0, engine.Convert(line)};
    } catch (const RuntimeFailure& failure) {
        return {failure.Number(), {}};
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size > 400) return 0;
    Reader in{data, size};
    const std::uint8_t options = in.Byte();
    reference::Table table;
    table.reph = u"\uE001";
    table.yaPhala = u"\uE002";
    if ((options & 7) == 7) table.reph = in.Field(4);
    if ((options & 56) == 56) table.yaPhala = in.Field(4);
    const int rules = in.Byte() % 13 + 1;
    for (int i = 0; i < rules; ++i) {
        std::u16string find = in.Field(5);
        table.rules.emplace_back(std::move(find), in.Field(3));
    }

    clsConvert engine;
    engine.LoadText(table.Payload());
    std::string block, expected;
    for (int lines = 0; lines < 6 && !in.Done(); ++lines) {
        const std::u16string line = in.Field(64);
        bool gaveUp = false;
        // Limits keep tables that double a line, or never end, from hanging the judge.
        const reference::Outcome plain = reference::Convert(table, line, &gaveUp, 2000, 4000);
        if (gaveUp) return 0;
        for (int time = 0; time < 2; ++time)
            if (!(Fast(engine, line) == plain)) std::abort();
        std::string bytes;
        if (plain.failure == 0 && line.find(u'\n') == line.npos && text::ToCp1252(line, bytes)) {
            block += bytes + "\r\n";
            expected += text::ToUtf16Le(plain.text + u"\r\n");
        }
    }
    for (int time = 0; time < 2; ++time) {
        OutputBuffer output;
        engine.ConvertLines(block, LineEnd::CrLf, OutputEncoding::Utf16, output,
                            [](const LineFailure&) -> bool { std::abort(); });
        if (output.View() != expected) std::abort();
    }
    return 0;
}
