// What the batch makes of its lines, and every call that it makes of its host, in order.

#include "TextBatchTesting.h"

#include <algorithm>

using namespace std::string_literals;
using namespace textbatch;

namespace {

class TextBatch : public TextBatchTest {};

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

} // namespace
