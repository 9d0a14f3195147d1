// The files seam in real trouble: rights, full disks, file systems that lack a call, death
// while writing. Each test proves first that the fault is there.

#include "base/Files.h"
#include "support/Child_portable.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <climits>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using std::filesystem::perms;

std::string Told(const files::Result& result) {
    return result ? "done" : result.nameTaken ? "taken" : std::strerror(result.error);
}

// How the standard library fares with the same file.
std::string Opened(const std::filesystem::path& path, std::ios::openmode mode) {
    return std::fstream(path, mode | std::ios::binary).is_open() ? "open" : std::strerror(errno);
}

// The answers in the order in which they were made.
std::string All(std::initializer_list<std::string> answers) {
    std::string all;
    for (const std::string& answer : answers) all += (all.empty() ? "" : ", ") + answer;
    return all;
}

class FilesFaults : public testing::Test {
protected:
    // What the operations answer, run as a user whom rights concern.
    std::string AsNobody(const std::function<std::string()>& work) { return InChildAsNobody(work); }

    TempFolder m_Folder;
};

TEST_F(FilesFaults, AnUnreadableFile) {
    const std::u16string path = m_Folder.Put(u"a.txt", "secret");
    std::filesystem::permissions(m_Folder.Path(u"a.txt"), perms::none);
    EXPECT_EQ("Permission denied, Permission denied, Permission denied", AsNobody([&] {
                  std::string bytes;
                  return All({Opened(m_Folder.Path(u"a.txt"), std::ios::in),
                              Told(files::ReadAll(path, bytes)),
                              Told(files::Copy(path, m_Folder / u"b.txt"))});
              }));
    EXPECT_EQ(1u, m_Folder.Names().size());
}

TEST_F(FilesFaults, AFolderThatNobodyMayWriteTo) {
    m_Folder.Put(u"a.txt", "old");
    std::filesystem::permissions(m_Folder.Path(u"a.txt"), perms::all);
    std::filesystem::permissions(m_Folder.Path(), perms(0555));
    EXPECT_EQ("Permission denied, Permission denied, Permission denied, Permission denied, Permission denied",
              AsNobody([&] {
                  return All({Opened(m_Folder.Path(u"b.txt"), std::ios::out),
                              Told(files::WriteNew(m_Folder / u"b.txt", "new")),
                              Told(files::WriteReplacing(m_Folder / u"a.txt", "new")),
                              Told(files::Copy(m_Folder / u"a.txt", m_Folder / u"b.txt")),
                              Told(files::CreateFolder(m_Folder / u"d"))});
              }));
    EXPECT_EQ(std::set<std::u16string>{u"a.txt"}, m_Folder.Names());
    EXPECT_EQ("old", m_Folder.Get(u"a.txt"));
}

TEST_F(FilesFaults, AFolderThatMayBeWrittenToButNotListed) {
    std::filesystem::permissions(m_Folder.Path(), perms(0333));
    EXPECT_EQ("Permission denied, done", AsNobody([&] {
                  std::vector<std::u16string> names;
                  return All({Told(files::ListFiles(m_Folder.Name(), names)),
                              Told(files::WriteNew(m_Folder / u"a.txt", "new"))});
              }));
    EXPECT_EQ("new", m_Folder.Get(u"a.txt"));
}

TEST_F(FilesFaults, TryFolderFeelsWhatWritingWould) {
    std::filesystem::permissions(m_Folder.Path(), perms(0555));
    EXPECT_EQ("Permission denied, Permission denied", AsNobody([&] {
                  return All({Opened(m_Folder.Path(u"a.txt"), std::ios::out),
                              Told(files::TryFolder(m_Folder.Name()))});
              }));
    // A folder that may be written but not listed.
    std::filesystem::permissions(m_Folder.Path(), perms(0333));
    EXPECT_EQ("done", AsNobody([&] { return Told(files::TryFolder(m_Folder.Name())); }));
    std::filesystem::permissions(m_Folder.Path(), perms(0777));
    EXPECT_EQ(0u, m_Folder.Names().size());
}

