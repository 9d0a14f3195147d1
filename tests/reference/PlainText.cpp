#include "reference/PlainText.h"

#include <map>

namespace reference {
namespace {

struct Row { // a row of the Unicode Standard's table of well-formed UTF-8 byte sequences
    int low[4], high[4];
    std::size_t length;
};
const Row kRows[] = {
    {{0x00}, {0x7F}, 1},
    {{0xC2, 0x80}, {0xDF, 0xBF}, 2},
    {{0xE0, 0xA0, 0x80}, {0xE0, 0xBF, 0xBF}, 3},
    {{0xE1, 0x80, 0x80}, {0xEC, 0xBF, 0xBF}, 3},
    {{0xED, 0x80, 0x80}, {0xED, 0x9F, 0xBF}, 3},
    {{0xEE, 0x80, 0x80}, {0xEF, 0xBF, 0xBF}, 3},
    {{0xF0, 0x90, 0x80, 0x80}, {0xF0, 0xBF, 0xBF, 0xBF}, 4},
    {{0xF1, 0x80, 0x80, 0x80}, {0xF3, 0xBF, 0xBF, 0xBF}, 4},
    {{0xF4, 0x80, 0x80, 0x80}, {0xF4, 0x8F, 0xBF, 0xBF}, 4},
};

int ByteAt(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]);
}

// How many bytes from at on fit the row, from its first one.
std::size_t Fitting(const Row& row, std::string_view bytes, std::size_t at) {
    std::size_t count = 0;
    while (count < row.length && at + count < bytes.size() && ByteAt(bytes, at + count) >= row.low[count] &&
           ByteAt(bytes, at + count) <= row.high[count])
        ++count;
    return count;
}

void AppendPoint(std::u16string& units, unsigned long point) {
    if (point >= 0x10000) {
        units += static_cast<char16_t>(0xD800 + (point - 0x10000) / 0x400);
        units += static_cast<char16_t>(0xDC00 + (point - 0x10000) % 0x400);
    } else {
        units += static_cast<char16_t>(point);
    }
}

} // namespace

std::u16string PlainFromCp1252(std::string_view bytes) {
    static const std::map<int, char16_t> own = {
        {0x80, 0x20AC}, {0x82, 0x201A}, {0x83, 0x0192}, {0x84, 0x201E}, {0x85, 0x2026}, {0x86, 0x2020},
        {0x87, 0x2021}, {0x88, 0x02C6}, {0x89, 0x2030}, {0x8A, 0x0160}, {0x8B, 0x2039}, {0x8C, 0x0152},
        {0x8E, 0x017D}, {0x91, 0x2018}, {0x92, 0x2019}, {0x93, 0x201C}, {0x94, 0x201D}, {0x95, 0x2022},
        {0x96, 0x2013}, {0x97, 0x2014}, {0x98, 0x02DC}, {0x99, 0x2122}, {0x9A, 0x0161}, {0x9B, 0x203A},
        {0x9C, 0x0153}, {0x9E, 0x017E}, {0x9F, 0x0178}};
    std::u16string units;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto found = own.find(ByteAt(bytes, i));
        units += found == own.end() ? static_cast<char16_t>(ByteAt(bytes, i)) : found->second;
    }
    return units;
}

std::u16string PlainFromUtf8(std::string_view bytes, std::size_t& invalid) {
    std::u16string units;
    invalid = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        std::size_t longest = 1;
        bool isWhole = false;
        for (const Row& row : kRows) {
            const std::size_t fitting = Fitting(row, bytes, at);
            if (fitting > longest) longest = fitting;
            isWhole = isWhole || fitting == row.length;
        }
        if (isWhole) {
            static const int kLeadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
            unsigned long point = static_cast<unsigned long>(ByteAt(bytes, at) & kLeadBits[longest]);
            for (std::size_t i = 1; i < longest; ++i)
                point = point * 64 + static_cast<unsigned long>(ByteAt(bytes, at + i) % 64);
            AppendPoint(units, point);
        } else {
            units += u'\uFFFD';
            ++invalid;
        }
        at += longest;
    }
    return units;
}

std::u16string PlainFromUtf16Le(std::string_view bytes) {
    std::u16string units;
    for (std::size_t i = 0; i < bytes.size(); i += 2)
        units += i + 1 == bytes.size() ? u'\uFFFD'
                                       : static_cast<char16_t>(ByteAt(bytes, i) + 256 * ByteAt(bytes, i + 1));
    return units;
}

std::string PlainToUtf8(std::u16string_view units, std::size_t& replaced) {
    std::string bytes;
    replaced = 0;
    for (std::size_t i = 0; i < units.size(); ++i) {
        unsigned long point = units[i];
        const bool isHigh = point >= 0xD800 && point <= 0xDBFF, isLow = point >= 0xDC00 && point <= 0xDFFF;
        if (isHigh && i + 1 < units.size() && units[i + 1] >= 0xDC00 && units[i + 1] <= 0xDFFF) {
            point = 0x10000 + (point - 0xD800) * 0x400 + (units[++i] - 0xDC00u);
        } else if (isHigh || isLow) {
            point = 0xFFFD;
            ++replaced;
        }
        if (point <= 0x7F) {
            bytes += static_cast<char>(point);
        } else if (point <= 0x7FF) {
            bytes += static_cast<char>(0xC0 + point / 0x40);
            bytes += static_cast<char>(0x80 + point % 0x40);
        } else if (point <= 0xFFFF) {
            bytes += static_cast<char>(0xE0 + point / 0x1000);
            bytes += static_cast<char>(0x80 + point / 0x40 % 0x40);
            bytes += static_cast<char>(0x80 + point % 0x40);
        } else {
            bytes += static_cast<char>(0xF0 + point / 0x40000);
            bytes += static_cast<char>(0x80 + point / 0x1000 % 0x40);
            bytes += static_cast<char>(0x80 + point / 0x40 % 0x40);
            bytes += static_cast<char>(0x80 + point % 0x40);
        }
    }
    return bytes;
}

std::u16string PlainReadText(std::string_view bytes, int format) {
    const bool hasMark = bytes.starts_with("\xFF\xFE");
    if (format == 0 || (format == -2 && !hasMark)) return PlainFromCp1252(bytes);
    return PlainFromUtf16Le(hasMark ? bytes.substr(2) : bytes);
}

} // namespace reference
