// A folder of its own for each test, gone with it.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

class TempFolder {
public:
    TempFolder() {
        std::random_device device;
        do {
            m_Path = std::filesystem::temp_directory_path() / ("zc-test-" + std::to_string(device()));
        } while (!std::filesystem::create_directory(m_Path));
    }
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_Path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::filesystem::path Path(std::u16string_view name) const {
        return m_Path / std::filesystem::path(std::u16string(name));
    }
    std::u16string operator/(std::u16string_view name) const { return Path(name).u16string(); }

    // Writes a file and returns its path.
    std::u16string Put(std::u16string_view name, std::string_view bytes) const {
        std::ofstream file(Path(name), std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return *this / name;
    }
    std::string Get(std::u16string_view name) const {
        std::ifstream file(Path(name), std::ios::binary);
        EXPECT_TRUE(file.is_open());
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

private:
    std::filesystem::path m_Path;
};
