// The public face of the engine, and the cutting of blocks into lines.
//
// Tested by tests/unit/engine/clsConvert_test.cpp and ConvertLines_test.cpp.

#include "engine/clsConvert.h"

#include "base/Text.h"
#include "engine/Engine.h"
#include "engine/PassPhrase.h"
#include "engine/clsCryptoAPI.h"

#include <cstring>

namespace {

void Append(OutputBuffer& output, std::string_view bytes) {
    if (!bytes.empty()) std::memcpy(output.Room(bytes.size()), bytes.data(), bytes.size());
    output.Add(bytes.size());
}

void Append(OutputBuffer& output, std::u16string_view units, OutputEncoding encoding) {
    Append(output, encoding == OutputEncoding::Utf16 ? text::ToUtf16Le(units) : text::ToUtf8(units));
}

std::u16string Widen(std::string_view cp1252) {
    return text::FromCp1252(cp1252);
}
std::u16string Widen(std::u16string_view units) {
    return std::u16string(units);
}

// Length of the line that text begins with, without its line end; end is the length of that.
template <class View>
std::size_t CutLine(View text, LineEnd cut, std::size_t& end) {
    for (std::size_t at = 0; (at = text.find('\n', at)) != View::npos; ++at) {
        const bool behindCr = at > 0 && text[at - 1] == '\r';
        if (cut == LineEnd::CrLf && !behindCr) continue;
        end = behindCr ? 2 : 1;
        return at + 1 - end;
    }
    end = 0;
    return text.size();
}

template <class View>
std::size_t ConvertBlock(Engine& engine, View block, LineEnd cut, OutputEncoding encoding,
                         OutputBuffer& output, const OnLineFailure& onFailure) {
    engine.CheckTable();
    std::size_t start = 0;
    for (std::size_t line = 1; start < block.size(); ++line) {
        std::size_t end;
        const std::size_t length = CutLine(block.substr(start), cut, end);
        const View text = block.substr(start, length);
        try {
            Append(output, engine.ConvertLine(Widen(text)), encoding);
        } catch (const RuntimeFailure& failure) {
            if (!onFailure({line, Widen(text), failure})) return start;
            Append(output, Widen(text), encoding);
        }
        Append(output, Widen(block.substr(start + length, end)), encoding);
        start += length + end;
    }
    return start;
}

} // namespace

clsConvert::clsConvert() : clsConvert(SystemCryptoOperations()) {}

clsConvert::clsConvert(CryptoOperations operations)
    : m_Crypto(std::make_unique<clsCryptoAPI>(std::move(operations))), m_Engine(std::make_unique<Engine>()) {
    m_Crypto->SessionStart();
}

clsConvert::~clsConvert() {
    m_Crypto->SessionEnd();
}

std::u16string clsConvert::BuildPassPhrase() const {
    return AssemblePassPhrase();
}

void clsConvert::LoadTable(std::u16string_view path) {
    LoadText(m_Crypto->DecryptFileTEXT(path, BuildPassPhrase()));
}

void clsConvert::LoadText(std::u16string_view payload) {
    m_Engine->m_Table.Read(payload);
}

void clsConvert::UnLoadTable() {
    m_Engine->m_Table.Erase();
}

std::u16string clsConvert::Convert(std::u16string_view line) {
    m_Engine->CheckTable();
    return m_Engine->ConvertLine(line);
}

std::size_t clsConvert::ConvertLines(std::string_view cp1252, LineEnd cut, OutputEncoding encoding,
                                     OutputBuffer& output, const OnLineFailure& onFailure) {
    return ConvertBlock(*m_Engine, cp1252, cut, encoding, output, onFailure);
}

std::size_t clsConvert::ConvertLines(std::u16string_view units, LineEnd cut, OutputEncoding encoding,
                                     OutputBuffer& output, const OnLineFailure& onFailure) {
    return ConvertBlock(*m_Engine, units, cut, encoding, output, onFailure);
}
