// The modal show of a form.
#include "controls/EventFrame.h"
#include "controls/Form.h"

void Form::ShowModal(Form* owner) {
    StillThere here(Base);
    SetWindowLongPtrW(Base.m_hWnd, GWLP_HWNDPARENT,
                      reinterpret_cast<LONG_PTR>(owner ? owner->Base.m_hWnd : nullptr));
    for (Form* other : Forms::All()) {
        if (other == this || !IsWindowEnabled(other->Base.m_hWnd)) continue;
        EnableWindow(other->Base.m_hWnd, FALSE);
        m_Disabled.push_back(other->Base.m_hWnd);
    }
    m_Modal = true;
    Show();
    MSG message;
    // The form may be gone after any message.
    while (here && m_Modal) {
        if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (Forms::Filter(message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    if (here) EndModal();
    EventFrame::Rethrow();
}

// The others are enabled before this one goes, so that the system activates its owner.
void Form::EndModal() {
    if (!m_Modal) return;
    m_Modal = false;
    for (const HWND window : m_Disabled) {
        if (IsWindow(window)) EnableWindow(window, TRUE);
    }
    m_Disabled.clear();
}
