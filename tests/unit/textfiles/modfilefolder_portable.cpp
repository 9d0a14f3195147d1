// What concerns names off Windows, and what Wine lacks or would take too long for.

#include "textfiles/modFileFolder.h"

#include "base/Files.h"
#include "support/Failure.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

// 32,768 files in one folder: Wine would take minutes.
TEST(MakeOutputName, TheNumberIsSixteenBitsWide) {
    TempFolder folder;
    folder.Put(u"a-.txt", "");
    for (int n = 1; n < 32767; ++n) std::ofstream(folder.Path() / ("a- - " + std::to_string(n) + ".txt"));
    EXPECT_EQ(folder / u"a- - 32767.txt", modFileFolder::MakeOutputName(folder / u"a.txt", u"-", u""));
    EXPECT_EQ(folder / u"a- - 32767.txt", modFileFolder::MakeUniqueName(u"a-.txt", folder.Name()));
    folder.Put(u"a- - 32767.txt", "");
    EXPECT_EQ(6, FailureNumber([&] { modFileFolder::MakeOutputName(folder / u"a.txt", u"-", u""); }));
    EXPECT_EQ(6, FailureNumber([&] { modFileFolder::MakeUniqueName(u"a-.txt", folder.Name()); }));
}

TEST(MakeOutputName, ABackslashIsAnOrdinaryCharacterOfAName) {
    TempFolder folder;
    EXPECT_EQ(folder / u"a\\b- Unicode.txt",
              modFileFolder::MakeOutputName(folder / u"a\\b.txt", u"- Unicode", u""));
}

// Wine keeps no read-only mark on folders.
TEST(CopyFileTo, TakesTheReadOnlyMarkOffTheTargetsFolder) {
    TempFolder folder;
    const std::u16string source = folder.Put(u"a.txt", "new");
    const std::u16string target = folder / u"d";
    ASSERT_TRUE(files::CreateFolder(target));
    ASSERT_TRUE(files::SetReadOnly(target, true));
    bool readOnly = false;
    ASSERT_TRUE(files::IsReadOnly(target, readOnly));
    ASSERT_TRUE(readOnly);
    EXPECT_TRUE(modFileFolder::CopyFileTo(source, target + u"/b.txt"));
    ASSERT_TRUE(files::IsReadOnly(target, readOnly));
    EXPECT_FALSE(readOnly);
    EXPECT_EQ("new", folder.Get(u"d/b.txt"));
}

TEST(FileFolder, OpenDocumentDoesNothing) {
    modFileFolder::OpenDocument(nullptr, u"/no such file.htm", u"");
}

} // namespace
