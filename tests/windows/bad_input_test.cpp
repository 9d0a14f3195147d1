// What no form should do, and one day does: controls that go inside their own events, fonts
// and pictures that are none, captions of any kind.
#include "controls/AdvProgressBar.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/McListBox.h"
#include "controls/Painting.h"
#include "controls/PictureBox.h"
#include "controls/TextBox.h"
#include "controls/Timer.h"
#include "windows/FormTest.h"
#include "windows/Pixels.h"

#include <limits>

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmBad\tform\t\t\t6000\t4500\tBad\t\tBackColor=FrameTop\n"
    u"f\tfrmBad\tBox\tframe\t150\t150\t2700\t1500\t\t\tBackColor=Card\n"
    u"f\tBox\tTitle\tlabel\t150\t150\t1500\t360\tTitle\t\t\n"
    u"f\tBox\tImage\tpicture\t150\t600\t480\t480\t\t\tPicture=warn\n"
    u"f\tfrmBad\tField\ttext\t150\t1800\t1500\t360\t\t1\tAccessibleName=Field\n"
    u"f\tfrmBad\tList\tMcListBox\t3000\t150\t2700\t1500\t\t2\tAppearance=0; ShowIcon=yes; "
    u"AccessibleName=List\n"
    u"f\tfrmBad\tBar\tAdvProgressBar\t3000\t1800\t1500\t300\t\t\tStyle=2; ShowText=yes; Value=30; "
    u"AccessibleName=Bar\n"
    u"f\tfrmBad\tClock\ttimer\t\t\t\t\t\t\tInterval=10\n";

struct BadForm {
    std::unique_ptr<Form> Owned = std::make_unique<Form>();
    Form& Window = *Owned;
    std::unique_ptr<Frame> Box = std::make_unique<Frame>();
    std::unique_ptr<Label> Title = std::make_unique<Label>();
    std::unique_ptr<PictureBox> Image = std::make_unique<PictureBox>();
    std::unique_ptr<TextBox> Field = std::make_unique<TextBox>();
    std::unique_ptr<McListBox> List = std::make_unique<McListBox>();
    std::unique_ptr<Timer> Clock = std::make_unique<Timer>();
    AdvProgressBar Bar;
    BadForm() {
        Window.Bind(u"Box", *Box).Bind(u"Title", *Title).Bind(u"Image", *Image).Bind(u"Field", *Field);
        Window.Bind(u"List", *List).Bind(u"Clock", *Clock).Bind(u"Bar", Bar);
        Window.Create(kLayout);
        Window.Show();
    }
    ~BadForm() { Owned.reset(); } // in front of the controls
};

class BadInput : public gui::FormTest<BadForm> {
protected:
    void Send(const Control& control, UINT message, WPARAM wParam = 0, LPARAM lParam = MAKELPARAM(5, 5)) {
        SendMessageW(control.hWnd(), message, wParam, lParam);
    }
};

TEST_F(BadInput, ControlsGoInsideTheirOwnEvents) {
    m_Ui.Run([&] {
        BadForm& form = *m_Shown;
        form.Title->MouseDown = [&](int, int, int, int) { form.Title.reset(); };
        Send(form.Title->Base, WM_LBUTTONDOWN);
        EXPECT_EQ(form.Title, nullptr);
        form.Image->MouseDown = [&](int, int, int, int) { form.Image.reset(); };
        Send(form.Image->Base, WM_RBUTTONDOWN);
        EXPECT_EQ(form.Image, nullptr);
        form.Field->Change = [&] { form.Field.reset(); };
        Send(form.Field->Base, WM_CHAR, 'x', 1);
        EXPECT_EQ(form.Field, nullptr);
        form.List->MouseLeave = [&] { form.List.reset(); };
        Send(form.List->Base, WM_MOUSEMOVE);
        Send(form.List->Base, WM_MOUSELEAVE);
        EXPECT_EQ(form.List, nullptr);
        EXPECT_FALSE(EventFrame::Ending());
    });
    m_Ui.Run([&] {
        m_Shown->Clock->Tick = [&] { m_Shown->Clock.reset(); };
        m_Shown->Clock->Enabled(true);
    });
    EXPECT_TRUE(Becomes([&] { return m_Shown->Clock == nullptr; }));
    EXPECT_FALSE(On([] { return EventFrame::Ending(); }));
}

