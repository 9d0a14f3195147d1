// Colours: the palette of the normal look, the system's colours under high contrast, and
// colour numbers as the properties hold them.
#pragma once

#include "base/win.h"

#include <cstdint>
#include <string_view>

// A colour property: 0x00BBGGRR, or 0x80000000 plus the index of a system colour.
using OleColour = std::uint32_t;
constexpr OleColour kButtonFace = 0x8000000F;
constexpr OleColour kButtonText = 0x80000012;
constexpr OleColour kNoColour = 0xFFFFFFFF; // nothing is filled: what lies behind shows
// The red, green and blue that the number stands for now.
COLORREF Resolve(OleColour colour);
// A name of the palette ("Card"), "&H" and hexadecimal digits, "#RRGGBB" or "None".
// Raises failure 13 for anything else.
OleColour ParseColour(std::u16string_view text);

namespace palette {
constexpr COLORREF Ink = RGB(0x10, 0x34, 0x3A);
constexpr COLORREF Muted = RGB(0x45, 0x62, 0x6A);
constexpr COLORREF Link = RGB(0x0B, 0x5A, 0x66);
constexpr COLORREF Card = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF FrameTop = RGB(0xF6, 0xFA, 0xFA);
constexpr COLORREF FrameBottom = RGB(0xE1, 0xED, 0xED);
constexpr COLORREF Tint = RGB(0xF1, 0xF7, 0xF7);
constexpr COLORREF Line = RGB(0xC4, 0xD4, 0xD6);
constexpr COLORREF FieldBorder = RGB(0x6B, 0x8A, 0x90);
constexpr COLORREF Outline = RGB(0x2B, 0x6A, 0x72);
constexpr COLORREF Brand = RGB(0x17, 0x65, 0x6D);
constexpr COLORREF PrimaryBack = RGB(0x00, 0x4E, 0x64);
constexpr COLORREF NeutralBack = RGB(0xC2, 0xC9, 0xC9);
constexpr COLORREF HoverNeutral = RGB(0xB3, 0x5F, 0x00);
constexpr COLORREF HoverPrimary = RGB(0xFF, 0xD2, 0x8A);
constexpr COLORREF FocusNeutral = RGB(0x1A, 0x56, 0xB0);
constexpr COLORREF FocusPrimary = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF Sel = RGB(0x17, 0x65, 0x6D);
constexpr COLORREF SelGrad = RGB(0x2A, 0x7F, 0x7E);
constexpr COLORREF SelDisabled = RGB(0xB9, 0xC9, 0xCC);
constexpr COLORREF RowHover = RGB(0xE3, 0xF0, 0xF0);
constexpr COLORREF ListGrad = RGB(0xD6, 0xE8, 0xE8);
constexpr COLORREF Bar1 = RGB(0xF0, 0xB3, 0x5A);
constexpr COLORREF Bar2 = RGB(0x6C, 0xC3, 0xA0);
constexpr COLORREF Track = RGB(0xFF, 0xFF, 0xFF);
constexpr COLORREF PinnedBack = RGB(0xC0, 0xC0, 0xFF);
constexpr COLORREF DisabledText = RGB(0x8A, 0x9A, 0x9E);
constexpr COLORREF DisabledGround = RGB(0xF1, 0xF5, 0xF5);
constexpr COLORREF DisabledArrow = RGB(0xA9, 0xBB, 0xBE);
constexpr COLORREF ArrowField = RGB(0xE9, 0xF1, 0xF1);
constexpr COLORREF HeaderTop = RGB(0xFB, 0xFD, 0xFD);
constexpr COLORREF HeaderBottom = RGB(0xE6, 0xEF, 0xEF);
constexpr COLORREF Grid = RGB(0xE6, 0xEE, 0xEE);
constexpr COLORREF RaisedShadow = RGB(0x8F, 0xA5, 0xA9);
} // namespace palette

namespace Theme {
// The one place that reads the system's high contrast flag.
bool HighContrast();
// Puts an answer in place of the system's; null gives the system its say back.
void ReplaceHighContrast(bool (*answer)());
// The colour of the normal look, or under high contrast that of the system (COLOR_...).
COLORREF Pick(COLORREF normal, int systemIndex);
// Re-reads the flag: the form calls it when a setting or a system colour has changed.
void SettingsChanged();
} // namespace Theme
