// Tested by tests/cli/test_program.py.

#include "console/Zorvak.h"

#include "base/RuntimeFailure.h"
#include "console/Arguments.h"
#include "console/Help.h"
#include "console/Terminal.h"
#include "console/cmdConvert.h"
#include "console/cmdList.h"
#include "console/cmdPlugin.h"
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

int RunProgramHelp(const Strings&) {
    return RunHelp({});
}

int RunVersion(const Strings&) {
    const std::string_view version = ZC_VERSION;
    terminal::Print(u"zorvak " + std::u16string(version.begin(), version.end()) + u"\n");
    return kExitDone;
}

struct Command {
    std::u16string_view name;
    int (*run)(const Strings& arguments);
    // What is printed is all that the command is for; where false, it reports on files made.
    bool outputIsTheWork = true;
};

constexpr Command kCommands[] = {
    {u"convert", RunConvert, false}, {u"text", RunText},      {u"list", RunList},
    {u"plugin", RunPlugin},          {u"help", RunHelp},      {u"--help", RunProgramHelp},
    {u"-h", RunProgramHelp},         {u"/?", RunProgramHelp}, {u"--version", RunVersion},
};

int Run(const Command& command, const Strings& arguments) {
    int code;
    try {
        code = command.run(arguments);
    } catch (const RuntimeFailure& failure) {
        terminal::PrintError(terminal::FailureText(failure));
        code = kExitFatal;
    } catch (const std::bad_alloc&) {
        terminal::PrintError(u"out of memory");
        code = kExitFatal;
    }
    terminal::ClearProgress();
    if (!terminal::OutputLost()) return code;
    if (terminal::OutputClosed()) return code == kExitDone && command.outputIsTheWork ? kExitFatal : code;
    terminal::PrintError(u"standard output: " + terminal::OutputFailure());
    if (code != kExitDone) return code;
    return command.outputIsTheWork ? kExitFatal : kExitFailed;
}

} // namespace

int RunZorvak(const std::vector<std::u16string>& arguments) {
    if (arguments.empty()) {
        terminal::PrintErrorText(help::ShortUsage());
        return kExitUsage;
    }
    const std::u16string& name = arguments[0];
    for (const Command& command : kCommands)
        if (command.name == name) return Run(command, Strings(arguments.begin() + 1, arguments.end()));
    const bool isOption = name.substr(0, 1) == u"-";
    return terminal::UsageError(u"", (isOption ? u"unknown option '" : u"unknown command '") + name + u"'");
}
