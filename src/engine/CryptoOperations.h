// The cryptography seam: the operations that clsCryptoAPI calls, by their names in
// CryptoAPI, with its meanings of arguments and results.
#pragma once

#include <cstdint>
#include <functional>

// A table of functions, so that a caller can replace single entries. Handles are as wide
// as the system's own; lengths are bytes. false means failed, and LastError says why.
struct CryptoOperations {
    using Handle = std::uintptr_t;
    using Dword = std::uint32_t;
    using Byte = std::uint8_t;

    std::function<Dword()> LastError;

    std::function<bool(Handle& provider, const char* container, const char* name, Dword type, Dword flags)>
        CryptAcquireContextA;
    std::function<bool(Handle provider, Dword flags)> CryptReleaseContext;
    std::function<bool(Handle provider, Dword length, Byte* bytes)> CryptGenRandom;

    std::function<bool(Handle provider, Dword algorithm, Handle key, Dword flags, Handle& hash)>
        CryptCreateHash;
    std::function<bool(Handle hash, const Byte* bytes, Dword length, Dword flags)> CryptHashData;
    std::function<bool(Handle hash, Dword parameter, Byte* bytes, Dword& length, Dword flags)>
        CryptGetHashParam;
    std::function<bool(Handle hash)> CryptDestroyHash;

    std::function<bool(Handle provider, Dword algorithm, Handle hash, Dword flags, Handle& key)>
        CryptDeriveKey;
    std::function<bool(Handle key, Dword parameter, const Byte* bytes, Dword flags)> CryptSetKeyParam;
    std::function<bool(Handle key, Dword parameter, Byte* bytes, Dword& length, Dword flags)>
        CryptGetKeyParam;
    std::function<bool(Handle key, Handle hash, bool final, Dword flags, Byte* bytes, Dword& length,
                       Dword room)>
        CryptEncrypt;
    std::function<bool(Handle key, Handle hash, bool final, Dword flags, Byte* bytes, Dword& length)>
        CryptDecrypt;
    std::function<bool(Handle key)> CryptDestroyKey;

    std::function<bool(Handle provider, Dword algorithm, Dword flags, Handle& key)> CryptGenKey;
    std::function<bool(Handle provider, Dword keySpec, Handle& key)> CryptGetUserKey;
    std::function<bool(Handle key, Handle wrapKey, Dword blobType, Dword flags, Byte* bytes, Dword& length)>
        CryptExportKey;
    std::function<bool(Handle provider, const Byte* bytes, Dword length, Handle wrapKey, Dword flags,
                       Handle& key)>
        CryptImportKey;
    std::function<bool(Handle hash, Dword keySpec, const char* description, Dword flags, Byte* bytes,
                       Dword& length)>
        CryptSignHashA;
    std::function<bool(Handle hash, const Byte* bytes, Dword length, Handle key, const char* description,
                       Dword flags)>
        CryptVerifySignatureA;
};

// The system's own on Windows, else ours.
CryptoOperations SystemCryptoOperations();

// SHA-1, RC4 and the base provider's key derivation written out: what the password
// operations need, byte for byte as the provider does it. Key pairs and signatures raise
// failure 445.
CryptoOperations OwnCryptoOperations();
