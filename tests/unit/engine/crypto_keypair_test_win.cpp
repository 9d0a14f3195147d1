// Key pairs and signatures with the system's own provider.

#include "base/RuntimeFailure.h"
#include "engine/clsCryptoAPI.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

class RealKeyPair : public testing::Test {
protected:
    void SetUp() override {
        m_Crypto.SessionStart();
        m_Crypto.Generate_KeyPair(true);
    }
    clsCryptoAPI m_Crypto;
    TempFolder m_Folder;
};

using namespace std::string_literals;
const std::u16string kText = u"Text with \u00E9 and \u20AC and a NUL \0 in it"s;

TEST_F(RealKeyPair, StringsThereAndBack) {
    const std::u16string coded = m_Crypto.EncryptString_KeyPair(kText);
    EXPECT_NE(coded, kText);
    EXPECT_FALSE(m_Crypto.ValueSessionKey().empty());
    EXPECT_EQ(m_Crypto.DecryptString_KeyPair(coded), kText);
    EXPECT_EQ(m_Crypto.DecryptByteArray_KeyPair(m_Crypto.EncryptByteArray_KeyPair("bytes")), "bytes");
}

TEST_F(RealKeyPair, FilesThereAndBack) {
    const auto in = m_Folder.Put(u"in", "the content");
    m_Crypto.EncryptFile_KeyPair(in, m_Folder / u"coded");
    m_Crypto.ValueSessionKey(u"");
    EXPECT_EQ(m_Crypto.DecryptFile_KeyPair(m_Folder / u"coded", m_Folder / u"out"), u"the content");
    EXPECT_EQ(m_Folder.Get(u"out"), "the content");
}

TEST_F(RealKeyPair, ExportAndImport) {
    m_Crypto.Export_KeyPair(u"secret");
    const std::u16string coded = m_Crypto.EncryptString_KeyPair(kText);

    clsCryptoAPI other;
    other.SessionStart();
    other.ValuePublicPrivateKey(m_Crypto.ValuePublicPrivateKey());
    other.Import_KeyPair(u"secret", true);
    other.ValueSessionKey(m_Crypto.ValueSessionKey());
    EXPECT_EQ(other.DecryptString_KeyPair(coded), kText);
}

TEST_F(RealKeyPair, Signatures) {
    m_Crypto.Generate_KeyPair(false);
    m_Crypto.SignString_KeyPair(kText);
    EXPECT_EQ(m_Crypto.ValidateString_KeyPair(kText), kText);
    try {
        m_Crypto.ValidateString_KeyPair(u"other");
        ADD_FAILURE() << "no failure";
    } catch (const RuntimeFailure& failure) {
        EXPECT_EQ(static_cast<unsigned>(failure.Number()), 0x80090006u);
        EXPECT_NE(failure.Description().find(u"Bad signature.  This"), std::u16string::npos);
    }

    const auto in = m_Folder.Put(u"in", "the content");
    m_Crypto.SignFile_KeyPair(in, m_Folder / u"signed");
    m_Crypto.ValueSignature(u"");
    EXPECT_EQ(m_Crypto.ValidateFile_KeyPair(m_Folder / u"signed", m_Folder / u"out"), u"the content");
    EXPECT_EQ(m_Folder.Get(u"out"), "the content");

    // Whoever has only the public key can check.
    m_Crypto.Export_KeyPair(u"secret");
    clsCryptoAPI other;
    other.SessionStart();
    other.ValuePublicKey(m_Crypto.ValuePublicKey());
    other.Import_KeyPair(u"", false);
    EXPECT_EQ(other.ValidateFile_KeyPair(m_Folder / u"signed", m_Folder / u"out2"), u"the content");
}

} // namespace
