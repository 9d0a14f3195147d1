#include "console/Terminal.h"

#include "base/Files.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace terminal {
namespace {

int Descriptor(Stream stream) {
    return stream == Stream::Output ? STDOUT_FILENO : STDERR_FILENO;
}

} // namespace

void Start() {
    std::signal(SIGPIPE, SIG_IGN);
    // A stream that was handed over closed would give its number to the first file opened,
    // and messages would go into that file. In its place stands one that refuses.
    for (int descriptor = 0; descriptor < 3; ++descriptor)
        if (fcntl(descriptor, F_GETFD) == -1 && errno == EBADF)
            (void)!open("/dev/null", descriptor == 0 ? O_WRONLY : O_RDONLY);
}

bool IsTerminal(Stream stream) {
    static const bool found[2] = {isatty(STDOUT_FILENO) == 1, isatty(STDERR_FILENO) == 1};
    return found[stream == Stream::Output ? 0 : 1];
}

int Columns() {
    winsize size{};
    if (ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
    return 80;
}

bool ReadInput(char* buffer, std::size_t size, std::size_t& got, std::u16string& failure) {
    ssize_t read;
    do {
        read = ::read(STDIN_FILENO, buffer, size);
    } while (read == -1 && errno == EINTR);
    got = read > 0 ? static_cast<std::size_t>(read) : 0;
    if (read == -1) failure = files::SystemErrorText(errno);
    return read != -1;
}

Wrote WriteBytes(Stream stream, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t wrote = write(Descriptor(stream), bytes.data(), bytes.size());
        if (wrote >= 0) {
            bytes.remove_prefix(static_cast<std::size_t>(wrote));
        } else if (errno != EINTR) {
            return {false, errno == EPIPE, files::SystemErrorText(errno)};
        }
    }
    return {};
}

Wrote WriteText(Stream stream, std::u16string_view units) {
    return WriteBytes(stream, files::ToPathBytes(units));
}

} // namespace terminal
