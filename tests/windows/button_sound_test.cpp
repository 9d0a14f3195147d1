// The sounds of TavrelButton, found on a recording device. A program finds the device when
// it starts, so each case plays in a process of its own.
#include "controls/modSound.h"
#include "windows/ButtonForm.h"
#include "windows/SoundTest.h"

namespace {

using gui::Heard, gui::Samples, gui::WaitUntilHeard;

class ButtonSoundChild : public gui::ButtonTest {
protected:
    void PressSpace() {
        TavrelButton& back = *m_Shown->Back;
        m_Ui.Run([&] { back.Base.SetFocus(); });
        gui::Key(VK_SPACE, false);
        ASSERT_TRUE(Becomes([&] { return back.State().Pressed; }));
        gui::Key(VK_SPACE, true);
        ASSERT_TRUE(Becomes([&] { return !back.State().Pressed; }));
        m_Ui.Settle();
    }
};

TEST_F(ButtonSoundChild, DISABLED_Over) {
    Enter(*m_Shown->Back);
    EXPECT_TRUE(WaitUntilHeard(Samples(u"Over.wav")));
}

TEST_F(ButtonSoundChild, DISABLED_Click) {
    bool silentBefore = false;
    m_Ui.Run([&] { m_Shown->Back->Click = [&] { silentBefore = gui::ReadAll(gui::Recording()).empty(); }; });
    PressSpace();
    EXPECT_TRUE(silentBefore); // the handler runs first
    EXPECT_TRUE(WaitUntilHeard(Samples(u"click.wav")));
}

// The text of a property is a switch and no path.
TEST_F(ButtonSoundChild, DISABLED_AnyText) {
    m_Ui.Run([&] {
        m_Shown->Back->SoundOver(u"no such file");
        m_Shown->Main.SoundOver(u"");
    });
    Enter(m_Shown->Main);
    Enter(*m_Shown->Back);
    EXPECT_TRUE(WaitUntilHeard(Samples(u"Over.wav")));
}

TEST_F(ButtonSoundChild, DISABLED_Silent) {
    TavrelButton& back = *m_Shown->Back;
    int clicks = 0;
    m_Ui.Run([&] {
        back.SoundOver(u"");
        back.SoundClick(u"");
        back.Click = [&] { ++clicks; };
    });
    Enter(back);
    PressSpace();
    gui::Click(gui::CentreOf(back.Base.hWnd()));
    ASSERT_TRUE(Becomes([&] { return clicks == 2; }));
    // The access key clicks without a sound in any case.
    m_Ui.Run([&] { back.SoundClick(u"on"); });
    gui::Key(VK_MENU, false);
    gui::Type('B');
    gui::Key(VK_MENU, true);
    ASSERT_TRUE(Becomes([&] { return clicks == 3; }));
    // The right button neither.
    gui::Press(MOUSEEVENTF_RIGHTDOWN);
    gui::Press(MOUSEEVENTF_RIGHTUP);
    m_Ui.Settle();
    EXPECT_TRUE(gui::ReadAll(gui::Recording()).empty());
    modSound::PlayEffect(modSound::kComplete); // the device does record
    EXPECT_TRUE(WaitUntilHeard(Samples(u"Complete.wav")));
    EXPECT_FALSE(Heard(Samples(u"Over.wav")));
    EXPECT_FALSE(Heard(Samples(u"click.wav")));
}

class ButtonSound : public gui::SoundTest {};

TEST_F(ButtonSound, OverPlaysWhenTheMouseComesIn) {
    EXPECT_EQ(gui::RunCase("ButtonSoundChild.DISABLED_Over"), 0);
    EXPECT_FALSE(Heard(Samples(u"click.wav")));
}

TEST_F(ButtonSound, ClickPlaysBehindTheHandler) {
    EXPECT_EQ(gui::RunCase("ButtonSoundChild.DISABLED_Click"), 0);
    EXPECT_FALSE(Heard(Samples(u"Over.wav")));
}

TEST_F(ButtonSound, AnyTextSwitchesItOnAndAnEmptyOneOff) {
    EXPECT_EQ(gui::RunCase("ButtonSoundChild.DISABLED_AnyText"), 0);
    // Once only: nothing was heard over the button that is switched off.
    const std::string heard = gui::ReadAll(gui::Recording()), over = Samples(u"Over.wav");
    const std::size_t first = heard.find(over);
    ASSERT_NE(first, std::string::npos);
    EXPECT_EQ(heard.find(over, first + 1), std::string::npos);
}

TEST_F(ButtonSound, EmptySwitchesAndAccessKeysAreSilent) {
    EXPECT_EQ(gui::RunCase("ButtonSoundChild.DISABLED_Silent"), 0);
}

} // namespace
