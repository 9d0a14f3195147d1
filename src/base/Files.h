// The files seam: whole files, folders and paths, the same promises on both sides.
// Paths are 16-bit text. Off Windows a path that is not UTF-8 comes in and goes out
// unharmed, its odd bytes as lone surrogates U+DC80..U+DCFF.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace files {

// Outcome of an operation: the system's error number and its text, or 0.
struct Result {
    int error = 0;
    std::u16string text;
    bool nameTaken = false; // WriteNew only: a file of that name stands there already
    explicit operator bool() const { return error == 0; }
};

// The separator that this system's paths are built with: a backslash on Windows, else '/'.
char16_t Separator();
// Position behind the last separator of path (0 where there is none).
std::size_t NameStart(std::u16string_view path);

bool FileExists(std::u16string_view path);
bool FolderExists(std::u16string_view path);
// True where both name the same file on the disk.
bool SameFile(std::u16string_view a, std::u16string_view b);

// The whole file in one read; bytes is left as it was on failure.
Result ReadAll(std::u16string_view path, std::string& bytes);
// Writes under a temporary name (~zc, digits, .tmp) in the target's folder, flushes to the
// disk and takes the name in one step. Replaces a file that stands there, unless it is
// marked read-only (refused, also for root).
Result WriteReplacing(std::u16string_view path, std::string_view bytes);
// The same, but never replaces: nameTaken says that the name is in use.
Result WriteNew(std::u16string_view path, std::string_view bytes);
Result Copy(std::u16string_view from, std::u16string_view to);
Result Delete(std::u16string_view path, bool alsoReadOnly);
Result CreateFolder(std::u16string_view path); // one level
Result IsReadOnly(std::u16string_view path, bool& readOnly);
Result SetReadOnly(std::u16string_view path, bool readOnly);

// Names (not paths) of the files directly in folder, in name order (code units).
Result ListFiles(std::u16string_view folder, std::vector<std::u16string>& names);

std::u16string AbsolutePath(std::u16string_view path);
// Everything in front of the last separator; empty where there is none.
std::u16string ParentFolder(std::u16string_view path);
// folder, a separator unless it ends with one, and name.
std::u16string Join(std::u16string_view folder, std::u16string_view name);
// The folder of the running program, without a trailing separator.
std::u16string ProgramFolder();
// The entry of folder whose name equals name without regard to case (A to Z); the exact
// name first; empty where there is none.
std::u16string FindNoCase(std::u16string_view folder, std::u16string_view name);

} // namespace files
