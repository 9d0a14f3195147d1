// Tested by tests/unit/engine/modBanglaChar_test.cpp.

#include "engine/modBanglaChar.h"

#include <initializer_list>

namespace modBanglaChar {
namespace {

bool IsAnyOf(std::u16string_view character, std::initializer_list<std::u16string_view> members) {
    for (const std::u16string_view member : members) {
        if (character == member) return true;
    }
    return false;
}

} // namespace

bool IsVowelSign(std::u16string_view character) {
    return IsAnyOf(character, {SignAa(), SignI(), SignIi(), SignU(), SignUu(), SignVocalicR(), SignE(),
                               SignAi(), SignO(), SignAu(), AuLengthMark()});
}

bool IsPostBaseSign(std::u16string_view character) {
    return IsAnyOf(character, {SignAa(), SignIi(), SignU(), SignUu(), SignVocalicR(), AuLengthMark()});
}

bool IsConsonant(std::u16string_view character) {
    return IsAnyOf(character, {Ka(),
                               Kha(),
                               Ga(),
                               Gha(),
                               Nga(),
                               Ca(),
                               Cha(),
                               Ja(),
                               Jha(),
                               Nya(),
                               Tta(),
                               Ttha(),
                               Dda(),
                               Ddha(),
                               Nna(),
                               Ta(),
                               Tha(),
                               Da(),
                               Dha(),
                               Na(),
                               Pa(),
                               Pha(),
                               Ba(),
                               Bha(),
                               Ma(),
                               Ya(),
                               Ra(),
                               La(),
                               Sha(),
                               Ssa(),
                               Sa(),
                               Ha(),
                               KhandaTa(),
                               Rra(),
                               Rha(),
                               Yya(),
                               RaWithMiddleDiagonal(),
                               RaWithLowerDiagonal()});
}

} // namespace modBanglaChar
