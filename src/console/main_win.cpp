#include "console/Zorvak.h"

#include "console/Terminal.h"

// The shell of Windows hands patterns such as *.txt over as they were typed; this makes the
// C runtime expand them.
extern "C" int _dowildcard; // NOLINT: the runtime's own name
int _dowildcard = -1;

int wmain(int argc, wchar_t** argv);
int wmain(int argc, wchar_t** argv) {
    terminal::Start();
    std::vector<std::u16string> arguments;
    for (int i = 1; i < argc; ++i) arguments.emplace_back(reinterpret_cast<const char16_t*>(argv[i]));
    return RunZorvak(arguments);
}
