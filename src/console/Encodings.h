// The conversion plug-ins beside the program, and the choice that --from and --plugin make
// among them.
#pragma once

#include "console/Arguments.h"
#include "engine/clsConvert.h"

#include <string>
#include <string_view>
#include <vector>

namespace encodings {

inline constexpr std::u16string_view kDefault = u"Bijoy";

// "conversion Plugins" beside the program, in the spelling that it has there.
std::u16string PluginFolder();
// Names of the plug-ins in that folder, in name order: the files whose names end in "dll" in any case, less
// the last four characters.
std::vector<std::u16string> Installed();
// The plug-in that the options `from` and `plugin` choose, by default kDefault.
struct Choice {
    std::u16string name; // as it is installed; empty where `plugin` names the file
    std::u16string path;
};

// Sets choice and loads the plug-in. Says what is wrong on standard error and returns
// kExitUsage for an unknown name or both options at once, kExitFatal for a plug-in that is
// missing, damaged or cannot convert; else kExitDone.
int LoadChosen(const Arguments& arguments, std::u16string_view command, clsConvert& converter,
               Choice& choice);

} // namespace encodings
