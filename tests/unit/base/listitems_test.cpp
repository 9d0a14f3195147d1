#include "base/ListItems.h"

#include "base/Counter16.h"
#include "support/Failure.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace {

std::u16string All(const ListItems& items) {
    std::u16string all;
    for (int i = 0; i < items.ListCount(); ++i) all += items.List(i) + u" ";
    return all;
}

TEST(ListItems, AddsAtTheEndAndInBetween) {
    ListItems items;
    EXPECT_EQ(0, items.ListCount());
    items.AddItem(u"a", -1, 0);
    items.AddItem(u"c");
    items.AddItem(u"b", 1, 7, true);
    items.AddItem(u"d", 3);
    EXPECT_EQ(u"a b c d ", All(items));
    EXPECT_EQ(7, items.ListIcon(1));
    EXPECT_TRUE(items.ListBold(1));
    EXPECT_EQ(-1, items.ListIcon(2));
    EXPECT_FALSE(items.ListBold(2));
}

TEST(ListItems, RemovesAndClears) {
    ListItems items;
    for (const std::u16string_view text : {u"a", u"b", u"c"}) items.AddItem(text);
    items.Remove(1);
    EXPECT_EQ(u"a c ", All(items));
    items.Clear();
    EXPECT_EQ(0, items.ListCount());
}

TEST(ListItems, TheSamePathCanStandInItTwice) {
    ListItems items;
    items.AddItem(u"a");
    items.AddItem(u"a");
    EXPECT_EQ(2, items.ListCount());
}

TEST(ListItems, AnIndexOutOfRangeIsFailure9) {
    ListItems items;
    items.AddItem(u"a");
    EXPECT_EQ(9, FailureNumber([&] { items.List(1); }));
    EXPECT_EQ(9, FailureNumber([&] { items.List(-1); }));
    EXPECT_EQ(9, FailureNumber([&] { items.Remove(1); }));
    EXPECT_EQ(9, FailureNumber([&] { items.AddItem(u"b", 2); }));
    EXPECT_EQ(9, FailureNumber([&] { items.AddItem(u"b", -2); }));
    EXPECT_EQ(u"a ", All(items));
}

TEST(ListItems, ItemsCanBeWritten) {
    ListItems items;
    items.AddItem(u"a", -1, 3);
    items.List(0, u"b");
    items.ListIcon(0, -1);
    items.ListBold(0, true);
    EXPECT_EQ(u"b", items.List(0));
    EXPECT_EQ(-1, items.ListIcon(0));
    EXPECT_TRUE(items.ListBold(0));
    EXPECT_EQ(9, FailureNumber([&] { items.List(1, u"c"); }));
    EXPECT_EQ(9, FailureNumber([&] { items.ListIcon(-1, 0); }));
    EXPECT_EQ(9, FailureNumber([&] { items.ListBold(1, true); }));
}

TEST(ListItems, TheStoredFormIsThreeFields) {
    ListItems items;
    items.AddItem(u"C:\\a.txt", -1, 4);
    items.AddItem(u"", -1, -1, true);
    EXPECT_EQ(u"C:\\a.txt<%S%>4<%S%>False", items.Stored(0));
    EXPECT_EQ(u"<%S%>-1<%S%>True", items.Stored(1));
    items.Store(0, items.Stored(1));
    EXPECT_EQ(u"", items.List(0));
    EXPECT_EQ(-1, items.ListIcon(0));
    EXPECT_TRUE(items.ListBold(0));
    items.Store(1, u"x<%S%>12<%S%>False");
    EXPECT_EQ(u"x", items.List(1));
    EXPECT_EQ(12, items.ListIcon(1));
    EXPECT_FALSE(items.ListBold(1));
    EXPECT_EQ(9, FailureNumber([&] { items.Stored(2); }));
    EXPECT_EQ(9, FailureNumber([&] { items.Store(2, u"x<%S%>1<%S%>True"); }));
}

TEST(ListItems, ATextWithTheSeparatorCannotBeStored) {
    ListItems items;
    items.AddItem(u"a<%S%>b");
    EXPECT_FALSE(ListItems::CanBeStored(items.List(0)));
    EXPECT_TRUE(ListItems::CanBeStored(u"a<%S%b>"));
    EXPECT_EQ(5, FailureNumber([&] { items.Stored(0); }));
    EXPECT_EQ(u"a<%S%>b", items.List(0));
}

TEST(ListItems, DamagedStoredFormsChangeNothing) {
    ListItems items;
    items.AddItem(u"kept", -1, 2, true);
    for (const std::u16string_view stored :
         {u"", u"x", u"x<%S%>1", u"x<%S%>1<%S%>true", u"x<%S%><%S%>True", u"x<%S%>-<%S%>True",
          u"x<%S%>1a<%S%>True", u"x<%S%>9999999999<%S%>True", u"x<%S%>1<%S%>True<%S%>"})
        EXPECT_EQ(13, FailureNumber([&] { items.Store(0, stored); }));
    EXPECT_EQ(u"kept<%S%>2<%S%>True", items.Stored(0));
}

TEST(ListItems, TellsOfEachChange) {
    ListItems items;
    std::vector<std::pair<ListChange, int>> told;
    items.Changed = [&](ListChange change, int index) { told.emplace_back(change, index); };
    items.AddItem(u"b");
    items.AddItem(u"a", 0);
    items.List(1, u"c");
    items.Store(0, u"x<%S%>1<%S%>True");
    items.Remove(1);
    FailureNumber([&] { items.Remove(1); });
    items.Clear();
    const std::vector<std::pair<ListChange, int>> expected{
        {ListChange::Added, 0},   {ListChange::Added, 0},   {ListChange::Written, 1},
        {ListChange::Written, 0}, {ListChange::Removed, 1}, {ListChange::Cleared, -1}};
    EXPECT_EQ(expected, told);
}

TEST(Counter16, HoldsSixteenBitsAndFailsBeyond) {
    EXPECT_EQ(32767, ToInt16(32767, u"test"));
    EXPECT_EQ(-32768, ToInt16(-32768, u"test"));
    EXPECT_EQ(6, FailureNumber([] { ToInt16(32768, u"test"); }));
    EXPECT_EQ(6, FailureNumber([] { ToInt16(-32769, u"test"); }));
}

} // namespace
