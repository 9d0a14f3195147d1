// The engine: turns legacy text into Unicode Bangla, one line at a time.
#pragma once

#include "base/RuntimeFailure.h"
#include "engine/Blocks.h"
#include "engine/OutputBuffer.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

class Engine;
class clsCryptoAPI;
struct CryptoOperations;

class clsConvert {
public:
    // Opens a session of the cryptographic service; its failure is raised.
    clsConvert();
    explicit clsConvert(CryptoOperations operations);
    ~clsConvert();
    clsConvert(const clsConvert&) = delete;
    clsConvert& operator=(const clsConvert&) = delete;

    // Decrypts the plug-in at path and fills the table from it. Raises the failures of
    // clsCryptoAPI and those of LoadText.
    void LoadTable(std::u16string_view path);
    // Fills the table from a payload: reph marker, ya-phala marker, then one rule a line
    // (Find TAB Replace), lines split at CR LF. Raises failure 9 for a damaged payload; what
    // was read before the fault stays.
    void LoadText(std::u16string_view payload);
    // Erases the rules. The markers stay.
    void UnLoadTable();
    // Requires a loaded table (failure 9) of at most 32,767 rules (failure 6). Raises failure
    // 5 for a reph that has nothing to stand on at the start of the line and for a marker
    // that makes its pass endless, 14 for a line that grows beyond 2^29 units.
    std::u16string Convert(std::u16string_view line);

    // Converts a block of whole lines and appends them to output; a last line without its
    // line end is a line too. Returns the length of what was converted: the block's, or the
    // start of the failing line where onFailure said stop. Failures that concern the table
    // and not a line (9, 6) are raised. The text of a block of units may hold anything.
    std::size_t ConvertLines(std::string_view cp1252, LineEnd cut, OutputEncoding encoding,
                             OutputBuffer& output, const OnLineFailure& onFailure);
    std::size_t ConvertLines(std::u16string_view units, LineEnd cut, OutputEncoding encoding,
                             OutputBuffer& output, const OnLineFailure& onFailure);

private:
    std::u16string BuildPassPhrase() const;

    std::unique_ptr<clsCryptoAPI> m_Crypto;
    std::unique_ptr<Engine> m_Engine;
    UnitBuffer m_Line;
};