TEST_F(BadInput, APictureBoxGoesWhileItIsPainted) {
    m_Ui.Run([&] {
        BadForm& form = *m_Shown;
        form.Image->Paint = [&](HDC, const RECT&) { form.Image.reset(); };
        const HWND window = form.Image->Base.hWnd();
        InvalidateRect(window, nullptr, FALSE);
        UpdateWindow(window);
        EXPECT_EQ(form.Image, nullptr);
        EXPECT_FALSE(EventFrame::Ending());
    });
}

TEST_F(BadInput, AFrameGoesWithControlsInIt) {
    m_Ui.Run([&] {
        BadForm& form = *m_Shown;
        form.Title->MouseDown = [&](int, int, int, int) { form.Box.reset(); };
        Send(form.Title->Base, WM_LBUTTONDOWN);
        EXPECT_EQ(form.Title->Base.hWnd(), nullptr); // its window went with the frame's
        EXPECT_EQ(form.Title->Base.Container(), nullptr);
        form.Title->Caption(u"still an object");
        form.Title->Base.Visible(false);
        form.Title->Base.Enabled(false);
        form.Title->Base.Move(1, 2, 3, 4);
        form.Title->Base.SetFocus();
        EXPECT_FALSE(EventFrame::Ending());
    });
}

class FormGoesIn : public BadInput, public testing::WithParamInterface<int> {};

TEST_P(FormGoesIn, ItsOwnEvent) {
    m_Ui.Run([&] {
        BadForm& form = *m_Shown;
        const auto go = [&] { form.Owned.reset(); };
        const HWND window = form.Window.Base.hWnd();
        const int other = 2 * form.Window.Dpi();
        // The handler itself must outlive its run.
        std::function<void(HDC, const RECT&)> goAndStay = [&, own = std::make_shared<int>()](HDC,
                                                                                             const RECT&) {
            const std::weak_ptr<int> stays = own;
            go();
            form.Title.reset();
            EXPECT_FALSE(stays.expired());
        };
        switch (GetParam()) {
        case 0:
            form.Window.MouseDown = [&](int, int, int, int) { go(); };
            SendMessageW(window, WM_LBUTTONDOWN, 0, 0);
            break;
        case 1:
            form.Window.Closing = go;
            SendMessageW(window, WM_CLOSE, 0, 0);
            break;
        case 2:
            form.Window.Resize = go;
            form.Window.Base.Width(3000);
            break;
        case 3:
            form.Window.Resize = go; // which comes inside the change of DPI
            SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(other, other), 0);
            break;
        case 4:
            form.Window.PaintGround = std::exchange(goAndStay, nullptr);
            form.Window.RefreshGround();
            UpdateWindow(window);
            break;
        case 5:
            form.Window.PaintGround = std::exchange(goAndStay, nullptr);
            form.Box->BackColor(kNoColour); // what stands on it asks for the form's ground
            form.Window.RefreshGround();
            UpdateWindow(form.Title->Base.hWnd());
            break;
        default:
            form.Window.DpiChanged = go;
            SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(other, other), 0);
            break;
        }
        EXPECT_EQ(form.Owned, nullptr);
        EXPECT_FALSE(IsWindow(window));
        EXPECT_FALSE(EventFrame::Ending());
        m_Shown = std::make_unique<BadForm>();
    });
}
INSTANTIATE_TEST_SUITE_P(EachEvent, FormGoesIn, testing::Range(0, 7));

