// clsCryptoAPI by password, on the system's side of the seam and on ours. On Windows the
// two are different programs that must answer alike.

#include "CryptoTesting.h"
#include "base/Rc4.h"
#include "base/Sha1.h"
#include "base/Text.h"
#include "support/TempFolder.h"

namespace {

class Crypto : public CryptoTest {};

INSTANTIATE_TEST_SUITE_P(Sides, Crypto, CryptoSides(), NameOfSide);

// The cipher as told, written down once more: 5 bytes of the hash, then 11 salt bytes.
std::string Expected(std::string_view password, std::string salt, std::string bytes) {
    const Sha1::Digest digest = Sha1::Of(password);
    std::string key(digest.begin(), digest.begin() + 5);
    salt.resize(11, '\0');
    Rc4(key + salt).Apply({reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes;
}

std::u16string AllBytes() {
    std::string bytes;
    for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
    return text::FromCp1252(bytes);
}

// Made with the base provider itself.
TEST_P(Crypto, KnownVector) {
    clsCryptoAPI crypto(Table());
    crypto.SessionStart();
    crypto.ValueSALT(u"12345678901");
    std::string bytes(8, '\0');
    crypto.DecryptByteArray(bytes, u"abc");
    EXPECT_EQ(bytes, "\xe7\xe1\xbd\xd7\x3f\x33\x65\xb9");
}

TEST_P(Crypto, SaltOfAnyLengthIsElevenBytes) {
    for (const std::size_t length : {0, 1, 10, 11, 12, 255}) {
        std::string salt;
        for (std::size_t i = 0; i < length; ++i) salt += static_cast<char>('A' + i % 50);
        clsCryptoAPI crypto(Table());
        crypto.SessionStart();
        crypto.ValueSALT(text::FromCp1252(salt));
        std::string bytes = "some plain text";
        crypto.DecryptByteArray(bytes, u"pass phrase");
        EXPECT_EQ(bytes, Expected("pass phrase", salt, "some plain text")) << length;
    }
}

TEST_P(Crypto, EmptyTextStaysEmpty) {
    clsCryptoAPI crypto(Table());
    crypto.SessionStart();
    EXPECT_EQ(crypto.EncryptString(u"", u"p"), u"");
    EXPECT_EQ(crypto.ValueSALT().size(), 12u);
    EXPECT_EQ(crypto.DecryptString(u"", u"p"), u"");
    std::string bytes;
    crypto.DecryptByteArray(bytes, u"p");
    EXPECT_EQ(bytes, "");
}

TEST_P(Crypto, EmptyPassword) {
    clsCryptoAPI crypto(Table());
    crypto.SessionStart();
    crypto.ValueSALT(u"12345678901");
    std::string bytes = "text";
    crypto.DecryptByteArray(bytes, u"");
    EXPECT_EQ(bytes, Expected("", "12345678901", "text"));
}

TEST_P(Crypto, EncryptionMakesAFreshSaltWithABlankBehind) {
    clsCryptoAPI crypto(Table());
    crypto.SessionStart();
    const std::u16string first = crypto.EncryptString(AllBytes(), u"p");
    const std::u16string salt = crypto.ValueSALT();
    ASSERT_EQ(salt.size(), 12u);
    EXPECT_EQ(salt.back(), u' ');
    EXPECT_EQ(crypto.DecryptString(first, u"p"), AllBytes());
    EXPECT_NE(crypto.EncryptString(AllBytes(), u"p"), first);
    EXPECT_NE(crypto.ValueSALT(), salt);
}

TEST_P(Crypto, EveryByteOfTextSaltAndPasswordCounts) {
    clsCryptoAPI crypto(Table());
    crypto.SessionStart();
    for (int i = 0; i < 256; i += 11) {
        std::string salt, password, plain;
        for (int k = 0; k < 11; ++k) salt += static_cast<char>(i + k);
        for (int k = 0; k < 128; ++k) password += static_cast<char>(i + 3 * k);
        for (int k = 0; k < 256; ++k) plain += static_cast<char>(k);
        crypto.ValueSALT(text::FromCp1252(salt));
        std::string bytes = plain;
        crypto.DecryptByteArray(bytes, text::FromCp1252(password));
        EXPECT_EQ(bytes, Expected(password, salt, plain)) << i;
    }
}

TEST_P(Crypto, UnitsWithoutAByteBecomeQuestionMarks) {
    clsCryptoAPI crypto(Table());
    crypto.SessionStart();
    const std::u16string made = crypto.EncryptString(u"a\u0995b", u"p");
    EXPECT_EQ(crypto.DecryptString(made, u"p"), u"a?b");
    EXPECT_EQ(crypto.DecryptString(crypto.EncryptString(u"x", u"\u0995"), u"?"), u"x");
}

TEST_P(Crypto, SessionMayEndTwiceAndStartAgain) {
    clsCryptoAPI crypto(Table());
    crypto.SessionEnd();
    crypto.SessionStart();
    crypto.SessionStart();
    crypto.SessionEnd();
    crypto.SessionEnd();
    crypto.SessionStart();
    EXPECT_EQ(crypto.DecryptString(crypto.EncryptString(u"x", u"p"), u"p"), u"x");
}

TEST_P(Crypto, FilesThereAndBack) {
    TempFolder folder;
    clsCryptoAPI crypto(Table());
    crypto.SessionStart();
    const std::string plain("a\0b\r\n\xFF", 6);
    const auto in = folder.Put(u"in", plain);
    folder.Put(u"coded", "an older file that is longer than the new one");
    crypto.EncryptFile(in, folder / u"coded", u"p");
    const std::string coded = folder.Get(u"coded");
    ASSERT_EQ(coded.size(), plain.size() + 12 + 1);
    EXPECT_EQ(coded.back(), 12);
    EXPECT_EQ(coded.substr(0, plain.size()), Expected("p", coded.substr(plain.size(), 12), plain));

    clsCryptoAPI other(Table());
    other.SessionStart();
    other.DecryptFile(folder / u"coded", folder / u"out", u"p");
    EXPECT_EQ(folder.Get(u"out"), plain);
    EXPECT_EQ(other.ValueSALT(), crypto.ValueSALT());
}

// A file with the given payload and salt, made without clsCryptoAPI.
std::string FileOf(const std::string& payload, const std::string& salt) {
    std::string made = Expected("p", salt, payload);
    made += salt;
    made += static_cast<char>(salt.size());
    return made;
}

TEST_P(Crypto, DecryptFileTextWithSaltsOfAnyLength) {
    TempFolder folder;
    clsCryptoAPI crypto(Table());
    crypto.SessionStart();
    const std::string payload("\xFF\xFE"
                              "a\0\x95\x09",
                              6);
    for (const std::size_t length : {0, 10, 11, 12, 255}) {
        const std::string salt(length, 's');
        const auto path = folder.Put(text::Decimal(static_cast<long long>(length)), FileOf(payload, salt));
        crypto.ValueSALT(u"salt of an earlier file");
        EXPECT_EQ(crypto.DecryptFileTEXT(path, u"p"), u"a\u0995") << length;
        EXPECT_EQ(crypto.ValueSALT(), text::FromCp1252(salt)) << length;
    }
}

TEST_P(Crypto, DecryptFileTextTakesTheFirstUnitAwayUnseen) {
    TempFolder folder;
    clsCryptoAPI crypto(Table());
    crypto.SessionStart();
    EXPECT_EQ(crypto.DecryptFileTEXT(folder.Put(u"two", FileOf("\xFF\xFE", "salt")), u"p"), u"");
    EXPECT_EQ(crypto.DecryptFileTEXT(folder.Put(u"other", FileOf(std::string("a\0b\0", 4), "salt")), u"p"),
              u"b");
}

TEST_P(Crypto, DecryptFileTextKeepsAnOddLastByte) {
    TempFolder folder;
    clsCryptoAPI crypto(Table());
    crypto.SessionStart();
    EXPECT_EQ(crypto.DecryptFileTEXT(folder.Put(u"three", FileOf("\xFF\xFE\x41", "salt")), u"p"), u"A");
    EXPECT_EQ(crypto.DecryptFileTEXT(folder.Put(u"one", FileOf("A", "salt")), u"p"), u"");
}

TEST_P(Crypto, FilesThatAreTooShort) {
    TempFolder folder;
    clsCryptoAPI crypto(Table());
    crypto.SessionStart();
    const auto number = [&](std::string_view bytes) {
        static int count = 0;
        const auto path = folder.Put(text::Decimal(++count), bytes);
        return FailureOf([&] { crypto.DecryptFileTEXT(path, u"p"); }).Number();
    };
    EXPECT_EQ(number(""), 9);
    EXPECT_EQ(number(std::string(1, '\0')), 9); // no salt, no ciphertext
    EXPECT_EQ(number("\x01"), 9);
    EXPECT_EQ(number("\xFF"), 9);
    EXPECT_EQ(number("a\x01"), 9); // salt, no ciphertext
    EXPECT_EQ(number("ab\x03"), 9);
    EXPECT_EQ(number(std::string(255, 'x') + "\xFF"), 9);
    EXPECT_EQ(number(std::string(254, 'x') + "\xFF"), 9);
}

TEST_P(Crypto, FilesThatAreNotThere) {
    TempFolder folder;
    clsCryptoAPI crypto(Table());
    crypto.SessionStart();
    const RuntimeFailure failure = FailureOf([&] { crypto.DecryptFileTEXT(folder / u"none", u"p"); });
    EXPECT_EQ(failure.Number(), 53);
    EXPECT_NE(failure.Description().find(u"none"), std::u16string::npos);
    EXPECT_FALSE(std::filesystem::exists(folder.Path(u"none")));
    EXPECT_EQ(
        FailureOf([&] { crypto.EncryptFile(folder.Put(u"empty", ""), folder / u"out", u"p"); }).Number(), 9);
    EXPECT_EQ(FailureOf([&] { crypto.EncryptFile(folder / u"none", folder / u"out", u"p"); }).Number(), 53);
    EXPECT_FALSE(std::filesystem::exists(folder.Path(u"out")));
}

TEST_P(Crypto, OneWritesAndTheOtherReads) {
    TempFolder folder;
    const auto in = folder.Put(u"in", "the same text");
    clsCryptoAPI writer(Table());
    writer.SessionStart();
    writer.EncryptFile(in, folder / u"coded", u"pass");
    for (auto make : {SystemCryptoOperations, OwnCryptoOperations}) {
        clsCryptoAPI reader(make());
        reader.SessionStart();
        reader.DecryptFile(folder / u"coded", folder / u"out", u"pass");
        EXPECT_EQ(folder.Get(u"out"), "the same text");
    }
}

} // namespace
