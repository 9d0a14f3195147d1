// Tested by tests/windows/toggle_test.cpp and option_keys_test.cpp.
#include "controls/OptionButtonC.h"

#include "controls/Form.h"

#include <algorithm>
#include <utility>

namespace {

constexpr AccessibleTable kAccessible{
    .Role = ROLE_SYSTEM_RADIOBUTTON,
    .State = [](void* self, int) { return SpokenState(static_cast<OptionButtonC*>(self)->State()); },
    .DefaultAction = [](void*, int) { return std::u16string(u"Check"); },
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
    .TakesTab = Entry<&OptionButtonC::TakesTab>::Call,
    .Accessible = &kAccessible,
};

void OptionButtonC::Value(bool value) {
    const StillThere here(Base);
    if (value) ClearSisters();
    if (!here) return;
    m_Toggle.Value(value);
    if (Base.Enabled()) Raise(Click);
}

// Itself and its sisters, in the order of the form.
std::vector<OptionButtonC*> OptionButtonC::Group() const {
    std::vector<OptionButtonC*> group;
    const Form* form = Base.Parent();
    if (!form) return group;
    for (const Control* control : form->Controls()) {
        auto* option = control->As<OptionButtonC>();
        if (option && option->Base.Container() == Base.Container() &&
            GroupName(option->Base) == GroupName(Base))
            group.push_back(option);
    }
    return group;
}

// Those of them that can be reached, in the tab order.
std::vector<OptionButtonC*> OptionButtonC::UsableGroup() const {
    std::vector<OptionButtonC*> group = Group();
    std::erase_if(group, [](const OptionButtonC* option) {
        return option->Base.TabIndex() < 0 || !option->Base.Usable();
    });
    std::stable_sort(group.begin(), group.end(), [](const OptionButtonC* a, const OptionButtonC* b) {
        return a->Base.TabIndex() < b->Base.TabIndex();
    });
    return group;
}

// The handlers of the sisters may change or destroy anything on the form.
void OptionButtonC::ClearSisters() {
    std::vector<std::pair<StillThere, OptionButtonC*>> sisters;
    for (OptionButtonC* sister : Group()) {
        if (sister != this) sisters.emplace_back(sister->Base, sister);
    }
    const StillThere here(Base);
    for (const auto& [there, sister] : sisters) {
        if (!here) return;
        if (there) sister->Value(false);
    }
}

// A value of the layout is there from the start, without Click.
bool OptionButtonC::OnProperty(std::u16string_view name, std::u16string_view value) {
    if (name != u"Value") return m_Toggle.OnProperty(name, value);
    m_Toggle.Value(ParseYesNo(value));
    return true;
}

bool OptionButtonC::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    if (message == WM_KEYDOWN && OnArrow(wParam)) return true;
    return m_Toggle.OnMessage(
        message, wParam, lParam, [this] { OnPress(); }, MouseMove);
}

// The arrows choose the next or previous one of the group, and go round at its ends.
bool OptionButtonC::OnArrow(WPARAM key) {
    const bool on = key == VK_RIGHT || key == VK_DOWN;
    if (!on && key != VK_LEFT && key != VK_UP) return false;
    std::vector<OptionButtonC*> group = UsableGroup();
    if (!on) std::reverse(group.begin(), group.end());
    const auto self = std::find(group.begin(), group.end(), this);
    if (self == group.end() || group.size() == 1) return true;
    OptionButtonC* chosen = self + 1 == group.end() ? group.front() : *(self + 1);
    const StillThere there(chosen->Base);
    chosen->Base.SetFocus();
    if (there) chosen->Value(true);
    return true;
}

// One of the group does: where the focus is, else the chosen one, else the first.
bool OptionButtonC::TakesTab() const {
    const std::vector<OptionButtonC*> group = UsableGroup();
    if (group.empty()) return false;
    const auto focused = [](const OptionButtonC* option) { return option->Base.HasFocus(); };
    const auto set = [](const OptionButtonC* option) { return option->Value(); };
    auto taker = std::find_if(group.begin(), group.end(), focused);
    if (taker == group.end()) taker = std::find_if(group.begin(), group.end(), set);
    return (taker == group.end() ? group.front() : *taker) == this;
}
