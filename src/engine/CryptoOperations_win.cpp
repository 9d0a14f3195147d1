#include "engine/CryptoOperations.h"

#include "base/win.h"

#include <wincrypt.h>

namespace {

using Handle = CryptoOperations::Handle;
using Dword = CryptoOperations::Dword;
using Byte = CryptoOperations::Byte;

static_assert(sizeof(Handle) == sizeof(HCRYPTPROV) && sizeof(Handle) == sizeof(HCRYPTKEY));

DWORD* Raw(Dword& value) {
    static_assert(sizeof(DWORD) == sizeof(Dword));
    return reinterpret_cast<DWORD*>(&value);
}

ULONG_PTR* RawHandle(Handle& handle) {
    return reinterpret_cast<ULONG_PTR*>(&handle);
}

} // namespace

CryptoOperations SystemCryptoOperations() {
    CryptoOperations o;
    o.LastError = [] { return static_cast<Dword>(GetLastError()); };

    o.CryptAcquireContextA = [](Handle& provider, const char* container, const char* name, Dword type,
                                Dword flags) {
        return CryptAcquireContextA(RawHandle(provider), container, name, type, flags) != FALSE;
    };
    o.CryptReleaseContext = [](Handle provider, Dword flags) {
        return CryptReleaseContext(provider, flags) != FALSE;
    };
    o.CryptGenRandom = [](Handle provider, Dword length, Byte* bytes) {
        return CryptGenRandom(provider, length, bytes) != FALSE;
    };

    o.CryptCreateHash = [](Handle provider, Dword algorithm, Handle key, Dword flags, Handle& hash) {
        return CryptCreateHash(provider, algorithm, key, flags, RawHandle(hash)) != FALSE;
    };
    o.CryptHashData = [](Handle hash, const Byte* bytes, Dword length, Dword flags) {
        return CryptHashData(hash, bytes, length, flags) != FALSE;
    };
    o.CryptGetHashParam = [](Handle hash, Dword parameter, Byte* bytes, Dword& length, Dword flags) {
        return CryptGetHashParam(hash, parameter, bytes, Raw(length), flags) != FALSE;
    };
    o.CryptDestroyHash = [](Handle hash) { return CryptDestroyHash(hash) != FALSE; };

    o.CryptDeriveKey = [](Handle provider, Dword algorithm, Handle hash, Dword flags, Handle& key) {
        return CryptDeriveKey(provider, algorithm, hash, flags, RawHandle(key)) != FALSE;
    };
    o.CryptSetKeyParam = [](Handle key, Dword parameter, const Byte* bytes, Dword flags) {
        return CryptSetKeyParam(key, parameter, bytes, flags) != FALSE;
    };
    o.CryptGetKeyParam = [](Handle key, Dword parameter, Byte* bytes, Dword& length, Dword flags) {
        return CryptGetKeyParam(key, parameter, bytes, Raw(length), flags) != FALSE;
    };
    o.CryptEncrypt = [](Handle key, Handle hash, bool final, Dword flags, Byte* bytes, Dword& length,
                        Dword room) {
        return CryptEncrypt(key, hash, final, flags, bytes, Raw(length), room) != FALSE;
    };
    o.CryptDecrypt = [](Handle key, Handle hash, bool final, Dword flags, Byte* bytes, Dword& length) {
        return CryptDecrypt(key, hash, final, flags, bytes, Raw(length)) != FALSE;
    };
    o.CryptDestroyKey = [](Handle key) { return CryptDestroyKey(key) != FALSE; };

    o.CryptGenKey = [](Handle provider, Dword algorithm, Dword flags, Handle& key) {
        return CryptGenKey(provider, algorithm, flags, RawHandle(key)) != FALSE;
    };
    o.CryptGetUserKey = [](Handle provider, Dword keySpec, Handle& key) {
        return CryptGetUserKey(provider, keySpec, RawHandle(key)) != FALSE;
    };
    o.CryptExportKey = [](Handle key, Handle wrapKey, Dword blobType, Dword flags, Byte* bytes,
                          Dword& length) {
        return CryptExportKey(key, wrapKey, blobType, flags, bytes, Raw(length)) != FALSE;
    };
    o.CryptImportKey = [](Handle provider, const Byte* bytes, Dword length, Handle wrapKey, Dword flags,
                          Handle& key) {
        return CryptImportKey(provider, bytes, length, wrapKey, flags, RawHandle(key)) != FALSE;
    };
    o.CryptSignHashA = [](Handle hash, Dword keySpec, const char* description, Dword flags, Byte* bytes,
                          Dword& length) {
        return CryptSignHashA(hash, keySpec, description, flags, bytes, Raw(length)) != FALSE;
    };
    o.CryptVerifySignatureA = [](Handle hash, const Byte* bytes, Dword length, Handle key,
                                 const char* description, Dword flags) {
        return CryptVerifySignatureA(hash, bytes, length, key, description, flags) != FALSE;
    };
    return o;
}
