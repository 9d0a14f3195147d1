// Tested by tests/cli/test_text.py.
#include "console/cmdText.h"

#include "base/Text.h"
#include "console/Arguments.h"
#include "console/Encodings.h"
#include "console/Help.h"
#include "console/Terminal.h"
#include "console/cmdTextFilter.h"

namespace {

using terminal::PrintError;

bool ReadInputKind(std::u16string_view word, TextEncoding& kind) {
    if (text::EqualNoCase(word, u"cp1252"))
        kind = TextEncoding::Cp1252;
    else if (text::EqualNoCase(word, u"utf-8"))
        kind = TextEncoding::Utf8;
    else if (text::EqualNoCase(word, u"utf-16"))
        kind = TextEncoding::Utf16;
    else
        return false;
    return true;
}

bool ReadOutputKind(std::u16string_view word, OutputEncoding& kind) {
    if (text::EqualNoCase(word, u"utf-8"))
        kind = OutputEncoding::Utf8;
    else if (text::EqualNoCase(word, u"utf-16"))
        kind = OutputEncoding::Utf16;
    else
        return false;
    return true;
}

// "1 line was", "2 lines were".
std::u16string Counted(std::size_t count, std::u16string_view thing) {
    std::u16string made = text::Decimal(static_cast<long long>(count)) + u" ";
    made += thing;
    return made + (count == 1 ? u" was" : u"s were");
}

int Report(const TextFilterOutcome& outcome) {
    using End = TextFilterOutcome::End;
    if (outcome.invalid > 0) PrintError(Counted(outcome.invalid, u"invalid part") + u" replaced by U+FFFD");
    if (outcome.failedLines > 0)
        PrintError(Counted(outcome.failedLines, u"line") +
                   u" left unconverted, because the conversion failed");
    switch (outcome.end) {
    case End::Done:
        return kExitDone;
    case End::WriteFailed:
        return kExitFatal; // the program's end tells why
    case End::ReadFailed:
        PrintError(u"standard input: " + outcome.text);
        break;
    case End::BigEndian:
        PrintError(u"standard input: the text is UTF-16 in big-endian order; only little-endian can be read");
        break;
    case End::LineFailed:
        PrintError(u"line " + text::Decimal(static_cast<long long>(outcome.line)) + u": " + outcome.text +
                   u": " + terminal::Visible(outcome.legacy, 1000));
        break;
    }
    return kExitFatal;
}

} // namespace

int RunText(const std::vector<std::u16string>& given) {
    Arguments arguments;
    TextFilterOptions options;
    if (!arguments.Read(given, {{u"from", true},
                                {u"plugin", true},
                                {u"input", true},
                                {u"output", true},
                                {u"keep-going", false}}))
        return terminal::UsageError(u"text", arguments.Problem());
    if (arguments.WantsHelp()) {
        terminal::Print(help::Text(u"text"));
        return kExitDone;
    }
    for (const std::u16string& operand : arguments.Operands())
        if (operand != u"-" || arguments.Operands().size() > 1)
            return terminal::UsageError(u"text",
                                        u"unexpected '" + operand +
                                            u"': text reads standard input; for files use 'convert'");
    const std::u16string input = arguments.Value(u"input", u"cp1252");
    if (!ReadInputKind(input, options.input))
        return terminal::UsageError(u"text", u"unknown input '" + input + u"': cp1252, utf-8 or utf-16");
    const std::u16string output = arguments.Value(u"output", u"utf-8");
    if (!ReadOutputKind(output, options.output))
        return terminal::UsageError(u"text", u"unknown output '" + output + u"': utf-8 or utf-16");
    options.keepGoing = arguments.Has(u"keep-going");

    clsConvert converter;
    encodings::Choice choice;
    const int loaded = encodings::LoadChosen(arguments, u"text", converter, choice);
    if (loaded != kExitDone) return loaded;
    return Report(TextFilter(converter, options, terminal::ReadInput, terminal::WriteOutput).Run());
}
