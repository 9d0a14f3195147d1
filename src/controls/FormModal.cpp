// The modal show of a form, and dialogs of the system. One stack tells of both, and from it
// follows which forms take input: the topmost modal one alone, without a modal one all.
//
// Tested by tests/windows/form_modal_test.cpp and form_behind_test.cpp.
#include "base/RuntimeFailure.h"
#include "controls/EventFrame.h"
#include "controls/Form.h"

#include <algorithm>

namespace {

// A modal form, or a dialog of the system with its owner, which may be null.
struct Modal {
    Form* Of;
    bool System;
};
std::vector<Modal> g_Modal; // the topmost last

void SetOwner(HWND window, HWND owner) {
    SetWindowLongPtrW(window, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
}

bool HasWindow(const Form* form) {
    const auto& forms = Forms::All();
    return std::find(forms.begin(), forms.end(), form) != forms.end();
}

} // namespace

void Form::ShowModal(Form* owner) {
    if (!Base.m_hWnd) throw RuntimeFailure(kObjectNotSet, Base.m_Name, u"The form has no window");
    if (IsModal()) throw RuntimeFailure(kInvalidCall, Base.m_Name, u"The form is shown modally already");
    const StillThere here(Base);
    g_Modal.push_back({this, false});
    SetOwner(Base.m_hWnd, owner && owner != this ? owner->Base.m_hWnd : nullptr);
    DeriveEnabling();
    if (here && IsModal()) Show();
    MSG message;
    // The form may be gone after any message.
    while (here && IsModal()) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (Forms::Filter(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    if (here) {
        EndModal();
        // Else a hidden form would go with the owner of its last show.
        if (Base.m_hWnd) SetOwner(Base.m_hWnd, nullptr);
    }
    EventFrame::Rethrow();
}

bool Form::IsModal() const {
    return std::any_of(g_Modal.begin(), g_Modal.end(),
                       [this](const Modal& modal) { return modal.Of == this && !modal.System; });
}

bool Form::BehindModal() const {
    return !g_Modal.empty() && g_Modal.back().Of != this;
}

// Whatever hides the form or takes its window comes here, and before the window has gone:
// then the others are enabled in time for the system to activate the owner.
void Form::EndModal() {
    // A dialog that it owns outlives it, if only by the way back to the caller.
    for (Modal& modal : g_Modal) {
        if (modal.Of == this && modal.System) modal.Of = nullptr;
    }
    if (std::erase_if(g_Modal, [this](const Modal& modal) { return modal.Of == this; }) == 0) return;
    DeriveEnabling();
    // What was sent, not posted, does not end the wait of the loop above.
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

// Only what changes is touched, and never the owner of a dialog of the system, which disables
// and enables it by itself.
void Form::DeriveEnabling() {
    const std::vector<Form*> forms = Forms::All();
    for (Form* form : forms) {
        // Losing the focus may have run a handler that has destroyed a form.
        if (!HasWindow(form)) continue;
        if (!g_Modal.empty() && g_Modal.back().System && g_Modal.back().Of == form) continue;
        const bool takes = form->Base.m_Enabled && !form->BehindModal();
        if (takes == form->m_TakesInput) continue;
        form->m_TakesInput = takes;
        if (!takes) form->RememberFocus();
        EnableWindow(form->Base.m_hWnd, takes);
    }
}

SystemModal::SystemModal(Form* owner) : m_Owner(owner && owner->m_TakesInput ? owner : nullptr) {
    g_Modal.push_back({m_Owner, true});
    Form::DeriveEnabling();
}

// Of several dialogs the one that was shown last ends first.
SystemModal::~SystemModal() {
    const auto top =
        std::find_if(g_Modal.rbegin(), g_Modal.rend(), [](const Modal& modal) { return modal.System; });
    if (top != g_Modal.rend()) g_Modal.erase(std::next(top).base());
    Form::DeriveEnabling();
    // A dialog that ends because the program does may leave its owner disabled.
    const bool another = !g_Modal.empty() && g_Modal.back().System;
    if (m_Owner && !another && HasWindow(m_Owner)) EnableWindow(m_Owner->Base.hWnd(), m_Owner->m_TakesInput);
}
