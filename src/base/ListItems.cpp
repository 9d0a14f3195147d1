#include "base/ListItems.h"

#include "base/RuntimeFailure.h"

const ListItems::Item& ListItems::At(int index) const {
    if (index < 0 || index >= ListCount()) throw RuntimeFailure(kSubscriptOutOfRange, u"ListItems");
    return m_Items[static_cast<std::size_t>(index)];
}

std::u16string ListItems::List(int index) const {
    return At(index).text;
}
int ListItems::ListIcon(int index) const {
    return At(index).icon;
}
bool ListItems::ListBold(int index) const {
    return At(index).bold;
}

void ListItems::AddItem(std::u16string_view text, int index, int icon, bool bold) {
    if (index < -1 || index > ListCount()) throw RuntimeFailure(kSubscriptOutOfRange, u"ListItems");
    const auto at = index == -1 ? m_Items.end() : m_Items.begin() + index;
    m_Items.insert(at, Item{std::u16string(text), icon, bold});
}

void ListItems::Remove(int index) {
    At(index);
    m_Items.erase(m_Items.begin() + index);
}
