#include "textfiles/modFileFolder.h"

#include "base/Files.h"
#include "support/Failure.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

using namespace modFileFolder;

namespace {

// A path in this system's form from one with '/'.
std::u16string Here(std::u16string path) {
    for (char16_t& unit : path)
        if (unit == u'/') unit = files::Separator();
    return path;
}

TEST(MakeOutputName, StandsBesideTheSourceWithTheSuffixAppendedAsItIs) {
    TempFolder folder;
    EXPECT_EQ(folder / u"Report- Unicode.txt", MakeOutputName(folder / u"Report.txt", u"- Unicode", u""));
    EXPECT_EQ(folder / u"Report.txt", MakeOutputName(folder / u"Report.txt", u"", u""));
}

TEST(MakeOutputName, ATargetFolderIsTakenUnchangedAndNotLookedAt) {
    TempFolder folder;
    const std::u16string target = Here(u"/no such folder");
    EXPECT_EQ(target + Here(u"/Report- Unicode.txt"),
              MakeOutputName(folder / u"Report.txt", u"- Unicode", target));
    // A separator at its end is not removed.
    EXPECT_EQ(target + Here(u"//Report- Unicode.txt"),
              MakeOutputName(folder / u"Report.txt", u"- Unicode", target + Here(u"/")));
    EXPECT_EQ(target + Here(u"/a-.txt"), MakeOutputName(u"a.txt", u"-", target));
}

TEST(MakeOutputName, OfTwoDotsTheFirstStaysInTheBaseName) {
    TempFolder folder;
    EXPECT_EQ(folder / u"a.b- Unicode.txt", MakeOutputName(folder / u"a.b.txt", u"- Unicode", u""));
}

TEST(MakeOutputName, ADotInAFolderNameConfusesNothing) {
    EXPECT_EQ(Here(u"/no.such/report- Unicode.TXT"),
              MakeOutputName(Here(u"/no.such/report.TXT"), u"- Unicode", u""));
}

TEST(MakeOutputName, ANameThatBeginsWithItsOnlyDotHasAnEmptyBaseName) {
    EXPECT_EQ(Here(u"/no/-x.txt"), MakeOutputName(Here(u"/no/.txt"), u"-x", u""));
    EXPECT_EQ(Here(u"/no/a-x."), MakeOutputName(Here(u"/no/a."), u"-x", u""));
}

TEST(MakeOutputName, CountsUntilTheNameIsFree) {
    TempFolder folder;
    folder.Put(u"a- Unicode.txt", "");
    EXPECT_EQ(folder / u"a- Unicode - 1.txt", MakeOutputName(folder / u"a.txt", u"- Unicode", u""));
    folder.Put(u"a- Unicode - 1.txt", "");
    EXPECT_EQ(folder / u"a- Unicode - 2.txt", MakeOutputName(folder / u"a.txt", u"- Unicode", u""));
    folder.Put(u"a- Unicode - 3.txt", "");
    EXPECT_EQ(folder / u"a- Unicode - 2.txt", MakeOutputName(folder / u"a.txt", u"- Unicode", u""));
}

TEST(MakeOutputName, ANameWithoutADotIsFailure5) {
    TempFolder folder;
    EXPECT_EQ(5, FailureNumber([&] { MakeOutputName(folder / u"report", u"- Unicode", u""); }));
    EXPECT_EQ(5, FailureNumber([&] { MakeOutputName(folder / u"report", u"- Unicode", folder.Name()); }));
    // The dot of a folder gives an extension, but no base name.
    EXPECT_EQ(5, FailureNumber([&] { MakeOutputName(Here(u"/no.such/report"), u"", u""); }));
    EXPECT_EQ(5, FailureNumber([&] { MakeOutputName(u"", u"", folder.Name()); }));
}

TEST(MakeOutputName, ASourceWithoutAFolderIsFailure5WhereOneIsNeeded) {
    EXPECT_EQ(5, FailureNumber([] { MakeOutputName(u"report.txt", u"", u""); }));
}

TEST(MakeUniqueName, GivesTheNameItselfOrTheFirstFreeNumber) {
    TempFolder folder;
    EXPECT_EQ(folder / u"a.b.txt", MakeUniqueName(u"a.b.txt", folder.Name()));
    folder.Put(u"a.b.txt", "");
    EXPECT_EQ(folder / u"a.b - 1.txt", MakeUniqueName(u"a.b.txt", folder.Name()));
    folder.Put(u"a.b - 1.txt", "");
    EXPECT_EQ(folder / u"a.b - 2.txt", MakeUniqueName(u"a.b.txt", folder.Name()));
}

TEST(MakeUniqueName, ANameWithoutADotIsFailure5) {
    TempFolder folder;
    EXPECT_EQ(5, FailureNumber([&] { MakeUniqueName(u"report", folder.Name()); }));
    EXPECT_EQ(5, FailureNumber([&] { MakeUniqueName(u"", folder.Name()); }));
}

TEST(FileFolder, GetAppPathIsTheProgramsFolder) {
    EXPECT_EQ(files::ProgramFolder(), GetAppPath());
    EXPECT_TRUE(FolderExists(GetAppPath()));
}

TEST(FileFolder, ExistenceTellsFilesFromFolders) {
    TempFolder folder;
    const std::u16string file = folder.Put(u"a.txt", "");
    EXPECT_TRUE(FileExists(file));
    EXPECT_FALSE(FolderExists(file));
    EXPECT_TRUE(FolderExists(folder.Name()));
    EXPECT_FALSE(FileExists(folder.Name()));
}

TEST(FileFolder, GetParentFolder) {
    EXPECT_EQ(Here(u"/x"), GetParentFolder(Here(u"/x/a.txt")));
    EXPECT_EQ(u"", GetParentFolder(u"a.txt"));
}

TEST(FileFolder, DeleteFileTakesReadOnlyFilesToo) {
    TempFolder folder;
    const std::u16string file = folder.Put(u"a.txt", "");
    ASSERT_TRUE(files::SetReadOnly(file, true));
    EXPECT_TRUE(DeleteFile(file));
    EXPECT_FALSE(FileExists(file));
}

TEST(FileFolder, DeleteFileIsFalseOnAnyFailure) {
    TempFolder folder;
    KeepLastFailure({});
    EXPECT_FALSE(DeleteFile(folder / u"no.txt"));
    EXPECT_FALSE(LastFailure().empty());
    EXPECT_FALSE(DeleteFile(folder.Name()));
}

TEST(CopyFileTo, CopiesAndReplaces) {
    TempFolder folder;
    const std::u16string source = folder.Put(u"a.txt", "new");
    EXPECT_TRUE(CopyFileTo(source, folder / u"b.txt"));
    EXPECT_EQ("new", folder.Get(u"b.txt"));
    folder.Put(u"b.txt", "something else");
    EXPECT_TRUE(CopyFileTo(source, folder / u"b.txt"));
    EXPECT_EQ("new", folder.Get(u"b.txt"));
}

TEST(CopyFileTo, MakesOneLevelOfFolders) {
    TempFolder folder;
    const std::u16string source = folder.Put(u"a.txt", "new");
    EXPECT_TRUE(CopyFileTo(source, files::Join(folder / u"one", u"b.txt")));
    EXPECT_EQ("new", folder.Get(Here(u"one/b.txt")));
    EXPECT_FALSE(CopyFileTo(source, files::Join(files::Join(folder / u"two", u"three"), u"b.txt")));
    EXPECT_FALSE(FolderExists(folder / u"two"));
}

TEST(CopyFileTo, IsFalseOnAnyFailure) {
    TempFolder folder;
    const std::u16string source = folder.Put(u"a.txt", "new");
    KeepLastFailure({});
    EXPECT_FALSE(CopyFileTo(folder / u"no.txt", folder / u"b.txt"));
    EXPECT_FALSE(LastFailure().empty());
    EXPECT_FALSE(CopyFileTo(source, source));
    EXPECT_FALSE(CopyFileTo(source, u""));
    const std::u16string target = folder.Put(u"b.txt", "old");
    ASSERT_TRUE(files::SetReadOnly(target, true));
    EXPECT_FALSE(CopyFileTo(source, target));
    EXPECT_EQ("old", folder.Get(u"b.txt"));
    ASSERT_TRUE(files::SetReadOnly(target, false));
}

TEST(FileFolder, GetSpecialFolderOfTheDocumentsAndOfAnUnknownNumber) {
    const std::u16string documents = GetSpecialFolder(5);
    if (files::Separator() == u'\\')
        EXPECT_TRUE(FolderExists(documents));
    else
        EXPECT_EQ(u"", documents);
    EXPECT_EQ(u"", GetSpecialFolder(0x7777));
}

TEST(SafeUBound, OfArrays) {
    EXPECT_EQ(-1, SafeUBound(std::vector<int>()));
    EXPECT_EQ(0, SafeUBound(std::vector<int>(1)));
    EXPECT_EQ(4, SafeUBound(std::vector<std::u16string>(5)));
}

} // namespace
