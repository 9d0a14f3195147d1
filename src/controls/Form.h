// A window of the program: plain or shaped, with the controls that a layout table lays out
// on it, tab order, access keys, default and cancel button.
#pragma once

#include "controls/Canvas.h"
#include "controls/Control.h"
#include "controls/Events.h"
#include "controls/Theme.h"
#include "controls/cRegion.h"

#include <memory>
#include <string_view>
#include <vector>

class Form;

namespace Forms {
// Dispatches messages until the end is asked for (PostQuitMessage), and gives its code.
int Run();
// Deals with Tab, Enter, Esc and access keys; true: the message is done with. For loops
// that do not go through Run or DoEvents.
bool Filter(MSG& message);
// Every form that has a window.
const std::vector<Form*>& All();
} // namespace Forms

class Form {
public:
    Form();
    ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    Control Base;
    static const ControlKind kKind;

    // Joins a member to the row of its name, before Create. Rows that nobody joins are made
    // and kept by the form, where their kind is a label, line, picture or frame.
    template <class Class>
    Form& Bind(std::u16string_view name, Class& control) {
        m_Bindings.push_back({name, -1, &control.Base});
        return *this;
    }
    template <class Class, std::size_t Count>
    Form& Bind(std::u16string_view name, Class (&array)[Count]) {
        for (std::size_t i = 0; i < Count; ++i)
            m_Bindings.push_back({name, static_cast<int>(i), &array[i].Base});
        return *this;
    }
    // Makes the window, not shown yet, and its controls. layout must live as long as the
    // program. Raises failure 13 where a joined name has no row, a row's kind is another
    // than the member's, or a container or property is unknown, 5 where the window has been
    // made before, also when it is unloaded. A further layout, without a line for the form,
    // adds its controls to those that are there.
    void Create(std::u16string_view layout);

    // Comes to the front with the focus, but not while another form is shown modally.
    void Show();
    void Hide();
    // Shows it and comes back when it has been hidden or unloaded, its window or its owner's
    // has gone, or the program ends. Meanwhile it takes input alone; of several forms that are
    // shown so, the one that was shown last and is still there. owner may be null. Raises
    // failure 91 without a window (unloaded, or gone with its owner), 5 for one that is shown
    // so already.
    void ShowModal(Form* owner);
    // Paints the ground anew, after something that PaintGround draws has changed. Inside
    // PaintGround itself that is under way already.
    void RefreshGround();
    // Destroys the windows; the objects of the controls stay until their form's end.
    void Unload();

    int Dpi() const { return m_Dpi; }
    // Every control, in the order of the layout.
    const std::vector<Control*>& Controls() const { return m_Controls; }
    // The control of that name ("Label_Display(2)" in an array); null where there is none.
    Control* Find(std::u16string_view fullName) const;
    // Gives the focus to the next usable control in the tab order, behind from.
    void FocusNext(const Control& from);

    // In the layout: CaptionBar=yes for a window with the system's caption bar, whose size is
    // then that of the inside; Shape=101 for the region "CUSTOM" 101 of the resources.

    // Pressed by Enter and Esc. In the layout: properties Default=yes and Cancel=yes.
    Control* DefaultButton = nullptr;
    Control* CancelButton = nullptr;
    // Ground: a fill, or a gradient from BackColor down to BackColor2.
    OleColour BackColor = palette::FrameTop;
    OleColour BackColor2 = kNoColour;
    OleColour OutlineColor = kNoColour; // a hair line along the edge of the region

    // Events.
    std::function<void()> Resize;
    std::function<void(int Button, int Shift, int X, int Y)> MouseDown; // X, Y in twips of the client area
    std::function<void()> Closing;    // the caption's close button; without a handler: Unload
    std::function<void()> DpiChanged; // sizes, fonts and pictures have followed already
    // Over the gradient, under all controls; client in pixels.
    std::function<void(HDC, const RECT& client)> PaintGround;

private:
    friend class Control;
    friend class SystemModal;
    friend bool Forms::Filter(MSG&);
    struct Binding {
        std::u16string_view Name;
        int Index;
        Control* Target;
    };

    // FormGround.cpp
    void OnPaint(HDC dc, const RECT& client);
    void OnGround(HDC dc, const RECT& client);
    bool MakeGround(const RECT& client);
    void FillGround(HDC dc, const RECT& client) const;
    void DrawOutline(HDC dc) const;

    // Form.cpp
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    void OnPlace(const RECT& pixels);
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void MakeWindow();
    void ApplyShape();
    void NotePlace();
    void ChangeDpi(int dpi);
    void ThemeChanged();
    void EnabledChanged(Control& changed);
    void EachInside(const Control& container, const std::function<void(Control&)>& job);
    void Forget(Control& control);
    void NoteFocus(Control& control) { m_LastFocus = &control; }

    // FormLayout.cpp
    void MakeControl(const LayoutRow& row, Control* label);
    Control* Bound(const LayoutRow& row);
    Control* ContainerOf(const LayoutRow& row);
    void CheckBindings() const;

    // FormKeys.cpp
    std::vector<Control*> TabOrder() const;
    std::vector<Control*> TabStops() const;
    void FocusFirst();
    void FocusNext(std::vector<Control*> order, const Control& from, bool backwards);
    void KeepFocusUsable(const Control* focused);
    bool FilterKey(const MSG& message);
    bool PressButton(Control* button);
    bool AccessKey(char16_t letter, bool repeated);

    void RememberFocus();

    // FormModal.cpp
    bool IsModal() const;
    bool BehindModal() const; // a modal one stands in front of it
    void EndModal();
    static void DeriveEnabling();

    std::vector<Binding> m_Bindings;
    std::vector<Control*> m_Controls;
    std::vector<std::shared_ptr<void>> m_Own; // the controls that nobody joined
    Control* m_LastFocus = nullptr;
    int m_Dpi = 96;
    bool m_TakesInput = true; // as DeriveEnabling has told its window
    bool m_Caption = false;   // has a caption bar of the system's
    int m_ShapeId = 0;        // of its region among the resources; 0: a plain rectangle
    cRegion m_Shape;
    std::unique_ptr<Canvas> m_Ground;
    bool m_PaintsGround = false;   // inside PaintGround
    bool m_AskedMeanwhile = false; // something was painted there on the plain ground
};

// While it lives, a dialog of the system takes input alone, as a modal form does. Its owner,
// which may be null, is disabled and enabled by the dialog itself.
class SystemModal {
public:
    explicit SystemModal(Form* owner);
    ~SystemModal();
    SystemModal(const SystemModal&) = delete;
    SystemModal& operator=(const SystemModal&) = delete;

private:
    Form* m_Owner; // null also where it takes no input
};
