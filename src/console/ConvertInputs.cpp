// Tested by tests/unit/console/inputs_test.cpp and tests/cli.

#include "console/ConvertInputs.h"

#include "base/Files.h"
#include "base/Text.h"

#include <algorithm>

namespace inputs {
namespace {

using Strings = std::vector<std::u16string>;
using Task = Item::Task;

// The name in front of its last dot, and what begins there.
std::u16string_view Base(std::u16string_view name) {
    return name.substr(0, name.rfind(u'.'));
}
std::u16string_view Extension(std::u16string_view name) {
    const std::size_t dot = name.rfind(u'.');
    return dot == name.npos ? std::u16string_view() : name.substr(dot);
}

// base without " - " and a number as results get it; empty where it has none.
std::u16string_view WithoutNumber(std::u16string_view base) {
    std::size_t digits = base.size();
    while (digits > 0 && base[digits - 1] >= u'0' && base[digits - 1] <= u'9') --digits;
    if (digits == base.size() || base[digits] == u'0') return {};
    const std::u16string_view front = base.substr(0, digits);
    return front.ends_with(u" - ") ? front.substr(0, front.size() - 3) : std::u16string_view();
}

Item Judge(std::u16string_view path) {
    const std::u16string_view name = path.substr(files::NameStart(path));
    const std::u16string own(path);
    if (name.find(u'.') == name.npos)
        return {Task::Fail, own, u"the name has no dot, so the result could not be named"};
    switch (KindOf(name)) {
    case Kind::Text:
        return {Task::Convert, own, {}};
    case Kind::Later:
        return {Task::Fail, own,
                u"files of the kind " + std::u16string(Extension(name)) + u" are not supported yet"};
    case Kind::Unknown:
        break;
    }
    return {Task::Fail, own, u"unknown kind of file: " + std::u16string(Extension(name))};
}

void AddFolder(const std::u16string& folder, std::u16string_view suffix, std::vector<Item>& items) {
    Strings names;
    if (const files::Result listed = files::ListFiles(folder, names); !listed) {
        items.push_back({Task::Fail, folder, listed.text});
        return;
    }
    std::size_t unknown = 0;
    for (const std::u16string& name : names) {
        const std::u16string path = files::Join(folder, name);
        if (KindOf(name) == Kind::Unknown)
            ++unknown;
        else if (IsOwnOutput(name, suffix, names))
            items.push_back({Task::Skip, path, u"a result of an earlier run"});
        else
            items.push_back(Judge(path));
    }
    if (unknown > 0)
        items.push_back({Task::Skip,
                         text::Decimal(static_cast<long long>(unknown)) +
                             (unknown == 1 ? u" file in " : u" files in ") + folder,
                         u"unknown kind"});
}

} // namespace

Kind KindOf(std::u16string_view name) {
    const std::u16string extension = text::LowerAscii(Extension(name));
    if (extension == u".txt") return Kind::Text;
    if (extension == u".doc" || extension == u".rtf" || extension == u".mdb") return Kind::Later;
    return Kind::Unknown;
}

bool IsOwnOutput(std::u16string_view name, std::u16string_view suffix, const Strings& names) {
    const std::u16string_view base = Base(name), front = WithoutNumber(base);
    if (!suffix.empty()) return base.ends_with(suffix) || front.ends_with(suffix);
    if (front.empty()) return false;
    return std::binary_search(names.begin(), names.end(),
                              std::u16string(front) + std::u16string(Extension(name)));
}

std::vector<Item> List(const Strings& arguments, std::u16string_view suffix) {
    std::vector<Item> items;
    for (const std::u16string& argument : arguments) {
        const std::u16string path = files::AbsolutePath(argument);
        if (argument.empty())
            items.push_back({Task::Fail, u"''", u"an empty name"});
        else if (files::FolderExists(path))
            AddFolder(path, suffix, items);
        else if (!files::FileExists(path))
            items.push_back({Task::Fail, path, u"no such file"});
        else
            items.push_back(Judge(path));
    }
    return items;
}

} // namespace inputs
