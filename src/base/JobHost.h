// What a running job needs of whoever started it: a form, or the console program.
#pragma once

#include "base/RuntimeFailure.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

enum class MessageIcon { Exclamation, Stop, Information };

// A plain struct of functions. Whoever starts a job fills in all that the job calls; the
// defaults do nothing.
struct JobHost {
    // Lock and unlock all that could start a second job or close the window.
    std::function<void()> ProgressStart = [] {};
    std::function<void()> ProgressFinish = [] {};
    // Sets the status line.
    std::function<void(std::u16string_view)> Status = [](std::u16string_view) {};
    // Set the bar. The form scales them down beyond the bar's own 16 bits.
    std::function<void(std::int32_t)> Max = [](std::int32_t) {};
    std::function<void(std::int32_t)> Value = [](std::int32_t) {};
    // Lets all pending events run: always empties the queue. May re-enter the program.
    std::function<void()> DoEvents = [] {};
    // Called per line, record or paragraph inside long loops: DoEvents when 10 ms have gone
    // by since the last time, else nothing.
    std::function<void()> Tick = [] {};
    // Shows a message box. An empty title stands for the application's.
    std::function<void(MessageIcon, std::u16string_view title, std::u16string_view text)> Message =
        [](MessageIcon, std::u16string_view, std::u16string_view) {};
    // Asks for the database password; false where the user cancelled.
    std::function<bool(std::u16string& password)> AskPassword = [](std::u16string&) { return false; };
    // The text that the clipboard task works on.
    std::function<std::u16string()> ReadPaste = [] { return std::u16string(); };
    // The completion sound, by the settings; seconds since the job began.
    std::function<void(double seconds)> PlayDone = [](double) {};
    // Told once per item: what came of it. output is empty where none was written; failure
    // is null where the item went through.
    std::function<void(std::u16string_view source, std::u16string_view output, const RuntimeFailure* failure)>
        Done = [](std::u16string_view, std::u16string_view, const RuntimeFailure*) {};

    // What is in hand, so that a failure can say where it happened.
    std::u16string Item;
    std::int64_t Line = 0; // line, record or paragraph, 1-based; 0 outside any
    std::u16string Legacy; // its text before conversion
};
