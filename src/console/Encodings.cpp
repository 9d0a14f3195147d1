// Tested by tests/cli.

#include "console/Encodings.h"

#include "base/Files.h"
#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "console/Terminal.h"
#include "engine/PluginPath.h"
#include "engine/mod_Ini_Read_Write.h"

namespace encodings {
namespace {

// Plugin.INI tells of plug-ins that ought to be there: a lost file is no unknown name.
bool IsDescribed(std::u16string_view name) {
    return text::EqualNoCase(name, kDefault) ||
           !mod_Ini_Read_Write::ReadPluginIni(name, u"Table", {}).empty();
}

int UnknownName(std::u16string_view command, std::u16string_view name) {
    std::u16string problem = u"unknown encoding '" + std::u16string(name) + u"'; ";
    const std::vector<std::u16string> installed = Installed();
    problem += installed.empty() ? u"none is installed" : u"the installed ones are";
    for (std::size_t i = 0; i < installed.size(); ++i) problem += (i == 0 ? u" " : u", ") + installed[i];
    return terminal::UsageError(command, problem);
}

int Choose(const Arguments& arguments, std::u16string_view command, Choice& choice) {
    if (arguments.Has(u"plugin")) {
        if (arguments.Has(u"from"))
            return terminal::UsageError(command, u"--from and --plugin exclude each other");
        choice = {u"", files::AbsolutePath(arguments.Value(u"plugin"))};
        return kExitDone;
    }
    const std::u16string asked = arguments.Value(u"from", kDefault);
    for (const std::u16string& name : Installed())
        if (text::EqualNoCase(name, asked) && (choice.name.empty() || name == asked)) choice.name = name;
    if (choice.name.empty() && !IsDescribed(asked)) return UnknownName(command, asked);
    if (choice.name.empty()) choice.name = asked;
    choice.path = PluginPath(files::ProgramFolder(), choice.name);
    return kExitDone;
}

} // namespace

std::u16string PluginFolder() {
    return files::ParentFolder(PluginPath(files::ProgramFolder(), {}));
}

std::vector<std::u16string> Installed() {
    std::vector<std::u16string> names, files;
    files::ListFiles(PluginFolder(), files);
    for (const std::u16string& file : files)
        if (file.size() > 4 && text::EqualNoCase(std::u16string_view(file).substr(file.size() - 3), u"dll"))
            names.push_back(file.substr(0, file.size() - 4));
    return names;
}

int LoadChosen(const Arguments& arguments, std::u16string_view command, clsConvert& converter,
               Choice& choice) {
    if (const int code = Choose(arguments, command, choice); code != kExitDone) return code;
    if (!files::FileExists(choice.path)) {
        terminal::PrintError(u"the plug-in " + choice.path + u" is missing");
        return kExitFatal;
    }
    try {
        converter.LoadTable(choice.path);
        // A table that no line can be converted with is as good as damaged.
        converter.Convert(u"");
    } catch (const RuntimeFailure& failure) {
        terminal::PrintError(u"the plug-in " + choice.path + u" is damaged: " +
                             terminal::FailureText(failure));
        return kExitFatal;
    }
    return kExitDone;
}

} // namespace encodings
