// Encryption of strings, byte arrays and files by password or key pair, and signing.
#pragma once

#include "engine/CryptoOperations.h"

#include <string>
#include <string_view>

// Cipher data travels through this class as strings with one character per byte, in the
// ANSI code page; a unit without a byte becomes '?'. Byte arrays are std::string.
//
// Every failed call raises a run-time failure whose number is the system's last error.
// The password operations work everywhere; key pairs and signatures need Windows and
// raise failure 445 elsewhere.
class clsCryptoAPI {
public:
    explicit clsCryptoAPI(CryptoOperations operations = SystemCryptoOperations());
    ~clsCryptoAPI() { SessionEnd(); }
    clsCryptoAPI(const clsCryptoAPI&) = delete;
    clsCryptoAPI& operator=(const clsCryptoAPI&) = delete;

    // The salt of the last password operation.
    const std::u16string& ValueSALT() const { return m_Salt; }
    void ValueSALT(std::u16string_view value);
    // The exported blobs and the last signature.
    const std::u16string& ValuePublicPrivateKey() const { return m_PublicPrivateKey; }
    void ValuePublicPrivateKey(std::u16string_view value) { m_PublicPrivateKey = value; }
    const std::u16string& ValuePublicKey() const { return m_PublicKey; }
    void ValuePublicKey(std::u16string_view value) { m_PublicKey = value; }
    const std::u16string& ValueSessionKey() const { return m_SessionKey; }
    void ValueSessionKey(std::u16string_view value) { m_SessionKey = value; }
    const std::u16string& ValueSignature() const { return m_Signature; }
    void ValueSignature(std::u16string_view value) { m_Signature = value; }

    // Files by password: ciphertext, salt, and the salt's length as the last byte. An empty
    // input file raises failure 9.
    void EncryptFile(std::u16string_view inputPath, std::u16string_view outputPath,
                     std::u16string_view password);
    void DecryptFile(std::u16string_view inputPath, std::u16string_view outputPath,
                     std::u16string_view password);
    // The plain text of a file that holds UTF-16 text, without its first unit. An odd last
    // byte becomes a unit of its own. Failure 9 where the file is too short for its salt
    // or holds no ciphertext.
    std::u16string DecryptFileTEXT(std::u16string_view inputPath, std::u16string_view password);
    // The same for a file's bytes at hand.
    std::u16string DecryptBytesTEXT(std::string bytes, std::u16string_view password);

    // Encryption makes a fresh salt (ValueSALT); decryption uses the one that stands there.
    std::u16string EncryptString(std::u16string_view text, std::u16string_view password);
    std::u16string DecryptString(std::u16string_view text, std::u16string_view password);
    void EncryptByteArray(std::string& bytes, std::u16string_view password);
    void DecryptByteArray(std::string& bytes, std::u16string_view password);

    // A new 512-bit pair, for key exchange or for signatures.
    void Generate_KeyPair(bool keyExchange);
    // Fills ValuePublicKey, and ValuePublicPrivateKey under the password.
    void Export_KeyPair(std::u16string_view password);
    // Takes the pair from ValuePublicPrivateKey, or the public key from ValuePublicKey.
    void Import_KeyPair(std::u16string_view password, bool privateKey);

    // The session key travels in ValueSessionKey; in files behind the ciphertext, followed
    // by its length as the last byte. DecryptFile_KeyPair also returns the plain bytes.
    void EncryptFile_KeyPair(std::u16string_view inputPath, std::u16string_view outputPath);
    std::u16string DecryptFile_KeyPair(std::u16string_view inputPath, std::u16string_view outputPath);
    std::u16string EncryptString_KeyPair(std::u16string_view text);
    std::u16string DecryptString_KeyPair(std::u16string_view text);
    std::string EncryptByteArray_KeyPair(std::string bytes);
    std::string DecryptByteArray_KeyPair(std::string bytes);

    // Opens the provider, making the key container where it is missing.
    void SessionStart();
    // Releases all that is open; harmless when nothing is.
    void SessionEnd();

    // The signature travels in ValueSignature; in files behind the content, followed by its
    // length as the last byte. Validation raises a failure for a bad signature and hands
    // back the content without it.
    void SignFile_KeyPair(std::u16string_view inputPath, std::u16string_view outputPath);
    std::u16string ValidateFile_KeyPair(std::u16string_view inputPath, std::u16string_view outputPath);
    std::string SignByteArray_KeyPair(std::string bytes);
    std::string ValidateByteArray_KeyPair(std::string bytes);
    std::u16string SignString_KeyPair(std::u16string_view text);
    std::u16string ValidateString_KeyPair(std::u16string_view text);

private:
    std::u16string CipherWithPassword(std::u16string_view text, std::u16string_view password,
                                      bool encrypting);
    std::u16string CipherWithKeyPair(std::u16string_view text, bool encrypting);
    void DeriveSessionKey(std::u16string_view password);
    std::u16string SignOrValidate(std::u16string_view text, bool signing);

    [[noreturn]] void Fail(std::u16string_view text) const;
    void DestroySessionKey();
    CryptoOperations::Handle HashOf(std::string_view bytes);
    std::u16string ExportBlob(CryptoOperations::Handle key, CryptoOperations::Handle wrapKey,
                              CryptoOperations::Dword blobType, std::u16string_view failure);

    CryptoOperations::Handle m_hCryptProv = 0;
    std::u16string m_Salt;
    CryptoOperations::Handle m_hSessionKey = 0;
    CryptoOperations::Handle m_hKeyPair = 0;
    std::u16string m_PublicPrivateKey;
    std::u16string m_PublicKey;
    std::u16string m_SessionKey;
    std::int32_t m_KeySpec = 0;
    std::u16string m_Signature;
    CryptoOperations m_Operations;
};
