// Text boxes and combos: values, keys and events.
#include "windows/FieldsForm.h"
#include "windows/Pixels.h"

namespace {

using Fields = gui::Fields;

// A suffix may not hold what file names may not: the form's filter, as it will be used.
void Filter(TextBox& box) {
    const int caret = box.SelStart();
    std::u16string kept;
    for (const char16_t unit : box.Text()) {
        if (std::u16string_view(u"/\\:?<>|*\"").find(unit) == std::u16string_view::npos) kept += unit;
    }
    box.Text(kept);
    box.SelStart(caret);
}

TEST_F(Fields, TypedTextRaisesChangeAndAFilterMayWriteItBack) {
    gui::FieldsForm& form = *m_Shown;
    int changes = 0;
    m_Ui.Run([&] {
        form.Suffix.Text(u"");
        form.Suffix.Change = [&] {
            ++changes;
            Filter(form.Suffix);
        };
        form.Suffix.Base.SetFocus();
    });
    gui::Type('A');
    ASSERT_TRUE(Becomes([&] { return form.Suffix.Text() == u"a"; }));
    EXPECT_EQ(changes, 1);
    m_Ui.Run([&] { form.Suffix.Text(u"a/b:c"); });
    EXPECT_EQ(On([&] { return form.Suffix.Text(); }), u"abc");
    // One for the text, one for the filter's own; the same text again is no change.
    EXPECT_EQ(changes, 3);
}

TEST_F(Fields, TheCaretStaysWhereItWas) {
    gui::FieldsForm& form = *m_Shown;
    m_Ui.Run([&] {
        form.Suffix.Change = [&] { Filter(form.Suffix); };
        form.Suffix.Text(u"abc");
        form.Suffix.SelStart(2);
        // The user types a colon there: the position counts it, the text does not.
        SendMessageW(form.Suffix.Base.hWnd(), WM_CHAR, ':', 1);
        EXPECT_EQ(form.Suffix.Text(), u"abc");
        EXPECT_EQ(form.Suffix.SelStart(), 3);
        form.Suffix.SelStart(99);
        EXPECT_EQ(form.Suffix.SelStart(), 3);
        form.Suffix.SelStart(-1);
        EXPECT_EQ(form.Suffix.SelStart(), 0);
        form.Suffix.SelLength(2);
        EXPECT_EQ(form.Suffix.SelStart(), 0);
        EXPECT_EQ(form.Suffix.SelLength(), 2);
        form.Suffix.SelLength(50);
        EXPECT_EQ(form.Suffix.SelLength(), 3);
    });
}

// The characters that come to the system's procedure in the boxes made from now on.
std::u16string g_Reached;
WNDPROC g_System = nullptr;
LRESULT CALLBACK NoteCharacters(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CHAR) g_Reached += static_cast<char16_t>(wParam);
    return CallWindowProcW(g_System, window, message, wParam, lParam);
}

// The system answers both with a beep, in a form where they press no button.
TEST_F(Fields, EnterAndEscInABoxAreNotTheSystems) {
    const auto put = [this](WNDPROC procedure) {
        return On([&] {
            return reinterpret_cast<WNDPROC>(SetClassLongPtrW(m_Shown->Suffix.Base.hWnd(), GCLP_WNDPROC,
                                                              reinterpret_cast<LONG_PTR>(procedure)));
        });
    };
    g_System = put(NoteCharacters);
    m_Ui.Run([&] {
        m_Shown.reset();
        m_Shown = std::make_unique<gui::FieldsForm>();
        m_Shown->Suffix.Base.SetFocus();
        g_Reached.clear();
    });
    EXPECT_TRUE(gui::Activate(m_Shown->Window.Base.hWnd()));
    for (const int key : {VK_RETURN, VK_ESCAPE, int{'A'}}) gui::Type(static_cast<WORD>(key));
    EXPECT_TRUE(Becomes([&] { return !g_Reached.empty() && g_Reached.back() == u'a'; }));
    EXPECT_EQ(g_Reached, u"a");
    EXPECT_EQ(On([&] { return m_Shown->Suffix.Text(); }), u"a- Unicode");
    put(g_System);
}

