#include "base/ListItems.h"

#include "base/Counter16.h"
#include "support/Failure.h"

#include <gtest/gtest.h>

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

TEST(Counter16, HoldsSixteenBitsAndFailsBeyond) {
    EXPECT_EQ(32767, ToInt16(32767, u"test"));
    EXPECT_EQ(-32768, ToInt16(-32768, u"test"));
    EXPECT_EQ(6, FailureNumber([] { ToInt16(32768, u"test"); }));
    EXPECT_EQ(6, FailureNumber([] { ToInt16(-32769, u"test"); }));
}

} // namespace
