// Tested by tests/windows/toggle_test.cpp.
#include "controls/OptionButtonC.h"

#include "controls/Form.h"

#include <utility>
#include <vector>

namespace {

LONG SpokenState(void* self, int) {
    const ToggleState state = static_cast<OptionButtonC*>(self)->State();
    return (state.Value ? STATE_SYSTEM_CHECKED : 0) | (state.Pressed ? STATE_SYSTEM_PRESSED : 0) |
           (state.Hovering ? STATE_SYSTEM_HOTTRACKED : 0);
}

std::u16string Action(void*, int) {
    return u"Check";
}

constexpr AccessibleTable kAccessible{
    .Role = ROLE_SYSTEM_RADIOBUTTON,
    .State = SpokenState,
    .DefaultAction = Action,
};

// What an array's controls have in common: the part of a name in front of "(".
std::u16string_view GroupName(const Control& control) {
    const std::u16string_view name = control.Name();
    return name.substr(0, name.find(u'('));
}

} // namespace

const ControlKind OptionButtonC::kKind{
    .TypeName = u"OptionButtonC",
    .LayoutKinds = u"OptionButtonC",
    .Focusable = true,
    .Transparent = true,
    .Property = Entry<&OptionButtonC::OnProperty>::Call,
    .Paint = Entry<&OptionButtonC::OnPaint>::Call,
    .Message = Entry<&OptionButtonC::OnMessage>::Call,
    .Changed = Entry<&OptionButtonC::OnChanged>::Call,
    .Press = Entry<&OptionButtonC::OnPress>::Call,
    .Accessible = &kAccessible,
};

void OptionButtonC::Value(bool value) {
    const StillThere here(Base);
    if (value) ClearSisters();
    if (!here) return;
    if (value != m_Value) {
        m_Value = value;
        Base.Invalidate();
        Base.Notify(EVENT_OBJECT_STATECHANGE);
    }
    if (Base.Enabled()) Raise(Click);
}

// The handlers of the sisters may change or destroy anything on the form.
void OptionButtonC::ClearSisters() {
    const Form* form = Base.Parent();
    if (!form) return;
    const StillThere here(Base);
    std::vector<std::pair<StillThere, OptionButtonC*>> sisters;
    for (const Control* control : form->Controls()) {
        auto* sister = control->As<OptionButtonC>();
        if (sister && sister != this && sister->Base.Container() == Base.Container() &&
            GroupName(sister->Base) == GroupName(Base))
            sisters.emplace_back(sister->Base, sister);
    }
    for (const auto& [there, sister] : sisters) {
        if (!here) return;
        if (there) sister->Value(false);
    }
}

void OptionButtonC::ForeColor(OleColour colour) {
    m_ForeColor = colour;
    Base.Invalidate();
}

void OptionButtonC::BackColor(OleColour colour) {
    m_BackColor = colour;
    Base.Invalidate();
}

// A value of the layout is there from the start, without Click.
bool OptionButtonC::OnProperty(std::u16string_view name, std::u16string_view value) {
    if (name == u"Value") {
        m_Value = ParseYesNo(value);
    } else if (name == u"ForeColor") {
        ForeColor(ParseColour(value));
    } else if (name == u"BackColor") {
        BackColor(ParseColour(value));
    } else {
        return false;
    }
    return true;
}

ToggleState OptionButtonC::State() {
    return {.Kind = ToggleKind::Option,
            .Value = m_Value ? 1 : 0,
            .Caption = Base.Caption(),
            .Font = Base.FontInUse(),
            .ForeColor = m_ForeColor,
            .BackColor = m_BackColor,
            .Enabled = Base.EnabledInAll(),
            .Hovering = m_Input.Hovering(),
            .Pressed = m_Input.Pressed(),
            .Focused = Base.HasFocus(),
            .Dpi = Base.Dpi()};
}

bool OptionButtonC::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    const StillThere here(Base);
    const bool done = m_Input.OnMessage(Base, message, wParam, lParam, [this] { OnPress(); });
    if (here && message == WM_MOUSEMOVE) {
        const MouseAt mouse = ReadMouse(message, wParam, lParam, Base.Dpi());
        Raise(MouseMove, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
    }
    return done;
}

void OptionButtonC::OnChanged(Change what) {
    if ((what == Change::Focus && !Base.HasFocus()) || (what == Change::Enabled && !Base.EnabledInAll()))
        m_Input.LetGo(Base);
}
