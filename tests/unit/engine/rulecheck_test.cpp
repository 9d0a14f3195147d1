// The warnings of `zorvak plugin check`.

#include "base/Text.h"
#include "engine/RuleCheck.h"
#include "engine/RuleTable.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

namespace {

using namespace rulesource;

Table TableOf(std::vector<std::pair<std::u16string, std::u16string>> rules) {
    Table table;
    table.reph = {u"\uE001", 1};
    table.yaPhala = {u"\uE002", 2};
    std::size_t line = 3;
    for (auto& [find, replace] : rules) table.rules.push_back({find, replace, line++});
    return table;
}

std::vector<Message> Warnings(const Table& table) {
    std::vector<Message> messages;
    rulecheck::Check(table, messages);
    for (const Message& message : messages) EXPECT_FALSE(message.error) << text::ToUtf8(message.text);
    return messages;
}

// One warning, on that line, with that part in its text; with line 0 none at all.
void ExpectWarning(const Table& table, std::size_t line, std::u16string_view part = {}) {
    const std::vector<Message> messages = Warnings(table);
    std::string all;
    for (const Message& message : messages)
        all += std::to_string(message.line) + ": " + text::ToUtf8(message.text) + "\n";
    ASSERT_EQ(messages.size(), line ? 1u : 0u) << all;
    if (!line) return;
    EXPECT_EQ(messages[0].line, line) << all;
    EXPECT_NE(messages[0].text.find(part), std::u16string::npos) << all;
}

TEST(RuleCheck, NothingToSay) {
    ExpectWarning(TableOf({{u"kh", u"\u0996"}, {u"k", u"\u0995"}, {u"^", u"\uE001"}, {u"~", u"\uE002"}}), 0);
}

TEST(RuleCheck, EmptyFind) {
    ExpectWarning(TableOf({{u"", u"\u0995"}}), 3, u"empty");
}

TEST(RuleCheck, DuplicateFind) {
    ExpectWarning(TableOf({{u"k", u"\u0995"}, {u"g", u"\u0997"}, {u"k", u"\u0996"}}), 5, u"line 3 already");
    ExpectWarning(TableOf({{u"k", u"\u0995"}, {u"k", u"\u0996"}}), 4, u"can never match");
    // A rule in between makes the text anew.
    ExpectWarning(TableOf({{u"k", u"\u0995"}, {u"g", u"k"}, {u"k", u"\u0996"}}), 5, u"since");
}

TEST(RuleCheck, LongerBehindShorter) {
    ExpectWarning(TableOf({{u"k", u"\u0995"}, {u"kh", u"\u0996"}}), 4, u"can never match: line 3");
    ExpectWarning(TableOf({{u"h", u"\u0995"}, {u"g", u"\u0997"}, {u"kh", u"\u0996"}}), 5, u"line 3");
    ExpectWarning(TableOf({{u"bc", u"\u0995"}, {u"abcd", u"\u0996"}}), 4, u"line 3");
    ExpectWarning(TableOf({{u"k", u""}, {u"kh", u"\u0996"}}), 4, u"line 3");
}

TEST(RuleCheck, LongerBehindShorterThatIsMadeAnew) {
    ExpectWarning(TableOf({{u"\u0995", u"\u0996"}, {u"k", u"\u0995"}, {u"\u0995h", u"\u0997"}}), 0);
    // By a deletion that brings neighbours together.
    ExpectWarning(TableOf({{u"ab", u"\u0995"}, {u"-", u""}, {u"abc", u"\u0996"}}), 0);
    // By the rule itself: "aab" becomes "ab".
    ExpectWarning(TableOf({{u"\u0985\u09BE", u"\u09BE"}, {u"\u0985\u09BEx", u"\u0996"}}), 0);
    // One unit is never brought together.
    ExpectWarning(TableOf({{u"k", u"\u0995"}, {u"-", u""}, {u"kh", u"\u0996"}}), 5, u"line 3");
}

TEST(RuleCheck, Markers) {
    Table table = TableOf({{u"k", u"\u0995"}});
    table.reph.text = u"\uE001\uE003";
    ExpectWarning(table, 1, u"longer than one");
    table = TableOf({{u"k", u"\u0995"}});
    table.yaPhala.text = u"%";
    ExpectWarning(table, 2, u"ordinary text");
    table.yaPhala.text = u"\u09BE";
    ExpectWarning(table, 2, u"ordinary text");
    ExpectWarning(TableOf({{u"k", u"\uE001"}, {u"\uE001a", u"\u09BE\uE001"}}), 4, u"reph marker stands in");
    ExpectWarning(TableOf({{u"k\uE002", u"\uE002"}}), 3, u"ya-phala marker stands in");
}

TEST(RuleCheck, LegacyCharactersLeft) {
    ExpectWarning(TableOf({{u"k", u"\u0995k"}}), 3, u"'k'");
    ExpectWarning(TableOf({{u"k", u"\u00B5"}}), 3, u"\u00B5");
    ExpectWarning(TableOf({{u"k", u"\u0160"}}), 3, u"\u0160");
    ExpectWarning(TableOf({{u"k", u"\u0081"}}), 3, u"U+0081");
    // A later rule takes them.
    ExpectWarning(TableOf({{u"k", u"g"}, {u"g", u"\u0997"}}), 0);
    // Quotes, dashes, digits and signs may be meant.
    ExpectWarning(TableOf({{u"k", u"\u201C\u2013\u20261%\u00D7"}}), 0);
}

TEST(RuleCheck, MoreRulesThanConvertTakes) {
    Table table = TableOf({});
    for (std::size_t i = 0; i < 32768; ++i)
        table.rules.push_back(
            {std::u16string{char16_t(0x4E00 + i % 256), char16_t(0x5000 + i / 256)}, u"", i + 3});
    ExpectWarning(table, 32770, u"32767");
    table.rules.pop_back();
    ExpectWarning(table, 0);
}

TEST(RuleCheck, HostileTableEnds) {
    Table table = TableOf({});
    for (std::size_t i = 0; i < 4000; ++i)
        table.rules.push_back({std::u16string(1 + i % 64, u'a'), u"a", i + 3});
    EXPECT_FALSE(Warnings(table).empty());
}

TEST(RuleCheck, LongTextsOfAHostileTable) {
    const std::u16string many(200000, u'a');
    Table table = TableOf({{many, many}, {many + u"b", u"a"}, {many, many}});
    table.reph.text = many + u"#";
    table.yaPhala.text = std::u16string(200000, u'#');
    for (const Message& message : Warnings(table)) EXPECT_LT(message.text.size(), 1000u);
    std::vector<Message> messages;
    const Table back = Parse(text::ToUtf8(Show(table)), messages);
    EXPECT_TRUE(messages.empty());
    EXPECT_EQ(back.yaPhala.text, table.yaPhala.text);
    EXPECT_EQ(back.rules[1].find, table.rules[1].find);
}

// What is said never to match matches in no line: random tables, random lines.
TEST(RuleCheck, NeverIsNever) {
    std::mt19937 random(99);
    const auto some = [&](unsigned least, unsigned most) {
        std::u16string made;
        for (unsigned count = least + random() % (most - least + 1); count > 0; --count)
            made += char16_t(u'a' + random() % 3);
        return made;
    };
    int dead = 0;
    for (int round = 0; round < 4000; ++round) {
        Table table = TableOf({});
        for (std::size_t i = 0; i < 5; ++i)
            table.rules.push_back({some(1, 3), random() % 3 ? some(0, 2) : u"x", i + 3});
        std::set<std::size_t> never;
        for (const Message& message : Warnings(table))
            if (message.text.find(u"can never match") != std::u16string::npos) never.insert(message.line - 3);
        dead += static_cast<int>(never.size());
        for (int lines = 0; lines < 20; ++lines) {
            std::u16string line = some(0, 12);
            for (std::size_t i = 0; i < table.rules.size(); ++i) {
                EXPECT_FALSE(never.contains(i) && line.find(table.rules[i].find) != std::u16string::npos);
                line = text::ReplaceAll(line, table.rules[i].find, table.rules[i].replace);
            }
        }
    }
    EXPECT_GT(dead, 1000); // the test has seen what it is about
}

} // namespace
