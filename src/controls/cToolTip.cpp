// One tip window with one tool. Tips learn of the mouse by one hook of their thread: a disabled
// window gets no mouse messages, they go to the nearest enabled one round it, be it the parent
// or the form, and to watch all of those by subclassing is dear. There the tool lies then, in
// the place of the control: the system's tip, too, asks which enabled window is under the mouse.
//
// The tip is told of the mouse from here: where it listens by itself, the end of one tip can
// make another one of the same window deaf. Its window is made late, as most are never seen.
//
// The tip window has no owner: a window that owns another one would take it along when it
// becomes top-most, or not become so itself.
//
// Tested by tests/windows/ctooltip_test.cpp, ctooltip_content_test.cpp, controltip_test.cpp.

#include "controls/cToolTip.h"

#include "base/Text.h"
#include "controls/Control.h"
#include "controls/Dpi.h"
#include "controls/EventFrame.h"
#include "controls/MSubclass.h"

#include <commctrl.h>

#include <algorithm>
#include <utility>

namespace {

constexpr UINT kMouseMessages[] = {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_RBUTTONDOWN, WM_MBUTTONDOWN};
constexpr UINT kTipMessages[] = {WM_SYSCOLORCHANGE, WM_SETTINGCHANGE};
constexpr int kWidestLine = 400;          // pixels of 96 DPI
constexpr std::size_t kLongestTitle = 99; // more the system does not take

// Those that watch the mouse, and their hook while there are any.
thread_local cToolTip* g_First = nullptr;
thread_local HHOOK g_Hook = nullptr;

// A text is shown as it stands, ampersands included.
DWORD WindowStyle(int style) {
    return static_cast<DWORD>(style & 0xFFFF) | TTS_NOPREFIX;
}

std::u16string WithLineBreaks(const std::u16string& text) {
    return text::ReplaceAll(text, u"|", u"\r\n");
}

// The innermost window there, enabled or not, behind no other one.
HWND InnermostAt(HWND window, POINT screen) {
    for (HWND outer = nullptr; window && window != outer;) {
        outer = window;
        POINT at = screen;
        ScreenToClient(outer, &at);
        window = ChildWindowFromPointEx(outer, at, CWP_SKIPINVISIBLE);
        if (!window) return outer;
    }
    return window;
}

MSG MouseMessage(HWND window, UINT message, POINT screen) {
    POINT at = screen;
    ScreenToClient(window, &at);
    return {window, message, 0, MAKELPARAM(at.x, at.y), GetTickCount(), screen};
}

// A form keeps the resolution that it was told.
int DpiOfControl(HWND window) {
    const Control* control = Control::Around(window);
    return control ? control->Dpi() : DpiOf(window);
}

} // namespace

cToolTip::~cToolTip() {
    Remove();
}

void cToolTip::Remove() {
    Unwatch();
    m_Control = m_ToolWindow = nullptr;
    m_Over = false;
    if (!m_Tip) return;
    for (UINT message : kTipMessages) MSubclass::DetachMessage(*this, m_Tip, message);
    DestroyWindow(std::exchange(m_Tip, nullptr));
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
    if (!IsWindow(control) || !Watch()) return false;
    m_Control = control;
    return true;
}

bool cToolTip::Watch() {
    if (!g_Hook) g_Hook = SetWindowsHookExW(WH_MOUSE, MouseHook, nullptr, GetCurrentThreadId());
    if (!g_Hook) return false;
    m_Next = std::exchange(g_First, this);
    return true;
}

void cToolTip::Unwatch() {
    cToolTip** link = &g_First;
    while (*link && *link != this) link = &(*link)->m_Next;
    if (!*link) return;
    *link = m_Next;
    if (!g_First) UnhookWindowsHookEx(std::exchange(g_Hook, nullptr));
}

// While the mouse is captured, for a drag or a menu, it is over nothing else.
LRESULT CALLBACK cToolTip::MouseHook(int code, WPARAM message, LPARAM lParam) {
    EventFrame::Run([&] {
        const auto& mouse = *reinterpret_cast<const MOUSEHOOKSTRUCT*>(lParam);
        if (code != HC_ACTION || mouse.wHitTestCode != HTCLIENT || EventFrame::Ending()) return;
        if (std::ranges::find(kMouseMessages, message) == std::end(kMouseMessages) || GetCapture()) return;
        const HWND under = InnermostAt(mouse.hwnd, mouse.pt);
        const MSG told = MouseMessage(mouse.hwnd, static_cast<UINT>(message), mouse.pt);
        for (cToolTip* tip = g_First; tip; tip = tip->m_Next) tip->Follow(under, told);
    });
    return CallNextHookEx(nullptr, code, message, lParam);
}

void cToolTip::Hover() {
    POINT at{};
    GetCursorPos(&at);
    const HWND window = WindowFromPoint(at);
    if (window) Follow(InnermostAt(window, at), MouseMessage(window, WM_MOUSEMOVE, at));
}

