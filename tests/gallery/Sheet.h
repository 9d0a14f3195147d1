// What a sheet of the gallery is: a form with live controls from a layout table, and on its
// ground what the controls' own drawing makes of each state.
#pragma once

#include "controls/Font.h"
#include "controls/cToolTip.h"
#include "gallery/LayoutForm.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace gallery {

// What states are drawn on. Places are told in pixels of 96 DPI.
class Paper {
public:
    Paper(HDC dc, int dpi) : Dc(dc), Dpi(dpi) {}
    const HDC Dc;
    const int Dpi;
    const FontHandle Ui{UiFont(), Dpi}, Strong{StrongFont(), Dpi}, Bar{BarFont(), Dpi};

    RECT Place(int left, int top, int width, int height) const;
    void Caption(int left, int top, std::u16string_view text) const; // 16 high
    void Heading(int left, int top, std::u16string_view text) const;
};

// Columns that are the same on every sheet of states.
constexpr std::u16string_view kStates[] = {u"idle", u"hover", u"pressed", u"focused", u"disabled"};
enum StateColumn { kIdle, kHover, kPressed, kFocused, kDisabled };

struct Sheet {
    std::u16string_view Name;                   // of its file too
    std::vector<const ControlKind*> Shows;      // the controls that it is about
    std::u16string Layout;                      // of the form, whose name is "sheet" or a form's own
    void (*Draw)(const Paper& paper) = nullptr; // the states; null: all of it is live
    void (*Prepare)(Form& form) = nullptr;      // fills the live controls
    // Controls whose tips belong to the picture. Those with a Tag, the title, get balloons.
    std::vector<std::u16string_view> Tips = {};
};

// The first lines of a sheet's layout.
std::u16string SheetLayout(int width96, int height96);
// One more line. Place in pixels of 96 DPI.
std::u16string Row(std::u16string_view name, std::u16string_view kind, int left, int top, int width,
                   int height, std::u16string_view caption = {}, std::u16string_view properties = {});

// All of them, the states of all controls first.
const std::vector<Sheet>& Sheets();

// A sheet as a window.
class SheetWindow {
    const Sheet& m_Sheet;
    LayoutForm m_Live;

public:
    explicit SheetWindow(const Sheet& sheet);
    Form& Window = m_Live.Window;

private:
    void GiveBalloon(Control& control);

    std::vector<std::unique_ptr<cToolTip>> m_Balloons;
};

// The live control of that name; it must be there and of that class.
template <class Class>
Class& Live(Form& form, std::u16string_view name) {
    return *form.Find(name)->As<Class>();
}

// A dark theme of the system's for high contrast, as an example. On false everything is as
// it was.
void UseContrastTheme(bool on);

} // namespace gallery
