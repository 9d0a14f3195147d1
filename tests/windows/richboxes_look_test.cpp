// Paste box and result box: border, margins and colours.
#include "controls/Dpi.h"
#include "controls/Painting.h"
#include "windows/Pixels.h"
#include "windows/RichBoxForm.h"

namespace {

using gui::FormatAt;
using Boxes = gui::Boxes;

TEST_F(Boxes, TheBorderTellsTheFocusAtEveryDpi) {
    gui::BoxesForm& form = *m_Shown;
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        m_Ui.Run([&] { form.Paste.Base.SetFocus(); });
        const auto border = [&](const Control& box) {
            return On([&] {
                RECT place;
                GetWindowRect(box.hWnd(), &place);
                return gui::Drawn(place.right - place.left, place.bottom - place.top, [&](HDC dc) {
                    SendMessageW(box.hWnd(), WM_PRINT, reinterpret_cast<WPARAM>(dc), PRF_NONCLIENT);
                });
            });
        };
        const int two = (2 * dpi + 48) / 96;
        const gui::Pixels focused = border(form.Paste.Base), idle = border(form.Result.Base);
        EXPECT_EQ(idle.Width, ToPixels(3855, dpi) - ToPixels(150, dpi));
        EXPECT_EQ(idle.At(0, idle.Height / 2), palette::FieldBorder) << dpi;
        EXPECT_EQ(focused.At(two - 1, focused.Height / 2), palette::FocusNeutral) << dpi;
        EXPECT_EQ(focused.At(two, focused.Height / 2), palette::Card) << dpi;
    }
}

TEST_F(Boxes, TheTextStandsOffTheBorderAtEveryDpi) {
    gui::BoxesForm& form = *m_Shown;
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        for (const Control* box : {&form.Paste.Base, &form.Result.Base}) {
            RECT window, text;
            POINT inside{};
            GetWindowRect(box->hWnd(), &window);
            m_Ui.Run([&] {
                SendMessageW(box->hWnd(), EM_GETRECT, 0, reinterpret_cast<LPARAM>(&text));
                ClientToScreen(box->hWnd(), &inside);
            });
            EXPECT_EQ(inside.x - window.left + text.left, Scaled(3, dpi) + Scaled(7, dpi)) << dpi;
            EXPECT_EQ(inside.y - window.top + text.top, Scaled(3, dpi) + Scaled(4, dpi)) << dpi;
        }
    }
}

TEST_F(Boxes, ColoursFollowStateAndContrast) {
    gui::BoxesForm& form = *m_Shown;
    const auto ground = [&] {
        return On([&] {
            const HWND box = form.Paste.Base.hWnd();
            form.Paste.Base.Refresh();
            const HDC dc = GetDC(box);
            const COLORREF colour = GetPixel(dc, 1, 60);
            ReleaseDC(box, dc);
            return colour;
        });
    };
    const auto ink = [&] { return On([&] { return FormatAt(form.Paste.Base.hWnd(), 0, 1).crTextColor; }); };
    m_Ui.Run([&] { form.Paste.Text(u"W"); });
    EXPECT_EQ(ground(), palette::Card);
    EXPECT_EQ(ink(), palette::Ink);
    m_Ui.Run([&] { form.Paste.Base.Enabled(false); });
    EXPECT_EQ(ground(), palette::DisabledGround);
    EXPECT_EQ(ink(), palette::DisabledText);
    m_Ui.Run([&] { form.Paste.Base.Enabled(true); });
    SetHighContrast(true);
    EXPECT_EQ(ground(), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(ink(), GetSysColor(COLOR_WINDOWTEXT));
    SetHighContrast(false);
    EXPECT_EQ(ground(), palette::Card);
}

TEST_F(Boxes, NothingIsErasedAndThePaintFillsTheGround) {
    gui::BoxesForm& form = *m_Shown;
    m_Ui.Run([&] {
        const HWND box = form.Paste.Base.hWnd();
        const gui::Pixels erased = gui::Drawn(20, 20, [&](HDC dc) {
            EXPECT_NE(SendMessageW(box, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0), 0);
        });
        EXPECT_EQ(erased.Count(RGB(255, 0, 255)), 400);
        form.Paste.Text(u"x");
        RECT client;
        GetClientRect(box, &client);
        const HDC dc = GetDC(box);
        FillRectangle(dc, client, RGB(255, 0, 255));
        form.Paste.Base.Refresh();
        int left = 0;
        for (int y = 0; y < client.bottom; y += 3) {
            for (int x = 0; x < client.right; x += 3) left += GetPixel(dc, x, y) == RGB(255, 0, 255);
        }
        ReleaseDC(box, dc);
        EXPECT_EQ(left, 0);
    });
}

} // namespace
