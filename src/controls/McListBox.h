// The list of the forms: rows of a text, an icon and a bold flag, which it draws itself.
#pragma once

#include "base/ListItems.h"
#include "controls/Control.h"
#include "controls/Events.h"
#include "controls/McImageList.h"
#include "controls/Theme.h"
#include "controls/TypedSearch.h"

#include <functional>
#include <memory>

// Everything that its look depends on, for the gallery too. Rows count from 0, -1 is none.
struct McListBoxState {
    std::function<const ListItem&(int)> Row; // asked once for each row that is painted
    int Count = 0, TopRow = 0, ListIndex = -1, HoveredRow = -1;
    const McImageList* ImageList = nullptr;
    HFONT Font = nullptr, BoldFont = nullptr;
    int Dpi = 96;
    bool Enabled = true, Focused = false;

    bool ShowHover = false, ShowIcon = false, IconFocus = true;
    bool FullRowSelect = false, FocusRectangle = false;
    int Appearance = 1; // 1: a sunken edge; else a hair line
    int RowHeight = 22; // pixels of 96 DPI
    OleColour BackColor = 0xFFFFFF, ForeColor = kButtonText;
    OleColour SelColor = 0xFF8C1A, SelForeColor = 0xFFFFFF;
    // 1: downwards, 6: from the left top to the right bottom corner; any other: none.
    int BackGradient = 0, SelGradient = 0;
    OleColour BackGradientCol = 0xC0C0C0; // where the background's ends
    OleColour SelGradientCol = 0xFFFFFF;  // where the selection's begins
};
// place is the whole control with its border.
void DrawMcListBox(HDC dc, const RECT& place, const McListBoxState& state);
void DrawMcListBoxBorder(HDC dc, const RECT& place, const McListBoxState& state);

// Where the rows lie. Their edges are rounded, not their heights: so many rows are as high
// together at every DPI.
class McListBoxRows {
public:
    explicit McListBoxRows(const McListBoxState& state);
    // Upper edge of the row that many below the top one.
    int Top(int row) const;
    // The last row whose upper edge does not lie below y: the one at y, and the number of
    // whole rows above it.
    int At(int y) const;

private:
    int m_TextHeight, m_RowHeight, m_Dpi;
    bool m_ByText; // rows are as high as their text
};

// The width of the border in pixels.
int McListBoxBorder(const McListBoxState& state);
// True where the whole text can be read in a list that is width wide inside its border.
bool McListBoxFits(const ListItem& item, int width, const McListBoxState& state);

// Files that are dropped on a list.
struct DroppedData {
    static constexpr int kFiles = 15; // the format
    std::vector<std::u16string> Files;
    bool GetFormat(int format) const { return format == kFiles; }
};

// Positions are 0-based; a row that does not exist raises failure 9. An item's text must
// not hold ListItems::kSeparator: failure 5, and nothing has changed.
class McListBox {
public:
    McListBox();
    ~McListBox();
    Control Base;
    static const ControlKind kKind;

    // The rows themselves, for a run that works through them.
    ListItems& Items() { return m_Items; }
    int ListCount() const { return m_Items.ListCount(); }
    std::u16string List(int index) const { return m_Items.List(index); }
    void List(int index, std::u16string_view text);
    int ListIcon(int index) const { return m_Items.ListIcon(index); }
    void ListIcon(int index, int icon) { m_Items.ListIcon(index, icon); }
    bool ListBold(int index) const { return m_Items.ListBold(index); }
    void ListBold(int index, bool bold) { m_Items.ListBold(index, bold); }

    // In front of Index, or at the end where that is -1. With AutoRefresh the list repaints
    // itself once, shortly after the last of several.
    void AddItem(std::u16string_view Text, int Index = -1, int Icon = 0, bool Bold = false);
    void Remove(int Index); // -1: the current row, where there is one
    void Clear();
    void Refresh(); // now
    bool AutoRefresh() const { return m_AutoRefresh; }
    void AutoRefresh(bool automatic) { m_AutoRefresh = automatic; }

    // The current row, -1 where there is none: also when it has been removed. Setting a
    // row brings it into view and raises SelChange; any other number is ignored.
    int ListIndex() const { return m_State.ListIndex; }
    void ListIndex(int index);
    std::u16string Text() const; // of the current row

    // Must live as long as the list, or be taken away before.
    McImageList* ImageList() const { return m_ImageList; }
    void ImageList(McImageList* images);

