// Lets all pending window events run. May re-enter the program: take what you need before
// it, and look again behind it.
#pragma once

// Empties the message queue. Where there are no windows it does nothing.
// Throws a failure that was kept while an event ran, so that the running flow ends too.
void DoEvents();

// What the form kit puts in, so that keys reach access keys and default buttons here too.
struct DoEventsHooks {
    // Takes the system's message record; true where it has dealt with the message.
    bool (*Filter)(void* message) = nullptr;
    // Called after each message; may throw.
    void (*AfterEach)() = nullptr;
};
void SetDoEventsHooks(const DoEventsHooks& hooks);
