// Blocks of lines through the engine.
#pragma once

#include "base/RuntimeFailure.h"
#include "engine/OutputBuffer.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

class Engine;

// What ends a line of a block. Lf: LF, with a CR in front of it if there is one. CrLf: CR LF
// and nothing else. Either is kept as it stood and never reaches the conversion.
enum class LineEnd { Lf, CrLf };

// A line of a block that could not be converted.
struct LineFailure {
    std::size_t Line; // in its block, 1-based
    std::u16string Legacy;
    RuntimeFailure Failure;
};
// Told of each such line. True leaves the line as it was and goes on, false stops.
using OnLineFailure = std::function<bool(const LineFailure&)>;

// Units in the encoding; lone surrogates become U+FFFD in UTF-8.
void AppendUnits(std::u16string_view units, OutputEncoding encoding, OutputBuffer& output);

// See clsConvert::ConvertLines. Unit is char for cp1252 or char16_t.
template <class Unit>
std::size_t ConvertBlock(Engine& engine, std::basic_string_view<Unit> block, LineEnd cut,
                         OutputEncoding encoding, OutputBuffer& output, const OnLineFailure& onFailure);
