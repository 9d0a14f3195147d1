// What stands on the screen of a control that has moved is what it would paint there.
#include "controls/AdvProgressBar.h"
#include "controls/CheckBox.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/TavrelButton.h"
#include "windows/FormTest.h"
#include "windows/Stale.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmMoved\tform\t\t\t4500\t4500\tMoved\t\tBackColor=Tint; BackColor2=Brand\n"
    u"f\tfrmMoved\tBox\tframe\t150\t150\t1500\t750\t\t\t\n"
    u"f\tBox\tTitle\tlabel\t150\t150\t1200\t300\tTitle\t\t\n"
    u"f\tfrmMoved\tTick\tCheckBox\t150\t1200\t1500\t300\tTick\t1\t\n"
    u"f\tfrmMoved\tGo\tTavrelButton\t150\t1800\t1500\t450\tGo\t2\tButtonStyle=3\n"
    u"f\tfrmMoved\tBar\tAdvProgressBar\t150\t2550\t1500\t300\t\t\tAccessibleName=Bar\n";

struct MovedForm {
    Form Window;
    Frame Box;
    Label Title;
    CheckBox Tick;
    TavrelButton Go;
    AdvProgressBar Bar;
    MovedForm() {
        Window.Bind(u"Box", Box).Bind(u"Title", Title).Bind(u"Tick", Tick).Bind(u"Go", Go).Bind(u"Bar", Bar);
        Window.Create(kLayout);
        Window.Show();
    }
};

class Moved : public gui::FormTest<MovedForm> {
protected:
    std::string Stale() {
        return On([&] { return gui::Stale(m_Shown->Window); });
    }
    SIZE SizeOf(const Control& control) {
        RECT client{};
        GetClientRect(control.hWnd(), &client);
        return {client.right, client.bottom};
    }
};

TEST_F(Moved, OnAGradientTheGroundIsThatOfTheNewPlace) {
    ASSERT_EQ(Stale(), "");
    for (Control* control : {&m_Shown->Box.Base, &m_Shown->Tick.Base}) {
        m_Ui.Run([&] { control->Move(2'400, 3'000, control->Width(), control->Height()); });
        EXPECT_EQ(Stale(), "");
    }
}

// Edges are rounded as they lie on the form: as much in twips is a pixel more or less elsewhere.
TEST_F(Moved, APixelMoreOrLessIsAnotherSize) {
    for (Control* control :
         {&m_Shown->Box.Base, &m_Shown->Tick.Base, &m_Shown->Go.Base, &m_Shown->Bar.Base}) {
        const SIZE before = SizeOf(*control);
        bool rounded = false;
        for (int twips = 1; twips < 20; ++twips) {
            m_Ui.Run([&] {
                control->Move(150 + twips, control->Top() + 1, control->Width() + (twips == 1 ? 5 : 0),
                              control->Height() + (twips == 1 ? 5 : 0));
            });
            const SIZE now = SizeOf(*control);
            rounded = rounded || now.cx != before.cx || now.cy != before.cy;
            ASSERT_EQ(Stale(), "") << twips;
        }
        EXPECT_TRUE(rounded);
    }
}

// A button of style 3 has a region of its window's size.
TEST_F(Moved, AButtonsRegionFollowsItsPixels) {
    const Control& button = m_Shown->Go.Base;
    for (int twips = 0; twips < 20; ++twips) {
        m_Ui.Run([&] { m_Shown->Go.Base.Move(150 + twips, 1'800 + twips, 1'505, 455); });
        RECT region{};
        ASSERT_NE(GetWindowRgnBox(button.hWnd(), &region), ERROR);
        EXPECT_EQ(region.right, SizeOf(button).cx) << twips;
        EXPECT_EQ(region.bottom, SizeOf(button).cy) << twips;
    }
}

} // namespace
