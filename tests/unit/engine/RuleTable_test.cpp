#include "engine/RuleTable.h"

#include "base/RuntimeFailure.h"

#include <gtest/gtest.h>

namespace {

int FailureOf(RuleTable& table, std::u16string_view payload) {
    try {
        table.Read(payload);
    } catch (const RuntimeFailure& failure) {
        return failure.Number();
    }
    return 0;
}

TEST(RuleTable, ReadsMarkersAndRulesInTheirOrder) {
    RuleTable table;
    table.Read(u"\uE001\r\n\uE002\r\nkh\t\u0996\r\nk\t\u0995");
    EXPECT_EQ(u"\uE001", table.m_RephMarker);
    EXPECT_EQ(u"\uE002", table.m_YaPhalaMarker);
    EXPECT_EQ((std::vector<std::u16string>{u"kh", u"k"}), table.m_Find);
    EXPECT_EQ((std::vector<std::u16string>{u"\u0996", u"\u0995"}), table.m_Replace);
}

TEST(RuleTable, ThreeLinesGiveOneRow) {
    RuleTable table;
    table.Read(u"R\r\nY\r\na\tb");
    EXPECT_EQ(1u, table.m_Find.size());
    EXPECT_EQ(1u, table.m_Replace.size());
}

TEST(RuleTable, FieldsBehindTheSecondAreIgnored) {
    RuleTable table;
    table.Read(u"R\r\nY\r\na\tb\tc\r\nd\t\te");
    EXPECT_EQ(u"a", table.m_Find[0]);
    EXPECT_EQ(u"b", table.m_Replace[0]);
    EXPECT_EQ(u"", table.m_Replace[1]);
}

TEST(RuleTable, TabAloneGivesTwoEmptyFields) {
    RuleTable table;
    table.Read(u"R\r\nY\r\n\t");
    EXPECT_EQ(u"", table.m_Find[0]);
    EXPECT_EQ(u"", table.m_Replace[0]);
}

TEST(RuleTable, LineThatEndsWithTheTabDeletes) {
    RuleTable table;
    table.Read(u"R\r\nY\r\nab\t");
    EXPECT_EQ(u"ab", table.m_Find[0]);
    EXPECT_EQ(u"", table.m_Replace[0]);
}

TEST(RuleTable, FieldsAreLiteral) {
    RuleTable table;
    table.Read(u"R\r\nY\r\n \"A\\t# \t'; x\r\na\nb\rc\td\ne\rf");
    EXPECT_EQ(u" \"A\\t# ", table.m_Find[0]);
    EXPECT_EQ(u"'; x", table.m_Replace[0]);
    EXPECT_EQ(u"a\nb\rc", table.m_Find[1]);
    EXPECT_EQ(u"d\ne\rf", table.m_Replace[1]);
}

TEST(RuleTable, FieldsKeepNulsAndLoneSurrogates) {
    RuleTable table;
    const std::u16string find = {u'a', 0, 0xD800}, replace = {0xDC00, 0};
    table.Read(u"R\r\nY\r\n" + find + u"\t" + replace);
    EXPECT_EQ(find, table.m_Find[0]);
    EXPECT_EQ(replace, table.m_Replace[0]);
}

TEST(RuleTable, NoiseWithoutLineEndFailsOnTheSecondLineAndLeavesTheFirst) {
    RuleTable table;
    table.m_RephMarker = u"old R";
    table.m_YaPhalaMarker = u"old Y";
    EXPECT_EQ(9, FailureOf(table, u"noise"));
    EXPECT_EQ(u"noise", table.m_RephMarker);
    EXPECT_EQ(u"old Y", table.m_YaPhalaMarker);
}

TEST(RuleTable, EmptyPayloadFailsBeforeAnythingIsRead) {
    RuleTable table;
    table.Read(u"R\r\nY\r\na\tb");
    EXPECT_EQ(9, FailureOf(table, u""));
    EXPECT_EQ(u"R", table.m_RephMarker);
    EXPECT_EQ(u"a", table.m_Find[0]);
}

TEST(RuleTable, TwoLinesFailOnTheBoundsWithBothMarkersRead) {
    RuleTable table;
    EXPECT_EQ(9, FailureOf(table, u"R\r\nY"));
    EXPECT_EQ(u"R", table.m_RephMarker);
    EXPECT_EQ(u"Y", table.m_YaPhalaMarker);
    EXPECT_TRUE(table.IsErased());
}

TEST(RuleTable, RuleWithoutTabFailsOnItsSecondField) {
    RuleTable table;
    EXPECT_EQ(9, FailureOf(table, u"R\r\nY\r\na\tb\r\ncd\r\ne\tf"));
    EXPECT_EQ((std::vector<std::u16string>{u"a", u"cd", u""}), table.m_Find);
    EXPECT_EQ((std::vector<std::u16string>{u"b", u"", u""}), table.m_Replace);
}

TEST(RuleTable, EmptyLineInTheMiddleFailsOnItsFirstField) {
    RuleTable table;
    EXPECT_EQ(9, FailureOf(table, u"R\r\nY\r\na\tb\r\n\r\ne\tf"));
    EXPECT_EQ((std::vector<std::u16string>{u"a", u"", u""}), table.m_Find);
}

TEST(RuleTable, EmptyLineAtTheEndFailsWithEveryRuleRead) {
    RuleTable table;
    EXPECT_EQ(9, FailureOf(table, u"R\r\nY\r\na\tb\r\ne\tf\r\n"));
    EXPECT_EQ((std::vector<std::u16string>{u"a", u"e", u""}), table.m_Find);
    EXPECT_EQ((std::vector<std::u16string>{u"b", u"f", u""}), table.m_Replace);
}

TEST(RuleTable, EmptyMarkersAreRead) {
    RuleTable table;
    table.Read(u"\r\n\r\na\tb");
    EXPECT_EQ(u"", table.m_RephMarker);
    EXPECT_EQ(u"", table.m_YaPhalaMarker);
}

TEST(RuleTable, ReadingAgainReplacesRowsAndMarkers) {
    RuleTable table;
    table.Read(u"R\r\nY\r\na\tb\r\nc\td");
    table.Read(u"r\r\ny\r\ne\tf");
    EXPECT_EQ(u"r", table.m_RephMarker);
    EXPECT_EQ((std::vector<std::u16string>{u"e"}), table.m_Find);
}

TEST(RuleTable, EraseKeepsTheMarkers) {
    RuleTable table;
    table.Read(u"R\r\nY\r\na\tb");
    table.Erase();
    EXPECT_TRUE(table.IsErased());
    EXPECT_EQ(u"R", table.m_RephMarker);
    EXPECT_EQ(u"Y", table.m_YaPhalaMarker);
}

} // namespace
