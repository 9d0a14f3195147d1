// Tested by tests/unit/console/help_test.cpp.

#include "console/Help.h"

namespace help {
namespace {

constexpr std::u16string_view kProgram = uR"(Usage: zorvak COMMAND [ARGUMENT...]

Converts Bangla text in legacy font encodings to Unicode.

Commands:
  convert   convert files and folders; the sources are never touched
  text      convert standard input to standard output
  list      list the encodings
  plugin    build, show and check conversion plug-ins
  help      show this text, or the help of a command

Options:
  --help, -h   show this text; behind a command, its help
  --version    show the version

Examples:
  zorvak convert Report.txt
  zorvak convert --from Alpona --folder Done Letters
  zorvak text --from Bijoy <old.txt >new.txt
  zorvak help convert

Exit codes: 0 all done, 1 something failed, 2 wrong usage, 3 a plug-in, an
input or an output that the whole command needs is missing or damaged.
)";

constexpr std::u16string_view kConvert = uR"(Usage: zorvak convert FILE|FOLDER... [OPTION...]

Converts files to Unicode. Each result is a new file beside its source, named
like it with "- Unicode" behind the name: Report.txt gives Report- Unicode.txt,
or Report- Unicode - 1.txt where that stands already. Text files (.txt) are
converted; they are written as UTF-16 with a byte order mark.

A folder stands for the files directly in it, in name order. Results of earlier
runs in it are skipped.

Options:
  --from NAME           encoding of the sources, by default Bijoy
  --plugin FILE.dll     the same, by the file of its conversion plug-in
  --folder DIR          put the results into this folder, which must exist
  --suffix TEXT         text behind the names of the results, by default
                        "- Unicode"
  --encoding KIND       how the sources are read:
                          auto     UTF-16 with a byte order mark, else ANSI
                                   (default)
                          ansi     Windows-1252
                          utf-16   UTF-16 little-endian
  --keep-going          leave a line that cannot be converted as it was, count
                        it, and convert the rest of the file
  --help, -h            show this text

Each line of output tells a source and its result. A file that fails is named
on standard error with the reason, and the next one is converted.

Exit codes: 0 all done, 1 a file is missing or failed, 2 wrong usage, 3 the
plug-in is missing or damaged.

Examples:
  zorvak convert Report.txt Letter.txt
  zorvak convert --from Alpona --folder Done Letters
  zorvak convert --suffix=-unicode --keep-going *.txt
)";

constexpr std::u16string_view kText = uR"(Usage: zorvak text [OPTION...] <INPUT >OUTPUT

Converts standard input to standard output, line by line, in texts of any size.
Line ends stay as they are.

Options:
  --from NAME           encoding of the text, by default Bijoy
  --plugin FILE.dll     the same, by the file of its conversion plug-in
  --input KIND          cp1252 (default), utf-8 or utf-16
  --output KIND         utf-8 (default) or utf-16
  --keep-going          leave a line that cannot be converted as it was, count
                        it, and convert the rest
  --help, -h            show this text

UTF-16 is little-endian. A byte order mark at the start of the input is taken
as such; none is written. Invalid input becomes U+FFFD and is counted on
standard error.

Exit codes: 0 all done, 2 wrong usage, 3 a line could not be converted, reading
or writing failed, or the plug-in is missing or damaged. All lines in front of
a failed one have been written.

Examples:
  zorvak text <old.txt >new.txt
  zorvak text --from Proshika --input utf-16 --output utf-16 <old.txt >new.txt
)";

constexpr std::u16string_view kList = uR"(Usage: zorvak list

Lists the encodings that can be converted from: the conversion plug-ins in the
folder "conversion Plugins" beside the program, each with its font table and
its default font. Where the output is no terminal, there is no heading and TABs
stand between the three.

Options:
  --help, -h   show this text

Exit codes: 0 all done, 1 no encoding is installed, 2 wrong usage.
)";

constexpr std::u16string_view kPlugin = uR"(Usage: zorvak plugin build RULES.txt OUT.dll [--plain]
       zorvak plugin show FILE.dll [--plain]
       zorvak plugin check FILE

Works on conversion plug-ins, the files that teach the converter an encoding.

  build    make a plug-in from a text of rules
  show     print the rules of a plug-in as such a text
  check    look for mistakes in a plug-in (.dll) or a text of rules

A hyphen instead of a file stands for standard input or standard output.

Options:
  --plain      build reads, show prints the bare table: the reph marker, the
               ya-phala marker, then a line of Find TAB Replace for each rule
  --help, -h   show this text

Exit codes: 0 all done (check: with or without warnings), 1 build or check
found that the table could not be loaded and converted with, 2 wrong usage,
3 a file cannot be read or written, show was given no plug-in or a damaged one,
or the plain form cannot hold the table.

Examples:
  zorvak plugin check MyEncoding.txt
  zorvak plugin build MyEncoding.txt MyEncoding.dll
  zorvak plugin show MyEncoding.dll | less
)";

constexpr std::u16string_view kHelp = uR"(Usage: zorvak help [COMMAND]

Shows the help of a command, or of the whole program.
)";

} // namespace

std::u16string_view Text(std::u16string_view command) {
    if (command.empty()) return kProgram;
    if (command == u"convert") return kConvert;
    if (command == u"text") return kText;
    if (command == u"list") return kList;
    if (command == u"plugin") return kPlugin;
    if (command == u"help") return kHelp;
    return {};
}

std::u16string_view ShortUsage() {
    return u"Usage: zorvak COMMAND [ARGUMENT...]\n"
           u"Commands: convert, text, list, plugin, help\n"
           u"Try 'zorvak --help'.\n";
}

} // namespace help
