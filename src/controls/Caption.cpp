// Walks the caption once; the pairs of "&" are taken together from the left.
//
// Tested by tests/windows/layout_test.cpp and button_caption_test.cpp.
#include "controls/Caption.h"

#include "base/win.h"

char16_t AccessKeyOf(std::u16string_view caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != u'&') continue;
        if (caption[i + 1] == u' ') continue; // Alt and a blank are the system menu's
        if (caption[i + 1] != u'&') {
            const auto unit = static_cast<ULONG_PTR>(caption[i + 1]);
            return static_cast<char16_t>(
                reinterpret_cast<ULONG_PTR>(CharLowerW(reinterpret_cast<wchar_t*>(unit))));
        }
        ++i;
    }
    return 0;
}

std::u16string WithoutAmpersand(std::u16string_view caption) {
    std::u16string read;
    read.reserve(caption.size());
    for (std::size_t i = 0; i < caption.size(); ++i) {
        if (caption[i] == u'&' && ++i == caption.size()) break;
        read += caption[i];
    }
    return read;
}
