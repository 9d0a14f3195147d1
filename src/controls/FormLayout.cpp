// The making of a form and its controls from its layout.
//
// Tested by tests/windows/layout_test.cpp and own_forms_test.cpp.
#include "controls/Form.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"
#include "controls/Frame.h"
#include "controls/Label.h"
#include "controls/Line.h"
#include "controls/PictureBox.h"

#include <algorithm>

namespace {

// The controls that a layout may have without a member of the form.
template <class Class>
Control* Keep(std::vector<std::shared_ptr<void>>& own) {
    auto control = std::make_shared<Class>();
    own.push_back(control);
    return &control->Base;
}

bool IsKind(std::u16string_view kind, std::u16string_view words) {
    const auto known = text::Split(words, u"|");
    return std::find(known.begin(), known.end(), kind) != known.end();
}

[[noreturn]] void Refuse(const std::u16string& name, std::u16string_view why) {
    throw RuntimeFailure(kTypeMismatch, name, why);
}

} // namespace

void Form::Create(std::u16string_view layout) {
    Control* label = nullptr;
    for (const LayoutRow& row : ParseLayout(layout)) {
        if (row.Kind == u"form") {
            if (Base.m_Form) throw RuntimeFailure(kInvalidCall, Base.m_Name, u"The form was made before");
            Base.m_Form = this;
            Base.m_Name = row.Name;
            Base.m_Caption = row.Caption;
            Base.m_Width = row.Width;
            Base.m_Height = row.Height;
            for (const auto& [name, value] : row.Properties) Base.ApplyProperty(name, value);
            MakeWindow();
            Base.m_Made = true;
            continue;
        }
        if (!Base.m_hWnd) Refuse(std::u16string(row.Name), u"The layout has no line for the form");
        MakeControl(row, label);
        label = row.Kind == u"label" ? m_Controls.back() : nullptr;
    }
    CheckBindings();
}

void Form::MakeControl(const LayoutRow& row, Control* label) {
    Control* control = Bound(row);
    if (!control) {
        if (row.Kind == u"label")
            control = Keep<Label>(m_Own);
        else if (row.Kind == u"line")
            control = Keep<Line>(m_Own);
        else if (row.Kind == u"picture")
            control = Keep<PictureBox>(m_Own);
        else if (row.Kind == u"frame" || row.Kind == u"shape")
            control = Keep<Frame>(m_Own);
        else
            Refuse(std::u16string(row.Name), u"The form has no such control");
    }
    if (!IsKind(row.Kind, control->Kind().LayoutKinds))
        Refuse(std::u16string(row.Name), u"The layout has another kind");
    m_Controls.push_back(control);
    if (control->Kind().TakesLabel) control->m_Label = label;
    // Default and Cancel are the form's to know.
    LayoutRow shared = row;
    std::erase_if(shared.Properties, [&](const auto& property) {
        if (property.first == u"Default" && ParseYesNo(property.second)) DefaultButton = control;
        if (property.first == u"Cancel" && ParseYesNo(property.second)) CancelButton = control;
        return property.first == u"Default" || property.first == u"Cancel";
    });
    control->Create(*this, ContainerOf(row), shared);
}

Control* Form::Bound(const LayoutRow& row) {
    for (const Binding& binding : m_Bindings) {
        if (binding.Name == row.Name && binding.Index == row.Index) return binding.Target;
    }
    return nullptr;
}

Control* Form::ContainerOf(const LayoutRow& row) {
    if (row.Container == Base.m_Name) return &Base;
    Control* found = Find(row.Container);
    if (!found || !found->Kind().Container) Refuse(std::u16string(row.Name), u"The container is unknown");
    return found;
}

void Form::CheckBindings() const {
    for (const Binding& binding : m_Bindings) {
        if (binding.Target->m_Form != this)
            Refuse(std::u16string(binding.Name), u"The layout has no line for the control");
    }
}

Control* Form::Find(std::u16string_view fullName) const {
    for (Control* control : m_Controls) {
        if (control->FullName() == fullName) return control;
    }
    return nullptr;
}
