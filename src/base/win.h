// The only way to windows.h: takes back the macros that clash with names of ours.
#pragma once

#include <windows.h>

#include <string>

#undef DeleteFile
#undef FindText
#undef ReplaceText
#undef Yield

// A text as the system's wide calls take it: both have 16-bit units here.
inline const wchar_t* Wide(const std::u16string& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}
inline const wchar_t* Wide(const char16_t* text) { return reinterpret_cast<const wchar_t*>(text); }
