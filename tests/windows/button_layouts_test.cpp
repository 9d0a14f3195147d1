// The buttons and toggles of the program's own forms, made from their layouts.
#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "controls/CheckBox.h"
#include "controls/Form.h"
#include "controls/OptionButtonC.h"
#include "controls/TavrelButton.h"
#include "windows/Pixels.h"
#include "windows/Spoken.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <vector>

namespace {

// The lines of a layout that tell the form, sets of properties, buttons and toggles; these
// all stand on the form itself.
std::u16string ButtonsOnly(std::u16string_view layout, std::u16string_view form) {
    std::u16string kept;
    bool first = true;
    for (const std::u16string_view line : text::Split(layout, u"\n")) {
        std::vector<std::u16string_view> fields = text::Split(line, u"\t");
        const bool button = fields.size() > 3 && (fields[3] == u"TavrelButton" || fields[3] == u"CheckBox" ||
                                                  fields[3] == u"OptionButtonC");
        const bool head = first || (fields.size() > 3 && (fields[3] == u"form" || fields[3] == u"set"));
        first = false;
        if (!button && !head) continue;
        if (button) fields[1] = form;
        for (std::size_t i = 0; i < fields.size(); ++i) kept.append(i ? u"\t" : u"").append(fields[i]);
        kept += u'\n';
    }
    return kept;
}

TEST(ButtonLayouts, EveryButtonAndToggleOfTheFormsIsMadeAndNamed) {
    std::map<std::u16string, int> made;
    for (const std::u16string name :
         {u"frmMain", u"frm2nd", u"frmFirstSetting", u"frmOption", u"frmAbout", u"frmDataPassword"}) {
        const std::u16string layout = ButtonsOnly(LayoutFromResource(name), name);
        Form form;
        std::vector<std::unique_ptr<TavrelButton>> buttons;
        std::vector<std::unique_ptr<CheckBox>> boxes;
        OptionButtonC tasks[5];
        struct Pair {
            OptionButtonC Of[2];
        };
        std::map<std::u16string_view, Pair> pairs;
        for (const LayoutRow& row : ParseLayout(layout)) {
            if (row.Kind == u"TavrelButton")
                form.Bind(row.Name, *buttons.emplace_back(std::make_unique<TavrelButton>()));
            else if (row.Kind == u"CheckBox")
                form.Bind(row.Name, *boxes.emplace_back(std::make_unique<CheckBox>()));
            else if (row.Name == u"OptionTask" && row.Index == 0)
                form.Bind(row.Name, tasks);
            else if (row.Kind == u"OptionButtonC" && row.Name != u"OptionTask" && row.Index == 0)
                form.Bind(row.Name, pairs[row.Name].Of);
        }
        try {
            form.Create(layout);
        } catch (const RuntimeFailure& failure) {
            FAIL() << text::ToUtf8(failure.Source()) << ": " << text::ToUtf8(failure.Description());
        }
        for (const Control* control : form.Controls()) {
            ++made[std::u16string(control->TypeName())];
            EXPECT_FALSE(gui::Ask(control->hWnd()).Name.empty()) << text::ToUtf8(control->FullName());
            gui::ClientOf(control->hWnd());
        }
    }
    EXPECT_GT(made[u"TavrelButton"], 40);
    EXPECT_EQ(made[u"CheckBox"], 10);
    EXPECT_EQ(made[u"OptionButtonC"], 11);
}

} // namespace
