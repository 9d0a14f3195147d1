// A shaped form: its region at every DPI, its outline, its ground.
#include "controls/Label.h"
#include "controls/Painting.h"
#include "windows/FormTest.h"
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
    EXPECT_EQ(WindowFromPoint({place.left + 100, place.top + 100}), window);
    SetDpi(192);
    GetWindowRect(window, &place);
    EXPECT_NE(WindowFromPoint({place.left + 8, place.top + 8}), window);
}

TEST_F(ShapedFormTest, TheOutlineRunsAlongTheRegion) {
    const HWND window = m_Shown->Window.Base.hWnd();
    const gui::Pixels ground = On([&] { return gui::ClientOf(window); });
    EXPECT_EQ(ground.At(150, 1), palette::Outline);
    EXPECT_NE(ground.At(150, 2), palette::Outline);
    EXPECT_EQ(ground.At(1, 150), palette::Outline);
    EXPECT_EQ(ground.At(20, 150), palette::Brand); // what the form painted over the gradient
    SetDpi(192);
    const gui::Pixels twice = On([&] { return gui::ClientOf(window); });
    EXPECT_EQ(twice.At(300, 3), palette::Outline); // two pixels
    EXPECT_EQ(twice.At(300, 2), palette::Outline);
    EXPECT_NE(twice.At(300, 4), palette::Outline);
    EXPECT_EQ(twice.At(40, 300), palette::Brand);
}

TEST_F(ShapedFormTest, AHandlerThatPaintsTheGroundMayPaintItAnew) {
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

TEST_F(ShapedFormTest, AMovedFormKnowsItsPlace) {
    m_Ui.Run([&] {
        Form& form = m_Shown->Window;
        SetWindowPos(form.Base.hWnd(), nullptr, 40, 50, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        EXPECT_EQ(form.Base.Left(), 600);
        EXPECT_EQ(form.Base.Top(), 750);
        form.Base.Top(form.Base.Top() + 2300); // 153.3 pixels
        RECT place;
        GetWindowRect(form.Base.hWnd(), &place);
        EXPECT_EQ(place.top, 203);
        EXPECT_EQ(form.Base.Top(), 3050);
        int resized = 0;
        form.Resize = [&] { ++resized; };
        ShowWindow(form.Base.hWnd(), SW_MINIMIZE);
        ShowWindow(form.Base.hWnd(), SW_RESTORE);
        EXPECT_EQ(resized, 2);
        EXPECT_EQ(form.Base.Top(), 3050); // an icon's place is not the form's
    });
}

TEST_F(ShapedFormTest, AnUnknownShapeIsRefused) {
    m_Ui.Run([] {
        Form form;
        EXPECT_THROW(form.Create(u"form\nf\t\tfrmOdd\tform\t\t\t900\t900\t\t\tShape=999\n"), RuntimeFailure);
    });
}

} // namespace
