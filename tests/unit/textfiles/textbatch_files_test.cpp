// The batch and its files: names, outputs, what cannot be read or written.

#include "TextBatchTesting.h"

#include <atomic>
#include <thread>

using namespace std::string_literals;
using namespace textbatch;

namespace {

class TextBatchFiles : public TextBatchTest {};

TEST_F(TextBatchFiles, ASaveFolderAndASuffixOfTheUsers) {
    std::filesystem::create_directory(m_Folder.Path(u"out"));
    m_Settings.sTextFileSaveFolder = m_Folder / u"out";
    m_Settings.sTextFileNameSuffix = u"_বাংলা";
    Add(u"a.b.txt", "k");
    Run();
    EXPECT_EQ(Utf16(u"\u0995"), m_Folder.Get(u"out/a.b_বাংলা.txt"));
    EXPECT_EQ(1u, FilesIn());
}

TEST_F(TextBatchFiles, AnEarlierOutputIsNotReplaced) {
    m_Folder.Put(u"in/a- Unicode.txt", "earlier");
    Add(u"a.txt", "k");
    Run();
    EXPECT_EQ("earlier", Out(u"a- Unicode.txt"));
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"a- Unicode - 1.txt"));
}

TEST_F(TextBatchFiles, TwoEntriesForOneFileGiveTwoOutputs) {
    AddPath(Add(u"a.txt", "k"));
    ASSERT_EQ(m_List.List(0), m_List.List(1));
    Run();
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"a- Unicode.txt"));
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"a- Unicode - 1.txt"));
    EXPECT_EQ(0, m_List.ListCount());
}

TEST_F(TextBatchFiles, AFileThatCannotBeReadDoesNotAdvanceTheCounter) {
    Add(u"c.txt", "k");
    const std::u16string missing = AddPath(files::Join(In(), u"missing.txt"));
    Add(u"a.txt", "k");
    ASSERT_FALSE(std::filesystem::exists(m_Folder.Path(u"in/missing.txt")));
    Run();
    EXPECT_EQ((Log{"ProgressStart",
                   kReading,
                   kEvents,
                   "Status 1 of 3",
                   "Value 0",
                   "Max 1",
                   kEvents,
                   "Value 0",
                   "Tick",
                   kSaving,
                   kEvents,
                   "Done a.txt -> a- Unicode.txt",
                   kReading,
                   kEvents,
                   "Done missing.txt -> failed in ReadTextFile",
                   kReading,
                   kEvents,
                   "Status 2 of 3",
                   "Value 0",
                   "Max 1",
                   kEvents,
                   "Value 0",
                   "Tick",
                   kSaving,
                   kEvents,
                   "Done c.txt -> c- Unicode.txt",
                   "ProgressFinish",
                   "Status ",
                   kEvents,
                   "PlayDone",
                   "Message Stop [Error converting file(s)...] 1"s + kLeft}),
              m_Log);
    ASSERT_EQ(1, m_List.ListCount());
    EXPECT_EQ(missing, m_List.List(0));
    EXPECT_FALSE(m_Why.empty());
}

TEST_F(TextBatchFiles, AFileThatCannotBeWrittenAdvancesTheCounter) {
    m_Settings.sTextFileSaveFolder = m_Folder / u"no such folder";
    Add(u"a.txt", "k");
    Add(u"b.txt", "k");
    Run();
    EXPECT_EQ((Log{"1 of 2", "2 of 2"}), Counters());
    EXPECT_EQ(2, m_List.ListCount());
    EXPECT_EQ("Message Stop [Error converting file(s)...] 2"s + kLeft, LastLine());
    EXPECT_EQ("PlayDone", m_Log[m_Log.size() - 2]) << "the sound plays where files failed, too";
    EXPECT_EQ(2u, FilesIn());
    EXPECT_FALSE(m_Why.empty());
}

TEST_F(TextBatchFiles, AnEmptyFileCannotBeRead) {
    Add(u"a.txt", "");
    Add(u"b.txt", "\xFF\xFE");
    Run();
    EXPECT_EQ(2, m_List.ListCount());
    EXPECT_EQ((Log{}), Counters());
    EXPECT_EQ(u"The file is empty", m_Why);
}

TEST_F(TextBatchFiles, ASourceThatVanishesBetweenListingAndReading) {
    Add(u"a.txt", "k");
    ASSERT_TRUE(std::filesystem::exists(m_Folder.Path(u"in/a.txt")));
    m_OnEvent = [&](const std::string& what) {
        if (what == kEvents) std::filesystem::remove(m_Folder.Path(u"in/a.txt"));
    };
    Run();
    ASSERT_FALSE(std::filesystem::exists(m_Folder.Path(u"in/a.txt")));
    EXPECT_EQ(1, m_List.ListCount());
    EXPECT_EQ("Message Stop [Error converting file(s)...] 1"s + kLeft, LastLine());
    EXPECT_EQ(0u, FilesIn());
}

TEST_F(TextBatchFiles, ASourceThatVanishesAfterReadingIsConverted) {
    Add(u"a.txt", "k");
    m_OnEvent = [&](const std::string& what) {
        if (what == kSaving) std::filesystem::remove(m_Folder.Path(u"in/a.txt"));
    };
    Run();
    EXPECT_EQ(0, m_List.ListCount());
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"a- Unicode.txt"));
}

TEST_F(TextBatchFiles, CapitalsInTheExtensionStay) {
    Add(u"A.TXT", "k");
    Run();
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"A- Unicode.TXT"));
}

