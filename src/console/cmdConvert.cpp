// Each file is a batch of its own, so that a run-time failure costs that file alone.
// Tested by tests/cli/test_convert*.py.

#include "console/cmdConvert.h"

#include "base/Files.h"
#include "base/JobHost.h"
#include "base/ListItems.h"
#include "base/Text.h"
#include "console/ConvertInputs.h"
#include "console/Encodings.h"
#include "console/Help.h"
#include "console/SourceCheck.h"
#include "console/Terminal.h"
#include "textfiles/TextBatch.h"

#include <algorithm>
#include <exception>

namespace {

using Task = inputs::Item::Task;

constexpr std::u16string_view kCommand = u"convert";

struct Options {
    std::u16string folder = u"SAME";
    std::u16string suffix = u"- Unicode";
    std::u16string readEncoding;
    bool keepGoing = false;
};

// The words of --encoding, and what the setting of the desktop program calls them.
struct EncodingWord {
    std::u16string_view word, setting;
};
constexpr EncodingWord kEncodingWords[] = {
    {u"auto", u"AUTO DETECT ENCODING"},
    {u"ansi", u"ASCII ENCODING"},
    {u"utf-16", u"UNICODE (UTF-16) ENCODING"},
};

// What cannot stand in a name, or would make another path of it.
bool CanStandInAName(std::u16string_view suffix) {
    constexpr std::u16string_view kRefusedByWindows = u"<>:\"|?*";
    return std::none_of(suffix.begin(), suffix.end(), [&](char16_t unit) {
        return files::IsSeparator(unit) || unit == 0 ||
               (files::Separator() == u'\\' &&
                (unit < 0x20 || kRefusedByWindows.find(unit) != std::u16string_view::npos));
    });
}

// False, with the problem said, where the options make no sense.
bool ReadOptions(const Arguments& arguments, Options& options, std::u16string& problem) {
    for (const std::u16string& operand : arguments.Operands()) {
        if (operand != u"-") continue;
        problem = u"convert works on files; for standard input and output use 'zorvak text'";
        return false;
    }
    if (arguments.Operands().empty()) {
        problem = u"nothing to convert";
        return false;
    }
    const std::u16string word = arguments.Value(u"encoding", u"auto");
    for (const EncodingWord& known : kEncodingWords)
        if (text::EqualNoCase(word, known.word)) options.readEncoding = known.setting;
    if (options.readEncoding.empty()) {
        problem = u"--encoding is auto, ansi or utf-16, not '" + word + u"'";
        return false;
    }
    options.suffix = arguments.Value(u"suffix", options.suffix);
    if (!CanStandInAName(options.suffix)) {
        problem = u"--suffix '" + options.suffix + u"' cannot stand in a file name";
        return false;
    }
    if (arguments.Has(u"folder")) {
        const std::u16string folder = arguments.Value(u"folder");
        options.folder = files::AbsolutePath(folder);
        if (folder.empty() || !files::FolderExists(options.folder)) {
            problem = u"--folder '" + folder + u"' is no folder";
            return false;
        }
        if (const files::Result tried = files::TryFolder(options.folder); !tried) {
            problem = u"--folder '" + folder + u"' takes no file: " + tried.text;
            return false;
        }
    }
    options.keepGoing = arguments.Has(u"keep-going");
    return true;
}

std::u16string Number(std::size_t value) {
    return text::Decimal(static_cast<long long>(value));
}

// What is wrong with the line in hand.
std::u16string LineProblem(const JobHost& host, const RuntimeFailure& failure) {
    return u"line " + text::Decimal(host.Line) + u": " + terminal::FailureText(failure) + u": " +
           terminal::Visible(host.Legacy);
}

// Why a file could not be read or written.
std::u16string FileProblem(const RuntimeFailure& failure) {
    const std::u16string_view act =
        failure.Source() == u"WriteTextFile" ? u"cannot be saved: " : u"cannot be read: ";
    return std::u16string(act) + failure.Description();
}

void Warn(std::u16string_view path, const Options& options) {
    if (options.readEncoding == kEncodingWords[2].setting) return;
    const std::u16string name(path);
    switch (sourcecheck::Look(path)) {
    case sourcecheck::Finding::None:
        break;
    case sourcecheck::Finding::Utf8:
        terminal::PrintError(u"warning: " + name +
                             u" is read as ANSI, but is valid UTF-8: it may be Unicode already; legacy text "
                             u"saved as UTF-8 is converted by 'zorvak text --input utf-8'");
        break;
    case sourcecheck::Finding::BigEndian:
        terminal::PrintError(u"warning: " + name +
                             u" is read as ANSI, but begins with the mark of big-endian UTF-16: save it as "
                             u"little-endian UTF-16 and use --encoding utf-16");
        break;
    }
}

// The files of one call, one after the other.
class Run {
public:
    Run(const Options& options, const encodings::Choice& plugin, clsConvert& converter, std::size_t files)
        : m_Converter(converter), m_Options(options), m_Files(files) {
        m_Settings.pluginPath = plugin.path;
        m_Settings.tableIsLoaded = true;
        m_Settings.sReadEncoding = options.readEncoding;
        m_Settings.sTextFileNameSuffix = options.suffix;
        m_Settings.sTextFileSaveFolder = options.folder;
    }

