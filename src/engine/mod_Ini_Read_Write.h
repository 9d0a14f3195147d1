// Reads Plugin.INI, the profile file that names the font table and the default font of each
// plug-in.
#pragma once

#include <string>
#include <string_view>

namespace mod_Ini_Read_Write {

// The value of key in section, at most 254 characters of the ANSI code page; empty where
// there is none, or no file. An empty file stands for Plugin.INI beside the program.
std::u16string ReadPluginIni(std::u16string_view section, std::u16string_view key, std::u16string_view file);

// The same by our own reader, from a file's bytes or from a file. It answers as the system's
// GetPrivateProfileStringA does, and also stands in for it where the system cannot be given
// the path.
std::u16string ValueOf(std::string_view bytes, std::u16string_view section, std::u16string_view key);
std::u16string ReadByOwn(std::u16string_view section, std::u16string_view key, std::u16string_view file);

// The side of the system: its own call on Windows, else ours.
std::u16string ReadBySystem(std::u16string_view section, std::u16string_view key, std::u16string_view file);

} // namespace mod_Ini_Read_Write
