// The encodings that ship, read from their sources, and the texts that they are tested with.
#pragma once

#include "base/Files.h"
#include "base/Text.h"
#include "engine/RuleSource.h"
#include "engine/clsConvert.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace encodings {

inline const std::vector<std::string> kNames = {"Bijoy", "Proshika", "Alpona"};
// Those of which there are pairs that are not part of the tree.
inline const std::vector<std::string> kWithOpenPairs = {"Bijoy", "Proshika", "Alpona"};

// A name as the extra files are called by it.
inline std::string LowerName(const std::string& name) {
    return text::ToUtf8(text::LowerAscii(text::FromUtf8(name)));
}

// The bytes of a file of the source tree; a missing one fails the test.
inline std::string SourceFile(const std::string& path) {
    std::string bytes;
    const files::Result result = files::ReadAll(text::FromUtf8(ZC_SOURCE_DIR "/" + path), bytes);
    EXPECT_TRUE(result) << path << ": " << text::ToUtf8(result.text);
    return bytes;
}

// The folder of the texts that are not part of the tree; empty where there is none.
inline std::string ExtraFolder() {
    const char* folder = std::getenv("ZORVAK_EXTRA_FILES");
    return folder ? std::string(folder) + "/encodings/" : std::string();
}

inline std::string ExtraFile(const std::string& name) {
    std::string bytes;
    const files::Result result = files::ReadAll(text::FromUtf8(ExtraFolder() + name), bytes);
    EXPECT_TRUE(result) << name << ": " << text::ToUtf8(result.text);
    return bytes;
}

inline rulesource::Table TableOf(const std::string& name) {
    std::vector<rulesource::Message> messages;
    rulesource::Table table = rulesource::Parse(SourceFile("data/encodings/" + name + ".txt"), messages);
    for (const rulesource::Message& message : messages)
        ADD_FAILURE() << name << ".txt:" << message.line << ": " << text::ToUtf8(message.text);
    return table;
}

// A converter that has the table of an encoding loaded.
inline std::unique_ptr<clsConvert> Load(const std::string& name) {
    std::vector<rulesource::Message> messages;
    const std::u16string payload = rulesource::Payload(TableOf(name), messages);
    EXPECT_TRUE(messages.empty()) << name;
    auto converter = std::make_unique<clsConvert>();
    converter->LoadText(payload);
    return converter;
}

inline std::vector<std::string> Lines(const std::string& bytes) {
    std::vector<std::string> lines;
    for (std::size_t from = 0; from < bytes.size();) {
        const std::size_t end = std::min(bytes.find('\n', from), bytes.size());
        lines.push_back(bytes.substr(from, end - from));
        from = end + 1;
    }
    return lines;
}

inline std::vector<std::string> Fields(const std::string& line) {
    std::vector<std::string> fields;
    std::size_t from = 0;
    for (std::size_t tab; (tab = line.find('\t', from)) != line.npos; from = tab + 1)
        fields.push_back(line.substr(from, tab - from));
    fields.push_back(line.substr(from));
    return fields;
}

} // namespace encodings
