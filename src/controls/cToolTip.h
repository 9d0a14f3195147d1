// A balloon or plain tip of one control, also while that is disabled.
#pragma once

#include "controls/Font.h"
#include "controls/ISubclass.h"
#include "controls/Theme.h"

#include <string>
#include <string_view>

class cToolTip final : public ISubclass {
public:
    cToolTip() = default;
    ~cToolTip(); // takes the tip away
    cToolTip(const cToolTip&) = delete;
    cToolTip& operator=(const cToolTip&) = delete;

    // Gives the control its tip, in the place of one that this object made before. Text: a
    // "|" breaks the line. Style: bits of the system's tips (1 always, 64 balloon). Icon: 0
    // none, 1 information, 2 warning, 3 error; it shows beside a title only. Colours: &H00BBGGRR,
    // a system colour (0x80000000 and its index, followed when it changes) or kNoColour; a
    // visual style of the system may draw tips in its own.
    // Times in milliseconds, -1 for the system's. False where control is no window. The tip's
    // own window is made when the mouse first comes. On the control's thread, also what follows.
    bool Create(HWND control, std::u16string_view text, int style, bool centered, int icon,
                std::u16string_view title, OleColour foreColour, OleColour backColour, int popupTime,
                int hoverTime);

    // A change shows at once.
    const std::u16string& Text() const { return m_Text; }
    void Text(std::u16string_view text);
    const std::u16string& Title() const { return m_Title; }
    void Title(std::u16string_view title);
    int Style() const { return m_Style; }
    void Style(int style);
    int Icon() const { return m_Icon; }
    void Icon(int icon);
    bool Centered() const { return m_Centered; }
    void Centered(bool centered);
    OleColour ForeCol() const { return m_ForeColour; }
    void ForeCol(OleColour colour);
    OleColour BackCol() const { return m_BackColour; }
    void BackCol(OleColour colour);
    int HoverTime() const { return m_HoverTime; } // until it shows
    void HoverTime(int milliseconds);
    int PopupTime() const { return m_PopupTime; } // until it goes
    void PopupTime(int milliseconds);

    // What Create was given.
    const std::u16string& InitialText() const { return m_InitialText; }
    const std::u16string& InitialTitle() const { return m_InitialTitle; }

    // As if the mouse had just come to where it rests.
    void Hover();

    HWND hWnd() const { return m_Tip; } // the tip's own window; null while there is none

    // ISubclass, for MSubclass only.
    int MsgResponse() override;
    void MsgResponse(int) override {}
    LRESULT WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) override;

private:
    static LRESULT CALLBACK MouseHook(int code, WPARAM message, LPARAM mouse);
    bool Watch();
    void Unwatch();
    void Remove();
    void Follow(HWND under, MSG told);
    bool Make();
    void PlaceTool(HWND window, const RECT& place);
    void SendTool(UINT message);
    void ShowTitle();
    void ShowFont();
    void ShowColours();
    void ShowTimes();

    cToolTip* m_Next = nullptr; // of those that watch the mouse
    HWND m_Control = nullptr, m_Tip = nullptr;
    HWND m_ToolWindow = nullptr; // where the tool lies; null before the first one
    RECT m_Place{};              // the tool in there; empty while the mouse is elsewhere
    bool m_Over = false;         // the mouse is
    int m_Dpi = 0;               // of m_Font
    FontHandle m_Font;
    std::u16string m_Text, m_Title, m_InitialText, m_InitialTitle;
    int m_Style = 0, m_Icon = 0, m_PopupTime = -1, m_HoverTime = -1;
    bool m_Centered = false;
    OleColour m_ForeColour = kNoColour, m_BackColour = kNoColour;
};
