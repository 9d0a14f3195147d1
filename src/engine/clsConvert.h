// The engine: turns one line of legacy text into Unicode Bangla.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

struct RuleTable;

class clsConvert {
public:
    clsConvert();
    ~clsConvert();
    clsConvert(const clsConvert&) = delete;
    clsConvert& operator=(const clsConvert&) = delete;

    // Decrypts the plug-in at path and fills the table. Raises a run-time failure for a bad
    // file; what was read before the fault stays.
    void LoadTable(std::u16string_view path);
    // The same from a payload at hand: both markers, then the rules, lines split at CR LF.
    void LoadText(std::u16string_view payload);
    void UnLoadTable();
    std::u16string Convert(std::u16string_view line);

private:
    struct Derived;
    std::unique_ptr<Derived> m_Derived;
};
