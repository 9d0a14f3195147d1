#include "console/Arguments.h"

#include <gtest/gtest.h>

namespace {

using Strings = std::vector<std::u16string>;

bool Read(Arguments& arguments, const Strings& given) {
    return arguments.Read(given, {{u"from", true}, {u"keep-going"}, {u"suffix", true}});
}

TEST(Arguments, OptionsStandAnywhereAmongOperands) {
    Arguments arguments;
    ASSERT_TRUE(Read(arguments, {u"a.txt", u"--from", u"Bijoy", u"b.txt", u"--keep-going", u"c.txt"}));
    EXPECT_EQ((Strings{u"a.txt", u"b.txt", u"c.txt"}), arguments.Operands());
    EXPECT_EQ(u"Bijoy", arguments.Value(u"from"));
    EXPECT_TRUE(arguments.Has(u"keep-going"));
    EXPECT_FALSE(arguments.Has(u"suffix"));
    EXPECT_EQ(u"- Unicode", arguments.Value(u"suffix", u"- Unicode"));
}

TEST(Arguments, ValueBehindAnEqualsSign) {
    Arguments arguments;
    ASSERT_TRUE(Read(arguments, {u"--suffix=", u"--from=A=B"}));
    EXPECT_TRUE(arguments.Has(u"suffix"));
    EXPECT_EQ(u"", arguments.Value(u"suffix", u"other"));
    EXPECT_EQ(u"A=B", arguments.Value(u"from"));
}

TEST(Arguments, AValueMayLookLikeAnOption) {
    Arguments arguments;
    ASSERT_TRUE(Read(arguments, {u"--suffix", u"- Unicode", u"--from", u"--keep-going"}));
    EXPECT_EQ(u"- Unicode", arguments.Value(u"suffix"));
    EXPECT_EQ(u"--keep-going", arguments.Value(u"from"));
    EXPECT_FALSE(arguments.Has(u"keep-going"));
}

TEST(Arguments, TwoHyphensEndTheOptions) {
    Arguments arguments;
    ASSERT_TRUE(Read(arguments, {u"--keep-going", u"--", u"--from", u"--", u"-x.txt"}));
    EXPECT_EQ((Strings{u"--from", u"--", u"-x.txt"}), arguments.Operands());
    EXPECT_FALSE(arguments.Has(u"from"));
}

TEST(Arguments, AHyphenAloneAndAnEmptyTextAreOperands) {
    Arguments arguments;
    ASSERT_TRUE(Read(arguments, {u"-", u""}));
    EXPECT_EQ((Strings{u"-", u""}), arguments.Operands());
}

TEST(Arguments, HelpBelongsToEveryCommand) {
    Arguments longForm, shortForm, none;
    ASSERT_TRUE(Read(longForm, {u"--help"}));
    ASSERT_TRUE(Read(shortForm, {u"a", u"-h"}));
    ASSERT_TRUE(Read(none, {u"--", u"--help"}));
    EXPECT_TRUE(longForm.WantsHelp());
    EXPECT_TRUE(shortForm.WantsHelp());
    EXPECT_FALSE(none.WantsHelp());
}

TEST(Arguments, Problems) {
    struct Row {
        Strings given;
        std::u16string problem;
    };
    const Row rows[] = {
        {{u"--form", u"x"}, u"unknown option --form"},
        {{u"--form=x"}, u"unknown option --form"},
        {{u"-f"}, u"unknown option -f"},
        {{u"--FROM", u"x"}, u"unknown option --FROM"},
        {{u"---from", u"x"}, u"unknown option ---from"},
        {{u"--from"}, u"option --from needs a value"},
        {{u"--keep-going=yes"}, u"option --keep-going takes no value"},
        {{u"--from", u"a", u"--from=b"}, u"option --from is given twice"},
        {{u"--keep-going", u"--keep-going"}, u"option --keep-going is given twice"},
    };
    for (const Row& row : rows) {
        Arguments arguments;
        EXPECT_FALSE(Read(arguments, row.given));
        EXPECT_EQ(row.problem, arguments.Problem());
    }
}

} // namespace
