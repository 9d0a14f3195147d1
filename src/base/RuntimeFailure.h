// The one exception type of the program.
#pragma once

#include <string>
#include <string_view>

// Numbers of the run-time failures that the program itself raises. Failures of the
// system carry the system's own error number instead.
enum FailureNumber : int {
    kInvalidCall = 5,
    kOverflow = 6,
    kSubscriptOutOfRange = 9,
    kTypeMismatch = 13,
    kOutOfStringSpace = 14,
    kFileNotFound = 53,
    kPathNotFound = 76,
    kObjectNotSet = 91,
    kInvalidPropertyValue = 380,
    kInvalidIndex = 381,
    kNoCurrentRecord = 3021,
};

// A run-time failure. Nothing catches it but the places that are told to.
class RuntimeFailure {
public:
    // An empty description stands for the usual text of the number.
    RuntimeFailure(int number, std::u16string_view source, std::u16string_view description = {});

    int Number() const { return m_Number; }
    // The class or module that raised it, such as "clsConvert".
    const std::u16string& Source() const { return m_Source; }
    const std::u16string& Description() const { return m_Description; }

private:
    int m_Number;
    std::u16string m_Source;
    std::u16string m_Description;
};

// Text of the last failure that a trap swallowed, for whoever looks into it later.
const std::u16string& LastFailure();
void KeepLastFailure(std::u16string_view text);
