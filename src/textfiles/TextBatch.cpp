// Tested by tests/unit/textfiles/textbatch_test.cpp and its neighbours.

#include "textfiles/TextBatch.h"

#include "base/Counter16.h"
#include "base/Text.h"
#include "engine/PluginPath.h"
#include "engine/clsConvert.h"
#include "textfiles/modFileFolder.h"
#include "textfiles/modUnicodeRW.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <limits>

namespace {

constexpr std::u16string_view kLineEnd = u"\r\n";

void ShowStatus(JobHost& host, std::u16string_view text) {
    host.Status(text);
    host.DoEvents();
}

// In stretches that a small counter can hold: compilers make vector code of that.
std::size_t CountLineEnds(std::u16string_view text) {
    std::size_t count = 0;
    while (text.size() > 1) {
        const std::size_t length = std::min<std::size_t>(text.size() - 1, 8192);
        const char16_t* const units = text.data();
        std::uint16_t found = 0;
        for (std::size_t i = 0; i < length; ++i)
            found = static_cast<std::uint16_t>(found + ((units[i] == u'\r') & (units[i + 1] == u'\n')));
        count += found;
        text.remove_prefix(length);
    }
    return count;
}

std::int32_t ForBar(std::size_t lines) {
    return static_cast<std::int32_t>(std::min<std::size_t>(lines, std::numeric_limits<std::int32_t>::max()));
}

// The lines of a text, told one after the other.
class Lines {
public:
    explicit Lines(JobHost& host) : m_Host(host) {}
    std::size_t Told() const { return m_Told; }
    // The line in hand, 1-based.
    void Begin(std::size_t line) { m_Host.Line = static_cast<std::int64_t>(line); }
    // Lines up to and with this one are converted.
    void TellUpTo(std::size_t line) {
        while (m_Told < line) {
            Begin(m_Told + 1);
            m_Host.Value(ForBar(m_Told++));
            m_Host.Tick();
        }
    }

private:
    JobHost& m_Host;
    std::size_t m_Told = 0;
};

// Whole lines, the last of which may lack its line end, onto the end of converted. As bytes where
// all have one, since so the engine is fastest.
void ConvertLines(std::u16string_view lines, clsConvert& converter, OutputBuffer& converted,
                  const OnLineFailure& onFailure) {
    std::string bytes;
    if (text::ToCp1252(lines, bytes)) {
        converter.ConvertLines(std::string_view(bytes), LineEnd::CrLf, OutputEncoding::Utf16, converted,
                               onFailure);
    } else {
        converter.ConvertLines(lines, LineEnd::CrLf, OutputEncoding::Utf16, converted, onFailure);
    }
}

// Short enough that nobody waits for it.
constexpr std::size_t kPiece = 1 << 16;

// Every line of text, cut and joined at CR LF. A lone CR or LF stays inside its line. Lines are
// converted a piece at a time; what is told is the same as if each were converted by itself.
void ConvertText(std::u16string_view text, clsConvert& converter, const TextBatchSettings& settings,
                 JobHost& host, OutputBuffer& converted) {
    host.Value(0);
    host.Max(ForBar(CountLineEnds(text) + 1));
    host.DoEvents();
    converted.Room((text.size() + text.size() / 8) * sizeof(char16_t));
    Lines lines(host);
    for (bool isLast = false; !isLast;) {
        const std::size_t end = text.find(kLineEnd, kPiece);
        isLast = end == text.npos;
        const std::u16string_view piece = text.substr(0, isLast ? text.size() : end + kLineEnd.size());
        text.remove_prefix(piece.size());
        const std::size_t before = lines.Told();
        const auto lineFailed = [&](const LineFailure& failure) {
            lines.TellUpTo(before + failure.Line - 1);
            lines.Begin(before + failure.Line);
            host.Legacy = failure.Legacy;
            if (!settings.LineFailed || !settings.LineFailed(failure.Failure))
                throw RuntimeFailure(failure.Failure);
            return true;
        };
        lines.Begin(before + 1);
        try {
            ConvertLines(piece, converter, converted, lineFailed);
        } catch (const RuntimeFailure&) {
            // What concerns the table fails with the first line.
            if (host.Legacy.empty()) host.Legacy = piece.substr(0, piece.find(kLineEnd));
            throw;
        }
        lines.TellUpTo(before + CountLineEnds(piece) + (isLast ? 1 : 0));
    }
    host.Line = 0;
    host.Legacy.clear();
}

std::u16string_view Units(const OutputBuffer& converted) {
    return {reinterpret_cast<const char16_t*>(converted.Data()), converted.Size() / sizeof(char16_t)};
}

std::u16string OutputName(std::u16string_view source, const TextBatchSettings& settings) {
    const std::u16string_view folder = settings.sTextFileSaveFolder;
    return modFileFolder::MakeOutputName(source, settings.sTextFileNameSuffix,
                                         folder == u"SAME" ? std::u16string_view() : folder);
}

// Writes text to a new file and tells its path. A name that somebody took after it was
// found free is left to him, and the next one asked for.
files::Result WriteOutput(std::u16string_view source, std::u16string_view text,
                          const TextBatchSettings& settings, std::u16string& output) {
    for (output = OutputName(source, settings);;) {
        files::Result written = modUnicodeRW::WriteNewText(output, text);
        if (!written.nameTaken) return written;
        std::u16string next = OutputName(source, settings);
        // Taken by something that counts as no file, such as a folder.
        if (next == output) return written;
        output = std::move(next);
    }
}

void TellFailure(const files::Result& result, std::u16string_view operation, JobHost& host) {
    KeepLastFailure(result.text);
    const RuntimeFailure failure(result.error, operation, result.text);
    host.Done(host.Item, {}, &failure);
}

std::u16string FailureText(int count) {
    return text::Decimal(count) +
           u" file(s) could not be read/saved during conversion. They are left in the file list."
           u"\r\n\r\n\r\n\r\n"
           u"Possible Cause: May be the destination is full or write protected."
           u"\r\n\r\n"
           u"Solution: You may try to change destination folder option for saving converted file(s) from "
           u"Option Dialog Box and then try converting these file(s) again.";
}

} // namespace

