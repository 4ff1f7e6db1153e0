#include "platform/basic/text.h"
#include "support.h"
#include "support/steps.h"

using namespace vorel::basic;
using namespace Qt::StringLiterals;

namespace {

TEST(Text, PartsOfATextStopAtItsEnds)
{
    vorel::test::forEachRow("text", "parts", [](const vorel::test::Row &row) {
        const QString call = row["call"], text = row["text"];
        const int first = vorel::test::word(call, 1).toInt(), count = vorel::test::word(call, 2).toInt();
        EXPECT_EQ(row["expected"], vorel::test::answerOf([&] {
            return call == u"Trim" ? Trim(text) : call == u"LTrim" ? LTrim(text) : call == u"RTrim" ? RTrim(text)
                : call.startsWith(u'L') ? Left(text, first) : call.startsWith(u'R') ? Right(text, first)
                : count ? Mid(text, first, count) : Mid(text, first);
        }));
    });
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
