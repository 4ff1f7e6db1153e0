#include "platform/basic/convert.h"
#include "platform/basic/dates.h"
#include "platform/basic/format.h"
#include "support.h"
#include "support/table.h"

#include <limits>

using namespace vorel::basic;
using namespace Qt::StringLiterals;

namespace {

using Dates = BasicTest;

TEST_F(Dates, SerialsCountFromTheirDayZero)
{
    EXPECT_EQ(DateTime::fromParts(1899, 12, 30).serial(), 0);
    EXPECT_EQ(DateTime::fromParts(2003, 12, 25, 12).serial(), 37980.5);
    EXPECT_EQ(DateTime::fromParts(100, 1, 1).serial(), -657434);
    EXPECT_EQ(DateTime::fromParts(9999, 12, 31).serial(), 2958465);
    // Before day 0 the time still counts forward from midnight.
    EXPECT_EQ(DateTime(-1.25).toStored(), u"1899-12-29 06:00:00"_s);
    EXPECT_EQ(DateTime::fromParts(1899, 12, 29, 6).serial(), -1.25);
    // Half a second short of midnight is midnight.
    EXPECT_EQ(DateTime(37979.999999).toStored(), u"2003-12-25 00:00:00"_s);
    EXPECT_FALSE(DateTime(0.5).hasDate());
    EXPECT_TRUE(DateTime(0.5).hasTime());
    EXPECT_EQ(DateTime(-1.25).dayOnly().serial(), -1);
}

TEST_F(Dates, EverySecondAndDayComesBack)
{
    for (int second = 0; second < 86400; second += 7) {
        const DateTime moment = DateTime::fromParts(2004, 2, 29, second / 3600, second / 60 % 60, second % 60);
        ASSERT_EQ(moment.time(), QTime(0, 0).addSecs(second));
        ASSERT_EQ(DateTime::fromStored(moment.toStored()), moment);
    }
    for (int serial = -657434; serial <= 2958465; serial += 97) {
        const DateTime day(serial);
        ASSERT_EQ(day.date(), QDate(1899, 12, 30).addDays(serial));
        ASSERT_EQ(DateTime::fromStored(day.toStored()), day);
    }
}

// Without a serial: refused.
TEST_F(Dates, StoredFormRefusesGarbage)
{
    vorel::test::forEachRow("text", "stored dates", [](const vorel::test::Row &row) {
        bool ok = row["serial"].isEmpty();
        EXPECT_EQ(DateTime::fromStored(row["text"], &ok), DateTime(row.real("serial")));
        EXPECT_EQ(ok, !row["serial"].isEmpty());
    });
}

TEST_F(Dates, SerialsOutsideTheRangeStayInside)
{
    EXPECT_EQ(DateTime(1e300).toStored(), u"9999-12-31 23:59:59"_s);
    EXPECT_EQ(DateTime(-1e300).toStored(), u"0100-01-01 00:00:00"_s);
    EXPECT_EQ(DateTime(std::numeric_limits<double>::quiet_NaN()).toStored(), u"1899-12-30 00:00:00"_s);
    EXPECT_EQ(DateTime(2958465.9999999).toStored(), u"9999-12-31 23:59:59"_s);
    EXPECT_EQ(errorOf([] { CDate(Value(2958466)); }), 6);
    EXPECT_EQ(errorOf([] { DateTime::fromParts(2003, 2, 29); }), 5);
}

TEST_F(Dates, ArithmeticBeyondTheVectors)
{
    // Monday to Monday: one week boundary when weeks begin on Monday, whichever way.
    const DateTime monday = DateTime::fromParts(2004, 1, 5);
    const DateTime nextMonday = DateTime::fromParts(2004, 1, 12);
    const DateTime sunday = DateTime::fromParts(2004, 1, 11);
    EXPECT_EQ(DateDiff(u"ww", monday, sunday, 2), 0);
    EXPECT_EQ(DateDiff(u"ww", nextMonday, monday, 2), -1);
    EXPECT_EQ(TimeSerial(9, 90, 0), DateTime::fromParts(1899, 12, 30, 10, 30));
    EXPECT_EQ(TimeSerial(6, -15, 0).toStored(), u"1899-12-30 05:45:00"_s);
}

TEST_F(Dates, TheOrderOfAMachineShowsInOneText)
{
    for (const auto &[day, names] : {std::pair{7, u"en_US C POSIX C.UTF-8 en_US.UTF-8  xx_XX"_s},
                                     {2, u"en_AU en_GB de_DE en_GB.UTF-8 de_DE@euro fr_FR"_s}}) {
        for (const QString &name : names.split(u' ')) {
            setRegional(regionalFor(name));
            EXPECT_EQ(DatePart(u"d", CDate(Value(u"2/7/2000"_s))), day) << name.toStdString();
        }
    }
}

// What is shown is 5 January 2004, 21:05:07.
TEST_F(Dates, RegionalSettings)
{
    const DateTime moment = DateTime::fromParts(2004, 1, 5, 21, 5, 7);
    vorel::test::forEachRow("text", "regions", [&](const vorel::test::Row &row) {
        setRegional(regionalFor(row["region"]));
        EXPECT_EQ(regional().order == DateOrder::MonthFirst, row["order"] == u"month");
        EXPECT_EQ(Value(moment).text(), row["shown"]);
        EXPECT_EQ(Format(Value(-1234.5), u"Currency"), row["price"]);
        EXPECT_EQ(regional().metricPaper, row.flag("metric"));
        EXPECT_EQ(Format(Value(moment), u"mm/dd/yyyy"), u"01/05/2004"_s) << "a query's date keeps its form everywhere";
    });
}

TEST_F(Dates, WhatAMachineWritesItReads)
{
    const DateTime moments[] = {
        DateTime::fromParts(2003, 12, 25), DateTime::fromParts(2004, 5, 6, 7, 8, 9), DateTime::fromParts(1968, 2, 29, 12, 0, 0),
        DateTime::fromParts(1899, 12, 30, 23, 59, 59), DateTime::fromParts(9999, 12, 31), DateTime::fromParts(100, 1, 1),
        DateTime(),
    };
    const QStringView names[] = {u"en_US", u"en_AU", u"en_GB", u"en_CA", u"en_NZ", u"de_DE", u"de_CH",
                                 u"fr_FR", u"nl_NL", u"sv_SE", u"hu_HU", u"bg_BG", u"ko_KR", u"ja_JP",
                                 u"fi_FI", u"pl_PL", u"ar_EG", u"fa_IR", u"lt_LT", u"hr_HR"};
    for (const QStringView name : names) {
        setRegional(regionalFor(name.toString()));
        for (const DateTime &moment : moments) {
            const QString text = Value(moment).text();
            SCOPED_TRACE(name.toString().toStdString() + ' ' + text.toStdString());
            EXPECT_EQ(errorOf([&] { EXPECT_EQ(CDate(Value(text)), moment); }), 0);
        }
        EXPECT_EQ(CDate(Value(u"2003-12-25"_s)), moments[0]) << name.toString().toStdString();
    }
}

TEST_F(Dates, TextsThatHangOnTheYearOrAreNumbers)
{
    stopClock(2003, 6, 1);
    EXPECT_EQ(CDate(Value(u"29 2"_s)).toStored(), u"2029-02-01 00:00:00"_s) << "no leap year: month and year";
    EXPECT_EQ(Value(DateTime::fromParts(2004, 1, 5)).text(), u"1/5/2004"_s);
    EXPECT_EQ(Value(DateTime(0.5)).text(), u"12:00:00 PM"_s);
    // A plain number is not the text of a date, yet it converts as the serial.
    EXPECT_EQ(CDate(Value(u"37980.5"_s)).serial(), 37980.5);
}

TEST_F(Dates, TheClockIsTheOneThatWasSet)
{
    stopClock(2004, 2, 29, 18, 30, 15);
    EXPECT_EQ(Now().toStored(), u"2004-02-29 18:30:15"_s);
    EXPECT_EQ(vorel::basic::Date(), DateTime::fromParts(2004, 2, 29));
    EXPECT_EQ(Time().toStored(), u"1899-12-30 18:30:15"_s);
    setClock({});
    const DateTime before = DateTime::fromQDateTime(QDateTime::currentDateTime());
    const DateTime now = Now();
    EXPECT_LE(before, now);
    EXPECT_LE(now, DateTime::fromQDateTime(QDateTime::currentDateTime()));
}

TEST_F(Dates, ChanceRepeatsFromItsSeed)
{
    const auto series = [] {
        setRandomSeed(7);
        QList<double> numbers;
        for (int i = 0; i < 1000; ++i)
            numbers << Rnd();
        return numbers;
    };
    const QList<double> numbers = series();
    EXPECT_EQ(series(), numbers);
    EXPECT_GE(*std::min_element(numbers.begin(), numbers.end()), 0.0);
    EXPECT_LT(*std::max_element(numbers.begin(), numbers.end()), 1.0);
    EXPECT_GT(QSet<double>(numbers.begin(), numbers.end()).size(), 900);
}

}
