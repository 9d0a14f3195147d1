#include "base/DoEvents.h"

#include "base/win.h"

namespace {
DoEventsHooks g_Hooks;
}

void SetDoEventsHooks(const DoEventsHooks& hooks) {
    g_Hooks = hooks;
}

void DoEvents() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            // The end belongs to the outermost loop: it must see it too.
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (!g_Hooks.Filter || !g_Hooks.Filter(&message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        if (g_Hooks.AfterEach) g_Hooks.AfterEach();
    }
    if (g_Hooks.AfterEach) g_Hooks.AfterEach();
}
