// Tested by tests/unit/console/terminal_test.cpp and tests/cli.

#include "console/Terminal.h"

#include "base/Text.h"
#include "console/Arguments.h"

#include <algorithm>
#include <chrono>

namespace terminal {
namespace {

bool g_OutputLost = false;
bool g_OutputClosed = false;
std::u16string g_OutputFailure;

std::u16string g_Drawn; // the progress line on the screen; empty where there is none
std::chrono::steady_clock::time_point g_DrawnAt;

void Keep(const Wrote& wrote) {
    if (wrote.done) return;
    g_OutputLost = true;
    g_OutputClosed = wrote.closed;
    g_OutputFailure = wrote.failure;
}

bool IsControl(char16_t unit) {
    return unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
}

// A file name or a legacy line must not be able to command the terminal.
std::u16string WithoutControls(std::u16string_view units) {
    std::u16string made(units);
    for (char16_t& unit : made)
        if (IsControl(unit) && unit != u'\n' && unit != u'\t') unit = u'?';
    return made;
}

Wrote PrintTo(Stream stream, std::u16string_view units) {
    ClearProgress();
    return IsTerminal(stream) ? WriteText(stream, WithoutControls(units)) : WriteText(stream, units);
}

std::u16string CodePoint(char16_t unit) {
    constexpr char16_t kDigits[] = u"0123456789ABCDEF";
    std::u16string made = u"<U+";
    for (int shift = 12; shift >= 0; shift -= 4) made += kDigits[(unit >> shift) & 15];
    return made + u">";
}

} // namespace

void Print(std::u16string_view units) {
    if (!g_OutputLost) Keep(PrintTo(Stream::Output, units));
}

void PrintError(std::u16string_view units) {
    PrintErrorText(u"zorvak: " + std::u16string(units) + u"\n");
}

void PrintErrorText(std::u16string_view units) {
    PrintTo(Stream::Error, units);
}

int UsageError(std::u16string_view command, std::u16string_view problem) {
    std::u16string all(problem);
    all += u"\nTry 'zorvak ";
    if (!command.empty()) all += std::u16string(command) + u" ";
    PrintError(all + u"--help'.");
    return kExitUsage;
}

std::u16string Visible(std::u16string_view units, std::size_t limit) {
    std::u16string made;
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (i >= limit) return made + u"...";
        const char16_t unit = units[i];
        const bool high = unit >= 0xD800 && unit <= 0xDBFF;
        if (high && i + 1 < units.size() && (units[i + 1] & 0xFC00) == 0xDC00) {
            made += units.substr(i++, 2);
        } else if (IsControl(unit) || (unit & 0xF800) == 0xD800) {
            made += CodePoint(unit);
        } else {
            made += unit;
        }
    }
    return made;
}

std::u16string FailureText(const RuntimeFailure& failure) {
    return failure.Description() + u" (failure " + text::Decimal(failure.Number()) + u")";
}

bool WriteOutput(std::string_view bytes) {
    if (!g_OutputLost) Keep(WriteBytes(Stream::Output, bytes));
    return !g_OutputLost;
}

bool OutputLost() {
    return g_OutputLost;
}
bool OutputClosed() {
    return g_OutputClosed;
}
const std::u16string& OutputFailure() {
    return g_OutputFailure;
}

std::u16string ProgressLine(std::u16string_view label, std::int64_t value, std::int64_t max, int columns) {
    constexpr int kBar = 30;
    const std::int64_t part = max > 0 ? std::clamp<std::int64_t>(value, 0, max) : 0;
    const int percent =
        max > 0 ? static_cast<int>(static_cast<double>(part) * 100 / static_cast<double>(max)) : 0;
    const int filled = percent * kBar / 100;
    const std::u16string number = text::Decimal(percent);
    std::u16string made = u"[";
    made.append(static_cast<std::size_t>(filled), u'#');
    made.append(static_cast<std::size_t>(kBar - filled), u'.');
    made += u"] ";
    made.append(3 - number.size(), u' ');
    made += number;
    made += u"% ";
    made += label;
    // The last column stays free: some terminals begin a new line there.
    const auto room = static_cast<std::size_t>(std::max(columns - 1, 1));
    // Wide characters take two columns; combining marks less than they are counted for.
    std::size_t used = 0, length = 0;
    while (length < made.size()) {
        used += made[length] >= 0x1100 ? 2 : 1;
        if (used > room) break;
        ++length;
    }
    if (length > 0 && length < made.size() && (made[length] & 0xFC00) == 0xDC00) --length;
    return made.substr(0, length);
}

void ShowProgress(std::u16string_view label, std::int64_t value, std::int64_t max) {
    if (!IsTerminal(Stream::Error)) return;
    const auto now = std::chrono::steady_clock::now();
    if (!g_Drawn.empty() && now - g_DrawnAt < std::chrono::milliseconds(100)) return;
    ClearProgress();
    g_Drawn = WithoutControls(ProgressLine(label, value, max, Columns()));
    g_DrawnAt = now;
    WriteText(Stream::Error, g_Drawn);
}

void ClearProgress() {
    if (g_Drawn.empty()) return;
    g_Drawn.clear();
    const std::u16string blanks(static_cast<std::size_t>(std::max(Columns() - 1, 1)), u' ');
    WriteText(Stream::Error, u"\r" + blanks + u"\r");
}

} // namespace terminal
