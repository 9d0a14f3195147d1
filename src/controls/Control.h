// What all controls have in common: name, place, state, focus, font, window. Each control
// class holds one Control as its member Base and tells the rest in a table, its ControlKind.
// How to write a control: docs/controls.md.
#pragma once

#include "base/win.h"
#include "controls/Accessible.h"
#include "controls/Font.h"
#include "controls/Layout.h"
#include "controls/cToolTip.h"

#include <memory>
#include <string>
#include <string_view>

class Control;
class Form;

// What has changed about a control; the kit has repainted it already.
enum class Change { Caption, Font, Enabled, Size, Dpi, Theme, Focus };

// A message that a system control sends to its parent comes back to the control's own
// Message entry under this number plus its own.
constexpr UINT kReflected = WM_USER + 0x1C00;

// What a control class tells the kit. The entries get the object that holds the Control;
// every one may be missing.
struct ControlKind {
    std::u16string_view TypeName = {};
    std::u16string_view LayoutKinds = {};  // words of a layout's column "kind", "|" between them
    const wchar_t* WindowClass = nullptr;  // of the system; null: a window of the kit's own
    DWORD Style = 0, ExStyle = 0;          // beyond WS_CHILD
    bool HasWindow = true;                 // false: a timer, a dialog, a store
    bool Focusable = false;                // takes the focus by Tab and by a press
    bool Container = false;                // holds other controls
    bool Transparent = false;              // its container's ground is painted before Paint
    bool TakesLabel = false;               // its name for screen readers is its label's text
    bool EnterPresses = false;             // Enter presses it while it has the focus
    void (*Created)(void* self) = nullptr; // the window is there; properties come next
    bool (*Property)(void* self, std::u16string_view name, std::u16string_view value) = nullptr;
    void (*Made)(void* self) = nullptr; // the properties of its row are there too
    void (*Paint)(void* self, HDC dc, const RECT& client) = nullptr;
    void (*Ground)(void* self, HDC dc, const RECT& client) = nullptr; // what children stand on
    // True: dealt with, result is the answer. False: the kit and the system do their share.
    bool (*Message)(void* self, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) = nullptr;
    void (*Changed)(void* self, Change what) = nullptr;
    void (*Place)(void* self, const RECT& pixels) = nullptr; // moves the window; else the kit does
    void (*Press)(void* self) = nullptr;                     // what Enter, Esc or the access key does
    bool (*WantsKey)(void* self, WPARAM key) = nullptr;      // keeps Enter, Esc for itself
    bool (*TakesTab)(void* self) = nullptr; // false: Tab passes it by for another of its group
    const AccessibleTable* Accessible = nullptr;
};

// Makes an entry of the table from a member function: Entry<&Label::OnPaint>::Call.
template <auto Member>
struct Entry;
template <class Class, class Result, class... Arguments, Result (Class::*Member)(Arguments...)>
struct Entry<Member> {
    static Result Call(void* self, Arguments... arguments) {
        return (static_cast<Class*>(self)->*Member)(arguments...);
    }
};
template <class Class, class Result, class... Arguments, Result (Class::*Member)(Arguments...) const>
struct Entry<Member> {
    static Result Call(void* self, Arguments... arguments) {
        return (static_cast<const Class*>(self)->*Member)(arguments...);
    }
};

class Control {
public:
    Control(void* owner, const ControlKind& kind) : m_Owner(owner), m_Kind(&kind) {}
    ~Control();
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    // Who it is. Index is -1 outside an array; FullName carries it in parentheses.
    const std::u16string& Name() const { return m_Name; }
    int Index() const { return m_Index; }
    std::u16string FullName() const;
    std::u16string_view TypeName() const { return m_Kind->TypeName; }
    const ControlKind& Kind() const { return *m_Kind; }
    Control* Container() const { return m_Container; }
    Form* Parent() const { return m_Form; }
    // The control itself, where it is of that class; else null: base.As<OptionButtonC>().
    template <class Class>
    Class* As() const {
        return m_Kind == &Class::kKind ? static_cast<Class*>(m_Owner) : nullptr;
    }

    // Place in twips, relative to the container's inside; of a form on the screen.
    int Left() const { return m_Left; }
    int Top() const { return m_Top; }
    int Width() const { return m_Width; }
    int Height() const { return m_Height; }
    void Left(int twips) { Move(twips, m_Top, m_Width, m_Height); }
    void Top(int twips) { Move(m_Left, twips, m_Width, m_Height); }
    void Width(int twips) { Move(m_Left, m_Top, twips, m_Height); }
    void Height(int twips) { Move(m_Left, m_Top, m_Width, twips); }
    void Move(int left, int top, int width, int height);

