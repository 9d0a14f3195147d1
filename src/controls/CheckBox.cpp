// Tested by tests/windows/toggle_test.cpp.
#include "controls/CheckBox.h"

#include "base/RuntimeFailure.h"

namespace {

LONG SpokenState(void* self, int) {
    const ToggleState state = static_cast<CheckBox*>(self)->State();
    return (state.Value == 1   ? STATE_SYSTEM_CHECKED
            : state.Value == 2 ? STATE_SYSTEM_MIXED
                               : 0) |
           (state.Pressed ? STATE_SYSTEM_PRESSED : 0) | (state.Hovering ? STATE_SYSTEM_HOTTRACKED : 0);
}

std::u16string Action(void* self, int) {
    return static_cast<CheckBox*>(self)->Value() == 0 ? u"Check" : u"Uncheck";
}

constexpr AccessibleTable kAccessible{
    .Role = ROLE_SYSTEM_CHECKBUTTON,
    .State = SpokenState,
    .DefaultAction = Action,
};

} // namespace

const ControlKind CheckBox::kKind{
    .TypeName = u"CheckBox",
    .LayoutKinds = u"CheckBox",
    .Focusable = true,
    .Transparent = true,
    .Property = Entry<&CheckBox::OnProperty>::Call,
    .Paint = Entry<&CheckBox::OnPaint>::Call,
    .Message = Entry<&CheckBox::OnMessage>::Call,
    .Changed = Entry<&CheckBox::OnChanged>::Call,
    .Press = Entry<&CheckBox::OnPress>::Call,
    .Accessible = &kAccessible,
};

void CheckBox::Value(int value) {
    if (value < 0 || value > 2) throw RuntimeFailure(kInvalidPropertyValue, Base.FullName());
    if (value != m_Value) {
        m_Value = value;
        Base.Invalidate();
        Base.Notify(EVENT_OBJECT_STATECHANGE);
    }
    Raise(Click);
}

void CheckBox::ForeColor(OleColour colour) {
    m_ForeColor = colour;
    Base.Invalidate();
}

void CheckBox::BackColor(OleColour colour) {
    m_BackColor = colour;
    Base.Invalidate();
}

// A value of the layout is there from the start, without Click.
bool CheckBox::OnProperty(std::u16string_view name, std::u16string_view value) {
    if (name == u"Value") {
        m_Value = ParseNumber(value);
        if (m_Value < 0 || m_Value > 2) throw RuntimeFailure(kInvalidPropertyValue, Base.FullName());
    } else if (name == u"ForeColor") {
        ForeColor(ParseColour(value));
    } else if (name == u"BackColor") {
        BackColor(ParseColour(value));
    } else {
        return false;
    }
    return true;
}

ToggleState CheckBox::State() {
    return {.Kind = ToggleKind::Check,
            .Value = m_Value,
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

bool CheckBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    const StillThere here(Base);
    const bool done = m_Input.OnMessage(Base, message, wParam, lParam, [this] { OnPress(); });
    if (here && message == WM_MOUSEMOVE) {
        const MouseAt mouse = ReadMouse(message, wParam, lParam, Base.Dpi());
        Raise(MouseMove, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
    }
    return done;
}

void CheckBox::OnChanged(Change what) {
    if ((what == Change::Focus && !Base.HasFocus()) || (what == Change::Enabled && !Base.EnabledInAll()))
        m_Input.LetGo(Base);
}
