// The batch and the text files in real trouble; each test proves first that the fault is
// there.

#include "base/Files.h"
#include "base/Text.h"
#include "engine/PluginFile.h"
#include "engine/clsConvert.h"
#include "support/Child_portable.h"
#include "support/TempFolder.h"
#include "textfiles/TextBatch.h"
#include "textfiles/modFileFolder.h"
#include "textfiles/modUnicodeRW.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <fstream>

namespace {

using std::filesystem::perms;

std::string YesNo(bool yes) {
    return yes ? "yes " : "no ";
}

class TextBatchFaults : public testing::Test {
protected:
    TextBatchFaults() {
        m_Plugin = m_Folder.Put(u"Test.dll", plugin::MakeFile(u"\uE000\r\n\uE001\r\nk\t\u0995"));
        std::filesystem::create_directory(m_Folder.Path(u"in"));
        std::filesystem::permissions(m_Folder.Path(u"in"), perms::all);
    }

    // Runs the batch over these files and tells how many stayed in the list, and why.
    std::string Convert(std::initializer_list<std::u16string_view> names, const std::u16string& folder) {
        ListItems list;
        for (const std::u16string_view name : names) list.AddItem(files::Join(m_Folder / u"in", name));
        TextBatchSettings settings;
        settings.pluginPath = m_Plugin;
        settings.sTextFileSaveFolder = folder;
        std::string told;
        JobHost host;
        host.Done = [&](std::u16string_view, std::u16string_view, const RuntimeFailure* failure) {
            if (failure)
                told += " " + files::ToPathBytes(failure->Source() + u": " + failure->Description()) + ".";
        };
        clsConvert converter;
        ConvertTextFiles(list, converter, settings, host);
        return std::to_string(list.ListCount()) + " left." + told;
    }

