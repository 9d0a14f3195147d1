// Lines that a careless engine takes quadratic time for. Prints nanoseconds a unit:
// - Convert on a line of a million units, and how much slower a unit of it is than one of a
//   line of a quarter of that;
// - the same as a block of bytes to UTF-16, as `zorvak text` has it;
// - lines of 64 KB, sixteen in a block.
//
//   hostile_lines PLUGIN.dll        a Bijoy table
#include "base/Text.h"
#include "engine/clsConvert.h"
#include "reference/HostileText.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <string>
#include <string_view>

namespace {

double CpuSeconds() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// The best of three; raises what work raises.
template <class Work>
double NanosecondsPerUnit(std::size_t units, Work work) {
    double best = 1e9;
    for (int i = 0; i < 3; ++i) {
        const double start = CpuSeconds();
        work();
        best = std::min(best, CpuSeconds() - start);
    }
    return best * 1e9 / static_cast<double>(units);
}

double OfLine(clsConvert& converter, const std::u16string& line) {
    return NanosecondsPerUnit(line.size(), [&] { converter.Convert(line); });
}

double OfBlock(clsConvert& converter, const std::u16string& line, std::size_t lines) {
    std::string bytes, block;
    text::ToCp1252(line, bytes);
    for (; lines > 0; --lines) block += bytes + "\r\n";
    OutputBuffer output;
    return NanosecondsPerUnit(block.size(), [&] {
        output.Clear();
        converter.ConvertLines(block, LineEnd::Lf, OutputEncoding::Utf16, output,
                               [](const LineFailure& failure) -> bool { throw failure.Failure; });
    });
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    clsConvert converter;
    converter.LoadTable(text::FromUtf8(argv[1]));
    for (const reference::HostileText& hostile : reference::kHostileTexts) {
        try {
            const std::u16string shorter = hostile.Line(250000), longer = hostile.Line(1000000);
            const double shortLine = OfLine(converter, shorter), longLine = OfLine(converter, longer);
            const double shortBlock = OfBlock(converter, shorter, 1),
                         longBlock = OfBlock(converter, longer, 1);
            const double lines = OfBlock(converter, hostile.Line(65000), 16);
            std::printf("| %s | %.1f | %.2f | %.1f | %.2f | %.1f |\n", hostile.name, longLine,
                        longLine / shortLine, longBlock, longBlock / shortBlock, lines);
        } catch (const RuntimeFailure&) {
            std::printf("| %s | fails | | | | |\n", hostile.name);
        }
    }
    return 0;
}
