// Tested by tests/unit/console/text_codecs_test.cpp.
#include "console/cmdTextCodecs.h"

#include "base/Text.h"

#include <array>
#include <cstdint>

namespace codecs {

namespace {

constexpr std::uint16_t kNoByte = 0xFFFF;

// Byte of each unit, page by page; the pages without any share one.
class Cp1252Pages {
public:
    Cp1252Pages() {
        for (auto& page : m_Pages) page.fill(kNoByte);
        m_Page.fill(0);
        std::uint8_t used = 1;
        for (unsigned byte = 0; byte < 256; ++byte) {
            char16_t unit = text::FromCp1252(static_cast<unsigned char>(byte));
            std::uint8_t& page = m_Page[unit >> 8];
            if (page == 0) page = used++;
            m_Pages[page][unit & 0xFF] = static_cast<std::uint16_t>(byte);
        }
    }
    std::uint16_t operator[](char16_t unit) const { return m_Pages[m_Page[unit >> 8]][unit & 0xFF]; }

private:
    std::array<std::uint8_t, 256> m_Page;
    std::array<std::array<std::uint16_t, 256>, 6> m_Pages; // 00, 01, 02, 20, 21 and the empty one
};

const Cp1252Pages& Pages() {
    static const Cp1252Pages pages;
    return pages;
}

bool IsHigh(char16_t unit) {
    return (unit & 0xFC00) == 0xD800;
}
bool IsLow(char16_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

} // namespace

Progress Cp1252FromUtf8(std::string_view bytes, char* out) {
    const Cp1252Pages& pages = Pages();
    const auto* start = reinterpret_cast<const unsigned char*>(bytes.data());
    const unsigned char* in = start;
    const unsigned char* end = start + bytes.size();
    char* to = out;
    while (in < end) {
        if (*in < 0x80) {
            *to++ = static_cast<char>(*in++);
        } else if ((*in & 0xFE) == 0xC2) {
            // U+0080 to U+00FF: of these only the first 32 can lack a byte.
            if (end - in < 2 || (in[1] & 0xC0) != 0x80) break;
            auto code = static_cast<char16_t>((in[0] & 3) << 6 | (in[1] & 0x3F));
            if (code < 0xA0 && pages[code] == kNoByte) break;
            *to++ = static_cast<char>(code);
            in += 2;
        } else if ((*in & 0xF0) == 0xE0) {
            if (end - in < 3 || (in[1] & 0xC0) != 0x80 || (in[2] & 0xC0) != 0x80) break;
            auto code = static_cast<char16_t>((in[0] & 0xF) << 12 | (in[1] & 0x3F) << 6 | (in[2] & 0x3F));
            if (code < 0x800 || pages[code] == kNoByte) break;
            *to++ = static_cast<char>(pages[code]);
            in += 3;
        } else {
            if ((*in & 0xE0) != 0xC0 || *in < 0xC2 || end - in < 2 || (in[1] & 0xC0) != 0x80) break;
            auto code = static_cast<char16_t>((in[0] & 0x1F) << 6 | (in[1] & 0x3F));
            if (pages[code] == kNoByte) break;
            *to++ = static_cast<char>(pages[code]);
            in += 2;
        }
    }
    return {static_cast<std::size_t>(in - start), static_cast<std::size_t>(to - out)};
}

Progress Cp1252FromUnits(std::u16string_view units, char* out) {
    const Cp1252Pages& pages = Pages();
    std::size_t i = 0;
    for (; i < units.size(); ++i) {
        const std::uint16_t byte = pages[units[i]];
        if (byte == kNoByte) break;
        out[i] = static_cast<char>(byte);
    }
    return {i, i};
}

template <class View>
std::size_t Count(View text) {
    // In stretches that a small counter can hold: compilers make vector code of that.
    std::size_t count = 0;
    while (!text.empty()) {
        View part = text.substr(0, 8192);
        std::uint16_t found = 0;
        for (auto unit : part) found = static_cast<std::uint16_t>(found + (unit == '\n'));
        count += found;
        text.remove_prefix(part.size());
    }
    return count;
}

std::size_t CountLf(std::string_view bytes) {
    return Count(bytes);
}
std::size_t CountLf(std::u16string_view units) {
    return Count(units);
}

std::size_t CountLoneSurrogates(std::u16string_view units) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (!IsHigh(units[i]) && !IsLow(units[i])) continue;
        if (IsHigh(units[i]) && i + 1 < units.size() && IsLow(units[i + 1]))
            ++i;
        else
            ++count;
    }
    return count;
}

} // namespace codecs
