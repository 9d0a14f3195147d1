// The batch over a list of text files: what it makes, and every call that it makes of its
// host, in order.

#include "textfiles/TextBatch.h"

#include "base/Files.h"
#include "engine/PluginFile.h"
#include "engine/clsConvert.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <iterator>
#include <thread>

using namespace std::string_literals;
using Log = std::vector<std::string>;

namespace {

const std::string kReading = "Status Reading...", kEvents = "DoEvents", kSaving = "Status Saving...";

std::string Narrow(std::u16string_view text) {
    return files::ToPathBytes(text);
}

std::string Utf16(std::u16string_view text) {
    return "\xFF\xFE" + std::string(reinterpret_cast<const char*>(text.data()), text.size() * 2);
}

const char* const kLeft =
    " file(s) could not be read/saved during conversion. They are left in the file list.\r\n\r\n\r\n\r\n"
    "Possible Cause: May be the destination is full or write protected.\r\n\r\n"
    "Solution: You may try to change destination folder option for saving converted file(s) from Option "
    "Dialog Box and then try converting these file(s) again.";

class TextBatch : public testing::Test {
protected:
    TextBatch() {
        std::filesystem::create_directory(m_Folder.Path(u"conversion Plugins"));
        // k and m become letters, s a vowel sign, R a reph: a line that begins with sR fails.
        PutPlugin(u"Test.dll", u"\uE000\r\n\uE001\r\nk\t\u0995\r\nm\t\u09AE\r\ns\t\u09BE\r\nR\t\uE000");
        std::filesystem::create_directory(m_Folder.Path(u"in"));
        m_Settings.programFolder = m_Folder.Name();
        m_Settings.sConvertFrom = u"TEST";
        m_Host.ProgressStart = [this] { Tell("ProgressStart"); };
        m_Host.ProgressFinish = [this] { Tell("ProgressFinish"); };
        m_Host.Status = [this](std::u16string_view text) { Tell("Status " + Narrow(text)); };
        m_Host.Max = [this](std::int32_t n) { Tell("Max " + std::to_string(n)); };
        m_Host.Value = [this](std::int32_t n) { Tell("Value " + std::to_string(n)); };
        m_Host.DoEvents = [this] { Tell("DoEvents"); };
        m_Host.Tick = [this] { Tell("Tick"); };
        m_Host.Message = [this](MessageIcon icon, std::u16string_view title, std::u16string_view text) {
            const char* const icons[] = {"Exclamation", "Stop", "Information"};
            Tell("Message "s + icons[static_cast<int>(icon)] + " [" + Narrow(title) + "] " + Narrow(text));
        };
        m_Host.PlayDone = [this](double seconds) {
            Tell(seconds >= 0 && seconds < 60 ? "PlayDone" : "PlayDone ?");
        };
        m_Host.Done = [this](std::u16string_view source, std::u16string_view output,
                             const RuntimeFailure* failure) {
            EXPECT_EQ(failure != nullptr, output.empty());
            Tell("Done " + Narrow(source.substr(files::NameStart(source))) + " -> " +
                 (failure ? "failed in " + Narrow(failure->Source())
                          : Narrow(output.substr(files::NameStart(output)))));
            if (failure) m_Why = failure->Description();
        };
    }

    void Tell(const std::string& what) {
        m_Log.push_back(what);
        if (m_OnEvent) m_OnEvent(what);
    }

