// Tested by tests/unit/console/arguments_test.cpp.

#include "console/Arguments.h"

#include <algorithm>

bool Arguments::Refuse(std::u16string problem) {
    m_Problem = std::move(problem);
    return false;
}

bool Arguments::Read(const std::vector<std::u16string>& arguments, std::initializer_list<OptionRule> rules) {
    bool optionsEnded = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::u16string& argument = arguments[i];
        if (optionsEnded || argument.size() < 2 || argument[0] != u'-') {
            m_Operands.push_back(argument);
            continue;
        }
        if (argument == u"--") {
            optionsEnded = true;
            continue;
        }
        if (argument == u"-h" || argument == u"--help") {
            m_Options[u"help"];
            continue;
        }
        const std::size_t equals = argument.find(u'=');
        const std::u16string shown = argument.substr(0, equals);
        const auto rule = std::find_if(rules.begin(), rules.end(), [&](const OptionRule& known) {
            return shown.substr(0, 2) == u"--" && shown.substr(2) == known.name;
        });
        if (rule == rules.end()) return Refuse(u"unknown option " + shown);
        const std::u16string name(rule->name);
        if (Has(name)) return Refuse(u"option " + shown + u" is given twice");
        std::u16string value;
        if (equals != argument.npos) {
            if (!rule->takesValue) return Refuse(u"option " + shown + u" takes no value");
            value = argument.substr(equals + 1);
        } else if (rule->takesValue) {
            if (i + 1 == arguments.size()) return Refuse(u"option " + shown + u" needs a value");
            value = arguments[++i];
        }
        m_Options[name] = std::move(value);
    }
    return true;
}

std::u16string Arguments::Value(std::u16string_view name, std::u16string_view fallback) const {
    const auto found = m_Options.find(name);
    return found == m_Options.end() ? std::u16string(fallback) : found->second;
}
