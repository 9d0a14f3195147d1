// A form with one of each field, and what stands beside fields.
#pragma once

#include "controls/ComboBox.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/PictureBox.h"
#include "controls/TextBox.h"
#include "windows/FormTest.h"

namespace gui {

constexpr std::u16string_view kFieldsLayout =
    u"form\n"
    u"f\t\tfrmFields\tform\t\t\t6000\t4500\tFields\t\tBackColor=FrameTop; BackColor2=FrameBottom\n"
    u"f\tfrmFields\tLabelSuffix\tlabel\t150\t150\t1200\t360\t&Suffix:\t\t\n"
    u"f\tfrmFields\tSuffix\ttext\t1500\t150\t2250\t360\t- Unicode\t1\t\n"
    u"f\tfrmFields\tLabelPass\tlabel\t150\t600\t1200\t360\tPassword:\t\t\n"
    u"f\tfrmFields\tPass\tpassword\t1500\t600\t2250\t360\t\t2\tPasswordChar=*\n"
    u"f\tfrmFields\tLabelSize\tlabel\t150\t1050\t1200\t360\tSize:\t\tForeColor=Muted; Align=right\n"
    u"f\tfrmFields\tSize\tcombo\t1500\t1050\t2250\t360\t\t3\t\n"
    u"f\tfrmFields\tBox\tframe\t150\t1500\t4500\t1500\t\t\tBackColor=Tint; BorderColor=Line\n"
    u"f\tBox\tInside\ttext\t1500\t150\t2250\t360\t\t4\tAccessibleName=Folder\n"
    u"f\tBox\tClear\tlabel\t150\t150\t1200\t360\tOn tint\t\t\n"
    u"f\tfrmFields\tLine1\tline\t150\t3150\t4500\t15\t\t\t\n"
    u"f\tfrmFields\tWarn\tpicture\t150\t3300\t240\t240\t\t\tPicture=warn; AccessibleName=Warning\n"
    u"f\tfrmFields\tOrnament\tpicture\t600\t3300\t240\t240\t\t\tPicture=warn\n"
    u"f\tfrmFields\tStatus\tlabel\t1500\t3300\t900\t300\tShort\t\tEndEllipsis=yes\n";

struct FieldsForm {
    Form Window;
    Label LabelSuffix, Clear, Status;
    TextBox Suffix, Pass, Inside;
    ComboBox Size;
    Frame Box;
    PictureBox Warn;
    FieldsForm() {
        Window.Bind(u"LabelSuffix", LabelSuffix).Bind(u"Clear", Clear).Bind(u"Status", Status);
        Window.Bind(u"Suffix", Suffix).Bind(u"Pass", Pass).Bind(u"Inside", Inside).Bind(u"Size", Size);
        Window.Bind(u"Box", Box).Bind(u"Warn", Warn).Create(kFieldsLayout);
        for (const char16_t* size : {u"8", u"10", u"12"}) Size.AddItem(size);
        Window.Show();
    }
};

using Fields = FormTest<FieldsForm>;

} // namespace gui
