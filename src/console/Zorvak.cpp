// Tested by tests/unit/console/zorvak_test.cpp and tests/cli.

#include "console/Zorvak.h"

#include "base/RuntimeFailure.h"
#include "console/Arguments.h"
#include "console/Help.h"
#include "console/Terminal.h"
#include "console/cmdText.h"

#include <new>

namespace {

using Strings = std::vector<std::u16string>;

int RunHelp(const Strings& given) {
    Arguments arguments;
    if (!arguments.Read(given, {})) return terminal::UsageError(u"help", arguments.Problem());
    const Strings& operands = arguments.Operands();
    if (operands.size() > 1) return terminal::UsageError(u"help", u"help takes one command");
    const std::u16string command = arguments.WantsHelp() ? u"help" : operands.empty() ? u"" : operands[0];
    const std::u16string_view text = help::Text(command);
    if (text.empty()) return terminal::UsageError(u"", u"unknown command '" + command + u"'");
    terminal::Print(text);
    return kExitDone;
}

struct Command {
    std::u16string_view name;
    int (*run)(const Strings& arguments);
};

constexpr Command kCommands[] = {
    {u"help", RunHelp},
    {u"text", RunText},
};

int Run(const Strings& given) {
    if (given.empty()) {
        terminal::PrintErrorText(help::ShortUsage());
        return kExitUsage;
    }
    const std::u16string& name = given[0];
    const Strings rest(given.begin() + 1, given.end());
    if (name == u"--version") {
        const std::string_view version = ZC_VERSION;
        terminal::Print(u"zorvak " + std::u16string(version.begin(), version.end()) + u"\n");
        return kExitDone;
    }
    if (name == u"--help" || name == u"-h") return RunHelp({});
    for (const Command& command : kCommands)
        if (command.name == name) return command.run(rest);
    return terminal::UsageError(u"", (name.substr(0, 1) == u"-" ? u"unknown option " : u"unknown command ") +
                                         name);
}

} // namespace

int RunZorvak(const std::vector<std::u16string>& arguments) {
    int code;
    try {
        code = Run(arguments);
    } catch (const RuntimeFailure& failure) {
        terminal::PrintError(terminal::FailureText(failure));
        code = kExitFatal;
    } catch (const std::bad_alloc&) {
        terminal::PrintError(u"out of memory");
        code = kExitFatal;
    }
    terminal::ClearProgress();
    if (!terminal::OutputLost()) return code;
    if (!terminal::OutputClosed()) terminal::PrintError(u"standard output: " + terminal::OutputFailure());
    return code == kExitDone ? kExitFatal : code;
}
