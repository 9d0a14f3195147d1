// A table of two columns: a list view of the system, so that its messages work (LVM_...),
// painted by ourselves.
#pragma once

#include "controls/Control.h"
#include "controls/Events.h"
#include "controls/ISubclass.h"
#include "controls/cToolTip.h"

#include <functional>
#include <memory>

// Rows and columns are 0-based; those that do not exist give an empty text and change nothing.
class TwoColumnList final : public ISubclass {
public:
    TwoColumnList() : Base(this, kKind) {}
    ~TwoColumnList();
    Control Base;
    static const ControlKind kKind;
    static constexpr int kColumns = 2;

    // In the layout: Columns=Old Font|Replaced Font.
    std::u16string Header(int column) const;
    void Header(int column, const std::u16string& text);

    // Adds a row at the end and gives its number.
    int AddItem(const std::u16string& first, const std::u16string& second);
    void Remove(int row);
    void Clear();
    int ListCount() const;
    std::u16string Text(int row, int column) const;
    void Text(int row, int column, const std::u16string& text);
    // The first row at or behind from whose first column has that text, in whatever case;
    // -1 for none.
    int FindItem(const std::u16string& text, int from = 0) const;

    // The selected row; -1 for none.
    int ListIndex() const;
    void ListIndex(int row);
    void EnsureVisible(int row);
    // The selection is shown only while the list has the focus; true at the start.
    bool HideSelection() const;
    void HideSelection(bool hide);

    // X, Y in twips. MouseDown comes before the list itself sees the press; SelChange and
    // Click come from the queue, Click when a left click has ended, on a row or beside.
    std::function<void(int Button, int Shift, int X, int Y)> MouseDown;
    std::function<void()> Click;
    std::function<void()> SelChange; // a row has been selected, by mouse, keys or code

    // ISubclass, for MSubclass only: the header.
    int MsgResponse() override { return kClientAlone; }
    void MsgResponse(int) override {}
    LRESULT WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) override;

private:
    // TwoColumnList.cpp
    void OnCreated();
    bool OnProperty(std::u16string_view name, std::u16string_view value);
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void OnNotify(const NMHDR& told);
    void OnChanged(Change what);
    bool Valid(int row, int column) const;
    void FitColumns();
    RECT Row(int row) const;
    RECT FirstPlace() const; // of the row at the top, also where there is none

    // TwoColumnListPaint.cpp
    int MarkedTop() const;
    void PaintRows(HDC dc, const RECT& client) const;
    void PaintHeader(HDC dc, const RECT& client) const;

    // TwoColumnListTip.cpp: a cut cell under the mouse tells its whole text.
    struct Cell {
        int Row = -1, Column = 0;
        std::u16string Text;
        bool operator==(const Cell&) const = default;
    };
    Cell CutUnderMouse() const; // without a row where there is none
    void ShowCellTip();
    void DropStaleTip();

    // TwoColumnListHeader.cpp
    void TakeHeader();

    friend struct TwoColumnListRows;
    friend struct TwoColumnListHeads;
    HWND m_Header = nullptr;
    int m_MarkedTop = -1; // as painted last
    std::u16string m_Heads[kColumns];
    AccessiblePart m_HeaderAccessible;
    Cell m_TipCell;
    std::unique_ptr<cToolTip> m_Tip;
};

// The look of a row and of the header, for the gallery too.
struct TableRowState {
    std::u16string_view Texts[TwoColumnList::kColumns];
    int Widths[TwoColumnList::kColumns] = {}; // pixels
    HFONT Font = nullptr;
    bool Header = false;
    bool Selected = false;
    bool Focused = false; // the list has the focus
    bool Marked = false;  // and shows it here
    bool Enabled = true;
    int Dpi = 96;
};
void DrawTableRow(HDC dc, const RECT& place, const TableRowState& state);
// Whether a text is drawn whole in a cell, whose width is in pixels.
bool TableTextFits(std::u16string_view text, int width, HFONT font, int dpi);