    void Take(const inputs::Item& item);
    std::size_t Failed() const { return m_Failed; }

private:
    void Fail(std::u16string_view path, std::u16string_view reason);
    void Convert(const std::u16string& path);
    void KeepLine(const JobHost& host, const RuntimeFailure& failure);

    clsConvert& m_Converter;
    const Options& m_Options;
    TextBatchSettings m_Settings;
    std::size_t m_Files;
    std::size_t m_Number = 0;    // of the file in hand
    std::size_t m_Failed = 0;    // files
    std::size_t m_KeptLines = 0; // of the file in hand
};

void Run::Fail(std::u16string_view path, std::u16string_view reason) {
    ++m_Failed;
    terminal::PrintError(std::u16string(path) + u": " + std::u16string(reason));
}

void Run::Take(const inputs::Item& item) {
    switch (item.task) {
    case Task::Skip:
        terminal::PrintError(u"skipped " + item.path + u": " + item.reason);
        return;
    case Task::Fail:
        ++m_Number;
        Fail(item.path, item.reason);
        return;
    case Task::Convert:
        ++m_Number;
        Convert(item.path);
        return;
    }
}

void Run::KeepLine(const JobHost& host, const RuntimeFailure& failure) {
    constexpr std::size_t kTold = 10;
    if (++m_KeptLines <= kTold)
        terminal::PrintError(host.Item + u": left as it was: " + LineProblem(host, failure));
}

void Run::Convert(const std::u16string& path) {
    Warn(path, m_Options);
    const std::u16string label =
        Number(m_Number) + u" of " + Number(m_Files) + u" " + path.substr(files::NameStart(path));
    std::int32_t max = 0, value = 0;
    bool told = false;
    JobHost host;
    host.Max = [&](std::int32_t lines) { max = lines; };
    host.Value = [&](std::int32_t line) { value = line; };
    if (terminal::IsTerminal(terminal::Stream::Error))
        host.Tick = [&] { terminal::ShowProgress(label, value, max); };
    host.Done = [&](std::u16string_view source, std::u16string_view output, const RuntimeFailure* failure) {
        told = true;
        if (failure)
            Fail(source, FileProblem(*failure));
        else
            terminal::Print(std::u16string(source) + u" -> " + std::u16string(output) + u"\n");
    };
    m_KeptLines = 0;
    if (m_Options.keepGoing)
        m_Settings.LineFailed = [&](const RuntimeFailure& failure) {
            KeepLine(host, failure);
            return true;
        };
    ListItems list;
    list.AddItem(path);
    try {
        ConvertTextFiles(list, m_Converter, m_Settings, host);
        if (!told) Fail(path, u"the plug-in " + m_Settings.pluginPath + u" is missing");
    } catch (const RuntimeFailure& failure) {
        Fail(path, host.Line > 0 ? LineProblem(host, failure) : terminal::FailureText(failure));
    } catch (const std::exception&) {
        Fail(path, u"out of memory");
    }
    if (m_KeptLines > 0)
        terminal::PrintError(path + u": " + Number(m_KeptLines) +
                             (m_KeptLines == 1 ? u" line was" : u" lines were") + u" left unconverted");
}

} // namespace

int RunConvert(const std::vector<std::u16string>& given) {
    Arguments arguments;
    Options options;
    std::u16string problem;
    if (!arguments.Read(given, {{u"from", true},
                                {u"plugin", true},
                                {u"folder", true},
                                {u"suffix", true},
                                {u"encoding", true},
                                {u"keep-going"}}))
        return terminal::UsageError(kCommand, arguments.Problem());
    if (arguments.WantsHelp()) {
        terminal::Print(help::Text(kCommand));
        return kExitDone;
    }
    if (!ReadOptions(arguments, options, problem)) return terminal::UsageError(kCommand, problem);
    const std::vector<inputs::Item> items = inputs::List(arguments.Operands(), options.suffix);
    const auto files = static_cast<std::size_t>(std::count_if(
        items.begin(), items.end(), [](const inputs::Item& item) { return item.task != Task::Skip; }));

    clsConvert converter;
    encodings::Choice plugin;
    if (files > 0)
        if (const int code = encodings::LoadChosen(arguments, kCommand, converter, plugin); code != kExitDone)
            return code;
    Run run(options, plugin, converter, files);
    for (const inputs::Item& item : items) run.Take(item);
    if (files == 0) return terminal::UsageError(kCommand, u"nothing to convert");
    if (run.Failed() > 0 && files > 1)
        terminal::PrintError(Number(run.Failed()) + u" of " + Number(files) + u" files failed");
    return run.Failed() > 0 ? kExitFailed : kExitDone;
}
