#include "frame/framefixture.h"
#include "session/ini.h"
#include "session/shared.h"
#include "platform/basic/error.h"
#include "support/table.h"

using namespace Qt::StringLiterals;

namespace vorel {

using basic::DateTime;
using basic::Value;
using SharedTest = test::FrameTest;

TEST_F(SharedTest, age)
{
    // A month is added to its last day.
    test::forEachRow("shared", "ages", [this](const test::Row &row) {
        clock.set(QDate::fromString(row["today"], Qt::ISODate));
        EXPECT_EQ(GetAge(DateTime::fromQDate(QDate::fromString(row["birth"], Qt::ISODate))), row["age"]);
    });
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
    test::forEachRow("shared", "dates", [this](const test::Row &row) {
        use(row["locale"]);
        EXPECT_EQ(FormatDateForSql(row["text"], row.flag("monthFirst")), row["result"]);
    });
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
    test::forEachRow("shared", "systems", [](const test::Row &row) {
        EXPECT_EQ(osNameFor(row.number("platform"), row.number("major"), row.number("minor")), row["name"]);
    });
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
