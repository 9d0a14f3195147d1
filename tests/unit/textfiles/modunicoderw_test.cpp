#include "textfiles/modUnicodeRW.h"

#include "base/RuntimeFailure.h"
#include "support/TempFolder.h"
#include "textfiles/MDllError.h"

#include <gtest/gtest.h>

using namespace std::string_literals;
using namespace modUnicodeRW;

namespace {

class TextFiles : public testing::Test {
protected:
    // The text of a file with these bytes; "(failed)" where reading says false.
    std::u16string Read(std::string_view bytes, std::int32_t format) {
        return ReadPath(m_Folder.Put(u"in.txt", bytes), format);
    }
    static std::u16string ReadPath(std::u16string_view path, std::int32_t format) {
        bool ok = false;
        std::u16string text = ReadTextFile(path, format, ok);
        EXPECT_TRUE(ok || text.empty());
        return ok ? text : u"(failed)";
    }

    TempFolder m_Folder;
};

TEST_F(TextFiles, TheReadingFormatOfEachSetting) {
    EXPECT_EQ(-2, ReadFormat(u"AUTO DETECT ENCODING"));
    EXPECT_EQ(0, ReadFormat(u"ASCII ENCODING"));
    EXPECT_EQ(-1, ReadFormat(u"UNICODE (UTF-16) ENCODING"));
    EXPECT_EQ(-2, ReadFormat(u"ascii encoding"));
    EXPECT_EQ(-2, ReadFormat(u""));
}

TEST_F(TextFiles, AutoReadsUtf16WhereTheMarkStands) {
    EXPECT_EQ(u"a\u0995", Read("\xFF\xFE"
                               "a\0\x95\x09"s,
                               -2));
    EXPECT_EQ(u"a\u2022\t", Read("a\x95\x09", -2));
    // The big-endian mark and UTF-8's are no marks here.
    EXPECT_EQ(u"\u00FE\u00FFa", Read("\xFE\xFF"
                                     "a",
                                     -2));
    EXPECT_EQ(u"\u00EF\u00BB\u00BFa", Read("\xEF\xBB\xBF"
                                           "a",
                                           -2));
    EXPECT_EQ(u"\u00FF", Read("\xFF", -2));
}

TEST_F(TextFiles, Utf16DropsOneLeadingMark) {
    EXPECT_EQ(u"ab", Read("a\0b\0"s, -1));
    EXPECT_EQ(u"ab", Read("\xFF\xFE"
                          "a\0b\0"s,
                          -1));
    EXPECT_EQ(u"\uFEFFa", Read("\xFF\xFE\xFF\xFE"
                               "a\0"s,
                               -1));
    EXPECT_EQ(u"\uFEFFa", Read("\xFF\xFE\xFF\xFE"
                               "a\0"s,
                               -2));
}

TEST_F(TextFiles, AMarkReadAsAnsiStays) {
    EXPECT_EQ(u"\u00FF\u00FEa", Read("\xFF\xFE"
                                     "a",
                                     0));
    EXPECT_EQ(u"\u00FF\u00FE", Read("\xFF\xFE", 0));
}

TEST_F(TextFiles, AnsiReadAsUtf16IsNoise) {
    EXPECT_EQ(u"\u6261\u6463", Read("abcd", -1));
}

TEST_F(TextFiles, AnOddLastByteBecomesTheReplacementCharacter) {
    EXPECT_EQ(u"a\uFFFD", Read("a\0b"s, -1));
    EXPECT_EQ(u"a\uFFFD", Read("\xFF\xFE"
                               "a\0b"s,
                               -2));
    EXPECT_EQ(u"\uFFFD", Read("a", -1));
    EXPECT_EQ(u"\uFFFD", Read("\xFF\xFE"
                              "a",
                              -1));
}

TEST_F(TextFiles, AnEmptyFileIsAFailure) {
    for (const std::int32_t format : {-2, -1, 0}) EXPECT_EQ(u"(failed)", Read("", format));
    EXPECT_FALSE(LastFailure().empty());
}

TEST_F(TextFiles, AFileOfTheMarkAloneCountsAsEmpty) {
    EXPECT_EQ(u"(failed)", Read("\xFF\xFE", -2));
    EXPECT_EQ(u"(failed)", Read("\xFF\xFE", -1));
}

TEST_F(TextFiles, AMissingFileIsAFailure) {
    ASSERT_FALSE(std::filesystem::exists(m_Folder.Path(u"no.txt")));
    KeepLastFailure({});
    EXPECT_EQ(u"(failed)", ReadPath(m_Folder / u"no.txt", -2));
    EXPECT_FALSE(LastFailure().empty());
    EXPECT_EQ(u"(failed)", ReadPath(m_Folder.Name(), -2));
}

TEST_F(TextFiles, AnUnknownFormatIsAFailure) {
    EXPECT_EQ(u"(failed)", Read("a", 1));
    EXPECT_EQ(u"(failed)", Read("a", -3));
}

TEST_F(TextFiles, EveryLineEndStaysAsItStood) {
    EXPECT_EQ(u"a\r\nb\nc\rd\n\re\r\n", Read("a\r\nb\nc\rd\n\re\r\n", 0));
    EXPECT_EQ(u"a\r\n", Read("a\0\r\0\n\0"s, -1));
}

TEST_F(TextFiles, EveryByteHasItsCharacterAndGoesBack) {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    const std::u16string text = Read(bytes, 0);
    ASSERT_EQ(256u, text.size());
    EXPECT_EQ(u'\0', text[0]);
    EXPECT_EQ(u'\u20AC', text[0x80]);
    EXPECT_EQ(u'\u0081', text[0x81]);
    EXPECT_EQ(u'\u0178', text[0x9F]);
    EXPECT_EQ(u'\u00A0', text[0xA0]);
    EXPECT_EQ(u'\u00FF', text[0xFF]);
    ASSERT_TRUE(WriteTextFile(m_Folder / u"out.txt", text, 2, 0));
    EXPECT_EQ(bytes, m_Folder.Get(u"out.txt"));
}

TEST_F(TextFiles, LargeFilesOfAnySizeComeWhole) {
    for (const std::size_t size : {262143u, 262144u, 262145u, 262146u, 262147u, 1048577u}) {
        std::string bytes(size, '\0');
        for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>('A' + i % 61);
        const std::u16string ansi = Read(bytes, -2);
        ASSERT_EQ(size, ansi.size());
        for (std::size_t i = 0; i < size; ++i) ASSERT_EQ(bytes[i], static_cast<char>(ansi[i])) << i;
        const std::u16string wide = Read(bytes, -1);
        ASSERT_EQ((size + 1) / 2, wide.size());
        for (std::size_t i = 0; i < size / 2; ++i)
            ASSERT_EQ(static_cast<unsigned>(bytes[2 * i]) | static_cast<unsigned>(bytes[2 * i + 1]) << 8,
                      wide[i]);
    }
}

TEST_F(TextFiles, Utf16IsWrittenWithTheMarkAndNothingBehindTheText) {
    ASSERT_TRUE(WriteTextFile(m_Folder / u"out.txt", u"a\u0995", 2, -1));
    EXPECT_EQ("\xFF\xFE"
              "a\0\x95\x09"s,
              m_Folder.Get(u"out.txt"));
    ASSERT_TRUE(WriteTextFile(m_Folder / u"out.txt", u"", 2, -1));
    EXPECT_EQ("\xFF\xFE", m_Folder.Get(u"out.txt"));
}

TEST_F(TextFiles, WhatWasWrittenAsUtf16ComesBackWithAuto) {
    const std::u16string text = u"বাংলা\r\n\xD800 lone\xDC00 \uFEFF\0 \U0001F600"s;
    ASSERT_TRUE(WriteTextFile(m_Folder / u"out.txt", text, 2, -1));
    EXPECT_EQ(text, ReadPath(m_Folder / u"out.txt", -2));
}

TEST_F(TextFiles, WritingReplacesTheWholeFile) {
    m_Folder.Put(u"out.txt", "something much longer than what comes");
    ASSERT_TRUE(WriteTextFile(m_Folder / u"out.txt", u"x\u20AC", 2, 0));
    EXPECT_EQ("x\x80", m_Folder.Get(u"out.txt"));
    EXPECT_EQ(1u, m_Folder.Names().size());
}

TEST_F(TextFiles, WhatTheCodePageLacksIsAFailureAndLeavesTheOldFile) {
    m_Folder.Put(u"out.txt", "old");
    EXPECT_FALSE(WriteTextFile(m_Folder / u"out.txt", u"a\u0995", 2, 0));
    EXPECT_FALSE(WriteTextFile(m_Folder / u"out.txt", u"\u0080", 2, 0)); // the byte 80 is the euro sign
    EXPECT_EQ("old", m_Folder.Get(u"out.txt"));
    EXPECT_FALSE(WriteTextFile(m_Folder / u"new.txt", u"\u0995", 2, 0));
    EXPECT_EQ(1u, m_Folder.Names().size());
}

TEST_F(TextFiles, AReadOnlyFileIsAFailure) {
    const std::u16string path = m_Folder.Put(u"out.txt", "old");
    ASSERT_TRUE(files::SetReadOnly(path, true));
    EXPECT_FALSE(WriteTextFile(path, u"new", 2, -1));
    EXPECT_FALSE(WriteTextFile(path, u"new", 2, 0));
    EXPECT_EQ("old", m_Folder.Get(u"out.txt"));
    EXPECT_EQ(1u, m_Folder.Names().size());
    ASSERT_TRUE(files::SetReadOnly(path, false));
}

TEST_F(TextFiles, AFolderThatDoesNotExistIsAFailure) {
    const std::u16string path = files::Join(m_Folder / u"no", u"out.txt");
    EXPECT_FALSE(WriteTextFile(path, u"new", 2, -1));
    EXPECT_TRUE(m_Folder.Names().empty());
}

TEST_F(TextFiles, OtherWaysToOpenAreFailures) {
    for (const std::int32_t ioMode : {0, 1, 8})
        EXPECT_FALSE(WriteTextFile(m_Folder / u"a", u"x", ioMode, -1));
    for (const std::int32_t format : {-3, -2, 1})
        EXPECT_FALSE(WriteTextFile(m_Folder / u"a", u"x", 2, format));
    EXPECT_TRUE(m_Folder.Names().empty());
}

TEST_F(TextFiles, ANewTextNeverReplaces) {
    ASSERT_TRUE(WriteNewText(m_Folder / u"a.txt", u"x"));
    const files::Result second = WriteNewText(m_Folder / u"a.txt", u"y");
    EXPECT_FALSE(second);
    EXPECT_TRUE(second.nameTaken);
    EXPECT_EQ("\xFF\xFEx\0"s, m_Folder.Get(u"a.txt"));
}

TEST_F(TextFiles, AFailureLeavesTheTextOfReadText) {
    std::u16string text = u"old";
    EXPECT_FALSE(ReadText(m_Folder / u"no.txt", -2, text));
    EXPECT_FALSE(ReadText(m_Folder.Put(u"a.txt", ""), -2, text));
    EXPECT_EQ(u"old", text);
}

TEST(MDllError, TextOfASystemError) {
    EXPECT_EQ(u"", MDllError::GetSystemErrorText(0));
    const std::u16string words = MDllError::GetSystemErrorText(2);
    EXPECT_NE(std::u16string::npos, words.find(u"ile")) << "File not found, in the system's words";
    EXPECT_EQ(u"System error code: 987654321", MDllError::GetSystemErrorText(987654321));
    EXPECT_EQ(u"System error code: -5", MDllError::GetSystemErrorText(-5));
}

} // namespace
