// Properties: a plug-in file of any bytes is a table or one of the named failures; a table
// goes there and back through the file, the source and the plain form unchanged.
//
// Input: a byte that says what follows (even: a file; odd: the text of a plug-in as UTF-16,
// with LF standing for CR LF where bit 1 is set), then that.

#include "RuleTables.h"
#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "engine/Engine.h"
#include "engine/PluginFile.h"
#include "engine/RuleCheck.h"
#include "engine/clsConvert.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using rulesource::Message;
using rulesource::Table;

// Takes a failure that LoadTable may raise; any other is a fault of ours.
template <class Call>
int NumberOf(Call call) {
    try {
        call();
    } catch (const RuntimeFailure& failure) {
        return failure.Number();
    }
    return 0;
}

void TryTable(const std::u16string& payload) {
    clsConvert converter;
    const int loaded = NumberOf([&] { converter.LoadText(payload); });
    Require(loaded == 0 || loaded == kSubscriptOutOfRange);
    Table table;
    Require(NumberOf([&] { table = rulesource::ParsePayload(payload); }) == loaded);
    if (loaded != 0) return;

    // A table that explodes makes hundreds of millions of units before it fails; a lower limit
    // leaves the way there the same.
    EngineLimits limits;
    limits.LongestLine = std::size_t{1} << 20;
    Engine engine(limits);
    engine.Load(payload);
    const int converted = NumberOf([&] {
        UnitBuffer output;
        engine.CheckTable();
        engine.Convert(std::u16string_view(u"k\u0995\u09BE\uE001\uE002x"), output);
    });
    Require(converted == 0 || converted == kInvalidCall || converted == kOverflow ||
            converted == kOutOfStringSpace);

    std::vector<Message> messages;
    rulecheck::Check(table, messages);
    for (const Message& message : messages) Require(!message.error && message.line <= table.rules.size() + 2);

    messages.clear();
    Require(Same(rulesource::Parse(text::ToUtf8(rulesource::Show(table)), messages), table));
    Require(!AnyError(messages));

    std::string plain;
    std::u16string problem, back;
    if (rulesource::PlainFromPayload(payload, plain, problem)) {
        Require(rulesource::PayloadFromPlain(plain, back, problem));
        Require(back == payload);
    }
}

void TryFile(const std::string& bytes) {
    std::u16string payload;
    const int opened = NumberOf([&] { payload = plugin::OpenPayload(bytes); });
    const std::size_t tail = bytes.empty() ? 1 : 1 + static_cast<unsigned char>(bytes.back());
    Require(opened == (tail < bytes.size() ? 0 : kSubscriptOutOfRange));
    if (opened != 0) return;
    Require(payload.size() == (bytes.size() - tail + 1) / 2 - 1);
    TryTable(payload);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    if (data[0] % 2 == 0) {
        TryFile(bytes);
        return 0;
    }
    std::u16string payload = text::FromUtf16Le(bytes);
    if (data[0] & 2) payload = text::ReplaceAll(payload, u"\n", u"\r\n");
    const std::string made = plugin::MakeFile(payload);
    Require(made.size() == 2 + payload.size() * 2 + 12 + 1);
    Require(plugin::OpenPayload(made) == payload);
    TryTable(payload);
    return 0;
}
