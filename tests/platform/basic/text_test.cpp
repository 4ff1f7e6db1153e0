#include "platform/basic/text.h"
#include "support.h"
#include "support/table.h"

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
    vorel::test::forEachRow("text", "like", [](const vorel::test::Row &row) {
        EXPECT_EQ(Like(row["text"], row["pattern"]), row.flag("matches"));
    });
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
