#include "support/testfolder.h"
#include "utilities/hints.h"
#include "utilities/infopages.h"

#include <QSet>

using namespace Qt::StringLiterals;
using namespace vorel;

TEST(Hints, EveryLineIsOneWithItsEnd)
{
    const test::TestFolder folder;
    struct Case { const char *name; QByteArray file; QStringList hints; };
    const Case cases[] = {
        {"line ends of all systems", "a\r\nb\nc\rd", {u"a .........."_s, u"b .........."_s, u"c .........."_s, u"d .........."_s}},
        {"the last line's end begins no other", "a\n", {u"a .........."_s}},
        {"empty file", "", {}},
        {"a feature that is still to come", "[setup] a\nb\n[own] c\n[setup\n", {u"b .........."_s, u"[own] c .........."_s, u"[setup .........."_s}},
        {"accents", "caf\xC3\xA9", {u"caf\u00E9 .........."_s}},
        {"accents, old", "caf\xE9", {u"caf\u00E9 .........."_s}},
    };
    for (const Case &c : cases) {
        folder.write(u"HINTS.TXT"_s, c.file);
        LoadHints();
        EXPECT_EQ(c.hints, Hints()) << c.name;
    }
    folder.write(u"HINTS.TXT"_s, "");
    LoadHints();
    EXPECT_EQ(u""_s, NextHint());
    QFile::remove(folder.path(u"HINTS.TXT"_s));
    LoadHints();
    EXPECT_FALSE(Hints().isEmpty()) << "the program's own";
}

TEST(Hints, OneIsPickedByTheTimeOfDay)
{
    const test::TestFolder folder;
    test::TestClock clock;
    folder.write(u"hints.txt"_s, "one\ntwo\nthree\n");
    LoadHints();
    QSet<QString> seen;
    for (int second = 0; second < 100; ++second) {
        const QString hint = NextHint();
        EXPECT_TRUE(Hints().contains(hint));
        EXPECT_EQ(hint, NextHint()) << "the same moment picks the same";
        seen.insert(hint);
        clock.addSeconds(1);
    }
    EXPECT_EQ(3, seen.size());
}

TEST(InfoPages, EachCodeHasItsPage)
{
    EXPECT_EQ(u"\\INFOAPPOINTS.RTF"_s, infoPageFile(u"A"));
    EXPECT_EQ(u"\\INFOVEHICLE.RTF"_s, infoPageFile(u"MV"));
    EXPECT_EQ(u"\\INFOBILLPAY.RTF"_s, infoPageFile(infoPayBill));
    EXPECT_EQ(u"\\INFOCONTACTS.RTF"_s, infoPageFile(u"X")) << "a list over the contacts";
    EXPECT_EQ(u"\\INFOTODO.RTF"_s, infoPageFile(u"G"));
    EXPECT_EQ(u"\\INFOSHOPPING.RTF"_s, infoPageFile(u"H"));
    for (const QStringView code : {u"All", u"AB", u"", u"nothing"})
        EXPECT_EQ(u"\\INFOALL.RTF"_s, infoPageFile(code));
}
