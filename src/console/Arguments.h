// The arguments of one command: long options and operands.
#pragma once

#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// Exit codes of every command.
enum ExitCode : int {
    kExitDone = 0,
    kExitFailed = 1, // an item failed; the others were done
    kExitUsage = 2,  // the command line makes no sense; nothing was touched
    kExitFatal = 3,  // a plug-in, an input or an output that the whole command needs failed
};

struct OptionRule {
    std::u16string_view name; // without the two hyphens
    bool takesValue = false;
};

// Options may stand before, between and behind the operands, as `--name`, `--name value` or
// `--name=value`. `--` ends them; `-` alone is an operand. `--help` and `-h` belong to every
// command. An option given twice, unknown, or without its value is a problem.
class Arguments {
public:
    // False where the arguments do not follow the rules; Problem() then says why.
    bool Read(const std::vector<std::u16string>& arguments, std::initializer_list<OptionRule> rules);

    const std::u16string& Problem() const { return m_Problem; }
    bool WantsHelp() const { return Has(u"help"); }
    bool Has(std::u16string_view name) const { return m_Options.find(name) != m_Options.end(); }
    // The value of an option, or fallback where it was not given.
    std::u16string Value(std::u16string_view name, std::u16string_view fallback = {}) const;
    const std::vector<std::u16string>& Operands() const { return m_Operands; }

private:
    bool Refuse(std::u16string problem);

    std::map<std::u16string, std::u16string, std::less<>> m_Options;
    std::vector<std::u16string> m_Operands;
    std::u16string m_Problem;
};
