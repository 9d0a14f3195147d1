// Opening a document with the shell. The document is a copy of this very program: started
// with the variable below it writes down its working folder and ends.

#include "textfiles/modFileFolder.h"

#include "base/Files.h"
#include "base/win.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace {

constexpr wchar_t kToldIn[] = L"ZC_TEST_OPENED";

[[maybe_unused]] const bool g_WasOpened = [] {
    char16_t name[1024], folder[1024];
    if (GetEnvironmentVariableW(kToldIn, Wide(name), 1024) == 0) return false;
    GetCurrentDirectoryW(1024, Wide(folder));
    const std::u16string told = std::u16string(folder) + u"\n" + Units(GetCommandLineW());
    const std::string_view bytes(reinterpret_cast<const char*>(told.data()), told.size() * 2);
    files::WriteNew(name, bytes);
    ExitProcess(0);
}();

class OpenDocument : public testing::Test {
protected:
    OpenDocument() {
        wchar_t program[1024];
        GetModuleFileNameW(nullptr, program, 1024);
        EXPECT_TRUE(files::Copy(Units(program), Document()));
    }
    std::u16string Document() const { return m_Folder / u"লেখা ১.exe"; }

    // The working folder and the command line of the document; empty where it was not opened.
    std::pair<std::u16string, std::u16string> Opened(std::u16string_view folder) {
        const std::u16string told = m_Folder / u"told";
        SetEnvironmentVariableW(kToldIn, Wide(told));
        modFileFolder::OpenDocument(nullptr, Document(), folder);
        SetEnvironmentVariableW(kToldIn, nullptr);
        std::string bytes;
        for (int i = 0; i < 2000 && !files::ReadAll(told, bytes); ++i) Sleep(10);
        files::Delete(told, false);
        const std::u16string all(reinterpret_cast<const char16_t*>(bytes.data()), bytes.size() / 2);
        return {all.substr(0, all.find(u'\n')), all.substr(all.find(u'\n') + 1)};
    }

    TempFolder m_Folder;
};

TEST_F(OpenDocument, InTheWorkingFolderThatIsTold) {
    std::filesystem::create_directory(m_Folder.Path(u"কাজ"));
    const auto [folder, command] = Opened(m_Folder / u"কাজ");
    EXPECT_TRUE(files::SameFile(m_Folder / u"কাজ", folder)) << files::ToPathBytes(folder);
    EXPECT_NE(command.npos, command.find(u"লেখা ১.exe"));
    EXPECT_TRUE(command.ends_with(u".exe\"") || command.ends_with(u".exe\" ")) << "without parameters";
}

TEST_F(OpenDocument, InTheProgramsFolderWhereNoneIsTold) {
    const auto [folder, command] = Opened(u"");
    EXPECT_TRUE(files::SameFile(files::ProgramFolder(), folder)) << files::ToPathBytes(folder);
}

} // namespace
