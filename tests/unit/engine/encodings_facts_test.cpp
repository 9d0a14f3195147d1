// The rule sources: that they hold together, and what each code stands for, against the
// facts that they were made from where those are at hand.

#include "unit/engine/EncodingsTesting.h"

#include <algorithm>
#include <set>

namespace {

using namespace encodings;

std::u16string RulesOnly(const rulesource::Table& table, std::u16string line) {
    for (const rulesource::Table::Rule& rule : table.rules)
        line = text::ReplaceAll(line, rule.find, rule.replace);
    return line;
}

// "U+0995 U+09CD" or "76 A9": a code point, or a byte of the code page.
std::u16string FromHex(const std::string& numbers) {
    std::u16string units;
    for (std::size_t from = 0; from < numbers.size();) {
        const std::size_t end = std::min(numbers.find(' ', from), numbers.size());
        const std::string number = numbers.substr(from, end - from);
        if (number == "REPH") {
            units += u'\uE001';
        } else if (number == "YAPHALA") {
            units += u'\uE002';
        } else if (number.starts_with("U+")) {
            units += static_cast<char16_t>(std::stoul(number.substr(2), nullptr, 16));
        } else {
            units += text::FromCp1252(static_cast<unsigned char>(std::stoul(number, nullptr, 16)));
        }
        from = end + 1;
    }
    return units;
}

struct Fact {
    std::string codes;
    std::string unicode;
    std::string role;
};

std::vector<Fact> FactsOf(const std::string& file) {
    std::vector<Fact> facts;
    for (const std::string& line : Lines(ExtraFile(file))) {
        const std::vector<std::string> fields = Fields(line);
        if (fields.size() >= 4 && fields[1] != "legacy_hex")
            facts.push_back({fields[1], fields[2], fields[3]});
    }
    return facts;
}

TEST(EncodingFacts, Bijoy) {
    if (ExtraFolder().empty()) GTEST_SKIP() << "ZORVAK_EXTRA_FILES is not set";
    const rulesource::Table table = TableOf("Bijoy");
    const std::unique_ptr<clsConvert> converter = Load("Bijoy");
    // What these mean depends on their neighbours; alone they are punctuation, or the
    // conjunct of the older font.
    const std::set<std::string> byContext = {"91", "92", "93", "94", "95", "96",
                                             "97", "AD", "CD", "E6", "F8"};
    // Bytes without a meaning, read as Latin-1: nothing to repair.
    const std::set<std::string> unused = {"U+0080", "U+008E", "U+009E"};
    std::size_t checked = 0;
    for (const Fact& fact : FactsOf("bijoy-facts.tsv")) {
        if (byContext.contains(fact.codes) || unused.contains(fact.codes)) continue;
        ++checked;
        if (fact.unicode.starts_with("-> ")) {
            // A repair: both spellings say the same, here behind a letter.
            EXPECT_EQ(text::ToUtf8(converter->Convert(u"K" + FromHex(fact.codes))),
                      text::ToUtf8(converter->Convert(u"K" + FromHex(fact.unicode.substr(3)))))
                << fact.codes;
        } else {
            const std::u16string legacy = FromHex(fact.codes);
            const std::u16string unicode = fact.unicode == "-" ? legacy : FromHex(fact.unicode);
            const std::u16string rules = RulesOnly(table, legacy);
            // The engine joins A and aa-kar itself.
            EXPECT_TRUE(rules == unicode || converter->Convert(legacy) == unicode)
                << fact.codes << " gives " << text::ToUtf8(rules) << ", not " << text::ToUtf8(unicode);
        }
    }
    EXPECT_GT(checked, 450u);
}

void CheckFacts(const std::string& name, const std::string& file, const std::set<std::string>& except) {
    if (ExtraFolder().empty()) GTEST_SKIP() << "ZORVAK_EXTRA_FILES is not set";
    const rulesource::Table table = TableOf(name);
    const std::unique_ptr<clsConvert> converter = Load(name);
    std::size_t checked = 0;
    for (const Fact& fact : FactsOf(file)) {
        if (except.contains(fact.codes)) continue;
        ++checked;
        const std::u16string legacy = FromHex(fact.codes);
        const std::u16string unicode = fact.role == "reph"        ? u"\uE001"
                                       : fact.role == "yaphala"   ? u"\uE002"
                                       : fact.unicode == "(none)" ? legacy
                                                                  : FromHex(fact.unicode);
        const std::u16string rules = RulesOnly(table, legacy);
        EXPECT_TRUE(rules == unicode || converter->Convert(legacy) == unicode)
            << fact.codes << " gives " << text::ToUtf8(rules) << ", not " << text::ToUtf8(unicode);
    }
    EXPECT_GT(checked, 190u);
}

TEST(EncodingFacts, Proshika) {
    // A0 is the no-break space as well, and only some fonts draw a ra-phala there.
    CheckFacts("Proshika", "proshika-facts.tsv", {"A0"});
}

TEST(EncodingFacts, Alpona) {
    CheckFacts("Alpona", "alpona-facts.tsv", {});
}

TEST(EncodingSource, MarkersArePrivateAndNothingPrivateIsLeft) {
    for (const std::string& name : kNames) {
        const rulesource::Table table = TableOf(name);
        EXPECT_EQ(table.reph.text, u"\uE001") << name;
        EXPECT_EQ(table.yaPhala.text, u"\uE002") << name;
        std::u16string privates;
        for (char16_t unit = u'\uE000'; unit < u'\uE020'; ++unit) {
            bool made = false, found = false;
            for (const rulesource::Table::Rule& rule : table.rules) {
                made |= rule.replace.find(unit) != rule.replace.npos;
                // The last rule for it takes it away for good.
                if (rule.find == std::u16string(1, unit))
                    found = rule.replace.find(unit) == rule.replace.npos;
            }
            const bool marker = unit == u'\uE001' || unit == u'\uE002';
            EXPECT_TRUE(!made || marker || found)
                << name << " leaves U+" << std::hex << static_cast<int>(unit);
        }
    }
}

TEST(EncodingSource, NoRuleStandsTwice) {
    for (const std::string& name : kNames) {
        std::set<std::u16string> finds;
        for (const rulesource::Table::Rule& rule : TableOf(name).rules) {
            EXPECT_FALSE(rule.find.empty()) << name << ".txt:" << rule.line;
            EXPECT_TRUE(finds.insert(rule.find).second) << name << ".txt:" << rule.line;
        }
    }
}

} // namespace
