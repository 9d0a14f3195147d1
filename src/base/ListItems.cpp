#include "base/ListItems.h"

#include "base/RuntimeFailure.h"
#include "base/Text.h"

#include <vector>

namespace {

// Decimal digits, at most nine, with a minus sign or none.
bool ReadIcon(std::u16string_view field, int& icon) {
    const bool negative = field.starts_with(u'-');
    const std::u16string_view digits = field.substr(negative ? 1 : 0);
    if (digits.empty() || digits.size() > 9) return false;
    int sum = 0;
    for (const char16_t digit : digits) {
        if (digit < u'0' || digit > u'9') return false;
        sum = sum * 10 + (digit - u'0');
    }
    icon = negative ? -sum : sum;
    return true;
}

} // namespace

std::size_t ListItems::At(int index) const {
    if (index < 0 || index >= ListCount()) throw RuntimeFailure(kSubscriptOutOfRange, u"ListItems");
    return static_cast<std::size_t>(index);
}

void ListItems::Tell(ListChange change, int index) const {
    if (Changed) Changed(change, index);
}

const ListItem& ListItems::Item(int index) const {
    return m_Items[At(index)];
}

void ListItems::List(int index, std::u16string_view text) {
    m_Items[At(index)].Text = text;
    Tell(ListChange::Written, index);
}

void ListItems::ListIcon(int index, int icon) {
    m_Items[At(index)].Icon = icon;
    Tell(ListChange::Written, index);
}

void ListItems::ListBold(int index, bool bold) {
    m_Items[At(index)].Bold = bold;
    Tell(ListChange::Written, index);
}

void ListItems::AddItem(std::u16string_view text, int index, int icon, bool bold) {
    if (index < -1 || index > ListCount()) throw RuntimeFailure(kSubscriptOutOfRange, u"ListItems");
    const int at = index == -1 ? ListCount() : index;
    m_Items.insert(m_Items.begin() + at, ListItem{std::u16string(text), icon, bold});
    Tell(ListChange::Added, at);
}

void ListItems::Remove(int index) {
    At(index);
    m_Items.erase(m_Items.begin() + index);
    Tell(ListChange::Removed, index);
}

void ListItems::Clear() {
    m_Items.clear();
    Tell(ListChange::Cleared, -1);
}

std::u16string ListItems::Stored(int index) const {
    const ListItem& item = Item(index);
    if (!CanBeStored(item.Text))
        throw RuntimeFailure(kInvalidCall, u"ListItems", u"The text holds the separator");
    std::u16string stored = item.Text;
    stored += kSeparator;
    stored += text::Decimal(item.Icon);
    stored += kSeparator;
    stored += item.Bold ? u"True" : u"False";
    return stored;
}

void ListItems::Store(int index, std::u16string_view stored) {
    ListItem& item = m_Items[At(index)];
    const std::vector<std::u16string_view> fields = text::Split(stored, kSeparator);
    int icon = 0;
    if (fields.size() != 3 || !ReadIcon(fields[1], icon) || (fields[2] != u"True" && fields[2] != u"False"))
        throw RuntimeFailure(kTypeMismatch, u"ListItems", u"No stored item");
    item = {std::u16string(fields[0]), icon, fields[2] == u"True"};
    Tell(ListChange::Written, index);
}
