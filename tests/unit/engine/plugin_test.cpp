// The plug-in file, from bytes to a loaded table.

#include "base/Text.h"
#include "engine/CryptoContainer.h"
#include "engine/PassPhrase.h"
#include "engine/PluginFile.h"
#include "engine/clsConvert.h"
#include "engine/clsCryptoAPI.h"
#include "support/Failure.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <set>

namespace {

constexpr std::u16string_view kPayload = u"\uE001\r\n\uE002\r\nk\t\u0995\r\na\t\u09BE\r\nx\t";

// A plug-in with any payload bytes and any salt.
std::string FileOf(std::string payload, std::string_view salt = "12345678901 ") {
    clsCryptoAPI crypto;
    crypto.SessionStart();
    crypto.ValueSALT(text::FromCp1252(salt));
    crypto.DecryptByteArray(payload, AssemblePassPhrase());
    return container::Join(payload, salt);
}

std::string FileOf(std::u16string_view payload) {
    return FileOf("\xFF\xFE" + text::ToUtf16Le(payload));
}

class Plugin : public testing::Test {
protected:
    int LoadFailure(std::string_view bytes) {
        const auto path = m_Folder.Put(u"Plugin.dll", bytes);
        return FailureNumber([&] { clsConvert().LoadTable(path); });
    }
    TempFolder m_Folder;
};

TEST_F(Plugin, PassPhraseIs128SingleByteCharacters) {
    const std::u16string phrase = AssemblePassPhrase();
    EXPECT_EQ(phrase.size(), 128u);
    for (const char16_t unit : phrase) EXPECT_GE(text::ToCp1252(unit), 0x21);
    EXPECT_GT(std::set<char16_t>(phrase.begin(), phrase.end()).size(), 40u);
    EXPECT_EQ(AssemblePassPhrase(), phrase);
}

// This file was made once. It has to open for ever, or the plug-ins that people have would not.
TEST_F(Plugin, AFileOfTheFirstDayOpens) {
    constexpr unsigned char kBytes[] = {
        0xF7, 0xE5, 0x28, 0x8C, 0xF4, 0x96, 0x5D, 0x53, 0xD2, 0xB1, 0x79, 0x0D, 0xAF, 0xC8, 0x20, 0x25, 0xA1,
        0xDC, 0xA3, 0x60, 0xA6, 0x45, 0x28, 0x66, 0xD3, 0xF4, 0x8A, 0x49, 0x1A, 0xE6, 0x23, 0x93, 0x6F, 0x47,
        0x66, 0x2E, 0x25, 0x12, 0xEB, 0x4D, 0x39, 0x6E, 0xE7, 0xAB, 0x72, 0xEA, 0x89, 0xCE, 0xA2, 0x20, 0x0C,
    };
    EXPECT_EQ(plugin::OpenPayload(std::string(std::begin(kBytes), std::end(kBytes))), kPayload);
    EXPECT_EQ(plugin::MakeFile(kPayload), std::string(std::begin(kBytes), std::end(kBytes)));
}

TEST_F(Plugin, LoadTableFillsTheTable) {
    clsConvert converter;
    converter.LoadTable(m_Folder.Put(u"a.dll", plugin::MakeFile(kPayload)));
    EXPECT_EQ(converter.Convert(u"kxa"), u"\u0995\u09BE");
}

TEST_F(Plugin, LayoutOfTheFile) {
    const std::string made = plugin::MakeFile(kPayload);
    ASSERT_EQ(made.size(), 2 + 2 * kPayload.size() + 12 + 1);
    EXPECT_EQ(made.back(), 12);
    EXPECT_EQ(made[made.size() - 2], ' ');
    EXPECT_EQ(plugin::OpenPayload(made), kPayload);
    EXPECT_EQ(plugin::MakeFile(kPayload), made);
    EXPECT_NE(plugin::MakeFile(u"a\r\nb\r\n\t").substr(4, 11), made.substr(4, 11));
}

TEST_F(Plugin, TheMarkIsDroppedUnseen) {
    clsConvert converter;
    converter.LoadTable(m_Folder.Put(u"a.dll", FileOf("zz" + text::ToUtf16Le(kPayload))));
    EXPECT_EQ(converter.Convert(u"k"), u"\u0995");
}

TEST_F(Plugin, ThreeLinesAreOneRule) {
    clsConvert converter;
    converter.LoadTable(m_Folder.Put(u"a.dll", FileOf(u"1\r\n2\r\nk\t\u0995")));
    EXPECT_EQ(converter.Convert(u"kk"), u"\u0995\u0995");
}

TEST_F(Plugin, AThirdFieldIsIgnored) {
    clsConvert converter;
    converter.LoadTable(m_Folder.Put(u"a.dll", FileOf(u"1\r\n2\r\nk\t\u0995\tignored\r\na\t\u09BE\t\t")));
    EXPECT_EQ(converter.Convert(u"ka"), u"\u0995\u09BE");
}

TEST_F(Plugin, TabAloneDoesNothing) {
    clsConvert converter;
    converter.LoadTable(m_Folder.Put(u"a.dll", FileOf(u"1\r\n2\r\n\t")));
    EXPECT_EQ(converter.Convert(u"any text"), u"any text");
}

TEST_F(Plugin, CrOrLfAloneStandInAField) {
    clsConvert converter;
    converter.LoadTable(m_Folder.Put(u"a.dll", FileOf(u"1\r\n2\r\na\rb\tc\nd\r\n\ne\t\r")));
    EXPECT_EQ(converter.Convert(u"a\rb|\ne"), u"c\nd|\r");
}

TEST_F(Plugin, LoadTwiceLeavesTheSecondTable) {
    clsConvert converter;
    converter.LoadTable(m_Folder.Put(u"a.dll", FileOf(u"1\r\n2\r\na\tb\r\nc\td")));
    converter.LoadTable(m_Folder.Put(u"b.dll", FileOf(u"3\r\n4\r\nx\t\u0995")));
    EXPECT_EQ(converter.Convert(u"acx3"), u"ac\u09B0\u09CD\u0995");
    EXPECT_EQ(converter.Convert(u"x1"), u"\u09951");
}

TEST_F(Plugin, AnOddLastByteIsAUnit) {
    clsConvert converter;
    converter.LoadTable(m_Folder.Put(u"a.dll", FileOf("\xFF\xFE" + text::ToUtf16Le(u"1\r\n2\r\nk\t") + "K")));
    EXPECT_EQ(converter.Convert(u"k"), u"K");
}

TEST_F(Plugin, EmptyFile) {
    EXPECT_EQ(LoadFailure(""), 9);
}

TEST_F(Plugin, SaltLengthTooLarge) {
    const std::string good = plugin::MakeFile(kPayload);
    ASSERT_LT(good.size(), 255u);
    std::string bytes = good;
    bytes.back() = static_cast<char>(255); // while the salt is read
    EXPECT_EQ(LoadFailure(bytes), 9);
    bytes.back() = static_cast<char>(good.size()); // one byte too many
    EXPECT_EQ(LoadFailure(bytes), 9);
    bytes.back() = static_cast<char>(good.size() - 1); // when the array is shortened
    EXPECT_EQ(LoadFailure(bytes), 9);
    EXPECT_EQ(LoadFailure(good), 0);
}

TEST_F(Plugin, DamagedCiphertext) {
    std::string bytes = plugin::MakeFile(kPayload);
    for (std::size_t i = 2; i < bytes.size() - 13; ++i) bytes[i] = static_cast<char>(bytes[i] ^ 0x5A);
    EXPECT_EQ(LoadFailure(bytes), 9);
}

TEST_F(Plugin, WrongPassPhrase) {
    clsCryptoAPI crypto;
    crypto.SessionStart();
    crypto.ValueSALT(u"12345678901 ");
    std::string payload = "\xFF\xFE" + text::ToUtf16Le(kPayload);
    crypto.DecryptByteArray(payload, u"another pass phrase");
    EXPECT_EQ(LoadFailure(container::Join(payload, "12345678901 ")), 9);
}

TEST_F(Plugin, PayloadsThatAreNoTable) {
    EXPECT_EQ(LoadFailure(FileOf(std::string("\xFF\xFE"))), 9); // empty text
    EXPECT_EQ(LoadFailure(FileOf(std::string("\xFF"))), 9);
    EXPECT_EQ(LoadFailure(FileOf(u"1")), 9);
    EXPECT_EQ(LoadFailure(FileOf(u"1\r\n2")), 9);             // exactly two lines
    EXPECT_EQ(LoadFailure(FileOf(u"1\r\n2\r\nabc")), 9);      // no TAB
    EXPECT_EQ(LoadFailure(FileOf(u"1\r\n2\r\n\r\na\tb")), 9); // empty line in the middle
    EXPECT_EQ(LoadFailure(FileOf(u"1\r\n2\r\na\tb\r\n")), 9); // and at the end
    EXPECT_EQ(LoadFailure(FileOf(u"1\n2\na\tb")), 9);         // LF is no line end
    EXPECT_EQ(LoadFailure(FileOf(u"1\r\n2\r\na\tb")), 0);
}

TEST_F(Plugin, MissingFile) {
    EXPECT_EQ(FailureNumber([&] { clsConvert().LoadTable(m_Folder / u"none.dll"); }), 53);
}

TEST_F(Plugin, FailureOfTheProviderPassesThrough) {
    CryptoOperations table = SystemCryptoOperations();
    table.CryptDeriveKey = [](auto...) { return false; };
    table.LastError = [] { return CryptoOperations::Dword{77}; };
    clsConvert converter(std::move(table));
    const auto path = m_Folder.Put(u"a.dll", plugin::MakeFile(kPayload));
    EXPECT_EQ(FailureNumber([&] { converter.LoadTable(path); }), 77);

    table = SystemCryptoOperations();
    table.CryptAcquireContextA = [](auto&&...) { return false; };
    table.LastError = [] { return CryptoOperations::Dword{78}; };
    EXPECT_EQ(FailureNumber([&] { clsConvert(std::move(table)); }), 78);
}

// What was read before the fault stays.
TEST_F(Plugin, RowsReadBeforeTheFaultStay) {
    clsConvert converter;
    const auto path = m_Folder.Put(u"a.dll", FileOf(u"1\r\n2\r\nk\t\u0995\r\nno tab"));
    EXPECT_EQ(FailureNumber([&] { converter.LoadTable(path); }), 9);
    EXPECT_EQ(converter.Convert(u"k1"), u"\u09B0\u09CD\u0995");
}

TEST_F(Plugin, SaltOfAnyLength) {
    for (const std::size_t length : {0, 10, 11, 12, 255}) {
        const std::string bytes = FileOf("\xFF\xFE" + text::ToUtf16Le(kPayload), std::string(length, 'S'));
        clsConvert converter;
        converter.LoadTable(m_Folder.Put(u"a.dll", bytes));
        EXPECT_EQ(converter.Convert(u"k"), u"\u0995") << length;
    }
}

} // namespace
