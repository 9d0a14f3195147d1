// Profile files. Every case runs against our own reader and against the system's call; on
// Windows these are different programs.

#include "base/Files.h"
#include "base/Text.h"
#include "engine/mod_Ini_Read_Write.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <random>

namespace {

using namespace mod_Ini_Read_Write;

class Ini : public testing::Test {
protected:
    // A fresh file each time, since the system keeps what it has read.
    std::u16string Put(std::string_view bytes) {
        return m_Folder.Put(u"f" + text::Decimal(++m_Files) + u".ini", bytes);
    }
    void Expect(std::string_view bytes, std::u16string_view section, std::u16string_view key,
                std::u16string_view value) {
        const std::u16string path = Put(bytes);
        const std::string trace = testing::PrintToString(std::string(bytes)) + " " + text::ToUtf8(section) +
                                  " " + text::ToUtf8(key);
        EXPECT_EQ(ReadByOwn(section, key, path), value) << trace;
        EXPECT_EQ(ReadPluginIni(section, key, path), value) << trace;
    }
    TempFolder m_Folder;
    int m_Files = 0;
};

TEST_F(Ini, TheUsualFile) {
    constexpr std::string_view kFile = "[Bijoy]\r\nTable=Bijoy\r\nDefault Font=SutonnyMJ\r\n\r\n"
                                       "[Proshika]\r\nTable=Proshika\r\nDefault Font=AdarshaLipiNormal\r\n";
    Expect(kFile, u"Bijoy", u"Table", u"Bijoy");
    Expect(kFile, u"BIJOY", u"DEFAULT FONT", u"SutonnyMJ");
    Expect(kFile, u"proshika", u"default font", u"AdarshaLipiNormal");
    Expect(kFile, u"Alpona", u"Table", u"");
    Expect(kFile, u"Bijoy", u"Colour", u"");
}

TEST_F(Ini, MissingFile) {
    EXPECT_EQ(ReadPluginIni(u"a", u"k", m_Folder / u"none.ini"), u"");
    EXPECT_EQ(ReadByOwn(u"a", u"k", m_Folder / u"none.ini"), u"");
    Expect("", u"a", u"k", u"");
}

TEST_F(Ini, LineEnds) {
    Expect("[a]\nk=v", u"a", u"k", u"v");
    Expect("[a]\rk=v\r", u"a", u"k", u"v");
    Expect("\r\n\r\n[a]\r\n\r\n\r\nk=v\r\n", u"a", u"k", u"v");
}

TEST_F(Ini, BlanksDoNotCount) {
    Expect("[a]\n \t k \t = \t v w \t \n", u"a", u"k", u"v w");
    Expect(" \t[ a ] \nk=v\n", u"a", u"k", u"v");
    Expect("[a b]\nk  l=v\n", u"a b", u"k  l", u"v");
    Expect("[a]\nk=v\n", u" a ", u" k ", u"v");
    Expect("[a]\nk=\n", u"a", u"k", u"");
}

TEST_F(Ini, OnePairOfQuotesIsTakenOff) {
    Expect("[a]\nk=\" v \"\n", u"a", u"k", u" v ");
    Expect("[a]\nk=' v '\n", u"a", u"k", u" v ");
    Expect("[a]\nk=\"\"v\"\"\n", u"a", u"k", u"\"v\"");
    Expect("[a]\nk=\"v'\n", u"a", u"k", u"\"v'");
    Expect("[a]\nk=\"v\n", u"a", u"k", u"\"v");
    Expect("[a]\nk=\"\n", u"a", u"k", u"\"");
    Expect("[a]\nk=\"\"\n", u"a", u"k", u"");
    Expect("[a]\n\"k\"=v\n", u"a", u"k", u"");
}

TEST_F(Ini, Semicolons) {
    Expect("[a]\n;k=v\nk=w\n", u"a", u"k", u"w");
    Expect("[a]\n  ;k=v\n", u"a", u"k", u"");
    Expect("[a]\nk=v ; w\n", u"a", u"k", u"v ; w");
    Expect(";[a]\nk=v\n", u"a", u"k", u"");
    Expect("[a;b]\nk=v\n", u"a;b", u"k", u"v");
}

TEST_F(Ini, OfTwoTheFirstCounts) {
    Expect("[a]\nk=1\nk=2\n", u"a", u"k", u"1");
    Expect("[a]\nk=1\n[A]\nk=2\nj=3\n", u"a", u"k", u"1");
    Expect("[a]\nk=1\n[A]\nk=2\nj=3\n", u"a", u"j", u"");
    Expect("[a]\nk\nk=2\n", u"a", u"k", u"");
}

TEST_F(Ini, Sections) {
    Expect("[a] rest\nk=v\n", u"a", u"k", u"v");
    Expect("[a]b]\nk=v\n", u"a]b", u"k", u"v");
    Expect("[b]\nk=1\n[a\nk=v\n", u"a", u"k", u"");
    Expect("k=v\n[a]\n", u"a", u"k", u"");
    Expect("[a]\nj=1\n  [b]\nk=2\n", u"a", u"k", u"");
}

TEST_F(Ini, ValuesKeepTheirEqualsSigns) {
    Expect("[a]\nk=v=w=\n", u"a", u"k", u"v=w=");
}

TEST_F(Ini, LongValuesAreCut) {
    const auto units = [](std::size_t count) { return std::u16string(count, u'x'); };
    const auto bytes = [](std::size_t count) { return std::string(count, 'x'); };
    Expect("[a]\nk=" + bytes(253) + "\n", u"a", u"k", units(253));
    Expect("[a]\nk=" + bytes(254) + "\n", u"a", u"k", units(254));
    Expect("[a]\nk=" + bytes(255) + "\n", u"a", u"k", units(254));
    Expect("[a]\nk=" + bytes(5000) + "\n", u"a", u"k", units(254));
    Expect("[a]\nk=\"" + bytes(253) + "\"\n", u"a", u"k", units(253));
    Expect("[a]\nk=\"" + bytes(300) + "\"\n", u"a", u"k", units(254));
}

TEST_F(Ini, BytesOfTheCodePage) {
    Expect("[a]\nk=\x80\x85\x99\xE9\xFF\n", u"a", u"k", u"\u20AC\u2026\u2122\u00E9\u00FF");
    Expect("[\xE9]\nk\xE9=v\n", u"\u00E9", u"k\u00E9", u"v");
    Expect("[a]\nk=\xA0v\xA0\n", u"a", u"k", u"\u00A0v\u00A0");
    Expect("[a]\nk=v\n", u"\u0995", u"k", u"");
}

TEST_F(Ini, PathsWithoutAnsiForm) {
    const auto path = m_Folder.Put(u"\u09AC\u09BE\u0982\u09B2\u09BE.INI", "[a]\nk=v\n");
    EXPECT_EQ(ReadPluginIni(u"a", u"k", path), u"v");
    EXPECT_EQ(ReadByOwn(u"a", u"k", path), u"v");
}

// Longer than the system's call takes, also by the short form.
TEST_F(Ini, VeryLongPaths) {
    std::u16string deep = m_Folder.Name();
    for (int i = 0; i < 40; ++i) {
        deep = files::Join(deep, u"folder");
        ASSERT_TRUE(files::CreateFolder(deep));
    }
    ASSERT_GT(deep.size(), 260u);
    const std::u16string path = files::Join(deep, u"f.ini");
    ASSERT_TRUE(files::WriteNew(path, "[a]\r\nk=v\r\n"));
    EXPECT_EQ(ReadPluginIni(u"a", u"k", path), u"v");
    EXPECT_EQ(ReadByOwn(u"a", u"k", path), u"v");
}

// Beside the test program there is no Plugin.INI of its own, only perhaps the build's.
TEST_F(Ini, AnEmptyFileNameMeansThePluginIniBesideTheProgram) {
    EXPECT_EQ(ReadPluginIni(u"no such plug-in", u"Table", u""), u"");
    const std::u16string folder = files::ProgramFolder();
    const std::u16string name = files::FindNoCase(folder, u"plugin.ini");
    if (name.empty()) return;
    EXPECT_EQ(ReadPluginIni(u"Bijoy", u"Table", u""),
              ReadPluginIni(u"Bijoy", u"Table", files::Join(folder, name)));
}

// Random files of little parts: both readers say the same. Only a test where they differ.
TEST_F(Ini, BothReadersAgreeOnAnything) {
    const std::string parts[] = {
        "[",  "]",    "[a]",  "[b]\n", "a",    "k",    "K",    "=",     "k=",      "\n",
        "\n", "\r\n", "\r",   " ",     "\t",   "\"",   "'",    ";",     "v",       "=v",
        "#",  "\x1A", "\x0B", "\\",    "\xE4", "\xC4", "\x85", "[A]\n", "a=\"v\"", std::string(1, '\0')};
    std::mt19937 random(20240601);
    for (int round = 0; round < 400; ++round) {
        std::string bytes = random() % 2 ? "[a]\n" : "";
        for (auto count = random() % 20; count > 0; --count) bytes += parts[random() % std::size(parts)];
        const std::u16string path = Put(bytes);
        for (const std::u16string_view section : {u"a", u"b", u""})
            for (const std::u16string_view key : {u"k", u"a", u""})
                EXPECT_EQ(ReadByOwn(section, key, path), ReadBySystem(section, key, path))
                    << testing::PrintToString(bytes) << " " << text::ToUtf8(section) << " "
                    << text::ToUtf8(key);
    }
}

} // namespace
