// Legacy text is hardly ever valid UTF-8, so that a look ends within its first lines.
// Tested by tests/unit/console/sourcecheck_test.cpp.

#include "console/SourceCheck.h"

#include "base/Files.h"

#include <string>

namespace sourcecheck {

// False where byte cannot stand here in UTF-8.
bool Judge::TakeByte(unsigned char byte) {
    if (m_More > 0) {
        if (byte < m_Low || byte > m_High) return false;
        m_Low = 0x80;
        m_High = 0xBF;
        --m_More;
        return true;
    }
    if (byte < 0x80) return true;
    m_BeyondAscii = true;
    if (byte < 0xC2 || byte > 0xF4) return false;
    m_More = byte < 0xE0 ? 1 : byte < 0xF0 ? 2 : 3;
    if (byte == 0xE0) m_Low = 0xA0; // no overlong forms,
    if (byte == 0xF0) m_Low = 0x90;
    if (byte == 0xED) m_High = 0x9F; // no surrogates,
    if (byte == 0xF4) m_High = 0x8F; // nothing beyond U+10FFFF
    return true;
}

void Judge::Take(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size() && !m_Decided; ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        if (m_Seen < 2) {
            if (m_Seen++ == 0) {
                m_First = byte;
                if (byte == 0xFE) continue; // a big-endian mark may follow
            } else if (m_First == 0xFE) {
                m_Finding = byte == 0xFF ? Finding::BigEndian : Finding::None;
                m_Decided = true;
                return;
            }
        }
        m_Decided = !TakeByte(byte);
    }
}

Finding Judge::Result() const {
    if (m_Decided) return m_Finding;
    return m_BeyondAscii && m_More == 0 ? Finding::Utf8 : Finding::None;
}

Finding Look(std::u16string_view path) {
    files::InputFile file;
    if (!files::CanBeReadAgain(path) || !file.Open(path)) return Finding::None;
    Judge judge;
    std::string block(65536, '\0');
    std::size_t got = 0;
    do {
        if (!file.Read(block.data(), block.size(), got)) return Finding::None;
        judge.Take(std::string_view(block).substr(0, got));
    } while (got > 0 && !judge.Decided());
    return judge.Result();
}

} // namespace sourcecheck
