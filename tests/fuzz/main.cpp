// Replays files or folders of files through a fuzz target without a fuzz engine, so that
// the kept corpora run in every ordinary test run and on every compiler.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv) {
    std::size_t runs = 0;
    auto run = [&](const std::filesystem::path& path) {
        std::ifstream file(path, std::ios::binary);
        std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        ++runs;
    };
    for (int i = 1; i < argc; ++i) {
        std::filesystem::path path(argv[i]);
        if (std::filesystem::is_directory(path)) {
            for (const auto& entry : std::filesystem::recursive_directory_iterator(path))
                if (entry.is_regular_file()) run(entry.path());
        } else {
            run(path);
        }
    }
    LLVMFuzzerTestOneInput(nullptr, 0);
    std::printf("%zu inputs replayed\n", runs);
    return 0;
}
