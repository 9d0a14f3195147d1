// What was typed is forgotten after a second without a key.
//
// Tested by tests/windows/mclistbox_input_test.cpp and checklist_input_test.cpp.
#include "controls/TypedSearch.h"

#include <algorithm>

namespace {

constexpr DWORD kPause = 1000; // milliseconds that end a typed beginning

bool BeginsWith(std::u16string_view text, std::u16string_view beginning) {
    if (text.size() < beginning.size()) return false;
    const int length = static_cast<int>(beginning.size());
    return CompareStringOrdinal(reinterpret_cast<const wchar_t*>(text.data()), length,
                                reinterpret_cast<const wchar_t*>(beginning.data()), length,
                                TRUE) == CSTR_EQUAL;
}

} // namespace

int TypedSearch::Find(char16_t unit, int count, int current,
                      const std::function<std::u16string_view(int row)>& text) {
    if (unit < u' ' || count == 0) return -1;
    const DWORD now = static_cast<DWORD>(GetMessageTime());
    if (now - m_TypedAt > kPause) m_Typed.clear();
    if (m_Typed.empty() && unit == u' ') return -1;
    m_TypedAt = now;
    m_Typed += unit;
    const bool oneLetter = m_Typed.find_first_not_of(unit) == m_Typed.npos;
    const std::u16string_view wanted = std::u16string_view(m_Typed).substr(0, oneLetter ? 1 : m_Typed.npos);
    const int from = std::max(current, 0) + (oneLetter && current >= 0);
    for (int step = 0; step < count; ++step) {
        const int row = (from + step) % count;
        if (BeginsWith(text(row), wanted)) return row;
    }
    return -1;
}
