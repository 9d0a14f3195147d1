// A form's window, its place, DPI and theme. Its controls: FormLayout.cpp; ground:
// FormGround.cpp; keys: FormKeys.cpp; the modal show: FormModal.cpp.
//
// Tested by tests/windows/form_test.cpp, shaped_form_test.cpp and dpi_test.cpp.
#include "controls/Form.h"

#include "base/DoEvents.h"
#include "base/RuntimeFailure.h"
#include "controls/Dpi.h"
#include "controls/EventFrame.h"
#include "controls/Painting.h"

#include <commctrl.h>

namespace {

std::vector<Form*> g_Forms;

bool FilterHook(void* message) {
    return Forms::Filter(*static_cast<MSG*>(message));
}

// What the thread of the windows needs once.
void StartKit() {
    static thread_local const bool started = [] {
        OleInitialize(nullptr);
        INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
        InitCommonControlsEx(&classes);
        SetDoEventsHooks({FilterHook, EventFrame::Rethrow});
        return true;
    }();
    (void)started;
}

} // namespace

const ControlKind Form::kKind{
    .TypeName = u"Form",
    .LayoutKinds = u"form",
    .Container = true,
    .Property = Entry<&Form::OnProperty>::Call,
    .Paint = Entry<&Form::OnPaint>::Call,
    .Ground = Entry<&Form::OnGround>::Call,
    .Message = Entry<&Form::OnMessage>::Call,
    .Place = Entry<&Form::OnPlace>::Call,
};

Form::Form() : Base(this, kKind) {}

Form::~Form() {
    Unload();
    // While a failure ends the program no form hears of WM_DESTROY.
    std::erase(g_Forms, this);
    for (Control* control : m_Controls) {
        control->m_Form = nullptr;
        control->m_Container = nullptr;
        control->m_Label = nullptr;
    }
    Base.m_Form = nullptr;
}

const std::vector<Form*>& Forms::All() {
    return g_Forms;
}

void Form::MakeWindow() {
    StartKit();
    const DWORD style =
        WS_CLIPCHILDREN | static_cast<DWORD>(m_Caption ? WS_POPUP | WS_CAPTION | WS_SYSMENU : WS_POPUP);
    const DWORD exStyle = m_Caption ? WS_EX_DLGMODALFRAME : 0;
    const HWND window = CreateWindowExW(exStyle, Control::OwnClass(), Wide(Base.m_Caption), style, 0, 0, 0, 0,
                                        nullptr, nullptr, GetModuleHandleW(nullptr), &Base);
    if (!window)
        throw RuntimeFailure(static_cast<int>(GetLastError()), Base.m_Name, u"The window cannot be made");
    g_Forms.push_back(this);
    DeriveEnabling();
    m_Dpi = DpiOf(window);
    RECT work{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    Base.m_Left = (ToTwips(work.left + work.right, m_Dpi) - Base.m_Width) / 2;
    Base.m_Top = (ToTwips(work.top + work.bottom, m_Dpi) - Base.m_Height) / 2;
    Base.m_Visible = false;
    Base.PlaceWindow();
    ApplyShape();
}

void Form::ApplyShape() {
    if (!m_ShapeId) return;
    if (!m_Shape.RegionFromResource(m_ShapeId, u"CUSTOM", m_Dpi))
        throw RuntimeFailure(kTypeMismatch, Base.m_Name, u"There is no such shape");
    m_Shape.Apply(Base.m_hWnd);
}

bool Form::OnProperty(std::u16string_view name, std::u16string_view value) {
    if (name == u"BackColor")
        BackColor = ParseColour(value);
    else if (name == u"BackColor2")
        BackColor2 = ParseColour(value);
    else if (name == u"OutlineColor")
        OutlineColor = ParseColour(value);
    else if (name == u"CaptionBar")
        m_Caption = ParseYesNo(value);
    else if (name == u"Shape")
        m_ShapeId = ParseNumber(value);
    else
        return false;
    return true;
}

// Under a caption bar the layout's size is that of the inside. It is rounded by itself, wherever
// the form lies on the screen: its controls count from its own edge.
void Form::OnPlace(const RECT& pixels) {
    RECT outer{0, 0, ToPixels(Base.m_Width, m_Dpi), ToPixels(Base.m_Height, m_Dpi)};
    if (m_Caption) {
        const auto style = static_cast<DWORD>(GetWindowLongW(Base.m_hWnd, GWL_STYLE));
        const auto exStyle = static_cast<DWORD>(GetWindowLongW(Base.m_hWnd, GWL_EXSTYLE));
        using AdjustForDpi = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
        static const auto adjust = Lookup<AdjustForDpi>(L"user32.dll", "AdjustWindowRectExForDpi");
        if (adjust)
            adjust(&outer, style, FALSE, exStyle, static_cast<UINT>(m_Dpi));
        else
            AdjustWindowRectEx(&outer, style, FALSE, exStyle);
    }
    SetWindowPos(Base.m_hWnd, nullptr, pixels.left, pixels.top, WidthOf(outer), HeightOf(outer),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER);
}

// Where the user has put the window.
void Form::NotePlace() {
    if (IsIconic(Base.m_hWnd)) return;
    RECT place;
    GetWindowRect(Base.m_hWnd, &place);
    if (ToPixels(Base.m_Left, m_Dpi) != place.left) Base.m_Left = ToTwips(place.left, m_Dpi);
    if (ToPixels(Base.m_Top, m_Dpi) != place.top) Base.m_Top = ToTwips(place.top, m_Dpi);
}

bool Form::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_MOVE:
        NotePlace();
        return false;
    case WM_SIZE:
        Raise(Resize);
        return true;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN: {
        const MouseAt mouse = ReadMouse(message, wParam, lParam, m_Dpi);
        Raise(MouseDown, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
        return true;
    }
    case WM_ACTIVATE:
        if (LOWORD(wParam) == WA_INACTIVE) RememberFocus();
        return false;
    case WM_SETFOCUS:
        // The last one may have been disabled while the form was not active.
        if (!m_LastFocus)
            FocusFirst();
        else if (m_LastFocus->Usable())
            m_LastFocus->SetFocus();
        else
            FocusNext(*m_LastFocus);
        return true;
    case WM_SHOWWINDOW:
        // Not when it goes and comes with its minimised owner.
        if (!wParam && lParam == 0) EndModal();
        return false;
    case WM_CLOSE:
        if (Closing)
            Raise(Closing);
        else
            Unload();
        return true;
    case WM_DPICHANGED: {
        const auto* suggested = reinterpret_cast<const RECT*>(lParam);
        const int dpi = HIWORD(wParam);
        if (suggested) {
            Base.m_Left = ToTwips(suggested->left, dpi);
            Base.m_Top = ToTwips(suggested->top, dpi);
        }
        ChangeDpi(dpi);
        return true;
    }
    case WM_SETTINGCHANGE:
        // Forms that steer their own dragging switch this back and forth, and it has no colours.
        if (wParam == SPI_SETDRAGFULLWINDOWS) return false;
        [[fallthrough]];
    case WM_SYSCOLORCHANGE:
        ThemeChanged();
        return false;
    case WM_DESTROY:
        std::erase(g_Forms, this);
        EndModal();
        return false;
    default:
        (void)result;
        return false;
    }
}