    void PutPlugin(std::u16string_view name, std::u16string_view payload) {
        m_Folder.Put(u"conversion Plugins/" + std::u16string(name), plugin::MakeFile(payload));
    }
    // Writes a source file and puts it into the list.
    std::u16string Add(const std::u16string& name, std::string_view bytes) {
        m_Folder.Put(u"in/" + name, bytes);
        return AddPath(files::Join(In(), name));
    }
    std::u16string AddPath(const std::u16string& path) {
        m_List.AddItem(path, -1, 0);
        return path;
    }
    std::u16string In() const { return files::Join(m_Folder.Name(), u"in"); }
    std::string Out(const std::u16string& name) { return m_Folder.Get(u"in/" + name); }
    std::size_t FilesIn() const {
        const std::filesystem::directory_iterator files(m_Folder.Path(u"in"));
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

    void Run() { ConvertTextFiles(m_List, m_Converter, m_Settings, m_Host); }
    int FailureOfRun() {
        try {
            Run();
        } catch (const RuntimeFailure& failure) {
            return failure.Number();
        }
        return 0;
    }
    // The status lines of the log that count files.
    Log Counters() const {
        Log counters;
        for (const std::string& line : m_Log)
            if (line.find(" of ") != line.npos && line.starts_with("Status"))
                counters.push_back(line.substr(7));
        return counters;
    }
    std::string LastLine() const { return m_Log.empty() ? "" : m_Log.back(); }

    TempFolder m_Folder;
    ListItems m_List;
    clsConvert m_Converter;
    TextBatchSettings m_Settings;
    JobHost m_Host;
    Log m_Log;
    std::u16string m_Why;
    std::function<void(const std::string&)> m_OnEvent;
};

TEST_F(TextBatch, EveryCallInOrder) {
    Add(u"a.txt", "k\r\nm");
    Add(u"b.txt", "m\r\n");
    Run();
    EXPECT_EQ((Log{"ProgressStart",
                   kReading,
                   kEvents,
                   "Status 1 of 2",
                   "Value 0",
                   "Max 2",
                   kEvents,
                   "Value 0",
                   "Tick",
                   "Value 1",
                   "Tick",
                   kSaving,
                   kEvents,
                   "Done b.txt -> b- Unicode.txt",
                   kReading,
                   kEvents,
                   "Status 2 of 2",
                   "Value 0",
                   "Max 2",
                   kEvents,
                   "Value 0",
                   "Tick",
                   "Value 1",
                   "Tick",
                   kSaving,
                   kEvents,
                   "Done a.txt -> a- Unicode.txt",
                   "ProgressFinish",
                   "Status ",
                   kEvents,
                   "PlayDone"}),
              m_Log);
    EXPECT_EQ(0, m_List.ListCount());
    EXPECT_EQ(Utf16(u"\u0995\r\n\u09AE"), Out(u"a- Unicode.txt"));
    EXPECT_EQ(Utf16(u"\u09AE\r\n"), Out(u"b- Unicode.txt"));
    EXPECT_EQ("k\r\nm", Out(u"a.txt")) << "the source is never touched";
    EXPECT_EQ(4u, FilesIn());
}

TEST_F(TextBatch, AnEmptyListGivesItsMessageAndNothingElse) {
    m_Settings.sConvertFrom = u"missing";
    Run();
    EXPECT_EQ((Log{"Message Exclamation [] Please add file(s) first you want to convert."}), m_Log);
}

TEST_F(TextBatch, AMissingPluginGivesItsMessageBeforeAnyFileIsTouched) {
    m_Settings.sConvertFrom = u"missing";
    Add(u"a.txt", "k");
    Run();
    ASSERT_EQ(1u, m_Log.size());
    const std::string expected =
        "Message Stop [] Error loading converter plug-in.\r\n"
        "Make sure you have selected an appropriate Bangla script system to convert.\r\n"
        "\r\n"
        "For more help, please contact Pelnitro support forum:\r\n";
    EXPECT_EQ(expected, m_Log[0].substr(0, expected.size()));
    EXPECT_GT(m_Log[0].size(), expected.size()) << "the forum's address";
    EXPECT_EQ(m_Log[0].npos, m_Log[0].find('\n', expected.size()));
    EXPECT_EQ(1, m_List.ListCount());
    EXPECT_EQ(1u, FilesIn());
}

TEST_F(TextBatch, AFolderInThePluginsPlaceIsAMissingPlugin) {
    std::filesystem::create_directory(m_Folder.Path(u"conversion Plugins/Folder.dll"));
    m_Settings.sConvertFrom = u"FOLDER";
    Add(u"a.txt", "k");
    Run();
    ASSERT_EQ(1u, m_Log.size());
    EXPECT_TRUE(m_Log[0].starts_with("Message Stop [] Error loading"));
}

TEST_F(TextBatch, ThePluginCanBeGivenByItsPath) {
    m_Settings.pluginPath = m_Folder.Put(u"other.dll", plugin::MakeFile(u"\uE000\r\n\uE001\r\nk\tX"));
    Add(u"a.txt", "k");
    Run();
    EXPECT_EQ(Utf16(u"X"), Out(u"a- Unicode.txt"));
}

TEST_F(TextBatch, TheTableIsLoadedAndUnloadedUnlessTheCallerHoldsIt) {
    Add(u"a.txt", "k");
    Run();
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"a- Unicode.txt"));
    EXPECT_THROW(m_Converter.Convert(u"k"), RuntimeFailure) << "unloaded behind the last file";
    m_Converter.LoadText(u"\uE000\r\n\uE001\r\nk\tX");
    m_Settings.tableIsLoaded = true;
    Add(u"b.txt", "k");
    Run();
    EXPECT_EQ(Utf16(u"X"), Out(u"b- Unicode.txt"));
    EXPECT_EQ(u"X", m_Converter.Convert(u"k"));
}

