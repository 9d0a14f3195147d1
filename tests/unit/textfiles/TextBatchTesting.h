// A batch over text files in a folder of its own, and the log of what it asks of its host.
#pragma once

#include "base/Files.h"
#include "engine/PluginFile.h"
#include "engine/clsConvert.h"
#include "support/TempFolder.h"
#include "textfiles/TextBatch.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>
#include <vector>

namespace textbatch {

using Log = std::vector<std::string>;

inline const std::string kReading = "Status Reading...", kEvents = "DoEvents", kSaving = "Status Saving...";

inline std::string Narrow(std::u16string_view text) {
    return files::ToPathBytes(text);
}

inline std::string Utf16(std::u16string_view text) {
    return "\xFF\xFE" + std::string(reinterpret_cast<const char*>(text.data()), text.size() * 2);
}

inline const char* const kLeft =
    " file(s) could not be read/saved during conversion. They are left in the file list.\r\n\r\n\r\n\r\n"
    "Possible Cause: May be the destination is full or write protected.\r\n\r\n"
    "Solution: You may try to change destination folder option for saving converted file(s) from Option "
    "Dialog Box and then try converting these file(s) again.";

class TextBatchTest : public testing::Test {
protected:
    TextBatchTest() {
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
            Tell(std::string("Message ") + icons[static_cast<int>(icon)] + " [" + Narrow(title) + "] " +
                 Narrow(text));
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

} // namespace textbatch
