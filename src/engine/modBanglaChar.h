// Names and classes of the Bangla characters that the normalisation passes work with.
// A character is a string of one 16-bit code unit. Everything is exact: a character is in
// a class only as the one code point listed, nothing is folded or looked up elsewhere.
#pragma once

#include <string_view>

namespace modBanglaChar {

constexpr std::u16string_view Candrabindu() {
    return u"\u0981";
}
constexpr std::u16string_view Ka() {
    return u"\u0995";
}
constexpr std::u16string_view Kha() {
    return u"\u0996";
}
constexpr std::u16string_view Ga() {
    return u"\u0997";
}
constexpr std::u16string_view Gha() {
    return u"\u0998";
}
constexpr std::u16string_view Nga() {
    return u"\u0999";
}
constexpr std::u16string_view Ca() {
    return u"\u099A";
}
constexpr std::u16string_view Cha() {
    return u"\u099B";
}
constexpr std::u16string_view Ja() {
    return u"\u099C";
}
constexpr std::u16string_view Jha() {
    return u"\u099D";
}
constexpr std::u16string_view Nya() {
    return u"\u099E";
}
constexpr std::u16string_view Tta() {
    return u"\u099F";
}
constexpr std::u16string_view Ttha() {
    return u"\u09A0";
}
constexpr std::u16string_view Dda() {
    return u"\u09A1";
}
constexpr std::u16string_view Ddha() {
    return u"\u09A2";
}
constexpr std::u16string_view Nna() {
    return u"\u09A3";
}
constexpr std::u16string_view Ta() {
    return u"\u09A4";
}
constexpr std::u16string_view Tha() {
    return u"\u09A5";
}
constexpr std::u16string_view Da() {
    return u"\u09A6";
}
constexpr std::u16string_view Dha() {
    return u"\u09A7";
}
constexpr std::u16string_view Na() {
    return u"\u09A8";
}
constexpr std::u16string_view Pa() {
    return u"\u09AA";
}
constexpr std::u16string_view Pha() {
    return u"\u09AB";
}
constexpr std::u16string_view Ba() {
    return u"\u09AC";
}
constexpr std::u16string_view Bha() {
    return u"\u09AD";
}
constexpr std::u16string_view Ma() {
    return u"\u09AE";
}
constexpr std::u16string_view Ya() {
    return u"\u09AF";
}
constexpr std::u16string_view Ra() {
    return u"\u09B0";
}
constexpr std::u16string_view La() {
    return u"\u09B2";
}
constexpr std::u16string_view Sha() {
    return u"\u09B6";
}
constexpr std::u16string_view Ssa() {
    return u"\u09B7";
}
constexpr std::u16string_view Sa() {
    return u"\u09B8";
}
constexpr std::u16string_view Ha() {
    return u"\u09B9";
}
constexpr std::u16string_view SignAa() {
    return u"\u09BE";
}
constexpr std::u16string_view SignI() {
    return u"\u09BF";
}
constexpr std::u16string_view SignIi() {
    return u"\u09C0";
}
constexpr std::u16string_view SignU() {
    return u"\u09C1";
}
constexpr std::u16string_view SignUu() {
    return u"\u09C2";
}
constexpr std::u16string_view SignVocalicR() {
    return u"\u09C3";
}
constexpr std::u16string_view SignE() {
    return u"\u09C7";
}
constexpr std::u16string_view SignAi() {
    return u"\u09C8";
}
constexpr std::u16string_view SignO() {
    return u"\u09CB";
}
constexpr std::u16string_view SignAu() {
    return u"\u09CC";
}
constexpr std::u16string_view Virama() {
    return u"\u09CD";
}
constexpr std::u16string_view KhandaTa() {
    return u"\u09CE";
}
constexpr std::u16string_view AuLengthMark() {
    return u"\u09D7";
}
constexpr std::u16string_view Rra() {
    return u"\u09DC";
}
constexpr std::u16string_view Rha() {
    return u"\u09DD";
}
constexpr std::u16string_view Yya() {
    return u"\u09DF";
}
constexpr std::u16string_view RaWithMiddleDiagonal() {
    return u"\u09F0";
}
constexpr std::u16string_view RaWithLowerDiagonal() {
    return u"\u09F1";
}

// The 11 dependent vowel signs, the au length mark among them. False for the empty string
// and for strings of several units.
bool IsVowelSign(std::u16string_view character);
// The 6 signs that stand behind the base in legacy text as in Unicode.
bool IsPostBaseSign(std::u16string_view character);
// The 38 consonant letters, khanda ta and the three letters with a nukta among them.
bool IsConsonant(std::u16string_view character);

} // namespace modBanglaChar
