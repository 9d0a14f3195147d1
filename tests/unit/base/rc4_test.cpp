#include "base/Rc4.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Cipher(std::string_view key, std::string_view text) {
    std::string bytes(text);
    Rc4(key).Apply({reinterpret_cast<std::uint8_t*>(bytes.data()), bytes.size()});
    return bytes;
}

// RFC 6229 gives the key stream of 40-bit and 128-bit keys; the other two are well known.
TEST(Rc4, PublishedExamples) {
    EXPECT_EQ(Cipher("Key", "Plaintext"), "\xBB\xF3\x16\xE8\xD9\x40\xAF\x0A\xD3");
    EXPECT_EQ(Cipher("Wiki", "pedia"), "\x10\x21\xBF\x04\x20");
    EXPECT_EQ(Cipher("\x01\x02\x03\x04\x05", std::string(16, '\0')),
              "\xb2\x39\x63\x05\xf0\x3d\xc0\x27\xcc\xc3\x52\x4a\x0a\x11\x18\xa8");
    EXPECT_EQ(
        Cipher("\x01\x02\x03\x04\x05\x06\x07\x08\x09\x0a\x0b\x0c\x0d\x0e\x0f\x10", std::string(16, '\0')),
        "\x9a\xc7\xcc\x9a\x60\x9d\x1e\xf7\xb2\x93\x28\x99\xcd\xe4\x1b\x97");
}

TEST(Rc4, GoesOnWhereItStopped) {
    std::string bytes(10, '\0');
    auto* at = reinterpret_cast<std::uint8_t*>(bytes.data());
    Rc4 cipher("Key");
    cipher.Apply({at, 3});
    cipher.Apply({at + 3, 0});
    cipher.Apply({at + 3, 7});
    EXPECT_EQ(bytes, Cipher("Key", std::string(10, '\0')));
}

} // namespace
