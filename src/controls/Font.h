// A font as a value, the fonts of the design, and the system's object made of it.
#pragma once

#include "base/win.h"

#include <string>
#include <string_view>

struct Font {
    std::u16string Name;
    double Size = 8.25; // points
    bool Bold = false;
    bool Underline = false;

    bool operator==(const Font&) const = default;
};

// The fonts of the design, with their fall-backs where a face is not installed.
Font UiFont();
Font StrongFont();
Font LeadFont();
Font HeadingFont();
Font TitleFont();
Font HeaderFont();
Font BarFont();
Font CheckListFont();
// What the system itself writes tips in, as its user has set it.
Font TipFont();
// By name ("Ui", "Strong", "Heading"...). Raises failure 13 for an unknown one.
Font DesignFont(std::u16string_view name);

// True where a family of that name is installed.
bool IsInstalled(const std::u16string& family);

// A font of the system; freed at the end.
class FontHandle {
public:
    FontHandle() = default;
    FontHandle(const Font& font, int dpi);
    FontHandle(FontHandle&& other) noexcept : m_Handle(other.m_Handle) { other.m_Handle = nullptr; }
    FontHandle& operator=(FontHandle&& other) noexcept;
    ~FontHandle();
    HFONT Get() const { return m_Handle; }
    explicit operator bool() const { return m_Handle != nullptr; }

private:
    HFONT m_Handle = nullptr;
};

// Pixels of the height of a line (without leading).
int LineHeight(HFONT font);
SIZE TextSize(HFONT font, std::u16string_view text);
