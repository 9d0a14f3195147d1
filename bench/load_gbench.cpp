// LoadTable with the first Convert behind it, since an index may be made only then: the
// plug-ins named by ZORVAK_BENCH_PLUGINS (paths, one a line) and the longest table that
// Convert takes.
#include "base/Text.h"
#include "engine/clsConvert.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace {

void LoadPlugin(benchmark::State& state, const std::string& path) {
    const std::u16string units = text::FromUtf8(path);
    for (auto _ : state) {
        clsConvert converter;
        converter.LoadTable(units);
        benchmark::DoNotOptimize(converter.Convert(u"Avwg evsjvq"));
    }
}

// Find texts of three units, all different.
std::u16string LongestTable() {
    std::u16string payload = u"\uE001\r\n\uE002";
    for (int rule = 0; rule < 32767; ++rule) {
        payload += u"\r\n";
        for (int digit = rule, i = 0; i < 3; ++i, digit /= 32)
            payload += static_cast<char16_t>(u'@' + digit % 32);
        payload += u"\t";
        payload += static_cast<char16_t>(0x0995 + rule % 20);
    }
    return payload;
}

void LoadLongest(benchmark::State& state) {
    const std::u16string payload = LongestTable();
    for (auto _ : state) {
        clsConvert converter;
        converter.LoadText(payload);
        benchmark::DoNotOptimize(converter.Convert(u"Avwg evsjvq"));
    }
}

} // namespace

int main(int argc, char** argv) {
    const char* named = std::getenv("ZORVAK_BENCH_PLUGINS");
    std::string rest = named ? named : "";
    while (!rest.empty()) {
        const std::size_t end = rest.find('\n');
        const std::string path = rest.substr(0, end);
        rest.erase(0, end == rest.npos ? end : end + 1);
        std::string name = path.substr(path.rfind('/') + 1);
        name.erase(name.rfind('.'));
        benchmark::RegisterBenchmark(name.c_str(), LoadPlugin, path);
    }
    benchmark::RegisterBenchmark("32767 rules", LoadLongest);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
