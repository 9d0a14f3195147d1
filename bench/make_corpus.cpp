// Makes the texts that everything here is measured with, the same bytes every time.
//
//   make_corpus varied|anew BYTES FILE
//
// "varied": 150,000 different words, drawn with weight 1 / (rank + 2.7). "anew": every
// word is made for its place, as the rarest words of the first are made, so that most are
// met once. Lines of 20 to 200 characters, no line twice, CR LF, cp1252. Prints the
// make-up of what it made.
//
// Words are in Bijoy spelling, made syllable by syllable with the shares that running
// Bangla text has: a third of the consonants are ra, ba, ka and na, one syllable in
// fourteen is a conjunct, one in 28 has a ra-phala, one in 39 a ya-phala, one in 59 a
// reph. Codes stand in visual order: e, i and ai signs before their cluster, the reph
// behind it.

#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace {

// SplitMix64: the same numbers on every machine.
class Random {
public:
    explicit Random(std::uint64_t seed) : m_State(seed) {}
    std::uint64_t Next() {
        std::uint64_t z = m_State += 0x9E3779B97F4A7C15u;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }
    // 0 to limit less 1; limit below 2^32.
    std::uint32_t Below(std::uint32_t limit) {
        return static_cast<std::uint32_t>(((Next() >> 32) * limit) >> 32);
    }
    bool Chance(std::uint32_t inTenThousand) { return Below(10000) < inTenThousand; }

private:
    std::uint64_t m_State;
};

// Draws an index in proportion to its weight.
class Weights {
public:
    void Add(std::uint64_t weight) { m_Sums.push_back((m_Sums.empty() ? 0 : m_Sums.back()) + weight); }
    std::size_t Count() const { return m_Sums.size(); }
    std::size_t Draw(Random& random) const;

private:
    std::vector<std::uint64_t> m_Sums;
};

class WordMaker {
public:
    WordMaker();
    // One word as cp1252 bytes. rarity, 0 to 10000, is the chance that it gets a syllable
    // more than a word of running text: seldom words are longer.
    std::string Make(Random& random, std::uint32_t rarity) const;
    // A number of one to four digits.
    std::string MakeNumber(Random& random) const;
    // Puts the punctuation of running text around every tenth word.
    void Punctuate(Random& random, std::string& word) const;

private:
    struct Cluster {
        std::string spelling;
        bool takesSign;
    };
    void AddCluster(std::u16string_view spelling, std::uint64_t weight, bool takesSign = true);
    void AppendSyllable(Random& random, std::string& word) const;

    std::vector<Cluster> m_Clusters;
    Weights m_ClusterWeights;
    Weights m_SignWeights;
    Weights m_FirstVowelWeights;
    Weights m_LaterVowelWeights;
    Weights m_LengthWeights;
};

std::size_t Weights::Draw(Random& random) const {
    std::uint64_t total = m_Sums.back();
    std::uint64_t at = random.Next() % total;
    return static_cast<std::size_t>(std::upper_bound(m_Sums.begin(), m_Sums.end(), at) - m_Sums.begin());
}

struct Share {
    std::u16string_view spelling;
    std::uint64_t weight;
};

