// A form with one of every control.
#pragma once

#include "controls/AdvProgressBar.h"
#include "controls/CheckBox.h"
#include "controls/CheckList.h"
#include "controls/ComboBox.h"
#include "controls/FontCombo.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/McListBox.h"
#include "controls/OptionButtonC.h"
#include "controls/PasteBox.h"
#include "controls/PictureBox.h"
#include "controls/ResultBox.h"
#include "controls/TavrelButton.h"
#include "controls/TextBox.h"
#include "controls/Timer.h"
#include "controls/TwoColumnList.h"
#include "windows/FormTest.h"

namespace gui {

constexpr std::u16string_view kEveryLayout =
    u"form\n"
    u"f\t\tfrmEvery\tform\t\t\t9000\t6000\tEvery control\t\t\n"
    u"f\tfrmEvery\tGo\tTavrelButton\t150\t150\t1500\t450\tGo\t1\t\n"
    u"f\tfrmEvery\tBox\tframe\t1800\t150\t3000\t1500\t\t\tBackColor=Card\n"
    u"f\tBox\tTitle\tlabel\t150\t150\t1200\t300\tTitle:\t\t\n"
    u"f\tBox\tText\ttext\t150\t600\t1500\t360\t\t2\t\n"
    u"f\tfrmEvery\tChoice\tcombo\t150\t750\t1500\t360\t\t3\tAccessibleName=Choice\n"
    u"f\tfrmEvery\tTick\tCheckBox\t150\t1200\t1500\t300\tTick\t4\t\n"
    u"f\tfrmEvery\tTask(0)\tOptionButtonC\t150\t1650\t1500\t300\tFirst\t5\t\n"
    u"f\tfrmEvery\tTask(1)\tOptionButtonC\t150\t2100\t1500\t300\tSecond\t6\t\n"
    u"f\tfrmEvery\tRows\tMcListBox\t1800\t1800\t3000\t1500\t\t7\tAccessibleName=Rows\n"
    u"f\tfrmEvery\tTable\tlistview\t1800\t3450\t3000\t1500\t\t8\tColumns=One|Two; AccessibleName=Table\n"
    u"f\tfrmEvery\tTicks\tchecklist\t4950\t150\t3000\t1500\t\t9\tAccessibleName=Ticks\n"
    u"f\tfrmEvery\tPaste\trichtext\t4950\t1800\t3000\t1500\t\t10\tAccessibleName=Paste\n"
    u"f\tfrmEvery\tResult\tunitext\t4950\t3450\t3000\t1500\t\t11\tAccessibleName=Result\n"
    u"f\tfrmEvery\tFaces\tfontcombo\t150\t5100\t3000\t360\t\t12\tAccessibleName=Faces\n"
    u"f\tfrmEvery\tBar\tAdvProgressBar\t3300\t5100\t3000\t300\t\t\tAccessibleName=Bar\n"
    u"f\tfrmEvery\tImage\tpicturebox\t150\t2550\t1500\t600\t\t\t\n"
    u"f\tfrmEvery\tRule\tline\t150\t3300\t1500\t15\t\t\t\n"
    u"f\tfrmEvery\tClock\ttimer\t0\t0\t0\t0\t\t\tInterval=10; Enabled=no\n";

struct EveryForm {
    Form Window;
    std::unique_ptr<TavrelButton> Go = std::make_unique<TavrelButton>();
    Frame Box;
    std::unique_ptr<Label> Title = std::make_unique<Label>();
    std::unique_ptr<TextBox> Text = std::make_unique<TextBox>();
    std::unique_ptr<ComboBox> Choice = std::make_unique<ComboBox>();
    CheckBox Tick;
    OptionButtonC Task[2];
    McListBox Rows;
    TwoColumnList Table;
    CheckList Ticks;
    PasteBox Paste;
    ResultBox Result;
    FontCombo Faces;
    AdvProgressBar Bar;
    std::unique_ptr<PictureBox> Image = std::make_unique<PictureBox>();
    std::unique_ptr<Timer> Clock = std::make_unique<Timer>();

    EveryForm() {
        Window.Bind(u"Go", *Go).Bind(u"Box", Box).Bind(u"Title", *Title).Bind(u"Text", *Text);
        Window.Bind(u"Choice", *Choice).Bind(u"Tick", Tick).Bind(u"Task", Task).Bind(u"Rows", Rows);
        Window.Bind(u"Table", Table).Bind(u"Ticks", Ticks).Bind(u"Paste", Paste).Bind(u"Result", Result);
        Window.Bind(u"Faces", Faces).Bind(u"Bar", Bar).Bind(u"Image", *Image).Bind(u"Clock", *Clock);
        Window.Create(kEveryLayout);
        for (const auto* text : {u"one", u"two", u"three"}) {
            Choice->AddItem(text);
            Rows.AddItem(text);
            Table.AddItem(text, u"x");
            Ticks.AddItem(text, UiFont());
            Faces.AddItem(text, UiFont());
        }
        Rows.Refresh();
        Window.Show();
    }
};

} // namespace gui
