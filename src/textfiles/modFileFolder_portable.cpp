#include "textfiles/modFileFolder.h"

namespace modFileFolder {

void OpenDocument(void*, std::u16string_view, std::u16string_view) {}

std::u16string GetSpecialFolder(std::int32_t) {
    return {};
}

} // namespace modFileFolder