// Weights in ten-thousandths of all clusters, counted in 190 lines of published text.
constexpr Share kConsonants[] = {
    {u"i", 1242}, {u"e", 818}, {u"K", 802}, {u"b", 771}, {u"Z", 676}, {u"m", 535}, {u"g", 531},
    {u"j", 497},  {u"c", 495}, {u"`", 347}, {u"q", 336}, {u"R", 252}, {u"n", 241}, {u"U", 239},
    {u"M", 210},  {u"k", 206}, {u"_", 175}, {u"h", 170}, {u"f", 148}, {u"Q", 128}, {u"L", 126},
    {u"a", 122},  {u"P", 122}, {u"Y", 82},  {u"d", 82},  {u"l", 60},  {u"W", 46},  {u"N", 44},
    {u"o", 34},   {u"X", 13},  {u"S", 11},  {u"V", 9},   {u"p", 4},
};
constexpr Share kConjuncts[] = {
    {u"šÍ", 75}, {u"¶", 64},  {u"¯Í", 46}, {u"¯^", 40}, {u"¯’", 38}, {u"½", 33}, {u"³", 33},  {u"›`", 29},
    {u"¤^", 27}, {u"ó", 27},  {u"÷", 24},  {u"×", 22},  {u"Ë", 22},  {u"ô", 22}, {u"k¦", 20}, {u"Û", 15},
    {u"¼", 15},  {u"›U", 13}, {u"Ü", 13},  {u"Ð", 11},  {u"í", 11},  {u"Ä", 9},  {u"Ý", 9},   {u"Z¡", 9},
    {u"¤¢", 9},  {u"¯ú", 9},  {u"”P", 9},  {u"ß", 7},   {u"Â", 7},   {u"Ø", 7},  {u"¯‹", 7},  {u"Ï", 7},
    {u"¯§", 7},  {u"Æ", 4},   {u"·", 4},   {u"þ", 4},   {u"Á", 4},   {u"Z¥", 4}, {u"bœ", 4},  {u"R¡", 4},
    {u"š’", 4},  {u"b¥", 4},  {u"ë", 4},   {u"ù", 4},   {u"®‹", 4},  {u"”Q", 4}, {u"ì", 2},   {u"Þ", 2},
    {u"nŸ", 2},  {u"Zœ", 2},  {u"Å", 2},   {u"Ã", 2},   {u"ò", 2},   {u"cø", 2}, {u"jø", 2},  {u"ð", 2},
    {u"™¢", 2},  {u"¾", 2},   {u"aŸ", 2},  {u"•N", 2},  {u"¤ú", 2},  {u"±", 2},  {u"É", 2},
};
constexpr Share kRaPhala[] = {
    {u"cÖ", 120}, {u"Î", 70},  {u"µ", 40}, {u"MÖ", 40}, {u"`ª", 30}, {u"eª", 25},
    {u"Uª", 14},  {u"kª", 12}, {u"å", 5},  {u"d«", 4},  {u"¯¿", 2},  {u"š¿", 2},
};
constexpr Share kYaPhala[] = {
    {u"e¨", 50}, {u"b¨", 45}, {u"Z¨", 30}, {u"j¨", 22}, {u"`¨", 20}, {u"L¨", 18}, {u"a¨", 16}, {u"K¨", 14},
    {u"m¨", 10}, {u"g¨", 9},  {u"R¨", 7},  {u"M¨", 6},  {u"n¨", 4},  {u"U¨", 3},  {u"i¨", 3},
};
constexpr std::uint32_t kRephInTenThousand = 230;
constexpr std::uint32_t kAnusvara = 125;
constexpr std::uint32_t kChandrabindu = 22;
constexpr std::uint32_t kVisarga = 6;
constexpr std::uint32_t kFirstVowel = 1700; // words that begin with a letter vowel
constexpr std::uint32_t kLaterVowel = 350;

enum Sign { kNone, kAa, kE, kI, kU, kO, kIi, kUu, kRi, kAi, kAu };
constexpr std::uint64_t kSignShares[] = {4284, 2071, 1466, 1174, 340, 314, 223, 46, 38, 33, 11};
// Words of one syllable, of two, ...
constexpr std::uint64_t kLengthShares[] = {88, 336, 309, 166, 78, 16, 5, 2};
constexpr Share kFirstVowels[] = {{u"A", 190}, {u"Av", 197}, {u"G", 140}, {u"D", 65}, {u"B", 60},
                                  {u"I", 30},  {u"C", 6},    {u"H", 4},   {u"E", 2},  {u"F", 2}};
constexpr Share kLaterVowels[] = {{u"B", 170}, {u"I", 90}, {u"G", 25}, {u"D", 6}};
constexpr std::size_t kLongestWord = 24;

std::string Bytes(std::u16string_view spelling) {
    std::string bytes;
    if (!text::ToCp1252(spelling, bytes)) std::abort();
    return bytes;
}

