#include "console/Zorvak.h"

#include "base/Files.h"
#include "console/Terminal.h"

int main(int argc, char** argv) {
    terminal::Start();
    std::vector<std::u16string> arguments;
    for (int i = 1; i < argc; ++i) arguments.push_back(files::FromPathBytes(argv[i]));
    return RunZorvak(arguments);
}
