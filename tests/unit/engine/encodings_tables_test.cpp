// What ships beside the encodings: font tables and Plugin.INI.

#include "unit/engine/EncodingsTesting.h"

#include <algorithm>
#include <map>
#include <set>

namespace {

using namespace encodings;

using Rows = std::vector<std::pair<std::string, std::string>>;

// The rows of a table, its form checked byte by byte.
Rows FontTable(const std::string& name) {
    const std::string bytes = SourceFile("data/fonts/" + name + ".tbl");
    EXPECT_FALSE(bytes.empty()) << name;
    EXPECT_FALSE(bytes.ends_with("\n")) << name << ": a line end behind the last row";
    Rows rows;
    for (std::size_t from = 0; from <= bytes.size();) {
        const std::size_t end = std::min(bytes.find("\r\n", from), bytes.size());
        const std::string row = bytes.substr(from, end - from);
        const std::vector<std::string> fields = Fields(row);
        EXPECT_EQ(fields.size(), 2u) << name << ": " << row;
        EXPECT_EQ(row.find_first_of("\r\n"), row.npos) << name << ": " << row;
        if (fields.size() == 2) {
            EXPECT_FALSE(fields[0].empty()) << name;
            EXPECT_EQ(fields[1], "SolaimanLipi") << name << ": " << row;
            rows.emplace_back(fields[0], fields[1]);
        }
        from = end + 2;
    }
    return rows;
}

TEST(Encodings, EverySourceIsAmongTheTestedOnes) {
    std::vector<std::u16string> sources;
    ASSERT_TRUE(files::ListFiles(text::FromUtf8(ZC_SOURCE_DIR "/data/encodings"), sources));
    std::set<std::u16string> tested;
    for (const std::string& name : kNames) tested.insert(text::FromUtf8(name) + u".txt");
    EXPECT_EQ(std::set<std::u16string>(sources.begin(), sources.end()), tested);
}

TEST(FontTables, FormAndUniqueKeys) {
    std::set<std::u16string> all;
    for (const std::string& name : kNames) {
        for (const auto& [font, replaced] : FontTable(name)) {
            // No font belongs to two encodings, in whatever case its name is written.
            EXPECT_TRUE(all.insert(text::LowerAscii(text::FromCp1252(font))).second) << font;
        }
    }
    EXPECT_TRUE(all.contains(u"sutonnymj"));
    EXPECT_TRUE(all.contains(u"adarshalipinormal"));
    EXPECT_TRUE(all.contains(u"boishakhi"));
    EXPECT_FALSE(all.contains(u"solaimanlipi"));
    EXPECT_FALSE(all.contains(u"nikoshmj")) << "a Unicode font by its glyphs, whatever its name";
    EXPECT_FALSE(all.contains(u"bijoychangmamj")) << "Chakma script";
}

TEST(FontTables, AllFontsThatAreSureAndNoOther) {
    if (ExtraFolder().empty()) GTEST_SKIP() << "ZORVAK_EXTRA_FILES is not set";
    std::map<std::string, std::set<std::string>> sure; // fonts by family
    for (const std::string& line : Lines(ExtraFile("fonts.tsv"))) {
        const std::vector<std::string> fields = Fields(line);
        if (fields.size() >= 2) sure[fields[1]].insert(fields[0]);
    }
    std::size_t compared = 0;
    for (const std::string& name : kNames) {
        const auto family = sure.find(LowerName(name));
        if (family == sure.end()) continue; // an encoding whose fonts were not surveyed
        std::set<std::string> listed;
        for (const auto& [font, replaced] : FontTable(name)) listed.insert(font);
        EXPECT_EQ(listed, family->second) << name;
        ++compared;
    }
    EXPECT_GE(compared, 3u);
}

TEST(PluginIni, SectionOfEachPlugin) {
    const std::string bytes = SourceFile("data/Plugin.INI");
    const std::vector<std::pair<std::string, std::string>> fonts = {
        {"Bijoy", "SutonnyMJ"}, {"Proshika", "AdarshaLipiNormal"}, {"Alpona", "Boishakhi"}};
    std::string expected;
    for (const auto& [name, font] : fonts) {
        if (!expected.empty()) expected += "\r\n";
        expected += "[" + name + "]\r\nTable=" + name + "\r\nDefault Font=" + font + "\r\n";
    }
    EXPECT_EQ(bytes, expected);
    for (const auto& [name, font] : fonts) {
        // The table is there, and knows the font that legacy text is shown in.
        const Rows rows = FontTable(name);
        EXPECT_TRUE(std::any_of(rows.begin(), rows.end(), [&](const auto& row) { return row.first == font; }))
            << name;
    }
}

} // namespace
