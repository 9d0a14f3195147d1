// The layout table: what it may say, and what it may not.
#include "controls/Layout.h"

#include "base/RuntimeFailure.h"
#include "controls/Caption.h"
#include "controls/Form.h"
#include "controls/Label.h"
#include "controls/TextBox.h"
#include "controls/Theme.h"

#include <gtest/gtest.h>

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

TEST(Caption, AccessKeys) {
    EXPECT_EQ(AccessKeyOf(u"&OK"), u'o');
    EXPECT_EQ(AccessKeyOf(u"Save &As"), u'a');
    EXPECT_EQ(AccessKeyOf(u"A && &B"), u'b');
    EXPECT_EQ(AccessKeyOf(u"&&A"), 0);
    EXPECT_EQ(AccessKeyOf(u"&&&A"), u'a');
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
