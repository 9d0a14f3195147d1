#include "base/Sha1.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Hex(const Sha1::Digest& digest) {
    std::string made;
    for (const auto byte : digest) {
        made += "0123456789abcdef"[byte >> 4];
        made += "0123456789abcdef"[byte & 15];
    }
    return made;
}

// The published examples of FIPS 180 and RFC 3174.
TEST(Sha1, PublishedExamples) {
    EXPECT_EQ(Hex(Sha1::Of("")), "da39a3ee5e6b4b0d3255bfef95601890afd80709");
    EXPECT_EQ(Hex(Sha1::Of("abc")), "a9993e364706816aba3e25717850c26c9cd0d89d");
    EXPECT_EQ(Hex(Sha1::Of("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq")),
              "84983e441c3bd26ebaae4aa1f95129e5e54670f1");
    EXPECT_EQ(Hex(Sha1::Of(std::string(1000000, 'a'))), "34aa973cd4c4daa4f61eeb2bdbad27316534016f");
}

TEST(Sha1, InPartsGivesTheSame) {
    std::string text;
    for (int i = 0; i < 200; ++i) text += static_cast<char>(i);
    for (std::size_t cut = 0; cut <= text.size(); ++cut) {
        Sha1 sha;
        sha.Add(std::string_view(text).substr(0, cut));
        sha.Add(std::string_view(text).substr(cut));
        EXPECT_EQ(sha.Finish(), Sha1::Of(text)) << cut;
    }
}

} // namespace
