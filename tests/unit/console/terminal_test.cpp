#include "console/Terminal.h"

#include <gtest/gtest.h>

namespace {

TEST(Visible, ControlsAndLoneSurrogatesAreSpelled) {
    const std::u16string odd = {u'a', 0x1B, u'[', 0x9D, 0xD800, 0xDC81, u'z'};
    // A high and a low surrogate side by side are one character.
    EXPECT_EQ(u"a<U+001B>[<U+009D>\U00010081z", terminal::Visible(odd));
    EXPECT_EQ(u"<U+DC81><U+D800>x", terminal::Visible(std::u16string{0xDC81, 0xD800, u'x'}));
    EXPECT_EQ(u"<U+0000><U+000A><U+007F>", terminal::Visible(std::u16string{0, u'\n', 0x7F}));
    EXPECT_EQ(u"Av\u00A0\u2014", terminal::Visible(u"Av\u00A0\u2014"));
}

TEST(Visible, LongTextIsCut) {
    EXPECT_EQ(u"abc...", terminal::Visible(u"abcd", 3));
    EXPECT_EQ(u"abc", terminal::Visible(u"abc", 3));
    EXPECT_EQ(u"\U0001F600...", terminal::Visible(u"\U0001F600x", 1));
    EXPECT_EQ(u"", terminal::Visible(u"", 0));
}

TEST(FailureText, NamesTextAndNumber) {
    EXPECT_EQ(u"Subscript out of range (failure 9)",
              terminal::FailureText(RuntimeFailure(kSubscriptOutOfRange, u"clsConvert")));
}

TEST(Progress, LineShowsBarAndShare) {
    EXPECT_EQ(u"[..............................]   0% a.txt", terminal::ProgressLine(u"a.txt", 0, 10, 80));
    EXPECT_EQ(u"[###############...............]  50% a.txt", terminal::ProgressLine(u"a.txt", 5, 10, 80));
    EXPECT_EQ(u"[##############################] 100% a.txt", terminal::ProgressLine(u"a.txt", 10, 10, 80));
}

TEST(Progress, OddRangesStayWithinTheBar) {
    EXPECT_EQ(u"[..............................]   0% ", terminal::ProgressLine(u"", 5, 0, 80));
    EXPECT_EQ(u"[..............................]   0% ", terminal::ProgressLine(u"", -5, 10, 80));
    EXPECT_EQ(u"[##############################] 100% ", terminal::ProgressLine(u"", 50, 10, 80));
    EXPECT_EQ(u"[##############################] 100% ",
              terminal::ProgressLine(u"", INT64_MAX, INT64_MAX, 80));
}

TEST(Progress, LineLeavesTheLastColumnFree) {
    EXPECT_EQ(39u, terminal::ProgressLine(u"a long name.txt", 1, 2, 40).size());
    EXPECT_EQ(1u, terminal::ProgressLine(u"a", 1, 2, 0).size());
    // 38 columns of bar and number; one wide character takes the next two, a second has no room.
    EXPECT_EQ(39u, terminal::ProgressLine(u"\u4E2D\u4E2D", 1, 2, 42).size());
}

} // namespace
