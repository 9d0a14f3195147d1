// The files seam on POSIX systems. Names are bytes there; see FromPathBytes.
// Tested by tests/unit/base/files_test.cpp and files_faults_portable.cpp beside it.

#include "base/Files.h"

#include "base/Text.h"

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>

namespace files {
namespace {

constexpr mode_t kAnyWrite = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr std::size_t kCopyRoom = 1 << 20;

// The path as the system takes it. One with a NUL inside becomes empty, which names
// nothing, and is not cut to another file's name.
std::string Native(std::u16string_view path) {
    return path.find(u'\0') == path.npos ? ToPathBytes(path) : std::string();
}

Result Failed(int error) {
    Result result;
    result.error = error;
    result.text = SystemErrorText(error);
    if (result.text.empty()) result.text = u"System error code: " + text::Decimal(error);
    return result;
}

Result Answer(int returned) {
    return returned == 0 ? Result() : Failed(errno);
}

class Descriptor {
public:
    explicit Descriptor(int fd) : m_Fd(fd) {}
    ~Descriptor() {
        if (m_Fd >= 0) close(m_Fd);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    operator int() const { return m_Fd; }

private:
    int m_Fd;
};

int Flush(int fd) {
    // Where a file system knows no flushing, closing is all that can be done.
    return fsync(fd) == 0 || errno == EINVAL || errno == ENOTSUP ? 0 : -1;
}

// Nobody may write it: the mark that other systems call the read-only attribute. The
// rights of the folder would let it be replaced all the same, and so would root's.
bool IsMarkedReadOnly(const struct stat& info) {
    return (info.st_mode & kAnyWrite) == 0;
}

// Moves name to a name that must be free, in the same folder. EEXIST where it is not.
int MoveToFreeName(int folder, const char* name, const char* free) {
#ifdef RENAME_NOREPLACE
    if (renameat2(folder, name, folder, free, RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP) return -1;
#endif
    // File systems that cannot move without replacing: a second link, which never
    // replaces, and where there are no links an empty file that holds the name.
    if (linkat(folder, name, folder, free, 0) == 0) {
        unlinkat(folder, name, 0);
        return 0;
    }
    if (errno == EEXIST) return -1;
    const int holder = openat(folder, free, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (holder < 0) return -1;
    close(holder);
    if (renameat(folder, name, folder, free) == 0) return 0;
    const int error = errno;
    unlinkat(folder, free, 0);
    errno = error;
    return -1;
}

// A new file under a temporary name in the target's folder, that takes its name at the
// end or goes.
class TemporaryFile {
public:
    ~TemporaryFile() {
        if (m_File >= 0) close(m_File);
        if (!m_Name.empty()) unlinkat(*m_Folder, m_Name.c_str(), 0);
    }

    // Names relative to the open folder: a target's path may be as long as paths can be,
    // and its temporary name longer than its own.
    Result Create(const std::string& target) {
        const std::size_t start = target.rfind('/') + 1;
        m_Target = target.substr(start);
        if (m_Target.empty() || m_Target == "." || m_Target == "..")
            return Failed(target.empty() ? ENOENT : EISDIR);
        const std::string folder = start == 0 ? "." : target.substr(0, start);
        m_Folder = std::make_unique<Descriptor>(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (*m_Folder < 0 && errno == EACCES) // a folder may be closed for listing and open for writing
            m_Folder = std::make_unique<Descriptor>(open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (*m_Folder < 0) return Failed(errno);
        static std::atomic<unsigned> count{0};
        for (int tries = 0; tries < 10000; ++tries) {
            char name[48];
            std::snprintf(name, sizeof name, "~zc%ld%04u.tmp", static_cast<long>(getpid()), count++ % 10000);
            m_File = openat(*m_Folder, name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
            if (m_File >= 0) {
                m_Name = name;
                return {};
            }
            if (errno != EEXIST) break;
        }
        return Failed(errno);
    }

    int File() const { return m_File; }

    Result Write(std::string_view bytes) {
        while (!bytes.empty()) {
            const ssize_t written = write(m_File, bytes.data(), std::min<std::size_t>(bytes.size(), 1 << 30));
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) return Failed(errno);
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return {};
    }

    // To the disk, and to its name.
    Result Finish(bool replace) {
        const int flushed = Flush(m_File);
        const int error = errno;
        const int file = m_File;
        m_File = -1;
        if (close(file) != 0) return Failed(errno);
        if (flushed != 0) return Failed(error);
        const int moved = replace ? renameat(*m_Folder, m_Name.c_str(), *m_Folder, m_Target.c_str())
                                  : MoveToFreeName(*m_Folder, m_Name.c_str(), m_Target.c_str());
        if (moved != 0) {
            Result result = Failed(errno);
            result.nameTaken = !replace && result.error == EEXIST;
            return result;
        }
        m_Name.clear();
        return {};
    }

private:
    std::unique_ptr<Descriptor> m_Folder;
    int m_File = -1;
    std::string m_Name;
    std::string m_Target;
};

// Where a file stands at target: goes through links to the file itself, refuses what must
// not be replaced, and tells its owner and permissions. Empty where there is none.
Result PrepareReplacing(std::string& target, std::optional<struct stat>& old) {
    struct stat info;
    if (lstat(target.c_str(), &info) != 0) return errno == ENOENT ? Result() : Failed(errno);
    if (S_ISLNK(info.st_mode)) {
        char* real = realpath(target.c_str(), nullptr);
        if (!real) return Failed(errno);
        target = real;
        std::free(real);
        if (stat(target.c_str(), &info) != 0) return Failed(errno);
    }
    if (S_ISDIR(info.st_mode)) return Failed(EISDIR);
    if (!S_ISREG(info.st_mode)) return Failed(EINVAL);
    if (IsMarkedReadOnly(info) || access(target.c_str(), W_OK) != 0) return Failed(EACCES);
    old = info;
    return {};
}

Result Stat(std::u16string_view path, struct stat& info) {
    return Answer(stat(Native(path).c_str(), &info));
}

} // namespace

std::u16string SystemErrorText(int error) {
    const char* const words = error == 0 ? "" : std::strerror(error);
    return std::strncmp(words, "Unknown error", 13) == 0 ? std::u16string() : text::FromUtf8(words);
}

char16_t Separator() {
    return u'/';
}
bool IsSeparator(char16_t unit) {
    return unit == u'/';
}

std::u16string AbsolutePath(std::u16string_view path) {
    std::u16string made;
    if (path.empty() || path.front() != u'/') {
        char* here = getcwd(nullptr, 0);
        if (here) made = FromPathBytes(here);
        std::free(here);
        if (made == u"/") made.clear();
    }
    // ".." stays: what it means behind a link only the system knows.
    for (const std::u16string_view part : text::Split(path, u"/"))
        if (!part.empty() && part != u".") (made += u'/') += part;
    return made.empty() ? u"/" : made;
}

std::u16string ProgramFolder() {
    std::string path(PATH_MAX, '\0');
    const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
    path.resize(length > 0 ? static_cast<std::size_t>(length) : 0);
    const std::size_t slash = path.rfind('/');
    return FromPathBytes(std::string_view(path).substr(0, slash == path.npos ? 0 : slash));
}

std::u16string FindNoCase(std::u16string_view folder, std::u16string_view name) {
    struct stat info;
    if (name.empty() || name.find(u'/') != name.npos) return {};
    if (lstat(Native(Join(folder, name)).c_str(), &info) == 0) return std::u16string(name);
    std::u16string found;
    if (DIR* listing = opendir(Native(folder).c_str())) {
        while (const dirent* entry = readdir(listing)) {
            std::u16string candidate = FromPathBytes(entry->d_name);
            // The first in name order: the same answer whatever order the folder is in.
            if (text::EqualNoCase(candidate, name) && (found.empty() || candidate < found))
                found = std::move(candidate);
        }
        closedir(listing);
    }
    return found;
}

bool FileExists(std::u16string_view path) {
    struct stat info;
    return Stat(path, info) && !S_ISDIR(info.st_mode);
}

bool FolderExists(std::u16string_view path) {
    struct stat info;
    return Stat(path, info) && S_ISDIR(info.st_mode);
}

bool CanBeReadAgain(std::u16string_view path) {
    struct stat info;
    return Stat(path, info) && S_ISREG(info.st_mode);
}

bool SameFile(std::u16string_view a, std::u16string_view b) {
    struct stat one, other;
    return Stat(a, one) && Stat(b, other) && one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

InputFile::~InputFile() {
    if (m_Handle >= 0) close(static_cast<int>(m_Handle));
}

Result InputFile::Open(std::u16string_view path) {
    const int file = open(Native(path).c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) return Failed(errno);
    if (m_Handle >= 0) close(static_cast<int>(m_Handle));
    m_Handle = file;
    struct stat info;
    if (fstat(file, &info) != 0) return Failed(errno);
    if (S_ISDIR(info.st_mode)) return Failed(EISDIR);
    m_Size = S_ISREG(info.st_mode) ? static_cast<std::uint64_t>(info.st_size) : 0;
    return {};
}

Result InputFile::Read(char* room, std::size_t size, std::size_t& got) {
    got = 0;
    while (got < size) {
        const ssize_t length =
            read(static_cast<int>(m_Handle), room + got, std::min<std::size_t>(size - got, 1 << 30));
        if (length < 0 && errno == EINTR) continue;
        if (length < 0) return Failed(errno);
        if (length == 0) break;
        got += static_cast<std::size_t>(length);
    }
    return {};
}

Result WriteReplacing(std::u16string_view path, Parts parts) {
    std::string target = Native(path);
    std::optional<struct stat> old;
    if (Result prepared = PrepareReplacing(target, old); !prepared) return prepared;
    TemporaryFile file;
    if (Result created = file.Create(target); !created) return created;
    if (old) {
        // Whoever may write the file without owning it becomes its owner; root gives it back.
        [[maybe_unused]] const int given = fchown(file.File(), old->st_uid, old->st_gid);
        if (fchmod(file.File(), old->st_mode & 07777) != 0) return Failed(errno);
    }
    for (const std::string_view part : parts)
        if (Result written = file.Write(part); !written) return written;
    return file.Finish(true);
}

Result WriteNew(std::u16string_view path, Parts parts) {
    TemporaryFile file;
    if (Result created = file.Create(Native(path)); !created) return created;
    for (const std::string_view part : parts)
        if (Result written = file.Write(part); !written) return written;
    return file.Finish(false);
}

Result Copy(std::u16string_view from, std::u16string_view to) {
    const Descriptor source(open(Native(from).c_str(), O_RDONLY | O_CLOEXEC));
    if (source < 0) return Failed(errno);
    struct stat info;
    if (fstat(source, &info) != 0) return Failed(errno);
    if (!S_ISREG(info.st_mode)) return Failed(S_ISDIR(info.st_mode) ? EISDIR : EINVAL);
    if (SameFile(from, to)) return Failed(EINVAL);
    std::string target = Native(to);
    std::optional<struct stat> old;
    if (Result prepared = PrepareReplacing(target, old); !prepared) return prepared;
    TemporaryFile file;
    if (Result created = file.Create(target); !created) return created;
    if (fchmod(file.File(), info.st_mode & 0777) != 0) return Failed(errno);
    const auto room = std::make_unique<char[]>(kCopyRoom);
    for (;;) {
        const ssize_t length = read(source, room.get(), kCopyRoom);
        if (length < 0 && errno == EINTR) continue;
        if (length < 0) return Failed(errno);
        if (length == 0) break;
        if (Result written = file.Write({room.get(), static_cast<std::size_t>(length)}); !written)
            return written;
    }
    const timespec times[2] = {info.st_atim, info.st_mtim};
    if (futimens(file.File(), times) != 0) return Failed(errno);
    return file.Finish(true);
}

Result Delete(std::u16string_view path, bool alsoReadOnly) {
    const std::string name = Native(path);
    struct stat info;
    if (lstat(name.c_str(), &info) != 0) return Failed(errno);
    if (S_ISDIR(info.st_mode)) return Failed(EISDIR);
    if (!alsoReadOnly && !S_ISLNK(info.st_mode) && IsMarkedReadOnly(info)) return Failed(EACCES);
    return Answer(unlink(name.c_str()));
}

Result CreateFolder(std::u16string_view path) {
    return Answer(mkdir(Native(path).c_str(), 0777));
}

Result TryFolder(std::u16string_view folder) {
    TemporaryFile file;
    return file.Create(Native(Join(folder, u"x")));
}

Result IsReadOnly(std::u16string_view path, bool& readOnly) {
    struct stat info;
    Result result = Stat(path, info);
    if (result) readOnly = IsMarkedReadOnly(info);
    return result;
}

Result SetReadOnly(std::u16string_view path, bool readOnly) {
    struct stat info;
    if (Result result = Stat(path, info); !result) return result;
    const mode_t mode = readOnly ? info.st_mode & ~kAnyWrite : info.st_mode | S_IWUSR;
    return Answer(chmod(Native(path).c_str(), mode & 07777));
}

Result ListFiles(std::u16string_view folder, std::vector<std::u16string>& names) {
    DIR* listing = opendir(Native(folder).c_str());
    if (!listing) return Failed(errno);
    std::vector<std::u16string> found;
    errno = 0;
    while (const dirent* entry = readdir(listing)) {
        struct stat info;
        if (entry->d_type == DT_REG ||
            (entry->d_type != DT_DIR && fstatat(dirfd(listing), entry->d_name, &info, 0) == 0 &&
             S_ISREG(info.st_mode)))
            found.push_back(FromPathBytes(entry->d_name));
        errno = 0;
    }
    const int error = errno;
    closedir(listing);
    if (error != 0) return Failed(error);
    std::sort(found.begin(), found.end());
    names = std::move(found);
    return {};
}

} // namespace files
