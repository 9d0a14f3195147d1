// The push button of every form: owner-drawn in three styles, with a picture beside its
// caption, hover and press sounds, and events for the mouse coming and going.
#pragma once

#include "controls/Control.h"
#include "controls/Events.h"
#include "controls/Picture.h"
#include "controls/Theme.h"

// Values of ButtonStyle.
enum { kStyleFlat = 1, kStyleXP = 3, kStyleNone = 4 };
// Values of PicturePosition: the side of the caption on which the picture stands.
enum { kPictureAbove = 0, kPictureLeft = 1, kPictureRight = 2, kPictureBelow = 3 };
// Values of PictureSize: as the picture comes, PictureWidth by PictureHeight, 16 by 16, or 32
// by 32; in pixels of 96 DPI.
enum { kSizeAsLoaded = 0, kSizeOwn = 1, kSizeSmall = 2, kSizeLarge = 3 };

// The look of a button, which the gallery draws too.
struct TavrelButtonState {
    std::u16string_view Caption = {};
    HFONT Font = nullptr;
    const Picture* Image = nullptr; // null or empty: none
    SIZE ImageSize{};               // pixels of 96 DPI
    int PicturePosition = kPictureLeft;
    int ButtonStyle = kStyleXP;
    OleColour BackColor = kButtonFace, ForeColor = kButtonText;
    bool TransparentBG = false;
    bool XPDefaultColors = true;
    OleColour XPColor_Pressed = 0x80000014, XPColor_Hover = 0x80000016;
    bool ShowFocusRect = true;
    bool Enabled = true, Hovering = false, Pressed = false, Focused = false;
    int Dpi = 96;
};
// Style 3 leaves its cut corners alone; the flat styles draw on what is there already, with
// TransparentBG or the BackColor kButtonFace.
void DrawTavrelButton(HDC dc, const RECT& place, const TavrelButtonState& state);
// Red and green gain delta, blue its own share blue * delta / 192; each is kept within 0 to 255.
COLORREF OffsetColour(COLORREF colour, int delta);
// How many pixels of style 3 are missing at either end of a row.
int CutOfRow(int row, int height, int dpi);

class TavrelButton {
public:
    TavrelButton() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;

    // The text; "&" marks the access key.
    const std::u16string& Caption() const { return Base.Caption(); }
    void Caption(std::u16string_view caption) { Base.Caption(caption); }
    // kStyleFlat, kStyleXP or kStyleNone, failure 380 for anything else. It begins as kStyleXP,
    // not as the highlight style 2, which no form shows and which is not there.
    int ButtonStyle() const { return m_Look.ButtonStyle; }
    void ButtonStyle(int style);
    OleColour BackColor() const { return m_Look.BackColor; }
    void BackColor(OleColour colour) { Set(m_Look.BackColor, colour); }
    OleColour ForeColor() const { return m_Look.ForeColor; }
    void ForeColor(OleColour colour) { Set(m_Look.ForeColor, colour); }
    // The flat styles stand on their container's ground: so they do anyway while BackColor is
    // kButtonFace, as it comes.
    bool TransparentBG() const { return m_Look.TransparentBG; }
    void TransparentBG(bool transparent) { Set(m_Look.TransparentBG, transparent); }
    bool ShowFocusRect() const { return m_Look.ShowFocusRect; }
    void ShowFocusRect(bool show) { Set(m_Look.ShowFocusRect, show); }

    const ::Picture& Picture() const { return m_Picture; }
    void Picture(const ::Picture& picture) { Set(m_Picture, picture); }
    // Both raise failure 380 outside 0 to 3.
    int PicturePosition() const { return m_Look.PicturePosition; }
    void PicturePosition(int side);
    int PictureSize() const { return m_PictureSize; }
    void PictureSize(int mode);
    // Count with kSizeOwn; nothing is drawn where one of them is 0 or less. Both raise failure 6
    // beyond 16 bits.
    int PictureWidth() const { return m_PictureWidth; }
    void PictureWidth(int pixels96);
    int PictureHeight() const { return m_PictureHeight; }
    void PictureHeight(int pixels96);

