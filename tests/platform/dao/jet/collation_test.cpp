#include "platform/dao/jet/collation.h"
#include "support/table.h"

#include <gtest/gtest.h>

#include <QChar>
#include <QString>
#include <random>
#include <string>

using vorel::dao::jet::compareText;
namespace test = vorel::test;

namespace {

int signOf(const char *a, const char *b)
{
    const int result = compareText(a, b);
    return result < 0 ? -1 : result > 0 ? 1 : 0;
}

}

TEST(Collation, OrdersAndEquals)
{
    // Case and trailing blanks do not count; accents, hyphens and apostrophes count only between texts that are the same without.
    test::forEachRow("collation", "pairs", [](const test::Row &row) {
        EXPECT_EQ(signOf(row.text("a").c_str(), row.text("b").c_str()), row.number("order"));
        EXPECT_EQ(signOf(row.text("b").c_str(), row.text("a").c_str()), -row.number("order"));
    });
}

// Bytes that compare like the texts themselves, whatever these hold: so these have one order.
TEST(Collation, SortKeysKeepTheOrder)
{
    std::mt19937 chance(7);
    const std::u32string letters = U"aAbBzZ  --''09_.\u00e9\u00c9e\u0301\u00e0\u00df\u0130\u017f\u0178\u212a\u1e9e\u0436\u4e2d\U0001f600\u0308";
    std::vector<std::string> texts = {"", std::string("\0", 1), std::string("a\0", 2), std::string("a\0b", 3), "\xff",
                                      "\xc3", "a\xc3(", "\xc0\x80", " ", "-", "'", "A ", "a-", "-a", "a'", "\u00e1-",
                                      "a\u0301b", "a\xff", "1", "ss", "\u00e6"};
    for (int i = 0; i < 700; ++i) {
        std::u32string text;
        for (auto left = chance() % 7; left > 0; --left) {
            // Mostly of a few letters, so that many texts differ in one respect alone.
            auto c = static_cast<char32_t>(chance() % 0x300 + 1);
            if (chance() % 8 != 0)
                c = letters[chance() % letters.size()];
            text += c;
        }
        texts.push_back(QString::fromStdU32String(text).toStdString());
    }
    std::vector<std::string> keys;
    for (const std::string &text : texts)
        vorel::dao::jet::appendSortKey(text, keys.emplace_back());
    for (size_t a = 0; a < texts.size(); ++a) {
        for (size_t b = 0; b < texts.size(); ++b) {
            const int order = compareText(texts[a], texts[b]);
            ASSERT_EQ(keys[a].compare(keys[b]) < 0, order < 0) << texts[a] << '|' << texts[b];
            ASSERT_EQ(keys[a] == keys[b], order == 0) << texts[a] << '|' << texts[b];
            ASSERT_TRUE(a == b || keys[a] == keys[b] || !keys[b].starts_with(keys[a])) << texts[a] << '|' << texts[b];
        }
    }
}
