#include "console/Zorvak.h"

#include "base/Text.h"
#include "console/Terminal.h"

#include <string_view>

namespace {

// UTF-8, and every byte that is no part of it as a lone surrogate, as in paths.
std::u16string FromArgument(std::string_view bytes) {
    std::u16string units;
    while (!bytes.empty()) {
        std::size_t invalid = 1, length = 0;
        std::u16string character;
        while (invalid != 0 && length < 4 && length < bytes.size()) {
            invalid = 0;
            character = text::FromUtf8(bytes.substr(0, ++length), &invalid);
        }
        if (invalid != 0) {
            character = static_cast<char16_t>(0xDC00 + static_cast<unsigned char>(bytes[0]));
            length = 1;
        }
        units += character;
        bytes.remove_prefix(length);
    }
    return units;
}

} // namespace

int main(int argc, char** argv) {
    terminal::Start();
    std::vector<std::u16string> arguments;
    for (int i = 1; i < argc; ++i) arguments.push_back(FromArgument(argv[i]));
    return RunZorvak(arguments);
}
