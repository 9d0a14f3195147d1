// The session and the password operations; key pairs and signatures stand in
// clsCryptoAPI_KeyPair.cpp.
// Tested by tests/unit/engine/crypto_test.cpp.

#include "engine/clsCryptoAPI.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "engine/CryptoContainer.h"

#include <algorithm>
#include <vector>

namespace {

using Handle = CryptoOperations::Handle;
using Dword = CryptoOperations::Dword;
using Byte = CryptoOperations::Byte;

// Both with a NUL at their end, as the provider is asked for them.
constexpr char kContainer[] = "CryptoAPIExample";
constexpr char kProvider[] = "Microsoft Base Cryptographic Provider v1.0";
constexpr Dword kRsaFull = 1;
constexpr Dword kNewKeySet = 8;

constexpr Dword kShaOne = 0x8004;
constexpr Dword kRc4 = 0x6801;
constexpr Dword kHashValue = 2;
constexpr Dword kSaltParameter = 2;
constexpr Dword kExportable = 1;

// The provider takes this many salt bytes from where it is pointed to, however long the
// salt of the file is.
constexpr std::size_t kSaltLength = 11;

Byte* BytesOf(std::string& bytes) {
    return reinterpret_cast<Byte*>(bytes.data());
}

} // namespace

clsCryptoAPI::clsCryptoAPI(CryptoOperations operations) : m_Operations(std::move(operations)) {}

void clsCryptoAPI::Fail(std::u16string_view text) const {
    const Dword error = m_Operations.LastError();
    throw RuntimeFailure(static_cast<int>(error), u"clsCryptoAPI", text);
}

void clsCryptoAPI::ValueSALT(std::u16string_view value) {
    m_Salt.assign(value.size(), u' ');
    m_Salt = value;
}

void clsCryptoAPI::EncryptFile(std::u16string_view inputPath, std::u16string_view outputPath,
                               std::u16string_view password) {
    std::string bytes = container::Read(inputPath);
    if (bytes.empty()) throw RuntimeFailure(kSubscriptOutOfRange, u"clsCryptoAPI");
    EncryptByteArray(bytes, password);
    container::Write(outputPath, container::Join(bytes, text::ToAnsi(m_Salt)));
}

void clsCryptoAPI::DecryptFile(std::u16string_view inputPath, std::u16string_view outputPath,
                               std::u16string_view password) {
    m_Salt.clear();
    std::string bytes = container::Read(inputPath);
    container::Split(bytes, m_Salt);
    DecryptByteArray(bytes, password);
    container::Write(outputPath, bytes);
}

std::u16string clsCryptoAPI::DecryptFileTEXT(std::u16string_view inputPath, std::u16string_view password) {
    m_Salt.clear();
    return DecryptBytesTEXT(container::Read(inputPath), password);
}

std::u16string clsCryptoAPI::DecryptBytesTEXT(std::string bytes, std::u16string_view password) {
    container::Split(bytes, m_Salt);
    DecryptByteArray(bytes, password);
    if (bytes.size() % 2) bytes += '\0';
    std::u16string units = text::FromUtf16Le(bytes);
    units.erase(0, 1);
    return units;
}

std::u16string clsCryptoAPI::EncryptString(std::u16string_view text, std::u16string_view password) {
    return CipherWithPassword(text, password, true);
}

std::u16string clsCryptoAPI::DecryptString(std::u16string_view text, std::u16string_view password) {
    return CipherWithPassword(text, password, false);
}

void clsCryptoAPI::EncryptByteArray(std::string& bytes, std::u16string_view password) {
    bytes = text::ToAnsi(CipherWithPassword(text::FromCp1252(bytes), password, true));
}

void clsCryptoAPI::DecryptByteArray(std::string& bytes, std::u16string_view password) {
    bytes = text::ToAnsi(CipherWithPassword(text::FromCp1252(bytes), password, false));
}

void clsCryptoAPI::SessionStart() {
    const auto acquire = [&](Dword flags) {
        return m_Operations.CryptAcquireContextA(m_hCryptProv, kContainer, kProvider, kRsaFull, flags);
    };
    // A first attempt that fails means that the container stands there already.
    if (acquire(kNewKeySet) || acquire(0)) return;
    m_hCryptProv = 0;
    Fail(u"DLL error code shown above.  Error during CryptAcquireContext for a new key container.\r\n"
         u"A container with this name probably already exists.");
}

