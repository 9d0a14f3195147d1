// Properties: any text is a table or has mistakes in lines that it has; a table that can be
// built goes through its plug-in and its shown form unchanged; so does a plain form.
//
// Input: the text of a source.

#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "engine/RuleCheck.h"
#include "engine/RuleSource.h"
#include "engine/clsConvert.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using rulesource::Message;
using rulesource::Table;

void Require(bool holds) {
    if (!holds) std::abort();
}

bool AnyError(const std::vector<Message>& messages) {
    return std::any_of(messages.begin(), messages.end(),
                       [](const Message& message) { return message.error; });
}

bool Same(const Table& a, const Table& b) {
    return a.reph.text == b.reph.text && a.yaPhala.text == b.yaPhala.text &&
           std::equal(a.rules.begin(), a.rules.end(), b.rules.begin(), b.rules.end(),
                      [](const Table::Rule& x, const Table::Rule& y) {
                          return x.find == y.find && x.replace == y.replace;
                      });
}

void TrySource(std::string_view bytes) {
    std::vector<Message> messages;
    const Table table = rulesource::Parse(bytes, messages);
    const auto lines = static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n')) + 1;
    std::size_t last = 0;
    for (const Message& message : messages) {
        Require(message.line <= lines && message.line >= last && !message.text.empty());
        last = message.line;
    }
    rulecheck::Check(table, messages);
    if (AnyError(messages)) return;

    std::vector<Message> again;
    Require(Same(rulesource::Parse(text::ToUtf8(rulesource::Show(table)), again), table));
    Require(!AnyError(again));

    again.clear();
    const std::u16string payload = rulesource::Payload(table, again);
    Require(payload.empty() == AnyError(again));
    if (payload.empty()) return;
    Require(Same(rulesource::ParsePayload(payload), table));
    clsConvert converter;
    converter.LoadText(payload);
}

void TryPlain(std::string_view bytes) {
    std::u16string payload, problem;
    if (!rulesource::PayloadFromPlain(bytes, payload, problem)) {
        Require(!problem.empty());
        return;
    }
    std::string back;
    Require(rulesource::PlainFromPayload(payload, back, problem));
    Require(back == bytes);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    TrySource(bytes);
    TryPlain(bytes);
    return 0;
}
