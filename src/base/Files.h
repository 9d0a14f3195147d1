// The files seam: whole files, folders and paths, the same promises on both sides.
// Paths are 16-bit text. Off Windows a path that is not UTF-8 comes in and goes out
// unharmed, its odd bytes as lone surrogates U+DC80..U+DCFF. A path that holds a NUL
// names nothing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace files {

// Outcome of an operation: the system's error number and its text, or 0.
struct Result {
    int error = 0;
    std::u16string text;
    bool nameTaken = false; // WriteNew only: something of that name stands there already
    explicit operator bool() const { return error == 0; }
};

// The text that the system has for an error number of its own, as it gives it; empty where
// it has none.
std::u16string SystemErrorText(int error);

// The separator that this system's paths are built with: a backslash on Windows, else '/'.
char16_t Separator();
// Also true for '/' on Windows, where it can stand in no name.
bool IsSeparator(char16_t unit);
// Position behind the last separator of path (0 where there is none).
std::size_t NameStart(std::u16string_view path);
// The folder that path stands in. A root keeps its separator; empty where the path is a
// root or a bare name.
std::u16string ParentFolder(std::u16string_view path);
// folder, a separator unless it ends with one, and name.
std::u16string Join(std::u16string_view folder, std::u16string_view name);
// The path from the root: against the current folder where it is relative. Nothing needs to
// stand there.
std::u16string AbsolutePath(std::u16string_view path);
// The folder of the running program, without a trailing separator.
std::u16string ProgramFolder();
// The entry of folder (a file or a folder) whose name equals name without regard to case
// (A to Z); the exact name first; empty where there is none.
std::u16string FindNoCase(std::u16string_view folder, std::u16string_view name);
// A path as bytes and back: UTF-8, where U+DC80..U+DCFF stand for bytes that are none.
std::u16string FromPathBytes(std::string_view bytes);
std::string ToPathBytes(std::u16string_view path);

// FileExists is false for a folder.
bool FileExists(std::u16string_view path);
bool FolderExists(std::u16string_view path);
// False for pipes and devices, whose bytes are gone once they are read.
bool CanBeReadAgain(std::u16string_view path);
// True where both name the same file on the disk.
bool SameFile(std::u16string_view a, std::u16string_view b);

// A file open for reading from its start to its end.
class InputFile {
public:
    InputFile() = default;
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    Result Open(std::u16string_view path);
    // Bytes that the file held when it was opened; 0 where the system cannot tell.
    std::uint64_t Size() const { return m_Size; }
    // Reads until the room is full or the file ends; got says how many bytes.
    Result Read(char* room, std::size_t size, std::size_t& got);

private:
    std::intptr_t m_Handle = -1;
    std::uint64_t m_Size = 0;
};

// The whole file; bytes is left as it was on failure.
Result ReadAll(std::u16string_view path, std::string& bytes);

// What is written, one part behind the other.
using Parts = std::initializer_list<std::string_view>;
// Writes under a temporary name (~zc, digits, .tmp) in the target's folder, flushes to the
// disk and takes the name in one step. Replaces a file that stands there, unless it is
// marked read-only (refused, also for root). On any failure the temporary file is removed
// and what stood under the name is as it was.
Result WriteReplacing(std::u16string_view path, Parts parts);
inline Result WriteReplacing(std::u16string_view path, std::string_view bytes) {
    return WriteReplacing(path, Parts{bytes});
}
// The same, but never replaces: nameTaken says that the name is in use.
Result WriteNew(std::u16string_view path, Parts parts);
inline Result WriteNew(std::u16string_view path, std::string_view bytes) {
    return WriteNew(path, Parts{bytes});
}
// Replaces like WriteReplacing; the copy has the source's attributes and time.
Result Copy(std::u16string_view from, std::u16string_view to);
// Removes a file, never a folder; one that is marked read-only where alsoReadOnly says so.
Result Delete(std::u16string_view path, bool alsoReadOnly);
Result CreateFolder(std::u16string_view path); // one level
// Makes a file of a temporary name in folder and removes it: why no file can be made there.
Result TryFolder(std::u16string_view folder);
// The read-only mark of a file or folder; off Windows that nobody may write it.
Result IsReadOnly(std::u16string_view path, bool& readOnly);
// Sets or takes the mark. Off Windows taking it lets the owner write.
Result SetReadOnly(std::u16string_view path, bool readOnly);

// Names (not paths) of the files directly in folder, in name order (code units).
Result ListFiles(std::u16string_view folder, std::vector<std::u16string>& names);

} // namespace files