TEST_F(FilesFaults, AFileOfSomebodyElseIsNotReplacedByTheRightsOfItsFolder) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can make a file that belongs to somebody else";
    const std::u16string path = m_Folder.Put(u"a.txt", "old");
    std::filesystem::permissions(m_Folder.Path(u"a.txt"), perms(0644));
    EXPECT_EQ("Permission denied, Permission denied", AsNobody([&] {
                  return All({Opened(m_Folder.Path(u"a.txt"), std::ios::in | std::ios::out),
                              Told(files::WriteReplacing(path, "new"))});
              }));
    EXPECT_EQ("old", m_Folder.Get(u"a.txt"));
}

TEST_F(FilesFaults, AReadOnlyFileIsRefusedWhereTheUserIsRootToo) {
    if (geteuid() != 0) GTEST_SKIP() << "the test does not run as root";
    const std::u16string path = m_Folder.Put(u"a.txt", "old");
    std::filesystem::permissions(m_Folder.Path(u"a.txt"), perms(0444));
    // The fault that root does not feel by itself:
    EXPECT_EQ("open", Opened(m_Folder.Path(u"a.txt"), std::ios::in | std::ios::out));
    EXPECT_FALSE(files::WriteReplacing(path, "new"));
    EXPECT_FALSE(files::Copy(m_Folder.Put(u"b.txt", "new"), path));
    EXPECT_FALSE(files::Delete(path, false));
    EXPECT_EQ("old", m_Folder.Get(u"a.txt"));
}

TEST_F(FilesFaults, AFullDisk) {
    const std::string big(256 * 1024, 'x');
    const std::string told = InChild([&]() -> std::string {
        if (const std::string why = MountSmallDisk(m_Folder.Path(), "64k"); !why.empty())
            return "skip: " + why;
        if (!files::WriteNew(m_Folder / u"a.txt", "old")) return "nothing can be written at all";
        // The fault is there: plain writing fails and leaves half a file.
        {
            std::ofstream half(m_Folder.Path(u"half"), std::ios::binary);
            if (half << big && half.flush()) return "the disk is not full";
        }
        std::filesystem::remove(m_Folder.Path(u"half"));
        // The last one is a copy from another disk onto this one.
        std::string answers = All({Told(files::WriteNew(m_Folder / u"b.txt", big)),
                                   Told(files::WriteReplacing(m_Folder / u"a.txt", files::Parts{"x", big})),
                                   Told(files::Copy(u"/proc/self/exe", m_Folder / u"c.txt"))});
        for (const std::u16string& name : m_Folder.Names()) answers += ", " + files::ToPathBytes(name);
        answers += ", " + m_Folder.Get(u"a.txt");
        // No room is lost to what failed.
        return answers + ", " + Told(files::WriteNew(m_Folder / u"d.txt", std::string(32 * 1024, 'y')));
    });
    if (told.starts_with("skip: ")) GTEST_SKIP() << told.substr(6);
    EXPECT_EQ("No space left on device, No space left on device, No space left on device, a.txt, old, done",
              told);
}

// File systems that cannot move without replacing answer so.
TEST_F(FilesFaults, WithoutAMoveThatNeverReplacesALinkTakesTheName) {
    EXPECT_EQ("Invalid argument, done, taken", InChild([&]() -> std::string {
                  if (!FailCall(SYS_renameat2, EINVAL)) return "no filter";
                  const long moved = syscall(SYS_renameat2, AT_FDCWD, "a", AT_FDCWD, "b", 1);
                  return All({(moved == -1 ? std::strerror(errno) : "moved"),
                              Told(files::WriteNew(m_Folder / u"a.txt", "new")),
                              Told(files::WriteNew(m_Folder / u"a.txt", "newer"))});
              }));
    EXPECT_EQ("new", m_Folder.Get(u"a.txt"));
    EXPECT_EQ(1u, m_Folder.Names().size());
    struct stat info;
    ASSERT_EQ(0, stat(m_Folder.Path(u"a.txt").c_str(), &info));
    EXPECT_EQ(1u, info.st_nlink);
}

