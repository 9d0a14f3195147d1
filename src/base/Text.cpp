// Tested by tests/unit/base/text_test.cpp.

#include "base/Text.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstring>

namespace text {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

// Windows-1252 from 0x80 to 0x9F; 81, 8D, 8F, 90 and 9D are its holes.
constexpr char16_t kHigh[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

constexpr std::array<char16_t, 256> kCp1252 = [] {
    std::array<char16_t, 256> units{};
    for (unsigned byte = 0; byte < 256; ++byte)
        units[byte] = byte >= 0x80 && byte <= 0x9F ? kHigh[byte - 0x80] : static_cast<char16_t>(byte);
    return units;
}();

// The other way; 0 for a unit that has no byte, and for 0 itself.
constexpr std::array<std::uint8_t, 0x2123> kBytes = [] {
    std::array<std::uint8_t, 0x2123> bytes{};
    for (unsigned byte = 0; byte < 256; ++byte) bytes[kCp1252[byte]] = static_cast<std::uint8_t>(byte);
    return bytes;
}();

constexpr bool IsSurrogate(char16_t unit) {
    return (unit & 0xF800) == 0xD800;
}

// Decodes the sequence at bytes[at]. Returns its length and sets point; for an invalid
// part it returns the length of that part and sets point to -1.
std::size_t DecodeUtf8(std::string_view bytes, std::size_t at, int& point) {
    auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = byte(at);
    point = -1;
    if (lead < 0x80) {
        point = lead;
        return 1;
    }
    int more;
    unsigned char low = 0x80, high = 0xBF;
    int value;
    if (lead >= 0xC2 && lead <= 0xDF) {
        more = 1;
        value = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        more = 2;
        value = lead & 0x0F;
        if (lead == 0xE0) low = 0xA0;
        if (lead == 0xED) high = 0x9F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        more = 3;
        value = lead & 0x07;
        if (lead == 0xF0) low = 0x90;
        if (lead == 0xF4) high = 0x8F;
    } else {
        return 1;
    }
    std::size_t length = 1;
    for (int i = 0; i < more; ++i) {
        if (at + length >= bytes.size()) return length;
        const unsigned char next = byte(at + length);
        if (next < low || next > high) return length;
        value = (value << 6) | (next & 0x3F);
        low = 0x80;
        high = 0xBF;
        ++length;
    }
    point = value;
    return length;
}

// How many bytes from at on are ASCII.
std::size_t LeadingAscii(std::string_view bytes, std::size_t at) {
    std::size_t end = at;
    for (std::uint64_t eight; end + 8 <= bytes.size(); end += 8) {
        std::memcpy(&eight, bytes.data() + end, 8);
        if (eight & 0x8080808080808080u) break;
    }
    while (end < bytes.size() && static_cast<unsigned char>(bytes[end]) < 0x80) ++end;
    return end - at;
}

} // namespace

char16_t FromCp1252(unsigned char byte) {
    return kCp1252[byte];
}

void FromCp1252(std::string_view bytes, char16_t* room) {
    for (const char byte : bytes) *room++ = kCp1252[static_cast<unsigned char>(byte)];
}

std::u16string FromCp1252(std::string_view bytes) {
    std::u16string units(bytes.size(), u'\0');
    FromCp1252(bytes, units.data());
    return units;
}

int ToCp1252(char16_t unit) {
    const int byte = unit < kBytes.size() ? kBytes[unit] : 0;
    return byte != 0 || unit == 0 ? byte : -1;
}

bool ToCp1252(std::u16string_view units, std::string& bytes) {
    std::string made(units.size(), '\0');
    char* to = made.data();
    for (const char16_t unit : units) {
        const int byte = ToCp1252(unit);
        if (byte < 0) return false;
        *to++ = static_cast<char>(byte);
    }
    bytes = std::move(made);
    return true;
}

std::string ToAnsi(std::u16string_view units) {
    std::string bytes(units.size(), '?');
    for (std::size_t i = 0; i < units.size(); ++i)
        if (const int byte = ToCp1252(units[i]); byte >= 0) bytes[i] = static_cast<char>(byte);
    return bytes;
}

std::u16string FromUtf8(std::string_view bytes, std::size_t* invalid) {
    std::u16string units(bytes.size(), u'\0');
    char16_t* to = units.data();
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t ascii = LeadingAscii(bytes, at);
        for (std::size_t i = 0; i < ascii; ++i) *to++ = static_cast<unsigned char>(bytes[at + i]);
        at += ascii;
        if (at == bytes.size()) break;
        int point;
        at += DecodeUtf8(bytes, at, point);
        if (point < 0) {
            *to++ = kReplacement;
            if (invalid) ++*invalid;
        } else if (point < 0x10000) {
            *to++ = static_cast<char16_t>(point);
        } else {
            *to++ = static_cast<char16_t>(0xD7C0 + (point >> 10));
            *to++ = static_cast<char16_t>(0xDC00 + (point & 0x3FF));
        }
    }
    units.resize(static_cast<std::size_t>(to - units.data()));
    return units;
}

