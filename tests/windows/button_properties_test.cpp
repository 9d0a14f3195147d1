// TavrelButton: captions, properties and their limits, the cursor, what screen readers are told.
#include "windows/ButtonForm.h"

namespace {

class Button : public gui::ButtonTest {};

TEST_F(Button, AmpersandsAtEveryPlace) {
    struct Case {
        std::u16string_view Caption;
        std::u16string_view Name;
        char16_t Key;
    };
    const Case cases[] = {
        {u"", u"", 0},        {u"&", u"", 0},         {u"a", u"a", 0},
        {u"&&", u"&", 0},     {u"a&", u"a", 0},       {u"&a", u"a", u'a'},
        {u"&&a", u"&a", 0},   {u"&&&a", u"&a", u'a'}, {u"a&&b&C", u"a&bC", u'c'},
        {u"a& b", u"a b", 0}, {u"&A&B", u"AB", u'a'},
    };
    TavrelButton& back = *m_Shown->Back;
    for (const Case& tried : cases) {
        int clicks = 0;
        m_Ui.Run([&] {
            back.Caption(tried.Caption);
            back.Click = [&] { ++clicks; };
            gui::ClientOf(back.Base.hWnd());
            MSG key{};
            key.hwnd = back.Base.hWnd();
            key.message = WM_SYSCHAR;
            for (const char16_t letter : u"abcAB &") {
                if (!letter) break;
                const int before = clicks;
                key.wParam = letter;
                m_Shown->Text.Base.SetFocus(); // the button in question is the next one behind it
                if (letter != u'B') Forms::Filter(key);
                const bool mine = letter == tried.Key || (letter == u'A' && tried.Key == u'a');
                EXPECT_EQ(clicks - before, letter != u'B' && mine ? 1 : 0)
                    << text::ToUtf8(tried.Caption) << " " << static_cast<int>(letter);
            }
            EXPECT_EQ(WindowText(back.Base.hWnd()), tried.Caption);
        });
        EXPECT_EQ(Said(back.Base).Name, tried.Name) << text::ToUtf8(tried.Caption);
    }
}

TEST_F(Button, CaptionsOfAnyLength) {
    TavrelButton& back = *m_Shown->Back;
    std::u16string words;
    while (words.size() < 100'000) words += u"word & ";
    for (const std::u16string& caption : {std::u16string(100'000, u'w'), std::u16string(100'000, u'&'),
                                          std::u16string(100'000, u' '), words}) {
        m_Ui.Run([&] {
            back.Caption(caption);
            gui::ClientOf(back.Base.hWnd());
            EXPECT_EQ(back.Caption(), caption);
            EXPECT_EQ(WindowText(back.Base.hWnd()), caption);
        });
    }
}

TEST_F(Button, PropertiesHaveTheirDefaults) {
    const TavrelButton& plain = m_Shown->Plain;
    EXPECT_EQ(plain.BackColor(), 0x8000000Fu);
    EXPECT_EQ(plain.ForeColor(), 0x80000012u);
    EXPECT_TRUE(plain.ShowFocusRect());
    EXPECT_EQ(plain.PicturePosition(), 1);
    EXPECT_EQ(plain.PictureSize(), 1);
    EXPECT_EQ(plain.PictureWidth(), 32);
    EXPECT_EQ(plain.PictureHeight(), 32);
    EXPECT_TRUE(plain.Picture().Empty());
    EXPECT_TRUE(plain.XPDefaultColors());
    EXPECT_EQ(plain.XPColor_Pressed(), 0x80000014u);
    EXPECT_EQ(plain.XPColor_Hover(), 0x80000016u);
    EXPECT_TRUE(plain.DefCurHand());
    EXPECT_FALSE(plain.TransparentBG());
    EXPECT_TRUE(plain.SoundOver().ends_with(u"\\over.wav"));
    EXPECT_TRUE(plain.SoundClick().ends_with(u"\\click.wav"));
}

TEST_F(Button, ValuesOutsideTheirRangeAreRefused) {
    TavrelButton& plain = m_Shown->Plain;
    m_Ui.Run([&] {
        for (const int style : {-1, 0, 2, 5, 1000}) EXPECT_THROW(plain.ButtonStyle(style), RuntimeFailure);
        for (const int size : {-32'769, 32'768}) {
            EXPECT_THROW(plain.PictureWidth(size), RuntimeFailure);
            EXPECT_THROW(plain.PictureHeight(size), RuntimeFailure);
        }
        EXPECT_EQ(plain.ButtonStyle(), 3);
        for (const int value : {-1, 4}) {
            EXPECT_THROW(plain.PicturePosition(value), RuntimeFailure);
            EXPECT_THROW(plain.PictureSize(value), RuntimeFailure);
        }
        EXPECT_EQ(plain.PicturePosition(), 1);
        EXPECT_EQ(plain.PictureSize(), 1);
    });
}

TEST_F(Button, ASideBelowTenPixelsIsSetBack) {
    TavrelButton& plain = m_Shown->Plain;
    m_Ui.Run([&] {
        plain.Base.Width(149);
        EXPECT_EQ(plain.Base.Width(), 150);
        EXPECT_EQ(plain.Base.Height(), 450);
        plain.Base.Height(0);
        EXPECT_EQ(plain.Base.Height(), 150);
        plain.Base.Move(0, 0, -300, 600);
        EXPECT_EQ(plain.Base.Width(), 150);
        EXPECT_EQ(plain.Base.Height(), 600);
        plain.Base.Move(0, 0, 150, 150);
        RECT client;
        GetClientRect(plain.Base.hWnd(), &client);
        EXPECT_EQ(client.right, Px(10));
        EXPECT_EQ(client.bottom, Px(10));
    });
}

TEST_F(Button, TheCursorIsAHandUnlessSwitchedOff) {
    const HCURSOR hand = LoadCursorW(nullptr, MAKEINTRESOURCEW(32649));
    const auto shown = [&] {
        return On([&] {
            SetCursor(nullptr);
            SendMessageW(m_Shown->Plain.Base.hWnd(), WM_SETCURSOR,
                         reinterpret_cast<WPARAM>(m_Shown->Plain.Base.hWnd()),
                         MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
            return GetCursor();
        });
    };
    EXPECT_EQ(shown(), hand);
    m_Ui.Run([&] { m_Shown->Plain.DefCurHand(false); });
    EXPECT_NE(shown(), hand);
}

TEST_F(Button, IsToldToScreenReaders) {
    TavrelButton& back = *m_Shown->Back;
    const gui::Spoken idle = Said(back.Base);
    EXPECT_EQ(idle.Name, u"Go Back");
    EXPECT_EQ(idle.Role, ROLE_SYSTEM_PUSHBUTTON);
    EXPECT_EQ(idle.DefaultAction, u"Press");
    EXPECT_TRUE(idle.State & STATE_SYSTEM_FOCUSABLE);
    EXPECT_FALSE(idle.State & (STATE_SYSTEM_PRESSED | STATE_SYSTEM_HOTTRACKED | STATE_SYSTEM_DEFAULT));
    EXPECT_EQ(Said(m_Shown->Tools.Base).Name, u"Tools and Options");
    EXPECT_EQ(Said(m_Shown->Closer.Base).Name, u"Close");

    std::unique_ptr<gui::HeardEvents> heard;
    m_Ui.Run([&] {
        m_Shown->Text.Base.SetFocus();
        heard = std::make_unique<gui::HeardEvents>();
    });
    Enter(back);
    EXPECT_TRUE(Said(back.Base).State & STATE_SYSTEM_HOTTRACKED);
    gui::Press(MOUSEEVENTF_LEFTDOWN);
    EXPECT_TRUE(Becomes([&] { return back.State().Pressed; }));
    EXPECT_TRUE(Said(back.Base).State & STATE_SYSTEM_PRESSED);
    gui::Press(MOUSEEVENTF_LEFTUP);
    EXPECT_TRUE(Becomes([&] { return !back.State().Pressed; }));
    EXPECT_FALSE(Said(back.Base).State & STATE_SYSTEM_PRESSED);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_STATECHANGE, back.Base.hWnd()), 2);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_FOCUS, back.Base.hWnd()), 1);
    m_Ui.Run([&] { heard.reset(); });

    int clicks = 0;
    m_Ui.Run([&] {
        back.Click = [&] { ++clicks; };
        EXPECT_EQ(gui::DoDefault(back.Base.hWnd()), S_OK);
        EXPECT_EQ(clicks, 1);
        back.Base.Enabled(false);
        EXPECT_NE(gui::DoDefault(back.Base.hWnd()), S_OK);
        EXPECT_EQ(clicks, 1);
        m_Shown->Window.DefaultButton = &m_Shown->Main.Base;
    });
    EXPECT_TRUE(Said(back.Base).State & STATE_SYSTEM_UNAVAILABLE);
    EXPECT_TRUE(Said(m_Shown->Main.Base).State & STATE_SYSTEM_DEFAULT);
}

} // namespace
