// The properties that a layout sets through the setters of a control.
#pragma once

#include "controls/Layout.h"
#include "controls/Theme.h"

#include <algorithm>
#include <iterator>
#include <string_view>

// A property's name and its setter, whose argument tells how the value is written.
template <class Class>
class PropertySetter {
public:
    using YesNo = void (Class::*)(bool);
    using Number = void (Class::*)(int);
    using Colour = void (Class::*)(OleColour);
    using Text = void (Class::*)(std::u16string_view);
    constexpr PropertySetter(std::u16string_view name, YesNo set) : Name(name), m_YesNo(set) {}
    constexpr PropertySetter(std::u16string_view name, Number set) : Name(name), m_Number(set) {}
    constexpr PropertySetter(std::u16string_view name, Colour set) : Name(name), m_Colour(set) {}
    constexpr PropertySetter(std::u16string_view name, Text set) : Name(name), m_Text(set) {}

    std::u16string_view Name;
    void Set(Class& control, std::u16string_view value) const {
        if (m_YesNo) (control.*m_YesNo)(ParseYesNo(value));
        if (m_Number) (control.*m_Number)(ParseNumber(value));
        if (m_Colour) (control.*m_Colour)(ParseColour(value));
        if (m_Text) (control.*m_Text)(value);
    }

private:
    YesNo m_YesNo = nullptr;
    Number m_Number = nullptr;
    Colour m_Colour = nullptr;
    Text m_Text = nullptr;
};

// False where none of them has that name.
template <class Class, std::size_t Count>
bool SetProperty(Class& control, const PropertySetter<Class> (&setters)[Count], std::u16string_view name,
                 std::u16string_view value) {
    const auto found =
        std::find_if(std::begin(setters), std::end(setters), [&](const auto& s) { return s.Name == name; });
    if (found == std::end(setters)) return false;
    found->Set(control, value);
    return true;
}
