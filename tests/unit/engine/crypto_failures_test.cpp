// clsCryptoAPI with one entry of the provider's table at a time made to fail or watched.

#include "CryptoTesting.h"
#include "base/Text.h"

namespace {

using Ops = CryptoOperations;

class CryptoFailures : public CryptoTest {};

INSTANTIATE_TEST_SUITE_P(Sides, CryptoFailures, CryptoSides(), NameOfSide);

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
void Check(const Case& broken, CryptoOperations table, Call call) {
    broken.breakIt(table);
    table.LastError = [] { return Ops::Dword{kError}; };
    clsCryptoAPI crypto(std::move(table));
    crypto.SessionStart();
    const RuntimeFailure failure = FailureOf([&] { call(crypto); });
    EXPECT_EQ(failure.Number(), kError);
    EXPECT_EQ(failure.Source(), u"clsCryptoAPI");
    EXPECT_EQ(failure.Description(), broken.text);
}

TEST_P(CryptoFailures, FailuresOfEncryption) {
    for (const Case& broken : kEncryptCases)
        Check(broken, Table(), [](clsCryptoAPI& crypto) { crypto.EncryptString(u"text", u"p"); });
}

TEST_P(CryptoFailures, FailuresOfDecryption) {
    for (const Case& broken : kDecryptCases)
        Check(broken, Table(), [](clsCryptoAPI& crypto) { crypto.DecryptString(u"text", u"p"); });
}

TEST_P(CryptoFailures, WhatAskingForTheSaltsLengthReturnsDoesNotCount) {
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

TEST_P(CryptoFailures, FailuresAfterWhichTheObjectGoesOn) {
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

TEST_P(CryptoFailures, FailureOfTheProvider) {
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

TEST_P(CryptoFailures, AContainerThatStandsThereIsOpened) {
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

TEST_P(CryptoFailures, SessionEndReleasesInOrder) {
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

TEST_P(CryptoFailures, NothingIsLeftOpen) {
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

// What the provider is asked for, with its arguments.
TEST_P(CryptoFailures, CallsByPassword) {
    CryptoOperations table = Table();
    std::string log;
    const auto note = [&log](const char* name, std::initializer_list<Ops::Dword> arguments) {
        log += name;
        for (const Ops::Dword argument : arguments) log += " " + std::to_string(argument);
        log += "; ";
    };
    table.CryptCreateHash = [&, create = table.CryptCreateHash](auto provider, auto algorithm, auto key,
                                                                auto flags, auto& hash) {
        note("hash", {algorithm, static_cast<Ops::Dword>(key), flags});
        return create(provider, algorithm, key, flags, hash);
    };
    table.CryptHashData = [&, add = table.CryptHashData](auto hash, auto* bytes, auto length, auto flags) {
        note("data", {length, flags});
        return add(hash, bytes, length, flags);
    };
    table.CryptDeriveKey = [&, derive = table.CryptDeriveKey](auto provider, auto algorithm, auto hash,
                                                              auto flags, auto& key) {
        note("key", {algorithm, flags});
        return derive(provider, algorithm, hash, flags, key);
    };
    table.CryptSetKeyParam = [&, set = table.CryptSetKeyParam](auto key, auto what, auto* bytes, auto flags) {
        note("salt", {what, flags});
        return set(key, what, bytes, flags);
    };
    table.CryptEncrypt = [&, encrypt = table.CryptEncrypt](auto key, auto hash, auto final, auto flags,
                                                           auto* bytes, auto& length, auto room) {
        note("encrypt", {static_cast<Ops::Dword>(hash), final, flags, length});
        return encrypt(key, hash, final, flags, bytes, length, room);
    };
    table.CryptDecrypt = [&, decrypt = table.CryptDecrypt](auto key, auto hash, auto final, auto flags,
                                                           auto* bytes, auto& length) {
        note("decrypt", {static_cast<Ops::Dword>(hash), final, flags, length});
        return decrypt(key, hash, final, flags, bytes, length);
    };
    clsCryptoAPI crypto(std::move(table));
    crypto.SessionStart();
    const std::u16string coded = crypto.EncryptString(u"four", u"pass");
    EXPECT_EQ(log, "hash 32772 0 0; data 4 0; key 26625 1; salt 2 0; encrypt 0 1 0 4; ");
    log.clear();
    crypto.DecryptString(coded, u"pass");
    EXPECT_EQ(log, "hash 32772 0 0; data 4 0; key 26625 1; salt 2 0; decrypt 0 1 0 4; ");
}

} // namespace
