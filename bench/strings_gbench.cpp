// Short strings, as documents are made of: every run of 1 to 12 units of a corpus through
// Convert, a call each. The corpus and the plug-in come in through the environment
// (ZORVAK_BENCH_CORPUS, ZORVAK_BENCH_PLUGIN).
#include "base/Text.h"
#include "engine/clsConvert.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace {

std::u16string ReadCorpus() {
    const char* path = std::getenv("ZORVAK_BENCH_CORPUS");
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path ? path : "", "rb"), &std::fclose);
    std::string bytes(1 << 20, '\0');
    bytes.resize(file ? std::fread(bytes.data(), 1, bytes.size(), file.get()) : 0);
    return text::ReplaceAll(text::FromCp1252(bytes), u"\r\n", u" ");
}

void ConvertStrings(benchmark::State& state) {
    const char* plugin = std::getenv("ZORVAK_BENCH_PLUGIN");
    const auto length = static_cast<std::size_t>(state.range(0));
    const std::u16string corpus = ReadCorpus();
    if (!plugin || corpus.empty()) {
        state.SkipWithError("ZORVAK_BENCH_CORPUS and ZORVAK_BENCH_PLUGIN are not set");
        return;
    }
    clsConvert converter;
    converter.LoadTable(text::FromUtf8(plugin));
    // A cut may leave a reph without its letter; such strings fail and are left out.
    std::vector<std::u16string> strings;
    for (std::size_t at = 0; at + length <= corpus.size() && strings.size() < 65536; at += length) {
        try {
            converter.Convert(corpus.substr(at, length));
            strings.push_back(corpus.substr(at, length));
        } catch (const RuntimeFailure&) {
        }
    }
    std::size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(converter.Convert(strings[next]));
        if (++next == strings.size()) next = 0;
    }
}
BENCHMARK(ConvertStrings)->DenseRange(1, 12);

} // namespace

BENCHMARK_MAIN();