TEST_F(FilesFaults, WithoutLinksEitherAnEmptyFileHoldsTheName) {
    EXPECT_EQ("Operation not permitted, done, taken", InChild([&]() -> std::string {
                  if (!FailCall(SYS_renameat2, ENOSYS) || !FailCall(SYS_linkat, EPERM)) return "no filter";
                  const int linked = linkat(AT_FDCWD, "a", AT_FDCWD, "b", 0);
                  return All({(linked == -1 ? std::strerror(errno) : "linked"),
                              Told(files::WriteNew(m_Folder / u"a.txt", "new")),
                              Told(files::WriteNew(m_Folder / u"a.txt", "newer"))});
              }));
    EXPECT_EQ("new", m_Folder.Get(u"a.txt"));
    EXPECT_EQ(1u, m_Folder.Names().size());
}

TEST_F(FilesFaults, AMoveThatFailsLeavesNothingBehind) {
    m_Folder.Put(u"old.txt", "old");
    EXPECT_EQ("Input/output error, Input/output error", InChild([&]() -> std::string {
                  if (!FailCall(SYS_renameat2, EIO) || !FailCall(SYS_renameat, EIO)) return "no filter";
                  return All({Told(files::WriteNew(m_Folder / u"a.txt", "new")),
                              Told(files::WriteReplacing(m_Folder / u"old.txt", "new"))});
              }));
    EXPECT_EQ(std::set<std::u16string>{u"old.txt"}, m_Folder.Names());
    EXPECT_EQ("old", m_Folder.Get(u"old.txt"));
}

TEST_F(FilesFaults, ADiskThatCannotBeFlushedIsAFailure) {
    m_Folder.Put(u"old.txt", "old");
    EXPECT_EQ("Input/output error, Input/output error", InChild([&]() -> std::string {
                  if (!FailCall(SYS_fsync, EIO)) return "no filter";
                  return All({Told(files::WriteNew(m_Folder / u"a.txt", "new")),
                              Told(files::WriteReplacing(m_Folder / u"old.txt", "new"))});
              }));
    EXPECT_EQ(std::set<std::u16string>{u"old.txt"}, m_Folder.Names());
    EXPECT_EQ("old", m_Folder.Get(u"old.txt"));
}

// kill -9 at many moments: under the final name stands one whole text or the other.
TEST_F(FilesFaults, AKilledWriterNeverLeavesHalfAFile) {
    const std::string one(6 << 20, '1'), two(8 << 20, '2');
    const std::u16string replaced = m_Folder.Put(u"replaced.txt", one);
    int halves = 0, kills = 0;
    for (; kills < 400 && (halves < 10 || kills < 60); ++kills) {
        int started[2];
        ASSERT_EQ(0, pipe(started));
        const pid_t writer = fork();
        if (writer == 0) {
            close(started[0]);
            close(started[1]); // the other end sees it
            for (;;) {
                files::WriteReplacing(replaced, two);
                files::WriteReplacing(replaced, one);
                files::WriteNew(m_Folder / u"new.txt", two);
                unlink(m_Folder.Path(u"new.txt").c_str());
            }
        }
        ASSERT_GT(writer, 0);
        close(started[1]);
        char none;
        EXPECT_EQ(0, read(started[0], &none, 1));
        close(started[0]);
        std::this_thread::sleep_for(std::chrono::microseconds(kills * 137 % 9000));
        ASSERT_EQ(0, kill(writer, SIGKILL));
        ASSERT_EQ(writer, waitpid(writer, nullptr, 0));
        const std::string left = m_Folder.Get(u"replaced.txt");
        ASSERT_TRUE(left == one || left == two) << left.size() << " bytes";
        for (const std::u16string& name : m_Folder.Names()) {
            const auto size = std::filesystem::file_size(m_Folder.Path(name));
            if (name == u"new.txt") {
                ASSERT_EQ(two.size(), size);
            } else if (name != u"replaced.txt") {
                // The proof that writers died while they wrote.
                ASSERT_TRUE(name.starts_with(u"~zc") && name.ends_with(u".tmp")) << files::ToPathBytes(name);
                halves += size < one.size();
            }
            if (name != u"replaced.txt") std::filesystem::remove(m_Folder.Path(name));
        }
    }

    EXPECT_GE(halves, 10) << "too few of " << kills << " writers died while they wrote";
}

