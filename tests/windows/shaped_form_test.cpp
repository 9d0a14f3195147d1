// A shaped form: its region at every DPI, its outline, its ground.
#include "controls/Dpi.h"
#include "controls/Label.h"
#include "controls/Painting.h"
#include "windows/FormTest.h"
#include "windows/Handles.h"
#include "windows/Pixels.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmShaped\tform\t\t\t5550\t4635\tShaped\t\tShape=101; BackColor=FrameTop; BackColor2=FrameBottom; "
    u"OutlineColor=Outline\n"
    u"f\tfrmShaped\tLabelTitle\tlabel\t870\t240\t3750\t390\tTitle\t\tFont=Title\n";

struct ShapedForm {
    Form Window;
    ShapedForm() {
        Window.PaintGround = [this](HDC dc, const RECT&) { // a spine, as the main window has
            FillRectangle(dc, {0, 0, Window.Base.Scaled(34), Window.Base.Scaled(309)}, palette::Brand);
        };
        Window.Create(kLayout);
        Window.Show();
    }
};

using ShapedFormTest = gui::FormTest<ShapedForm>;

RECT RegionBox(HWND window) {
    RECT box{};
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    GetWindowRgn(window, region);
    GetRgnBox(region, &box);
    DeleteObject(region);
    return box;
}

TEST_F(ShapedFormTest, TheRegionFollowsTheDpi) {
    const HWND window = m_Shown->Window.Base.hWnd();
    for (const int dpi : {96, 120, 144, 192}) {
        SetDpi(dpi);
        // Bounds of the shape: 1, 1 to 368, 308 at 96 DPI.
        const RECT box = RegionBox(window);
        EXPECT_NEAR(box.left, dpi / 96.0, 1) << dpi;
        EXPECT_NEAR(box.top, dpi / 96.0, 1) << dpi;
        EXPECT_NEAR(box.right, 368 * dpi / 96.0, 1) << dpi;
        EXPECT_NEAR(box.bottom, 308 * dpi / 96.0, 1) << dpi;
    }
}

TEST_F(ShapedFormTest, TheCutCornersBelongToWhatLiesBehind) {
    const HWND window = m_Shown->Window.Base.hWnd();
    RECT place;
    GetWindowRect(window, &place);
    EXPECT_NE(WindowFromPoint({place.left + 2, place.top + 2}), window);
    EXPECT_EQ(WindowFromPoint({place.left + Px(100), place.top + Px(100)}), window);
    SetDpi(192);
    GetWindowRect(window, &place);
    EXPECT_NE(WindowFromPoint({place.left + 8, place.top + 8}), window);
}

TEST_F(ShapedFormTest, TheOutlineRunsAlongTheRegion) {
    const HWND window = m_Shown->Window.Base.hWnd();
    for (const int dpi : {m_Shown->Window.Dpi(), 96, 192}) {
        SetDpi(dpi);
        const gui::Pixels ground = On([&] { return gui::ClientOf(window); });
        const RECT box = RegionBox(window);
        for (int line = 0; line < Hair(); ++line) {
            EXPECT_EQ(ground.At(Px(150), box.top + line), palette::Outline) << dpi;
            EXPECT_EQ(ground.At(box.left + line, Px(150)), palette::Outline) << dpi;
        }
        EXPECT_NE(ground.At(Px(150), box.top + Hair()), palette::Outline) << dpi;
        EXPECT_EQ(ground.At(Px(20), Px(150)), palette::Brand) << dpi; // painted over the gradient
    }
}

TEST_F(ShapedFormTest, TheGroundIsPaintedOnceForAllThatStandsOnIt) {
    int painted = 0;
    m_Ui.Run([&] {
        m_Shown->Window.PaintGround = [&](HDC, const RECT&) { ++painted; };
        m_Shown->Window.RefreshGround();
        UpdateWindow(m_Shown->Window.Base.hWnd());
        // It is kept for the labels that stand on it.
        m_Shown->Window.Find(u"LabelTitle")->Refresh();
        m_Shown->Window.Find(u"LabelTitle")->Refresh();
    });
    EXPECT_EQ(painted, 1);
}

