// The table that lays a form out: text, one control a line, the fields between tabs:
//   form container control kind left top width height caption tab properties
// Twips, relative to the container's inside. A name in an array carries its index in
// parentheses. tab is the place in the tab order, empty for none. properties are
// "Name=value" with "; " between them, set once the control is there; further fields are
// notes for the reader. The first line names the fields; the line whose kind is "form"
// tells the form itself. A line whose kind is "set" gives properties a name, and
// "Use=name" in a later line stands for them. Of siblings that overlap the first is in front.
#pragma once

#include <string_view>
#include <utility>
#include <vector>

struct LayoutRow {
    std::u16string_view Container, Name, Kind, Caption;
    int Index = -1; // -1: in no array
    int Left = 0, Top = 0, Width = 0, Height = 0;
    int TabIndex = -1;
    std::vector<std::pair<std::u16string_view, std::u16string_view>> Properties;
};

// The rows, as views into table, which must live on. Raises failure 13 with the line's
// number where a line has too few fields or a number is none.
std::vector<LayoutRow> ParseLayout(std::u16string_view table);

// The table of that form among the program's resources (data/layout), kept as long as the
// program runs. Raises failure 13 where there is none.
std::u16string_view LayoutFromResource(std::u16string_view form);

// Values of properties: "yes" and "no"; decimal digits. Raise failure 13 for other texts.
bool ParseYesNo(std::u16string_view value);
int ParseNumber(std::u16string_view value);
