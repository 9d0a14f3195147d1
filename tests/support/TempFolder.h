// A folder of its own for each test, gone with it. It uses the standard library's files,
// so that it can judge ours.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>
#include <string_view>

class TempFolder {
public:
    TempFolder() {
        std::random_device device;
        do {
            m_Path = std::filesystem::temp_directory_path() / ("zc-test-" + std::to_string(device()));
        } while (!std::filesystem::create_directory(m_Path));
        // Tests that run without root's rights work in it too.
        std::filesystem::permissions(m_Path, std::filesystem::perms::all);
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_Path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& Path() const { return m_Path; }
    std::filesystem::path Path(std::u16string_view name) const {
        return m_Path / std::filesystem::path(std::u16string(name));
    }
    std::u16string Name() const { return m_Path.u16string(); }
    std::u16string operator/(std::u16string_view name) const { return Path(name).u16string(); }

    // Writes a file and returns its path.
    std::u16string Put(std::u16string_view name, std::string_view bytes) const {
        std::ofstream file(Path(name), std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return *this / name;
    }
    // The file's bytes; "(no file)" where it cannot be opened.
    std::string Get(std::u16string_view name) const {
        std::ifstream file(Path(name), std::ios::binary);
        if (!file.is_open()) return "(no file)";
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }
    // Names of all that is directly in it.
    std::set<std::u16string> Names() const {
        std::set<std::u16string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_Path))
            names.insert(entry.path().filename().u16string());
        return names;
    }

private:
    std::filesystem::path m_Path;
};
