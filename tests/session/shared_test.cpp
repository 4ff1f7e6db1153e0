#include "frame/framefixture.h"
#include "session/ini.h"
#include "session/shared.h"
#include "platform/basic/error.h"

using namespace Qt::StringLiterals;

namespace vorel {

using basic::DateTime;
using basic::Value;
using SharedTest = test::FrameTest;

TEST_F(SharedTest, age)
{
    const struct { QDate today, birth; QString age; } cases[] = {
        {{2005, 6, 15}, {2005, 6, 15}, u" 0 years 0 months 0 days "_s},
        {{2005, 6, 15}, {1980, 6, 15}, u" 25 years 0 months 0 days "_s},
        {{2005, 6, 15}, {1980, 6, 16}, u" 24 years 11 months 30 days "_s},
        {{2005, 6, 15}, {1980, 6, 14}, u" 25 years 0 months 1 days "_s},
        {{2005, 2, 28}, {1980, 2, 29}, u" 25 years 0 months 0 days "_s},     // a month is added to its last day
        {{2005, 3, 1}, {1980, 2, 29}, u" 25 years 0 months 1 days "_s},
        {{2005, 3, 30}, {2005, 1, 31}, u" 0 years 1 months 30 days "_s},
    };
    for (const auto &c : cases) {
        clock.set(c.today);
        EXPECT_EQ(GetAge(DateTime::fromQDate(c.birth)), c.age);
    }
}

TEST_F(SharedTest, everyDayHasItsStarSign)
{
    // The first day of each sign, in the order of the year.
    const std::pair<QDate, QString> first[] = {
        {{1980, 1, 1}, u"Capricorn"_s}, {{1980, 1, 21}, u"Aquarius"_s}, {{1980, 2, 20}, u"Pisces"_s},
        {{1980, 3, 21}, u"Aries"_s},    {{1980, 4, 21}, u"Taurus"_s},   {{1980, 5, 22}, u"Gemini"_s},
        {{1980, 6, 23}, u"Cancer"_s},   {{1980, 7, 24}, u"Leo"_s},      {{1980, 8, 24}, u"Virgo"_s},
        {{1980, 9, 24}, u"Libra"_s},    {{1980, 10, 24}, u"Scorpio"_s}, {{1980, 11, 23}, u"Sagittarius"_s},
        {{1980, 12, 22}, u"Capricorn"_s},
    };
    for (const QString &locale : {u"en_US"_s, u"en_AU"_s}) {
        use(locale);
        std::size_t sign = 0;
        for (QDate day(1980, 1, 1); day.year() == 1980; day = day.addDays(1)) {
            if (sign + 1 < std::size(first) && day == first[sign + 1].first)
                ++sign;
            ASSERT_EQ(GetStarSign(DateTime::fromQDate(day)), first[sign].second) << day.toString(Qt::ISODate);
        }
    }
}

TEST_F(SharedTest, money)
{
    const struct { Value value; double amount; } cases[] = {
        {Value(), 0},
        {u""_s, 0},
        {u"$1,234.50"_s, 1234.5},
        {u"($5.25)"_s, -5.25},
        {u"-7"_s, -7},
        {u"(-7)"_s, -7},
        {u"AUD 12"_s, 12},
        {u"1/2/3/4"_s, 1234},                   // no date
        {u"25/12/2003"_s, 37980},               // a date is given back as it is
        {basic::Currency::fromScaled(123456), 12.3456},
        {1e16, 1e16},
    };
    for (const auto &c : cases)
        EXPECT_DOUBLE_EQ(MoneyValue(c.value), c.amount) << c.value.text();
}

TEST_F(SharedTest, datesForQueries)
{
    const struct { QString locale, text; bool monthFirst; QString result; } cases[] = {
        {u"en_AU"_s, {}, true, {}},
        {u"en_AU"_s, {}, false, {}},
        {u"en_AU"_s, u"3/4/2005"_s, true, u"04/03/2005"_s},
        {u"en_AU"_s, u"3/4/2005"_s, false, u"03/04/2005"_s},
        {u"en_US"_s, u"3/4/2005"_s, true, u"03/04/2005"_s},
        {u"en_US"_s, u"25 Dec 2003"_s, false, u"12/25/2003"_s},
        {u"de_DE"_s, u"3/4/2005"_s, true, u"04/03/2005"_s},
    };
    for (const auto &c : cases) {
        use(c.locale);
        EXPECT_EQ(FormatDateForSql(c.text, c.monthFirst), c.result);
    }
    EXPECT_THROW(FormatDateForSql(u"soon"_s, true), basic::BasicError);
}

TEST_F(SharedTest, textHelpers)
{
    EXPECT_EQ(NormaliseKey(u" Smith,  John "_s), u"SMITHJOHN"_s);
    EXPECT_EQ(graveApostrophes(u"O'Brien's"_s), u"O`Brien`s"_s);
    EXPECT_EQ(shownApostrophes(u"O`Brien`s"_s), u"O'Brien's"_s);
}

TEST_F(SharedTest, namesOfOperatingSystems)
{
    const struct { int platform, major, minor; QString name; } cases[] = {
        {1, 4, 0, u"Windows 95"_s},     {1, 4, 10, u"Windows 98"_s},  {1, 4, 90, u"Windows Mellinnium"_s},
        {1, 4, 5, u"Failed"_s},         {2, 3, 51, u"Windows NT 3.51"_s}, {2, 4, 0, u"Windows NT 4.0"_s},
        {2, 5, 0, u"Windows 2000"_s},   {2, 5, 1, u"Windows XP"_s},   {2, 6, 1, u"Failed"_s},
        {0, 5, 0, u"Failed"_s},
    };
    for (const auto &c : cases)
        EXPECT_EQ(osNameFor(c.platform, c.major, c.minor), c.name);
}

TEST_F(SharedTest, soundsPlayWhileTheSettingIsOn)
{
    QStringList played;
    setSoundPlayer([&](const QString &path) { played << QFileInfo(path).fileName(); });
    for (const QString &name : {u"beep.wav"_s, u"woosh.wav"_s, u"doorbell.wav"_s, u"message.wav"_s, u"clang.wav"_s})
        folder.write(name, "RIFF");
    state().settings.gSoundFile = folder.write(u"mine.wav"_s, "RIFF");
    for (int number = 0; number <= 7; ++number)
        PlaySoundNumber(number);
    EXPECT_EQ(played, (QStringList{u"beep.wav"_s, u"woosh.wav"_s, u"doorbell.wav"_s, u"message.wav"_s, u"clang.wav"_s,
                                   u"mine.wav"_s}));
    state().settings.gSoundFile.clear();
    PlaySoundNumber(6);
    PutIniValue(iniSettings, u"PlaySound"_s, u"False"_s);
    PlaySoundNumber(1);
    EXPECT_EQ(played.size(), 6);
    setSoundPlayer({});
    PutIniValue(iniSettings, u"PlaySound"_s, u"True"_s);
    PlaySoundNumber(1);
    EXPECT_EQ(played.size(), 6);
}

}
