#include "engine/PluginPath.h"

#include "base/Application.h"
#include "base/Files.h"

namespace {

std::u16string Entry(const std::u16string& folder, std::u16string_view name) {
    const std::u16string found = files::FindNoCase(folder, name);
    return files::Join(folder, found.empty() ? name : std::u16string_view(found));
}

} // namespace

std::u16string PluginPath(std::u16string_view programFolder, std::u16string_view name) {
    return Entry(Entry(std::u16string(programFolder), u"conversion Plugins"), std::u16string(name) + u".dll");
}

std::u16string MissingPluginText() {
    std::u16string text = u"Error loading converter plug-in.\r\n"
                          u"Make sure you have selected an appropriate Bangla script system to convert.\r\n"
                          u"\r\n"
                          u"For more help, please contact Pelnitro support forum:\r\n";
    return text += kSupportForum;
}
