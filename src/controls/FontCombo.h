// A box to choose a font from, or to type the name of one that is not installed. Each entry
// of its list is drawn in its own face.
#pragma once

#include "controls/Control.h"
#include "controls/DroppedList.h"
#include "controls/ISubclass.h"

#include <functional>
#include <optional>
#include <vector>

class FontCombo final : public ISubclass {
public:
    FontCombo() : Base(this, kKind) {}
    ~FontCombo();
    Control Base;
    static const ControlKind kKind;

    void AddItem(const std::u16string& text, const ::Font& font);
    void Clear(); // the text stays
    int ListCount() const { return static_cast<int>(m_Entries.size()); }
    // Empty where there is no such entry.
    std::u16string List(int index) const;
    // The entry that the text has been taken from; -1 for none, which empties the text.
    // Another index than -1 to ListCount - 1 is refused without a word; Click is not raised.
    int ListIndex() const;
    void ListIndex(int index);
    // The first entry of that text, in whatever case; -1 for none.
    int Find(const std::u16string& text) const;

    // Any text, whether or not there is such an entry.
    std::u16string Text() const;
    void Text(const std::u16string& text);
    void SelectAll();
    // Of the dropped list, in pixels; never narrower than the box. It grows with the DPI.
    int DropDownWidth() const;
    void DropDownWidth(int pixels);

    // An entry was chosen from the dropped list, by mouse or Enter, also the same as before.
    std::function<void()> Click;
    // A key in the text, also with Alt. Enter and Esc come only while the list is closed, and
    // then go nowhere else.
    std::function<void(int KeyCode, int Shift)> KeyDown;

    // ISubclass, for MSubclass only.
    int MsgResponse() override { return kClientAlone; }
    void MsgResponse(int) override {}
    LRESULT WindowProc(HWND hWnd, UINT iMsg, WPARAM wParam, LPARAM lParam) override;

private:
    struct Row {
        std::u16string Text;
        ::Font Face;
        FontHandle Handle; // made when the entry is drawn, freed when the list closes
    };
    void OnCreated();
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    bool OnCommand(UINT notification);
    void OnDrawItem(const DRAWITEMSTRUCT& item);
    void OnChanged(Change what);
    void OnPlace(const RECT& pixels);
    bool OnWantsKey(WPARAM key);
    void Show(int index, const std::u16string& text);
    void PlaceText();
    void FreeFonts();

    std::vector<Row> m_Entries;
    std::optional<std::u16string> m_TextBefore; // while the list opens
    int m_IndexBefore = -1;
    bool m_Choosing = false; // an entry was chosen in the open list
    HWND m_Edit = nullptr;
    int m_DropDownWidth = 0; // twips; 0: the box's own
    DroppedList m_List;
};

// The look of an entry, for the gallery too.
struct FontEntryState {
    std::u16string_view Text;
    HFONT Face = nullptr;
    HFONT Plain = nullptr; // takes the place of a face that lacks the letters; may be null
    bool Selected = false;
    int Dpi = 96;
};
void DrawFontEntry(HDC dc, const RECT& place, const FontEntryState& state);