    // Its own flags; a container's count for what it holds, see Usable.
    bool Visible() const { return m_Visible; }
    void Visible(bool visible);
    bool Enabled() const { return m_Enabled; }
    void Enabled(bool enabled);

    const std::u16string& Caption() const { return m_Caption; }
    void Caption(std::u16string_view caption);
    const std::u16string& Tag() const { return m_Tag; }
    void Tag(std::u16string_view tag) { m_Tag = tag; }
    const std::u16string& ToolTipText() const { return m_ToolTipText; }
    void ToolTipText(std::u16string_view tip);
    const std::u16string& AccessibleName() const { return m_AccessibleName; }
    void AccessibleName(std::u16string_view name);
    // Place in the tab order; -1: not in it.
    int TabIndex() const { return m_TabIndex; }
    void TabIndex(int index) { m_TabIndex = index; }
    const ::Font& Font() const { return m_Font; }
    void Font(const ::Font& font);

    // 0 to the front of its siblings, 1 to their back.
    void ZOrder(int position = 0);
    // Does nothing where it is disabled, hidden or covered. Behind a modal form it gets the
    // focus when the form takes input again.
    void SetFocus();
    bool HasFocus() const; // it, or a window inside it
    HWND hWnd() const { return m_hWnd; }
    // Its row of the layout has been applied as a whole: what follows from several properties
    // need not be done before.
    bool Made() const { return m_Made; }
    void Invalidate(); // repaints when the queue is empty
    void Refresh();    // repaints now

    // Enabled together with all its containers: as such it is painted.
    bool EnabledInAll() const;
    // Lies in a container that a raised sibling covers.
    bool Covered() const;
    // Its form takes no input: a modal form or a box of the system stands in front of it.
    bool FormDisabled() const;
    // Can be reached: enabled, visible and covered by nothing, its form too.
    bool Usable() const;

    // Measures for painting.
    int Dpi() const;
    int Pixels(int twips) const;
    int Scaled(int pixels96) const;
    int HairLine() const;
    HFONT FontInUse(); // the system's font object, for the present font and DPI
    // Paints what lies behind it, into a context with its own coordinates.
    void PaintBehind(HDC dc);

    // Names it to screen readers: explicit name, label, caption, design-time tip.
    std::u16string SpokenName() const;
    // Tells screen readers; child 0 is the control, rows count from 1.
    void Notify(DWORD event, int child = 0) const;
    // What the window would have answered without us.
    LRESULT DefaultProcedure(UINT message, WPARAM wParam, LPARAM lParam);

    // The control of a window; null where it is none of ours.
    static Control* FromWindow(HWND window);
    // The same, or that of the nearest window round it.
    static Control* Around(HWND window);

private:
    friend class Form;
    friend class StillThere;
    friend class SystemCall;
    friend class ControlAccessible;

    void Create(Form& form, Control* container, const LayoutRow& row);
    void ApplyProperty(std::u16string_view name, std::u16string_view value);
    void MakeWindow();
    static const wchar_t* OwnClass();
    void Attach(HWND window);
    void Detach();
    void DestroyWindowNow();
    void PlaceWindow();
    void PlaceAgain(bool sized);
    void Tell(Change what);
    void FontChanged();
    static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Dispatch(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Answer(UINT message, WPARAM wParam, LPARAM lParam);
    void ActForReader(UINT message, int child);
    bool UsableOnForm() const;
    bool Reflect(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    void* m_Owner;
    const ControlKind* m_Kind;
    Form* m_Form = nullptr;
    Control* m_Container = nullptr;
    Control* m_Label = nullptr; // the label that stands in front of it in the layout
    std::u16string m_Name, m_Caption, m_Tag, m_ToolTipText, m_DesignTip, m_AccessibleName;
    int m_Index = -1, m_TabIndex = -1;
    int m_Left = 0, m_Top = 0, m_Width = 0, m_Height = 0;
    bool m_Visible = true, m_Enabled = true, m_Made = false;
    ::Font m_Font;
    FontHandle m_FontHandle;
    HWND m_hWnd = nullptr;
    WNDPROC m_SystemProcedure = nullptr;
    ControlAccessible* m_Accessible = nullptr;
    std::unique_ptr<cToolTip> m_Tip;                       // while there is a tip text
    std::shared_ptr<int> m_Life = std::make_shared<int>(); // ends with the control
};

// Tells whether a control still exists after its handlers have run: they may destroy it.
class StillThere {
public:
    explicit StillThere(const Control& control) : m_Life(control.m_Life) {}
    explicit operator bool() const { return !m_Life.expired(); }

private:
    std::weak_ptr<int> m_Life;
};
