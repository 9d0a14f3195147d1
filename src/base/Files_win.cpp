// The files seam on Windows: wide calls, paths of any length.
// Tested by tests/unit/base/files_test.cpp and files_faults_win.cpp beside it.

#include "base/Files.h"

#include "base/Text.h"
#include "base/win.h"

#include <algorithm>
#include <atomic>
#include <cwchar>

namespace files {
namespace {

// Beyond this length (a folder's name leaves room for a short file name) a path must be
// given in the form that the system does not work on.
constexpr std::size_t kPlainLength = 240;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t kMostAtOnce = 1 << 30;

std::u16string FullPath(const std::u16string& path) {
    std::u16string full(path.size() + MAX_PATH, u'\0');
    for (;;) {
        const DWORD length =
            GetFullPathNameW(Wide(path), static_cast<DWORD>(full.size()), Wide(full.data()), nullptr);
        if (length == 0) return path;
        const bool fits = length < full.size();
        full.resize(length);
        if (fits) return full;
    }
}

// The path as the system takes it. One with a NUL inside becomes empty, which names
// nothing, and is not cut to another file's name.
std::u16string Native(std::u16string_view path) {
    if (path.find(u'\0') != path.npos) return {};
    std::u16string native(path);
    if (native.size() < kPlainLength) return native;
    native = FullPath(native);
    if (native.size() < kPlainLength || native.starts_with(u"\\\\?\\") || native.starts_with(u"\\\\.\\"))
        return native;
    return native.starts_with(u"\\\\") ? u"\\\\?\\UNC" + native.substr(1) : u"\\\\?\\" + native;
}

Result Failed(DWORD error) {
    Result result;
    result.error = static_cast<int>(error);
    result.text = SystemErrorText(result.error);
    while (!result.text.empty() && (result.text.back() == u'\n' || result.text.back() == u'\r'))
        result.text.pop_back();
    if (result.text.empty()) result.text = u"System error code: " + text::Decimal(result.error);
    return result;
}

Result Answer(BOOL returned) {
    return returned ? Result() : Failed(GetLastError());
}

class Handle {
public:
    explicit Handle(HANDLE handle) : m_Handle(handle) {}
    ~Handle() { Close(); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    operator HANDLE() const { return m_Handle; }
    bool IsOpen() const { return m_Handle != INVALID_HANDLE_VALUE; }
    void Close() {
        if (IsOpen()) CloseHandle(m_Handle);
        m_Handle = INVALID_HANDLE_VALUE;
    }

private:
    HANDLE m_Handle;
};

DWORD Attributes(std::u16string_view path) {
    return GetFileAttributesW(Wide(Native(path)));
}

bool IsFileAttributes(DWORD attributes) {
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// A name in the target's folder that is to be moved to the target's or to go.
class TemporaryFile {
public:
    ~TemporaryFile() {
        if (!m_Path.empty()) DeleteFileW(Wide(m_Path));
    }

    // Calls make with the next free temporary name until it made the file.
    template <class Make>
    Result Create(std::u16string_view target, Make make) {
        m_Target = Native(target);
        if (m_Target.empty()) return Failed(ERROR_PATH_NOT_FOUND);
        const std::u16string_view folder = target.substr(0, NameStart(target));
        static std::atomic<unsigned> count{0};
        for (int tries = 0; tries < 10000; ++tries) {
            wchar_t name[48];
            std::swprintf(name, 48, L"~zc%lu%04u.tmp", GetCurrentProcessId(), count++ % 10000);
            std::u16string path = Native(std::u16string(folder) + Units(name));
            if (make(path)) {
                m_Path = std::move(path);
                return {};
            }
            const DWORD error = GetLastError();
            if (error != ERROR_FILE_EXISTS && error != ERROR_ALREADY_EXISTS) return Failed(error);
        }
        return Failed(ERROR_FILE_EXISTS);
    }

    const std::u16string& Path() const { return m_Path; }

    Result TakeName(bool replace) {
        const DWORD how = MOVEFILE_WRITE_THROUGH | (replace ? MOVEFILE_REPLACE_EXISTING : 0);
        if (!MoveFileExW(Wide(m_Path), Wide(m_Target), how)) {
            const DWORD error = GetLastError();
            Result result = Failed(error);
            result.nameTaken = !replace && (error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS);
            return result;
        }
        m_Path.clear();
        return {};
    }

private:
    std::u16string m_Path;
    std::u16string m_Target;
};

// What stands at target may be replaced: nothing, or a file that is not marked read-only.
Result MayReplace(std::u16string_view target) {
    const DWORD attributes = Attributes(target);
    const DWORD kept = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & kept) ? Failed(ERROR_ACCESS_DENIED)
                                                                        : Result();
}

Result Write(std::u16string_view path, Parts parts, bool replace) {
    if (replace)
        if (Result may = MayReplace(path); !may) return may;
    TemporaryFile temporary;
    HANDLE made = INVALID_HANDLE_VALUE;
    Result created = temporary.Create(path, [&](const std::u16string& name) {
        made = CreateFileW(Wide(name), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        return made != INVALID_HANDLE_VALUE;
    });
    if (!created) return created;
    // Closed in front of the move and, on a failure, in front of the removal.
    Handle file(made);
    for (std::string_view part : parts)
        while (!part.empty()) {
            DWORD written;
            const auto length = static_cast<DWORD>(std::min(part.size(), kMostAtOnce));
            if (!WriteFile(file, part.data(), length, &written, nullptr)) return Failed(GetLastError());
            part.remove_prefix(written);
        }
    if (!FlushFileBuffers(file)) return Failed(GetLastError());
    file.Close();
    return temporary.TakeName(replace);
}

// Calls each with every entry of the folder whose name the pattern takes.
template <class Each>
Result Walk(const std::u16string& pattern, Each each) {
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW(Wide(Native(pattern)), &entry);
    if (search == INVALID_HANDLE_VALUE) {
        const DWORD error = GetLastError();
        return error == ERROR_FILE_NOT_FOUND ? Result() : Failed(error);
    }
    do each(entry);
    while (FindNextFileW(search, &entry));
    const DWORD error = GetLastError();
    FindClose(search);
    return error == ERROR_NO_MORE_FILES ? Result() : Failed(error);
}

} // namespace

std::u16string SystemErrorText(int error) {
    if (error == 0) return {};
    std::u16string words(1000, u' ');
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, static_cast<DWORD>(error), 0,
                                        Wide(words.data()), static_cast<DWORD>(words.size()), nullptr);
    words.resize(length);
    return words;
}

char16_t Separator() {
    return u'\\';
}

bool IsSeparator(char16_t unit) {
    return unit == u'\\' || unit == u'/';
}

std::u16string AbsolutePath(std::u16string_view path) {
    return FullPath(std::u16string(path));
}

std::u16string ProgramFolder() {
    std::u16string path(MAX_PATH, u'\0');
    DWORD length;
    while ((length = GetModuleFileNameW(nullptr, Wide(path.data()), static_cast<DWORD>(path.size()))) ==
           path.size())
        path.resize(path.size() * 2);
    path.resize(length);
    const std::size_t start = NameStart(path);
    return path.substr(0, start == 0 ? 0 : start - 1);
}

std::u16string FindNoCase(std::u16string_view folder, std::u16string_view name) {
    if (name.empty() || name.find_first_of(u"\\/:*?\"<>|") != name.npos) return {};
    std::u16string found;
    Walk(Join(folder, name), [&](const WIN32_FIND_DATAW& entry) {
        const std::u16string candidate = Units(entry.cFileName);
        // The name may have met a short form.
        if (text::EqualNoCase(candidate, name) && (found.empty() || candidate == name)) found = candidate;
    });
    return found;
}

bool FileExists(std::u16string_view path) {
    return IsFileAttributes(Attributes(path));
}

bool FolderExists(std::u16string_view path) {
    const DWORD attributes = Attributes(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool CanBeReadAgain(std::u16string_view path) {
    return FileExists(path);
}

bool SameFile(std::u16string_view a, std::u16string_view b) {
    auto identify = [](std::u16string_view path, BY_HANDLE_FILE_INFORMATION& info) {
        const Handle file(CreateFileW(Wide(Native(path)), 0, kShareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr));
        return file.IsOpen() && GetFileInformationByHandle(file, &info);
    };
    BY_HANDLE_FILE_INFORMATION one, other;
    return identify(a, one) && identify(b, other) && one.dwVolumeSerialNumber == other.dwVolumeSerialNumber &&
           one.nFileIndexHigh == other.nFileIndexHigh && one.nFileIndexLow == other.nFileIndexLow;
}

InputFile::~InputFile() {
    if (m_Handle != -1) CloseHandle(reinterpret_cast<HANDLE>(m_Handle));
}

Result InputFile::Open(std::u16string_view path) {
    const HANDLE file = CreateFileW(Wide(Native(path)), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
    if (file == INVALID_HANDLE_VALUE) return Failed(GetLastError());
    if (m_Handle != -1) CloseHandle(reinterpret_cast<HANDLE>(m_Handle));
    m_Handle = reinterpret_cast<std::intptr_t>(file);
    LARGE_INTEGER size;
    m_Size = GetFileSizeEx(file, &size) ? static_cast<std::uint64_t>(size.QuadPart) : 0;
    return {};
}

Result InputFile::Read(char* room, std::size_t size, std::size_t& got) {
    got = 0;
    while (got < size) {
        DWORD length;
        if (!ReadFile(reinterpret_cast<HANDLE>(m_Handle), room + got,
                      static_cast<DWORD>(std::min(size - got, kMostAtOnce)), &length, nullptr))
            return Failed(GetLastError());
        if (length == 0) break;
        got += length;
    }
    return {};
}

Result WriteReplacing(std::u16string_view path, Parts parts) {
    return Write(path, parts, true);
}

Result WriteNew(std::u16string_view path, Parts parts) {
    return Write(path, parts, false);
}

Result Copy(std::u16string_view from, std::u16string_view to) {
    if (SameFile(from, to)) return Failed(ERROR_SHARING_VIOLATION);
    const DWORD attributes = Attributes(from);
    if (attributes == INVALID_FILE_ATTRIBUTES) return Failed(GetLastError());
    if (Result may = MayReplace(to); !may) return may;
    TemporaryFile temporary;
    Result created = temporary.Create(
        to, [&](const std::u16string& name) { return CopyFileW(Wide(Native(from)), Wide(name), TRUE); });
    if (!created) return created;
    const wchar_t* const name = Wide(temporary.Path());
    // A read-only copy could neither be flushed nor, on a failure, be removed.
    SetFileAttributesW(name, attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY));
    Handle file(CreateFileW(name, GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file.IsOpen() || !FlushFileBuffers(file)) return Failed(GetLastError());
    file.Close();
    if (Result moved = temporary.TakeName(true); !moved) return moved;
    if (attributes & FILE_ATTRIBUTE_READONLY) SetFileAttributesW(Wide(Native(to)), attributes);
    return {};
}

Result Delete(std::u16string_view path, bool alsoReadOnly) {
    const DWORD attributes = Attributes(path);
    if (attributes == INVALID_FILE_ATTRIBUTES) return Failed(GetLastError());
    const std::u16string name = Native(path);
    const bool isReadOnly = attributes & FILE_ATTRIBUTE_READONLY;
    if (isReadOnly && !alsoReadOnly) return Failed(ERROR_ACCESS_DENIED);
    if (isReadOnly && IsFileAttributes(attributes)) SetFileAttributesW(Wide(name), FILE_ATTRIBUTE_NORMAL);
    if (DeleteFileW(Wide(name))) return {};
    const DWORD error = GetLastError();
    if (isReadOnly) SetFileAttributesW(Wide(name), attributes);
    return Failed(error);
}

Result CreateFolder(std::u16string_view path) {
    return Answer(CreateDirectoryW(Wide(Native(path)), nullptr));
}

Result TryFolder(std::u16string_view folder) {
    TemporaryFile temporary;
    HANDLE made = INVALID_HANDLE_VALUE;
    Result created = temporary.Create(Join(folder, u"x"), [&](const std::u16string& name) {
        made = CreateFileW(Wide(name), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        return made != INVALID_HANDLE_VALUE;
    });
    const Handle file(made); // closed in front of the removal
    return created;
}

Result IsReadOnly(std::u16string_view path, bool& readOnly) {
    const DWORD attributes = Attributes(path);
    if (attributes == INVALID_FILE_ATTRIBUTES) return Failed(GetLastError());
    readOnly = attributes & FILE_ATTRIBUTE_READONLY;
    return {};
}

Result SetReadOnly(std::u16string_view path, bool readOnly) {
    const DWORD attributes = Attributes(path);
    if (attributes == INVALID_FILE_ATTRIBUTES) return Failed(GetLastError());
    const DWORD wanted = readOnly ? attributes | FILE_ATTRIBUTE_READONLY
                                  : attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_READONLY);
    return Answer(SetFileAttributesW(Wide(Native(path)), wanted));
}

Result ListFiles(std::u16string_view folder, std::vector<std::u16string>& names) {
    std::vector<std::u16string> found;
    Result walked = Walk(Join(folder, u"*"), [&](const WIN32_FIND_DATAW& entry) {
        if (IsFileAttributes(entry.dwFileAttributes)) found.emplace_back(Units(entry.cFileName));
    });
    if (!walked) return walked;
    std::sort(found.begin(), found.end());
    names = std::move(found);
    return {};
}

} // namespace files
