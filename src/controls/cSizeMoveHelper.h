// Tells of a window's activation and of each step of its moving and sizing, and has the
// mouse move its outline only.
#pragma once

#include "controls/ISubclass.h"

#include <functional>
#include <memory>

class cSizeMoveHelper final : public ISubclass {
public:
    cSizeMoveHelper() = default;
    ~cSizeMoveHelper(); // detaches
    cSizeMoveHelper(const cSizeMoveHelper&) = delete;
    cSizeMoveHelper& operator=(const cSizeMoveHelper&) = delete;

    // Watches hWnd, and no longer the window before it. Raises what
    // MSubclass::AttachMessage raises.
    void Attach(HWND hWnd);
    // Also puts a changed drag setting back.
    void Detach();

    // While it is on and the window is active, the system's full-window drag is off.
    bool NoFullDrag() const { return m_NoFullDrag; }
    void NoFullDrag(bool on);
    bool Active() const { return m_Active; }

    // Puts the drag setting back where any helper has changed it; for the end of the
    // process, on whatever way it comes. The usual end calls it by itself.
    static void RestoreDragSetting() noexcept;

    // Events; pixels of the screen.
    std::function<void()> EnterSizeMove;
    std::function<void()> ExitSizeMove;
    std::function<void(bool byMouse)> Activate;
    std::function<void()> Deactivate;
    // During a drag a handler may change the values, and so steer the window. Sizing comes
    // also after a change of size from code, with values that lead nowhere.
    std::function<void(LONG& left, LONG& top, LONG& width, LONG& height)> Moving;
    std::function<void(LONG& left, LONG& top, LONG& width, LONG& height)> Sizing;

    // ISubclass, for MSubclass only.
    int MsgResponse() override;
    void MsgResponse(int) override {}
    LRESULT WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) override;

private:
    void ApplyDragSetting();
    void Steer(RECT& place, const std::function<void(LONG&, LONG&, LONG&, LONG&)>& event);

    HWND m_Window = nullptr;
    bool m_NoFullDrag = false;
    bool m_Active = false;
    // Shared with the handlers that run, one of which may end this object.
    std::shared_ptr<bool> m_InSizeMove = std::make_shared<bool>(false);
};