// The shapes that typists give to the u signs and the r sign behind a cluster.
void AppendLowSign(Sign sign, const std::string& cluster, std::string& word) {
    char last = cluster.back();
    auto oneOf = [last](std::u16string_view set) { return Bytes(set).find(last) != std::string::npos; };
    if (sign == kU) {
        if (cluster == "M")
            word.replace(word.size() - 1, 1, Bytes(u"¸"));
        else if (cluster == "k")
            word.replace(word.size() - 1, 1, Bytes(u"ï"));
        else if (cluster == "n")
            word.replace(word.size() - 1, 1, Bytes(u"û"));
        else if (oneOf(u"iª«ÖÎµå¿"))
            word += Bytes(u"“");
        else if (oneOf(u"op"))
            word += Bytes(u"–");
        else
            word += oneOf(u"KZWfRQ") ? 'z' : 'y';
    } else if (sign == kUu) {
        word += oneOf(u"i") ? Bytes(u"ƒ") : oneOf(u"fi") ? Bytes(u"‚") : "~";
    } else {
        word += oneOf(u"K") ? Bytes(u"…") : Bytes(u"„");
    }
}

WordMaker::WordMaker() {
    for (const Share& share : kConsonants) AddCluster(share.spelling, share.weight);
    for (const Share& share : kConjuncts) AddCluster(share.spelling, share.weight);
    for (const Share& share : kRaPhala) AddCluster(share.spelling, share.weight);
    for (const Share& share : kYaPhala) AddCluster(share.spelling, share.weight);
    AddCluster(u"r", 11, false);
    for (std::uint64_t share : kSignShares) m_SignWeights.Add(share);
    for (const Share& share : kFirstVowels) m_FirstVowelWeights.Add(share.weight);
    for (const Share& share : kLaterVowels) m_LaterVowelWeights.Add(share.weight);
    for (std::uint64_t share : kLengthShares) m_LengthWeights.Add(share);
}

void WordMaker::AddCluster(std::u16string_view spelling, std::uint64_t weight, bool takesSign) {
    m_Clusters.push_back({Bytes(spelling), takesSign});
    m_ClusterWeights.Add(weight);
}

void WordMaker::AppendSyllable(Random& random, std::string& word) const {
    const Cluster& cluster = m_Clusters[m_ClusterWeights.Draw(random)];
    if (!cluster.takesSign) {
        if (!word.empty()) word += cluster.spelling;
        return;
    }
    auto sign = static_cast<Sign>(m_SignWeights.Draw(random));
    bool first = word.empty();
    if (sign == kE || sign == kO || sign == kAu) word += first ? Bytes(u"†") : Bytes(u"‡");
    if (sign == kAi) word += first ? Bytes(u"ˆ") : Bytes(u"‰");
    if (sign == kI) word += 'w';
    word += cluster.spelling;
    bool low = sign == kU || sign == kUu || sign == kRi;
    // A u sign may melt into its letter, so nothing comes between the two.
    if (low)
        AppendLowSign(sign, cluster.spelling, word);
    else if (!first && random.Chance(kRephInTenThousand))
        word += Bytes(u"©");
    if (random.Chance(kChandrabindu)) word += 'u';
    if (sign == kAa || sign == kO) word += 'v';
    if (sign == kAu) word += Bytes(u"Š");
    if (sign == kIi) word += 'x';
    if (random.Chance(kAnusvara))
        word += 's';
    else if (random.Chance(kVisarga))
        word += 't';
}

std::string WordMaker::Make(Random& random, std::uint32_t rarity) const {
    std::string word;
    do {
        word.clear();
        std::size_t syllables = m_LengthWeights.Draw(random) + 1;
        if (random.Chance(rarity)) ++syllables;
        for (std::size_t i = 0; i < syllables; ++i) {
            if (i == 0 && random.Chance(kFirstVowel))
                word += Bytes(kFirstVowels[m_FirstVowelWeights.Draw(random)].spelling);
            else if (i > 0 && random.Chance(kLaterVowel))
                word += Bytes(kLaterVowels[m_LaterVowelWeights.Draw(random)].spelling);
            else
                AppendSyllable(random, word);
        }
    } while (word.empty() || word.size() > kLongestWord);
    return word;
}

std::string WordMaker::MakeNumber(Random& random) const {
    std::string word;
    for (std::uint32_t n = random.Below(4) + 1; n > 0; --n) word += static_cast<char>('0' + random.Below(10));
    return word;
}

void WordMaker::Punctuate(Random& random, std::string& word) const {
    std::uint32_t draw = random.Below(1000);
    if (draw < 53)
        word += '|';
    else if (draw < 86)
        word += ',';
    else if (draw < 90)
        word += '?';
    else if (draw < 94)
        word += ';';
    else if (draw < 97)
        word += ':';
    else if (draw < 100)
        word += '!';
    else if (draw < 104)
        word = '(' + word + ')';
    else if (draw < 106)
        word = Bytes(u"Ò") + word + Bytes(u"Ó");
}