void clsCryptoAPI::SessionEnd() {
    DestroySessionKey();
    if (m_hKeyPair) m_Operations.CryptDestroyKey(m_hKeyPair);
    m_hKeyPair = 0;
    if (m_hCryptProv) m_Operations.CryptReleaseContext(m_hCryptProv, 0);
    m_hCryptProv = 0;
}

std::u16string clsCryptoAPI::CipherWithPassword(std::u16string_view text, std::u16string_view password,
                                                bool encrypting) {
    DeriveSessionKey(password);
    if (encrypting) {
        // Asked with no room, only to learn the length: the result says nothing.
        Dword length = 0;
        m_Operations.CryptGetKeyParam(m_hSessionKey, kSaltParameter, nullptr, length, 0);
        std::string salt(std::size_t{length} + 1, ' ');
        if (!m_Operations.CryptGenRandom(m_hCryptProv, length, BytesOf(salt)))
            Fail(u"DLL error code shown above. Could not generate a random SALT");
        m_Salt = text::FromCp1252(salt);
    }
    std::string salt = text::ToAnsi(m_Salt);
    salt.resize(kSaltLength, '\0');
    if (!m_Operations.CryptSetKeyParam(m_hSessionKey, kSaltParameter, BytesOf(salt), 0))
        Fail(u"DLL error code shown above. Could not set the SALT.");

    std::string bytes = text::ToAnsi(text);
    Dword length = container::Length(bytes);
    if (encrypting) {
        if (!m_Operations.CryptEncrypt(m_hSessionKey, 0, true, 0, BytesOf(bytes), length, length))
            Fail(u"DLL error code shown above. Error during CryptEncrypt.");
    } else {
        if (!m_Operations.CryptDecrypt(m_hSessionKey, 0, true, 0, BytesOf(bytes), length))
            Fail(u"DLL error code shown above. Error during CryptDecrypt.");
    }
    bytes.resize(std::min<std::size_t>(length, bytes.size()));
    DestroySessionKey();
    return text::FromCp1252(bytes);
}

void clsCryptoAPI::DeriveSessionKey(std::u16string_view password) {
    const Handle hash = HashOf(text::ToAnsi(password));
    struct Release {
        const CryptoOperations& operations;
        Handle hash;
        ~Release() { operations.CryptDestroyHash(hash); }
    } release{m_Operations, hash};

    // The value goes no further; asking for it closes the hash.
    Dword length = 0;
    std::vector<Byte> value;
    bool got = m_Operations.CryptGetHashParam(hash, kHashValue, nullptr, length, 0);
    if (got) {
        value.resize(length);
        got = m_Operations.CryptGetHashParam(hash, kHashValue, value.data(), length, 0);
    }
    if (!got) Fail(u"DLL error code shown above. Could not lngReturnValuerieve the hash value");

    DestroySessionKey();
    if (!m_Operations.CryptDeriveKey(m_hCryptProv, kRc4, hash, kExportable, m_hSessionKey)) {
        m_hSessionKey = 0;
        Fail(u"DLL error code shown above. Could not create a session key (CryptDeriveKey API)");
    }
}

void clsCryptoAPI::DestroySessionKey() {
    if (m_hSessionKey) m_Operations.CryptDestroyKey(m_hSessionKey);
    m_hSessionKey = 0;
}

CryptoOperations::Handle clsCryptoAPI::HashOf(std::string_view bytes) {
    Handle hash = 0;
    if (!m_Operations.CryptCreateHash(m_hCryptProv, kShaOne, 0, 0, hash))
        Fail(u"DLL error code shown above. Could not create a Hash Object (CryptCreateHash API)");
    if (!m_Operations.CryptHashData(hash, reinterpret_cast<const Byte*>(bytes.data()),
                                    static_cast<Dword>(bytes.size()), 0)) {
        const Dword error = m_Operations.LastError();
        m_Operations.CryptDestroyHash(hash);
        throw RuntimeFailure(
            static_cast<int>(error), u"clsCryptoAPI",
            u"DLL error code shown above. Could not calculate a Hash Value (CryptHashData API)");
    }
    return hash;
}
