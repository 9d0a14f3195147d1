// Tested by tests/cli/test_plugin.py and test_plugin_check.py.

#include "console/cmdPlugin.h"

#include "base/Files.h"
#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "console/Arguments.h"
#include "console/Help.h"
#include "console/Terminal.h"
#include "engine/PluginFile.h"
#include "engine/RuleCheck.h"
#include "engine/RuleSource.h"
#include "engine/RuleTable.h"

#include <algorithm>

namespace {

using rulesource::Message;
using rulesource::Table;
using Strings = std::vector<std::u16string>;

constexpr std::u16string_view kCommand = u"plugin";

int Fatal(std::u16string_view path, std::u16string_view problem) {
    terminal::PrintError(std::u16string(path) + u": " + std::u16string(problem));
    return kExitFatal;
}

// A file, or standard input for "-". False where it could not be read; that is said.
bool Read(std::u16string_view path, std::string& bytes) {
    std::u16string problem;
    if (path == u"-") {
        char room[65536];
        std::size_t got = 0;
        do {
            if (!terminal::ReadInput(room, sizeof room, got, problem)) break;
            bytes.append(room, got);
        } while (got > 0);
    } else if (const files::Result read = files::ReadAll(path, bytes); !read) {
        problem = read.text;
    }
    if (problem.empty()) return true;
    Fatal(path, problem);
    return false;
}

std::u16string Number(std::size_t value) {
    return text::Decimal(static_cast<long long>(value));
}

// As compilers write it, so that editors find the line.
std::u16string Report(std::u16string_view path, const std::vector<Message>& messages) {
    std::u16string all;
    for (const Message& message : messages) {
        all += path;
        all += u':';
        if (message.line) all += Number(message.line) + u":";
        all += message.error ? u" error: " : u" warning: ";
        all += message.text + u"\n";
    }
    return all;
}

bool AnyError(const std::vector<Message>& messages) {
    return std::any_of(messages.begin(), messages.end(),
                       [](const Message& message) { return message.error; });
}

void CheckMarkers(const Table& table, std::vector<Message>& messages) {
    std::u16string problem = rulesource::EndlessReph(table.reph.text);
    if (!problem.empty()) messages.push_back({table.reph.line, true, std::move(problem)});
    problem = rulesource::EndlessYaPhala(table.yaPhala.text);
    if (!problem.empty()) messages.push_back({table.yaPhala.line, true, std::move(problem)});
}

// The table of a payload. What LoadTable would raise becomes a message.
Table TableOf(std::u16string_view payload, std::vector<Message>& messages) {
    try {
        Table table = rulesource::ParsePayload(payload);
        CheckMarkers(table, messages);
        return table;
    } catch (const RuntimeFailure& failure) {
        messages.push_back({0, true, failure.Description()});
        return {};
    }
}

int Build(std::u16string_view source, std::u16string_view target, bool plain) {
    std::string bytes;
    if (!Read(source, bytes)) return kExitFatal;
    std::u16string payload;
    std::vector<Message> messages;
    if (plain) {
        std::u16string problem;
        if (!rulesource::PayloadFromPlain(bytes, payload, problem)) return Fatal(source, problem);
        TableOf(payload, messages);
    } else {
        const Table table = rulesource::Parse(bytes, messages);
        if (!AnyError(messages)) payload = rulesource::Payload(table, messages);
    }
    if (AnyError(messages)) {
        std::erase_if(messages, [](const Message& message) { return !message.error; });
        terminal::PrintErrorText(Report(source, messages));
        return kExitFailed;
    }
    const std::string made = plugin::MakeFile(payload);
    if (target == u"-") {
        terminal::WriteOutput(made);
        return kExitDone;
    }
    if (const files::Result written = files::WriteReplacing(target, made); !written)
        return Fatal(target, written.text);
    return kExitDone;
}

int Show(std::u16string_view path, bool plain) {
    std::string bytes;
    if (!Read(path, bytes)) return kExitFatal;
    std::u16string payload;
    Table table;
    try {
        payload = plugin::OpenPayload(std::move(bytes));
        table = rulesource::ParsePayload(payload);
    } catch (const RuntimeFailure& failure) {
        return Fatal(path, u"no plug-in, or damaged: " + terminal::FailureText(failure));
    }
    if (plain) {
        std::string text;
        std::u16string problem;
        if (!rulesource::PlainFromPayload(payload, text, problem)) return Fatal(path, problem);
        terminal::WriteOutput(text);
    } else {
        terminal::Print(rulesource::Show(table));
    }
    return kExitDone;
}

int Check(std::u16string_view path) {
    std::string bytes;
    if (!Read(path, bytes)) return kExitFatal;
    std::vector<Message> messages;
    Table table;
    if (text::LowerAscii(path).ends_with(u".dll")) {
        try {
            table = TableOf(plugin::OpenPayload(std::move(bytes)), messages);
        } catch (const RuntimeFailure& failure) {
            messages.push_back({0, true, u"no plug-in, or damaged: " + terminal::FailureText(failure)});
        }
    } else {
        table = rulesource::Parse(bytes, messages);
        if (!AnyError(messages)) rulesource::Payload(table, messages);
    }
    const bool errors = AnyError(messages);
    rulecheck::Check(table, messages);
    std::stable_sort(messages.begin(), messages.end(),
                     [](const Message& a, const Message& b) { return a.line < b.line; });

    const auto count = [&](bool error) {
        return static_cast<std::size_t>(
            std::count_if(messages.begin(), messages.end(),
                          [&](const Message& message) { return message.error == error; }));
    };
    terminal::Print(Report(path, messages));
    terminal::Print(std::u16string(path) + u": " + Number(table.rules.size()) + u" rules, " +
                    Number(count(true)) + u" errors, " + Number(count(false)) + u" warnings\n");
    return errors || table.rules.size() > RuleTable::kMostRules ? kExitFailed : kExitDone;
}

int Usage(std::u16string_view problem) {
    return terminal::UsageError(kCommand, problem);
}

} // namespace

int RunPlugin(const std::vector<std::u16string>& given) {
    Arguments arguments;
    if (!arguments.Read(given, {{u"plain", false}})) return Usage(arguments.Problem());
    if (arguments.WantsHelp()) {
        terminal::Print(help::Text(kCommand));
        return kExitDone;
    }
    const Strings& operands = arguments.Operands();
    const bool plain = arguments.Has(u"plain");
    if (operands.empty()) return Usage(u"say what to do: build, show or check");
    const std::u16string& what = operands[0];
    if (what == u"build") {
        if (operands.size() != 3) return Usage(u"build takes two files: the rules and the plug-in to write");
        if (operands[2] != u"-" && files::SameFile(operands[1], operands[2]))
            return Usage(u"the plug-in would replace its own rules");
        return Build(operands[1], operands[2], plain);
    }
    if (what == u"show") {
        if (operands.size() != 2) return Usage(u"show takes one file, a plug-in");
        return Show(operands[1], plain);
    }
    if (what == u"check") {
        if (operands.size() != 2) return Usage(u"check takes one file, a plug-in or a text of rules");
        if (plain) return Usage(u"--plain belongs to build and show");
        return Check(operands[1]);
    }
    return Usage(u"unknown command '" + what + u"'; there are build, show and check");
}
