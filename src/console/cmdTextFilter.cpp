// Blocks are cut behind their last LF, so that no character, pair or CR LF is ever cut in
// two; what stands behind it waits for the next block. The engine is fastest with the bytes
// of the code page, so Unicode is narrowed to them as far as it goes.
//
// Tested by tests/unit/console/text_filter_test.cpp.
#include "console/cmdTextFilter.h"

#include "base/Text.h"
#include "console/cmdTextCodecs.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

// Small enough that a block and what is made of it stay in the second-level cache.
constexpr std::size_t kBlock = 128 * 1024;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kBigEndianMark = "\xFE\xFF";

} // namespace

TextFilter::TextFilter(clsConvert& converter, const TextFilterOptions& options, Read read, Write write)
    : m_Converter(converter), m_Options(options), m_Read(std::move(read)), m_Write(std::move(write)),
      m_Input(kBlock) {}

TextFilterOutcome TextFilter::Run() {
    bool markIsDone = m_Options.input == TextEncoding::Cp1252;
    std::size_t searched = 0; // bytes that wait and hold no line end
    for (bool end = false; !end;) {
        const std::size_t before = Waiting().size();
        if (!Fill()) return m_Outcome;
        end = Waiting().size() == before;
        if (!markIsDone) {
            if (!end && MarkIsUndecided()) continue;
            if (!SkipMark()) return m_Outcome;
            markIsDone = true;
        }
        if (end && IsWide()) CompleteLastUnit();
        const std::size_t cut = end ? m_Last : BehindLastLf(m_First + searched);
        searched = m_Last - cut;
        const std::string_view lines = Waiting().substr(0, cut - m_First);
        m_First = cut;
        const bool converted = Convert(lines);
        if (!Flush() || !converted) return m_Outcome;
    }
    return m_Outcome;
}

std::string_view TextFilter::Waiting() const {
    return {reinterpret_cast<const char*>(m_Input.data()) + m_First, m_Last - m_First};
}

// Reads a block behind what waits; at the end of the input nothing is added.
bool TextFilter::Fill() {
    if (m_First > 0) {
        std::memmove(Bytes(), Bytes() + m_First, m_Last - m_First);
        m_Last -= m_First;
        m_First = 0;
    }
    if (2 * m_Input.size() - m_Last < kBlock + 1) m_Input.resize(2 * m_Input.size());
    std::size_t got = 0;
    if (!m_Read(Bytes() + m_Last, kBlock, got, m_Outcome.text)) {
        m_Outcome.end = End::ReadFailed;
        return false;
    }
    m_Last += got;
    return true;
}

bool TextFilter::MarkIsUndecided() const {
    const std::string_view start = Waiting();
    if (IsWide()) return start.size() < kUtf16Mark.size();
    return start.size() < kUtf8Mark.size() && kUtf8Mark.starts_with(start);
}

// False for the mark of the other byte order.
bool TextFilter::SkipMark() {
    if (IsWide() && Waiting().starts_with(kBigEndianMark)) {
        m_Outcome.end = End::BigEndian;
        return false;
    }
    const std::string_view mark = IsWide() ? kUtf16Mark : kUtf8Mark;
    if (Waiting().starts_with(mark)) m_First += mark.size();
    return true;
}

// The place behind the last LF at or behind from, or m_First.
std::size_t TextFilter::BehindLastLf(std::size_t from) const {
    const std::string_view input = Waiting();
    const std::size_t skipped = from - m_First;
    if (!IsWide()) {
        const std::size_t found = input.substr(skipped).rfind('\n');
        return found == input.npos ? m_First : from + found + 1;
    }
    const std::size_t lowest = skipped / 2 * 2;
    for (std::size_t at = input.size() / 2 * 2; at > lowest; at -= 2)
        if (input[at - 2] == '\n' && input[at - 1] == '\0') return m_First + at;
    return m_First;
}

// An odd byte at the end of UTF-16 becomes U+FFFD.
void TextFilter::CompleteLastUnit() {
    if (Waiting().size() % 2 == 0) return;
    std::memcpy(Bytes() + m_Last - 1, "\xFD\xFF", 2);
    ++m_Last;
    ++m_Outcome.invalid;
}

// Converts whole lines; only the last of the input may lack its LF. False after a failure.
bool TextFilter::Convert(std::string_view bytes) {
    if (m_Options.input == TextEncoding::Cp1252) return ConvertLines(bytes);
    if (m_Narrow.size() < bytes.size()) m_Narrow.resize(bytes.size());
    if (m_Options.input == TextEncoding::Utf8)
        return ConvertNarrowed(bytes, codecs::Cp1252FromUtf8, [this](std::string_view line) {
            const std::u16string units = text::FromUtf8(line, &m_Outcome.invalid);
            return ConvertLines(std::u16string_view(units));
        });
    const std::u16string_view units(reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / 2);
    return ConvertNarrowed(units, codecs::Cp1252FromUnits, [this](std::u16string_view line) {
        if (m_Options.output == OutputEncoding::Utf8) m_Outcome.invalid += codecs::CountLoneSurrogates(line);
        return ConvertLines(line);
    });
}

// As bytes of the code page; only a line with a character that has none goes by itself.
template <class View, class Narrow, class ConvertLine>
bool TextFilter::ConvertNarrowed(View text, Narrow narrow, ConvertLine convertLine) {
    while (!text.empty()) {
        const codecs::Progress done = narrow(text, m_Narrow.data());
        const std::string_view bytes(m_Narrow.data(), done.written);
        if (done.read == text.size()) return ConvertLines(bytes);
        if (!ConvertLines(bytes.substr(0, bytes.rfind('\n') + 1))) return false;
        const std::size_t start = text.substr(0, done.read).rfind('\n') + 1;
        const std::size_t end = std::min(text.find('\n', done.read), text.size() - 1) + 1;
        if (!convertLine(text.substr(start, end - start))) return false;
        text.remove_prefix(end);
    }
    return true;
}

template <class View>
bool TextFilter::ConvertLines(View lines) {
    auto onFailure = [this](const LineFailure& failure) {
        if (m_Options.keepGoing) {
            ++m_Outcome.failedLines;
            return true;
        }
        m_Outcome.end = End::LineFailed;
        m_Outcome.line = m_Lines + failure.Line;
        m_Outcome.legacy = failure.Legacy;
        m_Outcome.text = failure.Failure.Description();
        return false;
    };
    m_Converter.ConvertLines(lines, LineEnd::Lf, m_Options.output, m_Output, onFailure);
    m_Lines += codecs::CountLf(lines);
    return m_Outcome.end == End::Done;
}

// Writes what is converted.
bool TextFilter::Flush() {
    const bool written = m_Output.Size() == 0 || m_Write(m_Output.View());
    m_Output.Clear();
    if (!written) m_Outcome.end = End::WriteFailed;
    return written;
}
