// The promises of the files seam, the same on both sides. What only one side can be made
// to feel stands in files_faults_portable.cpp and files_faults_win.cpp.

#include "base/Files.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace {

using Names = std::vector<std::u16string>;

const std::u16string_view kBangla = u"বাংলা লেখা.txt";

// A path in this system's form from one with '/'.
std::u16string Here(std::u16string path) {
    for (char16_t& unit : path)
        if (unit == u'/') unit = files::Separator();
    return path;
}

TEST(Paths, TheNameStandsBehindTheLastSeparator) {
    EXPECT_EQ(0u, files::NameStart(u"a.txt"));
    EXPECT_EQ(0u, files::NameStart(u""));
    EXPECT_EQ(3u, files::NameStart(Here(u"/x/a.txt")));
    EXPECT_EQ(3u, files::NameStart(Here(u"/x/")));
}

TEST(Paths, ParentFolder) {
    EXPECT_EQ(Here(u"/x"), files::ParentFolder(Here(u"/x/a.txt")));
    EXPECT_EQ(Here(u"/x"), files::ParentFolder(Here(u"/x/y/")));
    EXPECT_EQ(Here(u"/x"), files::ParentFolder(Here(u"/x//y")));
    EXPECT_EQ(Here(u"/"), files::ParentFolder(Here(u"/a.txt")));
    EXPECT_EQ(u"", files::ParentFolder(Here(u"/")));
    EXPECT_EQ(u"", files::ParentFolder(u"a.txt"));
    EXPECT_EQ(u"", files::ParentFolder(u""));
}

TEST(Paths, Join) {
    EXPECT_EQ(Here(u"/x/a"), files::Join(Here(u"/x"), u"a"));
    EXPECT_EQ(Here(u"/x/a"), files::Join(Here(u"/x/"), u"a"));
}

TEST(Paths, AbsolutePathKeepsOneThatIsAbsolute) {
    TempFolder folder;
    EXPECT_EQ(folder / u"a.txt", files::AbsolutePath(folder / u"a.txt"));
}

TEST(Paths, AbsolutePathStartsFromTheCurrentFolder) {
    const std::u16string here = std::filesystem::current_path().u16string();
    EXPECT_EQ(files::Join(here, u"a.txt"), files::AbsolutePath(u"a.txt"));
    EXPECT_EQ(files::Join(here, u"a.txt"), files::AbsolutePath(Here(u"./a.txt")));
    EXPECT_EQ(here, files::AbsolutePath(u"."));
}

TEST(Paths, BytesThatAreNoUtf8GoThereAndBack) {
    std::string bytes = "a\xE0\xA6\x95";
    for (int i = 0x80; i < 0x100; ++i) bytes += static_cast<char>(i);
    EXPECT_EQ(bytes, files::ToPathBytes(files::FromPathBytes(bytes)));
    EXPECT_EQ(u"x\xDCFF\xDC80", files::FromPathBytes("x\xFF\x80"));
    EXPECT_EQ("x\xFF\x80", files::ToPathBytes(u"x\xDCFF\xDC80"));
    // A character beyond 16 bits, whose second half falls into the same range.
    EXPECT_EQ("\xF0\x9F\x82\x80", files::ToPathBytes(u"\U0001F080"));
    EXPECT_EQ(u"\U0001F080", files::FromPathBytes("\xF0\x9F\x82\x80"));
}

TEST(Paths, TheProgramsFolderHoldsTheProgram) {
    const std::u16string folder = files::ProgramFolder();
    ASSERT_FALSE(folder.empty());
    EXPECT_FALSE(files::IsSeparator(folder.back()));
    EXPECT_TRUE(files::FolderExists(folder));
    EXPECT_TRUE(files::FileExists(files::Join(folder, u"unit_base")) ||
                files::FileExists(files::Join(folder, u"unit_base.exe")));
}

