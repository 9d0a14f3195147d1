// The batch and the lines of a text: in which order they are told, and how one that fails is named.

#include "TextBatchTesting.h"

#include <algorithm>

using namespace textbatch;

namespace {

class TextBatchLines : public TextBatchTest {};

// So long that it is converted in several pieces. Every 1499th line fails; every 2003rd has a letter
// that the code page lacks.
struct LongText {
    std::u16string source, result;
    Log log; // from the first line to the last

    explicit LongText(std::size_t lines) {
        for (std::size_t i = 0; i < lines; ++i) {
            const bool fails = i % 1499 == 1498, isForeign = i % 2003 == 2002;
            if (i > 0) source += u"\r\n", result += u"\r\n";
            source += fails ? u"sR kkkk" : isForeign ? u"k\u4E00m" : u"kRm kkkkkkkkkkkkkkkkk\nm";
            result += fails ? u"sR kkkk"
                      : isForeign
                          ? u"\u0995\u4E00\u09AE"
                          : u"\u09B0\u09CD\u0995\u09AE " + std::u16string(17, u'\u0995') + u"\n\u09AE";
            if (fails) log.push_back("Failed " + std::to_string(i + 1));
            log.push_back("Value " + std::to_string(i));
            log.push_back("Tick");
        }
    }
};

TEST_F(TextBatchLines, LinesOfALongTextAreToldOneByOne) {
    const LongText text(20000);
    Add(u"a.txt", Utf16(text.source));
    m_Settings.LineFailed = [&](const RuntimeFailure&) {
        EXPECT_EQ(u"sR kkkk", m_Host.Legacy);
        Tell("Failed " + std::to_string(m_Host.Line));
        return true;
    };
    std::size_t wrongLines = 0;
    m_OnEvent = [&](const std::string& what) {
        if (what.starts_with("Value ") && m_Host.Line > 0)
            wrongLines += what != "Value " + std::to_string(m_Host.Line - 1);
    };
    Run();
    EXPECT_EQ(0u, wrongLines);
    const auto first = std::find(m_Log.begin(), m_Log.end(), "Max 20000") + 2;
    const auto last = std::find(first, m_Log.end(), kSaving);
    EXPECT_TRUE(text.log == Log(first, last));
    EXPECT_TRUE(Utf16(text.result) == Out(u"a- Unicode.txt"));
}

TEST_F(TextBatchLines, TheFailingLineOfALongTextIsNamed) {
    const LongText text(5000);
    Add(u"a.txt", Utf16(text.source));
    std::vector<std::int64_t> lines;
    m_Settings.LineFailed = [&](const RuntimeFailure&) {
        lines.push_back(m_Host.Line);
        return lines.size() < 3;
    };
    EXPECT_EQ(5, FailureOfRun());
    EXPECT_EQ((std::vector<std::int64_t>{1499, 2998, 4497}), lines);
    EXPECT_EQ(4497, m_Host.Line);
    EXPECT_EQ(u"sR kkkk", m_Host.Legacy);
    EXPECT_EQ("Tick", LastLine());
    EXPECT_EQ("Value 4495", m_Log[m_Log.size() - 2]);
    EXPECT_EQ(1u, FilesIn());
}

} // namespace
