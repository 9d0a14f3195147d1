// The filter behind `zorvak text`: a stream of bytes in, line by line through the engine,
// a stream of bytes out, in memory that only the longest line sets.
#pragma once

#include "engine/clsConvert.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

enum class TextEncoding { Cp1252, Utf8, Utf16 };

struct TextFilterOptions {
    TextEncoding input = TextEncoding::Cp1252;
    OutputEncoding output = OutputEncoding::Utf8;
    bool keepGoing = false; // a line that fails stays as it was
};

struct TextFilterOutcome {
    // WriteFailed: the stream itself knows why.
    enum class End { Done, ReadFailed, WriteFailed, BigEndian, LineFailed };
    End end = End::Done;
    std::u16string text;         // why reading failed, or the line
    std::size_t line = 0;        // 1-based, of the line that failed
    std::u16string legacy;       // and that line
    std::size_t invalid = 0;     // parts of the input that are no text: U+FFFD stands for them
    std::size_t failedLines = 0; // left as they were
};

class TextFilter {
public:
    // Waits for up to size bytes; got is 0 at the end. False with the reason in failure.
    using Read =
        std::function<bool(char* bytes, std::size_t size, std::size_t& got, std::u16string& failure)>;
    using Write = std::function<bool(std::string_view bytes)>;

    TextFilter(clsConvert& converter, const TextFilterOptions& options, Read read, Write write);
    // From the first byte to the last; once for each object. Raises what is wrong with the
    // table itself.
    TextFilterOutcome Run();

private:
    using End = TextFilterOutcome::End;

    bool IsWide() const { return m_Options.input == TextEncoding::Utf16; }
    char* Bytes() { return reinterpret_cast<char*>(m_Input.data()); }
    std::string_view Waiting() const;
    bool Fill();
    bool MarkIsUndecided() const;
    bool SkipMark();
    std::size_t BehindLastLf(std::size_t from) const;
    void CompleteLastUnit();
    bool Convert(std::string_view bytes);
    template <class View, class Narrow, class ConvertLine>
    bool ConvertNarrowed(View text, Narrow narrow, ConvertLine convertLine);
    template <class View>
    bool ConvertLines(View lines);
    bool Flush();

    clsConvert& m_Converter;
    TextFilterOptions m_Options;
    Read m_Read;
    Write m_Write;
    TextFilterOutcome m_Outcome;
    std::vector<char16_t> m_Input; // bytes or units; what waits lies from byte m_First to m_Last
    std::size_t m_First = 0;
    std::size_t m_Last = 0;
    std::vector<char> m_Narrow; // the code page's bytes of a block that came as Unicode
    OutputBuffer m_Output;      // converted, not yet written
    std::size_t m_Lines = 0;    // in all blocks before
};