void Form::ChangeDpi(int dpi) {
    const StillThere here(Base);
    m_Dpi = dpi;
    Base.PlaceWindow();
    if (!here || !Base.m_hWnd) return; // Resize may have taken it away
    ApplyShape();
    for (Control* control : m_Controls) {
        control->FontChanged();
        if (control->m_hWnd) control->PlaceWindow();
        control->Tell(Change::Dpi);
    }
    RefreshGround();
    Raise(DpiChanged);
}

void Form::ThemeChanged() {
    Theme::SettingsChanged();
    for (Control* control : m_Controls) {
        if (control->m_hWnd && control->m_Kind->WindowClass)
            SendMessageW(control->m_hWnd, WM_SYSCOLORCHANGE, 0, 0);
        control->Tell(Change::Theme);
    }
    RefreshGround();
}

// What stands in a disabled container is disabled too, and shows it.
void Form::EnabledChanged(Control& changed) {
    const auto tell = [this](Control& control) {
        if (&control == &Base)
            DeriveEnabling();
        else if (control.m_hWnd)
            EnableWindow(control.m_hWnd, control.EnabledInAll());
        control.Tell(Change::Enabled);
    };
    tell(changed);
    EachInside(changed, tell);
    // The active form lost the focus when it was disabled.
    if (&changed == &Base && m_TakesInput && GetActiveWindow() == Base.m_hWnd && !GetFocus())
        ::SetFocus(Base.m_hWnd);
}

// Everything that stands in it, however deep.
void Form::EachInside(const Control& container, const std::function<void(Control&)>& job) {
    for (Control* control : m_Controls) {
        for (const Control* outer = control->m_Container; outer; outer = outer->m_Container) {
            if (outer == &container) job(*control);
        }
    }
}

void Form::Forget(Control& control) {
    if (&control == &Base) return;
    std::erase(m_Controls, &control);
    std::erase_if(m_Bindings, [&](const Binding& binding) { return binding.Target == &control; });
    for (Control* other : m_Controls) {
        if (other->m_Container == &control) other->m_Container = nullptr;
        if (other->m_Label == &control) other->m_Label = nullptr;
    }
    for (Control** held : {&m_LastFocus, &DefaultButton, &CancelButton}) {
        if (*held == &control) *held = nullptr;
    }
}

void Form::Show() {
    Base.Visible(true);
    if (!Base.m_hWnd || BehindModal()) return;
    SetForegroundWindow(Base.m_hWnd);
    if (!Base.HasFocus()) ::SetFocus(Base.m_hWnd);
}

void Form::Hide() {
    Base.Visible(false);
}

void Form::Unload() {
    EndModal();
    for (Control* control : m_Controls) control->m_Tip.reset();
    Base.DestroyWindowNow();
}
