// One tip window with two tools. The control itself is the first. A disabled control gets
// no mouse messages, they go to its parent: so there the second tool lies, in the place of
// the control, whenever the mouse is over it. The tip is told of the mouse from here: where
// it listens by itself, the end of one tip can make another one of the same window deaf.
//
// The tip window has no owner: a window that owns another one would take it along when it
// becomes top-most, or not become so itself.
//
// Tested by tests/windows/ctooltip_test.cpp.

#include "controls/cToolTip.h"

#include "base/Text.h"
#include "controls/Dpi.h"
#include "controls/MSubclass.h"

#include <commctrl.h>

#include <algorithm>

namespace {

constexpr UINT kMouseMessages[] = {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN};
constexpr UINT kTipMessages[] = {WM_SYSCOLORCHANGE, WM_SETTINGCHANGE};
constexpr int kWidestLine = 400;          // pixels of 96 DPI
constexpr std::size_t kLongestTitle = 99; // more the system does not take

// The record in the size that every version of the system takes.
TTTOOLINFOW Tool(HWND window) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.hwnd = window;
    tool.uId = 1;
    return tool;
}

LRESULT SendTool(HWND tip, UINT message, TTTOOLINFOW& tool) {
    return SendMessageW(tip, message, 0, reinterpret_cast<LPARAM>(&tool));
}

// A text is shown as it stands, ampersands included.
DWORD WindowStyle(int style) {
    return static_cast<DWORD>(style & 0xFFFF) | TTS_NOPREFIX;
}

std::u16string WithLineBreaks(const std::u16string& text) {
    return text::ReplaceAll(text, u"|", u"\r\n");
}

} // namespace

cToolTip::~cToolTip() {
    Remove();
}

void cToolTip::Remove() {
    if (!m_Tip) return;
    for (HWND window : {m_Control, m_Parent})
        for (UINT message : kMouseMessages) MSubclass::DetachMessage(*this, window, message);
    for (UINT message : kTipMessages) MSubclass::DetachMessage(*this, m_Tip, message);
    DestroyWindow(m_Tip);
    m_Tip = m_Control = m_Parent = nullptr;
}

bool cToolTip::Create(HWND control, std::u16string_view text, int style, bool centered, int icon,
                      std::u16string_view title, OleColour foreColour, OleColour backColour, int popupTime,
                      int hoverTime) {
    Remove();
    m_InitialText = m_Text = text;
    m_InitialTitle = m_Title = title;
    m_Style = style;
    m_Centered = centered;
    m_Icon = icon;
    m_ForeColour = foreColour;
    m_BackColour = backColour;
    m_PopupTime = popupTime;
    m_HoverTime = hoverTime;
    if (!IsWindow(control)) return false;

    m_Tip = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | WindowStyle(style),
                            CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr,
                            GetModuleHandleW(nullptr), nullptr);
    if (!m_Tip) return false;
    m_Control = control;
    m_Parent = GetAncestor(control, GA_PARENT);
    if (m_Parent == GetDesktopWindow()) m_Parent = nullptr;

    // A width, however large, is what lets a tip have more than one line.
    SendMessageW(m_Tip, TTM_SETMAXTIPWIDTH, 0, Scaled(kWidestLine, DpiOf(control)));
    m_InControl = m_InParent = {};
    GetClientRect(control, &m_InControl);
    AddTool(control, m_InControl);
    if (m_Parent) AddTool(m_Parent, m_InParent);
    if (!m_Title.empty()) ShowTitle();
    ShowColours();
    ShowTimes();
    for (UINT message : kTipMessages) MSubclass::AttachMessage(*this, m_Tip, message);
    for (HWND window : {m_Control, m_Parent})
        for (UINT message : kMouseMessages)
            if (window) MSubclass::AttachMessage(*this, window, message);
    return true;
}

void cToolTip::AddTool(HWND window, RECT place) {
    TTTOOLINFOW tool = Tool(window);
    tool.uFlags = m_Centered ? TTF_CENTERTIP : 0;
    tool.rect = place;
    std::u16string lines = WithLineBreaks(m_Text);
    tool.lpszText = Wide(lines.data());
    SendTool(m_Tip, TTM_ADDTOOLW, tool);
}

void cToolTip::Text(std::u16string_view text) {
    m_Text = text;
    ShowText();
}

// A tip on the screen takes its new size here.
void cToolTip::ShowText() {
    if (!m_Tip) return;
    std::u16string lines = WithLineBreaks(m_Text);
    for (HWND window : {m_Control, m_Parent}) {
        TTTOOLINFOW tool = Tool(window);
        tool.lpszText = Wide(lines.data());
        SendTool(m_Tip, TTM_UPDATETIPTEXTW, tool);
    }
}

void cToolTip::Title(std::u16string_view title) {
    m_Title = title;
    ShowTitle();
    ShowText();
}

void cToolTip::Icon(int icon) {
    m_Icon = icon;
    ShowTitle();
    ShowText();
}

