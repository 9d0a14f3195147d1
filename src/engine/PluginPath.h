// Where the plug-in of an encoding stands.
#pragma once

#include <string>
#include <string_view>

// The plug-in of this name in the folder "conversion Plugins" of programFolder, folder and
// file found without regard to case; where there is none, the path where it ought to be.
std::u16string PluginPath(std::u16string_view programFolder, std::u16string_view name);

// What every conversion says, with the stop icon and the application's title, where the
// plug-in is missing.
std::u16string MissingPluginText();
