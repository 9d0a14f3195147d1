// clsCryptoAPI by password, on the system's side of the seam and on ours. On Windows the
// two are different programs that must answer alike.

#include "base/Rc4.h"
#include "base/Sha1.h"
#include "base/Text.h"
#include "engine/clsCryptoAPI.h"
#include "support/Failure.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

using Ops = CryptoOperations;

struct Side {
    const char* name;
    CryptoOperations (*make)();
};

class Crypto : public testing::TestWithParam<Side> {
protected:
    CryptoOperations Table() { return GetParam().make(); }
};

INSTANTIATE_TEST_SUITE_P(Sides, Crypto,
                         testing::Values(Side{"system", SystemCryptoOperations},
                                         Side{"own", OwnCryptoOperations}),
                         [](const auto& side) { return side.param.name; });

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

// ---- one entry of the table at a time made to fail ----

constexpr int kError = 1234;

struct Case {
    void (*breakIt)(CryptoOperations&);
    const char16_t* text;
};

const Case kEncryptCases[] = {
    {[](Ops& o) { o.CryptGenRandom = [](auto...) { return false; }; },
     u"DLL error code shown above. Could not generate a random SALT"},
    {[](Ops& o) { o.CryptSetKeyParam = [](auto...) { return false; }; },
     u"DLL error code shown above. Could not set the SALT."},
    {[](Ops& o) { o.CryptEncrypt = [](auto...) { return false; }; },
     u"DLL error code shown above. Error during CryptEncrypt."},
    {[](Ops& o) { o.CryptCreateHash = [](auto...) { return false; }; },
     u"DLL error code shown above. Could not create a Hash Object (CryptCreateHash API)"},
    {[](Ops& o) { o.CryptHashData = [](auto...) { return false; }; },
     u"DLL error code shown above. Could not calculate a Hash Value (CryptHashData API)"},
    {[](Ops& o) { o.CryptGetHashParam = [](auto...) { return false; }; },
     u"DLL error code shown above. Could not lngReturnValuerieve the hash value"},
    {[](Ops& o) { o.CryptDeriveKey = [](auto...) { return false; }; },
     u"DLL error code shown above. Could not create a session key (CryptDeriveKey API)"},
};

const Case kDecryptCases[] = {
    {[](Ops& o) { o.CryptSetKeyParam = [](auto...) { return false; }; },
     u"DLL error code shown above. Could not set the SALT."},
    {[](Ops& o) { o.CryptDecrypt = [](auto...) { return false; }; },
     u"DLL error code shown above. Error during CryptDecrypt."},
    {[](Ops& o) { o.CryptCreateHash = [](auto...) { return false; }; },
     u"DLL error code shown above. Could not create a Hash Object (CryptCreateHash API)"},
    {[](Ops& o) { o.CryptHashData = [](auto...) { return false; }; },
     u"DLL error code shown above. Could not calculate a Hash Value (CryptHashData API)"},
    {[](Ops& o) {
         o.CryptGetHashParam = [ask = o.CryptGetHashParam](auto hash, auto what, auto* to, auto& length,
                                                           auto flags) {
             return to == nullptr && ask(hash, what, to, length, flags);
         };
     },
     u"DLL error code shown above. Could not lngReturnValuerieve the hash value"},
    {[](Ops& o) { o.CryptDeriveKey = [](auto...) { return false; }; },
     u"DLL error code shown above. Could not create a session key (CryptDeriveKey API)"},
};

template <class Call>
void Check(Crypto*, const Case& broken, CryptoOperations table, Call call) {
    broken.breakIt(table);
    table.LastError = [] { return Ops::Dword{kError}; };
    clsCryptoAPI crypto(std::move(table));
    crypto.SessionStart();
    const RuntimeFailure failure = FailureOf([&] { call(crypto); });
    EXPECT_EQ(failure.Number(), kError);
    EXPECT_EQ(failure.Source(), u"clsCryptoAPI");
    EXPECT_EQ(failure.Description(), broken.text);
}

TEST_P(Crypto, FailuresOfEncryption) {
    for (const Case& broken : kEncryptCases)
        Check(this, broken, Table(), [](clsCryptoAPI& crypto) { crypto.EncryptString(u"text", u"p"); });
}

TEST_P(Crypto, FailuresOfDecryption) {
    for (const Case& broken : kDecryptCases)
        Check(this, broken, Table(), [](clsCryptoAPI& crypto) { crypto.DecryptString(u"text", u"p"); });
}

