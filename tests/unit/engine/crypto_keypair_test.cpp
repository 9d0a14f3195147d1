// Key pairs and signatures against stand-ins for the provider. crypto_keypair_test_win.cpp
// runs them against the real one.

#include "base/Text.h"
#include "engine/clsCryptoAPI.h"
#include "support/Failure.h"

#include <gtest/gtest.h>

namespace {

using Ops = CryptoOperations;
using Handle = Ops::Handle;
using Dword = Ops::Dword;
using Byte = Ops::Byte;

constexpr int kError = 4321;
constexpr Dword kBadSignature = 0x80090006;

bool Give(std::string_view from, Byte* to, Dword& length) {
    if (to) std::copy(from.begin(), from.end(), to);
    length = static_cast<Dword>(from.size());
    return true;
}

// A provider that does nothing and fails nowhere; it logs what it is asked.
CryptoOperations Obedient(std::string* log = nullptr) {
    const auto note = [log](std::string text) {
        if (log) *log += text + "; ";
    };
    CryptoOperations o = OwnCryptoOperations();
    o.LastError = [] { return Dword{kError}; };
    o.CryptDestroyKey = [=](Handle key) {
        note("destroy " + std::to_string(key));
        return true;
    };
    o.CryptGenKey = [=](Handle, Dword algorithm, Dword flags, Handle& key) {
        key = 100 + algorithm % 100;
        note("generate " + std::to_string(algorithm) + " " + std::to_string(flags));
        return true;
    };
    o.CryptGetUserKey = [=](Handle, Dword spec, Handle& key) {
        key = 200;
        note("user key " + std::to_string(spec));
        return true;
    };
    o.CryptExportKey = [=](Handle, Handle wrap, Dword type, Dword, Byte* bytes, Dword& length) {
        if (bytes) note("export " + std::to_string(type) + (wrap ? " wrapped" : ""));
        return Give("blob", bytes, length);
    };
    o.CryptImportKey = [=](Handle, const Byte*, Dword length, Handle wrap, Dword, Handle& key) {
        key = 300;
        note("import " + std::to_string(length) + (wrap ? " wrapped" : ""));
        return true;
    };
    o.CryptEncrypt = [=](Handle key, Handle, bool final, Dword, Byte*, Dword&, Dword) {
        note("encrypt with " + std::to_string(key));
        return final;
    };
    o.CryptDecrypt = [=](Handle key, Handle, bool final, Dword, Byte*, Dword&) {
        note("decrypt with " + std::to_string(key));
        return final;
    };
    o.CryptSignHashA = [=](Handle, Dword spec, const char*, Dword, Byte* bytes, Dword& length) {
        if (bytes) note("sign " + std::to_string(spec));
        return Give("signature", bytes, length);
    };
    o.CryptVerifySignatureA = [=](Handle, const Byte* bytes, Dword length, Handle key, const char*, Dword) {
        note("verify " + std::string(bytes, bytes + length) + " with " + std::to_string(key));
        return true;
    };
    return o;
}

TEST(CryptoKeyPair, GenerateAsksForTheRightKey) {
    std::string log;
    clsCryptoAPI crypto(Obedient(&log));
    crypto.SessionStart();
    crypto.Generate_KeyPair(true);
    crypto.Generate_KeyPair(false); // destroys the old pair
    EXPECT_EQ(log, "generate 1 33554449; destroy 101; generate 2 33554449; ");
    crypto.SessionEnd();
    EXPECT_TRUE(log.ends_with("destroy 102; "));
}

TEST(CryptoKeyPair, TheSessionEndsWithItsKeyFirstThenThePair) {
    std::string log;
    CryptoOperations table = Obedient(&log);
    table.CryptDeriveKey = [](Handle, Dword, Handle, Dword, Handle& key) {
        key = 400;
        return true;
    };
    table.CryptImportKey = [](auto...) { return false; }; // leaves the session key
    table.CryptReleaseContext = [&](Handle, Dword) {
        log += "release; ";
        return true;
    };
    clsCryptoAPI crypto(std::move(table));
    crypto.SessionStart();
    crypto.Generate_KeyPair(true);
    crypto.ValuePublicPrivateKey(u"blob");
    FailureOf([&] { crypto.Import_KeyPair(u"p", true); });
    log.clear();
    crypto.SessionEnd();
    EXPECT_EQ(log, "destroy 400; destroy 101; release; ");
}

TEST(CryptoKeyPair, CallsOfEncryption) {
    std::string log;
    clsCryptoAPI crypto(Obedient(&log));
    crypto.SessionStart();
    crypto.Generate_KeyPair(true);
    log.clear();
    crypto.EncryptString_KeyPair(u"text");
    EXPECT_EQ(crypto.ValueSessionKey(), u"blob");
    EXPECT_EQ(log,
              "generate 26625 1; user key 1; export 1 wrapped; encrypt with 125; destroy 200; destroy 125; ");
    log.clear();
    crypto.DecryptString_KeyPair(u"text");
    EXPECT_EQ(log, "user key 1; import 4 wrapped; decrypt with 300; destroy 300; destroy 200; ");
}

TEST(CryptoKeyPair, CallsOfSigning) {
    std::string log;
    clsCryptoAPI crypto(Obedient(&log));
    crypto.SessionStart();
    crypto.Generate_KeyPair(false);
    log.clear();
    EXPECT_EQ(crypto.SignString_KeyPair(u"text"), u"text");
    EXPECT_EQ(crypto.ValueSignature(), u"signature");
    EXPECT_EQ(crypto.ValidateString_KeyPair(u"text"), u"text");
    EXPECT_EQ(log, "sign 2; verify signature with 102; ");
}

struct Case {
    void (*breakIt)(Ops&);
    void (*call)(clsCryptoAPI&);
    const char16_t* text;
};

void Encrypt(clsCryptoAPI& crypto) {
    crypto.EncryptString_KeyPair(u"text");
}
void Decrypt(clsCryptoAPI& crypto) {
    crypto.DecryptString_KeyPair(u"text");
}
void Sign(clsCryptoAPI& crypto) {
    crypto.SignString_KeyPair(u"text");
}
void Validate(clsCryptoAPI& crypto) {
    crypto.ValidateString_KeyPair(u"text");
}
void Export(clsCryptoAPI& crypto) {
    crypto.Export_KeyPair(u"p");
}
void ImportPair(clsCryptoAPI& crypto) {
    crypto.ValuePublicPrivateKey(u"blob");
    crypto.Import_KeyPair(u"p", true);
}
void ImportPublic(clsCryptoAPI& crypto) {
    crypto.ValuePublicKey(u"blob");
    crypto.Import_KeyPair(u"p", false);
}

const Case kCases[] = {
    {[](Ops& o) { o.CryptGenKey = [](auto...) { return false; }; },
     [](clsCryptoAPI& crypto) { crypto.Generate_KeyPair(true); },
     u"DLL error code shown above. Could not generate public/private key pair"},
    {[](Ops& o) {
         o.CryptExportKey = [](Handle, Handle, Dword type, Dword, Byte* bytes, Dword& length) {
             return type != 6 && Give("blob", bytes, length);
         };
     },
     Export, u"DLL error code shown above. Could not export the public key blob"},
    {[](Ops& o) {
         o.CryptExportKey = [](Handle, Handle, Dword type, Dword, Byte* bytes, Dword& length) {
             return type != 7 && Give("blob", bytes, length);
         };
     },
     Export, u"DLL error code shown above. Could not export the private key blob"},
    {[](Ops&) {}, [](clsCryptoAPI& crypto) { crypto.Import_KeyPair(u"p", true); },
     u"One of the ValueXXXKey properties must hold a valid key"},
    {[](Ops& o) { o.CryptImportKey = [](auto...) { return false; }; }, ImportPair,
     u"DLL error code shown above. Could not import the PublicPrivate key.  Most likely an incorrect private "
     u"key "
     u"password was entered."},
    {[](Ops& o) { o.CryptImportKey = [](auto...) { return false; }; }, ImportPublic,
     u"DLL error code shown above. Could not import the Public key"},
    {[](Ops& o) { o.CryptGenKey = [](auto...) { return false; }; }, Encrypt,
     u"DLL error code shown above. Could not create session key for use in key pair encryption"},
    {[](Ops& o) { o.CryptGetUserKey = [](auto...) { return false; }; }, Encrypt,
     u"DLL error code shown above. Could not obtain public key for use in key pair encryption"},
    {[](Ops& o) { o.CryptExportKey = [](auto...) { return false; }; }, Encrypt,
     u"DLL error code shown above. Could not export the session key during key pair encryption"},
    {[](Ops& o) {
         o.CryptExportKey = [](Handle, Handle, Dword, Dword, Byte* bytes, Dword& length) {
             return bytes == nullptr && Give("blob", bytes, length);
         };
     },
     Encrypt, u"DLL error code shown above. Could not export the session key during key pair encryption"},
    {[](Ops& o) { o.CryptEncrypt = [](auto...) { return false; }; }, Encrypt,
     u"DLL error code shown above. Error during key pair CryptEncrypt encryption."},
    {[](Ops& o) { o.CryptImportKey = [](auto...) { return false; }; }, Decrypt,
     u"DLL error code shown above. Could not import the session key during key pair decryption.  Most likely "
     u"an "
     u"incorrect private key was used, thus it could not decrypt the session key."},
    {[](Ops& o) { o.CryptGetUserKey = [](auto...) { return false; }; }, Decrypt,
     u"DLL error code shown above. Could not obtain private key for use in key pair decryption"},
    {[](Ops& o) { o.CryptDecrypt = [](auto...) { return false; }; }, Decrypt,
     u"DLL error code shown above. Error during key pair CryptDecrypt decryption."},
    {[](Ops& o) { o.CryptCreateHash = [](auto...) { return false; }; }, Sign,
     u"DLL error code shown above. Could not create a Hash Object (CryptCreateHash API)"},
    {[](Ops& o) { o.CryptHashData = [](auto...) { return false; }; }, Validate,
     u"DLL error code shown above. Could not calculate a Hash Value (CryptHashData API)"},
    {[](Ops& o) { o.CryptSignHashA = [](auto...) { return false; }; }, Sign,
     u"DLL error code shown above. Could not sign the hash"},
    {[](Ops& o) { o.CryptVerifySignatureA = [](auto...) { return false; }; }, Validate,
     u"DLL error code shown above. Could not verify the signature"},
};

TEST(CryptoKeyPair, Failures) {
    for (const Case& broken : kCases) {
        CryptoOperations table = Obedient();
        broken.breakIt(table);
        clsCryptoAPI crypto(std::move(table));
        crypto.SessionStart();
        const RuntimeFailure failure = FailureOf([&] { broken.call(crypto); });
        EXPECT_EQ(failure.Number(), kError);
        EXPECT_EQ(failure.Description(), broken.text);
    }
}

TEST(CryptoKeyPair, BadSignatureHasATextOfItsOwn) {
    CryptoOperations table = Obedient();
    table.CryptVerifySignatureA = [](auto...) { return false; };
    table.LastError = [] { return kBadSignature; };
    clsCryptoAPI crypto(std::move(table));
    crypto.SessionStart();
    const RuntimeFailure failure = FailureOf([&] { crypto.ValidateString_KeyPair(u"text"); });
    EXPECT_EQ(static_cast<Dword>(failure.Number()), kBadSignature);
    EXPECT_EQ(failure.Description(), u"DLL error code shown above. Bad signature.  This might be because the "
                                     u"data has changed, or the wrong "
                                     u"public key was used to check the signature.");
}

// Our own side says plainly that it has none of this.
TEST(CryptoKeyPair, OwnSideRaisesAClearFailure) {
    clsCryptoAPI crypto(OwnCryptoOperations());
    crypto.SessionStart();
    crypto.ValuePublicKey(u"blob");
    const std::function<void()> calls[] = {
        [&] { crypto.Generate_KeyPair(true); },         [&] { crypto.Export_KeyPair(u"p"); },
        [&] { crypto.Import_KeyPair(u"p", false); },    [&] { crypto.EncryptString_KeyPair(u"x"); },
        [&] { crypto.DecryptString_KeyPair(u"x"); },    [&] { crypto.SignString_KeyPair(u"x"); },
        [&] { crypto.ValidateString_KeyPair(u"x"); },   [&] { crypto.EncryptByteArray_KeyPair("x"); },
        [&] { crypto.DecryptByteArray_KeyPair("x"); },  [&] { crypto.SignByteArray_KeyPair("x"); },
        [&] { crypto.ValidateByteArray_KeyPair("x"); },
    };
    for (const auto& call : calls) {
        const RuntimeFailure failure = FailureOf(call);
        EXPECT_EQ(failure.Number(), 445);
        EXPECT_NE(failure.Description().find(u"Windows"), std::u16string::npos);
    }
    // And the object goes on.
    EXPECT_EQ(crypto.DecryptString(crypto.EncryptString(u"x", u"p"), u"p"), u"x");
}

} // namespace
