// The fields and lists come and go by the hundred: no window and no drawing object stays.
#include "base/DoEvents.h"
#include "controls/CheckList.h"
#include "controls/ComboBox.h"
#include "controls/FontCombo.h"
#include "controls/PasteBox.h"
#include "controls/ResultBox.h"
#include "controls/TwoColumnList.h"
#include "controls/modXPCombo.h"
#include "windows/FormTest.h"
#include "windows/Handles.h"

namespace {

constexpr std::u16string_view kLayout =
    u"form\n"
    u"f\t\tfrmSoak\tform\t\t\t9000\t6000\tSoak\t\t\n"
    u"f\tfrmSoak\tPaste\trichtext\t150\t150\t3000\t1500\t\t1\tAccessibleName=Paste\n"
    u"f\tfrmSoak\tResult\tunitext\t3300\t150\t3000\t1500\t\t2\tAccessibleName=Result\n"
    u"f\tfrmSoak\tFonts\tfontcombo\t150\t1800\t3000\t360\t\t3\tAccessibleName=Fonts\n"
    u"f\tfrmSoak\tPlain\tcombo\t3300\t1800\t1500\t360\t\t4\tAccessibleName=Plain\n"
    u"f\tfrmSoak\tTable\tlistview\t150\t2400\t3000\t1500\t\t5\tAccessibleName=Table\n"
    u"f\tfrmSoak\tFields\tchecklist\t3300\t2400\t3000\t1500\t\t6\tAccessibleName=Fields\n";

struct SoakForm {
    Form Window;
    PasteBox Paste;
    ResultBox Result;
    FontCombo Fonts;
    ComboBox Plain;
    TwoColumnList Table;
    CheckList Fields;
    cXPCombo SkinOfFonts, SkinOfPlain;
    int Clicks = 0;
    SoakForm() {
        Window.Bind(u"Paste", Paste).Bind(u"Result", Result).Bind(u"Fonts", Fonts).Bind(u"Plain", Plain);
        Window.Bind(u"Table", Table).Bind(u"Fields", Fields).Create(kLayout);
        modXPCombo::ApplySkin(SkinOfFonts, Fonts.Base);
        modXPCombo::ApplySkin(SkinOfPlain, Plain.Base);
        Fields.Click = [this] { ++Clicks; };
    }
};

void Live() {
    SoakForm form;
    form.Window.Show();
    form.Paste.Text(u"Avgvi");
    form.Result.Text(u"\u0986\u09AE\u09BE\u09B0");
    for (const char16_t* name : {u"Tahoma", u"Liberation Serif"}) {
        form.Fonts.AddItem(name, {name, 12, false, false});
        form.Plain.AddItem(name);
        form.Table.AddItem(name, u"x");
        form.Fields.AddItem(name, {name, 9, false, false}, CheckList::kTable);
    }
    SendMessageW(form.Fonts.Base.hWnd(), CB_SHOWDROPDOWN, TRUE, 0);
    DoEvents();
    SendMessageW(form.Plain.Base.hWnd(), WM_MOUSEMOVE, 0, MAKELPARAM(5, 5));
    SendMessageW(form.Fields.Base.hWnd(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(30, 5));
    SendMessageW(form.Fields.Base.hWnd(), WM_LBUTTONUP, 0, MAKELPARAM(30, 5));
    form.Table.ListIndex(1);
    for (const Control* control : form.Window.Controls()) gui::Ask(control->hWnd());
    SendMessageW(form.Window.Base.hWnd(), WM_DPICHANGED, MAKEWPARAM(144, 144), 0);
    DoEvents();
    EXPECT_EQ(form.Clicks, 1);
}

TEST(SoakFields, NothingStaysBehind) {
    gui::UiThread ui;
    const auto live = [&ui](int times) {
        ui.Run([times] {
            for (int i = 0; i < times; ++i) Live();
        });
    };
    const auto objects = [&ui] {
        int count = 0;
        ui.Run([&] { count = gui::GdiObjects(); });
        return count;
    };
    live(5); // what is made once and kept
    const int before = objects(), windows = gui::Windows();
    for (int i = 0; i < 10; ++i) live(10);
    EXPECT_LE(objects(), before + 5);
    EXPECT_EQ(gui::Windows(), windows);
    EXPECT_FALSE(EventFrame::Ending());
}

} // namespace
