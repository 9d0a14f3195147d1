// A press on the check list while other things happen, and keys without a current row.
#include "controls/CheckList.h"
#include "controls/TextBox.h"
#include "windows/FormTest.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmPress\tform\t\t\t6000\t4500\tPress\t\t\n"
    u"f\tfrmPress\tFields\tchecklist\t1500\t150\t3000\t1830\t\t1\tRowHeight=20; AccessibleName=Fields\n"
    u"f\tfrmPress\tOther\ttext\t150\t3000\t2250\t360\t\t2\tAccessibleName=Other\n";

struct PressForm {
    Form Window;
    CheckList Fields;
    TextBox Other;
    int Clicks = 0;
    PressForm() {
        Window.Bind(u"Fields", Fields).Bind(u"Other", Other).Create(kLayout);
        for (int i = 0; i < 40; ++i) Fields.AddItem(u"row " + text::Decimal(i), UiFont());
        Fields.Click = [this] { ++Clicks; };
        Window.Show();
    }
};

class CheckPress : public gui::FormTest<PressForm> {
protected:
    POINT At(int row, int x = 60) {
        return gui::ToScreen(m_Shown->Fields.Base.hWnd(), Px(x), Px(row * 20 + 10));
    }
    void HoldRow(int row) {
        gui::MoveTo(At(row));
        gui::Press(MOUSEEVENTF_LEFTDOWN);
        ASSERT_TRUE(Becomes([&] { return m_Shown->Fields.ListIndex() == row; }));
    }
    void LetGo() {
        gui::Press(MOUSEEVENTF_LEFTUP);
        m_Ui.Settle();
    }
    bool Captured() {
        return On([] { return GetCapture() != nullptr; });
    }
};

TEST_F(CheckPress, TheMouseIsFreeBehindARelease) {
    HoldRow(1);
    EXPECT_TRUE(Captured());
    gui::Type(VK_TAB);
    EXPECT_TRUE(FocusComesTo(m_Shown->Other.Base));
    LetGo();
    EXPECT_FALSE(Captured());

    HoldRow(2);
    m_Ui.Run([&] { m_Shown->Fields.Clear(); });
    LetGo();
    EXPECT_FALSE(Captured());
    EXPECT_EQ(m_Shown->Clicks, 0);
}

TEST_F(CheckPress, AReleaseBesideTheListTicksNothing) {
    for (const int x : {-20, 220}) {
        HoldRow(1);
        gui::MoveTo(At(1, x));
        LetGo();
        EXPECT_EQ(m_Shown->Clicks, 0) << x;
        EXPECT_FALSE(On([&] { return m_Shown->Fields.Checked(1); })) << x;
    }
    gui::Click(At(1));
    EXPECT_TRUE(Becomes([&] { return m_Shown->Clicks == 1; }));
}

// Without a current row the first one seen bears the sign of the focus.
TEST_F(CheckPress, KeysBeginAtTheRowThatShowsTheFocus) {
    CheckList& fields = m_Shown->Fields;
    m_Ui.Run([&] {
        fields.Base.SetFocus();
        SendMessageW(fields.Base.hWnd(), WM_VSCROLL, SB_PAGEDOWN, 0);
    });
    const int top = On([&] { return fields.TopRow(); });
    ASSERT_GT(top, 0);
    for (const WORD key : {VK_DOWN, VK_UP, VK_SPACE}) {
        m_Ui.Run([&] { fields.ListIndex(-1); });
        gui::Type(key);
        EXPECT_TRUE(Becomes([&] { return fields.ListIndex() == top; })) << key;
        EXPECT_EQ(On([&] { return fields.TopRow(); }), top) << key;
    }
    EXPECT_TRUE(Becomes([&] { return fields.Checked(top) && m_Shown->Clicks == 1; }));
}

} // namespace