TEST(Files, ExistenceTellsFilesFromFolders) {
    TempFolder folder;
    const std::u16string file = folder.Put(u"a.txt", "");
    EXPECT_TRUE(files::FileExists(file));
    EXPECT_FALSE(files::FolderExists(file));
    EXPECT_FALSE(files::FileExists(folder.Name()));
    EXPECT_TRUE(files::FolderExists(folder.Name()));
    EXPECT_FALSE(files::FileExists(folder / u"b.txt"));
    EXPECT_FALSE(files::FolderExists(folder / u"b.txt"));
}

TEST(Files, APathWithANulNamesNothing) {
    TempFolder folder;
    const std::u16string path = folder.Put(u"a.txt", "kept") + std::u16string(u"\0.txt", 5);
    std::string bytes;
    EXPECT_FALSE(files::FileExists(path));
    EXPECT_FALSE(files::ReadAll(path, bytes));
    EXPECT_FALSE(files::WriteReplacing(path, "new"));
    EXPECT_FALSE(files::WriteNew(path, "new"));
    EXPECT_FALSE(files::Delete(path, true));
    EXPECT_EQ("kept", folder.Get(u"a.txt"));
    EXPECT_EQ(1u, folder.Names().size());
}

TEST(Files, ReadAllGivesEveryByte) {
    TempFolder folder;
    std::string bytes(3'000'001, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(i * 7 + i / 255);
    std::string read;
    ASSERT_TRUE(files::ReadAll(folder.Put(u"big.bin", bytes), read));
    EXPECT_TRUE(bytes == read);
    ASSERT_TRUE(files::ReadAll(folder.Put(u"empty.bin", ""), read));
    EXPECT_EQ("", read);
}

TEST(Files, AMissingFileIsAFailureAndLeavesTheOutput) {
    TempFolder folder;
    std::string bytes = "old";
    ASSERT_FALSE(std::filesystem::exists(folder.Path(u"no.txt")));
    const files::Result result = files::ReadAll(folder / u"no.txt", bytes);
    EXPECT_EQ(2, result.error); // ENOENT and ERROR_FILE_NOT_FOUND
    EXPECT_FALSE(result.text.empty());
    EXPECT_EQ("old", bytes);
}

TEST(Files, AFolderIsNoFileToReadOrWrite) {
    TempFolder folder;
    std::filesystem::create_directory(folder.Path(u"d.txt"));
    std::string bytes = "old";
    EXPECT_FALSE(files::ReadAll(folder / u"d.txt", bytes));
    EXPECT_FALSE(files::WriteReplacing(folder / u"d.txt", "new"));
    const files::Result made = files::WriteNew(folder / u"d.txt", "new");
    EXPECT_FALSE(made);
    EXPECT_TRUE(made.nameTaken);
    EXPECT_FALSE(files::Delete(folder / u"d.txt", true));
    EXPECT_EQ(std::set<std::u16string>{u"d.txt"}, folder.Names());
    EXPECT_EQ("old", bytes);
}

TEST(Files, InputFileReadsOnFromWhereItStopped) {
    TempFolder folder;
    files::InputFile file;
    ASSERT_TRUE(file.Open(folder.Put(u"a.bin", "abcdefg")));
    EXPECT_EQ(7u, file.Size());
    char room[4];
    std::size_t got;
    ASSERT_TRUE(file.Read(room, 4, got));
    EXPECT_EQ("abcd", std::string(room, got));
    ASSERT_TRUE(file.Read(room, 4, got));
    EXPECT_EQ("efg", std::string(room, got));
    ASSERT_TRUE(file.Read(room, 4, got));
    EXPECT_EQ(0u, got);
}

TEST(Files, WriteReplacingMakesAndReplaces) {
    TempFolder folder;
    ASSERT_TRUE(files::WriteReplacing(folder / u"a.txt", "one"));
    EXPECT_EQ("one", folder.Get(u"a.txt"));
    ASSERT_TRUE(files::WriteReplacing(folder / u"a.txt", files::Parts{"tw", "", "o"}));
    EXPECT_EQ("two", folder.Get(u"a.txt"));
    ASSERT_TRUE(files::WriteReplacing(folder / u"a.txt", ""));
    EXPECT_EQ("", folder.Get(u"a.txt"));
    EXPECT_EQ(std::set<std::u16string>{u"a.txt"}, folder.Names());
}

TEST(Files, WriteNewNeverReplaces) {
    TempFolder folder;
    ASSERT_TRUE(files::WriteNew(folder / u"a.txt", files::Parts{"on", "e"}));
    EXPECT_EQ("one", folder.Get(u"a.txt"));
    const files::Result second = files::WriteNew(folder / u"a.txt", "two");
    EXPECT_FALSE(second);
    EXPECT_TRUE(second.nameTaken);
    EXPECT_EQ("one", folder.Get(u"a.txt"));
    EXPECT_EQ(std::set<std::u16string>{u"a.txt"}, folder.Names());
}

TEST(Files, TryFolderLeavesNothingThere) {
    TempFolder folder;
    folder.Put(u"a.txt", "old");
    EXPECT_TRUE(files::TryFolder(folder.Name()));
    EXPECT_EQ(std::set<std::u16string>{u"a.txt"}, folder.Names());
    EXPECT_FALSE(files::TryFolder(folder / u"a.txt"));
    EXPECT_FALSE(files::TryFolder(folder / u"missing"));
    EXPECT_EQ(std::set<std::u16string>{u"a.txt"}, folder.Names());
}

TEST(Files, OfManyWhoWriteOneNewNameOneWins) {
    TempFolder folder;
    for (int round = 0; round < 20; ++round) {
        const std::u16string path = folder / std::u16string(3, static_cast<char16_t>(u'a' + round));
        std::atomic<int> made{0}, taken{0}, winner{-1};
        std::vector<std::thread> writers;
        for (int i = 0; i < 4; ++i)
            writers.emplace_back([&, i] {
                const files::Result result =
                    files::WriteNew(path, std::string(10000, static_cast<char>('0' + i)));
                if (result) {
                    ++made;
                    winner = i;
                }
                taken += result.nameTaken;
            });
        for (std::thread& writer : writers) writer.join();
        EXPECT_EQ(1, made);
        EXPECT_EQ(3, taken);
        std::string bytes;
        ASSERT_TRUE(files::ReadAll(path, bytes));
        EXPECT_TRUE(bytes == std::string(10000, static_cast<char>('0' + winner)));
    }
    EXPECT_EQ(20u, folder.Names().size());
}

TEST(Files, AMissingFolderIsAFailure) {
    TempFolder folder;
    ASSERT_FALSE(std::filesystem::exists(folder.Path(u"no")));
    EXPECT_FALSE(files::WriteReplacing(folder / Here(u"no/a.txt"), "x"));
    const files::Result made = files::WriteNew(folder / Here(u"no/a.txt"), "x");
    EXPECT_FALSE(made);
    EXPECT_FALSE(made.nameTaken);
    EXPECT_TRUE(folder.Names().empty());
}

TEST(Files, AReadOnlyFileIsRefusedForReplacing) {
    TempFolder folder;
    const std::u16string path = folder.Put(u"a.txt", "old");
    const std::u16string source = folder.Put(u"b.txt", "new");
    bool readOnly = true;
    ASSERT_TRUE(files::IsReadOnly(path, readOnly));
    EXPECT_FALSE(readOnly);
    ASSERT_TRUE(files::SetReadOnly(path, true));
    ASSERT_TRUE(files::IsReadOnly(path, readOnly));
    EXPECT_TRUE(readOnly);
    using std::filesystem::perms;
    EXPECT_EQ(perms::none, std::filesystem::status(folder.Path(u"a.txt")).permissions() & perms::owner_write);

    EXPECT_FALSE(files::WriteReplacing(path, "new"));
    EXPECT_FALSE(files::Copy(source, path));
    EXPECT_FALSE(files::Delete(path, false));
    EXPECT_EQ("old", folder.Get(u"a.txt"));
    EXPECT_EQ(2u, folder.Names().size());

    ASSERT_TRUE(files::SetReadOnly(path, false));
    EXPECT_TRUE(files::WriteReplacing(path, "new"));
    EXPECT_EQ("new", folder.Get(u"a.txt"));
}

TEST(Files, DeleteTakesReadOnlyFilesWhenTold) {
    TempFolder folder;
    const std::u16string path = folder.Put(u"a.txt", "old");
    ASSERT_TRUE(files::SetReadOnly(path, true));
    EXPECT_TRUE(files::Delete(path, true));
    EXPECT_TRUE(folder.Names().empty());
    EXPECT_FALSE(files::Delete(path, true));
    EXPECT_TRUE(files::Delete(folder.Put(u"b.txt", ""), false));
}

TEST(Files, CopyKeepsBytesMarkAndTime) {
    TempFolder folder;
    std::string bytes(2'500'000, 'x');
    bytes[1'000'000] = 'y';
    const std::u16string from = folder.Put(u"a.bin", bytes);
    const auto time = std::filesystem::last_write_time(folder.Path(u"a.bin")) - std::chrono::hours(48);
    std::filesystem::last_write_time(folder.Path(u"a.bin"), time);
    ASSERT_TRUE(files::SetReadOnly(from, true));
    folder.Put(u"b.bin", "replaced");
    ASSERT_TRUE(files::Copy(from, folder / u"b.bin"));
    EXPECT_TRUE(bytes == folder.Get(u"b.bin"));
    EXPECT_EQ(time, std::filesystem::last_write_time(folder.Path(u"b.bin")));
    bool readOnly = false;
    ASSERT_TRUE(files::IsReadOnly(folder / u"b.bin", readOnly));
    EXPECT_TRUE(readOnly);
    EXPECT_EQ(2u, folder.Names().size());
    ASSERT_TRUE(files::SetReadOnly(from, false));
    ASSERT_TRUE(files::SetReadOnly(folder / u"b.bin", false));
}

TEST(Files, CopyOfAMissingFileOrOntoItselfIsAFailure) {
    TempFolder folder;
    const std::u16string path = folder.Put(u"a.bin", "bytes");
    EXPECT_FALSE(files::Copy(folder / u"no.bin", folder / u"b.bin"));
    EXPECT_FALSE(files::Copy(path, path));
    EXPECT_FALSE(files::Copy(folder.Name(), folder / u"b.bin"));
    EXPECT_EQ("bytes", folder.Get(u"a.bin"));
    EXPECT_EQ(1u, folder.Names().size());
}

TEST(Files, CreateFolderMakesOneLevel) {
    TempFolder folder;
    EXPECT_TRUE(files::CreateFolder(folder / u"d"));
    EXPECT_TRUE(std::filesystem::is_directory(folder.Path(u"d")));
    EXPECT_FALSE(files::CreateFolder(folder / u"d"));
    EXPECT_FALSE(files::CreateFolder(folder / Here(u"e/f")));
}

TEST(Files, SameFileLooksAtTheFileAndNotAtItsName) {
    TempFolder folder;
    const std::u16string path = folder.Put(u"a.txt", "x");
    EXPECT_TRUE(files::SameFile(path, files::Join(files::Join(folder.Name(), u"."), u"a.txt")));
    EXPECT_FALSE(files::SameFile(path, folder.Put(u"b.txt", "x")));
    EXPECT_FALSE(files::SameFile(path, folder / u"no.txt"));
    EXPECT_FALSE(files::SameFile(folder / u"no.txt", folder / u"no.txt"));
}

TEST(Files, ListFilesGivesTheFilesInNameOrder) {
    TempFolder folder;
    for (const std::u16string_view name :
         {kBangla, std::u16string_view(u"b.txt"), std::u16string_view(u"B.TXT2"),
          std::u16string_view(u".hidden"), std::u16string_view(u"a.txt")})
        folder.Put(name, "");
    std::filesystem::create_directory(folder.Path(u"aa"));
    Names names;
    ASSERT_TRUE(files::ListFiles(folder.Name(), names));
    EXPECT_EQ((Names{u".hidden", u"B.TXT2", u"a.txt", u"b.txt", std::u16string(kBangla)}), names);
    EXPECT_FALSE(files::ListFiles(folder / u"no", names));
    EXPECT_EQ(5u, names.size());
    ASSERT_TRUE(files::ListFiles(folder / u"aa", names));
    EXPECT_TRUE(names.empty());
}

TEST(Files, FindNoCase) {
    TempFolder folder;
    folder.Put(u"Bijoy.dll", "");
    std::filesystem::create_directory(folder.Path(u"conversion Plugins"));
    EXPECT_EQ(u"Bijoy.dll", files::FindNoCase(folder.Name(), u"BIJOY.DLL"));
    EXPECT_EQ(u"Bijoy.dll", files::FindNoCase(folder.Name(), u"Bijoy.dll"));
    EXPECT_EQ(u"conversion Plugins", files::FindNoCase(folder.Name(), u"Conversion Plugins"));
    EXPECT_EQ(u"", files::FindNoCase(folder.Name(), u"Bijoy"));
    EXPECT_EQ(u"", files::FindNoCase(folder.Name(), u"*.dll"));
    EXPECT_EQ(u"", files::FindNoCase(folder.Name(), u""));
    EXPECT_EQ(u"", files::FindNoCase(folder / u"no", u"Bijoy.dll"));
}

TEST(Files, BanglaNames) {
    TempFolder folder;
    const std::u16string path = folder / kBangla;
    ASSERT_TRUE(files::WriteNew(path, "one"));
    EXPECT_EQ("one", folder.Get(kBangla));
    EXPECT_TRUE(files::FileExists(path));
    ASSERT_TRUE(files::WriteReplacing(path, "two"));
    std::string bytes;
    ASSERT_TRUE(files::ReadAll(path, bytes));
    EXPECT_EQ("two", bytes);
    ASSERT_TRUE(files::Copy(path, folder / u"কপি"));
    EXPECT_EQ((std::set<std::u16string>{std::u16string(kBangla), u"কপি"}), folder.Names());
    EXPECT_TRUE(files::Delete(path, false));
}

TEST(Files, VeryLongPaths) {
    TempFolder folder;
    std::u16string deep = folder.Name();
    for (int i = 0; i < 8; ++i) {
        deep = files::Join(deep, std::u16string(100, static_cast<char16_t>(u'a' + i)));
        ASSERT_TRUE(files::CreateFolder(deep));
    }
    ASSERT_GT(deep.size(), 800u);
    EXPECT_TRUE(files::FolderExists(deep));
    const std::u16string path = files::Join(deep, kBangla);
    ASSERT_TRUE(files::WriteNew(path, "one"));
    ASSERT_TRUE(files::WriteReplacing(path, "two"));
    EXPECT_TRUE(files::FileExists(path));
    EXPECT_TRUE(files::WriteNew(path, "three").nameTaken);
    ASSERT_TRUE(files::Copy(path, files::Join(deep, u"copy")));
    std::string bytes;
    ASSERT_TRUE(files::ReadAll(files::Join(deep, u"copy"), bytes));
    EXPECT_EQ("two", bytes);
    Names names;
    ASSERT_TRUE(files::ListFiles(deep, names));
    EXPECT_EQ((Names{u"copy", std::u16string(kBangla)}), names);
    EXPECT_EQ(u"copy", files::FindNoCase(deep, u"COPY"));
    EXPECT_TRUE(files::SameFile(path, path));
    EXPECT_TRUE(files::Delete(path, false));
    EXPECT_TRUE(files::Delete(files::Join(deep, u"copy"), false));
}

TEST(Files, TheSystemsWordsForAnError) {
    EXPECT_EQ(u"", files::SystemErrorText(0));
    EXPECT_FALSE(files::SystemErrorText(2).empty());
    EXPECT_EQ(u"", files::SystemErrorText(987654321));
}

} // namespace
