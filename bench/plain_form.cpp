// What the engine is compared with: every rule after the other by find and replace, then
// the passes by literal string surgery. A filter, cp1252 in, UTF-16 out.
//
//   plain_form PLUGIN.dll <INPUT >OUTPUT
#include "reference/PlainConvert.h"

#include "base/Files.h"
#include "base/Text.h"
#include "engine/PluginFile.h"

#include <cstdio>
#include <iterator>
#include <string>
#include <vector>

namespace {

reference::Table ReadTable(std::u16string_view payload) {
    const std::vector<std::u16string_view> lines = text::Split(payload, u"\r\n");
    reference::Table table;
    table.reph = lines.at(0);
    table.yaPhala = lines.at(1);
    for (std::size_t i = 2; i < lines.size(); ++i) {
        const std::vector<std::u16string_view> fields = text::Split(lines[i], u"\t");
        table.rules.emplace_back(fields.at(0), fields.at(1));
    }
    return table;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    std::string file;
    if (!files::ReadAll(files::FromPathBytes(argv[1]), file)) return 3;
    const reference::Table table = ReadTable(plugin::OpenPayload(std::move(file)));
    const reference::Table passes{table.reph, table.yaPhala, {}};
    char line[1024];
    while (std::fgets(line, sizeof line, stdin) != nullptr) {
        std::u16string units = text::FromCp1252(line);
        std::u16string end;
        while (!units.empty() && (units.back() == u'\n' || units.back() == u'\r')) {
            end.insert(end.begin(), units.back());
            units.pop_back();
        }
        for (const auto& [find, replace] : table.rules) units = text::ReplaceAll(units, find, replace);
        const reference::Outcome outcome = reference::Convert(passes, units);
        if (outcome.failure != 0) return 3;
        const std::string bytes = text::ToUtf16Le(outcome.text + end);
        if (std::fwrite(bytes.data(), 1, bytes.size(), stdout) != bytes.size()) return 3;
    }
    return 0;
}
