// What clsConvert is made of: the table as loaded and the conversion of a line.
#pragma once

#include "engine/RuleTable.h"

#include <string>
#include <string_view>

class Engine {
public:
    RuleTable m_Table;

    // Raises what concerns the table as a whole.
    void CheckTable() const;
    std::u16string ConvertLine(std::u16string_view line) const;
};
