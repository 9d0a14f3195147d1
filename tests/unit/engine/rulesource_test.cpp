// The source text of an encoding: what it may hold, its mistakes, and the ways to a
// plug-in and back.

#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "engine/RuleSource.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace rulesource;

constexpr std::string_view kMarkers = "[markers]\nreph = U+E001\nya-phala = U+E002\n";

std::string Messages(const std::vector<Message>& messages) {
    std::string all;
    for (const Message& message : messages)
        all += std::to_string(message.line) + (message.error ? " error: " : " warning: ") +
               text::ToUtf8(message.text) + "\n";
    return all;
}

// The rules of a source that has no mistake.
Table Good(std::string_view source) {
    std::vector<Message> messages;
    Table table = Parse(source, messages);
    EXPECT_EQ(Messages(messages), "");
    return table;
}

Table::Rule Rule(std::string_view line) {
    const Table table = Good(std::string(kMarkers) + "[rules]\n" + std::string(line) + "\n");
    EXPECT_EQ(table.rules.size(), 1u) << line;
    return table.rules.empty() ? Table::Rule() : table.rules[0];
}

void ExpectRule(std::string_view line, std::u16string_view find, std::u16string_view replace) {
    const Table::Rule rule = Rule(line);
    EXPECT_EQ(rule.find, find) << line;
    EXPECT_EQ(rule.replace, replace) << line;
}

// Line and kind of the first message; its text must hold part.
void ExpectMistake(std::string_view source, std::size_t line, std::u16string_view part, bool error = true) {
    std::vector<Message> messages;
    Parse(source, messages);
    const std::string trace = std::string(source) + "\n" + Messages(messages);
    ASSERT_FALSE(messages.empty()) << trace;
    EXPECT_EQ(messages[0].line, line) << trace;
    EXPECT_EQ(messages[0].error, error) << trace;
    EXPECT_NE(messages[0].text.find(part), std::u16string::npos) << trace;
}

void ExpectRuleMistake(std::string_view line, std::u16string_view part, bool error = true) {
    ExpectMistake(std::string(kMarkers) + "[rules]\n" + std::string(line), 5, part, error);
}

TEST(RuleSource, MarkersRulesAndTheirLines) {
    const Table table = Good("# comment\n[markers]\nreph = U+E001\n\nya-phala = U+E002 # why\n"
                             "  \t\n[rules: letters]\n  # more\nk = U+0995\n\n[rules]\na = U+09BE\n");
    EXPECT_EQ(table.reph.text, u"\uE001");
    EXPECT_EQ(table.reph.line, 3u);
    EXPECT_EQ(table.yaPhala.text, u"\uE002");
    EXPECT_EQ(table.yaPhala.line, 5u);
    ASSERT_EQ(table.rules.size(), 2u);
    EXPECT_EQ(table.rules[0].find, u"k");
    EXPECT_EQ(table.rules[0].line, 9u);
    EXPECT_EQ(table.rules[1].replace, u"\u09BE");
    EXPECT_EQ(table.rules[1].line, 12u);
}

TEST(RuleSource, ItemsOfARule) {
    ExpectRule("k = \xE0\xA6\x95", u"k", u"\u0995");
    ExpectRule("\tk\t=\tU+0995 \t", u"k", u"\u0995");
    ExpectRule("a b  c = U+0995 U+09CD x", u"abc", u"\u0995\u09CDx");
    ExpectRule("U+1F600 = U+d800", u"\U0001F600", std::u16string(1, char16_t(0xD800)));
    ExpectRule("U+10FFFF = U+00000A", u"\U0010FFFF", u"\n");
    ExpectRule("k = <reph>", u"k", u"\uE001");
    ExpectRule("<ya-phala> U+09C1 = U+09C1 <ya-phala>", u"\uE002\u09C1", u"\u09C1\uE002");
    ExpectRule("U+0020 = U+003D U+0023", u" ", u"=#");
    ExpectRule("== = =#", u"==", u"=#");
    ExpectRule("a# = #b", u"a#", u"#b");
    ExpectRule("k = x # the rest is = a comment U+", u"k", u"x");
    ExpectRule("\xC2\xA0 = x", u"\u00A0", u"x"); // a no-break space is text
    ExpectRule("[ = ]", u"[", u"]");
    ExpectRule("[ab] = x", u"[ab]", u"x");
    ExpectRule("U+005B rules] = x", u"[rules]", u"x");
    ExpectRule("<rep> = x", u"<rep>", u"x");
}

