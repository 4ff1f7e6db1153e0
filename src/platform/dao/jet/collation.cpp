#include "platform/dao/jet/collation.h"

#include <QString>
#include <algorithm>
#include <array>
#include <vector>

namespace vorel::dao::jet {

namespace {

// Primary weights of ASCII; 0: none of its own (a word sort passes over it).
constexpr std::array<unsigned char, 128> makeWeights()
{
    std::array<unsigned char, 128> weights{};
    unsigned char next = 1;
    for (int c = 1; c < ' '; ++c)
        weights[static_cast<size_t>(c)] = next++;
    weights[127] = next++;
    for (const char c : std::string_view(" _,;:!?.\"()[]{}@*/\\&#%`^+<=>|~$"))
        weights[static_cast<size_t>(c)] = next++;
    for (int c = '0'; c <= '9'; ++c)
        weights[static_cast<size_t>(c)] = next++;
    for (int c = 'a'; c <= 'z'; ++c) {
        weights[static_cast<size_t>(c)] = next;
        weights[static_cast<size_t>(c - 'a' + 'A')] = next++;
    }
    return weights;
}

constexpr std::array<unsigned char, 128> weights = makeWeights();

constexpr bool everyCharacterWeighs()
{
    for (size_t c = 1; c < weights.size(); ++c) {
        if (weights[c] == 0 && c != '-' && c != '\'')
            return false;
    }
    return true;
}
static_assert(everyCharacterWeighs());

std::string_view withoutTrailingBlanks(std::string_view text)
{
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

int sign(std::ptrdiff_t difference)
{
    return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

// The weightless characters decide last: the first place where only one text has one puts that text behind.
template <class Text>
int compareWeightless(const Text &a, const Text &b)
{
    const auto weightless = [](auto c) { return c == '-' || c == '\''; };
    size_t i = 0;
    for (; i < a.size() && i < b.size(); ++i) {
        const bool first = weightless(a[i]);
        const bool second = weightless(b[i]);
        if (first != second)
            return first ? 1 : -1;
        if (first && a[i] != b[i])
            return a[i] < b[i] ? -1 : 1;
    }
    return sign(static_cast<std::ptrdiff_t>(a.size()) - static_cast<std::ptrdiff_t>(b.size()));
}

constexpr int needsUnicode = 2;

// The first primary difference decides, so what follows it is not looked at. needsUnicode if a character beyond ASCII
// comes before that.
int compareAscii(std::string_view a, std::string_view b)
{
    size_t i = 0;
    size_t j = 0;
    bool weightless = false;
    // The weight of the next character that has one; -1 at the end, above 255 beyond ASCII.
    const auto nextWeight = [&weightless](std::string_view text, size_t &at) {
        while (at < text.size()) {
            const auto c = static_cast<unsigned char>(text[at]);
            if (c >= 0x80)
                return 256;
            if (weights[c] != 0)
                return static_cast<int>(weights[c]);
            weightless = true;
            ++at;
        }
        return -1;
    };
    while (true) {
        const int first = nextWeight(a, i);
        const int second = nextWeight(b, j);
        if (first > 255 || second > 255)
            return needsUnicode;
        if (first != second)
            return first < second ? -1 : 1;
        if (first < 0)
            return weightless ? compareWeightless(a, b) : 0;
        ++i;
        ++j;
    }
}

struct Keys {
    std::vector<char32_t> primary;
    std::vector<char32_t> accents;      // of each primary, 0 if it has none
    std::vector<char32_t> characters;   // folded, with the weightless ones
};

QString folded(std::string_view text)
{
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
        .normalized(QString::NormalizationForm_D).toCaseFolded();
}

// Characters that decompose and fold each on its own: those of the Latin alphabets with their accents.
constexpr char32_t firstBeyondLatin = 0x250;

const std::array<std::u32string, firstBeyondLatin> &foldedLatin()
{
    static const auto table = [] {
        std::array<std::u32string, firstBeyondLatin> foldings;
        for (char32_t c = 0; c < firstBeyondLatin; ++c)
            foldings[c] = folded(QString(QChar(static_cast<char16_t>(c))).toUtf8().toStdString()).toStdU32String();
        return foldings;
    }();
    return table;
}

bool appendFoldedLatin(std::string_view text, std::u32string &characters)
{
    const auto &table = foldedLatin();
    for (size_t i = 0; i < text.size(); ++i) {
        const auto lead = static_cast<unsigned char>(text[i]);
        char32_t c = lead;
        if (lead >= 0x80) {
            const auto next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0;
            c = static_cast<char32_t>((lead & 0x1f) << 6 | (next & 0x3f));
            if (lead < 0xc2 || lead > 0xdf || (next & 0xc0) != 0x80 || c >= firstBeyondLatin)
                return false;
            ++i;
        }
        characters += table[c];
    }
    return true;
}

Keys keysOf(std::string_view text)
{
    std::u32string characters;
    if (!appendFoldedLatin(text, characters))
        characters = folded(text).toStdU32String();
    Keys keys;
    for (const char32_t c : characters) {
        if (c > 0x7f && QChar::isMark(c)) {
            if (!keys.accents.empty())
                keys.accents.back() = keys.accents.back() * 31 + c;
            continue;
        }
        keys.characters.push_back(c);
        const char32_t weight = c < 0x80 ? weights[c] : 0x100 + c;
        if (weight == 0)
            continue;
        keys.primary.push_back(weight);
        keys.accents.push_back(0);
    }
    return keys;
}

template <class Element>
int compareElements(const std::vector<Element> &a, const std::vector<Element> &b)
{
    if (a == b)
        return 0;
    return a < b ? -1 : 1;
}

int compareUnicode(std::string_view a, std::string_view b)
{
    const Keys first = keysOf(a);
    const Keys second = keysOf(b);
    if (const int primary = compareElements(first.primary, second.primary))
        return primary;
    if (const int accents = compareElements(first.accents, second.accents))
        return accents;
    return compareWeightless(first.characters, second.characters);
}

// The parts of a sort key: the weights, the accents if there are any, the places of the weightless characters if there
// are any. Each ends in a byte below all that it may hold.
constexpr char partEnd = 0;

template <class Text>
void appendWeightless(const Text &characters, std::string &key)
{
    for (const auto c : characters)
        key += static_cast<char>(c == '-' ? 3 : c == '\'' ? 2 : 1);
}

bool appendAsciiKey(std::string_view text, std::string &key)
{
    const size_t start = key.size();
    for (const char character : text) {
        const auto c = static_cast<unsigned char>(character);
        if (c >= 0x80) {
            key.resize(start);
            return false;
        }
        if (weights[c] != 0)
            key += static_cast<char>(weights[c]);
    }
    const bool weightless = key.size() - start != text.size();
    key += partEnd;
    key += partEnd;
    if (weightless)
        appendWeightless(text, key);
    key += partEnd;
    return true;
}

void appendUnicodeKey(std::string_view text, std::string &key)
{
    constexpr char beyondAscii = '\xf0';
    const Keys keys = keysOf(text);
    for (const char32_t weight : keys.primary) {
        if (weight > 0xff) {
            key += beyondAscii;
            key += static_cast<char>(weight >> 16);
            key += static_cast<char>(weight >> 8 & 0xff);
        }
        key += static_cast<char>(weight & 0xff);
    }
    key += partEnd;
    // Texts of the same weights have as many accents.
    const bool accented = std::any_of(keys.accents.begin(), keys.accents.end(), [](char32_t c) { return c != 0; });
    key += static_cast<char>(accented ? 1 : partEnd);
    for (size_t i = 0; accented && i < keys.accents.size(); ++i) {
        for (int shift = 24; shift >= 0; shift -= 8)
            key += static_cast<char>(keys.accents[i] >> shift & 0xff);
    }
    if (keys.characters.size() != keys.primary.size())
        appendWeightless(keys.characters, key);
    key += partEnd;
}

}

int compareText(std::string_view a, std::string_view b)
{
    a = withoutTrailingBlanks(a);
    b = withoutTrailingBlanks(b);
    const int result = compareAscii(a, b);
    return result == needsUnicode ? compareUnicode(a, b) : result;
}

void appendSortKey(std::string_view text, std::string &key)
{
    text = withoutTrailingBlanks(text);
    if (!appendAsciiKey(text, key))
        appendUnicodeKey(text, key);
}

}
