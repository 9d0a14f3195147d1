// A rich edit; what it shares with the result box is in RichField.cpp.
//
// Tested by tests/windows/richboxes_test.cpp and richboxes_paste_test.cpp.
#include "controls/PasteBox.h"

#include "controls/RichField.h"

const ControlKind PasteBox::kKind{RichField::Kind<PasteBox>(u"PasteBox", u"richtext")};

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
