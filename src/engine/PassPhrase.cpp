// Tested by tests/unit/engine/plugin_test.cpp. Another phrase closes every plug-in that
// was ever made.

#include "engine/PassPhrase.h"

#include "base/Text.h"

std::u16string AssemblePassPhrase() {
    std::u16string phrase;
    unsigned turn = 0x5A43;
    for (int i = 0; i < 128; ++i) {
        turn = (turn * 25173 + 13849) & 0xFFFF;
        // A printable character: 94 in ASCII, then 95 from A1 on.
        const unsigned code = 0x21 + (turn >> 7) % 189;
        phrase += text::FromCp1252(static_cast<unsigned char>(code <= 0x7E ? code : code + 0x22));
    }
    return phrase;
}