// The control may have another place, size or resolution by now.
void cToolTip::Follow(HWND under, MSG told) {
    const bool over = under == m_Control;
    if (!over && !m_Over) return;
    m_Over = over;
    if (!m_Tip && !Make()) return;
    RECT place{};
    if (over) {
        GetClientRect(m_Control, &place);
        MapWindowPoints(m_Control, told.hwnd, reinterpret_cast<POINT*>(&place), 2);
        if (m_Dpi != DpiOfControl(m_Control)) ShowFont();
    }
    PlaceTool(over ? told.hwnd : m_ToolWindow, place);
    SendMessageW(m_Tip, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&told));
}

bool cToolTip::Make() {
    m_Tip = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | WindowStyle(m_Style),
                            CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr,
                            GetModuleHandleW(nullptr), nullptr);
    if (!m_Tip) return false;
    ShowFont();
    PlaceTool(m_Control, {});
    if (!m_Title.empty()) ShowTitle();
    ShowColours();
    ShowTimes();
    for (UINT message : kTipMessages) MSubclass::AttachMessage(*this, m_Tip, message);
    return true;
}

void cToolTip::PlaceTool(HWND window, const RECT& place) {
    if (window == m_ToolWindow && EqualRect(&place, &m_Place)) return;
    m_Place = place;
    if (window == m_ToolWindow) return SendTool(TTM_NEWTOOLRECTW);
    if (m_ToolWindow) SendTool(TTM_DELTOOLW);
    m_ToolWindow = window;
    SendTool(TTM_ADDTOOLW);
}

// The record in the size that every version of the system takes.
void cToolTip::SendTool(UINT message) {
    if (!m_ToolWindow) return;
    std::u16string lines = WithLineBreaks(m_Text);
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = m_Centered ? TTF_CENTERTIP : 0;
    tool.hwnd = m_ToolWindow;
    tool.uId = 1;
    tool.rect = m_Place;
    tool.lpszText = Wide(lines.data());
    SendMessageW(m_Tip, message, 0, reinterpret_cast<LPARAM>(&tool));
}

// A tip on the screen takes its new size here.
void cToolTip::Text(std::u16string_view text) {
    m_Text = text;
    SendTool(TTM_UPDATETIPTEXTW);
}

void cToolTip::Title(std::u16string_view title) {
    m_Title = title;
    ShowTitle();
    SendTool(TTM_UPDATETIPTEXTW);
}

void cToolTip::Icon(int icon) {
    m_Icon = icon;
    ShowTitle();
    SendTool(TTM_UPDATETIPTEXTW);
}

void cToolTip::ShowTitle() {
    if (!m_Tip) return;
    const std::u16string title = m_Title.substr(0, kLongestTitle);
    const int icon = title.empty() ? TTI_NONE : m_Icon;
    SendMessageW(m_Tip, TTM_SETTITLEW, static_cast<WPARAM>(icon), reinterpret_cast<LPARAM>(Wide(title)));
}

void cToolTip::Style(int style) {
    m_Style = style;
    if (!m_Tip) return;
    const DWORD others = static_cast<DWORD>(GetWindowLongW(m_Tip, GWL_STYLE)) & 0xFFFF0000;
    SetWindowLongW(m_Tip, GWL_STYLE, static_cast<LONG>(others | WindowStyle(style)));
}

void cToolTip::Centered(bool centered) {
    m_Centered = centered;
    SendTool(TTM_SETTOOLINFOW);
}

// The system's face for tips, in the size and with the width of the control's monitor.
void cToolTip::ShowFont() {
    m_Dpi = DpiOfControl(m_Control);
    const FontHandle old = std::move(m_Font);
    m_Font = FontHandle(TipFont(), m_Dpi);
    SendMessageW(m_Tip, WM_SETFONT, reinterpret_cast<WPARAM>(m_Font.Get()), FALSE);
    // A width, however large, is what lets a tip have more than one line.
    SendMessageW(m_Tip, TTM_SETMAXTIPWIDTH, 0, Scaled(kWidestLine, m_Dpi));
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
    if (!m_Tip) return;
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
    if (!m_Tip) return;
    auto set = [this](WPARAM which, int time, UINT usual) {
        const int wanted = time < 0 ? static_cast<int>(usual) : time;
        SendMessageW(m_Tip, TTM_SETDELAYTIME, which, std::min(wanted, 32767));
    };
    set(TTDT_INITIAL, m_HoverTime, GetDoubleClickTime());
    set(TTDT_AUTOPOP, m_PopupTime, 10 * GetDoubleClickTime());
}

// On a change of the settings the tip takes the system's font and colours first, then ours.
int cToolTip::MsgResponse() {
    return kPreviousFirst;
}

LRESULT cToolTip::WindowProc(HWND, UINT, WPARAM, LPARAM) {
    Theme::SettingsChanged(); // a tip is top-most and may hear of it before any form
    ShowFont();
    ShowColours();
    return 0;
}