TEST_F(Fields, ALongTextIsTakenWhole) {
    gui::FieldsForm& form = *m_Shown;
    const std::u16string text(100'000, u'\x0995');
    m_Ui.Run([&] { form.Suffix.Text(text); });
    EXPECT_EQ(On([&] { return form.Suffix.Text(); }), text);
}

TEST_F(Fields, OddTextsAreTakenAsTheyAre) {
    gui::FieldsForm& form = *m_Shown;
    for (const std::u16string& text :
         {std::u16string(100'000, u'w'), std::u16string(u"&a && b&"), std::u16string(u"a|b\tc"),
          std::u16string(u"\xD800 \U0001F600 \xDC00"), std::u16string()}) {
        m_Ui.Run([&] {
            for (TextBox* box : {&form.Suffix, &form.Pass}) {
                box->Text(text);
                EXPECT_TRUE(box->Text() == text) << text.size();
            }
            form.Size.AddItem(text);
            form.Size.ListIndex(form.Size.ListCount() - 1);
            EXPECT_TRUE(form.Size.Text() == text) << text.size();
            gui::ClientOf(form.Size.Base.hWnd());
        });
    }
    m_Ui.Run([&] {
        form.Suffix.Text(std::u16string(u"ends\0here", 9));
        EXPECT_EQ(form.Suffix.Text(), u"ends");
        form.Size.AddItem(std::u16string(u"ends\0here", 9));
        EXPECT_EQ(form.Size.List(form.Size.ListCount() - 1), u"ends");
        form.Suffix.Base.Font({u"No Such Face", 12, false, false});
        form.Size.Base.Font({std::u16string(200, u'n'), 12, false, false});
        EXPECT_EQ(form.Suffix.Text(), u"ends");
    });
}

TEST_F(Fields, ATextBoxMayBeDestroyedInsideItsOwnEvent) {
    struct Own {
        Form Window;
        std::unique_ptr<TextBox> Box = std::make_unique<TextBox>();
        Own() {
            Window.Bind(u"Box", *Box)
                .Create(u"form\nf\t\tfrmOwn\tform\t\t\t6000\t3000\tOwn\t\t\n"
                        u"f\tfrmOwn\tBox\ttext\t150\t150\t1650\t360\t\t1\tAccessibleName=B\n");
            Box->Change = [this] { Box.reset(); };
            Window.Show();
            Box->Base.SetFocus();
        }
    };
    for (int round = 0; round < 20; ++round) {
        std::unique_ptr<Own> own;
        m_Ui.Run([&] { own = std::make_unique<Own>(); });
        if (round > 0) {
            m_Ui.Run([&] { SendMessageW(own->Box->Base.hWnd(), WM_CHAR, u'a', 1); });
        } else {
            ASSERT_TRUE(gui::Activate(own->Window.Base.hWnd()));
            gui::Type('A');
        }
        EXPECT_TRUE(Becomes([&] { return !own->Box; })) << round;
        m_Ui.Run([&] { own.reset(); });
    }
}

TEST_F(Fields, AComboTellsEachChoiceOnce) {
    gui::FieldsForm& form = *m_Shown;
    int clicks = 0;
    m_Ui.Run([&] {
        form.Size.Click = [&] { ++clicks; };
        EXPECT_EQ(form.Size.ListCount(), 3);
        EXPECT_EQ(form.Size.ListIndex(), -1);
        EXPECT_EQ(form.Size.Text(), u"");
        form.Size.ListIndex(1);
        EXPECT_EQ(form.Size.Text(), u"10");
        form.Size.ListIndex(1);
        form.Size.ListIndex(3);
        form.Size.ListIndex(-2);
        EXPECT_EQ(form.Size.ListIndex(), 1);
        EXPECT_EQ(form.Size.List(5), u"");
        form.Size.Base.SetFocus();
    });
    EXPECT_EQ(clicks, 1);
    gui::Type(VK_DOWN);
    EXPECT_TRUE(Becomes([&] { return clicks == 2; }));
    EXPECT_EQ(On([&] { return form.Size.ListIndex(); }), 2);
}

TEST_F(Fields, ADroppedListKeepsEnterAndEsc) {
    gui::FieldsForm& form = *m_Shown;
    const HWND combo = form.Size.Base.hWnd();
    const auto dropped = [combo] { return SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0) != 0; };
    m_Ui.Run([&] {
        form.Window.Closing = [] { ADD_FAILURE() << "closed"; };
        form.Size.Base.SetFocus();
        SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
    });
    EXPECT_TRUE(Said(form.Size.Base).State & STATE_SYSTEM_EXPANDED);
    gui::Type(VK_DOWN);
    gui::Type(VK_RETURN);
    EXPECT_TRUE(Becomes([&] { return !dropped(); }));
    EXPECT_EQ(On([&] { return form.Size.ListIndex(); }), 0);
    EXPECT_TRUE(Said(form.Size.Base).State & STATE_SYSTEM_COLLAPSED);
    EXPECT_EQ(Said(form.Size.Base).Value, u"8");
    m_Ui.Run([&] { EXPECT_EQ(gui::DoDefault(combo), S_OK); });
    EXPECT_TRUE(On(dropped));
    gui::Type(VK_ESCAPE);
    EXPECT_TRUE(Becomes([&] { return !dropped(); }));
}

} // namespace
