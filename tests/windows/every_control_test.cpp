// What holds for every control: calls before its window and after its form's end, disabling,
// what code may do while it is disabled, the ground of its frame.
#include "base/DoEvents.h"
#include "controls/Painting.h"
#include "windows/EveryForm.h"
#include "windows/Pixels.h"

namespace {

using Every = gui::FormTest<gui::EveryForm>;

TEST_F(Every, ControlKeepsAnsweringWhatAllShareAfterUnload) {
    m_Ui.Run([&] {
        Form& form = m_Shown->Window;
        form.Unload();
        EXPECT_EQ(form.Controls().size(), 18u);
        for (Control* control : form.Controls()) {
            SCOPED_TRACE(text::ToUtf8(control->FullName()));
            EXPECT_EQ(control->hWnd(), nullptr);
            control->Move(15, 30, 450, 600);
            EXPECT_EQ(control->Left() + control->Top() + control->Width() + control->Height(), 1095);
            control->Enabled(false);
            EXPECT_FALSE(control->Enabled());
            control->Enabled(true);
            control->Visible(false);
            EXPECT_FALSE(control->Visible());
            control->Visible(true);
            control->Caption(u"&Other");
            EXPECT_EQ(control->Caption(), u"&Other");
            control->ToolTipText(u"Tip");
            EXPECT_EQ(control->ToolTipText(), u"Tip");
            control->Font(StrongFont());
            EXPECT_EQ(control->Font(), StrongFont());
            control->ZOrder();
            control->SetFocus();
            control->Invalidate();
            control->Refresh();
            control->Notify(EVENT_OBJECT_STATECHANGE);
            EXPECT_FALSE(control->HasFocus());
            EXPECT_FALSE(control->Usable());
            EXPECT_FALSE(control->SpokenName().empty());
        }
        form.Show();
        form.Hide();
        form.RefreshGround();
        form.Unload();
        EXPECT_FALSE(EventFrame::Ending());
    });
}

TEST_F(Every, ControlKeepsAnsweringItsOwnCallsAfterUnload) {
    m_Ui.Run([&] {
        gui::EveryForm& form = *m_Shown;
        form.Window.Unload();
        // What is the control's own stays, what was its window's has gone.
        form.Text->Text(u"x");
        form.Text->SelStart(1);
        form.Text->SelLength(1);
        form.Text->PasswordChar(u'*');
        EXPECT_EQ(form.Text->Text(), u"");
        EXPECT_EQ(form.Text->SelStart() + form.Text->SelLength(), 0);
        form.Choice->AddItem(u"four");
        form.Choice->ListIndex(0);
        EXPECT_EQ(form.Choice->ListCount(), 0);
        EXPECT_EQ(form.Choice->Text(), u"");
        form.Choice->Clear();
        form.Rows.AddItem(u"four");
        form.Rows.ListIndex(3);
        form.Rows.Refresh();
        EXPECT_EQ(form.Rows.Text(), u"four");
        form.Rows.Remove(-1);
        form.Rows.Clear();
        EXPECT_EQ(form.Rows.ListCount(), 0);
        form.Table.AddItem(u"a", u"b");
        form.Table.Text(0, 1, u"c");
        form.Table.ListIndex(0);
        form.Table.EnsureVisible(0);
        form.Table.Remove(0);
        EXPECT_EQ(form.Table.FindItem(u"a"), -1);
        form.Table.Clear();
        EXPECT_EQ(form.Table.ListCount(), 0);
        form.Ticks.AddItem(u"four", UiFont());
        form.Ticks.Checked(3, true);
        form.Ticks.ListIndex(3);
        EXPECT_TRUE(form.Ticks.Checked(3));
        form.Ticks.Clear();
        EXPECT_EQ(form.Ticks.ListCount(), 0);
        form.Paste.Text(u"x");
        form.Paste.Locked(true);
        EXPECT_EQ(form.Paste.Text(), u"");
        form.Result.Text(u"x");
        EXPECT_EQ(form.Result.Text(), u"");
        form.Faces.AddItem(u"four", UiFont());
        form.Faces.ListIndex(0);
        form.Faces.Text(u"x");
        form.Faces.SelectAll();
        form.Faces.DropDownWidth(300);
        EXPECT_EQ(form.Faces.Find(u"FOUR"), 3);
        form.Faces.Clear();
        EXPECT_EQ(form.Faces.ListCount(), 0);
        form.Bar.Max(10);
        form.Bar.Value(20);
        EXPECT_EQ(form.Bar.Value(), 10);
        form.Tick.Value(1);
        EXPECT_EQ(form.Tick.Value(), 1);
        form.Task[1].Value(true);
        form.Task[0].Value(true);
        EXPECT_FALSE(form.Task[1].Value());
        form.Go->ButtonStyle(kStyleFlat);
        form.Go->Primary(true);
        form.Box.BackColor(RGB(1, 2, 3));
        form.Title->ForeColor(RGB(1, 2, 3));
        form.Image->Picture(Picture());
        form.Clock->Enabled(true);
        form.Clock->Enabled(false);
        EXPECT_FALSE(EventFrame::Ending());
    });
}

// Without its window a control has nothing to draw. Where its handle were taken as it is, the system
// would draw the whole screen anew.
TEST_F(Every, ControlAfterUnloadLetsOtherFormsBe) {
    m_Ui.Run([&] {
        gui::EveryForm other;
        gui::EveryForm& form = *m_Shown;
        form.Window.Unload();
        DoEvents();
        const auto paints = PaintsSoFar().Paints;
        form.Paste.Text(u"x");
        form.Result.Text(u"x");
        form.Table.Header(0, u"Other");
        form.Table.Clear();
        form.Ticks.AddItem(u"four", UiFont());
        form.Ticks.ListIndex(3);
        form.Rows.AddItem(u"four");
        form.Bar.Value(7);
        form.Go->Primary(true);
        form.Title->ForeColor(RGB(1, 2, 3));
        for (Control* control : form.Window.Controls()) {
            control->Enabled(false);
            control->Move(15, 30, 450, 600);
            control->Font(StrongFont());
            control->Invalidate();
            control->Refresh();
        }
        form.Window.RefreshGround();
        DoEvents();
        EXPECT_EQ(PaintsSoFar().Paints, paints);
    });
}

TEST_F(Every, ControlBeforeItsWindowLetsOtherFormsBe) {
    m_Ui.Run([&] {
        DoEvents();
        auto paints = PaintsSoFar().Paints;
        const auto calm = [&](Control& control) {
            control.Caption(u"&Other");
            control.Enabled(false);
            control.Visible(false);
            control.Move(15, 30, 450, 600);
            control.Font(StrongFont());
            control.ZOrder();
            control.Invalidate();
            control.Refresh();
            DoEvents();
            EXPECT_EQ(PaintsSoFar().Paints, paints) << text::ToUtf8(control.TypeName());
            paints = PaintsSoFar().Paints;
        };
        PasteBox paste;
        paste.Text(u"x");
        paste.Locked(true);
        calm(paste.Base);
        ResultBox result;
        result.Text(u"x");
        calm(result.Base);
        TwoColumnList table;
        table.Header(0, u"Other");
        table.Clear();
        calm(table.Base);
        CheckList ticks;
        ticks.AddItem(u"one", UiFont());
        ticks.Checked(0, true);
        ticks.ListIndex(0);
        calm(ticks.Base);
        McListBox rows;
        rows.AddItem(u"one");
        rows.ListIndex(0);
        rows.Refresh();
        calm(rows.Base);
        FontCombo faces;
        faces.AddItem(u"one", UiFont());
        faces.Text(u"x");
        calm(faces.Base);
        AdvProgressBar bar;
        bar.Value(7);
        calm(bar.Base);
        TavrelButton go;
        go.Primary(true);
        calm(go.Base);
        CheckBox tick;
        tick.Value(1);
        calm(tick.Base);
        Label title;
        title.ForeColor(RGB(1, 2, 3));
        calm(title.Base);
        Frame box;
        box.BackColor(RGB(1, 2, 3));
        calm(box.Base);
    });
}

TEST_F(Every, ControlDisabledAndEnabledAgainIsAsBefore) {
    gui::EveryForm& form = *m_Shown;
    const auto enableAll = [&](bool enabled) {
        m_Ui.Run([&] {
            for (Control* control : form.Window.Controls()) control->Enabled(enabled);
        });
    };
    const auto look = [&] {
        return On([&] {
            form.Go->Base.SetFocus();
            return gui::WindowOf(form.Window.Base.hWnd());
        });
    };
    int clicks = 0;
    m_Ui.Run([&] { form.Go->Click = [&] { ++clicks; }; });
    const gui::Pixels before = look();
    enableAll(false);
    EXPECT_TRUE(Becomes([&] { return GetFocus() == form.Window.Base.hWnd(); }));
    EXPECT_FALSE(On([&] { return gui::WindowOf(form.Window.Base.hWnd()); }) == before);
    gui::Click(gui::CentreOf(form.Go->Base.hWnd()));
    gui::MoveTo({1, 1});
    gui::Type(VK_TAB);
    gui::Type(VK_SPACE);
    m_Ui.Settle();
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(On([] { return GetFocus(); }), form.Window.Base.hWnd());
    enableAll(true);
    gui::Type(VK_TAB);
    EXPECT_TRUE(FocusComesTo(form.Go->Base));
    gui::Type(VK_SPACE);
    EXPECT_TRUE(Becomes([&] { return clicks == 1; }));
    EXPECT_TRUE(look() == before);
}

// Enabled stops the user, not the program.
TEST_F(Every, ControlThatIsDisabledStillDoesWhatCodeSays) {
    m_Ui.Run([&] {
        gui::EveryForm& form = *m_Shown;
        for (Control* control : form.Window.Controls()) control->Enabled(false);
        int changes = 0, choices = 0, selections = 0;
        form.Text->Change = [&] { ++changes; };
        form.Choice->Click = [&] { ++choices; };
        form.Rows.SelChange = [&] { ++selections; };
        form.Text->Text(u"abc");
        EXPECT_EQ(form.Text->Text(), u"abc");
        EXPECT_EQ(changes, 1);
        form.Text->SelStart(1);
        form.Text->SelLength(2);
        EXPECT_EQ(form.Text->SelStart(), 1);
        EXPECT_EQ(form.Text->SelLength(), 2);
        form.Choice->AddItem(u"four");
        form.Choice->ListIndex(3);
        EXPECT_EQ(form.Choice->Text(), u"four");
        EXPECT_EQ(choices, 1);
        form.Choice->Clear();
        EXPECT_EQ(form.Choice->ListCount(), 0);
        form.Rows.ListIndex(2);
        EXPECT_EQ(form.Rows.Text(), u"three");
        EXPECT_EQ(selections, 1);
        EXPECT_EQ(form.Table.AddItem(u"four", u"4"), 3);
        form.Table.ListIndex(3);
        form.Table.Text(3, 1, u"y");
        EXPECT_EQ(form.Table.ListIndex(), 3);
        EXPECT_EQ(form.Table.Text(3, 1), u"y");
        form.Table.Remove(0);
        EXPECT_EQ(form.Table.ListCount(), 3);
        form.Ticks.Checked(1, true);
        EXPECT_TRUE(form.Ticks.Checked(1));
        form.Paste.Text(u"paste");
        EXPECT_EQ(form.Paste.Text(), u"paste");
        form.Result.Text(u"result");
        EXPECT_EQ(form.Result.Text(), u"result");
        form.Faces.ListIndex(1);
        EXPECT_EQ(form.Faces.Text(), u"two");
        form.Faces.Text(u"other");
        EXPECT_EQ(form.Faces.Text(), u"other");
        form.Bar.Max(10);
        form.Bar.Value(5);
        EXPECT_EQ(form.Bar.Value(), 5);
        form.Tick.Value(1);
        EXPECT_EQ(form.Tick.Value(), 1);
        form.Task[1].Value(true);
        EXPECT_TRUE(form.Task[1].Value());
        form.Go->Caption(u"Gone");
        EXPECT_EQ(WindowText(form.Go->Base.hWnd()), u"Gone");
    });
}

TEST_F(Every, ControlTakesALongTextOfWords) {
    std::u16string words;
    while (words.size() < 100'000) words += u"word ";
    m_Ui.Run([&] {
        gui::EveryForm& form = *m_Shown;
        form.Window.Base.Caption(words);
        for (Control* control : form.Window.Controls()) {
            if (!control->Kind().WindowClass) control->Caption(words); // a field's is its text
            control->ToolTipText(words);
        }
        form.Text->Text(words);
        form.Choice->AddItem(words);
        form.Choice->ListIndex(3);
        form.Rows.AddItem(words);
        form.Rows.ListIndex(3);
        form.Rows.Refresh();
        form.Ticks.AddItem(words, UiFont());
        form.Faces.AddItem(words, UiFont());
        form.Faces.Text(words);
        RedrawWindow(form.Window.Base.hWnd(), nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        EXPECT_FALSE(EventFrame::Ending());
        EXPECT_EQ(WindowText(form.Window.Base.hWnd()), words);
        EXPECT_EQ(WindowText(form.Title->Base.hWnd()), words);
        EXPECT_EQ(form.Text->Text(), words);
        EXPECT_EQ(form.Choice->Text(), words);
        EXPECT_EQ(form.Rows.Text(), words);
        EXPECT_EQ(form.Ticks.List(3), words);
        EXPECT_EQ(form.Faces.Text(), words);
    });
}

TEST_F(Every, ControlOnAFrameFollowsItsColour) {
    m_Ui.Run([&] {
        const HWND title = m_Shown->Title->Base.hWnd();
        UpdateWindow(title);
        ASSERT_FALSE(GetUpdateRect(title, nullptr, FALSE));
        m_Shown->Box.BackColor(RGB(10, 200, 30));
        EXPECT_TRUE(GetUpdateRect(title, nullptr, FALSE));
        EXPECT_EQ(gui::ClientOf(title).At(0, 0), RGB(10, 200, 30));
    });
}

} // namespace
