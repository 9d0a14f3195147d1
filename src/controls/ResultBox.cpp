// A rich edit; what it shares with the paste box is in RichField.cpp.
//
// Tested by tests/windows/richboxes_test.cpp.
#include "controls/ResultBox.h"

#include "controls/RichField.h"

namespace {
constexpr AccessibleTable kAccessible = RichField::Accessible<ResultBox>();
} // namespace

const ControlKind ResultBox::kKind{
    .TypeName = u"ResultBox",
    .LayoutKinds = u"unitext",
    .WindowClass = RichField::kWindowClass,
    .Style = RichField::kStyle,
    .Focusable = true,
    .TakesLabel = true,
    .Created = Entry<&ResultBox::OnCreated>::Call,
    .Message = Entry<&ResultBox::OnMessage>::Call,
    .Changed = Entry<&ResultBox::OnChanged>::Call,
    .WantsKey = Entry<&ResultBox::OnWantsKey>::Call,
    .Accessible = &kAccessible,
};

ResultBox::ResultBox() : Base(this, kKind) {
    RichField::LoadClass();
}

std::u16string ResultBox::Text() const {
    return RichField::Text(Base);
}

void ResultBox::Text(const std::u16string& text) {
    RichField::Text(Base, text);
}

void ResultBox::OnCreated() {
    RichField::Created(Base);
}

bool ResultBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    return RichField::Message(Base, message, wParam, lParam, result);
}

void ResultBox::OnChanged(Change what) {
    RichField::Changed(Base, what);
}

bool ResultBox::OnWantsKey(WPARAM key) {
    return key == VK_RETURN;
}