TEST_F(TextBatch, ADamagedPluginIsAFailureThatNobodyCatches) {
    m_Settings.pluginPath = m_Folder.Put(u"damaged.dll", "");
    Add(u"a.txt", "k");
    EXPECT_EQ(9, FailureOfRun());
    EXPECT_EQ((Log{"ProgressStart"}), m_Log);
    EXPECT_EQ(1, m_List.ListCount());
    EXPECT_EQ(1u, FilesIn());
}

TEST_F(TextBatch, OneLineWithoutALineBreakStaysWithoutOne) {
    Add(u"a.txt", "kk");
    Run();
    EXPECT_EQ(Utf16(u"\u0995\u0995"), Out(u"a- Unicode.txt"));
}

TEST_F(TextBatch, AFileThatEndedWithALineBreakStillDoes) {
    Add(u"a.txt", "k\r\n\r\nm\r\n");
    Run();
    EXPECT_EQ(Utf16(u"\u0995\r\n\r\n\u09AE\r\n"), Out(u"a- Unicode.txt"));
    EXPECT_NE(m_Log.end(), std::find(m_Log.begin(), m_Log.end(), "Max 4"));
}

TEST_F(TextBatch, LineFeedsAloneMakeOneLine) {
    Add(u"a.txt", "k\nm\rk\n\r");
    Run();
    EXPECT_EQ(Utf16(u"\u0995\n\u09AE\r\u0995\n\r"), Out(u"a- Unicode.txt"));
    EXPECT_NE(m_Log.end(), std::find(m_Log.begin(), m_Log.end(), "Max 1"));
}

TEST_F(TextBatch, TheValueEndsOneShortOfTheMaximum) {
    Add(u"a.txt", "k\r\nk\r\nk");
    Run();
    Log bar;
    for (const std::string& line : m_Log)
        if (line.starts_with("Value") || line.starts_with("Max")) bar.push_back(line);
    EXPECT_EQ((Log{"Value 0", "Max 3", "Value 0", "Value 1", "Value 2"}), bar);
}

TEST_F(TextBatch, MoreLinesThanSixteenBitsCountPass) {
    std::string bytes = "k";
    for (int i = 1; i < 40000; ++i) bytes += "\r\nk";
    Add(u"a.txt", bytes);
    Run();
    EXPECT_NE(m_Log.end(), std::find(m_Log.begin(), m_Log.end(), "Max 40000"));
    EXPECT_NE(m_Log.end(), std::find(m_Log.begin(), m_Log.end(), "Value 39999"));
    EXPECT_EQ(0, m_List.ListCount());
}

