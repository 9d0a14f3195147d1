// Text boxes, combos, labels, frames, lines and pictures: values, keys, look at every DPI
// and under high contrast, what screen readers are told.
#include "controls/ComboBox.h"
#include "controls/Dpi.h"
#include "controls/FieldFrame.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/Painting.h"
#include "controls/PictureBox.h"
#include "controls/TextBox.h"
#include "windows/FormTest.h"
#include "windows/Pixels.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmFields\tform\t\t\t6000\t4500\tFields\t\tBackColor=FrameTop; BackColor2=FrameBottom\n"
    u"f\tfrmFields\tLabelSuffix\tlabel\t150\t150\t1200\t360\t&Suffix:\t\t\n"
    u"f\tfrmFields\tSuffix\ttext\t1500\t150\t2250\t360\t- Unicode\t1\t\n"
    u"f\tfrmFields\tLabelPass\tlabel\t150\t600\t1200\t360\tPassword:\t\t\n"
    u"f\tfrmFields\tPass\tpassword\t1500\t600\t2250\t360\t\t2\tPasswordChar=*\n"
    u"f\tfrmFields\tLabelSize\tlabel\t150\t1050\t1200\t360\tSize:\t\tForeColor=Muted; Align=right\n"
    u"f\tfrmFields\tSize\tcombo\t1500\t1050\t2250\t360\t\t3\t\n"
    u"f\tfrmFields\tBox\tframe\t150\t1500\t4500\t1500\t\t\tBackColor=Tint; BorderColor=Line\n"
    u"f\tBox\tInside\ttext\t1500\t150\t2250\t360\t\t4\tAccessibleName=Folder\n"
    u"f\tBox\tClear\tlabel\t150\t150\t1200\t360\tOn tint\t\t\n"
    u"f\tfrmFields\tLine1\tline\t150\t3150\t4500\t15\t\t\t\n"
    u"f\tfrmFields\tWarn\tpicture\t150\t3300\t240\t240\t\t\tPicture=warn; AccessibleName=Warning\n"
    u"f\tfrmFields\tOrnament\tpicture\t600\t3300\t240\t240\t\t\tPicture=warn\n"
    u"f\tfrmFields\tStatus\tlabel\t1500\t3300\t900\t300\tShort\t\tEndEllipsis=yes\n";

struct FieldsForm {
    Form Window;
    Label LabelSuffix, Clear, Status;
    TextBox Suffix, Pass, Inside;
    ComboBox Size;
    Frame Box;
    PictureBox Warn;
    FieldsForm() {
        Window.Bind(u"LabelSuffix", LabelSuffix).Bind(u"Clear", Clear).Bind(u"Status", Status);
        Window.Bind(u"Suffix", Suffix).Bind(u"Pass", Pass).Bind(u"Inside", Inside).Bind(u"Size", Size);
        Window.Bind(u"Box", Box).Bind(u"Warn", Warn).Create(kLayout);
        for (const char16_t* size : {u"8", u"10", u"12"}) Size.AddItem(size);
        Window.Show();
    }
};

using Fields = gui::FormTest<FieldsForm>;

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
    FieldsForm& form = *m_Shown;
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
    FieldsForm& form = *m_Shown;
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

