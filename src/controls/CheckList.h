// A list of rows with a tick each: the tables of a database and their columns.
#pragma once

#include "controls/Control.h"
#include "controls/TypedSearch.h"

#include <functional>
#include <utility>
#include <vector>

// Rows are 0-based. One that does not exist has an empty text and no tick, and nothing is
// changed for it.
class CheckList {
public:
    CheckList() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;

    enum RowPicture { kTable = 0, kColumn = 1 }; // any other number: none

    // Adds a row at the end, unticked. font is copied; indent in pixels of 96 DPI.
    void AddItem(const std::u16string& text, const ::Font& font, int picture = -1, int indent = 0);
    void Clear();
    int ListCount() const { return static_cast<int>(m_Rows.size()); }
    std::u16string List(int row) const;
    // The row's copy of its font; the list's own font where there is no such row.
    const ::Font& ItemFont(int row) const;
    bool Checked(int row) const;
    void Checked(int row, bool checked);
    // The current row; -1 for none.
    int ListIndex() const { return m_Current; }
    void ListIndex(int row);
    int TopRow() const { return m_Top; } // the first row in sight

    // In the layout: RowHeight=20, pixels of 96 DPI.

    std::function<void()> Click; // the user has changed the tick of the current row

private:
    friend struct CheckListRows;
    struct Row {
        std::u16string Text;
        std::size_t Font = 0; // in m_Fonts
        int Picture = -1, Indent = 0;
        bool Checked = false;
    };

    // CheckList.cpp
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    void OnPaint(HDC dc, const RECT& client);
    void OnChanged(Change what);
    bool Valid(int row) const { return row >= 0 && row < ListCount(); }
    const Row& At(int row) const { return m_Rows[static_cast<std::size_t>(row)]; }
    int MarkedRow() const;       // bears the sign of the focus: the current one, else the first seen
    RECT PlaceOf(int row) const; // also where it is out of sight
    void InvalidateRow(int row) const;
    std::size_t FontNumber(const ::Font& font);

    // CheckListInput.cpp
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool OnKey(WPARAM key);
    void OnCharacter(char16_t unit);
    void Toggle(int row);
    int RowAt(POINT at) const; // -1 for none
    int RowsInSight() const;
    void ScrollTo(int top);
    void Reveal(int row);
    void UpdateScrollBar();
    void RefreshLater();

    std::vector<Row> m_Rows;
    std::vector<std::pair<::Font, FontHandle>> m_Fonts; // each font once
    int m_RowHeight = 20;
    int m_Current = -1, m_Top = 0, m_Pressed = -1;
    int m_WheelRest = 0; // see RowScroll::RowsTurned
    TypedSearch m_Search;
    bool m_RefreshPosted = false;
};

// The look of a row, for the gallery too.
struct CheckRowState {
    std::u16string_view Text;
    HFONT Font = nullptr;
    int Picture = -1;
    int Indent = 0; // pixels of 96 DPI
    bool Checked = false, Pressed = false, Selected = false;
    bool Focused = false; // it bears the sign of the focus
    bool Enabled = true;
    int Dpi = 96;
};
void DrawCheckRow(HDC dc, const RECT& place, const CheckRowState& state);