TEST_F(TextBatch, TheReadingFormatFollowsTheSetting) {
    Add(u"a.txt", Utf16(u"k"));
    m_Settings.sReadEncoding = u"ASCII ENCODING";
    Run();
    EXPECT_EQ(Utf16(u"\u00FF\u00FE\u0995\0"s), Out(u"a- Unicode.txt"));
    Add(u"b.txt", "k\0m\0"s);
    m_Settings.sReadEncoding = u"UNICODE (UTF-16) ENCODING";
    Run();
    EXPECT_EQ(Utf16(u"\u0995\u09AE"), Out(u"b- Unicode.txt"));
    Add(u"c.txt", Utf16(u"m"));
    m_Settings.sReadEncoding = u"anything";
    Run();
    EXPECT_EQ(Utf16(u"\u09AE"), Out(u"c- Unicode.txt"));
}

TEST_F(TextBatch, ASaveFolderAndASuffixOfTheUsers) {
    std::filesystem::create_directory(m_Folder.Path(u"out"));
    m_Settings.sTextFileSaveFolder = m_Folder / u"out";
    m_Settings.sTextFileNameSuffix = u"_বাংলা";
    Add(u"a.b.txt", "k");
    Run();
    EXPECT_EQ(Utf16(u"\u0995"), m_Folder.Get(u"out/a.b_বাংলা.txt"));
    EXPECT_EQ(1u, FilesIn());
}

TEST_F(TextBatch, AnEarlierOutputIsNotReplaced) {
    m_Folder.Put(u"in/a- Unicode.txt", "earlier");
    Add(u"a.txt", "k");
    Run();
    EXPECT_EQ("earlier", Out(u"a- Unicode.txt"));
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"a- Unicode - 1.txt"));
}

TEST_F(TextBatch, TwoEntriesForOneFileGiveTwoOutputs) {
    AddPath(Add(u"a.txt", "k"));
    ASSERT_EQ(m_List.List(0), m_List.List(1));
    Run();
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"a- Unicode.txt"));
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"a- Unicode - 1.txt"));
    EXPECT_EQ(0, m_List.ListCount());
}

TEST_F(TextBatch, AFileThatCannotBeReadDoesNotAdvanceTheCounter) {
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

TEST_F(TextBatch, AFileThatCannotBeWrittenAdvancesTheCounter) {
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

TEST_F(TextBatch, AnEmptyFileCannotBeRead) {
    Add(u"a.txt", "");
    Add(u"b.txt", "\xFF\xFE");
    Run();
    EXPECT_EQ(2, m_List.ListCount());
    EXPECT_EQ((Log{}), Counters());
    EXPECT_EQ(u"The file is empty", m_Why);
}

TEST_F(TextBatch, ASourceThatVanishesBetweenListingAndReading) {
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

TEST_F(TextBatch, ASourceThatVanishesAfterReadingIsConverted) {
    Add(u"a.txt", "k");
    m_OnEvent = [&](const std::string& what) {
        if (what == kSaving) std::filesystem::remove(m_Folder.Path(u"in/a.txt"));
    };
    Run();
    EXPECT_EQ(0, m_List.ListCount());
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"a- Unicode.txt"));
}

TEST_F(TextBatch, CapitalsInTheExtensionStay) {
    Add(u"A.TXT", "k");
    Run();
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"A- Unicode.TXT"));
}

TEST_F(TextBatch, BanglaNames) {
    Add(u"প্রতিবেদন ১.txt", "k");
    Run();
    EXPECT_EQ(0, m_List.ListCount());
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"প্রতিবেদন ১- Unicode.txt"));
}

TEST_F(TextBatch, VeryLongPaths) {
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

TEST_F(TextBatch, ANameThatIsTooLongForItsOutputCannotBeWritten) {
    // 250 units: the name itself is allowed, with the suffix it is not.
    Add(std::u16string(246, u'n') + u".txt", "k");
    Run();
    EXPECT_EQ(1, m_List.ListCount());
    EXPECT_EQ(1u, FilesIn());
}

TEST_F(TextBatch, ANameWithoutADotIsFailure5) {
    Add(u"report", "k");
    Add(u"b.txt", "k");
    EXPECT_EQ(5, FailureOfRun());
    EXPECT_EQ(1, m_List.ListCount()) << "files already done stay done";
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"b- Unicode.txt"));
    EXPECT_EQ(3u, FilesIn());
}

