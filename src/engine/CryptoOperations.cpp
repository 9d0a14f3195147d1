// Our own side of the cryptography seam. It stands beside CryptoAPI on Windows too, so
// that tests compare both in one process.
//
// The base provider's RC4 key has 40 bits: the first 5 bytes of the hash, followed by the
// 11 salt bytes (NULs until some are set).
// Tested by tests/unit/engine/crypto_test.cpp.

#include "engine/CryptoOperations.h"

#include "base/Rc4.h"
#include "base/RuntimeFailure.h"
#include "base/Sha1.h"

#include <cstring>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <string>

namespace {

using Handle = CryptoOperations::Handle;
using Dword = CryptoOperations::Dword;
using Byte = CryptoOperations::Byte;

constexpr Dword kShaOne = 0x8004;
constexpr Dword kRc4 = 0x6801;
constexpr Dword kSaltParameter = 2;
constexpr Dword kHashValue = 2;
constexpr std::size_t kKeyLength = 5;
constexpr std::size_t kSaltLength = 11;

// CryptoAPI's own error numbers.
constexpr Dword kMoreData = 234;
constexpr Dword kInvalidHandle = 6;
constexpr Dword kBadKey = 0x80090003;
constexpr Dword kBadHash = 0x80090002;
constexpr Dword kBadAlgorithm = 0x80090008;
constexpr Dword kBadType = 0x8009000A;

struct Hash {
    Sha1 sha;
    std::optional<Sha1::Digest> value; // once it was asked for
    const Sha1::Digest& Value() {
        if (!value) value = sha.Finish();
        return *value;
    }
};

struct Key {
    std::string bytes;
    std::string salt = std::string(kSaltLength, '\0');
    std::optional<Rc4> stream; // under way
};

struct State {
    Dword lastError = 0;
    Handle last = 0;
    std::map<Handle, Hash> hashes;
    std::map<Handle, Key> keys;
    std::map<Handle, int> providers;

    bool Fail(Dword error) {
        lastError = error;
        return false;
    }
    template <class T>
    T* Find(std::map<Handle, T>& objects, Handle handle) {
        const auto found = objects.find(handle);
        return found == objects.end() ? nullptr : &found->second;
    }
    // Copies bytes out the way CryptoAPI does: no room asked for means only the length.
    bool Give(std::string_view from, Byte* to, Dword& length) {
        const Dword room = length;
        length = static_cast<Dword>(from.size());
        if (!to) return true;
        if (room < from.size()) return Fail(kMoreData);
        std::memcpy(to, from.data(), from.size());
        return true;
    }
    bool Cipher(Handle handle, bool final, Byte* bytes, Dword length) {
        Key* key = Find(keys, handle);
        if (!key) return Fail(kBadKey);
        if (!key->stream) key->stream.emplace(key->bytes + key->salt);
        if (length) key->stream->Apply({bytes, length});
        if (final) key->stream.reset();
        return true;
    }
};

[[noreturn]] void NotHere(std::u16string_view operation) {
    throw RuntimeFailure(445, u"clsCryptoAPI",
                         std::u16string(operation) +
                             u" is not available on this system: key pairs and signatures need Windows.");
}

} // namespace

CryptoOperations OwnCryptoOperations() {
    auto state = std::make_shared<State>();
    CryptoOperations o;
    o.LastError = [state] { return state->lastError; };

    o.CryptAcquireContextA = [state](Handle& provider, const char*, const char*, Dword, Dword) {
        provider = ++state->last;
        state->providers[provider] = 1;
        return true;
    };
    o.CryptReleaseContext = [state](Handle provider, Dword) {
        return state->providers.erase(provider) > 0 || state->Fail(kInvalidHandle);
    };
    o.CryptGenRandom = [](Handle, Dword length, Byte* bytes) {
        std::random_device device;
        for (Dword i = 0; i < length; ++i) bytes[i] = static_cast<Byte>(device());
        return true;
    };

    o.CryptCreateHash = [state](Handle, Dword algorithm, Handle, Dword, Handle& hash) {
        if (algorithm != kShaOne) return state->Fail(kBadAlgorithm);
        hash = ++state->last;
        state->hashes[hash];
        return true;
    };
    o.CryptHashData = [state](Handle handle, const Byte* bytes, Dword length, Dword) {
        Hash* hash = state->Find(state->hashes, handle);
        if (!hash || hash->value) return state->Fail(kBadHash);
        hash->sha.Add({reinterpret_cast<const char*>(bytes), length});
        return true;
    };
    o.CryptGetHashParam = [state](Handle handle, Dword parameter, Byte* bytes, Dword& length, Dword) {
        Hash* hash = state->Find(state->hashes, handle);
        if (!hash) return state->Fail(kBadHash);
        if (parameter != kHashValue) return state->Fail(kBadType);
        const Sha1::Digest& digest = hash->Value();
        return state->Give({reinterpret_cast<const char*>(digest.data()), digest.size()}, bytes, length);
    };
    o.CryptDestroyHash = [state](Handle hash) {
        return state->hashes.erase(hash) > 0 || state->Fail(kBadHash);
    };

    o.CryptDeriveKey = [state](Handle, Dword algorithm, Handle handle, Dword, Handle& key) {
        Hash* hash = state->Find(state->hashes, handle);
        if (!hash) return state->Fail(kBadHash);
        if (algorithm != kRc4) return state->Fail(kBadAlgorithm);
        const Sha1::Digest& digest = hash->Value();
        key = ++state->last;
        state->keys[key].bytes.assign(digest.begin(), digest.begin() + kKeyLength);
        return true;
    };
    o.CryptSetKeyParam = [state](Handle handle, Dword parameter, const Byte* bytes, Dword) {
        Key* key = state->Find(state->keys, handle);
        if (!key) return state->Fail(kBadKey);
        if (parameter != kSaltParameter) return state->Fail(kBadType);
        key->salt.assign(bytes, bytes + kSaltLength);
        key->stream.reset();
        return true;
    };
    o.CryptGetKeyParam = [state](Handle handle, Dword parameter, Byte* bytes, Dword& length, Dword) {
        Key* key = state->Find(state->keys, handle);
        if (!key) return state->Fail(kBadKey);
        if (parameter != kSaltParameter) return state->Fail(kBadType);
        return state->Give(key->salt, bytes, length);
    };
    o.CryptEncrypt = [state](Handle key, Handle, bool final, Dword, Byte* bytes, Dword& length, Dword room) {
        if (room < length) return state->Fail(kMoreData);
        return state->Cipher(key, final, bytes, length);
    };
    o.CryptDecrypt = [state](Handle key, Handle, bool final, Dword, Byte* bytes, Dword& length) {
        return state->Cipher(key, final, bytes, length);
    };
    o.CryptDestroyKey = [state](Handle key) { return state->keys.erase(key) > 0 || state->Fail(kBadKey); };

    o.CryptGenKey = [](auto...) -> bool { NotHere(u"CryptGenKey"); };
    o.CryptGetUserKey = [](auto...) -> bool { NotHere(u"CryptGetUserKey"); };
    o.CryptExportKey = [](auto...) -> bool { NotHere(u"CryptExportKey"); };
    o.CryptImportKey = [](auto...) -> bool { NotHere(u"CryptImportKey"); };
    o.CryptSignHashA = [](auto...) -> bool { NotHere(u"CryptSignHashA"); };
    o.CryptVerifySignatureA = [](auto...) -> bool { NotHere(u"CryptVerifySignatureA"); };
    return o;
}
