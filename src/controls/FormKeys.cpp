// Keys that belong to the form: Tab, Enter, Esc and access keys.
//
// Tested by tests/windows/form_keys_test.cpp and option_keys_test.cpp.
#include "controls/Caption.h"
#include "controls/EventFrame.h"
#include "controls/Form.h"

#include <algorithm>

int Forms::Run() {
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (Filter(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return static_cast<int>(message.wParam);
}

bool Forms::Filter(MSG& message) {
    if (message.message != WM_KEYDOWN && message.message != WM_SYSCHAR) return false;
    if (EventFrame::Ending()) return false;
    const Control* control = Control::Around(message.hwnd);
    if (!control || !control->Parent()) return false;
    return EventFrame::Run(true, [&] { return control->Parent()->FilterKey(message); });
}

bool Form::FilterKey(const MSG& message) {
    const bool repeated = (message.lParam & (1 << 30)) != 0;
    if (message.message == WM_SYSCHAR) return AccessKey(static_cast<char16_t>(message.wParam), repeated);
    Control* focused = Control::Around(message.hwnd);
    const WPARAM key = message.wParam;
    if (GetKeyState(VK_CONTROL) < 0) return false;
    if (key == VK_TAB) {
        if (focused == &Base)
            FocusFirst();
        else
            FocusNext(TabStops(), *focused, GetKeyState(VK_SHIFT) < 0);
        return true;
    }
    if (key != VK_RETURN && key != VK_ESCAPE) return false;
    if (focused->Kind().WantsKey && focused->Kind().WantsKey(focused->m_Owner, key)) return false;
    Control* pressed = key == VK_ESCAPE ? CancelButton : DefaultButton;
    if (key == VK_RETURN && focused->Kind().EnterPresses) pressed = focused;
    if (!pressed) return false;
    // A key that is held down presses once.
    return repeated || PressButton(pressed);
}

bool Form::PressButton(Control* button) {
    if (!button->Usable() || !button->Kind().Press) return false;
    button->Kind().Press(button->m_Owner);
    return true;
}

// One that is held down acts once.
bool Form::AccessKey(char16_t letter, bool repeated) {
    // Looked for behind the focus, so that controls that share a key take turns.
    std::vector<Control*> order = m_Controls;
    const auto focused = std::find_if(order.begin(), order.end(),
                                      [](Control* c) { return c->HasFocus() && !c->Kind().Container; });
    if (focused != order.end()) std::rotate(order.begin(), focused + 1, order.end());
    const char16_t wanted = AccessKeyOf(std::u16string{u'&', letter});
    if (!wanted) return false; // an ampersand is the key of no caption, nor of one without a key
    for (Control* control : order) {
        if (AccessKeyOf(control->Caption()) != wanted) continue;
        if (control->Kind().Press && control->Usable()) {
            if (repeated) return true;
            const StillThere here(*control);
            if (control->Kind().Focusable) control->SetFocus();
            if (here) control->Kind().Press(control->m_Owner);
            return true;
        }
        for (Control* labelled : m_Controls) {
            if (labelled->m_Label != control || !labelled->Usable()) continue;
            if (!repeated) labelled->SetFocus();
            return true;
        }
    }
    return false;
}

std::vector<Control*> Form::TabOrder() const {
    std::vector<Control*> order;
    for (Control* control : m_Controls) {
        if (control->m_TabIndex >= 0 && control->Kind().Focusable) order.push_back(control);
    }
    std::stable_sort(order.begin(), order.end(),
                     [](const Control* a, const Control* b) { return a->m_TabIndex < b->m_TabIndex; });
    return order;
}

// What Tab and the first focus come to: one of each group.
std::vector<Control*> Form::TabStops() const {
    std::vector<Control*> stops = TabOrder();
    std::erase_if(stops, [](const Control* control) {
        return control->Kind().TakesTab && !control->Kind().TakesTab(control->m_Owner);
    });
    return stops;
}

void Form::FocusFirst() {
    for (Control* control : TabStops()) {
        if (!control->Usable()) continue;
        control->SetFocus();
        return;
    }
}

// The focus may be inside a control, which does not hear of it.
void Form::RememberFocus() {
    Control* focused = Control::Around(GetFocus());
    if (focused && focused != &Base && focused->m_Form == this) m_LastFocus = focused;
}

// What had the focus may have been disabled, hidden or covered: then the next one gets it.
void Form::KeepFocusUsable(const Control* focused) {
    if (!focused || focused == &Base || focused->m_Form != this || focused->Usable()) return;
    FocusNext(*focused);
}

void Form::FocusNext(const Control& from) {
    FocusNext(TabOrder(), from, false);
}

void Form::FocusNext(std::vector<Control*> order, const Control& from, bool backwards) {
    // Up to from, or to where it would stand, goes to the end.
    auto behind = std::find(order.begin(), order.end(), &from);
    if (behind != order.end())
        ++behind;
    else
        behind = std::find_if(order.begin(), order.end(),
                              [&](const Control* c) { return c->m_TabIndex > from.m_TabIndex; });
    std::rotate(order.begin(), behind, order.end());
    if (!order.empty() && order.back() == &from) order.pop_back();
    if (backwards) std::reverse(order.begin(), order.end());
    for (Control* control : order) {
        if (!control->Usable()) continue;
        control->SetFocus();
        return;
    }
    // Nothing is left to take it: the form keeps the keys.
    if (!from.Usable()) ::SetFocus(Base.m_hWnd);
}