TEST_F(Fields, ALongTextIsTakenWhole) {
    FieldsForm& form = *m_Shown;
    const std::u16string text(100'000, u'\x0995');
    m_Ui.Run([&] { form.Suffix.Text(text); });
    EXPECT_EQ(On([&] { return form.Suffix.Text(); }), text);
}

TEST_F(Fields, OddTextsAreTakenAsTheyAre) {
    FieldsForm& form = *m_Shown;
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

TEST_F(Fields, APasswordIsHidden) {
    FieldsForm& form = *m_Shown;
    m_Ui.Run([&] { form.Pass.Text(u"secret"); });
    EXPECT_EQ(On([&] { return form.Pass.Text(); }), u"secret");
    const gui::Spoken said = Said(form.Pass.Base);
    EXPECT_EQ(said.Name, u"Password:");
    EXPECT_EQ(said.Value, u"");
    EXPECT_TRUE(said.State & STATE_SYSTEM_PROTECTED);
}

TEST_F(Fields, AComboTellsEachChoiceOnce) {
    FieldsForm& form = *m_Shown;
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
    FieldsForm& form = *m_Shown;
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

TEST_F(Fields, TheFieldsBorderFollowsFocusStateAndDpi) {
    FieldsForm& form = *m_Shown;
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        m_Ui.Run([&] { form.Suffix.Base.SetFocus(); });
        const auto border = [&](const TextBox& box) {
            return On([&] {
                RECT place;
                GetWindowRect(box.Base.hWnd(), &place);
                return gui::Drawn(WidthOf(place), HeightOf(place), [&](HDC dc) {
                    SendMessageW(box.Base.hWnd(), WM_PRINT, reinterpret_cast<WPARAM>(dc), PRF_NONCLIENT);
                });
            });
        };
        const int hair = dpi < 192 ? 1 : 2, two = (2 * dpi + 48) / 96;
        const gui::Pixels idle = border(form.Inside);
        EXPECT_EQ(idle.Width, ToPixels(150 + 3750, dpi) - ToPixels(150 + 1500, dpi));
        EXPECT_EQ(idle.At(0, 0), palette::FieldBorder) << dpi;
        EXPECT_EQ(idle.At(hair - 1, idle.Height / 2), palette::FieldBorder);
        EXPECT_EQ(idle.At(hair, idle.Height / 2), palette::Card);
        EXPECT_EQ(idle.At(idle.Width - 1, idle.Height - 1), palette::FieldBorder);
        const gui::Pixels focused = border(form.Suffix);
        EXPECT_EQ(focused.At(two - 1, focused.Height / 2), palette::FocusNeutral) << dpi;
        EXPECT_EQ(focused.At(two, focused.Height / 2), palette::Card);
        m_Ui.Run([&] { form.Suffix.Base.Enabled(false); });
        EXPECT_EQ(border(form.Suffix).At(0, 0), palette::Line);
        m_Ui.Run([&] { form.Suffix.Base.Enabled(true); });
        // The text stays where it is: the border lies outside it.
        RECT window, client;
        GetWindowRect(form.Suffix.Base.hWnd(), &window);
        GetClientRect(form.Suffix.Base.hWnd(), &client);
        EXPECT_LT(HeightOf(client), HeightOf(window) - 2 * two);
    }
}

TEST_F(Fields, UnderHighContrastTheSystemsColoursRule) {
    FieldsForm& form = *m_Shown;
    SetHighContrast(true);
    const gui::Pixels ground = On([&] { return gui::ClientOf(form.Window.Base.hWnd()); });
    EXPECT_EQ(ground.At(3, 3), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(ground.At(3, 290), GetSysColor(COLOR_WINDOW)); // no gradient
    const gui::Pixels box = On([&] { return gui::ClientOf(form.Box.Base.hWnd()); });
    EXPECT_EQ(box.At(0, 0), GetSysColor(COLOR_WINDOWTEXT));
    EXPECT_EQ(box.At(2, 2), GetSysColor(COLOR_WINDOW));
    const gui::Pixels label = On([&] { return gui::ClientOf(form.LabelSuffix.Base.hWnd()); });
    EXPECT_GT(label.Count(GetSysColor(COLOR_WINDOWTEXT)), 5);
    SetHighContrast(false);
    EXPECT_EQ(On([&] { return gui::ClientOf(form.Box.Base.hWnd()); }).At(2, 2), palette::Tint);
}

TEST_F(Fields, SystemColoursAreFollowedLive) {
    FieldsForm& form = *m_Shown;
    SetHighContrast(true);
    const INT index = COLOR_WINDOW;
    const COLORREF before = GetSysColor(index), black = RGB(0, 0, 32);
    m_Ui.Run([&] {
        SetSysColors(1, &index, &black);
        SendMessageW(form.Window.Base.hWnd(), WM_SYSCOLORCHANGE, 0, 0);
    });
    EXPECT_EQ(On([&] { return gui::ClientOf(form.Box.Base.hWnd()); }).At(2, 2), black);
    EXPECT_EQ(On([&] { return gui::ClientOf(form.Window.Base.hWnd()); }).At(3, 3), black);
    SetSysColors(1, &index, &before);
}

TEST_F(Fields, ALabelStandsOnItsContainersGround) {
    FieldsForm& form = *m_Shown;
    const gui::Pixels onTint = On([&] { return gui::ClientOf(form.Clear.Base.hWnd()); });
    EXPECT_EQ(onTint.At(onTint.Width - 1, 0), palette::Tint);
    // On the form's gradient it has the very pixels that lie there.
    const gui::Pixels form1 = On([&] { return gui::ClientOf(form.Window.Base.hWnd()); });
    const gui::Pixels onForm = On([&] { return gui::ClientOf(form.LabelSuffix.Base.hWnd()); });
    for (int y = 0; y < onForm.Height; ++y)
        EXPECT_EQ(onForm.At(onForm.Width - 1, y), form1.At(Px(10) + onForm.Width - 1, Px(10) + y));
    EXPECT_NE(form1.At(Px(10), Px(10)), form1.At(Px(10), Px(280)));
}

TEST_F(Fields, LabelsTakeAnyCaption) {
    FieldsForm& form = *m_Shown;
    std::u16string words;
    while (words.size() < 100'000) words += u"word ";
    for (const std::u16string& caption :
         {std::u16string(), std::u16string(u"&"), std::u16string(u"&&"), std::u16string(u"a&"),
          std::u16string(u"a && b &c"), std::u16string(100'000, u'&'), std::u16string(100'000, u'w'),
          words}) {
        m_Ui.Run([&] {
            form.Clear.Caption(caption);
            gui::ClientOf(form.Clear.Base.hWnd());
        });
        EXPECT_EQ(On([&] { return WindowText(form.Clear.Base.hWnd()); }), caption);
    }
    m_Ui.Run([&] { form.Clear.Caption(u"a && b &c&"); });
    EXPECT_EQ(Said(form.Clear.Base).Name, u"a & b c");
}

TEST_F(Fields, AOneLineLabelStandsInTheMiddleALongOneBeginsAtTheTop) {
    const FontHandle font(UiFont(), 96);
    const auto inkRows = [&](std::u16string_view caption) {
        const gui::Pixels drawn = gui::Drawn(
            80, 60,
            [&](HDC dc) {
                DrawLabel(dc, {0, 0, 80, 60}, {.Caption = caption, .Font = font.Get(), .ForeColor = 0});
            },
            RGB(255, 255, 255));
        int first = -1, last = -1;
        for (int y = 0; y < 60; ++y) {
            if (drawn.Count(RGB(255, 255, 255), {0, y, 80, y + 1}) == 80) continue;
            if (first < 0) first = y;
            last = y;
        }
        return std::pair{first, last};
    };
    const auto [top, bottom] = inkRows(u"Hg");
    EXPECT_NEAR(top, 59 - bottom, 4);
    EXPECT_LT(inkRows(u"Hg Hg Hg Hg Hg Hg Hg").first, 6);
}

TEST_F(Fields, LinesAreNeverThinnerThanAHairLine) {
    FieldsForm& form = *m_Shown;
    for (const auto& [dpi, height] : {std::pair{96, 1}, {120, 1}, {144, 1}, {192, 2}}) {
        SetDpi(dpi);
        RECT client;
        GetClientRect(form.Window.Find(u"Line1")->hWnd(), &client);
        EXPECT_EQ(HeightOf(client), height) << dpi;
    }
}

TEST_F(Fields, NoNameIsEmptyForWhatIsNoOrnament) {
    FieldsForm& form = *m_Shown;
    for (const Control* control : form.Window.Controls()) {
        const gui::Spoken said = Said(*control);
        const bool ornament = said.State & STATE_SYSTEM_INVISIBLE;
        if (control->Kind().Container) continue;
        EXPECT_NE(said.Name.empty(), !ornament) << text::ToUtf8(control->FullName());
        EXPECT_NE(said.Role, 0);
    }
    EXPECT_EQ(Said(form.Warn.Base).Name, u"Warning");
    EXPECT_EQ(Said(form.Warn.Base).Role, ROLE_SYSTEM_GRAPHIC);
    EXPECT_TRUE(Said(*form.Window.Find(u"Ornament")).State & STATE_SYSTEM_INVISIBLE);
    // The form and the frame tell what they hold.
    EXPECT_EQ(Said(form.Window.Base).Children, 11);
    EXPECT_EQ(Said(form.Box.Base).Children, 2);
    EXPECT_EQ(Said(form.Box.Base).Role, ROLE_SYSTEM_GROUPING);
}

TEST_F(Fields, ChangesAreToldToScreenReaders) {
    FieldsForm& form = *m_Shown;
    std::unique_ptr<gui::HeardEvents> heard;
    m_Ui.Run([&] {
        heard = std::make_unique<gui::HeardEvents>();
        form.Suffix.Base.SetFocus();
        form.Pass.Base.SetFocus();
        form.Suffix.Text(u"new");
        form.Size.ListIndex(2);
        form.Clear.Caption(u"Another");
        form.Inside.Base.Enabled(false);
        form.Box.Base.Visible(false);
    });
    EXPECT_EQ(heard->Count(EVENT_OBJECT_FOCUS, form.Pass.Base.hWnd()), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_VALUECHANGE, form.Suffix.Base.hWnd()), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_VALUECHANGE, form.Size.Base.hWnd()), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_NAMECHANGE, form.Clear.Base.hWnd()), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_STATECHANGE, form.Inside.Base.hWnd()), 1);
    EXPECT_EQ(heard->Count(EVENT_OBJECT_HIDE, form.Box.Base.hWnd()), 1);
    m_Ui.Run([&] { heard.reset(); });
}

