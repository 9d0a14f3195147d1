#include "console/Terminal.h"

#include "base/Files.h"
#include "base/Text.h"
#include "base/win.h"

#include <algorithm>

namespace terminal {
namespace {

HANDLE Handle(Stream stream) {
    return GetStdHandle(stream == Stream::Output ? STD_OUTPUT_HANDLE : STD_ERROR_HANDLE);
}

bool IsConsole(HANDLE handle) {
    DWORD mode;
    return GetConsoleMode(handle, &mode) != 0;
}

std::u16string SystemText(DWORD error) {
    std::u16string words = files::SystemErrorText(static_cast<int>(error));
    while (!words.empty() && words.back() <= u' ') words.pop_back();
    return words;
}

Wrote Failed(DWORD error) {
    const bool closed =
        error == ERROR_BROKEN_PIPE || error == ERROR_NO_DATA || error == ERROR_PIPE_NOT_CONNECTED;
    return {false, closed, SystemText(error)};
}

Wrote WriteToConsole(HANDLE handle, std::u16string_view units) {
    // Older consoles refuse a block of more than about 32,000 characters.
    constexpr std::size_t kBlock = 8000;
    while (!units.empty()) {
        const auto length = static_cast<DWORD>(std::min(units.size(), kBlock));
        DWORD wrote = 0;
        if (!WriteConsoleW(handle, units.data(), length, &wrote, nullptr)) return Failed(GetLastError());
        units.remove_prefix(wrote);
    }
    return {};
}

// Length of bytes without a UTF-8 sequence that is cut at the end.
std::size_t WholeLength(std::string_view bytes) {
    for (std::size_t back = 1; back <= 3 && back <= bytes.size(); ++back) {
        const auto byte = static_cast<unsigned char>(bytes[bytes.size() - back]);
        if (byte < 0x80) break;
        if (byte < 0xC0) continue;
        const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : 2;
        return length > back ? bytes.size() - back : bytes.size();
    }
    return bytes.size();
}

} // namespace

void Start() {} // all reading and writing goes by handle, which is binary

bool IsTerminal(Stream stream) {
    static const bool found[2] = {IsConsole(Handle(Stream::Output)), IsConsole(Handle(Stream::Error))};
    return found[stream == Stream::Output ? 0 : 1];
}

int Columns() {
    CONSOLE_SCREEN_BUFFER_INFO info;
    if (!GetConsoleScreenBufferInfo(Handle(Stream::Error), &info)) return 80;
    return std::max(info.srWindow.Right - info.srWindow.Left + 1, 1);
}

bool ReadInput(char* buffer, std::size_t size, std::size_t& got, std::u16string& failure) {
    DWORD read = 0;
    const BOOL done = ReadFile(GetStdHandle(STD_INPUT_HANDLE), buffer,
                               static_cast<DWORD>(std::min<std::size_t>(size, 1u << 30)), &read, nullptr);
    const DWORD error = done ? 0 : GetLastError();
    got = read;
    // The writer's end of a pipe was closed: that is the end of the input.
    if (done || error == ERROR_BROKEN_PIPE || error == ERROR_HANDLE_EOF) return true;
    failure = SystemText(error);
    return false;
}

Wrote WriteBytes(Stream stream, std::string_view bytes) {
    const HANDLE handle = Handle(stream);
    if (IsTerminal(stream)) {
        // What a block of bytes cuts off is shown with the next one.
        static std::string cut[2];
        std::string& rest = cut[stream == Stream::Output ? 0 : 1];
        const std::string all = rest + std::string(bytes);
        const std::size_t whole = WholeLength(all);
        rest = all.substr(whole);
        return WriteToConsole(handle, text::FromUtf8(all.substr(0, whole)));
    }
    while (!bytes.empty()) {
        DWORD wrote = 0;
        const auto length = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1u << 30));
        if (!WriteFile(handle, bytes.data(), length, &wrote, nullptr)) return Failed(GetLastError());
        bytes.remove_prefix(wrote);
    }
    return {};
}

Wrote WriteText(Stream stream, std::u16string_view units) {
    return IsTerminal(stream) ? WriteToConsole(Handle(stream), units)
                              : WriteBytes(stream, text::ToUtf8(units));
}

} // namespace terminal
