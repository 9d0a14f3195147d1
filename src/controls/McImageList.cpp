// Tested by tests/windows/mcimagelist_test.cpp.
#include "controls/McImageList.h"

#include "base/RuntimeFailure.h"

const ControlKind McImageList::kKind{
    .TypeName = u"McImageList",
    .LayoutKinds = u"McImageList",
    .HasWindow = false,
    .Property = Entry<&McImageList::OnProperty>::Call,
};

std::size_t McImageList::Checked(int index) const {
    if (index < 0 || index >= ImageCount()) throw RuntimeFailure(kSubscriptOutOfRange, u"McImageList");
    return static_cast<std::size_t>(index);
}

const Picture& McImageList::Image(int index) const {
    return m_Images[Checked(index)];
}

void McImageList::Image(int index, const Picture& picture) {
    m_Images[Checked(index)] = picture;
}

void McImageList::CurrentImage(int index) {
    Checked(index);
    m_CurrentImage = index;
}

bool McImageList::OnProperty(std::u16string_view name, std::u16string_view value) {
    constexpr std::u16string_view kImages = u"Images";
    if (name == u"ImageCount") {
        const int count = ParseNumber(value);
        if (count < 0) throw RuntimeFailure(kSubscriptOutOfRange, u"McImageList");
        m_Images.resize(static_cast<std::size_t>(count));
    } else if (name == u"CurrentImage") {
        CurrentImage(ParseNumber(value));
    } else if (name.starts_with(kImages)) {
        Image(ParseNumber(name.substr(kImages.size())), Picture::FromResource(value));
    } else {
        return false;
    }
    return true;
}
