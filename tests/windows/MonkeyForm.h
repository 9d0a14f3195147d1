// The form that the monkey plays on, and what a step on it is.
#pragma once

#include "controls/modXPCombo.h"
#include "windows/Dice.h"
#include "windows/EveryForm.h"

#include <functional>
#include <sstream>
#include <string>
#include <vector>

namespace gui {

// Drawn as a whole before it is done, from the dice alone: a seed is always the same steps,
// whatever they come upon.
struct Step {
    std::string What;
    std::function<void()> Do;
};

// What and the values behind it: "Move 150 300".
template <class... Values>
std::string Told(const std::string& what, const Values&... values) {
    std::ostringstream told;
    told << what << std::boolalpha;
    ((told << ' ' << values), ...);
    return told.str();
}

struct MonkeyForm {
    EveryForm Every;
    Form& Window = Every.Window;
    cXPCombo ChoiceSkin, FacesSkin;
    std::vector<Control*> Seen;  // all controls that have a window
    std::vector<Control*> Lists; // those of them with rows
    int OwnDpi = Window.Dpi();

    MonkeyForm() {
        modXPCombo::ApplySkin(ChoiceSkin, Every.Choice->Base);
        modXPCombo::ApplySkin(FacesSkin, Every.Faces.Base);
        Every.Rows.ShowHover(true);
        Every.Rows.FocusRectangle(true);
        for (Control* control : Window.Controls()) {
            if (control->hWnd()) Seen.push_back(control);
        }
        Lists = {&Every.Rows.Base, &Every.Table.Base, &Every.Ticks.Base};
    }
    // Lists, which have the most to go wrong, come oftener than the others.
    Control& Any(Dice& dice) const { return *dice.Of(dice.OneIn(3) ? Lists : Seen); }
};

inline std::string NameOf(const Control& control) {
    return text::ToUtf8(control.FullName());
}

} // namespace gui
