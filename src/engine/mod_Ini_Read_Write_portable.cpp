#include "engine/mod_Ini_Read_Write.h"

namespace mod_Ini_Read_Write {

std::u16string ReadBySystem(std::u16string_view section, std::u16string_view key, std::u16string_view file) {
    return ReadByOwn(section, key, file);
}

} // namespace mod_Ini_Read_Write
