// The plug-in file: an enciphered rule table, one for each legacy encoding.
#pragma once

#include <string>
#include <string_view>

namespace plugin {

// The text inside a plug-in with these bytes, without its mark: both markers, then the rules,
// lines split at CR LF. Raises the failures of clsCryptoAPI; noise for a file that is
// damaged or was made with another pass phrase.
std::u16string OpenPayload(std::string bytes);

// The bytes of a plug-in that holds this text. The same text gives the same bytes: the
// salt is taken from the text.
std::string MakeFile(std::u16string_view payload);

} // namespace plugin