// The system finds another face; a size that cannot be meant is the system's own.
TEST_F(BadInput, FontsThatAreNone) {
    m_Ui.Run([&] {
        BadForm& form = *m_Shown;
        form.List->AddItem(u"A row", -1, 0, true);
        const double nan = std::numeric_limits<double>::quiet_NaN();
        for (const ::Font& font :
             {::Font{u"No Such Face", 9, false, false}, ::Font{u"", 9, true, true},
              ::Font{std::u16string(100'000, u'x'), 9, false, false}, ::Font{u"Tahoma", 0, false, false},
              ::Font{u"Tahoma", -8, false, false}, ::Font{u"Tahoma", 1e300, false, false},
              ::Font{u"Tahoma", nan, false, false}}) {
            for (Control* control :
                 {&form.Title->Base, &form.Field->Base, &form.List->Base, &form.Bar.Base}) {
                control->Font(font);
                EXPECT_GT(LineHeight(control->FontInUse()), 5);
                EXPECT_LT(LineHeight(control->FontInUse()), 40);
                control->Refresh();
            }
        }
        EXPECT_FALSE(EventFrame::Ending());
    });
}

TEST_F(BadInput, SizesThatNobodyMeans) {
    m_Ui.Run([&] {
        BadForm& form = *m_Shown;
        const int most = std::numeric_limits<int>::max(), least = std::numeric_limits<int>::min();
        for (Control* control : form.Window.Controls()) {
            if (!control->hWnd()) continue;
            SCOPED_TRACE(text::ToUtf8(control->FullName()));
            for (const auto& [at, size] :
                 {std::pair{most, most}, {least, most}, {most, least}, {0, 0}, {0, 15}}) {
                control->Move(at, at, size, size);
                EXPECT_EQ(control->Left(), at);
                EXPECT_EQ(control->Height(), size);
                control->Refresh();
                RedrawWindow(control->hWnd(), nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME | RDW_UPDATENOW);
            }
            control->Move(150, 150, 1500, 600);
        }
        EXPECT_FALSE(EventFrame::Ending());
    });
}

// Far out a control still stands where it should in its container.
TEST_F(BadInput, ContainersThatLieBeyondAllScreens) {
    m_Ui.Run([&] {
        BadForm& form = *m_Shown;
        const Control& title = form.Title->Base;
        RECT before, after;
        GetWindowRect(title.hWnd(), &before);
        MapWindowPoints(nullptr, form.Box->Base.hWnd(), reinterpret_cast<POINT*>(&before), 2);
        form.Box->Base.Left(std::numeric_limits<int>::max());
        form.Box->Base.Top(std::numeric_limits<int>::max());
        GetWindowRect(title.hWnd(), &after);
        MapWindowPoints(nullptr, form.Box->Base.hWnd(), reinterpret_cast<POINT*>(&after), 2);
        EXPECT_NEAR(after.left, before.left, 1);
        EXPECT_NEAR(after.top, before.top, 1);
        EXPECT_NEAR(after.right, before.right, 1);
        EXPECT_NEAR(after.bottom, before.bottom, 1);
    });
}

TEST_F(BadInput, PicturesThatAreNone) {
    m_Ui.Run([&] {
        BadForm& form = *m_Shown;
        McImageList images;
        images.AddNewImage(Picture());
        form.List->AddItem(u"A row", -1, 0);
        form.List->Refresh();
        const gui::Pixels without = gui::ClientOf(form.List->Base.hWnd());
        form.List->ImageList(&images);
        EXPECT_TRUE(gui::ClientOf(form.List->Base.hWnd()) == without);
        form.List->ImageList(nullptr);
        form.Image->Picture(Picture());
        const gui::Pixels empty = gui::ClientOf(form.Image->Base.hWnd());
        EXPECT_EQ(empty.Count(palette::Card), empty.Width * empty.Height);
        form.Image->Base.Move(150, 600, 0, 0);
        form.Image->Picture(Picture::FromResource(u"warn"));
        form.Image->Base.Refresh();
        EXPECT_FALSE(EventFrame::Ending());
    });
}

// A row's text is a name, in which "&" is no sign of an access key.
TEST_F(BadInput, RowsOfAnyText) {
    m_Ui.Run([&] {
        McListBox& list = *m_Shown->List;
        list.AddItem(u"aa");
        list.Refresh();
        const auto inked = [&] {
            const gui::Pixels pixels = gui::ClientOf(list.Base.hWnd());
            return pixels.Width * 22 - pixels.Count(palette::Card, {0, 0, pixels.Width, 22});
        };
        const int plain = inked();
        list.List(0, u"aa&");
        const int behind = inked();
        EXPECT_GT(behind, plain);
        list.List(0, u"&aa");
        EXPECT_EQ(inked(), behind);
        list.List(0, u"aa&&");
        EXPECT_GT(inked(), behind);
        EXPECT_EQ(list.List(0), u"aa&&");
        list.List(0, u"");
        EXPECT_LT(inked(), plain);
        EXPECT_EQ(gui::Ask(list.Base.hWnd(), 1).Name, u"");
        for (const std::u16string& text : {std::u16string(u"\0x\0", 3), std::u16string(u"a\r\nb\t"),
                                           std::u16string(1, u'\xD800'), std::u16string(100'000, u'&')}) {
            list.List(0, text);
            list.Base.Refresh();
            EXPECT_EQ(list.List(0), text);
        }
    });
}

TEST_F(BadInput, AFormsCaptionOfAnyLength) {
    m_Ui.Run([&] {
        for (const std::u16string& caption :
             {std::u16string(100'000, u'w'), std::u16string(u"&&&"), std::u16string()}) {
            m_Shown->Window.Base.Caption(caption);
            EXPECT_EQ(m_Shown->Window.Base.Caption(), caption);
            EXPECT_EQ(GetWindowTextLengthW(m_Shown->Window.Base.hWnd()), static_cast<int>(caption.size()));
        }
    });
}

} // namespace
