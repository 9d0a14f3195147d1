// Tested by tests/windows/toggle_test.cpp.
#include "controls/CheckBox.h"

#include "base/RuntimeFailure.h"

namespace {
constexpr AccessibleTable kAccessible{
    .Role = ROLE_SYSTEM_CHECKBUTTON,
    .State = [](void* self, int) { return SpokenState(static_cast<CheckBox*>(self)->State()); },
    .DefaultAction =
        [](void* self, int) {
            return std::u16string(static_cast<CheckBox*>(self)->Value() == 0 ? u"Check" : u"Uncheck");
        },
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

int CheckBox::Checked(int value) const {
    if (value < 0 || value > 2) throw RuntimeFailure(kInvalidPropertyValue, Base.FullName());
    return value;
}

void CheckBox::Value(int value) {
    m_Toggle.Value(Checked(value));
    Raise(Click);
}

// A value of the layout is there from the start, without Click.
bool CheckBox::OnProperty(std::u16string_view name, std::u16string_view value) {
    if (name != u"Value") return m_Toggle.OnProperty(name, value);
    m_Toggle.Value(Checked(ParseNumber(value)));
    return true;
}

bool CheckBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    return m_Toggle.OnMessage(
        message, wParam, lParam, [this] { OnPress(); }, MouseMove);
}