TEST(RuleSource, EmptySides) {
    ExpectRule("k =", u"k", u"");
    ExpectRule("k = # nothing", u"k", u"");
    ExpectRule("= k", u"", u"k");
    ExpectRule("=", u"", u"");
}

TEST(RuleSource, LineEndsAndMark) {
    std::vector<Message> messages;
    const Table table =
        Parse("\xEF\xBB\xBF[markers]\r\nreph = a\r\nya-phala = b\r\n[rules]\r\nk = x\r\n", messages);
    EXPECT_EQ(Messages(messages), "");
    EXPECT_EQ(table.reph.text, u"a");
    ASSERT_EQ(table.rules.size(), 1u);
    EXPECT_EQ(table.rules[0].replace, u"x");
    EXPECT_EQ(Good("[markers]\nreph = a\nya-phala = b\n[rules]\nk = x").rules.size(), 1u);
}

TEST(RuleSource, MarkersMayStandBehindTheRules) {
    const Table table = Good("[rules]\nk = <reph>\n[markers]\nreph = U+E001\nya-phala = U+E002\n");
    EXPECT_EQ(table.rules[0].replace, u"\uE001");
}

TEST(RuleSource, Mistakes) {
    ExpectRuleMistake("U+99 = x", u"U+99");
    ExpectRuleMistake("U+0995X = x", u"U+0995X");
    ExpectRuleMistake("k = U+110000", u"U+110000");
    ExpectRuleMistake("k = U+0000995", u"U+0000995");
    ExpectRuleMistake("k = U+", u"U+");
    ExpectRuleMistake("k x", u"'='");
    ExpectRuleMistake("k=x", u"'='");
    ExpectRuleMistake("k # = x", u"'='");
    ExpectRuleMistake("k = x = y", u"second '='");
    ExpectRuleMistake("[rule]", u"unknown section");
    ExpectRuleMistake("[rules", u"unknown section");
    ExpectRuleMistake("[markers: mine]", u"unknown section");
    ExpectRuleMistake("a\rb = c", u"carriage return");
    ExpectRuleMistake("k = \xFF", u"UTF-8");
    ExpectRuleMistake("k = \xED\xA0\x80", u"UTF-8");
    ExpectRuleMistake("k = <Reph>", u"upper and lower case", false);
    ExpectRuleMistake("k = u+0995", u"upper and lower case", false);
    ExpectMistake("k = x\n" + std::string(kMarkers) + "[rules]\na = b\n", 1, u"before the first section");
    ExpectMistake(std::string(kMarkers) + "reph = x\n[rules]\na = b\n", 4, u"twice");
    ExpectMistake(std::string(kMarkers) + "other = x\n[rules]\na = b\n", 4, u"unknown marker");
    ExpectMistake("[markers]\nreph = <ya-phala>\nya-phala = x\n[rules]\na = b\n", 2, u"<ya-phala>");
    ExpectMistake("[markers]\nreph = x\n[rules]\na = b\n", 0, u"ya-phala");
    ExpectMistake("[markers]\nya-phala = x\n[rules]\na = b\n", 0, u"reph");
    ExpectMistake(kMarkers, 0, u"no rule");
    ExpectMistake("", 0, u"no");
}

TEST(RuleSource, AllMistakesAreToldInLineOrder) {
    std::vector<Message> messages;
    Parse("x\n[markers]\nreph = U+1\n[rules]\nk\n[what]\nya-phala = 2\n[rules]\nU+ = U+2\n", messages);
    std::vector<std::size_t> lines;
    for (const Message& message : messages) lines.push_back(message.line);
    EXPECT_EQ(lines, (std::vector<std::size_t>{0, 1, 3, 5, 6, 9, 9}));
}

TEST(RuleSource, PayloadOfATable) {
    std::vector<Message> messages;
    EXPECT_EQ(Payload(Good(std::string(kMarkers) + "[rules]\nk = x y\na =\n= b\n"), messages),
              u"\uE001\r\n\uE002\r\nk\txy\r\na\t\r\n\tb");
    EXPECT_EQ(Messages(messages), "");
}

void ExpectRefused(std::string_view source, std::size_t line, std::u16string_view part) {
    std::vector<Message> messages;
    const Table table = Parse(source, messages);
    ASSERT_EQ(Messages(messages), "");
    EXPECT_EQ(Payload(table, messages), u"");
    ASSERT_EQ(messages.size(), 1u) << source;
    EXPECT_EQ(messages[0].line, line) << source;
    EXPECT_TRUE(messages[0].error);
    EXPECT_NE(messages[0].text.find(part), std::u16string::npos) << Messages(messages);
}

