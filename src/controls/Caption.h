// Captions: the "&" in front of the access key.
#pragma once

#include <string>
#include <string_view>

// The letter after the first single "&", in lower case; 0 where there is none. "&&" stands
// for itself and is passed over, a blank is no letter; a caption shorter than 2 characters has
// no access key.
char16_t AccessKeyOf(std::u16string_view caption);
// The caption as it is read out: "&&" becomes "&", a single "&" goes.
std::u16string WithoutAmpersand(std::u16string_view caption);
