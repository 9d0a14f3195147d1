#include "base/RuntimeFailure.h"

namespace {

std::u16string_view UsualText(int number) {
    switch (number) {
    case kInvalidCall:
        return u"Invalid procedure call or argument";
    case kOverflow:
        return u"Overflow";
    case kSubscriptOutOfRange:
        return u"Subscript out of range";
    case kTypeMismatch:
        return u"Type mismatch";
    case kOutOfStringSpace:
        return u"Out of string space";
    case kFileNotFound:
        return u"File not found";
    case kPathNotFound:
        return u"Path not found";
    case kObjectNotSet:
        return u"Object variable not set";
    case kInvalidPropertyValue:
        return u"Invalid property value";
    case kInvalidIndex:
        return u"Invalid index";
    case kNoCurrentRecord:
        return u"No current record";
    default:
        return u"System failure";
    }
}

std::u16string& Kept() {
    static std::u16string text;
    return text;
}

} // namespace

RuntimeFailure::RuntimeFailure(int number, std::u16string_view source, std::u16string_view description)
    : m_Number(number), m_Source(source),
      m_Description(description.empty() ? UsualText(number) : description) {}

const std::u16string& LastFailure() {
    return Kept();
}
void KeepLastFailure(std::u16string_view text) {
    Kept() = text;
}
