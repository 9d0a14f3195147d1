// The layout table: what it may say, and what it may not.
#include "controls/Layout.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "controls/Caption.h"
#include "controls/Dpi.h"
#include "controls/Form.h"
#include "controls/Label.h"
#include "controls/Picture.h"
#include "controls/TextBox.h"
#include "controls/Theme.h"
#include "windows/Pixels.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

TEST(Layout, ARowsFields) {
    const auto rows =
        ParseLayout(u"form\tcontainer\tcontrol\n"
                    u"f\tPane\tOption(3)\toption\t-15\t20\t300\t45\tA & B\t7\tStyle=3; Tip=a=b;\tnotes\r\n"
                    u"\n"
                    u"f\tPane\tName\tlabel\t\t\t\t\t\t\n");
    ASSERT_EQ(rows.size(), 2u);
    EXPECT_EQ(rows[0].Container, u"Pane");
    EXPECT_EQ(rows[0].Name, u"Option");
    EXPECT_EQ(rows[0].Index, 3);
    EXPECT_EQ(rows[0].Kind, u"option");
    EXPECT_EQ(rows[0].Left, -15);
    EXPECT_EQ(rows[0].Height, 45);
    EXPECT_EQ(rows[0].Caption, u"A & B");
    EXPECT_EQ(rows[0].TabIndex, 7);
    ASSERT_EQ(rows[0].Properties.size(), 2u);
    EXPECT_EQ(rows[0].Properties[0].first, u"Style");
    EXPECT_EQ(rows[0].Properties[0].second, u"3");
    EXPECT_EQ(rows[0].Properties[1].second, u"a=b");
    EXPECT_EQ(rows[1].Index, -1);
    EXPECT_EQ(rows[1].TabIndex, -1);
    EXPECT_TRUE(rows[1].Properties.empty());
}

TEST(Layout, DamagedRowsAreRefused) {
    for (const std::u16string_view row :
         {u"f\tPane\tName\tlabel\t1\t2\t3\t4\tCaption", u"f\tP\tN\tlabel\tx\t2\t3\t4\t\t",
          u"f\tP\tN(x)\tlabel\t1\t2\t3\t4\t\t", u"f\tP\tN\tlabel\t1\t2\t3\t99999999999\t\t",
          u"f\tP\tN\tlabel\t1\t2\t3\t4\t\t\tNoSign", u"f\tP\tN\tlabel\t1\t2\t3\t-\t\t"}) {
        EXPECT_THROW(ParseLayout(u"form\n" + std::u16string(row)), RuntimeFailure);
    }
    EXPECT_THROW(ParseYesNo(u"true"), RuntimeFailure);
    EXPECT_THROW(ParseNumber(u""), RuntimeFailure);
}

TEST(Layout, SetsStandForTheirProperties) {
    const auto rows = ParseLayout(u"form\n"
                                  u"f\t\tflat\tset\t\t\t\t\t\t\tStyle=1; BackColor=Card\n"
                                  u"f\tPane\tA\tbutton\t\t\t\t\t\t\tTag=x; Use=flat; Style=3\n");
    ASSERT_EQ(rows.size(), 1u);
    const decltype(rows[0].Properties) expected{
        {u"Tag", u"x"}, {u"Style", u"1"}, {u"BackColor", u"Card"}, {u"Style", u"3"}};
    EXPECT_EQ(rows[0].Properties, expected);
    EXPECT_THROW(ParseLayout(u"form\nf\tP\tA\tbutton\t\t\t\t\t\t\tUse=lost\n"), RuntimeFailure);
}

std::u16string Told(Form& form, std::u16string_view layout) {
    try {
        form.Create(layout);
    } catch (const RuntimeFailure& failure) {
        return failure.Source() + u": " + failure.Description();
    }
    return {};
}

TEST(Layout, AFormSaysWhatDoesNotFit) {
    const std::u16string head = u"form\nf\t\tfrmA\tform\t\t\t3000\t3000\t\t\t\n";
    {
        Form form;
        Label lost;
        form.Bind(u"Lost", lost);
        EXPECT_EQ(Told(form, head), u"Lost: The layout has no line for the control");
    }
    {
        Form form;
        Label wrong;
        form.Bind(u"Wrong", wrong);
        EXPECT_EQ(Told(form, head + u"f\tfrmA\tWrong\ttext\t0\t0\t0\t0\t\t\n"),
                  u"Wrong: The layout has another kind");
    }
    {
        Form form;
        EXPECT_EQ(Told(form, head + u"f\tNowhere\tL\tlabel\t0\t0\t0\t0\t\t\n"),
                  u"L: The container is unknown");
    }
    {
        Form form;
        EXPECT_EQ(Told(form, head + u"f\tfrmA\tB\tbutton\t0\t0\t0\t0\t\t\n"),
                  u"B: The form has no such control");
    }
    {
        Form form;
        EXPECT_EQ(Told(form, head + u"f\tfrmA\tL\tlabel\t0\t0\t0\t0\t\t\tWeight=3\n"),
                  u"L: No property Weight");
    }
    {
        Form form;
        EXPECT_EQ(Told(form, u"form\nf\tfrmA\tL\tlabel\t0\t0\t0\t0\t\t\n"),
                  u"L: The layout has no line for the form");
    }
}

