#include "engine/modBanglaChar.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace modBanglaChar;

namespace {

struct Row {
    std::u16string_view character;
    int codePoint;
    bool vowelSign, postBaseSign, consonant;
};

const Row kRows[] = {
    {Candrabindu(), 0x0981, false, false, false},
    {Ka(), 0x0995, false, false, true},
    {Kha(), 0x0996, false, false, true},
    {Ga(), 0x0997, false, false, true},
    {Gha(), 0x0998, false, false, true},
    {Nga(), 0x0999, false, false, true},
    {Ca(), 0x099A, false, false, true},
    {Cha(), 0x099B, false, false, true},
    {Ja(), 0x099C, false, false, true},
    {Jha(), 0x099D, false, false, true},
    {Nya(), 0x099E, false, false, true},
    {Tta(), 0x099F, false, false, true},
    {Ttha(), 0x09A0, false, false, true},
    {Dda(), 0x09A1, false, false, true},
    {Ddha(), 0x09A2, false, false, true},
    {Nna(), 0x09A3, false, false, true},
    {Ta(), 0x09A4, false, false, true},
    {Tha(), 0x09A5, false, false, true},
    {Da(), 0x09A6, false, false, true},
    {Dha(), 0x09A7, false, false, true},
    {Na(), 0x09A8, false, false, true},
    {Pa(), 0x09AA, false, false, true},
    {Pha(), 0x09AB, false, false, true},
    {Ba(), 0x09AC, false, false, true},
    {Bha(), 0x09AD, false, false, true},
    {Ma(), 0x09AE, false, false, true},
    {Ya(), 0x09AF, false, false, true},
    {Ra(), 0x09B0, false, false, true},
    {La(), 0x09B2, false, false, true},
    {Sha(), 0x09B6, false, false, true},
    {Ssa(), 0x09B7, false, false, true},
    {Sa(), 0x09B8, false, false, true},
    {Ha(), 0x09B9, false, false, true},
    {SignAa(), 0x09BE, true, true, false},
    {SignI(), 0x09BF, true, false, false},
    {SignIi(), 0x09C0, true, true, false},
    {SignU(), 0x09C1, true, true, false},
    {SignUu(), 0x09C2, true, true, false},
    {SignVocalicR(), 0x09C3, true, true, false},
    {SignE(), 0x09C7, true, false, false},
    {SignAi(), 0x09C8, true, false, false},
    {SignO(), 0x09CB, true, false, false},
    {SignAu(), 0x09CC, true, false, false},
    {Virama(), 0x09CD, false, false, false},
    {KhandaTa(), 0x09CE, false, false, true},
    {AuLengthMark(), 0x09D7, true, true, false},
    {Rra(), 0x09DC, false, false, true},
    {Rha(), 0x09DD, false, false, true},
    {Yya(), 0x09DF, false, false, true},
    {RaWithMiddleDiagonal(), 0x09F0, false, false, true},
    {RaWithLowerDiagonal(), 0x09F1, false, false, true},
};

TEST(ModBanglaChar, FiftyOneAccessorsGiveOneUnitEach) {
    std::set<int> points;
    for (const Row& row : kRows) {
        ASSERT_EQ(1u, row.character.size());
        EXPECT_EQ(row.codePoint, row.character[0]);
        points.insert(row.codePoint);
    }
    EXPECT_EQ(51u, points.size());
}

TEST(ModBanglaChar, ClassesOfTheNamedCharacters) {
    for (const Row& row : kRows) {
        EXPECT_EQ(row.vowelSign, IsVowelSign(row.character)) << std::hex << row.codePoint;
        EXPECT_EQ(row.postBaseSign, IsPostBaseSign(row.character)) << std::hex << row.codePoint;
        EXPECT_EQ(row.consonant, IsConsonant(row.character)) << std::hex << row.codePoint;
    }
}

TEST(ModBanglaChar, EveryOtherUnitIsInNoClass) {
    int vowelSigns = 0, postBaseSigns = 0, consonants = 0;
    for (int unit = 0; unit < 0x10000; ++unit) {
        const std::u16string character(1, static_cast<char16_t>(unit));
        vowelSigns += IsVowelSign(character);
        postBaseSigns += IsPostBaseSign(character);
        consonants += IsConsonant(character);
    }
    EXPECT_EQ(11, vowelSigns);
    EXPECT_EQ(6, postBaseSigns);
    EXPECT_EQ(38, consonants);
}

TEST(ModBanglaChar, EmptyStringIsInNoClass) {
    EXPECT_FALSE(IsVowelSign(u""));
    EXPECT_FALSE(IsPostBaseSign(u""));
    EXPECT_FALSE(IsConsonant(u""));
}

TEST(ModBanglaChar, TwoCharactersAreInNoClassEvenIfTheFirstIsAMember) {
    EXPECT_FALSE(IsVowelSign(u"\u09BE\u09BE"));
    EXPECT_FALSE(IsPostBaseSign(u"\u09BEx"));
    EXPECT_FALSE(IsConsonant(u"\u0995\u0996"));
}

TEST(ModBanglaChar, KhandaTaAndTheNuktaLettersAreConsonants) {
    for (const char16_t unit : std::u16string(u"\u09CE\u09DC\u09DD\u09DF\u09F0\u09F1"))
        EXPECT_TRUE(IsConsonant(std::u16string(1, unit)));
}

TEST(ModBanglaChar, NuktaAnusvaraVisargaVocalicRrAndIndependentVowelsAreInNoClass) {
    std::u16string foreign = u"\u09BC\u0982\u0983\u09C4";
    for (char16_t unit = 0x0985; unit <= 0x0994; ++unit) foreign += unit;
    for (const char16_t unit : foreign) {
        const std::u16string character(1, unit);
        EXPECT_FALSE(IsVowelSign(character) || IsPostBaseSign(character) || IsConsonant(character));
    }
}

TEST(ModBanglaChar, EIAiOAndAuAreVowelSignsButNotPostBase) {
    for (const std::u16string_view sign : {SignI(), SignE(), SignAi(), SignO(), SignAu()}) {
        EXPECT_TRUE(IsVowelSign(sign));
        EXPECT_FALSE(IsPostBaseSign(sign));
    }
}

TEST(ModBanglaChar, CandrabinduAndViramaAreInNoClass) {
    for (const std::u16string_view sign : {Candrabindu(), Virama()})
        EXPECT_FALSE(IsVowelSign(sign) || IsPostBaseSign(sign) || IsConsonant(sign));
}

} // namespace
