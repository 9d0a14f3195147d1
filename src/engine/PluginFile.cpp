// Tested by tests/unit/engine/plugin_test.cpp.

#include "engine/PluginFile.h"

#include "base/Sha1.h"
#include "base/Text.h"
#include "engine/CryptoContainer.h"
#include "engine/PassPhrase.h"
#include "engine/clsCryptoAPI.h"

namespace plugin {

std::u16string OpenPayload(std::string bytes) {
    clsCryptoAPI crypto;
    crypto.SessionStart();
    return crypto.DecryptBytesTEXT(std::move(bytes), AssemblePassPhrase());
}

std::string MakeFile(std::u16string_view payload) {
    std::string bytes = "\xFF\xFE" + text::ToUtf16Le(payload);
    const Sha1::Digest digest = Sha1::Of(bytes);

    CryptoOperations operations = SystemCryptoOperations();
    operations.CryptGenRandom = [&](CryptoOperations::Handle, CryptoOperations::Dword length,
                                    CryptoOperations::Byte* salt) {
        for (CryptoOperations::Dword i = 0; i < length; ++i) salt[i] = digest[i % digest.size()];
        return true;
    };
    clsCryptoAPI crypto(std::move(operations));
    crypto.SessionStart();
    crypto.EncryptByteArray(bytes, AssemblePassPhrase());
    return container::Join(bytes, text::ToAnsi(crypto.ValueSALT()));
}

} // namespace plugin