    TempFolder m_Folder;
    std::u16string m_Plugin;
};

TEST_F(TextBatchFaults, AnUnreadableSource) {
    m_Folder.Put(u"in/a.txt", "k");
    m_Folder.Put(u"in/b.txt", "k");
    std::filesystem::permissions(m_Folder.Path(u"in/a.txt"), perms::none);
    EXPECT_EQ("no 1 left. ReadTextFile: Permission denied.", InChildAsNobody([&] {
                  const std::string fault = YesNo(std::ifstream(m_Folder.Path(u"in/a.txt")).is_open());
                  return fault + Convert({u"a.txt", u"b.txt"}, u"SAME");
              }));
    EXPECT_EQ(4u, m_Folder.Get(u"in/b- Unicode.txt").size());
}

TEST_F(TextBatchFaults, AReadOnlyTargetFolder) {
    m_Folder.Put(u"in/a.txt", "k");
    std::filesystem::permissions(m_Folder.Path(u"in"), perms(0555));
    EXPECT_EQ("no 1 left. WriteTextFile: Permission denied.", InChildAsNobody([&] {
                  const std::string fault = YesNo(std::ofstream(m_Folder.Path(u"in/x")).is_open());
                  return fault + Convert({u"a.txt"}, u"SAME");
              }));
    EXPECT_FALSE(std::filesystem::exists(m_Folder.Path(u"in/a- Unicode.txt")));
    std::filesystem::permissions(m_Folder.Path(u"in"), perms::all);
}

TEST_F(TextBatchFaults, AFullDisk) {
    m_Folder.Put(u"in/a.txt", std::string(200'000, 'k'));
    m_Folder.Put(u"in/b.txt", "k");
    std::filesystem::create_directory(m_Folder.Path(u"out"));
    const std::string told = InChild([&]() -> std::string {
        if (const std::string why = MountSmallDisk(m_Folder.Path(u"out"), "64k"); !why.empty())
            return "skip: " + why;
        {
            std::ofstream half(m_Folder.Path(u"out/half"), std::ios::binary);
            if (half << std::string(400'000, 'x') && half.flush()) return "the disk is not full";
        }
        std::filesystem::remove(m_Folder.Path(u"out/half"));
        std::string answer = Convert({u"b.txt", u"a.txt"}, m_Folder / u"out");
        for (const auto& entry : std::filesystem::directory_iterator(m_Folder.Path(u"out")))
            answer += " " + entry.path().filename().string() + " " + std::to_string(entry.file_size());
        // Replacing leaves the old text where the new one does not fit.
        bool ok = false;
        const std::u16string path = m_Folder / u"out/b- Unicode.txt";
        answer += " " + YesNo(modUnicodeRW::WriteTextFile(path, std::u16string(50'000, u'x'), 2, -1));
        return answer + files::ToPathBytes(modUnicodeRW::ReadTextFile(path, -2, ok));
    });
    if (told.starts_with("skip: ")) GTEST_SKIP() << told.substr(6);
    EXPECT_EQ("1 left. WriteTextFile: No space left on device. b- Unicode.txt 4 no \xE0\xA6\x95", told);
}

TEST_F(TextBatchFaults, ReadTextFileOfAnUnreadableFile) {
    const std::u16string path = m_Folder.Put(u"in/a.txt", "k");
    std::filesystem::permissions(m_Folder.Path(u"in/a.txt"), perms::none);
    EXPECT_EQ("no no Permission denied", InChildAsNobody([&] {
                  const std::string fault = YesNo(std::ifstream(m_Folder.Path(u"in/a.txt")).is_open());
                  bool ok = true;
                  modUnicodeRW::ReadTextFile(path, 0, ok);
                  return fault + YesNo(ok) + files::ToPathBytes(LastFailure());
              }));
}

TEST_F(TextBatchFaults, AFileWhoseSizeTheSystemDoesNotTellIsReadWhole) {
    std::ifstream file("/proc/self/environ", std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    ASSERT_EQ(0u, std::filesystem::file_size("/proc/self/environ"));
    ASSERT_GT(bytes.size(), 100u);
    bool ok = false;
    EXPECT_EQ(text::FromCp1252(bytes), modUnicodeRW::ReadTextFile(u"/proc/self/environ", 0, ok));
    EXPECT_TRUE(ok);
    EXPECT_EQ(text::FromUtf16Le(bytes), modUnicodeRW::ReadTextFile(u"/proc/self/environ", -1, ok));
    EXPECT_TRUE(ok);
}

TEST_F(TextBatchFaults, CopyAndDeleteWithoutTheRights) {
    const std::u16string source = m_Folder.Put(u"in/a.txt", "k");
    std::filesystem::create_directory(m_Folder.Path(u"out"));
    m_Folder.Put(u"out/b.txt", "old");
    std::filesystem::permissions(m_Folder.Path(u"out"), perms(0555));
    EXPECT_EQ("no no no no ", InChildAsNobody([&] {
                  std::string answer = YesNo(std::ofstream(m_Folder.Path(u"out/x")).is_open());
                  answer += YesNo(modFileFolder::CopyFileTo(source, m_Folder / u"out/a.txt"));
                  answer += YesNo(modFileFolder::CopyFileTo(source, m_Folder / u"out/b.txt"));
                  return answer + YesNo(modFileFolder::DeleteFile(m_Folder / u"out/b.txt"));
              }));
    std::filesystem::permissions(m_Folder.Path(u"out"), perms::all);
    EXPECT_EQ("old", m_Folder.Get(u"out/b.txt"));
}

TEST_F(TextBatchFaults, ASourceWhoseNameIsNoUtf8) {
    const std::string odd = m_Folder.Path(u"in").string() + "/\xFF\xC0.txt";
    std::ofstream(odd) << "k";
    std::vector<std::u16string> names;
    ASSERT_TRUE(files::ListFiles(m_Folder / u"in", names));
    ASSERT_EQ(1u, names.size());
    EXPECT_EQ("0 left.", Convert({names[0]}, u"SAME"));
    EXPECT_TRUE(std::filesystem::exists(m_Folder.Path(u"in").string() + "/\xFF\xC0- Unicode.txt"));
}

} // namespace
