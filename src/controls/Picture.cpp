// The file form: "ZPIC", a count, and for each version width, height (at 96 DPI), width,
// height (in pixels), and its pixels in runs: a count of 1 to 255 and blue, green, red,
// alpha, multiplied by alpha. Numbers are 16-bit little-endian, runs may span rows.
//
// Tested by tests/windows/picture_test.cpp.
#include "controls/Picture.h"

#include "base/RuntimeFailure.h"
#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "controls/Theme.h"

#include <algorithm>
#include <vector>

namespace {

constexpr int kLargest = 4096; // pixels a side

struct Version {
    SIZE Logical{}, Pixels{};
    std::vector<std::uint32_t> Bits; // rows from the top
};

[[noreturn]] void Damaged() {
    throw RuntimeFailure(kTypeMismatch, u"Picture", u"The picture is damaged");
}

class Reader {
public:
    explicit Reader(std::string_view bytes) : m_Bytes(bytes) {}
    unsigned Byte() {
        if (m_At >= m_Bytes.size()) Damaged();
        return static_cast<unsigned char>(m_Bytes[m_At++]);
    }
    int Number() {
        const unsigned low = Byte();
        return static_cast<int>(low | (Byte() << 8));
    }
    std::uint32_t Pixel() {
        std::uint32_t pixel = 0;
        for (int shift = 0; shift < 32; shift += 8) pixel |= Byte() << shift;
        return pixel;
    }
    bool AtEnd() const { return m_At == m_Bytes.size(); }

private:
    std::string_view m_Bytes;
    std::size_t m_At = 0;
};

Version ReadVersion(Reader& reader) {
    Version version;
    version.Logical = {reader.Number(), reader.Number()};
    version.Pixels = {reader.Number(), reader.Number()};
    for (const LONG side : {version.Logical.cx, version.Logical.cy, version.Pixels.cx, version.Pixels.cy}) {
        if (side < 1 || side > kLargest) Damaged();
    }
    const std::size_t count =
        static_cast<std::size_t>(version.Pixels.cx) * static_cast<std::size_t>(version.Pixels.cy);
    while (version.Bits.size() < count) {
        const unsigned run = reader.Byte();
        if (run == 0 || run > count - version.Bits.size()) Damaged();
        version.Bits.insert(version.Bits.end(), run, reader.Pixel());
    }
    return version;
}

// Grey at half strength.
std::uint32_t Faded(std::uint32_t pixel) {
    const std::uint32_t grey =
        ((pixel & 0xFF) * 29 + ((pixel >> 8) & 0xFF) * 150 + ((pixel >> 16) & 0xFF) * 77) / 512;
    return ((pixel >> 24) / 2) << 24 | grey << 16 | grey << 8 | grey;
}

// Where the drawing itself has another size than the version.
void Blend(HDC dc, const RECT& place, const Version& version, bool disabled) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = version.Pixels.cx;
    info.bmiHeader.biHeight = -version.Pixels.cy;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap) return;
    auto* target = static_cast<std::uint32_t*>(bits);
    if (disabled)
        std::transform(version.Bits.begin(), version.Bits.end(), target, Faded);
    else
        std::copy(version.Bits.begin(), version.Bits.end(), target);
    const HDC memory = CreateCompatibleDC(dc);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    AlphaBlend(dc, place.left, place.top, WidthOf(place), HeightOf(place), memory, 0, 0, version.Pixels.cx,
               version.Pixels.cy, {AC_SRC_OVER, 0, 255, AC_SRC_ALPHA});
    SelectObject(memory, before);
    DeleteDC(memory);
    DeleteObject(bitmap);
}

} // namespace

struct Picture::Data {
    std::vector<Version> Versions;
};

Picture Picture::FromResource(std::u16string_view name) {
    const std::u16string wanted(name);
    const HRSRC found = FindResourceW(nullptr, Wide(wanted), L"PICTURE");
    const HGLOBAL block = found ? LoadResource(nullptr, found) : nullptr;
    const void* bytes = block ? LockResource(block) : nullptr;
    if (!bytes) throw RuntimeFailure(kTypeMismatch, u"Picture", u"No picture " + wanted);
    return FromBytes({static_cast<const char*>(bytes), SizeofResource(nullptr, found)});
}

Picture Picture::FromBytes(std::string_view bytes) {
    Reader reader(bytes);
    for (const char letter : {'Z', 'P', 'I', 'C'}) {
        if (reader.Byte() != static_cast<unsigned char>(letter)) Damaged();
    }
    auto data = std::make_shared<Data>();
    for (int left = reader.Number(); left > 0; --left) data->Versions.push_back(ReadVersion(reader));
    if (data->Versions.empty()) Damaged();
    Picture picture;
    picture.m_Data = std::move(data);
    return picture;
}

SIZE Picture::Size() const {
    SIZE smallest{};
    if (!m_Data) return smallest;
    smallest = m_Data->Versions.front().Logical;
    for (const Version& version : m_Data->Versions) {
        if (version.Logical.cx < smallest.cx) smallest = version.Logical;
    }
    return smallest;
}

void Picture::Draw(HDC dc, const RECT& place, int dpi, bool disabled) const {
    const LONG width = WidthOf(place), height = HeightOf(place);
    if (!m_Data || width <= 0 || height <= 0) return;
    // First the drawing that is meant for that size, then its version of the fitting pixels:
    // a 16-pixel drawing at 200 % is not the 32-pixel drawing at 100 %.
    const auto misfit = [&](const Version& version) {
        const LONG meant = std::abs(static_cast<LONG>(::Scaled(version.Logical.cx, dpi)) - width);
        const LONG off = version.Pixels.cx - width;
        return static_cast<long long>(meant) * 100'000 + (off >= 0 ? off : -off * 100);
    };
    const auto best =
        std::min_element(m_Data->Versions.begin(), m_Data->Versions.end(),
                         [&](const Version& a, const Version& b) { return misfit(a) < misfit(b); });
    Blend(dc, place, *best, disabled);
}

void Picture::DrawOnPlate(HDC dc, const RECT& place, int dpi, bool disabled) const {
    if (m_Data && Theme::HighContrast())
        FillRectangle(dc, Inset(place, -::Scaled(2, dpi)), RGB(255, 255, 255));
    Draw(dc, place, dpi, disabled);
}
