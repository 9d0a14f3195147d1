#include "controls/modSound.h"

#include "windows/SoundTest.h"

#include <mmsystem.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

namespace {

using gui::Heard, gui::kWaveHeader, gui::ReadAll, gui::Recording, gui::Samples, gui::SetDriver,
    gui::WaitUntilHeard;
using Sound = gui::SoundTest;

// Puts a sound of six seconds in place of one of the program's.
void MakeLong(const char16_t* name) {
    std::string bytes;
    const auto path = files::Join(files::ProgramFolder(), name);
    ASSERT_TRUE(files::ReadAll(path, bytes));
    const std::uint32_t data = 6 * 44100 * 2, whole = data + kWaveHeader - 8;
    bytes.resize(kWaveHeader);
    std::memcpy(bytes.data() + 4, &whole, sizeof whole);
    std::memcpy(bytes.data() + 40, &data, sizeof data);
    for (std::uint32_t i = 0; i < data / 2; ++i) {
        const auto sample = static_cast<std::int16_t>(i * 7919 % 997 + 1);
        bytes.append(reinterpret_cast<const char*>(&sample), sizeof sample);
    }
    ASSERT_TRUE(files::WriteReplacing(path, bytes));
}

TEST(SoundChild, DISABLED_Over) {
    modSound::PlayEffect(1);
    EXPECT_TRUE(WaitUntilHeard(Samples(u"Over.wav")));
}
TEST(SoundChild, DISABLED_Click) {
    modSound::PlayEffect(2);
    EXPECT_TRUE(WaitUntilHeard(Samples(u"click.wav")));
}
TEST(SoundChild, DISABLED_Complete) {
    modSound::PlayEffect(3);
    EXPECT_TRUE(WaitUntilHeard(Samples(u"Complete.wav")));
}
TEST(SoundChild, DISABLED_ClickWhileOverPlays) {
    modSound::PlayEffect(1);
    ASSERT_TRUE(gui::WaitUntil([] { return !ReadAll(Recording()).empty(); }));
    modSound::PlayEffect(2);
    EXPECT_TRUE(WaitUntilHeard(Samples(u"Over.wav")));
}
TEST(SoundChild, DISABLED_OverWhileClickPlays) {
    modSound::PlayEffect(2);
    ASSERT_TRUE(gui::WaitUntil([] { return !ReadAll(Recording()).empty(); }));
    modSound::PlayEffect(1);
    EXPECT_TRUE(WaitUntilHeard(Samples(u"click.wav")));
}
TEST(SoundChild, DISABLED_CompleteWhileOverPlays) {
    modSound::PlayEffect(1);
    ASSERT_TRUE(gui::WaitUntil([] { return !ReadAll(Recording()).empty(); }));
    modSound::PlayEffect(3);
    EXPECT_TRUE(WaitUntilHeard(Samples(u"Complete.wav")));
    EXPECT_FALSE(Heard(Samples(u"Over.wav")));
}
TEST(SoundChild, DISABLED_NothingThenComplete) {
    for (int kind : {-1, 0, 4, 256}) modSound::PlayEffect(kind);
    modSound::PlayEffect(1); // its file is missing
    modSound::PlayEffect(3);
    EXPECT_TRUE(WaitUntilHeard(Samples(u"Complete.wav")));
}
TEST(SoundChild, DISABLED_NoDevice) {
    EXPECT_EQ(0u, waveOutGetNumDevs());
    for (int kind : {1, 2, 3}) modSound::PlayEffect(kind);
    // Nothing is playing that a sound could be refused for.
    EXPECT_TRUE(PlaySoundW(nullptr, nullptr, 0));
}

TEST_F(Sound, EachKindPlaysItsFile) {
    EXPECT_EQ(0, gui::RunCase("SoundChild.DISABLED_Over"));
    EXPECT_EQ(0, gui::RunCase("SoundChild.DISABLED_Click"));
    EXPECT_EQ(0, gui::RunCase("SoundChild.DISABLED_Complete"));
}

TEST_F(Sound, OverAndClickDoNotStopASoundThatPlays) {
    MakeLong(u"Over.wav");
    EXPECT_EQ(0, gui::RunCase("SoundChild.DISABLED_ClickWhileOverPlays"));
    EXPECT_FALSE(Heard(Samples(u"click.wav")));
    std::remove(Recording().c_str());
    MakeLong(u"click.wav");
    EXPECT_EQ(0, gui::RunCase("SoundChild.DISABLED_OverWhileClickPlays"));
}

TEST_F(Sound, CompleteStopsASoundThatPlays) {
    MakeLong(u"Over.wav");
    EXPECT_EQ(0, gui::RunCase("SoundChild.DISABLED_CompleteWhileOverPlays"));
}

TEST_F(Sound, AnotherKindOrAMissingFileIsSilent) {
    DeleteFileW(Wide(files::Join(files::ProgramFolder(), u"Over.wav")));
    EXPECT_EQ(0, gui::RunCase("SoundChild.DISABLED_NothingThenComplete"));
    // Before and behind the one sound there is silence only.
    std::string heard = ReadAll(Recording());
    const std::string complete = Samples(u"Complete.wav");
    const std::size_t at = heard.find(complete);
    ASSERT_NE(std::string::npos, at);
    heard.erase(at, complete.size());
    EXPECT_EQ(std::string::npos, heard.find_first_not_of('\0'));
}

TEST_F(Sound, WithoutADeviceNothingHappens) {
    SetDriver(L"");
    EXPECT_EQ(0, gui::RunCase("SoundChild.DISABLED_NoDevice"));
    EXPECT_TRUE(ReadAll(Recording()).empty());
}

// Mono, 16 bits, 44.1 kHz; short, not loud, and silent at its end.
TEST_F(Sound, TheFilesAreShortAndGentle) {
    const struct {
        const char16_t* file;
        double seconds;
        int loudest;
    } cases[] = {{u"Over.wav", 0.1, 3277}, {u"click.wav", 0.1, 9830}, {u"Complete.wav", 2.0, 16384}};
    for (const auto& one : cases) {
        std::string bytes;
        ASSERT_TRUE(files::ReadAll(files::Join(files::ProgramFolder(), one.file), bytes));
        ASSERT_GT(bytes.size(), kWaveHeader);
        EXPECT_EQ("RIFF", bytes.substr(0, 4));
        EXPECT_EQ(std::string("WAVEfmt \x10\0\0\0\x01\0\x01\0\x44\xAC\0\0", 20), bytes.substr(8, 20));
        std::vector<std::int16_t> samples((bytes.size() - kWaveHeader) / 2);
        std::memcpy(samples.data(), bytes.data() + kWaveHeader, samples.size() * 2);
        EXPECT_LT(samples.size(), one.seconds * 44100);
        int loudest = 0;
        for (int sample : samples) loudest = std::max(loudest, std::abs(sample));
        EXPECT_GT(loudest, 300);
        EXPECT_LT(loudest, one.loudest);
        EXPECT_EQ(0, samples.front());
        EXPECT_LE(std::abs(samples.back()), 1);
    }
}

} // namespace