void cToolTip::ShowTitle() {
    const std::u16string title = m_Title.substr(0, kLongestTitle);
    const int icon = title.empty() ? TTI_NONE : m_Icon;
    SendMessageW(m_Tip, TTM_SETTITLEW, static_cast<WPARAM>(icon), reinterpret_cast<LPARAM>(Wide(title)));
}

void cToolTip::Style(int style) {
    m_Style = style;
    const DWORD others = static_cast<DWORD>(GetWindowLongW(m_Tip, GWL_STYLE)) & 0xFFFF0000;
    SetWindowLongW(m_Tip, GWL_STYLE, static_cast<LONG>(others | WindowStyle(style)));
}

void cToolTip::Centered(bool centered) {
    m_Centered = centered;
    for (HWND window : {m_Control, m_Parent}) {
        TTTOOLINFOW tool = Tool(window);
        std::u16string room(WithLineBreaks(m_Text).size() + 1, u'\0');
        tool.lpszText = Wide(room.data());
        if (!SendTool(m_Tip, TTM_GETTOOLINFOW, tool)) continue;
        tool.uFlags = (tool.uFlags & ~static_cast<UINT>(TTF_CENTERTIP)) | (centered ? TTF_CENTERTIP : 0);
        SendTool(m_Tip, TTM_SETTOOLINFOW, tool);
    }
}

void cToolTip::ForeCol(OleColour colour) {
    m_ForeColour = colour;
    ShowColours();
}

void cToolTip::BackCol(OleColour colour) {
    m_BackColour = colour;
    ShowColours();
}

void cToolTip::ShowColours() {
    const OleColour fore = m_ForeColour == kNoColour ? 0x80000000 | COLOR_INFOTEXT : m_ForeColour;
    const OleColour back = m_BackColour == kNoColour ? 0x80000000 | COLOR_INFOBK : m_BackColour;
    SendMessageW(m_Tip, TTM_SETTIPTEXTCOLOR, Theme::Pick(Resolve(fore), COLOR_INFOTEXT), 0);
    SendMessageW(m_Tip, TTM_SETTIPBKCOLOR, Theme::Pick(Resolve(back), COLOR_INFOBK), 0);
}

void cToolTip::HoverTime(int milliseconds) {
    m_HoverTime = milliseconds;
    ShowTimes();
}

void cToolTip::PopupTime(int milliseconds) {
    m_PopupTime = milliseconds;
    ShowTimes();
}

// The system's own times, which it documents in these terms, are spelt out: not every
// version takes -1 for them. Longer ones than the message can carry become the longest.
void cToolTip::ShowTimes() {
    auto set = [this](WPARAM which, int time, UINT usual) {
        const int wanted = time < 0 ? static_cast<int>(usual) : time;
        SendMessageW(m_Tip, TTM_SETDELAYTIME, which, std::min(wanted, 32767));
    };
    set(TTDT_INITIAL, m_HoverTime, GetDoubleClickTime());
    set(TTDT_AUTOPOP, m_PopupTime, 10 * GetDoubleClickTime());
}

// On a change of the settings the tip takes the system's colours first, then ours.
int cToolTip::MsgResponse() {
    const UINT message = MSubclass::CurrentMessage();
    return message == WM_SYSCOLORCHANGE || message == WM_SETTINGCHANGE ? kPreviousFirst : kClientFirst;
}

LRESULT cToolTip::WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) {
    if (hWnd == m_Tip) {
        Theme::SettingsChanged(); // a tip is top-most and may hear of it before any form
        ShowColours();
        return 0;
    }
    const POINT at{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    if (hWnd == m_Control)
        PlaceInControl();
    else
        PlaceInParent(at);
    MSG relayed{hWnd, iMsg, wParam, lParam, static_cast<DWORD>(GetMessageTime()), at};
    ClientToScreen(hWnd, &relayed.pt);
    SendMessageW(m_Tip, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
    return 0;
}

// The control may have another size by now.
void cToolTip::PlaceInControl() {
    RECT place{};
    GetClientRect(m_Control, &place);
    PlaceTool(m_Control, place, m_InControl);
}

// A control that lies hidden or behind another one is not under the mouse.
void cToolTip::PlaceInParent(POINT mouse) {
    RECT place{};
    if (ChildWindowFromPointEx(m_Parent, mouse, CWP_SKIPINVISIBLE) == m_Control) {
        GetWindowRect(m_Control, &place);
        MapWindowPoints(nullptr, m_Parent, reinterpret_cast<POINT*>(&place), 2);
    }
    PlaceTool(m_Parent, place, m_InParent);
}

void cToolTip::PlaceTool(HWND window, const RECT& place, RECT& known) {
    if (EqualRect(&place, &known)) return;
    known = place;
    TTTOOLINFOW tool = Tool(window);
    tool.rect = place;
    SendTool(m_Tip, TTM_NEWTOOLRECTW, tool);
}
