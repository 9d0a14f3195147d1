// A form of ten controls, from its layout table to its answer.
#pragma once

#include "controls/CheckBox.h"
#include "controls/ComboBox.h"
#include "controls/Form.h"
#include "controls/OptionButtonC.h"
#include "controls/TavrelButton.h"
#include "controls/TextBox.h"

constexpr std::u16string_view kExampleLayout =
    u"form\tcontainer\tcontrol\tkind\tleft\ttop\twidth\theight\tcaption\ttab\tproperties\n"
    u"f\t\tneutral\tset\t\t\t\t\t\t\tButtonStyle=3; BackColor=NeutralBack; ForeColor=Ink\n"
    u"f\t\tfrmSave\tform\t\t\t5400\t3000\tSave\t\tCaptionBar=yes\n"
    u"f\tfrmSave\tLabelName\tlabel\t240\t240\t1200\t360\tFile &name:\t\t\n"
    u"f\tfrmSave\tFileName\ttext\t1500\t240\t3660\t360\t\t1\t\n"
    u"f\tfrmSave\tLabelKind\tlabel\t240\t720\t1200\t360\t&Encoding:\t\t\n"
    u"f\tfrmSave\tEncoding\tcombo\t1500\t720\t3660\t360\t\t2\t\n"
    u"f\tfrmSave\tPlace(0)\tOptionButtonC\t1500\t1200\t3660\t330\t&Beside the original\t3\tValue=yes\n"
    u"f\tfrmSave\tPlace(1)\tOptionButtonC\t1500\t1530\t3660\t330\t&In my documents\t4\t\n"
    u"f\tfrmSave\tOpenIt\tCheckBox\t1500\t1890\t3660\t330\t&Open it when it is done\t5\t\n"
    u"f\tfrmSave\tButtonSave\tTavrelButton\t2340\t2370\t1320\t450\t&Save\t6\tUse=neutral; Default=yes\n"
    u"f\tfrmSave\tButtonCancel\tTavrelButton\t3840\t2370\t1320\t450\tCancel\t7\tUse=neutral; Cancel=yes\n"
    u"f\tfrmSave\tLabelHint\tlabel\t240\t2370\t1980\t450\t\t\tForeColor=Muted\n";

class ExampleForm {
public:
    ExampleForm() {
        Window.Bind(u"FileName", FileName).Bind(u"Encoding", Encoding).Bind(u"Place", Place);
        Window.Bind(u"OpenIt", OpenIt).Bind(u"ButtonSave", ButtonSave).Bind(u"ButtonCancel", ButtonCancel);
        Window.Create(kExampleLayout);
        for (const char16_t* encoding : {u"UTF-8", u"UTF-16"}) Encoding.AddItem(encoding);
        Encoding.ListIndex(0);
        ButtonSave.Base.Enabled(false);
        FileName.Change = [this] { ButtonSave.Base.Enabled(!FileName.Text().empty()); };
        ButtonSave.Click = [this] {
            Saved = FileName.Text() + u" as " + Encoding.Text() + (Place[1].Value() ? u", documents" : u"");
            if (OpenIt.Value() == 1) Saved += u", open";
            Window.Hide();
        };
        ButtonCancel.Click = [this] { Window.Hide(); };
    }
    Form Window; // first: it goes last
    TextBox FileName;
    ComboBox Encoding;
    OptionButtonC Place[2];
    CheckBox OpenIt;
    TavrelButton ButtonSave, ButtonCancel;
    std::u16string Saved; // what was asked for; empty after Cancel
};
