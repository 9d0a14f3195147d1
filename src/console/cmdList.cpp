// Tested by tests/cli/test_list.py.

#include "console/cmdList.h"

#include "console/Encodings.h"
#include "console/Help.h"
#include "console/Terminal.h"
#include "engine/mod_Ini_Read_Write.h"

#include <algorithm>
#include <array>

namespace {

using Row = std::array<std::u16string, 3>;

std::u16string Plain(const std::vector<Row>& rows) {
    std::u16string made;
    for (const Row& row : rows) made += row[0] + u"\t" + row[1] + u"\t" + row[2] + u"\n";
    return made;
}

// Columns under a heading, for people.
std::u16string Aligned(std::vector<Row> rows) {
    rows.insert(rows.begin(), Row{u"Encoding", u"Font table", u"Default font"});
    std::array<std::size_t, 3> widths{};
    for (const Row& row : rows)
        for (std::size_t i = 0; i < 3; ++i) widths[i] = std::max(widths[i], row[i].size());
    std::u16string made;
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < 2; ++i) {
            made += row[i];
            made.append(widths[i] - row[i].size() + 2, u' ');
        }
        made += row[2] + u"\n";
    }
    return made;
}

} // namespace

int RunList(const std::vector<std::u16string>& given) {
    Arguments arguments;
    if (!arguments.Read(given, {})) return terminal::UsageError(u"list", arguments.Problem());
    if (arguments.WantsHelp()) {
        terminal::Print(help::Text(u"list"));
        return kExitDone;
    }
    if (!arguments.Operands().empty()) return terminal::UsageError(u"list", u"list takes no argument");
    std::vector<Row> rows;
    for (const std::u16string& name : encodings::Installed())
        rows.push_back({name, mod_Ini_Read_Write::ReadPluginIni(name, u"Table", {}),
                        mod_Ini_Read_Write::ReadPluginIni(name, u"Default Font", {})});
    if (rows.empty()) {
        terminal::PrintError(u"no encoding is installed in " + encodings::PluginFolder());
        return kExitFailed;
    }
    terminal::Print(terminal::IsTerminal(terminal::Stream::Output) ? Aligned(rows) : Plain(rows));
    return kExitDone;
}
