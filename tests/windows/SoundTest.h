// A recording device in place of the loudspeaker, for tests of sounds.
#pragma once

#include "base/Files.h"
#include "windows/Gui.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace gui {

// Folder of the Wine session; empty where the test runs outside of one, and so has no
// sound system that it may set up.
inline std::string Session() {
    const char* folder = std::getenv("ZC_SESSION_DIR");
    return folder ? folder : "";
}

inline std::string Recording() {
    return Session() + "/effects.raw";
}

inline std::string ReadAll(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

inline void SetDriver(const wchar_t* driver) {
    RegSetKeyValueW(HKEY_CURRENT_USER, L"Software\\Wine\\Drivers", L"Audio", REG_SZ, driver,
                    static_cast<DWORD>((std::wcslen(driver) + 1) * sizeof(wchar_t)));
}

constexpr std::size_t kWaveHeader = 44;

// The samples of a wave file beside this program.
inline std::string Samples(const char16_t* name) {
    std::string bytes;
    if (!files::ReadAll(files::Join(files::ProgramFolder(), name), bytes)) return {};
    return bytes.size() > kWaveHeader ? bytes.substr(kWaveHeader) : std::string();
}

inline bool Heard(const std::string& samples) {
    return !samples.empty() && ReadAll(Recording()).find(samples) != std::string::npos;
}
inline bool WaitUntilHeard(const std::string& samples) {
    return WaitUntil([&] { return Heard(samples); }, 20'000);
}

// The programs' sounds, put beside this program, and a device that records what it plays,
// or none. Programs find it when they start, so each case plays in a process of its own.
class SoundTest : public testing::Test {
protected:
    void SetUp() override {
        if (Session().empty()) GTEST_SKIP() << "runs in a Wine session only";
        for (const char16_t* name : {u"Over.wav", u"click.wav", u"Complete.wav"}) {
            const auto made = files::Join(files::Join(files::ProgramFolder(), u"dist"), name);
            const auto here = files::Join(files::ProgramFolder(), name);
            ASSERT_TRUE(CopyFileW(Wide(made), Wide(here), FALSE));
        }
        DWORD size = sizeof m_DriverBefore;
        RegGetValueW(HKEY_CURRENT_USER, L"Software\\Wine\\Drivers", L"Audio", RRF_RT_REG_SZ, nullptr,
                     m_DriverBefore, &size);
        m_SettingsBefore = ReadAll(Settings());
        std::ofstream(Settings()) << "pcm.nowhere { type null }\n"
                                  << "pcm.!default { type file file \"" << Recording()
                                  << "\" format raw slave.pcm nowhere }\n"
                                  << "ctl.!default { type null }\n";
        std::remove(Recording().c_str());
        SetDriver(L"alsa");
    }
    void TearDown() override {
        if (Session().empty()) return;
        SetDriver(m_DriverBefore);
        std::ofstream(Settings()) << m_SettingsBefore;
        std::remove(Recording().c_str());
        for (const char16_t* name : {u"Over.wav", u"click.wav", u"Complete.wav"})
            DeleteFileW(Wide(files::Join(files::ProgramFolder(), name)));
    }
    static std::string Settings() { return Session() + "/home/.asoundrc"; }

    wchar_t m_DriverBefore[64] = L"";
    std::string m_SettingsBefore;
};

} // namespace gui
