// The sound of the mouse coming over a list.
#include "windows/ListForm.h"
#include "windows/SoundTest.h"

namespace {

using gui::Recording, gui::Samples, gui::WaitUntilHeard;

// Runs in a process of its own, which finds the recording device when it starts.
class ListSoundChild : public gui::Lists {};

TEST_F(ListSoundChild, DISABLED_OncePerEnter) {
    Fill(Files(), 6);
    gui::MoveTo(RowPoint(Files(), 0));
    ASSERT_TRUE(WaitUntilHeard(Samples(u"Over.wav")));
    // Each sound begins the recording anew: a further one would bring it back.
    ASSERT_TRUE(gui::WaitUntil([] { return std::remove(Recording().c_str()) == 0; }));
    for (int move = 0; move < 60; ++move) {
        gui::MoveTo(RowPoint(Files(), move % 6));
        ASSERT_TRUE(Becomes([&] { return Files().HoveredRow() == move % 6; }));
    }
    EXPECT_FALSE(gui::Heard(Samples(u"Over.wav")));
    EXPECT_TRUE(gui::WaitUntil([&] {
        gui::MoveTo({5, 5});
        Becomes([&] { return Files().HoveredRow() == -1; });
        gui::MoveTo(RowPoint(Files(), 1));
        Becomes([&] { return Files().HoveredRow() == 1; });
        return gui::Heard(Samples(u"Over.wav")); // refused while the first still plays
    }));
}

class ListSound : public gui::SoundTest {};

TEST_F(ListSound, PlaysOncePerEnter) {
    EXPECT_EQ(0, gui::RunCase("ListSoundChild.DISABLED_OncePerEnter"));
}

} // namespace