TEST(RuleSource, WhatAPayloadCannotHold) {
    const std::string rules = std::string(kMarkers) + "[rules]\n";
    ExpectRefused(rules + "U+0009 = x", 5, u"TAB");
    ExpectRefused(rules + "k = U+0009", 5, u"TAB");
    ExpectRefused(rules + "k = U+000D U+000A", 5, u"CR LF");
    ExpectRefused(rules + "U+000D U+000A = k", 5, u"CR LF");
    ExpectRefused("[markers]\nreph = U+000D U+000A\nya-phala = x\n[rules]\na = b", 2, u"CR LF");
}

TEST(RuleSource, MarkersThatWouldNeverEnd) {
    const auto source = [](std::string_view reph, std::string_view yaPhala) {
        return "[markers]\nreph = " + std::string(reph) + "\nya-phala = " + std::string(yaPhala) +
               "\n[rules]\na = b";
    };
    for (const char* reph : {"", "U+09B0", "U+09CD", "U+09B0 U+09CD"})
        ExpectRefused(source(reph, "x"), 2, u"reph");
    for (const char* yaPhala : {"", "U+09CD", "U+09AF", "U+09CD U+09AF", "U+200C", "U+200C U+09CD U+09AF"})
        ExpectRefused(source("x", yaPhala), 3, u"ya-phala");
    for (const char16_t* fine : {u"\u09AF", u"x", u"\uE001", u"\u09B0\u09CD\u0995"})
        EXPECT_EQ(EndlessReph(fine), u"");
    for (const char16_t* fine : {u"\u09B0", u"x", u"\uE002", u"\u09CD\u09AF\u09CD"})
        EXPECT_EQ(EndlessYaPhala(fine), u"");
}

TEST(RuleSource, ParsePayload) {
    const Table table = ParsePayload(u"\uE001\r\n\uE002\r\nk\tx\tignored\r\n\t\r\na\rb\t\n");
    EXPECT_EQ(table.reph.text, u"\uE001");
    EXPECT_EQ(table.yaPhala.text, u"\uE002");
    ASSERT_EQ(table.rules.size(), 3u);
    EXPECT_EQ(table.rules[0].find, u"k");
    EXPECT_EQ(table.rules[0].replace, u"x");
    EXPECT_EQ(table.rules[0].line, 3u);
    EXPECT_EQ(table.rules[1].find, u"");
    EXPECT_EQ(table.rules[2].find, u"a\rb");
    EXPECT_EQ(table.rules[2].replace, u"\n");
}

TEST(RuleSource, ParsePayloadNamesTheLine) {
    const auto description = [](std::u16string_view payload) {
        try {
            ParsePayload(payload);
        } catch (const RuntimeFailure& failure) {
            EXPECT_EQ(failure.Number(), 9);
            return failure.Description();
        }
        return std::u16string();
    };
    EXPECT_NE(description(u"").find(u"line 2"), std::u16string::npos);
    EXPECT_NE(description(u"a").find(u"line 2"), std::u16string::npos);
    EXPECT_NE(description(u"a\r\nb").find(u"line 3"), std::u16string::npos);
    EXPECT_NE(description(u"a\r\nb\r\nc\td\r\ne").find(u"line 4 of the table has no TAB"),
              std::u16string::npos);
    EXPECT_NE(description(u"a\r\nb\r\nc\td\r\n").find(u"line 4 of the table is empty"), std::u16string::npos);
}

TEST(RuleSource, ShowIsASource) {
    std::vector<Message> messages;
    Table table =
        Good(std::string(kMarkers) + "[rules]\nkh = \xE0\xA6\x96\nU+0020 = U+200C\n^ = <reph>\nx =\n= y\n"
                                     "[ = U+D800\n# a comment\n");
    EXPECT_EQ(text::ToUtf8(Show(table)),
              std::string(kMarkers) + "\n[rules]\nkh = \xE0\xA6\x96\nU+0020 = U+200C\n^ = <reph>\nx =\n= y\n"
                                      "U+005B = U+D800\n");
}

