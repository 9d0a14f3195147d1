// A rich edit; what it shares with the result box is in RichField.cpp.
//
// Tested by tests/windows/richboxes_test.cpp and richboxes_paste_test.cpp.
#include "controls/PasteBox.h"

#include "controls/RichField.h"

namespace {
constexpr AccessibleTable kAccessible = RichField::Accessible<PasteBox>();
} // namespace

const ControlKind PasteBox::kKind{
    .TypeName = u"PasteBox",
    .LayoutKinds = u"richtext",
    .WindowClass = RichField::kWindowClass,
    .Style = RichField::kStyle,
    .Focusable = true,
    .TakesLabel = true,
    .Created = Entry<&PasteBox::OnCreated>::Call,
    .Message = Entry<&PasteBox::OnMessage>::Call,
    .Changed = Entry<&PasteBox::OnChanged>::Call,
    .WantsKey = Entry<&PasteBox::OnWantsKey>::Call,
    .Accessible = &kAccessible,
};

PasteBox::PasteBox() : Base(this, kKind) {
    RichField::LoadClass();
}

std::u16string PasteBox::Text() const {
    return RichField::Text(Base);
}

void PasteBox::Text(const std::u16string& text) {
    RichField::Text(Base, text);
}

bool PasteBox::Locked() const {
    return (GetWindowLongW(Base.hWnd(), GWL_STYLE) & ES_READONLY) != 0;
}

void PasteBox::Locked(bool locked) {
    if (locked == Locked()) return;
    SendMessageW(Base.hWnd(), EM_SETREADONLY, locked, 0);
    Base.Notify(EVENT_OBJECT_STATECHANGE);
}

void PasteBox::OnCreated() {
    RichField::Created(Base);
}

bool PasteBox::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    return RichField::Message(Base, message, wParam, lParam, result);
}

void PasteBox::OnChanged(Change what) {
    RichField::Changed(Base, what);
}

bool PasteBox::OnWantsKey(WPARAM key) {
    return key == VK_RETURN;
}
