// What `zorvak convert` was asked to convert, file by file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace inputs {

enum class Kind {
    Text,    // a text file
    Later,   // a document or a database: known, but not converted yet
    Unknown, // no kind of ours, names without a dot included
};

// The last dot of the name decides, A to Z without regard to case.
Kind KindOf(std::u16string_view name);

// True for the name of a result: in front of its last dot it ends in the suffix, or in the
// suffix, " - " and a number. With an empty suffix only the number tells, and only where
// names, sorted, holds the name without it.
bool IsOwnOutput(std::u16string_view name, std::u16string_view suffix,
                 const std::vector<std::u16string>& names);

struct Item {
    enum class Task { Convert, Fail, Skip };
    Task task;
    std::u16string path;   // absolute; of Skip, what was skipped
    std::u16string reason; // of Fail and Skip
};

// The files that the arguments stand for, in their order: a folder as the files of a known
// kind directly in it. No file is opened.
std::vector<Item> List(const std::vector<std::u16string>& arguments, std::u16string_view suffix);

} // namespace inputs