TEST_F(ShapedFormTest, AHandlerThatPaintsTheGroundMayPaintItAnew) {
    int painted = 0;
    Form& form = m_Shown->Window;
    const auto handler = [&](HDC dc, const RECT& client) {
        ++painted;
        form.RefreshGround(); // it has drawn something else
        FillRectangle(dc, client, palette::Brand);
    };
    m_Ui.Run([&] { form.PaintGround = handler; });
    m_Ui.Run([&] { form.RefreshGround(); });
    m_Ui.Settle();
    EXPECT_EQ(On([&] { return gui::ClientOf(form.Base.hWnd()); }).At(150, 150), palette::Brand);
    m_Ui.Settle();
    EXPECT_EQ(painted, 1); // what is painted just now is the new one
    const gui::Held held = On([&] {
        return gui::LeftBy(50, [&] {
            form.RefreshGround();
            form.Base.Refresh();
        });
    });
    EXPECT_EQ(held.Objects, 0) << held;
}

// Its share comes when it is done.
TEST_F(ShapedFormTest, WhatIsPaintedInsideTheHandlerStandsOnThePlainGround) {
    int painted = 0;
    Form& form = m_Shown->Window;
    Control& title = *form.Find(u"LabelTitle");
    const auto onTitle = [&] { return gui::ClientOf(title.hWnd()).At(0, 0); };
    m_Ui.Run([&] {
        form.PaintGround = [&](HDC dc, const RECT& client) {
            if (++painted > 9) return;
            EXPECT_NE(onTitle(), palette::Brand);
            title.Refresh();
            FillRectangle(dc, client, palette::Brand);
        };
        form.RefreshGround();
        UpdateWindow(form.Base.hWnd());
        EXPECT_EQ(painted, 1);
        EXPECT_EQ(onTitle(), palette::Brand);
    });
    m_Ui.Settle();
    EXPECT_EQ(painted, 1);
    EXPECT_TRUE(Becomes([&] { // it has been painted again
        const HDC screen = GetDC(title.hWnd());
        const COLORREF shown = GetPixel(screen, 0, 0);
        ReleaseDC(title.hWnd(), screen);
        return shown == palette::Brand;
    }));
}

TEST_F(ShapedFormTest, AHandlerMayTakeItselfAway) {
    Form& form = m_Shown->Window;
    m_Ui.Run([&] {
        form.PaintGround = [&form, kept = std::make_shared<COLORREF>(palette::Brand)](HDC dc,
                                                                                      const RECT& client) {
            form.PaintGround = nullptr;
            FillRectangle(dc, client, *kept);
        };
        form.RefreshGround();
        EXPECT_EQ(gui::ClientOf(form.Base.hWnd()).At(150, 150), palette::Brand);
        form.RefreshGround();
        EXPECT_NE(gui::ClientOf(form.Base.hWnd()).At(150, 150), palette::Brand);
    });
}

TEST_F(ShapedFormTest, AMovedFormKnowsItsPlace) {
    m_Ui.Run([&] {
        Form& form = m_Shown->Window;
        SetWindowPos(form.Base.hWnd(), nullptr, 40, 50, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        const int dpi = form.Dpi(), left = 40 * 1440 / dpi, top = 50 * 1440 / dpi;
        EXPECT_EQ(form.Base.Left(), left);
        EXPECT_EQ(form.Base.Top(), top);
        form.Base.Top(top + 2300); // 153.3 pixels at 96 DPI
        RECT place;
        GetWindowRect(form.Base.hWnd(), &place);
        EXPECT_EQ(place.top, ToPixels(top + 2300, dpi));
        EXPECT_EQ(form.Base.Top(), top + 2300);
        int resized = 0;
        form.Resize = [&] { ++resized; };
        ShowWindow(form.Base.hWnd(), SW_MINIMIZE);
        ShowWindow(form.Base.hWnd(), SW_RESTORE);
        EXPECT_EQ(resized, 2);
        EXPECT_EQ(form.Base.Top(), top + 2300); // an icon's place is not the form's
    });
}

TEST_F(ShapedFormTest, AnUnknownShapeIsRefused) {
    m_Ui.Run([] {
        Form form;
        EXPECT_THROW(form.Create(u"form\nf\t\tfrmOdd\tform\t\t\t900\t900\t\t\tShape=999\n"), RuntimeFailure);
    });
}

} // namespace
