// Key pairs and signatures of clsCryptoAPI.
// Tested by tests/unit/engine/crypto_keypair_test.cpp and crypto_keypair_test_win.cpp.

#include "engine/clsCryptoAPI.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "engine/CryptoContainer.h"

#include <algorithm>

namespace {

using Handle = CryptoOperations::Handle;
using Dword = CryptoOperations::Dword;
using Byte = CryptoOperations::Byte;

constexpr Dword kRc4 = 0x6801;
constexpr Dword kExportable = 1;
constexpr std::int32_t kKeyExchange = 1;
constexpr std::int32_t kSignature = 2;
// 512 bits in the high word; exportable and without salt in the low one.
constexpr Dword kPairFlags = 0x2000011;
constexpr Dword kSimpleBlob = 1;
constexpr Dword kPublicKeyBlob = 6;
constexpr Dword kPrivateKeyBlob = 7;
constexpr Dword kBadSignature = 0x80090006;

Byte* BytesOf(std::string& bytes) {
    return reinterpret_cast<Byte*>(bytes.data());
}

// Destroys a key or a hash at the end of a block.
struct Release {
    const std::function<bool(Handle)>& destroy;
    Handle handle;
    ~Release() { destroy(handle); }
};

// What an exported pair or public key is for: its header names the algorithm in the bytes
// 4 to 7.
std::int32_t KeySpecOf(const std::string& blob) {
    const bool signature = blob.size() > 5 && blob[4] == 0 && blob[5] == 0x24;
    return signature ? kSignature : kKeyExchange;
}

// The salt does not travel with a session key. A new key's salt ought to be all zeros, but not
// every provider keeps to that; one that refuses to be told has them.
void SetNoSalt(const CryptoOperations& operations, Handle key) {
    constexpr Dword kSaltParameter = 2;
    constexpr Byte kZeros[11] = {};
    operations.CryptSetKeyParam(key, kSaltParameter, kZeros, 0);
}

} // namespace

void clsCryptoAPI::Generate_KeyPair(bool keyExchange) {
    m_KeySpec = keyExchange ? kKeyExchange : kSignature;
    if (m_hKeyPair) m_Operations.CryptDestroyKey(m_hKeyPair);
    m_hKeyPair = 0;
    if (!m_Operations.CryptGenKey(m_hCryptProv, static_cast<Dword>(m_KeySpec), kPairFlags, m_hKeyPair)) {
        m_hKeyPair = 0;
        Fail(u"DLL error code shown above. Could not generate public/private key pair");
    }
}

std::u16string clsCryptoAPI::ExportBlob(Handle key, Handle wrapKey, Dword blobType,
                                        std::u16string_view failure) {
    Dword length = 0;
    if (!m_Operations.CryptExportKey(key, wrapKey, blobType, 0, nullptr, length)) Fail(failure);
    std::string blob(length, '\0');
    if (!m_Operations.CryptExportKey(key, wrapKey, blobType, 0, BytesOf(blob), length)) Fail(failure);
    blob.resize(std::min<std::size_t>(length, blob.size()));
    return text::FromCp1252(blob);
}

void clsCryptoAPI::Export_KeyPair(std::u16string_view password) {
    DeriveSessionKey(password);
    m_PublicKey = ExportBlob(m_hKeyPair, 0, kPublicKeyBlob,
                             u"DLL error code shown above. Could not export the public key blob");
    m_PublicPrivateKey = ExportBlob(m_hKeyPair, m_hSessionKey, kPrivateKeyBlob,
                                    u"DLL error code shown above. Could not export the private key blob");
    DestroySessionKey();
}

void clsCryptoAPI::Import_KeyPair(std::u16string_view password, bool privateKey) {
    if (m_PublicPrivateKey.empty() && m_PublicKey.empty())
        Fail(u"One of the ValueXXXKey properties must hold a valid key");
    if (privateKey) DeriveSessionKey(password);
    std::string blob = text::ToAnsi(privateKey ? m_PublicPrivateKey : m_PublicKey);

    Handle pair = 0;
    if (!m_Operations.CryptImportKey(m_hCryptProv, BytesOf(blob), static_cast<Dword>(blob.size()),
                                     privateKey ? m_hSessionKey : 0, privateKey ? kExportable : 0, pair))
        Fail(privateKey
                 ? u"DLL error code shown above. Could not import the PublicPrivate key.  Most likely an "
                   u"incorrect private key password was entered."
                 : u"DLL error code shown above. Could not import the Public key");
    if (m_hKeyPair) m_Operations.CryptDestroyKey(m_hKeyPair);
    m_hKeyPair = pair;
    m_KeySpec = KeySpecOf(blob);
    if (privateKey) DestroySessionKey();
}

void clsCryptoAPI::EncryptFile_KeyPair(std::u16string_view inputPath, std::u16string_view outputPath) {
    const std::string bytes = EncryptByteArray_KeyPair(container::Read(inputPath));
    container::Write(outputPath, container::Join(bytes, text::ToAnsi(m_SessionKey)));
}

std::u16string clsCryptoAPI::DecryptFile_KeyPair(std::u16string_view inputPath,
                                                 std::u16string_view outputPath) {
    std::string bytes = container::Read(inputPath);
    container::Split(bytes, m_SessionKey);
    bytes = DecryptByteArray_KeyPair(std::move(bytes));
    container::Write(outputPath, bytes);
    return text::FromCp1252(bytes);
}

std::u16string clsCryptoAPI::EncryptString_KeyPair(std::u16string_view text) {
    return CipherWithKeyPair(text, true);
}

std::u16string clsCryptoAPI::DecryptString_KeyPair(std::u16string_view text) {
    return CipherWithKeyPair(text, false);
}