TEST_P(Crypto, WhatAskingForTheSaltsLengthReturnsDoesNotCount) {
    CryptoOperations table = Table();
    table.CryptGetKeyParam = [ask = table.CryptGetKeyParam](auto key, auto what, auto* to, auto& length,
                                                            auto flags) {
        ask(key, what, to, length, flags);
        return false;
    };
    clsCryptoAPI crypto(std::move(table));
    crypto.SessionStart();
    const std::u16string coded = crypto.EncryptString(u"text", u"p");
    EXPECT_EQ(crypto.ValueSALT().size(), 12u);
    EXPECT_EQ(crypto.DecryptString(coded, u"p"), u"text");
}

TEST_P(Crypto, FailuresAfterWhichTheObjectGoesOn) {
    CryptoOperations table = Table();
    bool broken = true;
    table.CryptDecrypt = [&, decrypt = table.CryptDecrypt](auto key, auto hash, auto final, auto flags,
                                                           auto* bytes, auto& length) {
        return !broken && decrypt(key, hash, final, flags, bytes, length);
    };
    clsCryptoAPI crypto(std::move(table));
    crypto.SessionStart();
    const std::u16string made = crypto.EncryptString(u"text", u"p");
    FailureOf([&] { crypto.DecryptString(made, u"p"); });
    broken = false;
    EXPECT_EQ(crypto.DecryptString(made, u"p"), u"text");
}

TEST_P(Crypto, FailureOfTheProvider) {
    CryptoOperations table = Table();
    table.CryptAcquireContextA = [](auto&&...) { return false; };
    table.LastError = [] { return Ops::Dword{0x8009000F}; };
    clsCryptoAPI crypto(std::move(table));
    const RuntimeFailure failure = FailureOf([&] { crypto.SessionStart(); });
    EXPECT_EQ(static_cast<unsigned>(failure.Number()), 0x8009000Fu);
    EXPECT_EQ(failure.Description(),
              u"DLL error code shown above.  Error during CryptAcquireContext for a new key container.\r\n"
              u"A container with this name probably already exists.");
}

TEST_P(Crypto, AContainerThatStandsThereIsOpened) {
    CryptoOperations table = Table();
    std::vector<Ops::Dword> flagsSeen;
    table.CryptAcquireContextA =
        [&, acquire = table.CryptAcquireContextA](Ops::Handle& provider, const char* container,
                                                  const char* name, Ops::Dword type, Ops::Dword flags) {
            flagsSeen.push_back(flags);
            EXPECT_STREQ(container, "CryptoAPIExample");
            EXPECT_STREQ(name, "Microsoft Base Cryptographic Provider v1.0");
            EXPECT_EQ(type, 1u);
            if (flags == 8) return false;
            acquire(provider, container, name, type, 8);
            return acquire(provider, container, name, type, 0);
        };
    clsCryptoAPI crypto(std::move(table));
    crypto.SessionStart();
    EXPECT_EQ(flagsSeen, (std::vector<Ops::Dword>{8, 0}));
}

TEST_P(Crypto, SessionEndReleasesInOrder) {
    CryptoOperations table = Table();
    std::string log;
    table.CryptDestroyKey = [&, destroy = table.CryptDestroyKey](Ops::Handle key) {
        log += "key ";
        return destroy(key);
    };
    table.CryptReleaseContext = [&, release = table.CryptReleaseContext](Ops::Handle provider,
                                                                         Ops::Dword flags) {
        log += "provider ";
        return release(provider, flags);
    };
    table.CryptSetKeyParam = [](auto...) { return false; }; // leaves a session key behind
    clsCryptoAPI crypto(std::move(table));
    crypto.SessionStart();
    FailureOf([&] { crypto.DecryptString(u"x", u"p"); });
    crypto.SessionEnd();
    EXPECT_EQ(log, "key provider ");
}

TEST_P(Crypto, NothingIsLeftOpen) {
    CryptoOperations table = Table();
    int open = 0;
    table.CryptCreateHash = [&, create = table.CryptCreateHash](auto provider, auto algorithm, auto key,
                                                                auto flags, auto& hash) {
        ++open;
        return create(provider, algorithm, key, flags, hash);
    };
    table.CryptDestroyHash = [&, destroy = table.CryptDestroyHash](auto hash) {
        --open;
        return destroy(hash);
    };
    table.CryptDeriveKey = [&, derive = table.CryptDeriveKey](auto provider, auto algorithm, auto hash,
                                                              auto flags, auto& key) {
        ++open;
        return derive(provider, algorithm, hash, flags, key);
    };
    table.CryptDestroyKey = [&, destroy = table.CryptDestroyKey](auto key) {
        --open;
        return destroy(key);
    };
    clsCryptoAPI crypto(std::move(table));
    crypto.SessionStart();
    crypto.DecryptString(crypto.EncryptString(u"x", u"p"), u"p");
    EXPECT_EQ(open, 0);
}

} // namespace