TEST_F(FilesFaults, NamesThatAreNoUtf8GoUnharmed) {
    const std::string odd = m_Folder.Path().string() + "/\xE0\xA6\x95\xFF\xC0 a";
    std::ofstream(odd) << "odd";
    std::vector<std::u16string> names;
    ASSERT_TRUE(files::ListFiles(m_Folder.Name(), names));
    ASSERT_EQ(1u, names.size());
    EXPECT_EQ(u"\u0995\xDCFF\xDCC0 a", names[0]);
    const std::u16string path = files::Join(m_Folder.Name(), names[0]);
    EXPECT_TRUE(files::FileExists(path));
    ASSERT_TRUE(files::WriteReplacing(path, "new"));
    ASSERT_TRUE(files::Copy(path, path + u"2"));
    EXPECT_EQ(0, access((odd + "2").c_str(), F_OK));
    EXPECT_TRUE(files::Delete(path, false));
    EXPECT_NE(0, access(odd.c_str(), F_OK));
}

TEST_F(FilesFaults, TheLongestPathThatTheSystemTakes) {
    std::u16string deep = m_Folder.Name();
    while (deep.size() + 1 + 200 < PATH_MAX - 10) {
        deep = files::Join(deep, std::u16string(199, u'd'));
        ASSERT_TRUE(files::CreateFolder(deep));
    }
    // One byte for the end of the string; the temporary name alone would be too long here.
    const std::u16string path = files::Join(deep, std::u16string(PATH_MAX - 2 - deep.size(), u'n'));
    ASSERT_EQ(static_cast<std::size_t>(PATH_MAX - 1), path.size());
    EXPECT_EQ("done", Told(files::WriteNew(path, "one")));
    EXPECT_EQ("taken", Told(files::WriteNew(path, "two")));
    EXPECT_EQ("done", Told(files::WriteReplacing(path, "three")));
    std::string bytes;
    EXPECT_TRUE(files::ReadAll(path, bytes));
    EXPECT_EQ("three", bytes);
    EXPECT_EQ("File name too long", Told(files::ReadAll(path + u"n", bytes)));
    EXPECT_TRUE(files::Delete(path, false));
}

TEST_F(FilesFaults, ReplacingGoesThroughALinkToTheFileItself) {
    std::filesystem::create_directory(m_Folder.Path(u"d"));
    m_Folder.Put(u"d/real.txt", "old");
    std::filesystem::create_symlink("d/real.txt", m_Folder.Path(u"link.txt"));
    ASSERT_TRUE(files::WriteReplacing(m_Folder / u"link.txt", "new"));
    EXPECT_TRUE(std::filesystem::is_symlink(m_Folder.Path(u"link.txt")));
    EXPECT_EQ("new", m_Folder.Get(u"d/real.txt"));
    // A link to nothing holds its name.
    std::filesystem::create_symlink("nowhere", m_Folder.Path(u"lost.txt"));
    EXPECT_FALSE(files::FileExists(m_Folder / u"lost.txt"));
    EXPECT_EQ("taken", Told(files::WriteNew(m_Folder / u"lost.txt", "new")));
    EXPECT_FALSE(files::WriteReplacing(m_Folder / u"lost.txt", "new"));
}

TEST_F(FilesFaults, ReplacingKeepsPermissionsAndLeavesDevicesAlone) {
    const std::u16string path = m_Folder.Put(u"a.txt", "old");
    std::filesystem::permissions(m_Folder.Path(u"a.txt"), perms(0640));
    ASSERT_TRUE(files::WriteReplacing(path, "new"));
    EXPECT_EQ(perms(0640), std::filesystem::status(m_Folder.Path(u"a.txt")).permissions());
    ASSERT_EQ(0, mkfifo(m_Folder.Path(u"pipe").c_str(), 0666));
    EXPECT_FALSE(files::WriteReplacing(m_Folder / u"pipe", "new"));
    EXPECT_TRUE(std::filesystem::is_fifo(m_Folder.Path(u"pipe")));
}