std::string clsCryptoAPI::EncryptByteArray_KeyPair(std::string bytes) {
    return text::ToAnsi(CipherWithKeyPair(text::FromCp1252(bytes), true));
}

std::string clsCryptoAPI::DecryptByteArray_KeyPair(std::string bytes) {
    return text::ToAnsi(CipherWithKeyPair(text::FromCp1252(bytes), false));
}

std::u16string clsCryptoAPI::CipherWithKeyPair(std::u16string_view text, bool encrypting) {
    std::string bytes = text::ToAnsi(text);
    Dword length = container::Length(bytes);
    Handle userKey = 0;
    Handle sessionKey = 0;
    if (encrypting) {
        if (!m_Operations.CryptGenKey(m_hCryptProv, kRc4, kExportable, sessionKey))
            Fail(u"DLL error code shown above. Could not create session key for use in key pair encryption");
        const Release session{m_Operations.CryptDestroyKey, sessionKey};
        SetNoSalt(m_Operations, sessionKey);
        if (!m_Operations.CryptGetUserKey(m_hCryptProv, static_cast<Dword>(m_KeySpec), userKey))
            Fail(u"DLL error code shown above. Could not obtain public key for use in key pair encryption");
        const Release user{m_Operations.CryptDestroyKey, userKey};
        m_SessionKey = ExportBlob(
            sessionKey, userKey, kSimpleBlob,
            u"DLL error code shown above. Could not export the session key during key pair encryption");
        if (!m_Operations.CryptEncrypt(sessionKey, 0, true, 0, BytesOf(bytes), length, length))
            Fail(u"DLL error code shown above. Error during key pair CryptEncrypt encryption.");
    } else {
        if (!m_Operations.CryptGetUserKey(m_hCryptProv, static_cast<Dword>(m_KeySpec), userKey))
            Fail(u"DLL error code shown above. Could not obtain private key for use in key pair decryption");
        const Release user{m_Operations.CryptDestroyKey, userKey};
        std::string blob = text::ToAnsi(m_SessionKey);
        if (!m_Operations.CryptImportKey(m_hCryptProv, BytesOf(blob), static_cast<Dword>(blob.size()),
                                         userKey, 0, sessionKey))
            Fail(u"DLL error code shown above. Could not import the session key during key pair decryption.  "
                 u"Most "
                 u"likely an incorrect private key was used, thus it could not decrypt the session key.");
        const Release session{m_Operations.CryptDestroyKey, sessionKey};
        SetNoSalt(m_Operations, sessionKey);
        if (!m_Operations.CryptDecrypt(sessionKey, 0, true, 0, BytesOf(bytes), length))
            Fail(u"DLL error code shown above. Error during key pair CryptDecrypt decryption.");
    }
    bytes.resize(std::min<std::size_t>(length, bytes.size()));
    return text::FromCp1252(bytes);
}

void clsCryptoAPI::SignFile_KeyPair(std::u16string_view inputPath, std::u16string_view outputPath) {
    const std::string bytes = SignByteArray_KeyPair(container::Read(inputPath));
    container::Write(outputPath, container::Join(bytes, text::ToAnsi(m_Signature)));
}

std::u16string clsCryptoAPI::ValidateFile_KeyPair(std::u16string_view inputPath,
                                                  std::u16string_view outputPath) {
    std::string bytes = container::Read(inputPath);
    container::Split(bytes, m_Signature);
    bytes = ValidateByteArray_KeyPair(std::move(bytes));
    container::Write(outputPath, bytes);
    return text::FromCp1252(bytes);
}

std::string clsCryptoAPI::SignByteArray_KeyPair(std::string bytes) {
    SignOrValidate(text::FromCp1252(bytes), true);
    return bytes;
}

std::string clsCryptoAPI::ValidateByteArray_KeyPair(std::string bytes) {
    SignOrValidate(text::FromCp1252(bytes), false);
    return bytes;
}

std::u16string clsCryptoAPI::SignString_KeyPair(std::u16string_view text) {
    return SignOrValidate(text, true);
}

std::u16string clsCryptoAPI::ValidateString_KeyPair(std::u16string_view text) {
    return SignOrValidate(text, false);
}

std::u16string clsCryptoAPI::SignOrValidate(std::u16string_view text, bool signing) {
    const Handle hash = HashOf(text::ToAnsi(text));
    const Release release{m_Operations.CryptDestroyHash, hash};
    if (signing) {
        constexpr std::u16string_view kFailed = u"DLL error code shown above. Could not sign the hash";
        const Dword keySpec = static_cast<Dword>(m_KeySpec);
        Dword length = 0;
        if (!m_Operations.CryptSignHashA(hash, keySpec, nullptr, 0, nullptr, length)) Fail(kFailed);
        std::string signature(length, '\0');
        if (!m_Operations.CryptSignHashA(hash, keySpec, nullptr, 0, BytesOf(signature), length))
            Fail(kFailed);
        signature.resize(std::min<std::size_t>(length, signature.size()));
        m_Signature = text::FromCp1252(signature);
    } else {
        std::string signature = text::ToAnsi(m_Signature);
        if (!m_Operations.CryptVerifySignatureA(
                hash, BytesOf(signature), static_cast<Dword>(signature.size()), m_hKeyPair, nullptr, 0)) {
            if (m_Operations.LastError() == kBadSignature)
                Fail(u"DLL error code shown above. Bad signature.  This might be because the data has "
                     u"changed, or "
                     u"the wrong public key was used to check the signature.");
            Fail(u"DLL error code shown above. Could not verify the signature");
        }
    }
    return std::u16string(text);
}
