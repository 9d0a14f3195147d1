// The standard streams of the command. Text goes out with "\n" line ends: as Unicode to a
// console of Windows, as UTF-8 bytes to all else. Off Windows the lone surrogates that stand
// for the odd bytes of a path become those bytes again.
#pragma once

#include "base/RuntimeFailure.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace terminal {

enum class Stream { Output, Error };

// Writes text to standard output. The first failure is kept for OutputFailure() and all later
// writes do nothing.
void Print(std::u16string_view units);
// Writes "zorvak: ", text and a line end to standard error.
void PrintError(std::u16string_view units);
// Writes text to standard error as it is.
void PrintErrorText(std::u16string_view units);
// Like PrintError, with "Try 'zorvak COMMAND --help'." behind it; the exit code for wrong usage.
int UsageError(std::u16string_view command, std::u16string_view problem);
// Text of a file for a message: controls and lone surrogates as U+XXXX in angle brackets, cut
// with "..." behind limit units. Print and PrintError let no control through to a terminal.
std::u16string Visible(std::u16string_view units, std::size_t limit = 120);

// "Subscript out of range (failure 9)".
std::u16string FailureText(const RuntimeFailure& failure);

// Up to size bytes of standard input into buffer; got is 0 at the end. False where reading
// failed, with the system's text in failure.
bool ReadInput(char* buffer, std::size_t size, std::size_t& got, std::u16string& failure);
// All bytes to standard output. False once a write has failed.
bool WriteOutput(std::string_view bytes);

// True once a write to standard output has failed.
bool OutputLost();
// True where it failed because the reader of the pipe has gone: no reason for a message.
bool OutputClosed();
// The system's text of the failure; empty while all went well.
const std::u16string& OutputFailure();

bool IsTerminal(Stream stream);

// A bar on standard error, where that is a terminal; elsewhere all of this does nothing.
// Messages and printed text take it away; the next ShowProgress brings it back.
// Draws at most ten times a second.
void ShowProgress(std::u16string_view label, std::int64_t value, std::int64_t max);
void ClearProgress();
// One line of at most columns - 1 characters: label, bar and percentage.
std::u16string ProgressLine(std::u16string_view label, std::int64_t value, std::int64_t max, int columns);

// From here on the two sides (Terminal_win.cpp, Terminal_portable.cpp) answer.

// Call once, before all else: binary streams, a closed pipe as a failure instead of a signal.
void Start();
// Characters in a line of the terminal that standard error is; 80 where it does not tell.
int Columns();
// What became of a write.
struct Wrote {
    bool done = true;
    bool closed = false;    // nobody reads any more
    std::u16string failure; // the system's text
};
Wrote WriteBytes(Stream stream, std::string_view bytes);
Wrote WriteText(Stream stream, std::u16string_view units);

} // namespace terminal