    // Frame of style 3 with the focus and under the mouse; built-in colours while
    // XPDefaultColors is on.
    bool XPDefaultColors() const { return m_Look.XPDefaultColors; }
    void XPDefaultColors(bool builtIn) { Set(m_Look.XPDefaultColors, builtIn); }
    OleColour XPColor_Pressed() const { return m_Look.XPColor_Pressed; }
    void XPColor_Pressed(OleColour colour) { Set(m_Look.XPColor_Pressed, colour); }
    OleColour XPColor_Hover() const { return m_Look.XPColor_Hover; }
    void XPColor_Hover(OleColour colour) { Set(m_Look.XPColor_Hover, colour); }

    // A switch each: empty is silent, any text plays the program's own sound.
    const std::u16string& SoundOver() const { return m_SoundOver; }
    void SoundOver(std::u16string_view path) { m_SoundOver = path; }
    const std::u16string& SoundClick() const { return m_SoundClick; }
    void SoundClick(std::u16string_view path) { m_SoundClick = path; }
    bool DefCurHand() const { return m_DefCurHand; }
    void DefCurHand(bool hand) { m_DefCurHand = hand; }

    // The main action of a view: the design's filled colours and strong font, neutral while
    // disabled. Sets ForeColor, BackColor and the frame colours.
    bool Primary() const { return m_Primary; }
    void Primary(bool primary);

    // What DrawTavrelButton is given; valid until the next change of the button.
    TavrelButtonState State();

    // X, Y in twips of the button.
    std::function<void()> Click;
    std::function<void(int KeyCode, int Shift)> KeyDown;
    std::function<void(int KeyAscii)> KeyPress;
    std::function<void(int KeyCode, int Shift)> KeyUp;
    std::function<void(int Button, int Shift, int X, int Y)> MouseDown;
    std::function<void(int Button, int Shift, int X, int Y)> MouseMove;
    std::function<void(int Button, int Shift, int X, int Y)> MouseUp;
    std::function<void(int Shift)> MouseIn;
    std::function<void(int Shift)> MouseOut;

private:
    // TavrelButton.cpp
    template <class Value>
    void Set(Value& field, const Value& value) {
        if (field == value) return;
        field = value;
        Base.Invalidate();
    }
    void OnCreated();
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    void OnPaint(HDC dc, const RECT& client);
    void OnChanged(Change what);
    void Dress();
    void OnMade() { ShapeWindow(false); } // nothing has been painted yet
    void ShapeWindow(bool repaint = true);
    void KeepLeastSize();

    // TavrelButtonInput.cpp
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void OnPress();
    bool OnMouse(UINT message, WPARAM wParam, LPARAM lParam);
    void MouseMoved(const MouseAt& mouse);
    void ComeIn(int shift);
    void OverTimer();
    void MouseGoesDown(const MouseAt& mouse);
    void MouseComesUp(const MouseAt& mouse);
    void Release(const MouseAt& mouse);
    void KeyGoesDown(int key, bool repeated);
    void KeyComesUp(int key);
    void SetPressed(bool pressed);
    void LetGo();

    TavrelButtonState m_Look; // without the states that come and go
    ::Picture m_Picture;
    int m_PictureSize = kSizeOwn, m_PictureWidth = 32, m_PictureHeight = 32;
    std::u16string m_SoundOver, m_SoundClick;
    bool m_DefCurHand = true, m_Primary = false;

    bool m_Pressed = false;       // held by mouse or space
    bool m_LooksReleased = false; // held, but the mouse has left
    bool m_Hovering = false;
    bool m_OverTimerRuns = false;
    bool m_Shaped = false;    // the window has a region
    bool m_SpaceHeld = false; // the press came from the space bar
    int m_ButtonsHeld = 0;    // mouse buttons that went down on it
    MouseAt m_LastDown;
};
