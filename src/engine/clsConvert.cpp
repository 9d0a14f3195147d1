// The public face of the engine.
//
// Tested by tests/unit/engine/clsConvert_test.cpp.

#include "engine/clsConvert.h"

#include "base/Text.h"
#include "engine/Engine.h"
#include "engine/PassPhrase.h"
#include "engine/clsCryptoAPI.h"

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
    m_Engine->Load(payload);
}

void clsConvert::UnLoadTable() {
    m_Engine->UnLoad();
}

std::u16string clsConvert::Convert(std::u16string_view line) {
    m_Engine->CheckTable();
    m_Line.Clear();
    m_Engine->Convert(line, m_Line);
    return std::u16string(m_Line.View());
}

std::size_t clsConvert::ConvertLines(std::string_view cp1252, LineEnd cut, OutputEncoding encoding,
                                     OutputBuffer& output, const OnLineFailure& onFailure) {
    return ConvertBlock(*m_Engine, cp1252, cut, encoding, output, onFailure);
}

std::size_t clsConvert::ConvertLines(std::u16string_view units, LineEnd cut, OutputEncoding encoding,
                                     OutputBuffer& output, const OnLineFailure& onFailure) {
    return ConvertBlock(*m_Engine, units, cut, encoding, output, onFailure);
}