    bool ShowHover() const { return m_State.ShowHover; }
    void ShowHover(bool show) { Set(m_State.ShowHover, show); }
    // A tip with the whole text of a row that is cut.
    bool ShowToolTip() const { return m_ShowToolTip; }
    void ShowToolTip(bool show) { Set(m_ShowToolTip, show); }
    bool ShowIcon() const { return m_State.ShowIcon; }
    void ShowIcon(bool show) { Set(m_State.ShowIcon, show); }
    // The selection begins at the edge, not behind the icon.
    bool IconFocus() const { return m_State.IconFocus; }
    void IconFocus(bool behind) { Set(m_State.IconFocus, behind); }
    // The selection goes to the end of the row, not to that of the text.
    bool FullRowSelect() const { return m_State.FullRowSelect; }
    void FullRowSelect(bool full) { Set(m_State.FullRowSelect, full); }
    bool FocusRectangle() const { return m_State.FocusRectangle; }
    void FocusRectangle(bool show) { Set(m_State.FocusRectangle, show); }
    // The scroll bar goes while there is nothing to scroll.
    bool AutoHideScrollBars() const { return m_AutoHideScrollBars; }
    void AutoHideScrollBars(bool hide) { Set(m_AutoHideScrollBars, hide); }
    int Appearance() const { return m_State.Appearance; }
    void Appearance(int appearance) { Set(m_State.Appearance, appearance); }
    // Pixels of 96 DPI, at least the height of "A"; 16-bit, failure 6 beyond.
    int RowHeight() const;
    void RowHeight(int pixels96);
    OleColour BackColor() const { return m_State.BackColor; }
    void BackColor(OleColour colour) { Set(m_State.BackColor, colour); }
    OleColour ForeColor() const { return m_State.ForeColor; }
    void ForeColor(OleColour colour) { Set(m_State.ForeColor, colour); }
    OleColour SelColor() const { return m_State.SelColor; }
    void SelColor(OleColour colour) { Set(m_State.SelColor, colour); }
    OleColour SelForeColor() const { return m_State.SelForeColor; }
    void SelForeColor(OleColour colour) { Set(m_State.SelForeColor, colour); }
    int BackGradient() const { return m_State.BackGradient; }
    void BackGradient(int style) { Set(m_State.BackGradient, style); }
    OleColour BackGradientCol() const { return m_State.BackGradientCol; }
    void BackGradientCol(OleColour colour) { Set(m_State.BackGradientCol, colour); }
    int SelGradient() const { return m_State.SelGradient; }
    void SelGradient(int style) { Set(m_State.SelGradient, style); }
    OleColour SelGradientCol() const { return m_State.SelGradientCol; }
    void SelGradientCol(OleColour colour) { Set(m_State.SelGradientCol, colour); }

    std::function<void()> MouseEnter, MouseLeave;
    std::function<void()> Click, SelChange, DbClick;
    std::function<void(int KeyCode, int Shift)> KeyDown, KeyUp;
    std::function<void(int KeyAscii)> KeyPress;
    // X, Y in twips of the inside.
    std::function<void(int Button, int Shift, int X, int Y)> MouseUp, MouseMove, MouseDown;
    // Effect: what becomes of the files; it arrives as a copy.
    std::function<void(const DroppedData& Data, int& Effect, int Button, int Shift, int X, int Y)>
        OLEDragDrop;

    // The row at that pixel of the inside, the rows that are seen whole, a row's place.
    int RowAt(POINT inside) const;
    int VisibleRows() const;
    RECT RowPlace(int row) const;
    int TopRow() const { return m_State.TopRow; }
    int HoveredRow() const { return m_State.HoveredRow; }

private:
    friend class ListDropTarget;

    // McListBox.cpp
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    void OnChanged(Change what);
    void OnItems(ListChange change, int index);
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool OnFrameMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void OnRefreshTick();
    void OnPaint(HDC dc, const RECT& client);
    McListBoxState Look() const;
    void TakeFonts();
    void LookChanged();
    void RepaintRow(int row);
    RECT Inside() const;
    template <class Type>
    void Set(Type& field, Type value) {
        field = value;
        LookChanged();
    }

    // McListBoxInput.cpp
    bool OnInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void OnKey(int key);
    void OnCharacter(char16_t unit);
    void OnPress(const MouseAt& mouse, bool second);
    void OnRelease(const MouseAt& mouse);
    void OnMouseMove(const MouseAt& mouse);
    void OnMouseLeave();
    void OnOverTimer();
    void MoveTo(int row);
    void Choose(int row); // as keys and screen readers do
    void ScrollTo(int top);
    void UpdateScrollBar();
    void Hover(int row);
    void HoverUnderMouse();
    void ShowRowTip();

    // McListBoxDrop.cpp
    void AcceptDrops();
    void EndDrops();

    static const AccessibleTable kAccessible;

    ListItems m_Items;
    McListBoxState m_State;
    FontHandle m_BoldFont;
    McImageList* m_ImageList = nullptr;
    bool m_ShowToolTip = true, m_AutoHideScrollBars = false, m_AutoRefresh = true;
    bool m_Refreshing = false; // the timer runs
    int m_RefreshTicks = 0;
    bool m_RowsAdded = false; // that screen readers have not been told of
    bool m_MouseInside = false, m_Pressed = false, m_SecondPress = false;
    int m_WheelRest = 0; // see RowScroll::RowsTurned
    TypedSearch m_Search;
    std::unique_ptr<cToolTip> m_RowTip;
    class ListDropTarget* m_Drop = nullptr;
};
