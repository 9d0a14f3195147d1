// The files seam in real trouble on Windows: files that others hold, long paths in each of
// their forms, death while writing. Each test proves first that the fault is there.

#include "base/Files.h"
#include "base/Text.h"
#include "base/win.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

// Holds a file open so that nobody else may do what share leaves out.
class Held {
public:
    Held(const std::u16string& path, DWORD share)
        : m_File(CreateFileW(Wide(path), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr)) {}
    ~Held() { CloseHandle(m_File); }
    bool IsOpen() const { return m_File != INVALID_HANDLE_VALUE; }

private:
    HANDLE m_File;
};

TEST(FilesFaults, AFileThatSomebodyHoldsForHimselfCannotBeRead) {
    TempFolder folder;
    const std::u16string path = folder.Put(u"a.txt", "old");
    const Held held(path, 0);
    ASSERT_TRUE(held.IsOpen());
    ASSERT_EQ("(no file)", folder.Get(u"a.txt"));
    std::string bytes = "kept";
    EXPECT_EQ(ERROR_SHARING_VIOLATION, files::ReadAll(path, bytes).error);
    EXPECT_EQ("kept", bytes);
}

TEST(FilesFaults, AFileThatSomebodyReadsIsNotReplacedUnderHim) {
    TempFolder folder;
    const std::u16string path = folder.Put(u"a.txt", "old");
    {
        const Held held(path, FILE_SHARE_READ);
        ASSERT_TRUE(held.IsOpen());
        ASSERT_FALSE(DeleteFileW(Wide(path)));
        EXPECT_FALSE(files::WriteReplacing(path, "new"));
        EXPECT_FALSE(files::Copy(folder.Put(u"b.txt", "new"), path));
        EXPECT_FALSE(files::Delete(path, true));
    }
    EXPECT_EQ("old", folder.Get(u"a.txt"));
    EXPECT_EQ(2u, folder.Names().size());
    EXPECT_TRUE(files::WriteReplacing(path, "new"));
}

TEST(FilesFaults, PathsInTheirOtherForms) {
    TempFolder folder;
    folder.Put(u"a.txt", "bytes");
    const std::u16string slashes = text::ReplaceAll(folder / u"a.txt", u"\\", u"/");
    std::string bytes;
    EXPECT_TRUE(files::ReadAll(slashes, bytes));
    EXPECT_TRUE(files::ReadAll(u"\\\\?\\" + (folder / u"a.txt"), bytes));
    EXPECT_TRUE(files::ReadAll((folder / u"x\\..\\A.TXT"), bytes));
    EXPECT_EQ(folder / u"a.txt", files::AbsolutePath(slashes));
    EXPECT_TRUE(files::WriteReplacing(slashes, "new"));
    EXPECT_EQ("new", folder.Get(u"a.txt"));
    EXPECT_EQ(1u, folder.Names().size());
    EXPECT_EQ(u"C:\\", files::ParentFolder(u"C:\\a.txt"));
    EXPECT_EQ(u"", files::ParentFolder(u"C:\\"));
}

TEST(FilesFaults, LongPathsWithDotsInBetween) {
    TempFolder folder;
    std::u16string deep = folder.Name();
    for (int i = 0; i < 3; ++i) {
        deep = files::Join(deep, std::u16string(100, u'd'));
        ASSERT_TRUE(files::CreateFolder(deep));
    }
    ASSERT_GT(deep.size(), static_cast<std::size_t>(MAX_PATH));
    ASSERT_TRUE(files::WriteNew(deep + u"/../" + std::u16string(100, u'd') + u"/./a.txt", "bytes"));
    std::string bytes;
    EXPECT_TRUE(files::ReadAll(deep + u"\\a.txt", bytes));
    EXPECT_EQ("bytes", bytes);
}

constexpr wchar_t kWriterFolder[] = L"ZC_TEST_WRITER_FOLDER";

// The writer that the next test starts, and kills. On its own it has nothing to do.
TEST(FilesFaults, Writer) {
    char16_t name[1024];
    if (GetEnvironmentVariableW(kWriterFolder, Wide(name), 1024) == 0) return;
    const std::u16string folder(name);
    const std::string one(6 << 20, '1'), two(8 << 20, '2');
    files::WriteNew(files::Join(folder, u"started"), "");
    for (;;) {
        files::WriteReplacing(files::Join(folder, u"replaced.txt"), two);
        files::WriteReplacing(files::Join(folder, u"replaced.txt"), one);
        files::WriteNew(files::Join(folder, u"new.txt"), two);
        DeleteFileW(Wide(files::Join(folder, u"new.txt")));
    }
}

TEST(FilesFaults, AKilledWriterNeverLeavesHalfAFile) {
    TempFolder folder;
    const std::string one(6 << 20, '1'), two(8 << 20, '2');
    folder.Put(u"replaced.txt", one);
    SetEnvironmentVariableW(kWriterFolder, Wide(folder.Name()));
    wchar_t program[1024];
    ASSERT_NE(0u, GetModuleFileNameW(nullptr, program, 1024));
    int left = 0, kills = 0;
    for (; kills < 60 && (left < 3 || kills < 8); ++kills) {
        wchar_t command[] = L"unit_base --gtest_filter=FilesFaults.Writer";
        STARTUPINFOW start = {};
        start.cb = sizeof start;
        PROCESS_INFORMATION writer;
        ASSERT_TRUE(CreateProcessW(program, command, nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                                   nullptr, &start, &writer));
        for (int i = 0; i < 10000 && !std::filesystem::exists(folder.Path(u"started")); ++i) Sleep(1);
        Sleep(static_cast<DWORD>(kills * 7 % 40));
        TerminateProcess(writer.hProcess, 9);
        WaitForSingleObject(writer.hProcess, INFINITE);
        CloseHandle(writer.hThread);
        CloseHandle(writer.hProcess);
        const std::string bytes = folder.Get(u"replaced.txt");
        ASSERT_TRUE(bytes == one || bytes == two) << bytes.size() << " bytes";
        for (const std::u16string& name : folder.Names()) {
            if (name == u"replaced.txt") continue;
            if (name == u"new.txt") {
                ASSERT_EQ(two.size(), std::filesystem::file_size(folder.Path(name)));
            } else if (name != u"started") {
                ASSERT_TRUE(name.starts_with(u"~zc") && name.ends_with(u".tmp"));
                ++left; // the proof that a writer died while it wrote
            }
            std::filesystem::remove(folder.Path(name));
        }
    }
    SetEnvironmentVariableW(kWriterFolder, nullptr);
    EXPECT_GE(left, 3) << "too few of " << kills << " writers died while they wrote";
}

} // namespace
