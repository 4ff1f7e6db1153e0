#include "platform/dao/jet/collation.h"

#include <QString>
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

Keys keysOf(std::string_view text)
{
    const QString folded = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))
                               .normalized(QString::NormalizationForm_D).toCaseFolded();
    Keys keys;
    for (const char32_t c : folded.toUcs4()) {
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

}

int compareText(std::string_view a, std::string_view b)
{
    a = withoutTrailingBlanks(a);
    b = withoutTrailingBlanks(b);
    const int result = compareAscii(a, b);
    return result == needsUnicode ? compareUnicode(a, b) : result;
}

}
