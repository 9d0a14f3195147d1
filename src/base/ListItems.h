// The items of a list of files, without a control: what the batches work on and what the
// list control shows.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>

struct ListItem {
    std::u16string Text;
    int Icon = -1; // -1: none
    bool Bold = false;
};

enum class ListChange { Added, Removed, Cleared, Written };

// Positions are 0-based. An index out of range raises failure 9.
class ListItems {
public:
    // Between the three fields of an item's stored form.
    static constexpr std::u16string_view kSeparator = u"<%S%>";
    // False where the stored form could not be taken apart again.
    static bool CanBeStored(std::u16string_view text) { return text.find(kSeparator) == text.npos; }

    int ListCount() const { return static_cast<int>(m_Items.size()); }
    const ListItem& Item(int index) const;

    std::u16string List(int index) const { return Item(index).Text; }
    void List(int index, std::u16string_view text);
    int ListIcon(int index) const { return Item(index).Icon; }
    void ListIcon(int index, int icon);
    bool ListBold(int index) const { return Item(index).Bold; }
    void ListBold(int index, bool bold);

    // At index, or at the end where index is -1.
    void AddItem(std::u16string_view text, int index = -1, int icon = -1, bool bold = false);
    void Remove(int index);
    void Clear();

    // The stored form of an item: text, icon in decimal digits, "True" or "False". Raises
    // failure 5 for a text that cannot be stored.
    std::u16string Stored(int index) const;
    // Writes an item from its stored form. Raises failure 13, and changes nothing, where
    // that has other than three fields or one of them does not hold.
    void Store(int index, std::u16string_view stored);

    // Told of each change when it is done; index is that of the item, -1 for all.
    std::function<void(ListChange, int index)> Changed;

private:
    std::size_t At(int index) const;
    void Tell(ListChange change, int index) const;

    std::deque<ListItem> m_Items; // runs remove from the front
};
