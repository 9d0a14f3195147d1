// Paste box and result box: any text as plain text in one font, what screen readers are told.
#include "windows/RichBoxForm.h"

namespace {

using gui::Chord, gui::FormatAt, gui::PutOnClipboard;
using Boxes = gui::Boxes;

TEST_F(Boxes, TextThatLooksLikeRtfStaysText) {
    gui::BoxesForm& form = *m_Shown;
    const std::u16string rtf = u"{\\rtf1\\ansi\\b bold}";
    m_Ui.Run([&] {
        form.Paste.Text(rtf);
        form.Result.Text(rtf);
        EXPECT_EQ(form.Paste.Text(), rtf);
        EXPECT_EQ(form.Result.Text(), rtf);
        form.Paste.Base.SetFocus();
        form.Paste.Text(u"");
    });
    PutOnClipboard("", rtf);
    Chord(VK_CONTROL, 'V');
    EXPECT_TRUE(Becomes([&] { return form.Paste.Text() == rtf; }));
}

TEST_F(Boxes, LineEndsComeBackAsCrLf) {
    gui::BoxesForm& form = *m_Shown;
    m_Ui.Run([&] {
        form.Result.Text(u"a\rb\nc\r\nd");
        EXPECT_EQ(form.Result.Text(), u"a\r\nb\r\nc\r\nd");
        form.Result.Text(std::u16string(u"before\0behind", 13));
        EXPECT_EQ(form.Result.Text(), u"before");
        form.Result.Text(u"");
        EXPECT_EQ(form.Result.Text(), u"");
    });
}

TEST_F(Boxes, OddCharactersComeBackAsTheyWere) {
    gui::BoxesForm& form = *m_Shown;
    const std::u16string text = u"\xD800 \U0001F600 \xDC00 &a\t|\u200C\u200D\uFEFF";
    m_Ui.Run([&] {
        form.Paste.Text(text);
        form.Result.Text(text);
        EXPECT_EQ(form.Paste.Text(), text);
        EXPECT_EQ(form.Result.Text(), text);
        form.Paste.Text(u"");
        form.Paste.Base.SetFocus();
    });
    PutOnClipboard("", text);
    Chord(VK_CONTROL, 'V');
    EXPECT_TRUE(Becomes([&] { return form.Paste.Text() == text; }));
}

TEST_F(Boxes, AHiddenBoxStaysHiddenWhenItGetsAText) {
    m_Ui.Run([&] {
        m_Shown->Paste.Base.Visible(false);
        m_Shown->Paste.Text(u"x");
        EXPECT_FALSE(IsWindowVisible(m_Shown->Paste.Base.hWnd()));
        EXPECT_EQ(m_Shown->Paste.Text(), u"x");
    });
}

TEST_F(Boxes, AFontIsThatOfTheWholeText) {
    gui::BoxesForm& form = *m_Shown;
    m_Ui.Run([&] {
        form.Result.Text(u"Latin \u0995\u09BE \u2020");
        form.Result.Base.Font({u"Liberation Serif", 16, false, false});
        for (const LONG at : {0, 6, 9}) {
            const CHARFORMAT2W format = FormatAt(form.Result.Base.hWnd(), at, at + 1);
            EXPECT_EQ(std::u16string(Units(format.szFaceName)), u"Liberation Serif") << at;
            EXPECT_NEAR(format.yHeight, 16 * 20, 10) << at;
        }
        form.Result.Base.Font({u"No Such Face", 16, false, false});
        EXPECT_EQ(form.Result.Text(), u"Latin \u0995\u09BE \u2020");
    });
}

TEST_F(Boxes, EnterMakesALineAndTabLeaves) {
    gui::BoxesForm& form = *m_Shown;
    m_Ui.Run([&] { form.Paste.Base.SetFocus(); });
    gui::Type('A');
    gui::Type(VK_RETURN);
    gui::Type('B');
    EXPECT_TRUE(Becomes([&] { return form.Paste.Text() == u"a\r\nb"; }));
    gui::Type(VK_TAB);
    EXPECT_TRUE(FocusComesTo(form.Result.Base));
    EXPECT_EQ(On([&] { return form.Paste.Text(); }), u"a\r\nb");
}

TEST_F(Boxes, ScreenReadersGetNameTextAndChanges) {
    gui::BoxesForm& form = *m_Shown;
    std::unique_ptr<gui::HeardEvents> heard;
    m_Ui.Run([&] {
        heard = std::make_unique<gui::HeardEvents>();
        form.Paste.Text(u"read me");
        form.Paste.Locked(true);
        form.Result.Text(u"");
    });
    const gui::Spoken paste = Said(form.Paste.Base), result = Said(form.Result.Base);
    EXPECT_EQ(paste.Name, u"Paste here:");
    EXPECT_EQ(paste.Role, ROLE_SYSTEM_TEXT);
    EXPECT_EQ(paste.Value, u"read me");
    EXPECT_TRUE(paste.State & STATE_SYSTEM_FOCUSABLE);
    EXPECT_EQ(result.Name, u"Converted text");
    EXPECT_EQ(result.Children, 0);
    EXPECT_GE(heard->Count(EVENT_OBJECT_VALUECHANGE, form.Paste.Base.hWnd()), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_STATECHANGE, form.Paste.Base.hWnd()), 1);
    m_Ui.Run([&] { heard.reset(); });
}

} // namespace
