// The look of fields, labels, frames and lines at every DPI and under high contrast.
#include "controls/Dpi.h"
#include "controls/FieldFrame.h"
#include "controls/Painting.h"
#include "windows/FieldsForm.h"
#include "windows/Pixels.h"

namespace {

using Fields = gui::Fields;

TEST_F(Fields, TheFieldsBorderFollowsFocusStateAndDpi) {
    gui::FieldsForm& form = *m_Shown;
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
    gui::FieldsForm& form = *m_Shown;
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
    gui::FieldsForm& form = *m_Shown;
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
    gui::FieldsForm& form = *m_Shown;
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
    gui::FieldsForm& form = *m_Shown;
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
    gui::FieldsForm& form = *m_Shown;
    for (const auto& [dpi, height] : {std::pair{96, 1}, {120, 1}, {144, 1}, {192, 2}}) {
        SetDpi(dpi);
        RECT client;
        GetClientRect(form.Window.Find(u"Line1")->hWnd(), &client);
        EXPECT_EQ(HeightOf(client), height) << dpi;
    }
}

TEST_F(Fields, APaintIsOneBlitAndNothingElse) {
    gui::FieldsForm& form = *m_Shown;
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
    gui::FieldsForm& form = *m_Shown;
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
