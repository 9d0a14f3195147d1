// What is pasted into a paste box and copied from it: plain Unicode of any length.
#include "windows/RichBoxForm.h"

namespace {

using gui::Chord, gui::FormatAt, gui::kRtf, gui::PutOnClipboard;
using Boxes = gui::Boxes;

TEST_F(Boxes, CtrlVOfRichTextTakesThePlainTextOnly) {
    gui::BoxesForm& form = *m_Shown;
    const std::u16string legacy = u"Avgvi \u2020mvbvi evsjv\r\n\u0986\u09AE\u09BE\u09B0";
    m_Ui.Run([&] { form.Paste.Base.SetFocus(); });
    PutOnClipboard(kRtf, legacy);
    Chord(VK_CONTROL, 'V');
    EXPECT_TRUE(Becomes([&] { return form.Paste.Text() == legacy; }));
    m_Ui.Run([&] {
        const LONG end = GetWindowTextLengthW(form.Paste.Base.hWnd());
        const CHARFORMAT2W first = FormatAt(form.Paste.Base.hWnd(), 0, 3);
        const CHARFORMAT2W whole = FormatAt(form.Paste.Base.hWnd(), 0, end);
        EXPECT_FALSE(first.dwEffects & CFE_BOLD);
        // One face and one size all over, that of the box.
        EXPECT_TRUE(whole.dwMask & CFM_FACE);
        EXPECT_TRUE(whole.dwMask & CFM_SIZE);
        EXPECT_EQ(std::u16string(Units(whole.szFaceName)), form.Paste.Base.Font().Name);
    });
}

TEST_F(Boxes, ShiftInsertAndTheMenusPasteDoTheSame) {
    gui::BoxesForm& form = *m_Shown;
    m_Ui.Run([&] { form.Paste.Base.SetFocus(); });
    PutOnClipboard(kRtf, u"plain");
    Chord(VK_SHIFT, VK_INSERT);
    EXPECT_TRUE(Becomes([&] { return form.Paste.Text() == u"plain"; }));
    m_Ui.Run([&] {
        form.Paste.Text(u"");
        SendMessageW(form.Paste.Base.hWnd(), WM_PASTE, 0, 0);
        EXPECT_EQ(form.Paste.Text(), u"plain");
    });
}

TEST_F(Boxes, RichTextWithoutPlainTextIsNotTaken) {
    gui::BoxesForm& form = *m_Shown;
    m_Ui.Run([&] { form.Paste.Base.SetFocus(); });
    PutOnClipboard(kRtf, u"");
    Chord(VK_CONTROL, 'V');
    gui::Type('A');
    EXPECT_TRUE(Becomes([&] { return !form.Paste.Text().empty(); }));
    EXPECT_EQ(On([&] { return form.Paste.Text(); }), u"a");
}

TEST_F(Boxes, APasteReplacesTheSelectionAndCanBeUndone) {
    gui::BoxesForm& form = *m_Shown;
    m_Ui.Run([&] {
        form.Paste.Text(u"one two");
        form.Paste.Base.SetFocus();
        SendMessageW(form.Paste.Base.hWnd(), EM_SETSEL, 0, 3);
    });
    PutOnClipboard(kRtf, u"1");
    Chord(VK_CONTROL, 'V');
    EXPECT_TRUE(Becomes([&] { return form.Paste.Text() == u"1 two"; }));
    Chord(VK_CONTROL, 'Z');
    EXPECT_TRUE(Becomes([&] { return form.Paste.Text() == u"one two"; }));
}

TEST_F(Boxes, TwoHundredThousandCharactersGoInAndOutWhole) {
    gui::BoxesForm& form = *m_Shown;
    std::u16string text;
    for (int i = 0; i < 2'000; ++i)
        text += std::u16string(98, static_cast<char16_t>(0x0985 + i % 50)) + u"\r\n";
    ASSERT_EQ(text.size(), 200'000u);
    m_Ui.Run([&] { form.Paste.Base.SetFocus(); });
    PutOnClipboard("", text);
    Chord(VK_CONTROL, 'V');
    EXPECT_TRUE(Becomes([&] { return form.Paste.Text() == text; }));
    m_Ui.Run([&] { form.Result.Text(text); });
    EXPECT_TRUE(On([&] { return form.Result.Text() == text; }));
}

TEST_F(Boxes, PasteWaitsForAProgramThatHoldsTheClipboardForAMoment) {
    gui::BoxesForm& form = *m_Shown;
    m_Ui.Run([&] { form.Paste.Base.SetFocus(); });
    PutOnClipboard(kRtf, u"held");
    const auto hold = [] { return gui::WaitUntil([] { return OpenClipboard(nullptr) != 0; }); };
    ASSERT_TRUE(hold());
    Chord(VK_CONTROL, 'V');
    Sleep(150);
    CloseClipboard();
    EXPECT_TRUE(Becomes([&] { return form.Paste.Text() == u"held"; }));
    // One that never lets go: nothing is taken, nothing is lost.
    ASSERT_TRUE(hold());
    m_Ui.Run([&] { SendMessageW(form.Paste.Base.hWnd(), WM_PASTE, 0, 0); });
    CloseClipboard();
    EXPECT_EQ(On([&] { return form.Paste.Text(); }), u"held");
}

TEST_F(Boxes, ALockedBoxTakesNeitherKeysNorPastes) {
    gui::BoxesForm& form = *m_Shown;
    EXPECT_FALSE(On([&] { return form.Paste.Locked(); }));
    m_Ui.Run([&] {
        form.Paste.Text(u"kept");
        form.Paste.Locked(true);
        form.Paste.Base.SetFocus();
    });
    PutOnClipboard(kRtf, u"pasted");
    gui::Type('A');
    Chord(VK_CONTROL, 'V');
    Chord(VK_SHIFT, VK_INSERT);
    gui::Type(VK_DELETE);
    gui::Type(VK_TAB); // behind all of them
    EXPECT_TRUE(FocusComesTo(form.Result.Base));
    EXPECT_TRUE(Said(form.Paste.Base).State & STATE_SYSTEM_READONLY);
    m_Ui.Run([&] {
        SendMessageW(form.Paste.Base.hWnd(), WM_PASTE, 0, 0);
        EXPECT_EQ(form.Paste.Text(), u"kept");
        form.Paste.Text(u"by code"); // the lock stops the user, not the program
        EXPECT_EQ(form.Paste.Text(), u"by code");
        form.Paste.Locked(false);
        form.Paste.Base.SetFocus();
    });
    gui::Type('A');
    EXPECT_TRUE(Becomes([&] { return form.Paste.Text() == u"aby code"; })) << text::ToUtf8(form.Paste.Text());
    EXPECT_FALSE(Said(form.Paste.Base).State & STATE_SYSTEM_READONLY);
}

// In a process of its own: the system's OLE clipboard belongs to the first thread that used it.
TEST(BoxesAlone, TheClipboardFlowTakesTheTextByKeys) {
    EXPECT_EQ(gui::RunCase("Boxes.DISABLED_TextIsCopiedByKeys"), 0);
}

TEST_F(Boxes, DISABLED_TextIsCopiedByKeys) {
    gui::BoxesForm& form = *m_Shown;
    m_Ui.Run([&] {
        form.Paste.Text(u"line 1\r\n\r\n\u09951");
        form.Paste.Base.SetFocus();
    });
    PutOnClipboard("", u"before");
    const DWORD before = GetClipboardSequenceNumber();
    Chord(VK_CONTROL, 'A');
    Chord(VK_CONTROL, 'C');
    // Looked at only then: a clipboard that is held open cannot be copied to.
    ASSERT_TRUE(Becomes([&] { return GetClipboardSequenceNumber() != before; }));
    m_Ui.Settle();
    std::u16string copied;
    EXPECT_TRUE(gui::WaitUntil([&] {
        if (!OpenClipboard(nullptr)) return false;
        const HANDLE block = GetClipboardData(CF_UNICODETEXT);
        copied = block ? std::u16string(static_cast<const char16_t*>(GlobalLock(block))) : u"";
        CloseClipboard();
        return copied.starts_with(u"line 1\r\n\r\n\u09951");
    })) << text::ToUtf8(copied);
}

} // namespace
