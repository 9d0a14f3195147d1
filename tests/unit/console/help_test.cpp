#include "console/Help.h"

#include "base/Text.h"

#include <gtest/gtest.h>

namespace {

TEST(Help, EveryTextFitsATerminalAndEndsItsLastLine) {
    for (const std::u16string_view command : {u"", u"convert", u"text", u"list", u"plugin", u"help"}) {
        const std::u16string_view all = help::Text(command);
        ASSERT_FALSE(all.empty());
        EXPECT_EQ(u'\n', all.back());
        EXPECT_EQ(u"Usage: zorvak ", all.substr(0, 14));
        for (const std::u16string_view line : text::Split(all, u"\n")) {
            EXPECT_LT(line.size(), 80u) << text::ToUtf8(line);
            EXPECT_FALSE(!line.empty() && line.back() == u' ') << text::ToUtf8(line);
        }
    }
    EXPECT_TRUE(help::Text(u"nothing").empty());
}

TEST(Help, ProgramNamesEveryCommand) {
    for (const std::u16string_view command : {u"convert", u"text", u"list", u"plugin", u"help"}) {
        EXPECT_NE(std::u16string_view::npos, help::Text(u"").find(u"\n  " + std::u16string(command) + u" "));
        EXPECT_NE(std::u16string_view::npos, help::ShortUsage().find(command));
    }
}

} // namespace