// The tables that ship: every name, picture, font and colour in them is known, and nothing
// that can be clicked lies outside its container or shares its place in the tab order.
TEST(Layout, TheFormsTablesHoldTogether) {
    for (const char16_t* form : {u"frmMain", u"frm2nd", u"frmFirstSetting", u"frmOption", u"frmAbout",
                                 u"frmLoading", u"frmDataPassword"}) {
        const auto rows = ParseLayout(LayoutFromResource(form));
        ASSERT_FALSE(rows.empty());
        EXPECT_EQ(rows.front().Kind, u"form");
        EXPECT_EQ(rows.front().Name, form);
        std::map<std::u16string, const LayoutRow*> before;
        std::set<int> tabs;
        std::set<char16_t> keys;
        for (const LayoutRow& row : rows) {
            const std::u16string name = std::u16string(row.Name) + text::Decimal(row.Index);
            const std::string told = text::ToUtf8(std::u16string(form) + u" " + name);
            EXPECT_TRUE(before.emplace(name, &row).second) << told << " twice";
            if (row.TabIndex >= 0) {
                EXPECT_TRUE(tabs.insert(row.TabIndex).second) << told << " tab";
            }
            if (const char16_t key = AccessKeyOf(row.Caption)) {
                EXPECT_TRUE(keys.insert(key).second) << told << " key";
            }
            if (row.Kind != u"form") {
                const auto container = before.find(std::u16string(row.Container) + u"-1");
                ASSERT_NE(container, before.end()) << told;
                EXPECT_LE(row.Left + row.Width, container->second->Width) << told;
                EXPECT_LE(row.Top + row.Height, container->second->Height) << told;
            }
            for (const auto& [property, value] : row.Properties) {
                if (property == u"Picture") {
                    EXPECT_FALSE(Picture::FromResource(value).Empty()) << told;
                } else if (property == u"Font") {
                    EXPECT_GT(DesignFont(value).Size, 0) << told;
                } else if (property.find(u"Color") != property.npos && property != u"XPDefaultColors") {
                    EXPECT_NO_THROW(ParseColour(value)) << told;
                }
            }
        }
    }
    EXPECT_THROW(LayoutFromResource(u"frmNone"), RuntimeFailure);
}

// A form that needs nothing but the kit stands as its table says.
TEST(Layout, TheLoadingNoticeIsMadeFromItsTable) {
    Form form;
    Label lblMsg;
    form.Bind(u"lblMsg", lblMsg).Create(LayoutFromResource(u"frmLoading"));
    EXPECT_EQ(lblMsg.Caption(), u"Loading Converter Settings...");
    const gui::Pixels border = gui::ClientOf(form.Find(u"ShapeBorder")->hWnd());
    EXPECT_EQ(border.At(0, 0), palette::Outline);
    const int hair = HairLine(form.Dpi());
    EXPECT_EQ(border.At(hair, hair), palette::Card);
    // The border lies below what it runs round.
    EXPECT_EQ(GetWindow(form.Find(u"ShapeBorder")->hWnd(), GW_HWNDNEXT), nullptr);
    const gui::Pixels image = gui::ClientOf(form.Find(u"ImageLoading")->hWnd());
    EXPECT_LT(image.Count(palette::Card), image.Width * image.Height / 2);
}

TEST(Caption, AccessKeys) {
    EXPECT_EQ(AccessKeyOf(u"&OK"), u'o');
    EXPECT_EQ(AccessKeyOf(u"Save &As"), u'a');
    EXPECT_EQ(AccessKeyOf(u"A && &B"), u'b');
    EXPECT_EQ(AccessKeyOf(u"&&A"), 0);
    EXPECT_EQ(AccessKeyOf(u"&&&A"), u'a');
    EXPECT_EQ(AccessKeyOf(u"Save & Close"), 0); // a blank is no key
    EXPECT_EQ(AccessKeyOf(u"Save & &Close"), u'c');
    EXPECT_EQ(AccessKeyOf(u"A&"), 0);
    EXPECT_EQ(AccessKeyOf(u"&"), 0);
    EXPECT_EQ(AccessKeyOf(u""), 0);
    EXPECT_EQ(WithoutAmpersand(u"&Save && &close&"), u"Save & close");
    EXPECT_EQ(WithoutAmpersand(u"&&"), u"&");
}

TEST(Theme, ColoursAsPropertiesWriteThem) {
    EXPECT_EQ(ParseColour(u"Card"), 0xFFFFFFu);
    EXPECT_EQ(ParseColour(u"PrimaryBack"), 0x644E00u); // blue, green, red
    EXPECT_EQ(ParseColour(u"&HFFC0C0"), 0xFFC0C0u);
    EXPECT_EQ(ParseColour(u"#004E64"), 0x644E00u);
    EXPECT_EQ(ParseColour(u"&H8000000F"), kButtonFace);
    EXPECT_EQ(Resolve(kButtonFace), GetSysColor(COLOR_BTNFACE));
    EXPECT_EQ(ParseColour(u"None"), kNoColour);
    for (const std::u16string_view wrong :
         {u"", u"Puce", u"&H", u"&HG", u"#12345", u"#1234567", u"&H123456789"})
        EXPECT_THROW(ParseColour(wrong), RuntimeFailure);
}

} // namespace