TEST_F(TextBatchFiles, BanglaNames) {
    Add(u"প্রতিবেদন ১.txt", "k");
    Run();
    EXPECT_EQ(0, m_List.ListCount());
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"প্রতিবেদন ১- Unicode.txt"));
}

TEST_F(TextBatchFiles, VeryLongPaths) {
    std::u16string deep = In();
    for (int i = 0; i < 4; ++i) {
        deep = files::Join(deep, std::u16string(120, static_cast<char16_t>(u'a' + i)));
        ASSERT_TRUE(files::CreateFolder(deep));
    }
    ASSERT_TRUE(files::WriteNew(AddPath(files::Join(deep, u"a.txt")), "k"));
    Run();
    EXPECT_EQ(0, m_List.ListCount());
    std::string bytes;
    EXPECT_TRUE(files::ReadAll(files::Join(deep, u"a- Unicode.txt"), bytes));
    EXPECT_EQ(Utf16(u"\u0995"), bytes);
}

TEST_F(TextBatchFiles, ANameThatIsTooLongForItsOutputCannotBeWritten) {
    // 250 units: the name itself is allowed, with the suffix it is not.
    Add(std::u16string(246, u'n') + u".txt", "k");
    Run();
    EXPECT_EQ(1, m_List.ListCount());
    EXPECT_EQ(1u, FilesIn());
}

TEST_F(TextBatchFiles, ANameWithoutADotIsFailure5) {
    Add(u"report", "k");
    Add(u"b.txt", "k");
    EXPECT_EQ(5, FailureOfRun());
    EXPECT_EQ(1, m_List.ListCount()) << "files already done stay done";
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"b- Unicode.txt"));
    EXPECT_EQ(3u, FilesIn());
}

// A rival takes the output's name while its text is being written, after it was found free.
TEST_F(TextBatchFiles, ANameTakenMeanwhileIsLeftAndTheNextOneAskedFor) {
    const std::string bytes(8'000'000, 'k');
    for (int round = 0; round < 20; ++round) {
        const std::u16string name(3, static_cast<char16_t>(u'a' + round));
        Add(name + u".txt", bytes);
        std::atomic<bool> finished = false, won = false;
        std::thread rival([&] {
            while (!finished) {
                bool isWriting = false;
                for (const auto& entry : std::filesystem::directory_iterator(m_Folder.Path(u"in")))
                    isWriting = isWriting || entry.path().extension() == ".tmp";
                if (!isWriting) continue;
                won = static_cast<bool>(files::WriteNew(files::Join(In(), name + u"- Unicode.txt"), "rival"));
                return;
            }
        });
        Run();
        finished = true;
        rival.join();
        ASSERT_EQ(0, m_List.ListCount());
        if (!won) continue; // it came too late: the fault was not there
        EXPECT_EQ("rival", Out(name + u"- Unicode.txt"));
        EXPECT_TRUE(Utf16(std::u16string(bytes.size(), u'\u0995')) == Out(name + u"- Unicode - 1.txt"));
        EXPECT_TRUE(LastLine() == "PlayDone");
        return;
    }
    FAIL() << "the rival never won";
}

TEST_F(TextBatchFiles, ManyAtOnceNeverShareAnOutput) {
    const std::u16string path = Add(u"a.txt", "k");
    std::vector<std::thread> runs;
    std::atomic<int> failed = 0;
    for (int i = 0; i < 4; ++i)
        runs.emplace_back([&] {
            for (int round = 0; round < 10; ++round) {
                ListItems list;
                list.AddItem(path);
                clsConvert converter;
                JobHost quiet;
                ConvertTextFiles(list, converter, m_Settings, quiet);
                failed += list.ListCount();
            }
        });
    for (std::thread& run : runs) run.join();
    EXPECT_EQ(0, failed);
    EXPECT_EQ(41u, FilesIn());
    for (const auto& entry : std::filesystem::directory_iterator(m_Folder.Path(u"in")))
        EXPECT_EQ(entry.path().filename() == "a.txt" ? 1u : 4u, entry.file_size());
}

TEST_F(TextBatchFiles, AnOutputNameHeldByAFolderCannotBeWritten) {
    std::filesystem::create_directory(m_Folder.Path(u"in/a- Unicode.txt"));
    Add(u"a.txt", "k");
    Run();
    EXPECT_EQ(1, m_List.ListCount()) << "a folder counts as no file, so the name seems free and is not";
    EXPECT_EQ(2u, FilesIn());
    EXPECT_TRUE(std::filesystem::is_directory(m_Folder.Path(u"in/a- Unicode.txt")));
}

TEST_F(TextBatchFiles, AnOutputIsNeverTheSource) {
    m_Settings.sTextFileNameSuffix = u"";
    Add(u"a.txt", "k");
    Run();
    EXPECT_EQ("k", Out(u"a.txt"));
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"a - 1.txt"));
}

TEST_F(TextBatchFiles, ASecondRunTriesWhatWasLeft) {
    const std::u16string path = AddPath(files::Join(In(), u"a.txt"));
    Run();
    ASSERT_EQ(1, m_List.ListCount());
    m_Folder.Put(u"in/a.txt", "k");
    m_Log.clear();
    Run();
    EXPECT_EQ(0, m_List.ListCount());
    EXPECT_EQ("PlayDone", LastLine());
}

} // namespace
