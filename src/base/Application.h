// What the program says of its maker.
#pragma once

#include <string_view>

constexpr std::u16string_view kSupportForum = u"https://forum.pelnitro.example/zorvak-converter";
