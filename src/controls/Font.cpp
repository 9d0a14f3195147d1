// The faces of the design give way to one that every system has, in sizes that look alike.
//
// Tested by tests/windows/fields_look_test.cpp and dpi_test.cpp.
#include "controls/Font.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "controls/Dpi.h"

#include <algorithm>
#include <cmath>

namespace {

int CALLBACK FoundFamily(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
    *reinterpret_cast<bool*>(found) = true;
    return 0;
}

// Asked once per run for the faces of the design: installing fonts needs a restart anyway.
bool HaveUiFace() {
    static const bool have = IsInstalled(u"Segoe UI");
    return have;
}
bool HaveSemibold() {
    static const bool have = IsInstalled(u"Segoe UI Semibold");
    return have;
}

Font Plain(double points, double fallback) {
    return HaveUiFace() ? Font{u"Segoe UI", points, false, false} : Font{u"Tahoma", fallback, false, false};
}
Font Heavy(double points, double fallback) {
    if (HaveSemibold()) return {u"Segoe UI Semibold", points, false, false};
    if (HaveUiFace()) return {u"Segoe UI", points, true, false};
    return {u"Tahoma", fallback, true, false};
}

// A font in the context that a thread keeps for measuring: lists measure many times for each
// message, and fetching the screen's context costs more than the measuring.
class Measuring {
public:
    explicit Measuring(HFONT font) : m_Before(SelectObject(Dc(), font)) {}
    ~Measuring() { SelectObject(Dc(), m_Before); }
    Measuring(const Measuring&) = delete;
    Measuring& operator=(const Measuring&) = delete;
    // The system takes it back with the thread: by then a destructor would find its variable gone.
    static HDC Dc() {
        static thread_local const HDC dc = CreateCompatibleDC(nullptr);
        return dc;
    }

private:
    HGDIOBJ m_Before;
};

struct Named {
    std::u16string_view Name;
    Font (*Make)();
};
constexpr Named kDesign[] = {
    {u"Ui", UiFont},       {u"Strong", StrongFont}, {u"Lead", LeadFont}, {u"Heading", HeadingFont},
    {u"Title", TitleFont}, {u"Header", HeaderFont}, {u"Bar", BarFont},   {u"CheckList", CheckListFont},
};

} // namespace

Font UiFont() {
    return Plain(9, 8.25);
}
Font StrongFont() {
    return Heavy(9, 8.25);
}
Font LeadFont() {
    return Heavy(9.75, 9);
}
Font HeadingFont() {
    return Heavy(10.5, 9.75);
}
Font TitleFont() {
    return Heavy(11.25, 10.5);
}
Font HeaderFont() {
    return Heavy(13.5, 12.75);
}
Font BarFont() {
    return Plain(8.25, 8.25);
}
Font CheckListFont() {
    static const bool have = IsInstalled(u"Verdana");
    return {have ? u"Verdana" : u"Tahoma", 8.25, false, false};
}

Font TipFont() {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) return UiFont();
    const LOGFONTW& system = metrics.lfStatusFont;
    const double points = std::abs(system.lfHeight) * 72.0 / DpiOf(nullptr);
    return {Units(system.lfFaceName), points, system.lfWeight >= FW_BOLD, system.lfUnderline != 0};
}

Font DesignFont(std::u16string_view name) {
    for (const Named& known : kDesign) {
        if (text::EqualNoCase(known.Name, name)) return known.Make();
    }
    throw RuntimeFailure(kTypeMismatch, u"DesignFont", u"No font of the design: " + std::u16string(name));
}

bool IsInstalled(const std::u16string& family) {
    if (family.empty() || family.size() >= LF_FACESIZE) return false;
    LOGFONTW wanted{};
    wanted.lfCharSet = DEFAULT_CHARSET;
    std::copy_n(Wide(family), family.size(), wanted.lfFaceName);
    bool found = false;
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesExW(screen, &wanted, FoundFamily, reinterpret_cast<LPARAM>(&found), 0);
    ReleaseDC(nullptr, screen);
    return found;
}

FontHandle::FontHandle(const Font& font, int dpi) {
    LOGFONTW wanted{};
    // A size that cannot be meant is left to the system.
    constexpr double kMostPixels = 4096;
    const double pixels = font.Size * dpi / 72;
    if (pixels > 0 && pixels <= kMostPixels) wanted.lfHeight = -static_cast<LONG>(std::lround(pixels));
    wanted.lfWeight = font.Bold ? FW_BOLD : FW_NORMAL;
    wanted.lfUnderline = font.Underline;
    wanted.lfCharSet = DEFAULT_CHARSET;
    wanted.lfQuality = CLEARTYPE_QUALITY;
    const std::size_t length = std::min<std::size_t>(font.Name.size(), LF_FACESIZE - 1);
    std::copy_n(Wide(font.Name), length, wanted.lfFaceName);
    m_Handle = CreateFontIndirectW(&wanted);
}

FontHandle& FontHandle::operator=(FontHandle&& other) noexcept {
    std::swap(m_Handle, other.m_Handle);
    return *this;
}

FontHandle::~FontHandle() {
    if (m_Handle) DeleteObject(m_Handle);
}

int LineHeight(HFONT font) {
    const Measuring measuring(font);
    TEXTMETRICW metrics{};
    GetTextMetricsW(measuring.Dc(), &metrics);
    return metrics.tmHeight;
}

SIZE TextSize(HFONT font, std::u16string_view text) {
    const Measuring measuring(font);
    SIZE size{};
    GetTextExtentPoint32W(measuring.Dc(), reinterpret_cast<const wchar_t*>(text.data()),
                          static_cast<int>(text.size()), &size);
    return size;
}
