#include "windows/MonkeyOrder.h"

namespace gui {
namespace {

// Only what lies under the mouse is hot.
std::string WrongHover(EveryForm& form) {
    if (GetCapture()) return {};
    POINT at{};
    GetCursorPos(&at);
    const HWND under = WindowFromPoint(at);
    const struct {
        const Control& Of;
        bool Hovered;
    } all[] = {{form.Tick.Base, form.Tick.State().Hovering},
               {form.Task[0].Base, form.Task[0].State().Hovering},
               {form.Task[1].Base, form.Task[1].State().Hovering},
               {form.Rows.Base, form.Rows.HoveredRow() >= 0},
               // The space bar makes a button hot too.
               {form.Go->Base, form.Go->State().Hovering && !form.Go->State().Pressed}};
    std::string wrong;
    for (const auto& [control, hovered] : all) {
        if (hovered && under != control.hWnd()) wrong += NameOf(control) + " stays hot; ";
    }
    return wrong;
}

bool IsOpenListOrMenu(HWND window) {
    wchar_t name[32] = L"";
    GetClassNameW(window, name, 32);
    return std::wstring_view(name) == L"ComboLBox" || std::wstring_view(name) == L"#32768";
}

// The list of a combo that is not open has the mouse.
bool HoldsClosed(const Control& combo, HWND captor) {
    COMBOBOXINFO parts{};
    parts.cbSize = sizeof parts;
    GetComboBoxInfo(combo.hWnd(), &parts);
    return parts.hwndList == captor && !SendMessageW(combo.hWnd(), CB_GETDROPPEDSTATE, 0, 0);
}

// Without a held button only an open list or menu has the mouse.
std::string WrongCapture(EveryForm& form, bool held) {
    const HWND captor = GetCapture();
    if (!captor) return {};
    if (HoldsClosed(form.Choice->Base, captor) || HoldsClosed(form.Faces.Base, captor))
        return "a closed list holds the mouse; ";
    if (held || IsOpenListOrMenu(captor)) return {};
    const Control* control = Control::Around(captor);
    return (control ? NameOf(*control) : "a window") + " holds the mouse; ";
}

std::string WrongFocus(EveryForm& form) {
    const Control* focused = Control::Around(GetFocus());
    if (!focused) return "the focus is nowhere; ";
    if (focused == &form.Window.Base || focused->Usable()) return {};
    return "the focus is on " + NameOf(*focused) + ", which is not usable; ";
}

} // namespace

std::string Disorder(MonkeyForm& form, bool held) {
    const std::string failed = EventFrame::Ending() ? "an event has failed; " : "";
    return failed + WrongHover(form.Every) + WrongCapture(form.Every, held) + WrongFocus(form.Every);
}

} // namespace gui