TEST_F(TextBatch, AFailureOfConvertIsNotCaughtAndTellsWhere) {
    Add(u"never.txt", "k");
    const std::u16string failing = Add(u"b.txt", "k\r\nm\r\nsRk\r\nm");
    Add(u"c.txt", "k");
    EXPECT_EQ(5, FailureOfRun());
    EXPECT_EQ(failing, m_Host.Item);
    EXPECT_EQ(3, m_Host.Line);
    EXPECT_EQ(u"sRk", m_Host.Legacy);
    EXPECT_EQ(2, m_List.ListCount()) << "files already done have left the list";
    EXPECT_EQ(4u, FilesIn()) << "the file in hand is not written";
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"c- Unicode.txt"));
}

TEST_F(TextBatch, KeepGoingLeavesTheLineAsItWas) {
    Add(u"a.txt", "k\r\nsRk\r\nm\r\nsR");
    std::vector<std::int64_t> lines;
    m_Settings.LineFailed = [&](const RuntimeFailure& failure) {
        EXPECT_EQ(5, failure.Number());
        lines.push_back(m_Host.Line);
        EXPECT_EQ(lines.size() == 1 ? u"sRk" : u"sR", m_Host.Legacy);
        return true;
    };
    Run();
    EXPECT_EQ((std::vector<std::int64_t>{2, 4}), lines);
    EXPECT_EQ(Utf16(u"\u0995\r\nsRk\r\n\u09AE\r\nsR"), Out(u"a- Unicode.txt"));
    EXPECT_EQ(0, m_List.ListCount());
}

TEST_F(TextBatch, KeepGoingMayStop) {
    Add(u"a.txt", "sR");
    m_Settings.LineFailed = [](const RuntimeFailure&) { return false; };
    EXPECT_EQ(5, FailureOfRun());
    EXPECT_EQ(1u, FilesIn());
}

// A rival takes the output's name while its text is being written, after it was found free.
TEST_F(TextBatch, ANameTakenMeanwhileIsLeftAndTheNextOneAskedFor) {
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

TEST_F(TextBatch, ManyAtOnceNeverShareAnOutput) {
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

TEST_F(TextBatch, AnOutputNameHeldByAFolderCannotBeWritten) {
    std::filesystem::create_directory(m_Folder.Path(u"in/a- Unicode.txt"));
    Add(u"a.txt", "k");
    Run();
    EXPECT_EQ(1, m_List.ListCount()) << "a folder counts as no file, so the name seems free and is not";
    EXPECT_EQ(2u, FilesIn());
    EXPECT_TRUE(std::filesystem::is_directory(m_Folder.Path(u"in/a- Unicode.txt")));
}

TEST_F(TextBatch, TheCounterIsSixteenBitsWide) {
    m_Settings.sTextFileSaveFolder = m_Folder / u"no such folder";
    const std::u16string path = Add(u"a.txt", "k");
    for (int i = 1; i < 32767; ++i) m_List.AddItem(path);
    EXPECT_EQ(6, FailureOfRun()) << "behind the last file it would count 32768";
    EXPECT_EQ(32767u, Counters().size());
    EXPECT_EQ("32767 of 32767", Counters().back());
}

TEST_F(TextBatch, TheListIsAtMostSixteenBitsLong) {
    for (int i = 0; i < 32768; ++i) m_List.AddItem(u"x.txt");
    EXPECT_EQ(6, FailureOfRun());
    EXPECT_EQ((Log{"ProgressStart"}), m_Log);
}

TEST_F(TextBatch, AnOutputIsNeverTheSource) {
    m_Settings.sTextFileNameSuffix = u"";
    Add(u"a.txt", "k");
    Run();
    EXPECT_EQ("k", Out(u"a.txt"));
    EXPECT_EQ(Utf16(u"\u0995"), Out(u"a - 1.txt"));
}

TEST_F(TextBatch, ASecondRunTriesWhatWasLeft) {
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
