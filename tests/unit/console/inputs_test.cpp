#include "console/ConvertInputs.h"

#include <gtest/gtest.h>

namespace {

using inputs::IsOwnOutput;
using inputs::Kind;
using inputs::KindOf;

TEST(Inputs, TheExtensionDecides) {
    for (const char16_t* name : {u"a.txt", u"a.TXT", u"a.b.Txt", u".txt", u"\u0995.txt"})
        EXPECT_EQ(Kind::Text, KindOf(name));
    for (const char16_t* name : {u"a.doc", u"a.RTF", u"a.Mdb"}) EXPECT_EQ(Kind::Later, KindOf(name));
    for (const char16_t* name : {u"a.docx", u"a.txt ", u"a.tx", u"a.txt.gz", u"txt", u"", u"a."})
        EXPECT_EQ(Kind::Unknown, KindOf(name));
}

TEST(Inputs, OwnOutputsEndInTheSuffixOrInSuffixAndNumber) {
    for (const char16_t* name : {u"a- Unicode.txt", u"- Unicode.txt", u"a- Unicode - 1.txt",
                                 u"a- Unicode - 32767.TXT", u"a.b- Unicode.txt"})
        EXPECT_TRUE(IsOwnOutput(name, u"- Unicode", {}));
    for (const char16_t* name : {u"a.txt", u"a- Unicode2.txt", u"a- unicode.txt", u"a- Unicode - .txt",
                                 u"a- Unicode - 0.txt", u"a- Unicode - 01.txt", u"a- Unicode -1.txt",
                                 u"a- Unicode - x1.txt", u"a - 1.txt", u"a- Unicode.b.txt"})
        EXPECT_FALSE(IsOwnOutput(name, u"- Unicode", {}));
}

TEST(Inputs, WithoutASuffixOnlyANumberedTwinIsAnOutput) {
    const std::vector<std::u16string> names = {u"a - 1.txt", u"a.txt", u"b - 1.txt", u"c.txt"};
    EXPECT_TRUE(IsOwnOutput(u"a - 1.txt", u"", names));
    EXPECT_FALSE(IsOwnOutput(u"a.txt", u"", names));
    EXPECT_FALSE(IsOwnOutput(u"b - 1.txt", u"", names));
    EXPECT_FALSE(IsOwnOutput(u" - 1.txt", u"", names));
}

} // namespace
