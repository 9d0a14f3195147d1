// What the program calls itself.
#pragma once

#include <string_view>

constexpr std::u16string_view kApplicationTitle = u"Zorvak Converter";
constexpr std::u16string_view kSupportForum = u"https://forum.pelnitro.example/zorvak-converter";
