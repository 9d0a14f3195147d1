// The modal show of a form. One stack tells which forms are shown so, and from it follows
// which forms take input: the topmost modal one alone, without a modal one all.
#include "base/RuntimeFailure.h"
#include "controls/EventFrame.h"
#include "controls/Form.h"

#include <algorithm>

namespace {

std::vector<Form*> g_Modal; // the topmost last

void SetOwner(HWND window, HWND owner) {
    SetWindowLongPtrW(window, GWLP_HWNDPARENT, reinterpret_cast<LONG_PTR>(owner));
}

} // namespace

void Form::ShowModal(Form* owner) {
    if (!Base.m_hWnd) throw RuntimeFailure(kObjectNotSet, Base.m_Name, u"The form has no window");
    if (IsModal()) throw RuntimeFailure(kInvalidCall, Base.m_Name, u"The form is shown modally already");
    const StillThere here(Base);
    g_Modal.push_back(this);
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
    return std::find(g_Modal.begin(), g_Modal.end(), this) != g_Modal.end();
}

bool Form::BehindModal() const {
    return !g_Modal.empty() && g_Modal.back() != this;
}

// Whatever hides the form or takes its window comes here, and before the window has gone:
// then the others are enabled in time for the system to activate the owner.
void Form::EndModal() {
    if (std::erase(g_Modal, this) == 0) return;
    DeriveEnabling();
    // What was sent, not posted, does not end the wait of the loop above.
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

// Only what changes is touched: a box of the system disables its owner by itself.
void Form::DeriveEnabling() {
    const std::vector<Form*> forms = Forms::All();
    for (Form* form : forms) {
        // Losing the focus may have run a handler that has destroyed a form.
        const auto& present = Forms::All();
        if (std::find(present.begin(), present.end(), form) == present.end()) continue;
        const bool takes = form->Base.m_Enabled && !form->BehindModal();
        if (takes == form->m_TakesInput) continue;
        form->m_TakesInput = takes;
        if (!takes) form->RememberFocus();
        EnableWindow(form->Base.m_hWnd, takes);
    }
}