void ConvertTextFiles(ListItems& list, clsConvert& converter, const TextBatchSettings& settings,
                      JobHost& host) {
    if (list.ListCount() < 1) {
        host.Message(MessageIcon::Exclamation, {}, u"Please add file(s) first you want to convert.");
        return;
    }
    const std::u16string plugin = settings.pluginPath.empty()
                                      ? PluginPath(settings.programFolder, settings.sConvertFrom)
                                      : settings.pluginPath;
    if (!modFileFolder::FileExists(plugin)) {
        host.Message(MessageIcon::Stop, {}, MissingPluginText());
        return;
    }
    const auto start = std::chrono::steady_clock::now();
    host.ProgressStart();
    if (!settings.tableIsLoaded) converter.LoadTable(plugin);
    const std::int16_t total = ToInt16(list.ListCount(), u"ConvertTextFiles");
    std::int16_t done = 1;
    for (int index = total - 1; index >= 0; --index) {
        ShowStatus(host, u"Reading...");
        host.Item = list.List(index);
        std::u16string text;
        const files::Result read =
            modUnicodeRW::ReadText(host.Item, modUnicodeRW::ReadFormat(settings.sReadEncoding), text);
        if (!read) {
            TellFailure(read, u"ReadTextFile", host);
            continue;
        }
        host.Status(text::Decimal(done) + u" of " + text::Decimal(total));
        OutputBuffer converted;
        ConvertText(text, converter, settings, host, converted);
        ShowStatus(host, u"Saving...");
        std::u16string output;
        if (const files::Result written = WriteOutput(host.Item, Units(converted), settings, output)) {
            list.Remove(index);
            host.Done(host.Item, output, nullptr);
        } else {
            TellFailure(written, u"WriteTextFile", host);
        }
        done = ToInt16(done + 1, u"ConvertTextFiles");
    }
    if (!settings.tableIsLoaded) converter.UnLoadTable();
    host.ProgressFinish();
    host.Item.clear();
    ShowStatus(host, {});
    host.PlayDone(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    if (list.ListCount() >= 1)
        host.Message(MessageIcon::Stop, u"Error converting file(s)...", FailureText(list.ListCount()));
}
