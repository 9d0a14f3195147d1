// The items of a list of files, without a control: what the batches work on and what the
// list control shows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Positions are 0-based. An index out of range raises failure 9.
class ListItems {
public:
    int ListCount() const { return static_cast<int>(m_Items.size()); }

    std::u16string List(int index) const;
    int ListIcon(int index) const;
    bool ListBold(int index) const;

    // At index, or at the end where index is -1.
    void AddItem(std::u16string_view text, int index = -1, int icon = -1, bool bold = false);
    void Remove(int index);
    void Clear() { m_Items.clear(); }

private:
    struct Item {
        std::u16string text;
        int icon;
        bool bold;
    };
    const Item& At(int index) const;

    std::vector<Item> m_Items;
};