constexpr std::size_t kVocabulary = 150000;
constexpr std::uint32_t kRarest = 6000;
constexpr std::uint32_t kNumberInTenThousand = 120;

struct Vocabulary {
    std::vector<std::string> words;
    Weights weights;
};

Vocabulary MakeVocabulary(const WordMaker& maker, Random& random) {
    Vocabulary made;
    std::unordered_set<std::string> known;
    std::uint32_t bits = 0;
    while (made.words.size() < kVocabulary) {
        std::size_t rank = made.words.size() + 1;
        while ((rank >> bits) > 1) ++bits;
        // 17 doublings lie between the most frequent word and the rarest.
        std::string word = maker.Make(random, bits * kRarest / 17);
        if (!known.insert(word).second) continue;
        made.words.push_back(std::move(word));
        made.weights.Add((std::uint64_t{10} << 36) / (10 * rank + 27));
    }
    return made;
}

std::uint64_t Hash(std::string_view bytes) {
    std::uint64_t hash = 0xCBF29CE484222325u;
    for (unsigned char byte : bytes) hash = (hash ^ byte) * 0x100000001B3u;
    return hash;
}

struct Count {
    std::size_t lines = 0;
    std::array<std::size_t, 256> bytes{};
    std::vector<std::uint64_t> words;
};

void Report(Count& count, std::size_t size) {
    std::sort(count.words.begin(), count.words.end());
    std::size_t different = 0;
    std::size_t once = 0;
    for (std::size_t i = 0; i < count.words.size();) {
        std::size_t end = i;
        while (end < count.words.size() && count.words[end] == count.words[i]) ++end;
        ++different;
        if (end == i + 1) ++once;
        i = end;
    }
    auto share = [&](std::u16string_view codes) {
        std::size_t sum = 0;
        for (char code : Bytes(codes)) sum += count.bytes[static_cast<unsigned char>(code)];
        return 100.0 * static_cast<double>(sum) / static_cast<double>(size);
    };
    std::printf(
        "%zu bytes, %zu lines, %zu words, %zu different with their punctuation, %zu of them met once\n", size,
        count.lines, count.words.size(), different, once);
    std::printf(
        "per 100 codes: e signs %.1f, i %.1f, aa %.1f, u %.1f, reph %.2f, ya-phala %.2f, blanks %.1f\n",
        share(u"†‡"), share(u"w"), share(u"v"), share(u"yz“–"), share(u"©"), share(u"¨"), share(u" "));
}

int Make(std::string_view kind, std::size_t size, const char* path) {
    bool anew = kind == "anew";
    if (!anew && kind != "varied") return 2;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path, "wb"), &std::fclose);
    if (!file) return 1;

    WordMaker maker;
    Random random(anew ? 20021 : 20011);
    Vocabulary vocabulary;
    if (!anew) vocabulary = MakeVocabulary(maker, random);
    std::unordered_set<std::uint64_t> lines;
    Count count;
    std::string line;
    std::size_t written = 0;
    while (written < size) {
        std::size_t target = 20 + random.Below(181);
        line.clear();
        std::size_t wordsBefore = count.words.size();
        while (true) {
            std::string word = random.Chance(kNumberInTenThousand) ? maker.MakeNumber(random)
                               : anew                              ? maker.Make(random, kRarest)
                                      : vocabulary.words[vocabulary.weights.Draw(random)];
            maker.Punctuate(random, word);
            if (line.size() >= 20 && line.size() + 1 + word.size() > target) break;
            if (!line.empty()) line += ' ';
            line += word;
            count.words.push_back(Hash(word));
        }
        if (!lines.insert(Hash(line)).second) {
            count.words.resize(wordsBefore);
            continue;
        }
        line += "\r\n";
        for (unsigned char byte : line) ++count.bytes[byte];
        ++count.lines;
        written += line.size();
        if (std::fwrite(line.data(), 1, line.size(), file.get()) != line.size()) return 1;
    }
    Report(count, written);
    return std::fclose(file.release()) == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fputs("usage: make_corpus varied|anew BYTES FILE\n", stderr);
        return 2;
    }
    return Make(argv[1], std::strtoull(argv[2], nullptr, 10), argv[3]);
}