TEST_F(FilesFaults, AFileThatRootReplacesStaysItsOwners) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can make a file that belongs to somebody else";
    const std::u16string path = m_Folder.Put(u"a.txt", "old");
    ASSERT_EQ(0, chown(m_Folder.Path(u"a.txt").c_str(), 1234, 2345));
    ASSERT_TRUE(files::WriteReplacing(path, "new"));
    struct stat info;
    ASSERT_EQ(0, stat(m_Folder.Path(u"a.txt").c_str(), &info));
    EXPECT_EQ(1234u, info.st_uid);
    EXPECT_EQ(2345u, info.st_gid);
}

TEST_F(FilesFaults, AFileWhoseSizeTheSystemDoesNotTellIsReadWhole) {
    ASSERT_EQ(0u, std::filesystem::file_size("/proc/self/status"));
    std::string bytes;
    ASSERT_TRUE(files::ReadAll(u"/proc/self/status", bytes));
    EXPECT_NE(bytes.npos, bytes.find("VmPeak"));
}

TEST_F(FilesFaults, WhereNeitherMoveNorLinkHoldsNothingStandsUnderTheName) {
    EXPECT_EQ("Input/output error, Input/output error", InChild([&]() -> std::string {
                  if (!FailCall(SYS_renameat2, ENOSYS) || !FailCall(SYS_linkat, EPERM) ||
                      !FailCall(SYS_renameat, EIO))
                      return "no filter";
                  const int moved = renameat(AT_FDCWD, "a", AT_FDCWD, "b");
                  return All({(moved == -1 ? std::strerror(errno) : "moved"),
                              Told(files::WriteNew(m_Folder / u"a.txt", "new"))});
              }));
    EXPECT_EQ(0u, m_Folder.Names().size());
}

TEST_F(FilesFaults, AFileSystemThatKnowsNoFlushingIsNoFailure) {
    for (const int error : {EINVAL, ENOTSUP}) {
        EXPECT_EQ(All({std::strerror(error), "done"}), InChild([&]() -> std::string {
                      if (!FailCall(SYS_fsync, error)) return "no filter";
                      const int flushed = fsync(0);
                      return All({(flushed == -1 ? std::strerror(errno) : "flushed"),
                                  Told(files::WriteReplacing(m_Folder / u"a.txt", "new"))});
                  }));
        EXPECT_EQ("new", m_Folder.Get(u"a.txt"));
        std::filesystem::remove(m_Folder.Path(u"a.txt"));
    }
}

TEST_F(FilesFaults, AbsolutePathFromTheRoot) {
    EXPECT_EQ("/a.txt /", InChild([]() -> std::string {
                  if (chdir("/") != 0) return std::strerror(errno);
                  return files::ToPathBytes(files::AbsolutePath(u"a.txt") + u" " + files::AbsolutePath(u"."));
              }));
}

TEST_F(FilesFaults, OfNamesThatDifferInCaseTheExactOneIsFoundElseTheFirst) {
    for (const char16_t* name : {u"bijoy.DLL", u"Bijoy.dll", u"BIJOY.dll", u"bijoy.dll"})
        m_Folder.Put(name, "");
    ASSERT_EQ(4u, m_Folder.Names().size());
    EXPECT_EQ(u"bijoy.dll", files::FindNoCase(m_Folder.Name(), u"bijoy.dll"));
    EXPECT_EQ(u"BIJOY.dll", files::FindNoCase(m_Folder.Name(), u"BIJOY.DLL"));
}

TEST_F(FilesFaults, ALinkCountsAsWhatItLeadsTo) {
    m_Folder.Put(u"file.txt", "");
    std::filesystem::create_directory(m_Folder.Path(u"folder"));
    std::filesystem::create_symlink("file.txt", m_Folder.Path(u"to file"));
    std::filesystem::create_symlink("folder", m_Folder.Path(u"to folder"));
    std::filesystem::create_symlink("nowhere", m_Folder.Path(u"to nothing"));
    ASSERT_EQ(0, mkfifo(m_Folder.Path(u"pipe").c_str(), 0666));
    std::vector<std::u16string> names;
    ASSERT_TRUE(files::ListFiles(m_Folder.Name(), names));
    EXPECT_EQ((std::vector<std::u16string>{u"file.txt", u"to file"}), names);
    EXPECT_TRUE(files::CanBeReadAgain(m_Folder / u"to file"));
    EXPECT_FALSE(files::CanBeReadAgain(m_Folder / u"pipe"));
}

} // namespace
