#include "textfiles/MDllError.h"

#include "base/Files.h"
#include "base/Text.h"

namespace MDllError {

std::u16string GetSystemErrorText(std::int32_t errorCode) {
    if (errorCode == 0) return {};
    const std::u16string words = files::SystemErrorText(errorCode);
    return words.empty() ? u"System error code: " + text::Decimal(errorCode) : words;
}

} // namespace MDllError
