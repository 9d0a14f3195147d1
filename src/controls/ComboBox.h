// A box with a list that drops down, to choose one text from.
#pragma once

#include "controls/Control.h"
#include "controls/DroppedList.h"

#include <functional>

class ComboBox {
public:
    ComboBox() : Base(this, kKind) {}
    Control Base;
    static const ControlKind kKind;

    void AddItem(const std::u16string& text);
    void Clear();
    int ListCount() const;
    // 0-based; empty where there is no such entry.
    std::u16string List(int index) const;
    // -1 for none. A change raises Click, one by code at once, the user's out of the queue;
    // another index than -1 to ListCount - 1 is refused without a word.
    int ListIndex() const;
    void ListIndex(int index);
    // The chosen text; empty for none.
    std::u16string Text() const { return List(ListIndex()); }

    std::function<void()> Click; // an entry was chosen

private:
    void OnCreated() { m_List.Watch(Base); }
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
    void OnCommand(UINT notification);
    void TellChoice();
    void OnChanged(Change what);
    void OnPlace(const RECT& pixels);
    bool OnWantsKey(WPARAM key);
    int m_Chosen = -1; // the last index that Click has told
    DroppedList m_List;
};