TEST_F(Fields, WhatStandsInADisabledFrameIsDisabledToo) {
    FieldsForm& form = *m_Shown;
    m_Ui.Run([&] { form.Box.Base.Enabled(false); });
    EXPECT_TRUE(On([&] { return form.Inside.Base.Enabled(); })); // its own flag
    EXPECT_FALSE(IsWindowEnabled(form.Inside.Base.hWnd()));
    EXPECT_TRUE(Said(form.Inside.Base).State & STATE_SYSTEM_UNAVAILABLE);
    m_Ui.Run([&] { form.Box.Base.Enabled(true); });
    EXPECT_TRUE(IsWindowEnabled(form.Inside.Base.hWnd()));
}

TEST_F(Fields, APaintIsOneBlitAndNothingElse) {
    FieldsForm& form = *m_Shown;
    m_Ui.Run([&] {
        UpdateWindow(form.Window.Base.hWnd());
        const PaintTally before = PaintsSoFar();
        for (int i = 0; i < 20; ++i) {
            form.Clear.Caption(text::Decimal(i));
            form.Clear.Base.Refresh();
        }
        EXPECT_EQ(PaintsSoFar().Paints - before.Paints, 20);
        EXPECT_EQ(PaintsSoFar().Blits - before.Blits, 20);
        // The erase message is answered without a mark on the context.
        const gui::Pixels erased = gui::Drawn(20, 20, [&](HDC dc) {
            EXPECT_NE(SendMessageW(form.Clear.Base.hWnd(), WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0),
                      0);
        });
        EXPECT_EQ(erased.Count(RGB(255, 0, 255)), 400);
    });
}

TEST_F(Fields, AFontIsAValueAndItsChangeRepaints) {
    FieldsForm& form = *m_Shown;
    m_Ui.Run([&] {
        Font font = form.Clear.Base.Font();
        font.Underline = true;
        EXPECT_FALSE(form.Clear.Base.Font().Underline);
        UpdateWindow(form.Window.Base.hWnd());
        form.Clear.Base.Font(font);
        RECT dirty;
        EXPECT_TRUE(GetUpdateRect(form.Clear.Base.hWnd(), &dirty, FALSE));
        EXPECT_TRUE(form.Clear.Base.Font().Underline);
        form.Clear.Base.Font({u"No Such Face", 12, false, false}); // the system finds another
        EXPECT_NE(form.Clear.Base.FontInUse(), nullptr);
    });
}

} // namespace
