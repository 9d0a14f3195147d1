// A rich edit; what it shares with the paste box is in RichField.cpp.
//
// Tested by tests/windows/richboxes_test.cpp.
#include "controls/ResultBox.h"

#include "controls/RichField.h"

const ControlKind ResultBox::kKind{RichField::Kind<ResultBox>(u"ResultBox", u"unitext")};

ResultBox::ResultBox() : Base(this, kKind) {
    RichField::LoadClass();
}

std::u16string ResultBox::Text() const {
    return RichField::Text(Base);
}

void ResultBox::Text(const std::u16string& text) {
    RichField::Text(Base, text);
}
