#include "engine/PluginPath.h"

#include "base/Files.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

TEST(PluginPath, FolderAndFileAreFoundWithoutRegardToCase) {
    TempFolder folder;
    std::filesystem::create_directory(folder.Path(u"Conversion plugins"));
    folder.Put(u"Conversion plugins/Bijoy.DLL", "");
    const std::u16string plugins = folder / u"Conversion plugins";
    EXPECT_EQ(files::Join(plugins, u"Bijoy.DLL"), PluginPath(folder.Name(), u"BIJOY"));
    EXPECT_EQ(files::Join(plugins, u"Alpona.dll"), PluginPath(folder.Name(), u"Alpona"));
}

TEST(PluginPath, WhereThereIsNoneItIsWhereItOughtToBe) {
    TempFolder folder;
    EXPECT_EQ(files::Join(folder / u"conversion Plugins", u"BIJOY.dll"), PluginPath(folder.Name(), u"BIJOY"));
}

} // namespace
