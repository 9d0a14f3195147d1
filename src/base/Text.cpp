// Tested by tests/unit/base/text_test.cpp.

#include "base/Text.h"

#include <bit>
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

} // namespace

char16_t FromCp1252(unsigned char byte) {
    return byte >= 0x80 && byte <= 0x9F ? kHigh[byte - 0x80] : static_cast<char16_t>(byte);
}

std::u16string FromCp1252(std::string_view bytes) {
    std::u16string units(bytes.size(), u'\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        units[i] = FromCp1252(static_cast<unsigned char>(bytes[i]));
    return units;
}

int ToCp1252(char16_t unit) {
    if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return unit;
    for (int i = 0; i < 32; ++i)
        if (kHigh[i] == unit) return 0x80 + i;
    return -1;
}

bool ToCp1252(std::u16string_view units, std::string& bytes) {
    std::string made(units.size(), '\0');
    for (std::size_t i = 0; i < units.size(); ++i) {
        const int byte = ToCp1252(units[i]);
        if (byte < 0) return false;
        made[i] = static_cast<char>(byte);
    }
    bytes = std::move(made);
    return true;
}

std::u16string FromUtf8(std::string_view bytes, std::size_t* invalid) {
    std::u16string units;
    units.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        int point;
        at += DecodeUtf8(bytes, at, point);
        if (point < 0) {
            units += kReplacement;
            if (invalid) ++*invalid;
        } else if (point < 0x10000) {
            units += static_cast<char16_t>(point);
        } else {
            units += static_cast<char16_t>(0xD7C0 + (point >> 10));
            units += static_cast<char16_t>(0xDC00 + (point & 0x3FF));
        }
    }
    return units;
}

std::string ToUtf8(std::u16string_view units, std::size_t* replaced) {
    std::string bytes;
    bytes.reserve(units.size() * 3);
    for (std::size_t i = 0; i < units.size(); ++i) {
        unsigned point = units[i];
        if (IsSurrogate(units[i])) {
            const bool pair = point < 0xDC00 && i + 1 < units.size() && (units[i + 1] & 0xFC00) == 0xDC00;
            if (pair) {
                point = ((point - 0xD7C0) << 10) + (units[++i] & 0x3FF);
            } else {
                point = kReplacement;
                if (replaced) ++*replaced;
            }
        }
        if (point < 0x80) {
            bytes += static_cast<char>(point);
        } else if (point < 0x800) {
            bytes += static_cast<char>(0xC0 | (point >> 6));
            bytes += static_cast<char>(0x80 | (point & 0x3F));
        } else if (point < 0x10000) {
            bytes += static_cast<char>(0xE0 | (point >> 12));
            bytes += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
            bytes += static_cast<char>(0x80 | (point & 0x3F));
        } else {
            bytes += static_cast<char>(0xF0 | (point >> 18));
            bytes += static_cast<char>(0x80 | ((point >> 12) & 0x3F));
            bytes += static_cast<char>(0x80 | ((point >> 6) & 0x3F));
            bytes += static_cast<char>(0x80 | (point & 0x3F));
        }
    }
    return bytes;
}

bool IsUtf8BeyondAscii(std::string_view bytes) {
    bool beyond = false;
    for (std::size_t at = 0; at < bytes.size();) {
        int point;
        at += DecodeUtf8(bytes, at, point);
        if (point < 0) return false;
        beyond = beyond || point >= 0x80;
    }
    return beyond;
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
