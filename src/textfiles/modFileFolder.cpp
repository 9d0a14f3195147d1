// Tested by tests/unit/textfiles/modfilefolder_test.cpp.

#include "textfiles/modFileFolder.h"

#include "base/Counter16.h"
#include "base/Files.h"
#include "base/RuntimeFailure.h"
#include "base/Text.h"

namespace modFileFolder {
namespace {

constexpr std::u16string_view kSource = u"modFileFolder";

// Position of the last dot.
std::size_t LastDot(std::u16string_view name) {
    const std::size_t dot = name.rfind(u'.');
    if (dot == name.npos)
        throw RuntimeFailure(kInvalidCall, kSource, u"No dot in the name: " + std::u16string(name));
    return dot;
}

// stem and extension, with the first number in between that makes the name a free one.
std::u16string FirstFree(const std::u16string& stem, std::u16string_view extension) {
    std::u16string candidate = stem;
    candidate += extension;
    for (std::int16_t n = 0; FileExists(candidate);) {
        n = ToInt16(n + 1, kSource);
        candidate = stem + u" - " + text::Decimal(n);
        candidate += extension;
    }
    return candidate;
}

bool Told(const files::Result& result) {
    if (!result) KeepLastFailure(result.text);
    return static_cast<bool>(result);
}

} // namespace

std::u16string GetAppPath() {
    return files::ProgramFolder();
}

bool FileExists(std::u16string_view path) {
    return files::FileExists(path);
}

bool FolderExists(std::u16string_view path) {
    return files::FolderExists(path);
}

bool DeleteFile(std::u16string_view path) {
    return Told(files::Delete(path, true));
}

std::u16string GetParentFolder(std::u16string_view path) {
    return files::ParentFolder(path);
}

std::u16string MakeOutputName(std::u16string_view source, std::u16string_view suffix,
                              std::u16string_view targetFolder) {
    const std::size_t start = files::NameStart(source);
    std::u16string stem(targetFolder);
    if (targetFolder.empty()) {
        if (start == 0)
            throw RuntimeFailure(kInvalidCall, kSource, u"No folder in the path: " + std::u16string(source));
        stem = source.substr(0, start - 1);
    }
    const std::u16string_view extension = source.substr(LastDot(source));
    const std::u16string_view name = source.substr(start);
    stem += files::Separator();
    stem += name.substr(0, LastDot(name));
    stem += suffix;
    return FirstFree(stem, extension);
}

std::u16string MakeUniqueName(std::u16string_view fileName, std::u16string_view folder) {
    const std::size_t dot = LastDot(fileName);
    std::u16string stem(folder);
    stem += files::Separator();
    stem += fileName.substr(0, dot);
    return FirstFree(stem, fileName.substr(dot));
}

bool CopyFileTo(std::u16string_view source, std::u16string_view target) {
    const std::u16string folder = GetParentFolder(target);
    if (!FolderExists(folder) && !Told(files::CreateFolder(folder))) return false;
    bool isReadOnly = false;
    if (!Told(files::IsReadOnly(folder, isReadOnly))) return false;
    if (isReadOnly && !Told(files::SetReadOnly(folder, false))) return false;
    return Told(files::Copy(source, target));
}

} // namespace modFileFolder
