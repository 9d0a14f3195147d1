#include "windows/MonkeyInput.h"

#include <algorithm>

namespace gui {
namespace {

struct NamedKey {
    const char* Name;
    WORD Key;
};
// Keys that a person has for controls.
constexpr NamedKey kKeys[] = {
    {"Tab", VK_TAB},      {"Tab", VK_TAB},       {"Space", VK_SPACE},  {"Up", VK_UP},
    {"Up", VK_UP},        {"Down", VK_DOWN},     {"Down", VK_DOWN},    {"PageDown", VK_NEXT},
    {"PageUp", VK_PRIOR}, {"Home", VK_HOME},     {"End", VK_END},      {"O", 'O'},
    {"T", 'T'},           {"Delete", VK_DELETE}, {"Enter", VK_RETURN}, {"Esc", VK_ESCAPE},
    {"Left", VK_LEFT},    {"Right", VK_RIGHT},   {"F4", VK_F4},        {"Back", VK_BACK}};

void Turn(bool up) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = MOUSEEVENTF_WHEEL;
    input.mi.mouseData = static_cast<DWORD>(up ? WHEEL_DELTA : -WHEEL_DELTA);
    SendInput(1, &input, sizeof input);
}

} // namespace

Step MonkeyInput::Draw(Dice& dice) {
    switch (dice.Below(16)) {
    case 0:
    case 1:
    case 2:
        return DrawMove(dice);
    case 3:
    case 4:
    case 5: {
        Step step = DrawMove(dice);
        return {"click at " + step.What, [this, move = step.Do] {
                    move();
                    HoldDown();
                    LetGo();
                }};
    }
    case 6:
    case 7:
    case 8: {
        Step step = DrawMove(dice);
        return {"left down at " + step.What, [this, move = step.Do] {
                    move();
                    HoldDown();
                }};
    }
    case 9:
    case 10:
        return {"left up", [this] { LetGo(); }};
    case 11:
        return {"right click", [this] { PressRight(); }};
    case 12: {
        const bool up = dice.OneIn(2);
        return {Told("wheel", up ? "up" : "down"), [up] { Turn(up); }};
    }
    default:
        return DrawKey(dice);
    }
}

// To a place on a control or a bit beside it.
Step MonkeyInput::DrawMove(Dice& dice) {
    const Control& control = dice.OneIn(8) ? m_Form.Window.Base : m_Form.Any(dice);
    const int x = dice.Within(-5, 105), y = dice.Within(-5, 105);
    return {Told("mouse", x, y, "percent of", NameOf(control)),
            [=, this, &control] { Point(control, x, y); }};
}

Step MonkeyInput::DrawKey(Dice& dice) {
    const NamedKey key = dice.Of(kKeys);
    const bool shift = dice.OneIn(4);
    return {std::string(shift ? "Shift and key " : "key ") + key.Name, [=] {
                if (shift) Key(VK_SHIFT, false);
                Type(key.Key);
                if (shift) Key(VK_SHIFT, true);
            }};
}

void MonkeyInput::Point(const Control& control, int percentX, int percentY) {
    RECT place{};
    GetWindowRect(control.hWnd(), &place);
    POINT to{place.left + (place.right - place.left) * percentX / 100,
             place.top + (place.bottom - place.top) * percentY / 100};
    to.x = std::clamp<LONG>(to.x, 0, GetSystemMetrics(SM_CXSCREEN) - 20);
    to.y = std::clamp<LONG>(to.y, 0, GetSystemMetrics(SM_CYSCREEN) - 20);
    MoveTo(to);
}

void MonkeyInput::HoldDown() {
    if (m_Held || !MayPress()) return;
    Press(MOUSEEVENTF_LEFTDOWN);
    m_Held = true;
}

// Also where the press was elsewhere.
void MonkeyInput::LetGo() {
    Press(MOUSEEVENTF_LEFTUP);
    m_Held = false;
}

void MonkeyInput::PressRight() {
    if (!MayPress()) return;
    Press(MOUSEEVENTF_RIGHTDOWN);
    Press(MOUSEEVENTF_RIGHTUP);
}

// A press beside the form would give others the focus.
bool MonkeyInput::MayPress() const {
    m_Ui.Settle(); // a list may open or close
    POINT at{};
    GetCursorPos(&at);
    const HWND under = WindowFromPoint(at);
    if (!under) return false;
    wchar_t name[32] = L"";
    GetClassNameW(under, name, 32);
    return GetAncestor(under, GA_ROOT) == m_Form.Window.Base.hWnd() ||
           std::wstring_view(name) == L"ComboLBox";
}

} // namespace gui
