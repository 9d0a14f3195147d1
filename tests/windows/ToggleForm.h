// A form with toggles of both kinds.
#pragma once

#include "controls/CheckBox.h"
#include "controls/OptionButtonC.h"
#include "controls/Painting.h"
#include "controls/TextBox.h"
#include "windows/FormTest.h"
#include "windows/Pixels.h"

#include <string>
#include <vector>

namespace gui {

constexpr std::u16string_view kToggleLayout =
    u"form\n"
    u"f\t\tfrmToggles\tform\t\t\t6000\t4500\tToggles\t\t\n"
    u"f\tfrmToggles\tReady\tCheckBox\t150\t150\t1800\t330\tI am &ready\t1\tForeColor=Brand\n"
    u"f\tfrmToggles\tGrey\tCheckBox\t2100\t150\t1800\t330\tAll\t2\tValue=2\n"
    u"f\tfrmToggles\tTask(0)\tOptionButtonC\t150\t600\t2250\t330\tPaste\t3\tValue=yes\n"
    u"f\tfrmToggles\tTask(1)\tOptionButtonC\t150\t1050\t2250\t510\tConvert my plain text files to "
    u"&Unicode\t4\t\n"
    u"f\tfrmToggles\tTask(2)\tOptionButtonC\t150\t1650\t2250\t330\tDatabase\t5\t\n"
    u"f\tfrmToggles\tAlone\tOptionButtonC\t2550\t600\t1500\t330\tAlone\t6\tValue=yes\n"
    u"f\tfrmToggles\tPane\tframe\t2550\t1050\t3000\t1500\t\t\t\n"
    u"f\tPane\tTask(3)\tOptionButtonC\t150\t150\t1500\t330\tIn the pane\t7\tValue=yes\n"
    u"f\tfrmToggles\tText\ttext\t150\t2700\t1500\t360\t\t8\tAccessibleName=Text\n";

struct ToggleForm {
    Form Window;
    std::unique_ptr<CheckBox> Ready = std::make_unique<CheckBox>();
    CheckBox Grey;
    OptionButtonC Task[4]; // the last one stands in the pane
    std::unique_ptr<OptionButtonC> Alone = std::make_unique<OptionButtonC>();
    TextBox Text;
    std::vector<std::string> Log;

    ToggleForm() {
        Window.Bind(u"Ready", *Ready).Bind(u"Grey", Grey).Bind(u"Task", Task).Bind(u"Alone", *Alone);
        Window.Bind(u"Text", Text);
        Window.Create(kToggleLayout);
        Window.Show();
    }
};

} // namespace gui
