#include "platform/basic/text.h"
#include "support.h"

using namespace vorel::basic;
using namespace Qt::StringLiterals;

namespace {

TEST(Text, PartsOfATextStopAtItsEnds)
{
    EXPECT_EQ(Trim(u"  \ta b\t  "), u"\ta b\t"_s);
    EXPECT_EQ(LTrim(u"  a "), u"a "_s);
    EXPECT_EQ(RTrim(u" a  "), u" a"_s);
    EXPECT_EQ(Trim(u"   "), QString());
    EXPECT_EQ(Left(u"abc", 0), QString());
    EXPECT_EQ(Left(u"abc", 9), u"abc"_s);
    EXPECT_EQ(Right(u"abc", 2), u"bc"_s);
    EXPECT_EQ(Right(u"abc", 9), u"abc"_s);
    EXPECT_EQ(Mid(u"abc", 2), u"bc"_s);
    EXPECT_EQ(Mid(u"abc", 2, 1), u"b"_s);
    EXPECT_EQ(Mid(u"abc", 3, 2000000000), u"c"_s);
    EXPECT_EQ(Mid(u"abc", 4, 1), QString());
    EXPECT_EQ(errorOf([] { Left(u"abc", -1); }), 5);
    EXPECT_EQ(errorOf([] { Right(u"abc", -1); }), 5);
    EXPECT_EQ(errorOf([] { Mid(u"abc", 0); }), 5);
}

TEST(Text, Like)
{
    const struct { QStringView text; QStringView pattern; bool matches; } cases[] = {
        {u"", u"", true}, {u"", u"*", true}, {u"", u"?", false}, {u"abc", u"abc", true}, {u"abc", u"ab", false},
        {u"abc", u"*", true}, {u"abc", u"a*", true}, {u"abc", u"*c", true}, {u"abc", u"*b*", true}, {u"abc", u"*d*", false},
        {u"abc", u"a?c", true}, {u"ac", u"a?c", false}, {u"a7", u"a#", true}, {u"ab", u"a#", false}, {u"a\u0667", u"a#", false},
        {u"abcabd", u"*ab?", true}, {u"aaab", u"*a*a*b", true}, {u"mississippi", u"m*iss*p?", true},
        {u"x", u"[xyz]", true}, {u"w", u"[xyz]", false}, {u"m", u"[a-z]", true}, {u"m", u"[!a-z]", false}, {u"5", u"[!a-z]", true},
        {u"*", u"[*]", true}, {u"a", u"[*]", false}, {u"a[b", u"a[[]b", true}, {u"a]", u"a]", true}, {u"!", u"!", true},
        {u"!", u"[!]", true}, {u"-", u"[-a]", true}, {u"-", u"[a-]", true}, {u"b", u"[a-]", false}, {u"ac", u"a[]c", true},
        {u"", u"[]", true}, {u"50%", u"50%", true}, {u"500", u"50%", false}, {u"a_", u"a_", true}, {u"ab", u"a_", false},
        {u"d8", u"[a-cd-f][0-57-9]", true}, {u"d6", u"[a-cd-f][0-57-9]", false}, {u"a", u"[!]a", false}, {u"A", u"a", false},
        {u"line\nend", u"line*", true},
    };
    for (const auto &c : cases)
        EXPECT_EQ(Like(c.text, c.pattern), c.matches)
            << c.text.toString().toStdString() << " like " << c.pattern.toString().toStdString();
    EXPECT_TRUE(Like(u"AABB", u"*ab*", Qt::CaseInsensitive));
    EXPECT_TRUE(Like(u"Élan", u"é*", Qt::CaseInsensitive));
    EXPECT_TRUE(Like(u"Q", u"[a-z]", Qt::CaseInsensitive));
    EXPECT_FALSE(Like(u"Q", u"[!a-z]", Qt::CaseInsensitive));
    EXPECT_FALSE(Like(u"Q", u"[a-z]"));
}

TEST(Text, LikeRefusesBrokenPatterns)
{
    for (const QStringView pattern : {u"[", u"a[bc", u"*[", u"[z-a]", u"x[!"})
        EXPECT_EQ(errorOf([&] { Like(u"anything", pattern); }), 93) << pattern.toString().toStdString();
}

// Stars in number must not take time in powers.
TEST(Text, LikeWithManyStars)
{
    const QString text(2000, u'a');
    EXPECT_FALSE(Like(text, QString(u"*a"_s).repeated(40) + u'b'));
    EXPECT_TRUE(Like(text, QString(u"*a"_s).repeated(40)));
}

}
