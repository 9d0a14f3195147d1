// Tested by tests/unit/textfiles/textbatch_test.cpp.

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

std::int32_t CountLines(std::u16string_view text) {
    std::int32_t count = 1;
    for (std::size_t at = 0; (at = text.find(kLineEnd, at)) != text.npos; at += kLineEnd.size())
        if (count < std::numeric_limits<std::int32_t>::max()) ++count;
    return count;
}

// One line onto the end of converted.
void ConvertLine(std::u16string_view line, clsConvert& converter, const TextBatchSettings& settings,
                 JobHost& host, std::u16string& converted) {
    try {
        converted += converter.Convert(line);
    } catch (const RuntimeFailure& failure) {
        host.Legacy = line;
        if (!settings.LineFailed || !settings.LineFailed(failure)) throw;
        converted += line;
    }
}

// Every line of text, cut and joined at CR LF. A lone CR or LF stays inside its line.
std::u16string ConvertText(std::u16string_view text, clsConvert& converter, const TextBatchSettings& settings,
                           JobHost& host) {
    host.Value(0);
    host.Max(CountLines(text));
    host.DoEvents();
    std::u16string converted;
    converted.reserve(text.size() + text.size() / 8);
    for (std::size_t from = 0, index = 0;; ++index) {
        const std::size_t end = std::min(text.find(kLineEnd, from), text.size());
        host.Line = static_cast<std::int64_t>(index) + 1;
        ConvertLine(text.substr(from, end - from), converter, settings, host, converted);
        host.Value(static_cast<std::int32_t>(std::min<std::size_t>(index, INT32_MAX)));
        host.Tick();
        if (end == text.size()) break;
        converted += kLineEnd;
        from = end + kLineEnd.size();
    }
    host.Line = 0;
    host.Legacy.clear();
    return converted;
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
        text = ConvertText(text, converter, settings, host);
        ShowStatus(host, u"Saving...");
        std::u16string output;
        if (const files::Result written = WriteOutput(host.Item, text, settings, output)) {
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
