// The only way to windows.h. Takes back the macros that clash with names of ours.
#pragma once

#include <windows.h>

#include <string>

#undef DeleteFile
#undef FindText
#undef ReplaceText
#undef Yield

// A text as the system's wide calls take it, and theirs as ours: both have 16-bit units here.
inline const wchar_t* Wide(const std::u16string& text) {
    return reinterpret_cast<const wchar_t*>(text.c_str());
}
inline const wchar_t* Wide(const char16_t* text) {
    return reinterpret_cast<const wchar_t*>(text);
}
inline wchar_t* Wide(char16_t* text) {
    return reinterpret_cast<wchar_t*>(text);
}
inline const char16_t* Units(const wchar_t* text) {
    return reinterpret_cast<const char16_t*>(text);
}

// Text of a window, whole.
std::u16string WindowText(HWND window);

// An entry point that older systems lack; null where it is missing.
template <class Function>
Function Lookup(const wchar_t* library, const char* name) {
    const HMODULE module = GetModuleHandleW(library);
    return module ? reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)))
                  : nullptr;
}