// Any table comes back from its own source, item by item.
TEST(RuleSource, ShowAndParseGoRound) {
    const std::u16string parts[] = {u"k",
                                    u"U+0041",
                                    u"u+0995",
                                    u"#",
                                    u"=",
                                    u"[",
                                    u"[rules]",
                                    u" ",
                                    u"\uE001",
                                    u"\uE002",
                                    u"\u09BE",
                                    u"\u200C",
                                    u"<",
                                    u"<reph>",
                                    u"\r",
                                    u"\n",
                                    u"\0x",
                                    u"\uFEFF",
                                    u"\u00AD",
                                    u"\u00A0",
                                    u"\U0001F600",
                                    u"U",
                                    u"+",
                                    u"9",
                                    u"<Reph>",
                                    u"<ya-phala>",
                                    u"'",
                                    u"\\",
                                    std::u16string(1, char16_t(0xD83D)),
                                    std::u16string(1, char16_t(0xDE00))};
    std::mt19937 random(7);
    const auto some = [&](unsigned most) {
        std::u16string made;
        for (unsigned count = random() % (most + 1); count > 0; --count)
            made += parts[random() % std::size(parts)];
        return made;
    };
    for (int round = 0; round < 3000; ++round) {
        Table table;
        table.reph.text = some(2);
        table.yaPhala.text = some(2);
        for (unsigned count = 1 + random() % 4; count > 0; --count)
            table.rules.push_back({some(4), some(4), 0});
        const std::u16string shown = Show(table);
        std::vector<Message> messages;
        const Table back = Parse(text::ToUtf8(shown), messages);
        EXPECT_EQ(Messages(messages), "") << text::ToUtf8(shown);
        EXPECT_EQ(back.reph.text, table.reph.text);
        EXPECT_EQ(back.yaPhala.text, table.yaPhala.text);
        ASSERT_EQ(back.rules.size(), table.rules.size()) << text::ToUtf8(shown);
        for (std::size_t i = 0; i < table.rules.size(); ++i) {
            EXPECT_EQ(back.rules[i].find, table.rules[i].find) << text::ToUtf8(shown);
            EXPECT_EQ(back.rules[i].replace, table.rules[i].replace) << text::ToUtf8(shown);
        }
    }
}

TEST(RuleSource, PlainForm) {
    std::string plain;
    std::u16string problem, payload;
    const std::u16string_view table = u"\uFEFF\uE001\r\n\uE002\r\nk#\t\u0995 \r\n\t\U0001F600\tthird";
    ASSERT_TRUE(PlainFromPayload(table, plain, problem));
    EXPECT_EQ(plain, "\xEF\xBB\xBF\xEE\x80\x81\n\xEE\x80\x82\nk#\t\xE0\xA6\x95 \n\t\xF0\x9F\x98\x80\tthird");
    ASSERT_TRUE(PayloadFromPlain(plain, payload, problem));
    EXPECT_EQ(payload, table);
    // The text ends where it ends: a line end at the end makes an empty line.
    ASSERT_TRUE(PayloadFromPlain("a\nb\n\tc\n", payload, problem));
    EXPECT_EQ(payload, u"a\r\nb\r\n\tc\r\n");
    ASSERT_TRUE(PayloadFromPlain("", payload, problem));
    EXPECT_EQ(payload, u"");
}

TEST(RuleSource, WhatThePlainFormCannotHold) {
    std::string plain;
    std::u16string problem, payload;
    const auto line3 = [](std::u16string_view text) { return text.find(u"line 3") != text.npos; };
    EXPECT_FALSE(PlainFromPayload(u"1\r\n2\r\na\rb\tc", plain, problem));
    EXPECT_TRUE(line3(problem) && problem.find(u"CR") != problem.npos) << text::ToUtf8(problem);
    EXPECT_FALSE(PlainFromPayload(u"1\r\n2\r\na\tb\nc", plain, problem));
    EXPECT_TRUE(line3(problem) && problem.find(u"LF") != problem.npos) << text::ToUtf8(problem);
    const std::u16string lone = std::u16string(u"1\r\n2\r\na\t") + char16_t(0xDC00);
    EXPECT_FALSE(PlainFromPayload(lone, plain, problem));
    EXPECT_TRUE(line3(problem) && problem.find(u"surrogate") != problem.npos) << text::ToUtf8(problem);
    EXPECT_FALSE(PayloadFromPlain("1\n2\na\tb\r\n", payload, problem));
    EXPECT_TRUE(line3(problem)) << text::ToUtf8(problem);
    EXPECT_FALSE(PayloadFromPlain("1\n2\n\xED\xA0\x80\tb", payload, problem));
    EXPECT_TRUE(line3(problem)) << text::ToUtf8(problem);
}

} // namespace
