// A look into a text file that is about to be read as ANSI: is it something else?
#pragma once

#include <string_view>

namespace sourcecheck {

enum class Finding {
    None,
    Utf8,      // valid UTF-8 with characters beyond ASCII
    BigEndian, // begins with FE FF
};

// Judges a file by its bytes as they come; done once the rest cannot matter.
class Judge {
public:
    void Take(std::string_view bytes);
    bool Decided() const { return m_Decided; }
    // Call behind the last byte.
    Finding Result() const;

private:
    bool TakeByte(unsigned char byte);

    Finding m_Finding = Finding::None;
    bool m_Decided = false;
    bool m_BeyondAscii = false;
    unsigned m_More = 0;                       // continuation bytes still due
    unsigned char m_Low = 0x80, m_High = 0xBF; // range of the next of them
    unsigned m_Seen = 0;                       // bytes, up to 2
    unsigned char m_First = 0;
};

// What a file is; None where it cannot be read, or could not be read again.
Finding Look(std::u16string_view path);

} // namespace sourcecheck
