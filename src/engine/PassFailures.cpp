#include "engine/PassFailures.h"

#include "base/RuntimeFailure.h"

#include <string>

void RaiseEndless(std::u16string_view name, std::u16string_view marker) {
    std::u16string description = u"Invalid procedure call or argument: the ";
    description += name;
    if (marker.empty()) {
        description += u" is empty";
    } else {
        description += u" \"";
        description += marker;
        description += u"\" makes its pass endless";
    }
    throw RuntimeFailure(kInvalidCall, u"clsConvert", description);
}

void CheckGrowth(std::size_t length, std::size_t longest) {
    if (length > longest) throw RuntimeFailure(kOutOfStringSpace, u"clsConvert");
}