std::string ToUtf8(std::u16string_view units, std::size_t* replaced) {
    // Three bytes for each unit at most: a pair of surrogates takes four.
    std::string bytes(units.size() * 3, '\0');
    char* to = bytes.data();
    for (std::size_t i = 0; i < units.size(); ++i) {
        std::uint32_t point = units[i];
        if (point < 0x80) {
            *to++ = static_cast<char>(point);
            continue;
        }
        if (IsSurrogate(units[i])) {
            const bool pair = point < 0xDC00 && i + 1 < units.size() && (units[i + 1] & 0xFC00) == 0xDC00;
            if (pair) {
                point = ((point - 0xD7C0) << 10) + (units[++i] & 0x3FF);
            } else {
                point = kReplacement;
                if (replaced) ++*replaced;
            }
        }
        if (point < 0x800) {
            *to++ = static_cast<char>(0xC0 | (point >> 6));
        } else {
            if (point < 0x10000) {
                *to++ = static_cast<char>(0xE0 | (point >> 12));
            } else {
                *to++ = static_cast<char>(0xF0 | (point >> 18));
                *to++ = static_cast<char>(0x80 | ((point >> 12) & 0x3F));
            }
            *to++ = static_cast<char>(0x80 | ((point >> 6) & 0x3F));
        }
        *to++ = static_cast<char>(0x80 | (point & 0x3F));
    }
    bytes.resize(static_cast<std::size_t>(to - bytes.data()));
    return bytes;
}

std::size_t ValidUtf8(std::string_view bytes) {
    for (std::size_t at = 0;;) {
        at += LeadingAscii(bytes, at);
        if (at == bytes.size()) return at;
        int point;
        const std::size_t length = DecodeUtf8(bytes, at, point);
        if (point < 0) return at;
        at += length;
    }
}

std::u16string FromUtf16Le(std::string_view bytes) {
    std::u16string units(bytes.size() / 2, u'\0');
    static_assert(std::endian::native == std::endian::little);
    if (!units.empty()) std::memcpy(units.data(), bytes.data(), units.size() * 2);
    if (bytes.size() % 2) units += kReplacement;
    return units;
}

std::string ToUtf16Le(std::u16string_view units) {
    std::string bytes(units.size() * 2, '\0');
    if (!units.empty()) std::memcpy(bytes.data(), units.data(), bytes.size());
    return bytes;
}

std::vector<std::u16string_view> Split(std::u16string_view units, std::u16string_view separator) {
    std::vector<std::u16string_view> parts;
    std::size_t from = 0;
    for (std::size_t at; (at = units.find(separator, from)) != units.npos; from = at + separator.size())
        parts.push_back(units.substr(from, at - from));
    parts.push_back(units.substr(from));
    return parts;
}

std::u16string ReplaceAll(std::u16string_view units, std::u16string_view find, std::u16string_view replace) {
    if (find.empty()) return std::u16string(units);
    std::u16string made;
    std::size_t from = 0;
    for (std::size_t at; (at = units.find(find, from)) != units.npos; from = at + find.size()) {
        made += units.substr(from, at - from);
        made += replace;
    }
    made += units.substr(from);
    return made;
}

std::u16string LowerAscii(std::u16string_view units) {
    std::u16string made(units);
    for (char16_t& unit : made)
        if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit + 32);
    return made;
}

bool EqualNoCase(std::u16string_view a, std::u16string_view b) {
    return LowerAscii(a) == LowerAscii(b);
}

std::u16string Decimal(long long value) {
    const std::string digits = std::to_string(value);
    return std::u16string(digits.begin(), digits.end());
}

} // namespace text
