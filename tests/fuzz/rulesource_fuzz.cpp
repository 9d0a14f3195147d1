// Properties: any text is a table or has mistakes in lines that it has; a table that can be
// built goes through its plug-in and its shown form unchanged; so does a plain form.
//
// Input: the text of a source.

#include "RuleTables.h"
#include "base/RuntimeFailure.h"
#include "base/Text.h"
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
