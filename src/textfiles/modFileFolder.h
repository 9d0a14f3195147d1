// Path work and small file operations for all panes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace modFileFolder {

// Opens path with its program. owner is the window to stand in front of; an empty
// workingFolder means the program's. Does nothing off Windows.
void OpenDocument(void* owner, std::u16string_view path, std::u16string_view workingFolder);
// The program's folder, without a trailing separator.
std::u16string GetAppPath();
// False for a folder.
bool FileExists(std::u16string_view path);
bool FolderExists(std::u16string_view path);
// Read-only files too. False on any failure, whose text LastFailure keeps.
bool DeleteFile(std::u16string_view path);
std::u16string GetParentFolder(std::u16string_view path);

// The first free name for what is made of source: its base name, suffix and extension in
// targetFolder, or beside it where that is empty; then with " - 1", " - 2"... behind the
// suffix. Raises failure 5 for a name without a dot, and for a source without a folder
// where one is needed; 6 where no number up to 32767 is free.
std::u16string MakeOutputName(std::u16string_view source, std::u16string_view suffix,
                              std::u16string_view targetFolder);
// The first free path for fileName in folder, numbered in the same way; fails likewise.
std::u16string MakeUniqueName(std::u16string_view fileName, std::u16string_view folder);

// Makes the target's folder (one level) where it is missing, takes the read-only mark off
// it, and copies, replacing what stands there. False on any failure, whose text
// LastFailure keeps.
bool CopyFileTo(std::u16string_view source, std::u16string_view target);
// Path of a shell folder by its CSIDL; empty on any failure, and off Windows.
std::u16string GetSpecialFolder(std::int32_t csidl);

// Index of the last element; -1 for an array that was never sized.
template <class Element>
int SafeUBound(const std::vector<Element>& array) {
    return static_cast<int>(array.size()) - 1;
}

} // namespace modFileFolder
